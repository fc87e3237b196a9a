/** script/bundle and script/widget: main.mjs bundle|widget FOLDER [--device DIR]. */
import { resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { parseArgs } from 'node:util';
import { make } from './make.mjs';
import { Refusal } from './refusal.mjs';
import { runningSimulator } from './simulator.mjs';

const root = fileURLToPath(new URL('../../../', import.meta.url));
const [command, ...words] = process.argv.slice(2);

function argumentsOf() {
  try {
    const { values, positionals } = parseArgs({
      args: words, allowPositionals: true, options: { device: { type: 'string', default: 'device' } },
    });
    if (positionals.length === 1) return { folder: positionals[0], device: resolve(values.device) };
  } catch {
    // Told as any other misunderstanding.
  }
  process.stderr.write(`usage: script/${command} FOLDER [--device DIR]\n`);
  process.exit(2);
}

async function main() {
  const { folder, device } = argumentsOf();
  const build = process.env.ZUNO_BUILD ?? `${root}build/run`;
  const { problem, output, installed, remarks } = await make(folder, {
    build, device, kind: command === 'widget' ? 'widget' : 'settings',
  });
  process.stderr.write(output);
  if (problem) throw new Refusal(problem.sentence);
  for (const path of installed) process.stdout.write(`Installed ${path}\n`);
  const simulator = await runningSimulator(device);
  const refused = simulator && await simulator.reload();
  for (const remark of [...remarks, ...(refused ? [refused] : [])]) process.stderr.write(`${remark}\n`);
}

main().catch((error) => {
  if (!(error instanceof Refusal)) throw error;
  process.stderr.write(`script/${command}: ${error.message}\n`);
  process.exitCode = 1;
});
