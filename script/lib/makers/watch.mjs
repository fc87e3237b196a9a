/**
 * script/run --watch: watch.mjs BUILD PROGRAM [ARGUMENT…] [-- FOLDER…]
 *
 * Runs the simulator PROGRAM with its arguments. While it runs, a change in the tree's bundle and samples, or in a
 * FOLDER of a maker, is built and shown: the same page is open again afterwards. What does not compile is told beside
 * the phone and here, and what was built before goes on running.
 */
import { execFile, spawn } from 'node:child_process';
import { createHash } from 'node:crypto';
import { existsSync } from 'node:fs';
import { readFile, stat } from 'node:fs/promises';
import { basename, join, relative, resolve } from 'node:path';
import { createInterface } from 'node:readline';
import { fileURLToPath } from 'node:url';
import { errorsIn, relativeTo } from './diagnostics.mjs';
import { make } from './make.mjs';
import { Refusal } from './refusal.mjs';
import { runningSimulator } from './simulator.mjs';

const root = resolve(fileURLToPath(new URL('../../../', import.meta.url)));
// What a run of the simulator is built of besides itself.
const ownFolders = ['ZunoPrefs', 'samples'];
// An editor writes several files at a time, and each of them more than once.
const settleTime = 80;
// What tools leave in the folder of a project, and editors beside a file; where the folder lies does not matter.
const ignored = '/(\\.git|\\.theos|packages|obj|\\.[^/]*\\.sw[a-z]?|4913|[^/]*~|\\.#[^/]*)(/|$)';

const [build, program, ...rest] = process.argv.slice(2);
const separator = rest.indexOf('--');
const words = separator < 0 ? rest : rest.slice(0, separator);
const folders = (separator < 0 ? [] : rest.slice(separator + 1)).map((folder) => resolve(folder));
const device = resolve(words.includes('--device') ? words[words.lastIndexOf('--device') + 1] ?? '' : 'device');

/** One thing that is built anew when a file below its `folders` changes. */
class Watched {
  constructor(name, paths, work) {
    this.name = name;
    this.paths = paths;
    this.work = work;
    this.files = new Set();  // In which something happened.
    this.known = new Map();  // What such files held when they were built last.
  }

  has(file) {
    return this.paths.some((path) => !relative(path, file).startsWith('..'));
  }

  /** Resolves with whether a file is another than at the last call: a Makefile may write what it wrote before. */
  async hasChanged() {
    const files = [...this.files];
    this.files.clear();
    let isOther = false;
    for (const file of files) {
      const now = await contentOf(file);
      if (!this.known.has(file) || this.known.get(file) !== now) isOther = true;
      this.known.set(file, now);
    }
    return isOther;
  }

  /** Resolves with the problem, {sentence, errors}, or null, and prints what the compiler says. */
  async attempt() {
    try {
      const { problem, output, remarks = [] } = await this.work();
      process.stderr.write(output);
      for (const remark of remarks) process.stderr.write(`${remark}\n`);
      return problem;
    } catch (error) {
      // A file may have gone in the middle of it; the simulator runs on.
      if (!(error instanceof Refusal)) process.stderr.write(`${error.stack}\n`);
      return { sentence: error.message, errors: [] };
    }
  }
}

/** Something that is another for other content; null for what is not there. */
async function contentOf(file) {
  try {
    const found = await stat(file);
    if (found.isDirectory()) return `folder ${found.ino}`;
    return createHash('sha256').update(await readFile(file)).digest('hex');
  } catch {
    return null;
  }
}

const all = [
  new Watched('Zuno', ownFolders.map((folder) => join(root, folder)), buildTree),
  ...folders.map((folder) => new Watched(basename(folder), [folder], () => make(folder, { build, device }))),
];

async function buildTree() {
  const { code, output } = await new Promise((done) => {
    execFile('ninja', ['-C', build, '--quiet', 'run_all'], { maxBuffer: 1 << 28 }, (error, stdout, stderr) => (
      done({ code: error ? 1 : 0, output: stdout + stderr })));
  });
  if (code === 0) return { problem: null, output };
  // ninja runs the compiler in its own folder.
  const errors = errorsIn(output).map((error) => ({ ...error, file: error.file && resolve(build, error.file) }));
  return { problem: { sentence: 'Zuno was not built.', errors: relativeTo(root, errors) }, output };
}

/** Builds `changed` one after another and has the simulator show them, when any was built. */
async function bringUp(changed) {
  const begin = performance.now();
  const simulator = await runningSimulator(device);
  let built = 0;
  for (const each of changed) {
    const problem = await each.attempt();
    await simulator?.tell({ name: each.name, sentence: problem?.sentence ?? null, errors: problem?.errors ?? [] });
    if (problem) process.stderr.write(`${problem.sentence}\n`);
    else built += 1;
  }
  if (built === 0) return;
  const refused = await simulator?.reload();
  const seconds = ((performance.now() - begin) / 1000).toFixed(1);
  const names = changed.map(({ name }) => name).join(', ');
  process.stderr.write(refused ? `${refused}\n` : `${names}: shown after ${seconds} s\n`);
}

/** An extended regular expression for `path` alone. */
function patternOf(path) {
  return path.replace(/[.*+?^${}()|[\]\\]/g, '\\$&');
}

function follow() {
  const paths = all.flatMap((each) => each.paths).filter((path) => existsSync(path));
  const events = ['close_write', 'moved_to', 'moved_from', 'delete', 'create'].flatMap((event) => ['-e', event]);
  const excluded = `^(${paths.map(patternOf).join('|')})(/.*)?${ignored}`;
  const options = ['-m', '-r', '-q', ...events, '--exclude', excluded, '--format', '%w%f', ...paths];
  const watcher = spawn('inotifywait', options, { stdio: ['ignore', 'pipe', 'inherit'] });
  watcher.on('error', () => {
    process.stderr.write('inotifywait, which tells of changes, is missing; it is in Debian\'s inotify-tools.\n');
  });
  let timer = null;
  let working = Promise.resolve();
  createInterface({ input: watcher.stdout }).on('line', (file) => {
    for (const each of all) if (each.has(file)) each.files.add(file);
    clearTimeout(timer);
    timer = setTimeout(() => {
      // What changes while something is built is built after it.
      working = working.then(async () => {
        const changed = [];
        for (const each of all) if (await each.hasChanged()) changed.push(each);
        if (changed.length > 0) await bringUp(changed);
      });
    }, settleTime);
  });
  return watcher;
}

const simulator = spawn(program, words, { stdio: ['inherit', 'pipe', 'inherit'] });
const watcher = follow();
for (const signal of ['SIGINT', 'SIGTERM', 'SIGHUP']) process.on(signal, () => simulator.kill(signal));
simulator.on('close', (code, signal) => {
  watcher.kill();
  process.exit(signal ? 1 : code);
});
createInterface({ input: simulator.stdout }).on('line', (line) => {
  process.stdout.write(`${line}\n`);
  // The device folder is there now.
  if (line.startsWith('http://') && folders.length > 0) bringUp(all.slice(1));
});
