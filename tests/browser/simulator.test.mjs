import assert from 'node:assert/strict';
import { mkdir, writeFile } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage, settled } from './support/browser.mjs';
import { propertyListText, readPropertyList } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';
import { shownIn } from './support/zuno.mjs';

const preferences = 'var/jb/var/mobile/Library/Preferences/com.norvik.Zunoprefs.plist';

/** What stands in the main preference file, read by another reader than the simulator's. */
function stored(folder) {
  return readPropertyList(join(folder, preferences));
}

/** Opens the pages that the labels name, one after another. */
async function open(page, ...labels) {
  const heading = '.page:not([inert]) [data-page-heading]';
  for (const label of labels) {
    const before = await page.locator(heading).elementHandle();
    await page.getByRole('button', { name: label }).first().click();
    await page.waitForFunction(([selector, old]) => document.querySelector(selector) !== old, [heading, before]);
    await page.locator('.navigation[data-motion="none"]').waitFor();
  }
}

/** Installs a settings page that consists of nothing but `items`, under `label`. */
async function installPage(folder, label, items) {
  const entries = join(folder, 'var/jb/Library/PreferenceLoader/Preferences');
  await mkdir(entries, { recursive: true });
  const list = { title: label, entry: { cell: 'PSLinkCell', label }, items };
  await writeFile(join(entries, `${label}.plist`), propertyListText(list));
}

test('A switch that is flipped is on disk, posted as a notification and shown in the panel', async (t) => {
  const { url, folder } = await startSimulator(t);
  const page = await openPage(t, url);
  await open(page, 'Zuno');
  const badges = page.getByRole('switch', { name: 'Notification Badges' });
  assert.equal(await badges.isChecked(), true);
  await badges.click();
  await eventually(async () => assert.equal(Number((await stored(folder)).NotificationBadges), 0));
  await page.getByRole('list', { name: 'Notifications, newest first' }).getByText('com.norvik.Zuno.switcher').waitFor();
  const file = page.getByRole('region', { name: 'Content of com.norvik.Zunoprefs.plist' });
  await eventually(async () => assert.match(await file.innerText(), /NotificationBadges\s+0/));
});

test('Rows that depend on a setting come when the user returns to the page', async (t) => {
  const { url } = await startSimulator(t);
  const page = await openPage(t, url);
  await open(page, 'Zuno');
  assert.equal(await page.getByRole('slider').count(), 0);
  await page.getByRole('switch', { name: 'Show Options' }).click();
  await open(page, 'Widgets', 'Back to Zuno');
  await page.getByRole('slider').waitFor();
});

test('A respring turns the screen black and starts Settings afresh', async (t) => {
  const { url, api } = await startSimulator(t);
  // The respring may come before the answer to the tap that asked for it.
  const page = await openPage(t, url, { expected: /50\d/ });
  await open(page, 'Zuno');
  await page.getByRole('button', { name: 'Respring' }).click();
  await page.getByRole('alertdialog').getByRole('button', { name: 'Respring' }).click();
  await page.locator('.respring').waitFor();
  await page.getByText('1 respring').waitFor();
  await page.getByRole('heading', { name: 'Settings', level: 2 }).waitFor();
  assert.equal((await api('GET', '/api/device')).resprings, 1);
});

test('An opened address is shown, not opened', async (t) => {
  const { url } = await startSimulator(t);
  const page = await openPage(t, url);
  await open(page, 'Zuno');
  await page.getByRole('button', { name: 'Follow the Developer' }).click();
  await page.getByRole('list', { name: 'Opened addresses, newest first' }).getByText('https://').waitFor();
});

test('The pasteboard of the panel is that of the device', async (t) => {
  const { url, api } = await startSimulator(t);
  const page = await openPage(t, url);
  await page.getByRole('textbox', { name: 'Text on the pasteboard' }).fill('från sidan 🎉');
  await page.getByRole('button', { name: 'Put on pasteboard' }).click();
  await eventually(async () => assert.equal((await api('GET', '/api/device')).pasteboard, 'från sidan 🎉'));
  await api('PUT', '/api/device/pasteboard', { string: null });
  await eventually(async () => {
    assert.equal(await page.getByRole('textbox', { name: 'Text on the pasteboard' }).inputValue(), '');
  });
});

test('A list of choices stores the chosen value and shows its title', async (t) => {
  const { url, folder } = await startSimulator(t);
  const page = await openPage(t, url);
  await open(page, 'Zuno', 'Open To');
  await page.getByRole('button', { name: 'Previous App', pressed: true }).waitFor();
  await page.getByRole('button', { name: 'First Page' }).click();
  await eventually(async () => assert.equal((await stored(folder)).OnActivationMode, 2));
  await open(page, 'Back to Zuno');
  await page.getByRole('button', { name: 'Open To First Page' }).waitFor();
});

test('A text is stored when its field is left, and what depends on it follows', async (t) => {
  const { url, folder } = await startSimulator(t);
  const page = await openPage(t, url);
  await open(page, 'Zuno');
  await page.getByRole('textbox', { name: 'Device' }).fill('Tablet');
  await page.getByRole('textbox', { name: 'iOS Version' }).fill('16.5');
  await page.keyboard.press('Tab');
  await eventually(async () => assert.deepEqual(
    { device: (await stored(folder)).device, version: (await stored(folder)).iosVersion }, { device: 'Tablet', version: '16.5' },
  ));
});

test('Favourites are chosen by tapping and put in order by dragging and by keyboard', async (t) => {
  const { url, folder } = await startSimulator(t);
  const page = await openPage(t, url);
  await open(page, 'Zuno', 'Favourite Apps');
  for (const name of ['Camera', 'Maps', 'Notes']) await page.getByRole('button', { name: new RegExp(`^${name}`) }).click();
  const favourites = async () => (await stored(folder)).FavouriteApplications;
  await eventually(async () => assert.deepEqual(await favourites(), ['com.apple.camera', 'com.apple.Maps', 'com.apple.mobilenotes']));
  // The file is written before the page has the answer, without which it asks for what is out of date.
  await eventually(async () => assert.deepEqual((await shownIn(page, /^Enabled/)).slice(-3), ['Camera', 'Maps', 'Notes']));
  const handle = page.getByRole('button', { name: 'Move Camera' });
  await handle.focus();
  await page.keyboard.press('ArrowDown');
  await eventually(async () => assert.equal((await favourites())[1], 'com.apple.camera'));
  await settled(page);
  const box = await page.getByRole('button', { name: 'Move Notes' }).boundingBox();
  await page.mouse.move(box.x + 20, box.y + box.height / 2);
  await page.mouse.down();
  await page.mouse.move(box.x + 20, box.y - box.height * 1.6, { steps: 8 });
  await page.mouse.up();
  await eventually(async () => assert.equal((await favourites())[0], 'com.apple.mobilenotes'));
});

test('A long page is opened, scrolled and changed', async (t) => {
  const items = Array.from({ length: 1000 }, (_, at) => (
    { cell: 'PSSwitchCell', label: `Switch ${at}`, key: `key${at}`, defaults: 'com.example.many' }));
  const { url, folder } = await startSimulator(t, (place) => installPage(place, 'Many', items));
  const page = await openPage(t, url);
  await open(page, 'Many');
  await page.locator('.scroller').evaluate((element) => { element.scrollTop = 44 * 900; });
  await page.getByRole('switch', { name: 'Switch 900', exact: true }).click();
  const file = join(folder, 'var/mobile/Library/Preferences/com.example.many.plist');
  await eventually(async () => assert.equal((await readPropertyList(file)).key900, true));
});

test('Two tabs show the same device', async (t) => {
  const { url } = await startSimulator(t);
  const first = await openPage(t, url);
  const second = await openPage(t, url);
  await open(first, 'Zuno');
  await second.getByRole('heading', { name: 'Zuno', level: 2 }).waitFor();
  await first.getByRole('switch', { name: 'Notification Badges' }).click();
  await eventually(async () => {
    assert.equal(await second.getByRole('switch', { name: 'Notification Badges' }).isChecked(), false);
  });
});

for (const colorScheme of ['light', 'dark']) {
  test(`axe finds nothing on the pages of the bundle, ${colorScheme}`, async (t) => {
    const { url } = await startSimulator(t);
    const page = await openPage(t, url, { colorScheme });
    await page.getByRole('button', { name: 'Zuno' }).waitFor();
    await assertAccessible(page);
    await open(page, 'Zuno');
    await assertAccessible(page);
    for (const label of ['Open To', 'Widgets', 'Favourite Apps', 'Default Music App', 'Customise']) {
      await open(page, label);
      await assertAccessible(page);
      await open(page, 'Back to Zuno');
    }
  });
}
