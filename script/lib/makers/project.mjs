/** What a maker's folder builds. */
import { existsSync } from 'node:fs';
import { readdir, readFile, stat } from 'node:fs/promises';
import { basename, extname, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { shellWords, variablesOf } from './makefile.mjs';
import { Refusal } from './refusal.mjs';

const root = fileURLToPath(new URL('../../../', import.meta.url));
const compiled = new Set(['.m', '.mm', '.c', '.cc', '.cpp', '.cxx']);
const headers = new Set(['.h', '.hpp', '.hh']);
// What a folder holds beside a bundle's resources where these have no folder of their own.
const noResources = new Set(['Makefile', 'control', 'layout', 'packages', 'obj', 'entry.plist']);
// The variables of a bundle that name its sources.
const fileLists = ['FILES', 'OBJC_FILES', 'OBJCC_FILES', 'C_FILES', 'CC_FILES', 'CPP_FILES', 'LOGOS_FILES', 'SWIFT_FILES'];
const widgetsFolder = '/Library/Zuno/Widgets';
// Where Theos puts a bundle whose Makefile does not say.
const bundlesFolder = '/Library/Bundles';
// Options that mean the same to the compiler of the simulator. The second group has its value in the next word.
const carriedOption = /^(-[DUIW]|-std=|-include$|-fno-objc-arc-exceptions$|-fobjc-arc-exceptions$|-fobjc-weak$)/;
const withValue = new Set(['-D', '-U', '-I', '-include']);
// Options that the build has or has no use for: they are neither passed on nor spoken of.
const idleOption = /^-(O|g|f(no-)?(objc-arc|modules|cxx-modules|blocks)$|Werror$|w$)/;

/**
 * The project in `folder`: `{name, folder, work, bundles, layout, makefiles}`. `work` is a folder for what is made on
 * the way, `layout` the folder that is installed as it is, or null, and `makefiles` the folders whose Makefiles may
 * stage more.
 *
 * A bundle is `{name, kind, folder, sources, isArc, options, resources, file, installed, foreign}`: `kind` "widget" or
 * "settings"; each source `{file, options}`; `resources` the files and folders that go into it; `file` its own folder's
 * name and `installed` where that goes to, below the root of the jailbreak; `foreign` what the Makefile names and the
 * simulator does not carry, in words.
 */
export async function readProject(folder, work) {
  const path = resolve(folder);
  if (!(await stat(path).catch(() => null))?.isDirectory()) throw new Refusal(`${folder} is no folder.`);
  const layout = existsSync(join(path, 'layout')) ? join(path, 'layout') : null;
  const project = { name: basename(path), folder: path, work, bundles: [], layout, makefiles: [] };
  await addBundles(project, path, new Map());
  if (project.bundles.length === 0) {
    throw new Refusal(`${folder} has neither a Makefile that builds a bundle nor the Info.plist of a widget.`);
  }
  project.name = project.bundles.map(({ name }) => name).join(', ');
  return project;
}

async function addBundles(project, folder) {
  const hasMakefile = existsSync(join(folder, 'Makefile'));
  const variables = hasMakefile ? await variablesOf(folder, project.work) : new Map();
  if (hasMakefile) project.makefiles.push(folder);
  for (const name of shellWords(variables.get('BUNDLE_NAME') ?? '')) {
    project.bundles.push(await bundleOf(folder, name, variables));
  }
  if (project.bundles.length === 0 && existsSync(join(folder, 'Info.plist'))) {
    project.bundles.push(await bundleOf(folder, null, variables));
  }
  // A tweak's settings bundle lies in a folder of its project.
  for (const each of shellWords(variables.get('SUBPROJECTS') ?? '')) await addBundles(project, join(folder, each));
}

async function bundleOf(folder, named, variables) {
  const of = (variable) => shellWords(variables.get(`${named}_${variable}`) ?? '');
  const resources = await resourcesOf(folder, of('RESOURCE_DIRS'), of('RESOURCE_FILES'));
  const list = resources.find((file) => basename(file) === 'Info.plist');
  if (!list) throw new Refusal(`${folder} has no Info.plist.`);
  const information = await readFile(list, 'utf8');
  const executable = textIn(information, 'CFBundleExecutable');
  const name = named ?? executable;
  if (!name || /[/;]/.test(name)) {
    throw new Refusal(`${list}, an XML list, names no CFBundleExecutable that is a file's name.`);
  }
  if (executable && executable !== name) {
    throw new Refusal(`${list} names the executable ${executable}, and the Makefile builds ${name}.`);
  }
  const kind = /<key>Zuno(WidgetClass|WidgetsVersion)<\/key>/.test(information) ? 'widget' : 'settings';
  const flags = flagsOf(folder, variables, of);
  const sources = await sourcesOf(folder, name, fileLists.flatMap(of), variables);
  const [installed = kind === 'widget' ? widgetsFolder : bundlesFolder] = of('INSTALL_PATH');
  const [extension = 'bundle'] = of('BUNDLE_EXTENSION');
  return {
    name, kind, folder, sources, resources, ...flags,
    file: `${name}.${extension}`,
    installed: installed.replace(/^\/var\/jb(?=\/)/, ''),
    foreign: [
      ...of('FRAMEWORKS').concat(of('PRIVATE_FRAMEWORKS'), of('EXTRA_FRAMEWORKS'), of('WEAK_FRAMEWORKS'))
        .filter((each) => !isCarried(each)).map((each) => `the framework ${each}`),
      ...of('LIBRARIES').filter((each) => each !== 'norvikapplist').map((each) => `the library ${each}`),
      ...flags.foreign.map((each) => `the option ${each}`),
    ],
  };
}

/** Whether the simulator has headers of this framework. */
export function isCarried(framework) {
  return ['simulator', 'include'].some((folder) => existsSync(join(root, folder, framework, `${framework}.h`)));
}

async function sourcesOf(folder, name, told, variables) {
  const files = told.length > 0 ? told
    : (await readdir(folder)).filter((file) => ['.m', '.mm'].includes(extname(file))).sort();
  if (files.length === 0) throw new Refusal(`${folder} has neither a .m nor a .mm file.`);
  const foreign = files.filter((file) => !compiled.has(extname(file)));
  if (foreign.length > 0) {
    throw new Refusal(`${name} is built of ${foreign.join(', ')}, and the simulator builds Objective-C, C and C++ alone.`);
  }
  if (files.some((file) => file.includes(';'))) {
    throw new Refusal(`The name of a file in ${folder} has a semicolon, which CMake takes for the end of it.`);
  }
  const sources = files.map((file) => ({
    file: resolve(folder, file), options: shellWords(variables.get(`${file}_CFLAGS`) ?? ''),
  }));
  for (const { file } of sources) if (!existsSync(file)) throw new Refusal(`${file}, of which ${name} is built, is not there.`);
  return sources;
}

async function resourcesOf(folder, folders, files) {
  const named = files.map((file) => join(folder, file));
  const inFolders = folders.length > 0 ? folders : ['Resources'];
  const present = inFolders.map((each) => join(folder, each)).filter((each) => existsSync(each));
  if (present.length > 0) {
    for (const each of present) named.push(...(await readdir(each)).map((file) => join(each, file)));
    return named.filter((file) => !isHidden(file));
  }
  const all = (await readdir(folder)).filter((file) => (
    !noResources.has(file) && !compiled.has(extname(file)) && !headers.has(extname(file)) && !isHidden(file)));
  return named.concat(all.map((file) => join(folder, file)));
}

function isHidden(file) {
  return basename(file).startsWith('.') || file.endsWith('~');
}

/** ARC is what the last option says, as for the compiler. */
function flagsOf(folder, variables, of) {
  const kinds = ['CFLAGS', 'OBJCFLAGS', 'CCFLAGS', 'CXXFLAGS', 'OBJCCFLAGS'];
  const words = kinds.flatMap((kind) => [...shellWords(variables.get(`ADDITIONAL_${kind}`) ?? ''), ...of(kind)]);
  const options = [];
  const foreign = [];
  let isArc = false;
  for (let at = 0; at < words.length; at += 1) {
    const word = words[at];
    const isSplit = withValue.has(word) && at + 1 < words.length;
    if (isSplit) at += 1;
    if (/^-f(no-)?objc-arc$/.test(word)) isArc = word === '-fobjc-arc';
    else if (idleOption.test(word)) continue;
    else if (carriedOption.test(word)) options.push(absolute(folder, word, isSplit ? words[at] : ''));
    else foreign.push(word);
  }
  return { isArc, options, foreign };
}

/** A folder or file of an option counts from the project's folder. */
function absolute(folder, word, value) {
  if (word === '-include') {
    const file = resolve(folder, value);
    return `-include${existsSync(file) ? file : value}`;
  }
  const whole = word + value;
  return whole.startsWith('-I') ? `-I${resolve(folder, whole.slice(2))}` : whole;
}

/** The string that an XML property list has under `key`, or null. */
function textIn(list, key) {
  return list.match(new RegExp(`<key>${key}</key>\\s*<string>([^<]*)</string>`))?.[1] ?? null;
}
