import assert from 'node:assert/strict';
import { mkdir, readFile, stat } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { propertyListText } from './support/propertyList.mjs';
import {
  bringInSight, labelsOf, layFile, mainFile, notificationsOf, open, rowOf, startZuno, themeFile,
} from './support/zuno.mjs';

/** The rows of the root page while no setting has been written. */
const factoryRows = [
  [], [], ['Enabled'], ['Open To'], ['Show Snapshots', 'Notification Badges', 'Pull Down to End Apps'],
  ['Widgets', 'Favourite Apps', 'Hide Snapshots on Favourites'], ['Customise'], ['Quick Switcher', 'Show Options'],
  ['Default Music App'], ['Device', 'iOS Version', 'User-Agent'], ['Respring'],
  ['Follow the Developer', 'Follow the Designer'], [],
];

/** Taps the row, and the button that it is confirmed with. */
async function respring(page) {
  await page.getByRole('main').getByRole('button', { name: 'Respring', exact: true }).click();
  await page.getByRole('alertdialog').getByRole('button', { name: 'Respring' }).click();
}

const contentOf = (page, name) => page.getByRole('region', { name: `Content of ${name}` });

test('A switch that is flipped is on disk beside the older settings, posted and shown in the panel', async (t) => {
  const before = { Enabled: 1, FavouriteApplications: ['com.apple.Maps'], unknown: 'kept' };
  const prepare = (folder) => layFile(folder, mainFile, propertyListText(before));
  const { page, stored, api } = await startZuno(t, { prepare });
  const toggle = page.getByRole('switch', { name: 'Pull Down to End Apps' });
  assert.equal(await toggle.isChecked(), false);
  await toggle.click();
  await eventually(async () => assert.deepEqual(await stored(), { ...before, pullToKillEnabled: 1 }));
  // The file is there a moment before the notification is posted.
  await eventually(async () => assert.deepEqual(await notificationsOf(api), ['com.norvik.Zuno.switcher']));
  const notifications = page.getByRole('list', { name: 'Notifications, newest first' });
  await notifications.getByText('com.norvik.Zuno.switcher').waitFor();
  const shown = contentOf(page, 'com.norvik.Zunoprefs.plist');
  await eventually(async () => assert.match(await shown.innerText(), /pullToKillEnabled\s+1/));
  await toggle.click();
  await eventually(async () => assert.equal((await stored()).pullToKillEnabled, 0));
  await eventually(async () => assert.equal((await notificationsOf(api)).length, 2));
});

test('The options of the quick switcher come when the user returns, and the slider stores where it was let go', async (t) => {
  const { page, stored, api } = await startZuno(t);
  await page.getByRole('switch', { name: 'Show Options' }).click();
  await eventually(async () => assert.equal((await stored()).quickSwitcher, 1));
  assert.deepEqual(await labelsOf(api), factoryRows);
  await open(page, 'Back to Settings', 'Zuno');
  // The slider hides its title; the static text above it shows it.
  const options = ['Quick Switcher', 'Show Options', 'Start with Favourites', 'Gesture Width', null];
  assert.deepEqual(await labelsOf(api), factoryRows.map((rows) => (rows[0] === 'Quick Switcher' ? options : rows)));
  const slider = page.getByRole('slider', { name: 'Gesture Width' });
  assert.equal(await slider.inputValue(), '-20');
  await slider.scrollIntoViewIfNeeded();
  const box = await slider.boundingBox();
  await page.mouse.move(box.x + 15 + (box.width - 30) * 0.4, box.y + box.height / 2);
  await page.mouse.down();
  await page.mouse.move(box.x + box.width - 15, box.y + box.height / 2, { steps: 5 });
  assert.equal((await stored()).quickSwitcherWidthModifier, undefined);
  await page.mouse.up();
  await eventually(async () => assert.ok((await stored()).quickSwitcherWidthModifier > 90));
  assert.deepEqual(await notificationsOf(api), ['com.norvik.Zuno.quickSwitcher', 'com.norvik.Zuno.quickSwitcher']);
  const { quickSwitcherWidthModifier: width } = await stored();
  await open(page, 'Back to Settings', 'Zuno');
  assert.ok(Math.abs(Number(await slider.inputValue()) - width) < 0.001);
});

test('A list of choices marks the stored one, and its title stands on the row after returning', async (t) => {
  const { page, stored, api } = await startZuno(t);
  await open(page, 'Open To');
  await page.getByRole('button', { name: 'Previous App', pressed: true }).waitFor();
  await page.getByRole('button', { name: 'First Page' }).click();
  await page.getByRole('button', { name: 'First Page', pressed: true }).waitFor();
  assert.equal(await page.getByRole('button', { pressed: true }).count(), 1);
  await eventually(async () => assert.deepEqual(await stored(), { OnActivationMode: 2 }));
  assert.deepEqual(await notificationsOf(api), ['com.norvik.Zuno.switcher']);
  await open(page, 'Back to Zuno');
  await page.getByRole('button', { name: 'Open To First Page' }).waitFor();
  await open(page, 'Open To');
  await page.getByRole('button', { name: 'First Page', pressed: true }).waitFor();
});

test('The User-Agent row in sight follows the two text fields, and stays so when the page is opened again', async (t) => {
  const { page, stored, api } = await startZuno(t);
  await bringInSight(api, 'User-Agent');
  const agent = rowOf(page, 'User-Agent');
  await agent.getByText('(null)/(null)').waitFor();
  await page.getByRole('textbox', { name: 'Device' }).fill('iPad13,4 🎉');
  await page.keyboard.press('Tab');
  await agent.getByText('iPad13,4 🎉/(null)').waitFor();
  const version = page.getByRole('textbox', { name: 'iOS Version' });
  await version.fill('16.5');
  await version.press('Enter');
  await agent.getByText('iPad13,4 🎉/16.5').waitFor();
  assert.deepEqual(await stored(), { device: 'iPad13,4 🎉', iosVersion: '16.5' });
  await open(page, 'Back to Settings', 'Zuno');
  await agent.getByText('iPad13,4 🎉/16.5').waitFor();
  assert.equal(await page.getByRole('textbox', { name: 'Device' }).inputValue(), 'iPad13,4 🎉');
});

test('The music picker stores one app, and the newer choice takes the place of the older', async (t) => {
  const { page, stored } = await startZuno(t);
  await open(page, 'Default Music App');
  const app = (name) => page.getByRole('main').getByRole('button', { name: new RegExp(`^${name}`) });
  await app('Record Player').click();
  await eventually(async () => assert.deepEqual(
    await stored(), { defaultNowPlayingBundleIdentifier: ['org.example.record'] },
  ));
  await app('Maps').click();
  await eventually(async () => assert.deepEqual(
    (await stored()).defaultNowPlayingBundleIdentifier, ['com.apple.Maps'],
  ));
  await page.getByRole('button', { name: /^Maps/, pressed: true }).waitFor();
  assert.equal(await page.getByRole('button', { pressed: true }).count(), 1);
  await open(page, 'Back to Zuno', 'Default Music App');
  await page.getByRole('button', { name: /^Maps/, pressed: true }).waitFor();
});

test('The profile links show as opened addresses, newest first', async (t) => {
  const { page, api } = await startZuno(t);
  await page.getByRole('button', { name: 'Follow the Developer' }).click();
  const addresses = page.getByRole('list', { name: 'Opened addresses, newest first' }).getByRole('listitem');
  await eventually(async () => assert.equal(await addresses.count(), 1));
  await page.getByRole('button', { name: 'Follow the Designer' }).click();
  await eventually(async () => assert.equal(await addresses.count(), 2));
  const { openedURLs } = await api('GET', '/api/device');
  assert.equal(new Set(openedURLs).size, 2);
  assert.ok(openedURLs.every((address) => address.startsWith('https://')), JSON.stringify(openedURLs));
  assert.ok((await addresses.first().innerText()).includes(openedURLs[1]));
  assert.equal(page.context().pages().length, 1);
});

test('A respring is counted, leads back to the top of Settings and forgets what the process knew', async (t) => {
  const prepare = (folder) => layFile(folder, mainFile, propertyListText({ quickSwitcher: 1 }));
  const { page, stored, api } = await startZuno(t, { prepare, expected: /50\d/ });
  assert.equal((await labelsOf(api)).find(([first]) => first === 'Quick Switcher').length, 5);
  await respring(page);
  await page.getByText('1 respring').waitFor();
  await page.getByRole('heading', { name: 'Settings', level: 2 }).waitFor();
  const { path, page: shown } = await api('GET', '/api/screen');
  assert.deepEqual([path, shown.back], [['Settings'], null]);
  assert.deepEqual(await stored(), { quickSwitcher: 1 });
  await open(page, 'Zuno');
  await page.getByRole('switch', { name: 'Notification Badges' }).click();
  await eventually(async () => assert.equal((await stored()).NotificationBadges, 0));
  await respring(page);
  await page.getByText('2 resprings').waitFor();
});

test('A respring is asked for first, with the mouse and with keys, and cancelled by either', async (t) => {
  const { page, api } = await startZuno(t, { expected: /50\d/ });
  const row = page.getByRole('main').getByRole('button', { name: 'Respring', exact: true });
  const sheet = page.getByRole('alertdialog');
  const resprings = async () => (await api('GET', '/api/device')).resprings;
  await row.click();
  await sheet.getByText('The user interface restarts, and apps that are open may lose what was not saved.').waitFor();
  await sheet.getByRole('button', { name: 'Cancel' }).click();
  await sheet.waitFor({ state: 'detached' });
  await row.press('Enter');
  await sheet.waitFor();
  await page.keyboard.press('Escape');
  await sheet.waitFor({ state: 'detached' });
  assert.equal(await resprings(), 0);
  await row.press('Enter');
  await sheet.getByRole('button', { name: 'Respring' }).press('Enter');
  await page.getByText('1 respring').waitFor();
  assert.equal(await resprings(), 1);
});

test('The rows that open a list tell the names of what is chosen there, and follow', async (t) => {
  const { page, stored, api } = await startZuno(t);
  const named = (name) => page.getByRole('main').getByRole('button', { name, exact: true });
  const shown = async (row, text) => {
    const value = rowOf(page, row).getByText(text, { exact: true });
    await value.waitFor();
    assert.equal(await value.evaluate(({ scrollWidth, clientWidth }) => scrollWidth - clientWidth), 0, 'it is not cut');
  };
  await named('Widgets, Suggestions, Favourites View, Music View').waitFor();
  await named('Favourite Apps, None').waitFor();
  await named('Default Music App, Music').waitFor();
  await shown('Widgets', 'Suggestions, +2');
  await api('PUT', '/api/device/display', { orientation: 'landscape' });
  await shown('Widgets', 'Suggestions, Favourites View, Music View');
  await api('PUT', '/api/device/display', { orientation: 'portrait' });
  await shown('Widgets', 'Suggestions, +2');

  await open(page, 'Favourite Apps');
  for (const app of ['Camera', 'Maps', 'Notes']) {
    await page.getByRole('main').getByRole('button', { name: new RegExp(`^${app}`) }).click();
  }
  await eventually(async () => assert.equal((await stored()).FavouriteApplications?.length, 3));
  await open(page, 'Back to Zuno');
  await named('Favourite Apps, Camera, Maps, Notes').waitFor();
  await shown('Favourite Apps', 'Camera, Maps, Notes');

  await open(page, 'Default Music App');
  await page.getByRole('main').getByRole('button', { name: /^Record Player/ }).click();
  await open(page, 'Back to Zuno');
  await named('Default Music App, Record Player').waitFor();

  await open(page, 'Widgets');
  await page.getByRole('main').getByRole('button', { name: /^Music View/ }).click();
  await open(page, 'Back to Zuno');
  await named('Widgets, Suggestions, Favourites View').waitFor();

  await page.getByRole('switch', { name: 'Enabled', exact: true }).click();
  await named('Favourite Apps, None').waitFor();
  await named('Default Music App, Music').waitFor();
  await named('Widgets, Suggestions, Favourites View, Music View').waitFor();
});

const broken = {
  'is truncated': '<?xml version="1.0"?><plist version="1.0"><dict><key>Enabled</key><integer>1</inte',
  'is garbage': Buffer.from(Array.from({ length: 999 }, (_, at) => (at * 167 + 13) % 256)),
  'is a binary list cut off': Buffer.from('bplist00\xd1\x01\x02WEnabled', 'latin1'),
  'is empty': '',
  'holds an array': propertyListText([{ Enabled: false }, 'x']),
};

for (const [fault, content] of Object.entries(broken)) {
  test(`The page comes up and leaves the file as it is when it ${fault}`, async (t) => {
    const prepare = async (folder) => {
      await layFile(folder, mainFile, content);
      await layFile(folder, themeFile, content);
    };
    const { page, folder, api } = await startZuno(t, { prepare });
    assert.deepEqual(await labelsOf(api), factoryRows);
    assert.equal(await page.getByRole('switch', { name: 'Notification Badges' }).isChecked(), true);
    for (const label of ['Open To', 'Widgets', 'Favourite Apps', 'Default Music App', 'Customise']) {
      await open(page, label, 'Back to Zuno');
    }
    for (const file of [mainFile, themeFile]) {
      assert.deepEqual(await readFile(join(folder, file)), Buffer.from(content));
    }
    const { files } = await api('GET', '/api/device');
    assert.equal(files.length, 2);
    const { log, resprings } = await api('GET', '/api/device');
    assert.deepEqual([log.filter((line) => line.startsWith('[simulator]')), resprings], [[], 0]);
  });
}

test('A folder in place of the file stays, with what is in it, when a switch is flipped', async (t) => {
  const inside = join(mainFile, 'inside.txt');
  const { page, folder, api } = await startZuno(t, { prepare: async (place) => {
    await mkdir(join(place, mainFile), { recursive: true });
    await layFile(place, inside, 'kept');
  } });
  await page.getByRole('switch', { name: 'Notification Badges' }).click();
  await eventually(async () => assert.deepEqual(await notificationsOf(api), ['com.norvik.Zuno.switcher']));
  assert.ok((await stat(join(folder, mainFile))).isDirectory());
  assert.equal(await readFile(join(folder, inside), 'utf8'), 'kept');
  assert.deepEqual(await labelsOf(api), factoryRows);
  await open(page, 'Back to Settings', 'Zuno');
  assert.equal(await page.getByRole('switch', { name: 'Notification Badges' }).isChecked(), true);
});

test('Values of the wrong types are shown somehow, and all kept when another is written', async (t) => {
  const wrong = {
    Enabled: ['on'], OnActivationMode: 'second', NotificationBadges: { a: 1 }, EnabledWidgets: 'all', quickSwitcher: [],
    quickSwitcherWidthModifier: 'wide', defaultNowPlayingBundleIdentifier: 7, device: [1, 2], iosVersion: 16,
    FavouriteApplications: { first: 'com.apple.Maps' },
  };
  const prepare = (folder) => layFile(folder, mainFile, propertyListText(wrong));
  const { page, stored, api } = await startZuno(t, { prepare });
  assert.deepEqual((await labelsOf(api))[3], factoryRows[3]);
  for (const label of ['Open To', 'Widgets', 'Default Music App']) await open(page, label, 'Back to Zuno');
  await page.getByRole('switch', { name: 'Show Snapshots' }).click();
  await eventually(async () => assert.deepEqual(await stored(), { ...wrong, ShowSwitcherWithSnapshots: 1 }));
});

test('Two tabs show the same device', async (t) => {
  const { page: first, url, stored } = await startZuno(t);
  const second = await openPage(t, url);
  await second.getByRole('heading', { name: 'Zuno', level: 2 }).waitFor();
  await first.getByRole('switch', { name: 'Show Snapshots' }).click();
  await eventually(async () => {
    assert.equal(await second.getByRole('switch', { name: 'Show Snapshots' }).isChecked(), true);
  });
  await second.getByRole('list', { name: 'Notifications, newest first' }).getByText('com.norvik.Zuno.switcher').waitFor();
  await second.getByRole('switch', { name: 'Notification Badges' }).click();
  await eventually(async () => {
    assert.equal(await first.getByRole('switch', { name: 'Notification Badges' }).isChecked(), false);
  });
  assert.deepEqual(await stored(), { ShowSwitcherWithSnapshots: 1, NotificationBadges: 0 });
  await open(second, 'Customise');
  await first.getByRole('heading', { name: 'Customise', level: 2 }).waitFor();
});

test('A row tells the value behind its text, the name of its control, and whether a tap does anything', async (t) => {
  const prepare = (folder) => layFile(folder, mainFile, propertyListText({ quickSwitcher: 1, device: 'iPhone12,1' }));
  const { page, api } = await startZuno(t, { prepare });
  const rows = (await api('GET', '/api/screen')).page.sections.flatMap((section) => section.rows);
  const rowOf = (key) => rows.find((row) => row.key === key);
  const told = (key) => [rowOf(key).value, rowOf(key).selectable];
  assert.deepEqual(told('OnActivationMode'), [1, true]);
  assert.deepEqual(told('presetUserAgent'), ['iPhone12,1/(null)', false]);
  assert.deepEqual(told('Enabled'), [true, false]);
  assert.deepEqual(told('device'), ['iPhone12,1', true]);
  assert.deepEqual(told('quickSwitcherGestureModifierLabel'), [null, false]);
  assert.deepEqual(told('EnabledWidgets'), [null, true]);
  const { label, accessibilityLabel } = rowOf('quickSwitcherWidthModifier');
  assert.deepEqual([label, accessibilityLabel], [null, 'Gesture Width']);
  await page.getByRole('button', { name: 'Customise' }).waitFor();
  assert.equal(await page.getByRole('button', { name: 'User-Agent' }).count(), 0);
});
