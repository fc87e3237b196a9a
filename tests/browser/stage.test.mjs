import assert from 'node:assert/strict';
import { execFile } from 'node:child_process';
import { cp, mkdir, mkdtemp, rm, symlink, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';
import { assertAccessible, eventually, openPage } from './support/browser.mjs';
import { propertyListText, readPropertyList } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';
import { layFile } from './support/zuno.mjs';

const root = fileURLToPath(new URL('../../', import.meta.url));
const build = process.env.SIMULATOR_BUILD ?? join(root, 'build/dev');
const widgets = 'var/jb/Library/Zuno/Widgets';
const headers = 'var/jb/usr/include';
const samples = ['Clock', 'Note', 'Suggestions'];
const run = promisify(execFile);

/** Resolves with the bundle of the fixtures, built once for all tests. */
async function buildFixtures() {
  const folder = await mkdtemp(join(tmpdir(), 'stage-'));
  after(() => rm(folder, { recursive: true, force: true }));
  await cp(join(build, 'device-root', headers), join(folder, headers), { recursive: true });
  await run(join(root, 'script/widget'), [join(root, 'tests/fixtures/widgets/stage'), '--device', folder], {
    env: { ...process.env, ZUNO_BUILD: build },
  });
  return join(folder, whole);
}

const bundleOf = (name) => `/${widgets}/${name}.bundle`;
const whole = bundleOf('StageWidgets');
const building = buildFixtures();

/**
 * A simulator whose widgets are the test's: one from the folder of fixtures, which has all methods, and one for each of
 * `classes` of the same code. `page` is shown when it is given options.
 */
async function startStage(t, classes = [], options = null) {
  const simulator = await startSimulator(t);
  const { folder, api } = simulator;
  for (const name of samples) await rm(join(folder, widgets, `${name}Widget.bundle`), { recursive: true });
  await cp(await building, join(folder, whole), { recursive: true });
  for (const name of classes) await installClass(folder, name);
  const page = options && await openPage(t, simulator.url, options);
  const stageOf = async () => (await api('GET', '/api/device')).stage;
  const act = (action) => api('POST', '/api/stage', action);
  const screen = () => api('GET', '/api/stage/screen');
  return { ...simulator, page, stageOf, act, screen };
}

async function installClass(folder, name) {
  const bundle = join(folder, widgets, `${name}.bundle`);
  await mkdir(bundle, { recursive: true });
  await symlink('../StageWidgets.bundle/StageWidgets', join(bundle, 'StageWidgets'));
  await writeFile(join(bundle, 'Info.plist'), propertyListText({
    CFBundleIdentifier: `org.example.${name}`, CFBundleExecutable: 'StageWidgets', CFBundleDisplayName: name,
    ZunoWidgetsVersion: 1, ZunoWidgetClass: name,
  }));
}

const stateOf = ({ widgets: list }, path) => list.find((widget) => widget.path === path);

/** All texts and controls of the screen's view, outermost first. */
function viewsIn({ page }) {
  const all = (view) => [view, ...view.views.flatMap(all)];
  return all(page.view);
}
const textsIn = (screen) => viewsIn(screen).map(({ text }) => text).filter(Boolean);
const controlIn = (screen, type) => viewsIn(screen).find(({ control }) => control?.type === type);

test('Every widget is listed, and why another is none', async (t) => {
  const { act, folder, stageOf } = await startStage(t, ['StageBare', 'StageNobody', 'NSObject']);
  assert.equal((await stageOf()).widgets, null, 'nothing is loaded before somebody asks');
  await layFile(folder, `${widgets}/stray.txt`, 'no bundle');
  await installClass(folder, 'StageOld');
  const old = { ZunoWidgetsVersion: 0, CFBundleExecutable: 'StageWidgets', CFBundleDisplayName: 'Old one' };
  await layFile(folder, `${widgets}/StageOld.bundle/Info.plist`, propertyListText(old));
  await installClass(folder, 'StageText');
  await rm(join(folder, widgets, 'StageText.bundle/StageWidgets'));
  await layFile(folder, `${widgets}/StageText.bundle/StageWidgets`, 'no code at all');

  const state = await act({ type: 'load' });
  const seen = Object.fromEntries(state.widgets.map(({ path, state: each, reason }) => [path, `${each}: ${reason}`]));
  assert.deepEqual(seen, {
    [whole]: 'loaded: null',
    [bundleOf('StageBare')]: 'loaded: null',
    [bundleOf('StageNobody')]: 'refused: No class is called “StageNobody”, its ZunoWidgetClass.',
    [bundleOf('NSObject')]: 'refused: The class “NSObject” does not adopt ZunoWidgetProtocol.',
    [bundleOf('StageOld')]: 'refused: It is out of date: its ZunoWidgetsVersion is missing, 0 or negative.',
    [bundleOf('StageText')]: `refused: Its code was not loaded: ${bundleOf('StageText')}/StageWidgets: file too short`,
    [`/${widgets}/stray.txt`]: 'refused: It is no bundle: it has no Info.plist.',
  });
  assert.equal(stateOf(state, bundleOf('StageOld')).displayName, 'Old one');
  assert.equal(stateOf(state, whole).hasPreferences, true);
  const implemented = ({ methods }) => methods.filter((each) => each.implemented).map(({ name }) => name);
  assert.deepEqual(implemented(stateOf(state, bundleOf('StageBare'))), ['setIsActivePage:']);
  assert.equal(implemented(stateOf(state, whole)).length, 6);
  assert.deepEqual(await stageOf(), state);
});

test('A widget is told in a switcher\'s order what it implements', async (t) => {
  const { act, screen } = await startStage(t, ['StageBare']);
  const shown = await act({ type: 'show', widget: whole });
  assert.equal(shown.shown, whole);
  assert.equal(shown.isActivePage, false);
  assert.deepEqual(textsIn(await screen()).slice(0, 2), ['StageWhole', 'setup 390 x 844']);
  const told = [];
  for (let state = shown; state.nextStep !== null;) {
    state = await act({ type: 'step' });
    told.push(textsIn(await screen())[1]);
  }
  assert.deepEqual(told, ['appeared', 'scrolled to', 'active', 'scrolled away', 'disappeared', 'inactive', 'hidden']);
  assert.match((await act({ type: 'step' })).error, /nothing more/);

  const state = await act({ type: 'call', method: 'setIsActivePage:', argument: true });
  assert.equal(state.isActivePage, true);
  assert.deepEqual(state.calls.map(({ method, argument, outcome }) => `${method} ${argument} ${outcome}`), [
    'setupWithFrame: null done', 'viewDidAppear null done', 'didScrollToView null done', 'setIsActivePage: true done',
    'didScrollAwayFromView null done', 'viewDidDisappear null done', 'setIsActivePage: false done',
    'ZunoViewDidHide: true done', 'setIsActivePage: true done',
  ]);
  assert.ok(state.calls.every(({ milliseconds }) => milliseconds >= 0));

  await act({ type: 'show', widget: bundleOf('StageBare') });
  assert.deepEqual((await act({ type: 'step' })).calls.at(-1).argument, true, 'the first method that it has');
  assert.equal((await act({ type: 'step' })).nextStep, null);
  assert.match((await act({ type: 'call', method: 'viewDidAppear' })).error, /does not implement -viewDidAppear/);
});

test('What is asked wrongly is refused and changes nothing', async (t) => {
  const { act, api, screen, stageOf } = await startStage(t, ['StageNoView']);
  assert.match((await screen()).error, /No widget is on the stage/);
  assert.match((await api('POST', '/api/stage/events', { type: 'dismiss' })).error, /No widget is on the stage/);
  for (const type of ['step', 'preferences', 'call']) {
    assert.match((await act({ type })).error, /No widget is on the stage/);
  }
  assert.match((await act({ type: 'dance' })).error, /"type"/);
  assert.match((await act({ type: 'show' })).error, /"widget"/);
  assert.match((await act({ type: 'show', widget: '/nobody' })).error, /has no \/nobody/);
  assert.match((await act({ type: 'show', widget: bundleOf('StageNoView') })).error, /contentView is nil/);
  assert.equal((await stageOf()).shown, null);
  await act({ type: 'show', widget: whole });
  assert.match((await act({ type: 'call', method: 'setIsActivePage:' })).error, /takes an "argument"/);
  assert.match((await act({ type: 'call', method: 'viewDidAppear', argument: true })).error, /takes no "argument"/);
  assert.match((await act({ type: 'call', method: 'dealloc' })).error, /knows no method/);
  const { shown, calls } = await stageOf();
  assert.deepEqual([shown, calls.length], [whole, 1]);
  assert.equal((await act({ type: 'close' })).shown, null);
});

test('A finger works the controls of a widget', async (t) => {
  const { act, api, screen } = await startStage(t);
  await act({ type: 'show', widget: whole });
  const touched = ({ page }) => textsIn({ page })[2];
  const send = (event) => api('POST', '/api/stage/events', event);
  const idOf = async (type) => controlIn(await screen(), type).id;
  await send({ type: 'tap', id: await idOf('button') });
  assert.equal(touched(await send({ type: 'tap', id: await idOf('button') })), 'tapped 2');
  assert.equal(touched(await send({ type: 'set', id: await idOf('switch'), value: true })), 'light on');
  const dragged = await send({ type: 'set', id: await idOf('slider'), value: 0.25, finished: false });
  assert.equal(touched(dragged), 'volume 0.25');
  const after = await send({ type: 'set', id: await idOf('text'), value: 'Rosa' });
  assert.equal(touched(after), 'name Rosa');
  assert.equal(controlIn(after, 'text').value, 'Rosa');
  assert.match((await send({ type: 'tap', id: 'view1' })).error, /Nothing on the screen/);
  assert.match((await send({ type: 'tap', id: await idOf('switch') })).error, /set, not tapped/);
});

test('The preferences of a widget are a page whose values are stored', async (t) => {
  const { act, api, screen, folder } = await startStage(t);
  await act({ type: 'show', widget: whole });
  await act({ type: 'preferences' });
  const { path, page } = await screen();
  assert.deepEqual(path, ['Whole', 'Whole']);
  assert.equal(page.sections[0].header, 'Look');
  const [seconds, city] = page.sections[0].rows;
  await api('POST', '/api/stage/events', { type: 'set', id: seconds.id, value: true });
  await api('POST', '/api/stage/events', { type: 'set', id: city.id, value: 'Oslo' });
  const stored = (name) => readPropertyList(join(folder, 'var/mobile/Library/Preferences', `${name}.plist`));
  assert.deepEqual(await stored('org.example.stage.whole'), { seconds: true });
  assert.deepEqual(await stored('org.example.elsewhere'), { city: 'Oslo' });
  const { notifications } = await api('GET', '/api/device');
  assert.equal(notifications.at(-1).name, 'org.example.stage.changed');
  const back = await api('POST', '/api/stage/events', { type: 'tap', id: page.back.id });
  assert.equal(back.page.bar.hidden, true);
  await act({ type: 'show', widget: whole });
  await act({ type: 'preferences' });
  const again = (await screen()).page.sections[0].rows;
  assert.deepEqual(again.map(({ value }) => value), [true, 'Oslo']);
});

test('A widget that raises, crashes or hangs is told and taken off, and the phone stays where it was', async (t) => {
  const classes = ['StageRaises', 'StageCrashes', 'StageCrashesLater', 'StageHangs'];
  const { act, api, stageOf } = await startStage(t, classes);
  const { sections } = (await api('GET', '/api/screen')).page;
  const link = sections.flatMap(({ rows }) => rows).find(({ label }) => label === 'Zuno');
  const before = await api('POST', '/api/events', { type: 'tap', id: link.id });
  const expectFault = async (name, steps, kind, text) => {
    await act({ type: 'show', widget: bundleOf(name) });
    for (let step = 0; step < steps; step += 1) await act({ type: 'step' });
    await eventually(async () => assert.equal((await stageOf()).shown, null));
    const { fault, calls, widgets: list } = await stageOf();
    assert.equal(fault.widget, bundleOf(name));
    assert.equal(fault.kind, kind);
    assert.match(fault.text, text);
    assert.equal(stateOf({ widgets: list }, bundleOf(name)).state, kind);
    return calls.at(-1).outcome;
  };
  const raised = /^It raised TideException: no moon, in -didScrollToView\.$/;
  assert.equal(await expectFault('StageRaises', 2, 'raised', raised), 'raised');
  const crashed = /^It was ended by signal .*, in -viewDidAppear\.$/;
  assert.equal(await expectFault('StageCrashes', 1, 'crashed', crashed), 'crashed');
  const later = /^It was ended by signal .*, while running by itself, from a timer or a queue\.$/;
  assert.equal(await expectFault('StageCrashesLater', 1, 'crashed', later), 'done');
  const begin = Date.now();
  const hung = /^It did not return within 5 s and was ended, in -viewDidAppear\.$/;
  const hanging = expectFault('StageHangs', 1, 'hung', hung);
  const { revision } = await api('GET', '/api/screen');
  assert.equal(revision, before.revision);
  assert.equal(await hanging, 'hung');
  assert.ok(Date.now() - begin < 20_000);
  assert.deepEqual(await api('GET', '/api/screen'), before);
  assert.equal((await act({ type: 'show', widget: whole })).shown, whole, 'the stage is there for the next');
});

test('What a touch raises is told, too', async (t) => {
  const { act, api, screen, stageOf } = await startStage(t, ['StageRaises']);
  await act({ type: 'show', widget: bundleOf('StageRaises') });
  const { id } = controlIn(await screen(), 'button');
  await api('POST', '/api/stage/events', { type: 'tap', id });
  await eventually(async () => assert.equal((await stageOf()).shown, null));
  assert.match((await stageOf()).fault.text, /^It raised TouchException: do not, while being touched\.$/);
});

test('A widget that ends the load of all is left out, and the others are there', async (t) => {
  const { act } = await startStage(t, ['StageRaisesAtOnce', 'StageCrashesAtOnce', 'StageHangsAtOnce']);
  const state = await act({ type: 'show', widget: whole });
  assert.equal(state.shown, whole);
  const told = (name) => [stateOf(state, bundleOf(name)).state, stateOf(state, bundleOf(name)).reason];
  const raised = 'It raised TideException: no sea, while being made, with -init.';
  assert.deepEqual(told('StageRaisesAtOnce'), ['raised', raised]);
  assert.equal(told('StageCrashesAtOnce')[0], 'crashed');
  assert.match(told('StageCrashesAtOnce')[1], /^It was ended by signal .*, while being made, with -init\.$/);
  const hung = 'It did not return within 5 s and was ended, while being made, with -init.';
  assert.deepEqual(told('StageHangsAtOnce'), ['hung', hung]);
  assert.match((await act({ type: 'show', widget: bundleOf('StageRaisesAtOnce') })).error, /TideException/);
});

for (const kind of ['phone', 'tablet']) {
  test(`A maker shows a widget on the ${kind} and directs it`, async (t) => {
    const { page, api, folder } = await startStage(t, ['StageRaises', 'StageNobody'], { colorScheme: 'light' });
    await api('PUT', '/api/device/display', { kind });
    const card = page.getByRole('complementary').locator('section').filter({ hasText: 'Widgets' }).first();
    await card.getByRole('button', { name: 'Load widgets' }).click();
    await card.getByText('No class is called “StageNobody”').waitFor();
    assert.equal(await card.getByRole('button', { name: 'Show StageNobody' }).isDisabled(), true);
    await card.getByRole('button', { name: 'Show Whole' }).click();
    const stage = page.getByRole('main', { name: 'Stage' });
    const size = kind === 'phone' ? '390 x 844' : '820 x 1180';
    await stage.getByText(`setup ${size}`).waitFor();
    await card.getByRole('button', { name: 'Next: viewDidAppear' }).click();
    await stage.getByText('appeared', { exact: true }).waitFor();
    await card.getByRole('button', { name: 'Send setIsActivePage:YES' }).click();
    await card.getByText('now YES').waitFor();

    await stage.getByRole('button', { name: 'Tap me' }).click();
    await stage.getByText('tapped 1').waitFor();
    await stage.getByRole('switch', { name: 'Light' }).click();
    await stage.getByText('light on').waitFor();
    await stage.getByRole('textbox', { name: 'Name' }).fill('Rosa');
    await page.keyboard.press('Enter');
    await stage.getByText('name Rosa').waitFor();
    await assertAccessible(page);

    await card.getByRole('button', { name: 'Preferences' }).click();
    await stage.getByRole('switch', { name: 'Seconds' }).click();
    const stored = join(folder, 'var/mobile/Library/Preferences/org.example.stage.whole.plist');
    await eventually(async () => assert.deepEqual(await readPropertyList(stored), { seconds: true }));
    await card.locator('label').filter({ hasText: 'Settings' }).click();
    await page.getByRole('main', { name: 'Phone' }).getByRole('button', { name: 'Zuno' }).waitFor();
    await card.locator('label').filter({ hasText: 'Whole' }).click();
    await stage.getByRole('switch', { name: 'Seconds' }).waitFor();

    await card.getByRole('button', { name: 'Show StageRaises' }).click();
    await stage.locator('.view').getByText('StageRaises').waitFor();
    assert.equal(await stage.getByRole('heading', { name: 'StageRaises' }).count(), 0, 'nothing covers the widget');
    await card.getByRole('button', { name: 'Send didScrollToView' }).click();
    await card.getByRole('alert').getByText('It raised TideException: no moon, in -didScrollToView.').waitFor();
    await page.getByRole('main', { name: 'Phone' }).getByRole('button', { name: 'Zuno' }).waitFor();
    assert.equal(await stage.count(), 0);
  });
}

test('The stage is turned with the device and gone with a respring', async (t) => {
  const { act, api, screen, stageOf, folder } = await startStage(t);
  await api('PUT', '/api/device/display', { orientation: 'landscape' });
  await act({ type: 'show', widget: whole });
  assert.ok(textsIn(await screen()).includes('setup 844 x 390'));
  await api('PUT', '/api/device/display', { orientation: 'portrait' });
  assert.deepEqual((await screen()).page.view.frame, [0, 0, 390, 844]);
  await run(join(folder, 'var/jb/usr/bin/killall'), ['-9', 'backboardd'], { cwd: folder });
  await eventually(async () => assert.equal((await stageOf()).shown, null));
});
