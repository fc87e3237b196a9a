import assert from 'node:assert/strict';
import { execFile } from 'node:child_process';
import { cp, mkdir, mkdtemp, readdir, readFile, rename, rm, symlink, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';
import { eventually } from './support/browser.mjs';
import { defer } from './support/cleanup.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { dragTo, labelsOf, layFile, mainFile, open, rowOf, shownIn, startZuno } from './support/zuno.mjs';

const root = fileURLToPath(new URL('../../', import.meta.url));
const build = process.env.SIMULATOR_BUILD ?? join(root, 'build/dev');
const widgets = 'var/jb/Library/Zuno/Widgets';
const prefix = 'com.norvik.Zunowidgets.';
const music = 'KRBMusicView';
const favourites = 'KRBFavouritesView';

/** A further widget `name` that has its code, by a symbolic link, from the sample `Clock`. */
async function installCopy(folder, name) {
  const bundle = join(folder, widgets, `${name}Widget.bundle`);
  await mkdir(bundle, { recursive: true });
  await symlink('../ClockWidget.bundle/ClockWidget', join(bundle, 'ClockWidget'));
  await writeFile(join(bundle, 'Info.plist'), propertyListText({
    CFBundleIdentifier: prefix + name.toLowerCase(), CFBundleExecutable: 'ClockWidget', CFBundleDisplayName: name,
    ZunoWidgetsVersion: 1, ZunoWidgetClass: 'ClockWidget',
  }));
}

async function installCopies(folder) {
  for (const name of ['Second', 'Third', 'Fourth']) await installCopy(folder, name);
}

const tap = (page, name) => rowOf(page, name).getByRole('button', { name: new RegExp(`^${name}`) }).click();
const enabledIn = async ({ stored }) => (await stored()).EnabledWidgets;
const editor = ['Zuno', 'Widgets'];

test('At first the default pages are enabled, and looking stores nothing', async (t) => {
  const { page, folder } = await startZuno(t, { labels: editor });
  assert.deepEqual(await shownIn(page, /^Enabled/), ['Suggestions', 'Favourites View', 'Music View']);
  assert.deepEqual((await shownIn(page, /^Disabled/)).sort(), ['Clock', 'Note']);
  assert.deepEqual((await readdir(join(folder, mainFile, '..'))), []);
  await page.getByRole('log').getByText('Loaded 3 widgets!').waitFor();
});

test('A fifth and a sixth page are enabled by tap, and all stay on reopening', async (t) => {
  const started = await startZuno(t, { labels: editor, prepare: installCopies });
  const { page } = started;
  for (const name of ['Clock', 'Note', 'Second']) await tap(page, name);
  const all = [`${prefix}siri`, favourites, music, `${prefix}clock`, `${prefix}note`, `${prefix}second`];
  await eventually(async () => assert.deepEqual(await enabledIn(started), all));
  const names = ['Suggestions', 'Favourites View', 'Music View', 'Clock', 'Note', 'Second'];
  await eventually(async () => assert.deepEqual(await shownIn(page, /^Enabled/), names));
  await open(page, 'Back to Zuno', 'Widgets');
  assert.deepEqual(await shownIn(page, /^Enabled/), names);
  assert.deepEqual((await shownIn(page, /^Disabled/)).sort(), ['Fourth', 'Third']);
});

test('A drag into four pages makes the last vanish until the editor is opened again', async (t) => {
  const started = await startZuno(t, { labels: editor, prepare: installCopies });
  const { page, api } = started;
  await tap(page, 'Clock');
  await eventually(async () => assert.equal((await enabledIn(started)).length, 4));
  await dragTo(page, 'Note', 'Favourites View', -0.3);
  await eventually(async () => assert.deepEqual(
    await enabledIn(started), [`${prefix}siri`, `${prefix}note`, favourites, music],
  ));
  await eventually(async () => assert.deepEqual(
    await shownIn(page, /^Enabled/), ['Suggestions', 'Note', 'Favourites View', 'Music View'],
  ));
  assert.equal(await rowOf(page, 'Clock').count(), 0);
  assert.equal((await labelsOf(api)).flat().includes('Clock'), false);
  await open(page, 'Back to Zuno', 'Widgets');
  assert.ok((await shownIn(page, /^Disabled/)).includes('Clock'));
});

test('The placeholder stands where every page is enabled, and takes a page that is dropped on it', async (t) => {
  const started = await startZuno(t, { labels: editor });
  const { page } = started;
  for (const name of ['Clock', 'Note']) await tap(page, name);
  await eventually(async () => assert.deepEqual(await shownIn(page, /^Disabled/), ['No Widgets Are Disabled...']));
  await dragTo(page, 'Music View', 'No Widgets Are Disabled...');
  await eventually(async () => assert.deepEqual(await shownIn(page, /^Disabled/), ['Music View']));
  assert.equal((await enabledIn(started)).includes(music), false);
});

test('Bundles that are no widgets are told in the log and hurt no other', async (t) => {
  const prepare = async (folder) => {
    await installCopy(folder, 'Old');
    const old = join(folder, widgets, 'OldWidget.bundle/Info.plist');
    await writeFile(old, (await readFile(old, 'utf8')).replace('<integer>1</integer>', '<integer>0</integer>'));
    await mkdir(join(folder, widgets, 'Empty.bundle'));
    await layFile(folder, `${widgets}/stray.txt`, 'no bundle');
    await layFile(folder, mainFile, propertyListText({ EnabledWidgets: ['org.example.gone', `${prefix}clock`, favourites] }));
  };
  const { page, stored } = await startZuno(t, { labels: editor, prepare });
  assert.deepEqual(await shownIn(page, /^Enabled/), ['Clock', 'Favourites View']);
  assert.deepEqual((await shownIn(page, /^Disabled/)).sort(), ['Music View', 'Note', 'Suggestions']);
  await page.getByRole('log').getByText('Loaded 3 widgets!').waitFor();
  assert.deepEqual((await stored()).EnabledWidgets, ['org.example.gone', `${prefix}clock`, favourites]);
});

/** A folder with the sample `Clock` made into a widget of another maker. */
async function foreignWidget(t) {
  const folder = await mkdtemp(join(tmpdir(), 'widget-'));
  defer(t, () => rm(folder, { recursive: true, force: true }));
  await cp(join(root, 'samples/widgets/Clock'), folder, { recursive: true });
  for (const name of await readdir(folder)) {
    const text = await readFile(join(folder, name), 'utf8');
    const renamed = text.replaceAll('ClockWidget', 'TideWidget').replaceAll('com.norvik.Zunowidgets.clock', 'org.example.tide')
      .replaceAll('<string>Clock</string>', '<string>Tide</string>');
    await writeFile(join(folder, name), renamed);
    if (name.startsWith('Clock')) await rename(join(folder, name), join(folder, name.replace('ClockWidget', 'TideWidget')));
  }
  return folder;
}

test('A widget that is built outside the tree shows up in the editor and can be enabled', async (t) => {
  const started = await startZuno(t);
  const { page, folder } = started;
  const source = await foreignWidget(t);
  const { stdout } = await promisify(execFile)(join(root, 'script/widget'), [source, '--device', folder], {
    env: { ...process.env, ZUNO_BUILD: build },
  });
  assert.match(stdout, /TideWidget\.bundle/);
  await open(page, 'Widgets');
  await tap(page, 'Tide');
  await eventually(async () => assert.deepEqual(
    await enabledIn(started), [`${prefix}siri`, favourites, music, 'org.example.tide'],
  ));
  await page.getByRole('log').getByText('Loaded widget: org.example.tide').waitFor();
});
