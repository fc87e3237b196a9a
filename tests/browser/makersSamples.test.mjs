import assert from 'node:assert/strict';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually, openPage, settled } from './support/browser.mjs';
import { root, runScript } from './support/makers.mjs';
import { readPropertyList } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';
import { labelsOf, open, rowOf } from './support/zuno.mjs';

const suite = 'var/mobile/Library/Preferences/org.example.tideline.plist';
const shared = 'var/mobile/Library/Preferences/org.example.tideline.shared.plist';
const displays = ['phone', 'tablet'].flatMap((kind) => ['portrait', 'landscape'].map((orientation) => ({ kind, orientation })));
const pictures = process.env.SAMPLE_PICTURES;

/** A simulator with the sample `name` of the folder `kind`, "bundles" or "widgets". */
async function startSample(t, kind, name, options = {}) {
  const simulator = await startSimulator(t);
  const { stderr } = await runScript(kind.slice(0, -1), join(root, 'samples', kind, name), simulator.folder);
  assert.equal(stderr, '', 'all of it is carried');
  const page = await openPage(t, simulator.url, options);
  await page.reload();
  return { ...simulator, page };
}

const picture = (page, name) => pictures && page.screenshot({ path: join(pictures, `${name}.png`) });

test('A stranger\'s settings with constraints, a search, a stepper, suites and CFPreferences are opened and worked', async (t) => {
  const { page, folder, api } = await startSample(t, 'bundles', 'Tideline');
  const stored = (file = suite) => readPropertyList(join(folder, file));
  await open(page, 'Tideline');
  const main = page.getByRole('main');
  const all = [['Enabled', null, null], ['Show in Apps', 'Harbours', 'Count the Waves', 'Source Code'], []];
  assert.deepEqual(await labelsOf(api), all);
  await main.getByText('3 lines of water. Tap to choose their colour.').waitFor();
  await picture(page, 'tideline');

  await main.getByRole('switch', { name: 'Enabled' }).click();
  await eventually(async () => assert.deepEqual(await stored(), { enabled: false }));
  await rowOf(page, 'Lines').getByRole('button', { name: /increment/i }).click();
  await main.getByText('4 lines of water.').waitFor();
  await eventually(async () => assert.deepEqual(await stored(), { enabled: false, lines: 4 }));
  await main.getByRole('switch', { name: 'Show in Apps' }).click();
  await eventually(async () => assert.deepEqual(await stored(shared), { inApps: true }));
  await main.getByRole('button', { name: 'Count the Waves' }).click();
  await main.getByText('Counted 143 Waves').waitFor();

  const search = main.getByRole('searchbox');
  await search.fill('show');
  await eventually(async () => assert.deepEqual(await labelsOf(api), [['Show in Apps']]));
  await picture(page, 'tideline-search');
  await search.fill('');
  await eventually(async () => assert.equal((await labelsOf(api)).length, 3));

  await main.getByRole('button', { name: 'Source Code' }).click();
  await eventually(async () => assert.deepEqual((await api('GET', '/api/device')).openedURLs, ['https://example.org/tideline']));
});

test('The header of a stranger\'s settings is tapped for a colour, and follows the screen', async (t) => {
  const { page, api, folder } = await startSample(t, 'bundles', 'Tideline');
  const headerOf = async () => (await api('GET', '/api/screen')).page.headerView;
  const widths = [];
  for (const { kind, orientation } of displays) {
    await api('PUT', '/api/device/display', { kind, orientation });
    await open(page, 'Tideline');
    const { views: [card], frame } = await headerOf();
    widths.push(frame[2]);
    assert.ok(frame[3] > 80 && frame[3] < 160, `${kind}: ${frame}`);
    assert.ok(Math.abs(card.frame[3] - (frame[3] - 32)) < 0.01, 'the card keeps its distance');
    const isOn = widths.length % 2 === 0;
    await page.getByRole('main').getByRole('switch', { name: 'Enabled' }).click();
    await eventually(async () => assert.equal((await readPropertyList(join(folder, suite))).enabled, isOn));
    await settled(page);
    await picture(page, `tideline-${kind}-${orientation}`);
    await open(page, 'Back to Settings');
  }
  assert.equal(widths[0], 390);
  assert.equal(new Set(widths).size, displays.length, 'each display is of a width of its own');
  await open(page, 'Tideline');
  await page.getByRole('main').getByText('3 lines of water.').click();
  const sheet = page.getByRole('dialog', { name: 'Water' });
  await sheet.waitFor();
  await picture(page, 'tideline-colour');
  await sheet.getByRole('button', { name: 'Close' }).click();
});

test('A widget with constraints, layers and gestures is turned, tapped and held on the stage', async (t) => {
  const { page, api } = await startSample(t, 'widgets', 'Dial', { expected: /404|503/ });  // As the stage is closed.
  for (const display of displays) {
    await api('PUT', '/api/device/display', display);
    await api('POST', '/api/stage', { type: 'show', widget: '/var/jb/Library/Zuno/Widgets/DialWidget.bundle' });
    const shown = async () => (await api('GET', '/api/stage/screen')).page.view.views[0];
    const { id } = (await api('GET', '/api/stage/screen')).page.view;
    const { frame, views: [dial] } = await shown();
    const middle = [dial.frame[0] + 100, dial.frame[1] + 100];
    assert.ok(Math.abs(middle[0] - frame[2] / 2) < 1, `the dial is in the middle of ${frame}`);
    const text = async () => (await shown()).views[1].text;
    const gesture = async (kind, more) => {
      await api('POST', '/api/stage/events', { type: 'gesture', id, kind, at: middle, ...more });
      return text();
    };
    assert.equal(await text(), '0 min');
    assert.equal(await gesture('pan', { by: [80, 0], duration: 0.4 }), '20 min');
    const hand = (await shown()).views[0].views.at(-1);
    assert.ok(hand.transform, 'the hand is turned');
    assert.equal(await gesture('tap', { count: 1 }), '21 min');
    await settled(page);
    await picture(page, `dial-${display.kind}-${display.orientation}`);
    assert.equal(await gesture('press', { duration: 1 }), 'Started');
    assert.equal(await gesture('tap', { count: 2 }), '0 min');
    await api('POST', '/api/stage', { type: 'close' });
  }
});
