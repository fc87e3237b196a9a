/** Puts what was built into a device folder. */
import { createHash } from 'node:crypto';
import { existsSync } from 'node:fs';
import { chmod, copyFile, cp, mkdir, mkdtemp, readdir, readFile, rename, rm, rmdir, writeFile } from 'node:fs/promises';
import { basename, dirname, join, relative, sep } from 'node:path';
import { stage } from './makefile.mjs';

const jailbreak = 'var/jb';

/**
 * Lays out `project`, whose bundles were built as `executables` (a file each), as its package would, and installs it
 * into `device` in place of what an earlier call has put there. A bundle takes the place of the one before whole; a
 * file beside it that has not changed since is left as it is on the device, which may have changed it. Nothing is
 * installed when something of it cannot be laid out.
 *
 * Resolves with the paths of the bundles, in their order.
 */
export async function install(project, executables, device) {
  const own = join(device, '.simulator/makers');
  await mkdir(own, { recursive: true });
  // On the same disk as where it goes, so that it can be moved there.
  const staging = await mkdtemp(join(own, 'new-'));
  try {
    const bundles = await layOut(project, executables, staging);
    return await put(project, bundles, staging, device, own);
  } finally {
    await rm(staging, { recursive: true, force: true });
  }
}

/** Resolves with the bundles' folders, relative to the staging folder. */
async function layOut(project, executables, staging) {
  const bundles = [];
  for (const [at, bundle] of project.bundles.entries()) {
    const folder = join(staging, bundle.installed, bundle.file);
    await mkdir(folder, { recursive: true });
    for (const file of bundle.resources) {
      await cp(file, join(folder, basename(file)), { recursive: true, dereference: true });
    }
    await copyFile(executables[at], join(folder, bundle.name));
    await chmod(join(folder, bundle.name), 0o755);
    bundles.push(relative(staging, folder));
  }
  if (project.layout) {
    // What lies in DEBIAN belongs to the package tool.
    const filter = (file) => relative(project.layout, file).split(sep)[0] !== 'DEBIAN';
    await cp(project.layout, staging, { recursive: true, filter });
  }
  for (const folder of project.makefiles) await stage(folder, project.work, staging);
  return bundles;
}

async function put(project, bundles, staging, device, own) {
  const places = bundles.map((bundle) => join(device, onDevice(bundle)));
  for (const [at, bundle] of bundles.entries()) {
    await mkdir(dirname(places[at]), { recursive: true });
    const old = join(staging, `old-${at}`);
    if (existsSync(places[at])) await rename(places[at], old);
    await rename(join(staging, bundle), places[at]);
    await rm(old, { recursive: true, force: true });
  }
  await putFiles(project, staging, device, own);
  return places;
}

/** What goes beside the bundles: a record tells what of it was installed before, by its content. */
async function putFiles(project, staging, device, own) {
  const record = join(own, `${idOf(project.folder)}.json`);
  const before = JSON.parse(await readFile(record, 'utf8').catch(() => '{}'));
  const now = {};
  for (const file of await filesIn(staging)) {
    const path = onDevice(relative(staging, file));
    const place = join(device, path);
    now[path] = createHash('sha256').update(await readFile(file)).digest('hex');
    if (before[path] === now[path] && existsSync(place)) continue;
    await mkdir(dirname(place), { recursive: true });
    await rename(file, place);
  }
  for (const path of Object.keys(before)) {
    if (!(path in now)) await removeWithFolders(join(device, path), device);
  }
  await writeFile(`${record}.new`, JSON.stringify(now, null, 1));
  await rename(`${record}.new`, record);
}

/** Folders that hold nothing else go as well. */
async function removeWithFolders(file, device) {
  await rm(file, { force: true });
  try {
    for (let folder = dirname(file); folder !== device; folder = dirname(folder)) await rmdir(folder);
  } catch {
    // The first that holds something.
  }
}

async function filesIn(folder) {
  const entries = await readdir(folder, { withFileTypes: true });
  const lists = await Promise.all(entries.map((entry) => (
    entry.isDirectory() ? filesIn(join(folder, entry.name)) : [join(folder, entry.name)])));
  return lists.flat();
}

/** A path in a package with the jailbreak's folder before it, where it is not there already. */
function onDevice(path) {
  return path.startsWith(`${jailbreak}/`) ? path : join(jailbreak, path);
}

/** A name for a folder's own files. */
export function idOf(folder) {
  return createHash('sha256').update(folder).digest('hex').slice(0, 16);
}
