import assert from 'node:assert/strict';
import { execFile } from 'node:child_process';
import { cp, mkdir, mkdtemp, readdir, readFile, rename, rm, symlink, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';
import { eventually } from './support/browser.mjs';
import { build } from './support/build.mjs';
import { defer } from './support/cleanup.mjs';
import { Device } from './support/device.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';
import { dragTo, labelsOf, layFile, mainFile, open, rowOf, shownIn, startZuno } from './support/zuno.mjs';

const root = fileURLToPath(new URL('../../', import.meta.url));
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

test('A copied widget folder is a widget of its own, and the log says whose code is used', async (t) => {
  const { page, api, folder } = await startZuno(t);
  await cp(join(folder, widgets, 'ClockWidget.bundle'), join(folder, widgets, 'ACopy.bundle'), { recursive: true });
  await open(page, 'Widgets');
  assert.deepEqual((await shownIn(page, /^Disabled/)).sort(), ['Clock', 'Note'], 'one row for one identifier');
  const { log } = await api('GET', '/api/device');
  assert.ok(log.includes('[ZunoWidgetLoader] Loaded 4 widgets!'));
  const files = ['ClockWidget.bundle', 'ACopy.bundle'].map((name) => join('/', widgets, name, 'ClockWidget'));
  const lines = log.filter((line) => line.startsWith('objc:'));
  assert.equal(lines.length, 1);
  const wanted = /^objc: Class ClockWidget is implemented in both (.*) and (.*)\. The one in (.*) is used\.$/;
  const [, first, second, used] = wanted.exec(lines[0]);
  assert.deepEqual([first, second].sort(), files.sort());
  assert.equal(used, first);
});

const run = promisify(execFile);
const environment = { ...process.env, ZUNO_BUILD: build };
const buildWidget = (source, folder) => run(join(root, 'script/widget'), [source, '--device', folder], { env: environment });

/** A folder with the sample `Clock` made into a widget of another maker; `change` may change its code. */
async function foreignWidget(t, change = (code) => code) {
  const folder = await mkdtemp(join(tmpdir(), 'widget-'));
  defer(t, () => rm(folder, { recursive: true, force: true }));
  await cp(join(root, 'samples/widgets/Clock'), folder, { recursive: true });
  for (const name of await readdir(folder)) {
    const text = await readFile(join(folder, name), 'utf8');
    const renamed = text.replaceAll('ClockWidget', 'TideWidget').replaceAll('com.norvik.Zunowidgets.clock', 'org.example.tide')
      .replaceAll('<string>Clock</string>', '<string>Tide</string>');
    await writeFile(join(folder, name), name.endsWith('.mm') ? change(renamed) : renamed);
    if (name.startsWith('Clock')) await rename(join(folder, name), join(folder, name.replace('ClockWidget', 'TideWidget')));
  }
  return folder;
}

const installed = (folder) => join(folder, widgets, 'TideWidget.bundle');
const withInit = (body) => (code) => code.replace(
  '@implementation TideWidget', `@implementation TideWidget\n- (instancetype)init {\n${body}\nreturn [super init];\n}`,
);
const logOf = async (api) => (await api('GET', '/api/device')).log;

test('A widget that is built outside the tree shows up in the editor and can be enabled', async (t) => {
  const started = await startZuno(t);
  const { page, folder } = started;
  const source = await foreignWidget(t);
  await mkdir(join(source, 'de.lproj'));
  await writeFile(join(source, 'de.lproj/Localizable.strings'), '"Tide" = "Gezeiten";');
  await writeFile(join(source, 'sea view.png'), 'a picture');
  const { stdout } = await buildWidget(source, folder);
  assert.equal(stdout, `Installed ${installed(folder)}\n`);
  assert.deepEqual((await readdir(installed(folder))).sort(), ['Info.plist', 'TideWidget', 'de.lproj', 'sea view.png']);
  assert.equal(await readFile(join(installed(folder), 'de.lproj/Localizable.strings'), 'utf8'), '"Tide" = "Gezeiten";');
  await open(page, 'Widgets');
  await tap(page, 'Tide');
  await eventually(async () => assert.deepEqual(
    await enabledIn(started), [`${prefix}siri`, favourites, music, 'org.example.tide'],
  ));
  await page.getByRole('log').getByText('Loaded widget: org.example.tide').waitFor();
});

test('A widget that does not build leaves no bundle, and takes none away', async (t) => {
  const { folder } = await startZuno(t);
  const before = await readdir(join(folder, widgets));
  const wrong = [
    (code) => `${code}\n#error does not compile`,
    (code) => `${code}\nextern "C" void nobodyHasThis();\nvoid call() { nobodyHasThis(); }`,
    (code) => `${code}\n@interface Gone : NSObject\n@end\n@interface Child : Gone\n@end\n@implementation Child\n@end`,
  ];
  for (const change of wrong) {
    const { stderr } = await buildWidget(await foreignWidget(t, change), folder).catch((error) => error);
    assert.match(stderr, /does not compile|nobodyHasThis|Gone/);
    assert.deepEqual(await readdir(join(folder, widgets)), before);
  }
  const source = await foreignWidget(t);
  await writeFile(join(source, 'old.txt'), 'of the first build');
  await buildWidget(source, folder);
  const code = join(source, 'TideWidget.mm');
  const right = await readFile(code, 'utf8');
  await writeFile(code, wrong[0](right));
  await assert.rejects(buildWidget(source, folder));
  assert.deepEqual((await readdir(installed(folder))).sort(), ['Info.plist', 'TideWidget', 'old.txt']);

  await writeFile(code, right);
  await rm(join(source, 'old.txt'));
  await buildWidget(source, folder);
  assert.deepEqual((await readdir(installed(folder))).sort(), ['Info.plist', 'TideWidget']);
  assert.deepEqual((await readdir(join(folder, 'var/jb/Library/Zuno'))), ['Widgets']);
});

/**
 * A device without a page in the browser whose widget Tide has this in its -init, with the editor's row just
 * tapped.
 */
async function openEditorOver(t, body) {
  const { api, folder } = await startSimulator(t);
  await buildWidget(await foreignWidget(t, withInit(body)), folder);
  const device = new Device(api);
  await device.tapRow('Zuno');
  const answer = await device.tapRow('Widgets').catch(({ message }) => message);
  return { answer, title: (await device.screen()).page.title, log: await logOf(api) };
}

test('A widget that raises while it is made is named in the log', async (t) => {
  const { title, log } = await openEditorOver(t, '[NSException raise:@"TideException" format:@"no moon"];');
  const file = '/var/jb/Library/Zuno/Widgets/TideWidget.bundle/TideWidget';
  assert.ok(log.includes(`Uncaught exception while performing an event: TideException: no moon (from ${file})`), log.join('\n'));
  assert.equal(title, 'Zuno');
});

test('A widget that crashes while it is made is the last that the log names', async (t) => {
  const { answer, title, log } = await openEditorOver(t, '__builtin_trap();');
  assert.match(answer, /Settings was ended by signal/);
  const end = log.findIndex((line) => line.startsWith('[simulator] Settings was ended by signal'));
  assert.match(log[end - 1], /^\[ZunoWidgetLoader\]: .*TideWidget\.bundle/);
  assert.equal(title, 'Settings');
});

test('Why a widget did not load is told in the log', async (t) => {
  const prepare = async (folder) => {
    await installCopy(folder, 'Misnamed');
    const list = join(folder, widgets, 'MisnamedWidget.bundle/Info.plist');
    await writeFile(list, (await readFile(list, 'utf8')).replace(
      '<key>ZunoWidgetClass</key><string>ClockWidget</string>', '<key>ZunoWidgetClass</key><string>ClokWidget</string>',
    ));
    await installCopy(folder, 'Text');
    const code = join(folder, widgets, 'TextWidget.bundle/ClockWidget');
    await rm(code);
    await writeFile(code, 'no code at all');
  };
  const { api } = await startZuno(t, { labels: editor, prepare });
  const log = await logOf(api);
  assert.ok(log.includes('[Foundation] There is no class "ClokWidget", for which '
    + '/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle/ZunoPrefs asks'), log.join('\n'));
  const text = join('/', widgets, 'TextWidget.bundle');
  assert.ok(log.includes(`[Foundation] The code of ${text} was not loaded: ${text}/ClockWidget: file too short`), log.join('\n'));
});
