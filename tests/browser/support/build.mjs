import { fileURLToPath } from 'node:url';

/** The folder of the build that the tests run: SIMULATOR_BUILD, or that of script/run. */
export const build = process.env.SIMULATOR_BUILD ?? fileURLToPath(new URL('../../../build/run', import.meta.url));
