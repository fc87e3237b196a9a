import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, focused, hasFocus, openPage, settled } from './support/browser.mjs';
import { chooseFiles } from './support/files.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { link, screen, section } from './support/screens.mjs';

const theme = screen(['Settings', 'Theme'], [section(null, [link('Background')])]);
const item = (title, fields = {}) => ({ id: `item ${title}`, title, path: `/var/mobile/${title}`, image: null, ...fields });
const image = { url: '/images/8', width: 100, height: 80 };
const withSheet = (kind, items) => ({ ...theme, sheet: { kind, title: null, items } });
const photos = withSheet('photos', [item('IMG_0001.PNG', { image }), item('IMG_0002.PNG', { image }), item('Unread.HEIC')]);
const sent = (fake) => fake.events.map(({ revision, ...event }) => event);

const closing = (event, fake) => {
  fake.screen = event.type === 'tap' ? photos : theme;
};

test('Photos are a grid of named pictures, and picking one names its path', async (t) => {
  const { fake, url } = await startFake(t, photos, closing);
  const page = await openPage(t, url);
  const sheet = page.getByRole('dialog', { name: 'Photos' });
  await sheet.getByRole('button', { name: 'Unread.HEIC' }).waitFor();
  const pick = sheet.getByRole('button', { name: 'IMG_0002.PNG' });
  await pick.locator('img').waitFor();
  await pick.click();
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'pick', path: '/var/mobile/IMG_0002.PNG' }]));
  await sheet.waitFor({ state: 'detached' });
});

test('A file that is stopped while it waits for an earlier input is not sent', async (t) => {
  let release;
  const held = new Promise((resolve) => { release = resolve; });
  const { fake, url } = await startFake(t, withSheet('documents', [item('a.plist')]), () => held);
  const page = await openPage(t, url);
  const sent = [];
  page.on('request', (request) => sent.push(new URL(request.url()).pathname));
  const sheet = page.getByRole('dialog', { name: 'Documents' });
  await sheet.getByRole('button', { name: 'a.plist' }).click();
  await eventually(() => assert.equal(fake.events.length, 1));
  const choose = sheet.getByRole('button', { name: 'Choose from this computer…' });
  await chooseFiles(page, choose, [{ name: 'b.plist', mimeType: '', buffer: Buffer.from('b') }]);
  await sheet.getByRole('button', { name: 'Stop: Sending “b.plist”' }).click();
  release();
  await page.getByRole('status').filter({ hasText: '“b.plist” was not sent.' }).waitFor();
  assert.equal(sent.includes('/api/picked-file'), false);
});

test('The screen behind a sheet stays where it is while the sheet comes up', async (t) => {
  const { url } = await startFake(t, theme, closing);
  const page = await openPage(t, url, { hurry: 1 });
  await page.getByRole('button', { name: 'Background' }).waitFor();
  await page.evaluate(() => {
    const screenElement = document.querySelector('.screen');
    globalThis.highest = 0;
    const look = () => {
      globalThis.highest = Math.max(globalThis.highest, screenElement.scrollTop);
      requestAnimationFrame(look);
    };
    look();
  });
  await page.getByRole('button', { name: 'Background' }).click();
  const sheet = page.getByRole('dialog', { name: 'Photos' });
  await sheet.waitFor();
  await eventually(async () => assert.ok(await hasFocus(sheet)));
  await settled(page);
  assert.equal(await page.evaluate(() => globalThis.highest), 0);
});

test('A sheet keeps the focus, is left by Escape, and gives the focus back', async (t) => {
  const { fake, url } = await startFake(t, theme, closing);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Background' }).focus();
  await page.keyboard.press('Enter');
  await eventually(async () => assert.ok(await hasFocus(page.getByRole('dialog', { name: 'Photos' }))));
  for (let press = 0; press < 5; press += 1) await page.keyboard.press('Tab');
  assert.equal(await focused(page), 'Unread.HEIC');
  await page.keyboard.press('Tab');
  assert.equal(await focused(page), 'Cancel');
  await page.keyboard.press('Escape');
  await eventually(() => assert.deepEqual(sent(fake).at(-1), { type: 'dismiss' }));
  await eventually(async () => assert.equal(await focused(page), 'Background'));
});

test('Documents are a list, and an empty folder says so', async (t) => {
  const { fake, url } = await startFake(t, withSheet('documents', [item('Ocean.plist')]), closing);
  const page = await openPage(t, url);
  await page.getByRole('dialog', { name: 'Documents' }).getByRole('button', { name: 'Ocean.plist' }).click();
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'pick', path: '/var/mobile/Ocean.plist' }]));
  fake.show(withSheet('documents', []));
  await page.getByText('No Documents').waitFor();
});

test('An alert over a sheet comes first', async (t) => {
  const actions = [{ id: 'ok', title: 'OK', style: 'default', enabled: true }];
  const alert = { title: 'Error', message: null, style: 'alert', fields: [], actions };
  const { fake, url } = await startFake(t, { ...photos, alert }, (event, it) => {
    it.screen = photos;
  });
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'OK' }).press('Enter');
  await page.getByRole('alertdialog').waitFor({ state: 'detached' });
  await eventually(async () => assert.ok(await hasFocus(page.getByRole('dialog'))));
  assert.deepEqual(sent(fake), [{ type: 'tap', id: 'ok' }]);
});

const leaving = (event, fake) => {
  fake.screen = theme;
};

test('A shared text can be copied, and that closes the sheet', async (t) => {
  const shared = withSheet('share', [item('Preset', { path: null, text: 'eyJ9', activities: ['copy'] })]);
  const { fake, url } = await startFake(t, shared, leaving);
  const page = await openPage(t, url);
  await page.getByRole('dialog', { name: 'Share' }).getByRole('button', { name: 'Copy Preset' }).click();
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'tap', id: 'item Preset', part: 'copy' }]));
});

test('A shared file can be saved under its name', async (t) => {
  const ocean = item('Ocean', { path: null, url: '/images/file', fileName: 'Ocean.plist', activities: ['save'] });
  const { fake, url } = await startFake(t, withSheet('share', [ocean]), leaving);
  const page = await openPage(t, url);
  const [download] = await Promise.all([
    page.waitForEvent('download'), page.getByRole('button', { name: 'Save Ocean' }).click(),
  ]);
  assert.equal(download.suggestedFilename(), 'Ocean.plist');
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'tap', id: 'item Ocean', part: 'save' }]));
});

test('A share sheet whose items offer nothing can be closed', async (t) => {
  const { fake, url } = await startFake(t, withSheet('share', [item('Ocean.plist', { path: null })]), closing);
  const page = await openPage(t, url);
  const sheet = page.getByRole('dialog', { name: 'Share' });
  await sheet.getByText('Ocean.plist').waitFor();
  await sheet.getByRole('button', { name: 'Close' }).click();
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'dismiss' }]));
});
