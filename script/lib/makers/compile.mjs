/** Builds the code of a maker's bundle as the simulator's build makes its own. */
import { execFile } from 'node:child_process';
import { existsSync } from 'node:fs';
import { cp, mkdir, mkdtemp, readdir, readFile, rename, rm, writeFile } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { errorsIn, foreignIn, foreignSentence, relativeTo } from './diagnostics.mjs';
import { shellWords } from './makefile.mjs';
import { Refusal } from './refusal.mjs';

const recipe = fileURLToPath(new URL('../../../cmake/maker', import.meta.url));
// Of headers that are not there, one after another.
const mostRounds = 20;

/**
 * Compiles and links `bundle` of `project` with the settings of the simulator's build in `build`, against the headers
 * in `device`. What has not changed is not compiled again.
 *
 * Resolves with `{executable, output}`, the file and what the compiler says, or with `{errors, sentence, output}`: the
 * errors in the maker's files, why it was not built, in one sentence, and what the compiler says.
 */
export async function compile(bundle, project, build, device) {
  const work = join(project.work, bundle.name);
  await mkdir(work, { recursive: true });
  await writeIfOther(join(work, 'project.cmake'), projectText(bundle, await importing(bundle), device));
  if (!existsSync(join(work, 'build.ninja'))) {
    const { code, output } = await configure(work, build);
    if (code !== 0) return { errors: [], sentence: `CMake cannot configure the build of ${bundle.name}.`, output };
  }
  const { code, output } = await run('ninja', ['-C', work, '--quiet']);
  if (code !== 0) return failure(bundle, project, work, output);
  return { executable: join(work, 'bundle', bundle.file, bundle.name), output: withoutCommands(output) };
}

/** What CMake finds out about the compilers, which takes most of its time, it finds out once for all projects. */
async function configure(work, build) {
  const known = join(build, 'maker/compilers');
  const options = [];
  if (existsSync(known)) {
    await cp(known, join(work, 'CMakeFiles'), { recursive: true });
    options.push('-DCMAKE_PLATFORM_INFO_INITIALIZED=1');
  }
  const words = ['-G', 'Ninja', '-S', recipe, '-B', work, '-C', join(build, 'maker/Cache.cmake'), ...options];
  const result = await run('cmake', words);
  if (result.code !== 0 || options.length > 0) return result;
  const copy = await mkdtemp(`${known}-`);
  const isKnowledge = (name) => /^\d/.test(name);  // A folder that is named after CMake's version.
  for (const name of (await readdir(join(work, 'CMakeFiles'))).filter(isKnowledge)) {
    await cp(join(work, 'CMakeFiles', name), join(copy, name), { recursive: true });
  }
  await rename(copy, known).catch(() => rm(copy, { recursive: true }));  // Another build may have been the first.
  return result;
}

async function failure(bundle, project, work, output) {
  const said = output + await diagnosed(work, output);
  const errors = relativeTo(project.folder, errorsIn(output));
  const foreign = await foreignIn(said);
  const sentence = foreign.length > 0 ? foreignSentence(bundle.name, foreign) : `${bundle.name} was not built.`;
  return { errors, sentence, output: withoutCommands(output) };
}

/** What ninja and CMake add to it is of no use to a maker. */
function withoutCommands(output) {
  return output.replace(/^FAILED: .*\n.*\n/gm, '').replace(/^(ninja: |-- ).*\n/gm, '');
}

/**
 * What the compiler says of the sources that it could not compile when no error is the last one that it tells, and a
 * header that is not there is empty instead.
 */
async function diagnosed(work, output) {
  const failed = new Set([...output.matchAll(/^FAILED: (?:\[code=\d+\] )?(\S+)/gm)].map(([, object]) => object));
  const commands = JSON.parse(await readFile(join(work, 'compile_commands.json'), 'utf8').catch(() => '[]'));
  const headers = join(work, 'missing');
  let said = '';
  for (const { command, directory } of commands) {
    const words = shellWords(command);
    if (!failed.has(words[words.indexOf('-o') + 1])) continue;
    const options = ['-fsyntax-only', '-ferror-limit=0', '-fno-caret-diagnostics', '-idirafter', headers];
    words.splice(words.indexOf('-o'), 2, ...options);
    for (let round = 0; round < mostRounds; round += 1) {
      const { output: told } = await run(words[0], words.slice(1), directory);
      said += told;
      const [, missing] = told.match(/fatal error: '([^']+)' file not found/) ?? [];
      const stand = missing && join(headers, missing);
      if (!stand || !stand.startsWith(headers) || existsSync(stand)) break;
      await mkdir(dirname(stand), { recursive: true });
      await writeFile(stand, '');
    }
  }
  return said;
}

/** The sources of the bundle that have an `@import`. */
async function importing(bundle) {
  const texts = await Promise.all(bundle.sources.map(({ file }) => readFile(file, 'utf8')));
  return bundle.sources.map(({ file }) => file).filter((file, at) => /^[ \t]*@import\b/m.test(texts[at]));
}

function projectText(bundle, modular, device) {
  const set = (name, ...values) => `set(${name}${values.map((value) => ` [==[${value}]==]`).join('')})\n`;
  const perSource = bundle.sources.filter(({ options }) => options.length > 0).map(({ file, options }) => (
    `set_property(SOURCE [==[${file}]==] APPEND PROPERTY COMPILE_OPTIONS ${options.map((each) => `[==[${each}]==]`).join(' ')})\n`));
  return set('MAKER_NAME', bundle.name) + set('MAKER_EXTENSION', bundle.file.slice(bundle.name.length + 1))
    + set('MAKER_SOURCES', ...bundle.sources.map(({ file }) => file)) + set('MAKER_IMPORTING', ...modular)
    + set('MAKER_ARC', bundle.isArc ? 'ON' : 'OFF')
    + set('MAKER_OPTIONS', ...bundle.options) + set('MAKER_FOLDER', bundle.folder)
    + set('MAKER_HEADERS', join(device, 'var/jb/usr/include')) + perSource.join('');
}

async function writeIfOther(file, text) {
  if (await readFile(file, 'utf8').catch(() => null) !== text) await writeFile(file, text);
}

function run(program, words, directory) {
  return new Promise((resolve, reject) => {
    execFile(program, words, { cwd: directory, maxBuffer: 1 << 28, env: { ...process.env, LC_ALL: 'C.UTF-8' } }, (error, stdout, stderr) => {
      if (error?.code === 'ENOENT') reject(new Refusal(`${program} is missing; script/run installs it.`));
      else resolve({ code: error ? error.code ?? 1 : 0, output: stdout + stderr });
    });
  });
}
