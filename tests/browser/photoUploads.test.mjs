import assert from 'node:assert/strict';
import { readFile, readdir, rm } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { assertAccessible, eventually, focused, settled } from './support/browser.mjs';
import { chooseFiles, dragOver, dragged, dropFiles } from './support/files.mjs';
import { heif, oriented, picture, readPicture, resizedHeader } from './support/pictures.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { layFile, photoRow, startZuno, themeFile } from './support/zuno.mjs';

const labels = ['Zuno', 'Customise'];
const library = 'var/mobile/Media/DCIM/100APPLE';
const kept = { device: 'Tablet', backgroundImage: 'AAAA' };
const halves = { width: 60, height: 40, corners: 'red blue blue red' };

const sheetOf = (page) => page.getByRole('dialog', { name: 'Photos' });
const addButton = (page) => sheetOf(page).getByRole('button', { name: 'Add from this computer…' });
const phoneOf = (page) => page.locator('.screen');
const noticeOf = (page, text) => page.getByRole('status').filter({ hasText: text });
const photosIn = async ({ folder }) => (await readdir(join(folder, library))).sort();
const openSheet = (page) => photoRow(page).click();

/** The theme page of a device without photos whose theme has a background that is no image. */
async function startTheme(t, options) {
  const started = await startZuno(t, {
    labels, prepare: (folder) => layFile(folder, themeFile, propertyListText(kept)), ...options,
  });
  for (const name of await photosIn(started)) await rm(join(started.folder, library, name));
  return started;
}

async function pick({ page }, name) {
  await sheetOf(page).getByRole('button', { name }).click();
  await sheetOf(page).waitFor({ state: 'detached' });
}

/** Size and corners of the stored background. */
async function background({ page, stored }) {
  const { backgroundImage, ...rest } = await stored(themeFile);
  assert.deepEqual(rest, { device: 'Tablet' });
  return readPicture(page, Buffer.from(backgroundImage, 'base64'));
}

/** Holds requests to `address` back until the function is called that this resolves with. */
async function heldBack(page, address) {
  let letGo;
  const wait = new Promise((resolve) => {
    letGo = resolve;
  });
  await page.route(address, async (route) => {
    await wait;
    await route.continue();
  });
  return letGo;
}

async function incoming(page) {
  const jpeg = await picture(page, 'image/jpeg');
  return [
    { name: 'a.png', mimeType: 'image/png', buffer: await picture(page, 'image/png'), stored: 'IMG_0001.PNG', shown: halves },
    { name: 'b.jpg', mimeType: 'image/jpeg', buffer: oriented(jpeg, 6), stored: 'IMG_0002.JPG',
      shown: { width: 40, height: 60, corners: 'red red blue blue' } },
    { name: 'c.webp', mimeType: 'image/webp', buffer: await picture(page, 'image/webp'), stored: 'IMG_0003.WEBP', shown: halves },
    { name: 'd.heic', mimeType: '', buffer: await heif(), stored: 'IMG_0004.HEIC',
      shown: { width: 96, height: 64, corners: 'red blue blue red' } },
  ];
}

for (const [how, hand] of Object.entries({
  chosen: (page, files) => chooseFiles(page, addButton(page), files),
  dropped: (page, files) => dropFiles(page, phoneOf(page), files),
})) {
  test(`Pictures that are ${how} come into the library as they are, and upright into the theme`, async (t) => {
    const started = await startTheme(t);
    const { page, folder } = started;
    await openSheet(page);
    await sheetOf(page).getByText('No Photos').waitFor();
    const files = await incoming(page);
    await hand(page, files.map(({ name, mimeType, buffer }) => ({ name, mimeType, buffer })));
    for (const { stored } of files) await sheetOf(page).getByRole('button', { name: stored }).waitFor();
    assert.deepEqual(await photosIn(started), files.map(({ stored }) => stored));
    for (const { buffer, stored, shown } of files) {
      assert.deepEqual(await readFile(join(folder, library, stored)), buffer);
      await pick(started, stored);
      await eventually(async () => assert.deepEqual(await background(started), shown));
      await openSheet(page);
    }
  });
}

test('What is no picture is refused with its name, and library and theme stay as they were', async (t) => {
  const started = await startTheme(t, { expected: /422|413/ });
  const { page } = started;
  await openSheet(page);
  const png = await picture(page, 'image/png');
  const files = {
    'holiday.txt': Buffer.from('a text'), 'empty.png': Buffer.alloc(0),
    'cut.png': png.subarray(0, png.length / 2), 'huge.png': resizedHeader(png, 100_000, 100_000),
    'nothing.png': resizedHeader(png, 0, 40),
  };
  for (const [name, buffer] of Object.entries(files)) {
    await chooseFiles(page, addButton(page), [{ name, mimeType: 'image/png', buffer }]);
    await noticeOf(page, `“${name}” is damaged, too large, or not a picture.`).waitFor();
  }
  const several = Object.entries(files).map(([name, buffer]) => ({ name, mimeType: 'image/png', buffer }));
  await dropFiles(page, phoneOf(page), [...several, { name: 'good.png', mimeType: 'image/png', buffer: png }]);
  await noticeOf(page, '“holiday.txt” is damaged, too large, or not a picture. 4 more could not be added.').waitFor();
  await sheetOf(page).getByRole('button', { name: 'IMG_0001.PNG' }).waitFor();
  assert.deepEqual(await photosIn(started), ['IMG_0001.PNG']);
  assert.deepEqual(await started.stored(themeFile), kept);
  await sheetOf(page).getByRole('button', { name: 'Cancel' }).click();
  await page.getByRole('switch', { name: 'Enabled' }).waitFor();
});

test('A picture that is dropped while nothing asks for one goes into the library and that is said', async (t) => {
  const started = await startTheme(t);
  const { page } = started;
  const files = [{ name: 'beach.png', mimeType: 'image/png', buffer: await picture(page, 'image/png') }];
  const drag = await dragged(page, files);
  assert.equal(await dragOver(phoneOf(page), drag), true);
  await page.getByText('Drop to add to Photos').waitFor();
  assert.equal(await dragOver(page.getByRole('complementary', { name: 'Device' }), drag), true);
  await page.getByText('Drop to add to Photos').waitFor({ state: 'detached' });
  await page.getByRole('complementary', { name: 'Device' }).dispatchEvent('drop', { dataTransfer: drag });
  assert.deepEqual(await photosIn(started), []);

  await dropFiles(page, phoneOf(page), files);
  await noticeOf(page, '“beach.png” was added to Photos.').waitFor();
  assert.deepEqual(await photosIn(started), ['IMG_0001.PNG']);
  await dropFiles(page, phoneOf(page), [{ name: 'notes.txt', mimeType: 'text/plain', buffer: Buffer.from('x') }]);
  await noticeOf(page, '“notes.txt” is not a picture. A file can be dropped while a page asks for one.').waitFor();
  assert.deepEqual(await photosIn(started), ['IMG_0001.PNG']);
});

test('Without a photo library a picture is refused, and none is made', async (t) => {
  const { page, folder } = await startTheme(t, { expected: /422/ });
  await rm(join(folder, 'var/mobile/Media/DCIM'), { recursive: true });
  const buffer = await picture(page, 'image/png');
  await dropFiles(page, phoneOf(page), [{ name: 'a.png', mimeType: 'image/png', buffer }]);
  await noticeOf(page, 'The device has no photo library').waitFor();
  await assert.rejects(readdir(join(folder, 'var/mobile/Media/DCIM')), { code: 'ENOENT' });
});

test('A file that is too large is refused before it is sent', async (t) => {
  const started = await startTheme(t);
  const { page } = started;
  await page.evaluate(() => {
    const transfer = new DataTransfer();
    transfer.items.add(new File([new Uint8Array(100 * 2 ** 20 + 1)], 'film.png', { type: 'image/png' }));
    document.querySelector('.screen').dispatchEvent(
      new DragEvent('drop', { dataTransfer: transfer, bubbles: true, cancelable: true }),
    );
  });
  await noticeOf(page, '“film.png” is larger than 100 MB.').waitFor();
  assert.deepEqual(await photosIn(started), []);
});

test('The way of a file and the work on a photo are shown', async (t) => {
  const started = await startTheme(t);
  const { page } = started;
  await openSheet(page);
  await sheetOf(page).waitFor();
  const sendUpload = await heldBack(page, '**/api/photos');
  const buffer = await picture(page, 'image/png');
  await chooseFiles(page, addButton(page), [{ name: 'a.png', mimeType: 'image/png', buffer }]);
  const progress = page.getByRole('progressbar', { name: 'Adding “a.png”' });
  await progress.waitFor();
  await assertAccessible(page);
  sendUpload();
  await progress.waitFor({ state: 'detached' });

  const sendPick = await heldBack(page, '**/api/events');
  const photo = sheetOf(page).getByRole('button', { name: 'IMG_0001.PNG' });
  await photo.click();
  await photo.locator('.spinner').waitFor();
  assert.equal(await sheetOf(page).getAttribute('aria-busy'), 'true');
  await settled(page);
  await photo.click();
  await page.keyboard.press('Escape');
  sendPick();
  await sheetOf(page).waitFor({ state: 'detached' });
  await eventually(async () => assert.deepEqual(await background(started), halves));
  assert.equal(await page.getByRole('dialog').count(), 0);
});

/** Lets the page send no more than so many bytes a second. */
async function slowDown(page, uploadThroughput) {
  const session = await page.context().newCDPSession(page);
  await session.send('Network.enable');
  await session.send('Network.emulateNetworkConditions', { offline: false, latency: 0, downloadThroughput: -1, uploadThroughput });
}

test('Stopping the way of a picture leaves out this one and those after it, and nothing of it on the disk', async (t) => {
  const started = await startTheme(t);
  const { page, folder } = started;
  const small = await picture(page, 'image/png');
  const large = Buffer.concat([small, Buffer.alloc(20 * 2 ** 20)]);
  await openSheet(page);
  await slowDown(page, 2 ** 20);
  await chooseFiles(page, addButton(page), [
    { name: 'a.png', mimeType: 'image/png', buffer: small }, { name: 'b.png', mimeType: 'image/png', buffer: large },
    { name: 'c.png', mimeType: 'image/png', buffer: small },
  ]);
  const way = sheetOf(page).getByRole('progressbar', { name: 'Adding “b.png” (2 of 3)' });
  await eventually(async () => assert.ok(await way.getAttribute('value') > 0));
  const uploads = join(folder, '.simulator/uploads');
  await eventually(async () => assert.equal((await readdir(uploads)).length, 1));
  await sheetOf(page).getByRole('button', { name: 'Cancel' }).focus();
  await page.keyboard.press('Shift+Tab');
  assert.equal(await focused(page), 'Stop: Adding “b.png” (2 of 3)');
  await page.keyboard.press('Enter');
  await noticeOf(page, '“b.png” was not sent.').waitFor();
  assert.equal(await page.getByRole('progressbar').count(), 0);
  await eventually(async () => assert.deepEqual(await readdir(uploads), []));
  assert.deepEqual(await photosIn(started), ['IMG_0001.PNG']);

  await slowDown(page, -1);
  await chooseFiles(page, addButton(page), [{ name: 'd.png', mimeType: 'image/png', buffer: small }]);
  await sheetOf(page).getByRole('button', { name: 'IMG_0002.PNG' }).waitFor();
});

for (const colorScheme of ['light', 'dark']) {
  test(`The sheet with its button is reached by keyboard and is accessible when ${colorScheme}`, async (t) => {
    const { page } = await startTheme(t, { colorScheme });
    const chooser = page.waitForEvent('filechooser', { timeout: 30_000 });
    await openSheet(page);
    await sheetOf(page).waitFor();
    await assertAccessible(page);
    await page.keyboard.press('Tab');
    assert.equal(await focused(page), 'Cancel');
    await page.keyboard.press('Tab');
    assert.equal(await focused(page), 'Add from this computer…');
    await page.keyboard.press('Enter');
    assert.equal((await chooser).isMultiple(), true);
  });
}
