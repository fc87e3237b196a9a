import assert from 'node:assert/strict';
import { readFile, rm, stat } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually } from './support/browser.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { bringInSight, layFile, mainFile, notificationsOf, open, rowOf, startZuno, themeFile } from './support/zuno.mjs';

const labels = ['Zuno', 'Customise'];
const choose = (page) => page.getByRole('button', { name: 'Choose Photo…' });
const cellOf = (page) => page.getByRole('button', { name: 'Background Image', exact: true });
const theme = (started) => started.stored(themeFile);

async function missing(folder, file) {
  await assert.rejects(stat(join(folder, file)), { code: 'ENOENT' });
}

/** Width and height of the picture that the cell shows, and its colours on a grid of eight by eight places. */
async function pictureIn(page) {
  return cellOf(page).locator('img').evaluate(async (element) => {
    await element.decode();
    const canvas = new OffscreenCanvas(8, 8).getContext('2d');
    canvas.drawImage(element, 0, 0, 8, 8);
    const { naturalWidth: width, naturalHeight: height } = element;
    return { width, height, colours: [...canvas.getImageData(0, 0, 8, 8).data] };
  });
}

/** Width and height of a PNG file. */
function sizeOf(png) {
  assert.equal(png.subarray(1, 4).toString(), 'PNG');
  return { width: png.readUInt32BE(16), height: png.readUInt32BE(20) };
}

async function pick(page, name) {
  await page.getByRole('dialog', { name: 'Photos' }).getByRole('button', { name }).click();
  await page.getByRole('dialog').waitFor({ state: 'detached' });
}

test('Switches, a colour, a segment and a slider are stored in the theme file alone, and posted', async (t) => {
  const started = await startZuno(t, { labels });
  const { page, folder, api } = started;
  for (const name of ['Enabled', 'Use Custom Look']) {
    await page.getByRole('switch', { name }).click();
    await eventually(async () => assert.equal(await page.getByRole('switch', { name }).isChecked(), true));
  }
  await eventually(async () => assert.deepEqual(await theme(started), { enabled: true, useCustom: true }));
  await page.getByRole('button', { name: 'Titles System' }).click();
  await page.getByRole('gridcell', { name: 'B51A00' }).click();
  await eventually(async () => assert.equal((await theme(started)).titleColour, 'B51A00'));
  await page.getByRole('dialog', { name: 'Titles' }).getByRole('button', { name: 'Close' }).click();
  await page.getByRole('radio', { name: 'Dark' }).click();
  await eventually(async () => assert.equal((await theme(started)).appearance, 2));
  const dimming = page.getByRole('slider', { name: 'Dimming' });
  assert.equal(await dimming.inputValue(), '25');
  await dimming.focus();
  await page.keyboard.press('End');
  await eventually(async () => assert.equal((await theme(started)).dimming, 100));
  const names = await notificationsOf(api);
  assert.equal(names.length, 5);
  assert.deepEqual([...new Set(names)], ['com.norvik.Zuno.theme']);
  await missing(folder, mainFile);
});

test('The User-Agent row follows the device and the version without reopening the page', async (t) => {
  const started = await startZuno(t, { labels });
  const { page, api } = started;
  await bringInSight(api, 'User-Agent');
  const agent = rowOf(page, 'User-Agent');
  await agent.getByText('(null)/(null)').waitFor();
  const device = page.getByRole('textbox', { name: 'Device' });
  await device.fill('iPhone15,2');
  await device.press('Enter');
  await agent.getByText('iPhone15,2/(null)').waitFor();
  const version = page.getByRole('textbox', { name: 'iOS Version' });
  await version.fill('16.5');
  await page.keyboard.press('Tab');
  await agent.getByText('iPhone15,2/16.5').waitFor();
  assert.deepEqual(await theme(started), { device: 'iPhone15,2', iosVersion: '16.5' });
});

test('A photo that the button or the cell offers is stored as PNG and shown in the cell', async (t) => {
  const prepare = (folder) => layFile(folder, themeFile, propertyListText({ device: 'Tablet' }));
  const started = await startZuno(t, { labels, prepare });
  const { page, folder, api } = started;
  assert.equal(await cellOf(page).count(), 0);
  const photo = (name) => readFile(join(folder, 'var/mobile/Media/DCIM/100APPLE', name));

  await choose(page).click();
  await pick(page, 'IMG_0002.PNG');
  await eventually(async () => assert.ok((await theme(started)).backgroundImage));
  const { backgroundImage, ...rest } = await theme(started);
  assert.deepEqual(rest, { device: 'Tablet' });
  const lines = backgroundImage.split('\r\n');
  assert.ok(lines.slice(0, -1).every((line) => line.length === 64) && lines.at(-1).length <= 64);
  assert.deepEqual(sizeOf(Buffer.from(backgroundImage, 'base64')), sizeOf(await photo('IMG_0002.PNG')));
  await cellOf(page).locator('img').waitFor();
  assert.equal(await choose(page).count(), 0, 'one row is enough');
  const first = await pictureIn(page);

  await cellOf(page).click();
  await pick(page, 'IMG_0003.PNG');
  await eventually(async () => assert.notEqual((await theme(started)).backgroundImage, backgroundImage));
  const stored = Buffer.from((await theme(started)).backgroundImage, 'base64');
  assert.deepEqual(sizeOf(stored), sizeOf(await photo('IMG_0003.PNG')));
  await eventually(async () => assert.notDeepEqual((await pictureIn(page)).colours, first.colours));
  const second = await pictureIn(page);
  assert.deepEqual(await notificationsOf(api), []);
  await open(page, 'Back to Zuno', 'Customise');
  await cellOf(page).locator('img').waitFor();
  assert.deepEqual(await pictureIn(page), second);
});

// The row that chooses a photo while there is none, and the one that does while there is one.
const openers = { 'the button': [choose, null], 'the cell': [cellOf, { backgroundImage: 'no picture' }] };

for (const [name, [openerOf, content]] of Object.entries(openers)) {
  const prepare = (folder) => content && layFile(folder, themeFile, propertyListText(content));

  test(`A picker that ${name} opens and that is cancelled changes nothing`, async (t) => {
    const started = await startZuno(t, { labels, prepare });
    const { page, folder } = started;
    await openerOf(page).click();
    await page.getByRole('dialog', { name: 'Photos' }).getByRole('button', { name: 'Cancel' }).click();
    await page.getByRole('dialog').waitFor({ state: 'detached' });
    if (content) assert.deepEqual(await theme(started), content);
    else await missing(folder, themeFile);
  });

  test(`Without a photo library ${name} offers nothing`, async (t) => {
    const { page, folder, api } = await startZuno(t, { labels, prepare });
    await rm(join(folder, 'var/mobile/Media/DCIM'), { recursive: true });
    const { revision } = await api('GET', '/api/screen');
    await openerOf(page).click();
    await eventually(async () => assert.ok((await api('GET', '/api/screen')).revision >= revision));
    await page.getByRole('switch', { name: 'Enabled' }).click();
    await eventually(async () => assert.equal((await api('GET', '/api/device')).notifications.length, 1));
    assert.equal((await api('GET', '/api/screen')).sheet, null);
    assert.equal(await page.getByRole('dialog').count(), 0);
  });
}

test('Clearing asks first: No keeps everything, Yes removes the theme and nothing else', async (t) => {
  const presets = 'var/jb/Library/Zuno/Presets/Ocean.plist';
  const content = { enabled: true, titleColour: 'ABCDEF', device: 'Tablet', iosVersion: '16' };
  const others = [mainFile, presets, `${themeFile}.bak`];
  const prepare = async (folder) => {
    await layFile(folder, themeFile, propertyListText(content));
    for (const file of others) await layFile(folder, file, propertyListText({ kept: file }));
  };
  const started = await startZuno(t, { labels, prepare });
  const { page, folder, api } = started;
  const clear = page.getByRole('button', { name: 'Clear All Settings' });
  const alert = page.getByRole('alertdialog', { name: 'Clear' });
  await clear.click();
  await alert.getByText('Are you sure you would like to clear all settings?').waitFor();
  await alert.getByRole('button', { name: 'No' }).click();
  await alert.waitFor({ state: 'detached' });
  assert.deepEqual(await theme(started), content);
  await rowOf(page, 'User-Agent').getByText('Tablet/16').waitFor();
  await clear.click();
  await alert.getByRole('button', { name: 'Yes' }).click();
  await alert.waitFor({ state: 'detached' });
  await rowOf(page, 'User-Agent').getByText('(null)/(null)').waitFor();
  await page.getByRole('button', { name: 'Titles System' }).waitFor();
  assert.equal(await page.getByRole('switch', { name: 'Enabled' }).isChecked(), false);
  await missing(folder, themeFile);
  for (const file of others) assert.deepEqual(await started.stored(file), { kept: file });
  assert.deepEqual(await notificationsOf(api), []);
  await clear.click();
  await alert.getByRole('button', { name: 'Yes' }).click();
  await alert.waitFor({ state: 'detached' });
  await missing(folder, themeFile);
});

test('The bar button resprings', async (t) => {
  const { page, api } = await startZuno(t, { labels, expected: /50\d/ });
  await page.getByRole('button', { name: 'Respring', exact: true }).click();
  await page.getByText('1 respring').waitFor();
  await page.getByRole('heading', { name: 'Settings', level: 2 }).waitFor();
  assert.deepEqual((await api('GET', '/api/screen')).path, ['Settings']);
});

const unusable = {
  'no text': 7, 'no base64': '%%%', 'no image': Buffer.from('no picture').toString('base64'),
};
for (const [fault, backgroundImage] of Object.entries(unusable)) {
  test(`A stored background that is ${fault} shows no picture and stays stored`, async (t) => {
    const content = { backgroundImage, device: 'Tablet' };
    const prepare = (folder) => layFile(folder, themeFile, propertyListText(content));
    const started = await startZuno(t, { labels, prepare });
    await cellOf(started.page).waitFor();
    assert.equal(await cellOf(started.page).locator('img').count(), 0);
    await started.page.getByRole('switch', { name: 'Enabled' }).click();
    await eventually(async () => assert.deepEqual(await theme(started), { ...content, enabled: true }));
  });
}
