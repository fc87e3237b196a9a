/** Makefiles of makers, as Theos has them: make itself reads them. */
import { execFile } from 'node:child_process';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';
import { Refusal } from './refusal.mjs';

const run = promisify(execFile);
const projectRules = fileURLToPath(new URL('project.mk', import.meta.url));

/**
 * The variables of the Makefile in `folder`, by name. What it includes from Theos is empty, and lies in `work`. Like
 * make for its maker, this runs what the Makefile has the shell do.
 */
export async function variablesOf(folder, work) {
  const told = await make(folder, work, '', 'maker-tell');
  const variables = new Map();
  for (const [, name, value] of told.matchAll(/^maker: (\S+) ?(.*)$/gm)) variables.set(name, value.trim());
  return variables;
}

/** Runs the rules by which the Makefile in `folder` stages more than its bundles, with `staging` as the root. */
export function stage(folder, work, staging) {
  return make(folder, work, staging, 'maker-stage');
}

/** The words of a text as a shell tells them apart. */
export function shellWords(text) {
  const words = [];
  for (const [word] of text.matchAll(/(?:[^\s"'\\]|\\.|"(?:[^"\\]|\\.)*"|'[^']*')+/gs)) {
    words.push(word.replace(/\\(.)|"((?:[^"\\]|\\.)*)"|'([^']*)'/gs, (whole, escaped, quoted, plain) => (
      escaped ?? plain ?? quoted.replace(/\\(["\\$`])/g, '$1'))));
  }
  return words;
}

async function make(folder, work, staging, goal) {
  const theos = `${work}/theos`;
  const settings = {
    THEOS: theos, THEOS_MAKE_PATH: `${theos}/makefiles`, THEOS_PROJECT_DIR: folder, THEOS_STAGING_DIR: staging,
    FW_STAGING_DIR: staging, THEOS_PACKAGE_SCHEME: 'rootless', THEOS_PACKAGE_INSTALL_PREFIX: '/var/jb', ECHO_NOTHING: '',
    ECHO_END: '',
  };
  const words = Object.entries(settings).map(([name, value]) => `${name}=${value}`);
  const environment = { ...process.env };
  for (const name of ['MAKEFLAGS', 'MAKELEVEL', 'MFLAGS']) delete environment[name];
  try {
    const options = ['--no-print-directory', '--silent', '--file', 'Makefile', '--file', projectRules];
    return (await run('make', [...options, ...words, goal], { cwd: folder, env: environment })).stdout;
  } catch (error) {
    if (error.code === 'ENOENT') throw new Refusal('make, which reads Makefiles, is missing: it comes with Debian\'s package make.');
    throw new Refusal(`${folder}/Makefile cannot be read:\n${error.stderr.trim()}`);
  }
}
