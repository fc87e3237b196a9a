// What the theme page tells of its state: which rows can be used, the numbers beside the sliders, and the photo.
import assert from 'node:assert/strict';
import { stat } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { assertAccessible, eventually } from './support/browser.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { layFile, mainFile, notificationsOf, open, photoRow, rowOf, startZuno, themeFile } from './support/zuno.mjs';

const labels = ['Zuno', 'Customise'];
const preset = (name) => `var/jb/Library/Zuno/Presets/${name}.plist`;
const withTheme = (theme) => (folder) => layFile(folder, themeFile, propertyListText(theme));
const switchOf = (page, name) => page.getByRole('switch', { name });
const removeRow = (page) => page.getByRole('listitem').getByRole('button', { name: 'Remove Photo', exact: true });
const question = (page) => page.getByRole('alertdialog', { name: 'Remove Photo' });

// A picture of one pixel.
const pixel = 'iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==';

const background = [['slider', 'Blur Radius'], ['slider', 'Dimming']];
const cards = [
  ['slider', 'Corner Radius'], ['slider', 'Spacing'], ['radio', 'System'], ['radio', 'Light'], ['radio', 'Dark'],
];
const always = [
  ['switch', 'Enabled'], ['button', 'Choose Photo…'], ['textbox', 'Device'], ['textbox', 'iOS Version'],
  ['button', 'Presets'], ['button', 'Clear All Settings'],
];

/** Whether each of the `controls` can be used, and the browser says the same to assistive technology. */
async function assertUsable(page, controls, usable) {
  for (const [role, name] of controls) {
    const found = page.getByRole(role, { name, exact: true });
    await eventually(async () => assert.equal(await found.isEnabled(), usable, `${role} ${name}`));
    assert.equal(await page.getByRole(role, { name, exact: true, disabled: !usable }).count(), 1, `${role} ${name}`);
  }
}

/** The number beside the slider `name`. */
function numberOf(page, name) {
  return page.getByRole('slider', { name }).locator('xpath=..').locator('.accessory-view');
}

async function missing(folder, file) {
  await assert.rejects(stat(join(folder, file)), { code: 'ENOENT' });
}

for (const colorScheme of ['light', 'dark']) {
  test(`The switches enable and disable what depends on them, ${colorScheme}`, async (t) => {
    const started = await startZuno(t, { labels, colorScheme });
    const { page } = started;
    const custom = switchOf(page, 'Use Custom Look');
    await assertUsable(page, [...background, ...cards, ['switch', 'Use Custom Look']], false);
    await assertUsable(page, always, true);
    await assertAccessible(page);

    await switchOf(page, 'Enabled').click();
    await assertUsable(page, [...background, ['switch', 'Use Custom Look']], true);
    await assertUsable(page, cards, false);
    await custom.click();
    await assertUsable(page, [...background, ...cards, ...always], true);
    await assertAccessible(page);

    await switchOf(page, 'Enabled').press('Space');
    await assertUsable(page, [...background, ...cards], false);
    assert.equal(await custom.isChecked(), true, 'the choice is kept');
    await assertUsable(page, always, true);
    const left = { enabled: false, useCustom: true };
    await eventually(async () => assert.deepEqual(await started.stored(themeFile), left));
  });
}

test('A disabled row takes neither the mouse nor keys', async (t) => {
  const { page, folder, api } = await startZuno(t, { labels });
  const slider = page.getByRole('slider', { name: 'Dimming' });
  await slider.scrollIntoViewIfNeeded();
  const box = await slider.boundingBox();
  await page.mouse.click(box.x + box.width * 0.8, box.y + box.height / 2);
  await page.getByText('Dark', { exact: true }).click({ force: true });
  const { page: shown } = await api('GET', '/api/screen');
  const row = shown.sections.flatMap(({ rows }) => rows).find(({ key }) => key === 'dimming');
  assert.equal(row.enabled, false);
  assert.match((await api('POST', '/api/events', { type: 'set', id: row.id, value: 50 })).error, /disabled/);
  assert.equal(await slider.inputValue(), '25');
  await missing(folder, themeFile);
  assert.deepEqual(await notificationsOf(api), []);
});

test('The number beside a slider has its unit, follows the drag and is spoken; the end of the drag is stored', async (t) => {
  const started = await startZuno(t, { labels, prepare: withTheme({ enabled: true, useCustom: true }) });
  const { page, stored, api } = started;
  const expected = {
    'Blur Radius': ['12 pt', '12 points'], Dimming: ['25 %', '25 percent'], 'Corner Radius': ['20 pt', '20 points'],
    Spacing: ['16 pt', '16 points'],
  };
  for (const [name, [shown, spoken]] of Object.entries(expected)) {
    assert.equal(await numberOf(page, name).innerText(), shown);
    assert.equal(await page.getByRole('slider', { name }).getAttribute('aria-valuetext'), spoken);
  }
  const slider = page.getByRole('slider', { name: 'Dimming' });
  await slider.scrollIntoViewIfNeeded();
  const { x, y, width, height } = await slider.boundingBox();
  const place = (share) => x + 14 + (width - 28) * share;
  await page.mouse.move(place(0.25), y + height / 2);
  await page.mouse.down();
  const seen = new Set();
  for (const share of [0.4, 0.6, 0.8]) {
    await page.mouse.move(place(share), y + height / 2, { steps: 3 });
    const near = new RegExp(`^(${[-1, 0, 1].map((off) => share * 100 + off).map(Math.round).join('|')}) %$`);
    await eventually(async () => assert.match(await numberOf(page, 'Dimming').innerText(), near));
    const text = await numberOf(page, 'Dimming').innerText();
    await eventually(async () => assert.equal(await slider.getAttribute('aria-valuetext'), text.replace('%', 'percent')));
    seen.add(text);
  }
  assert.equal(seen.size, 3);
  assert.equal((await stored(themeFile)).dimming, undefined);
  assert.ok(Math.abs(Number(await slider.inputValue()) - 80) < 2, 'the knob stays under the mouse');
  assert.equal((await slider.boundingBox()).width, width, 'the slider keeps its length');
  await page.mouse.up();
  await eventually(async () => assert.ok(Math.abs((await stored(themeFile)).dimming - 80) < 2));
  assert.deepEqual(await notificationsOf(api), ['com.norvik.Zuno.theme']);

  await slider.press('End');
  await eventually(async () => assert.equal(await numberOf(page, 'Dimming').innerText(), '100 %'));
  await slider.press('ArrowLeft');
  await eventually(async () => assert.equal(await numberOf(page, 'Dimming').innerText(), '99 %'));
  await eventually(async () => assert.equal((await stored(themeFile)).dimming, 99));
});

test('A knob that is let go where it was taken stays there, and so does the file', async (t) => {
  const { page, stored } = await startZuno(t, { labels, prepare: withTheme({ enabled: true, dimming: 50 }) });
  const slider = page.getByRole('slider', { name: 'Dimming' });
  await slider.scrollIntoViewIfNeeded();
  const { x, y, width, height } = await slider.boundingBox();
  await page.mouse.move(x + width / 2, y + height / 2);
  await page.mouse.down();
  await page.mouse.move(x + width * 0.7, y + height / 2, { steps: 3 });
  await eventually(async () => assert.match(await numberOf(page, 'Dimming').innerText(), /^7\d %$/));
  await page.mouse.move(x + width / 2, y + height / 2, { steps: 3 });
  await page.mouse.up();
  await eventually(async () => assert.equal(await numberOf(page, 'Dimming').innerText(), '50 %'));
  await eventually(async () => assert.ok(Math.abs((await stored(themeFile)).dimming - 50) < 0.5));
});

test('Removing the photo asks first, and takes out nothing else', async (t) => {
  const theme = { enabled: true, spacing: 4, device: 'Tablet', backgroundImage: pixel };
  const { backgroundImage, ...rest } = theme;
  const prepare = async (folder) => {
    await withTheme(theme)(folder);
    await layFile(folder, mainFile, propertyListText({ quickSwitcher: 1 }));
  };
  const { page, stored, api } = await startZuno(t, { labels, prepare });
  await removeRow(page).click();
  await question(page).getByText('Are you sure you would like to remove the background image?').waitFor();
  await assertAccessible(page);
  await question(page).getByRole('button', { name: 'Cancel' }).click();
  await question(page).waitFor({ state: 'detached' });
  assert.deepEqual(await stored(themeFile), theme);

  await removeRow(page).press('Enter');
  await question(page).waitFor();
  await page.keyboard.press('Escape');
  await question(page).waitFor({ state: 'detached' });
  assert.deepEqual(await stored(themeFile), theme);

  await removeRow(page).click();
  await question(page).getByRole('button', { name: 'Remove Photo' }).click();
  await removeRow(page).waitFor({ state: 'detached' });
  assert.deepEqual(await stored(themeFile), rest);
  assert.deepEqual(await stored(mainFile), { quickSwitcher: 1 });
  assert.equal(await photoRow(page).innerText(), 'Choose Photo…');
  assert.deepEqual(await notificationsOf(api), []);
  await rowOf(page, 'User-Agent').getByText('Tablet/(null)').waitFor();
});

test('The row that removes the photo is there after a pick by either row, and goes when the theme is cleared', async (t) => {
  const { page, stored } = await startZuno(t, { labels });
  const pick = async (name) => {
    await photoRow(page).click();
    await page.getByRole('dialog', { name: 'Photos' }).getByRole('button', { name }).click();
    await page.getByRole('dialog').waitFor({ state: 'detached' });
  };
  assert.equal(await removeRow(page).count(), 0);
  await pick('IMG_0002.PNG');
  await removeRow(page).waitFor();
  const first = (await stored(themeFile)).backgroundImage;
  assert.equal(await photoRow(page).innerText(), 'Background Image');
  await pick('IMG_0003.PNG');
  await eventually(async () => assert.notEqual((await stored(themeFile)).backgroundImage, first));
  assert.equal(await removeRow(page).count(), 1);
  await page.getByRole('button', { name: 'Clear All Settings' }).click();
  await page.getByRole('alertdialog', { name: 'Clear' }).getByRole('button', { name: 'Yes' }).click();
  await removeRow(page).waitFor({ state: 'detached' });
  assert.equal(await photoRow(page).innerText(), 'Choose Photo…');
});

test('An applied preset brings the rows for its photo, or takes them away', async (t) => {
  const prepare = async (folder) => {
    await layFile(folder, preset('With'), propertyListText({ enabled: true, backgroundImage: pixel, ZunoPresetVersion: 1 }));
    await layFile(folder, preset('Without'), propertyListText({ enabled: false, ZunoPresetVersion: 1 }));
  };
  const { page } = await startZuno(t, { labels, prepare });
  const apply = async (name) => {
    await open(page, 'Presets');
    await page.getByRole('main').getByRole('button', { name, exact: true }).click();
    await page.getByRole('alertdialog').getByRole('button', { name: 'Confirm' }).click();
    await page.getByRole('alertdialog').waitFor({ state: 'detached' });
    await open(page, 'Back to Customise');
  };
  assert.equal(await removeRow(page).count(), 0);
  await apply('With');
  await removeRow(page).waitFor();
  await assertUsable(page, background, true);
  await apply('Without');
  await removeRow(page).waitFor({ state: 'detached' });
  await assertUsable(page, background, false);
});
