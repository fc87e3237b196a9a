/** From a maker's folder to the device. */
import { existsSync } from 'node:fs';
import { mkdir, readdir, readFile } from 'node:fs/promises';
import { join, relative, resolve } from 'node:path';
import { alone } from './alone.mjs';
import { compile } from './compile.mjs';
import { idOf, install } from './install.mjs';
import { readProject } from './project.mjs';
import { Refusal } from './refusal.mjs';

const entries = 'var/jb/Library/PreferenceLoader/Preferences';

/**
 * Builds what lies in `folder` with the settings of the simulator's build in `build`, and installs it into the folder
 * `device`. `kind`, "widget" or "settings", refuses what has no bundle of it.
 *
 * Resolves with `{name, problem, output, installed, remarks}`: `problem` null, or `{sentence, errors}` when it does not
 * compile, and then nothing is installed; `output` what the compiler says; `installed` the bundles' paths; `remarks`
 * sentences for the maker. Rejects with a Refusal what cannot be built at all.
 */
export async function make(folder, { build, device, kind }) {
  const needed = [join(build, 'maker/Cache.cmake'), join(device, 'var/jb/usr/include/Zuno/ZunoWidgetProtocol.h')];
  if (!needed.every((file) => existsSync(file))) {
    throw new Refusal(`${device} is no device folder yet, or ${build} no build; start script/run once.`);
  }
  const work = join(build, 'maker', idOf(resolve(folder)));
  await mkdir(work, { recursive: true });
  // Of two at once, one would install what the other is at.
  return alone(join(work, 'lock'), () => makeProject(folder, work, { build, device, kind }));
}

async function makeProject(folder, work, { build, device, kind }) {
  const project = await readProject(folder, work);
  if (kind && !project.bundles.some((bundle) => bundle.kind === kind)) {
    const other = kind === 'widget' ? 'a settings bundle, which script/bundle builds' : 'a widget, which script/widget builds';
    throw new Refusal(`${folder} is ${other}.`);
  }
  const executables = [];
  let output = '';
  for (const bundle of project.bundles) {
    const { executable, output: said, ...problem } = await compile(bundle, project, build, device);
    output += said;
    if (!executable) return { name: project.name, problem, output, installed: [], remarks: [] };
    executables.push(executable);
  }
  const installed = await install(project, executables, device);
  return { name: project.name, problem: null, output, installed, remarks: await remarksOn(project, installed, device) };
}

async function remarksOn(project, installed, device) {
  const remarks = [];
  for (const [at, bundle] of project.bundles.entries()) {
    if (bundle.foreign.length > 0) {
      remarks.push(`${bundle.name} is built without what the simulator does not carry: ${bundle.foreign.join(', ')}.`);
    }
    if (bundle.kind === 'settings' && !(await isOpenedByAnEntry(bundle, device))) {
      remarks.push(`No entry in /${entries} opens ${bundle.name} in /${relative(device, installed[at])}.`);
    }
  }
  return remarks;
}

/** Whether a file among the entries names the bundle; what it is worth is for Settings to say. */
async function isOpenedByAnEntry(bundle, device) {
  const files = await readdir(join(device, entries), { recursive: true }).catch(() => []);
  for (const file of files.filter((each) => each.endsWith('.plist'))) {
    if ((await readFile(join(device, entries, file))).includes(bundle.name)) return true;
  }
  return false;
}
