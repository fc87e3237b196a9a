// Pictures in the browser: the thumbnails of the photo sheet, and pictures across a restart of Settings.
import assert from 'node:assert/strict';
import { readdir, readFile, readlink } from 'node:fs/promises';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { oriented, picture, readPicture } from './support/pictures.mjs';
import { startSimulator } from './support/simulator.mjs';
import { layFile, open, startZuno } from './support/zuno.mjs';

const labels = ['Zuno', 'Customise'];
const library = 'var/mobile/Media/DCIM/100APPLE';
const sheetOf = (page) => page.getByRole('dialog', { name: 'Photos' });
const photoOf = (page, name) => sheetOf(page).getByRole('button', { name, exact: true });

async function openSheet(page) {
  await page.getByRole('button', { name: 'Choose Photo…' }).click();
  await sheetOf(page).waitFor();
}

/** Resolves when every photo in view has its picture. */
async function loaded(sheet) {
  await eventually(async () => assert.deepEqual(await sheet.evaluate((card) => {
    const { top, bottom } = card.querySelector('.photo-grid').getBoundingClientRect();
    const inView = [...card.querySelectorAll('.photo')].filter((photo) => {
      const place = photo.getBoundingClientRect();
      return place.bottom > top + 1 && place.top < bottom - 1;
    });
    return inView.filter((photo) => !photo.querySelector('img')).map((photo) => photo.ariaLabel);
  }), []));
}

/** The picture that an `img` shows, as `readPicture` tells it. */
async function shown(page, image) {
  const base64 = await image.evaluate(async (element) => {
    await element.decode();
    const canvas = new OffscreenCanvas(element.naturalWidth, element.naturalHeight);
    canvas.getContext('2d').drawImage(element, 0, 0);
    const bytes = new Uint8Array(await (await canvas.convertToBlob()).arrayBuffer());
    return btoa(Array.from(bytes, (byte) => String.fromCharCode(byte)).join(''));
  });
  return readPicture(page, Buffer.from(base64, 'base64'));
}

test('Photos show upright thumbnails, and a damaged one its name', async (t) => {
  const started = await startZuno(t, { labels, expected: /404/ });
  const { page, folder } = started;
  const jpeg = await picture(page, 'image/jpeg');
  await layFile(folder, `${library}/UPSIDE.JPG`, oriented(jpeg, 3));
  await layFile(folder, `${library}/WEBP.WEBP`, await picture(page, 'image/webp'));
  await layFile(folder, `${library}/DAMAGED.JPG`, jpeg.subarray(0, 200));
  await openSheet(page);
  const square = { width: 40, height: 40 };
  assert.deepEqual(await shown(page, photoOf(page, 'UPSIDE.JPG').locator('img')), { ...square, corners: 'blue red red blue' });
  assert.deepEqual(await shown(page, photoOf(page, 'WEBP.WEBP').locator('img')), { ...square, corners: 'red blue blue red' });
  await photoOf(page, 'DAMAGED.JPG').getByText('DAMAGED.JPG').waitFor();
  assert.equal(await photoOf(page, 'DAMAGED.JPG').locator('img').count(), 0);
  await photoOf(page, 'UPSIDE.JPG').click();
  await sheetOf(page).waitFor({ state: 'detached' });
});

test('Of many photos only those in view are asked for, each once', async (t) => {
  const { page, folder, api } = await startZuno(t, { labels });
  const png = await picture(page, 'image/png');
  const count = 300;
  for (let at = 0; at < count; at += 1) await layFile(folder, `${library}/MANY_${String(at).padStart(4, '0')}.PNG`, png);
  const asked = [];
  page.on('request', (request) => {
    if (new URL(request.url()).pathname.startsWith('/images/')) asked.push(request.url());
  });
  await openSheet(page);
  await photoOf(page, 'MANY_0000.PNG').locator('img').waitFor();
  const { revision } = await api('GET', '/api/screen');
  await loaded(sheetOf(page));
  assert.ok(asked.length < count / 4, `${asked.length} of ${count} pictures were asked for`);

  await photoOf(page, `MANY_0${count - 1}.PNG`).scrollIntoViewIfNeeded();
  await photoOf(page, `MANY_0${count - 1}.PNG`).locator('img').waitFor();
  await photoOf(page, 'MANY_0000.PNG').scrollIntoViewIfNeeded();
  await photoOf(page, 'MANY_0000.PNG').locator('img').waitFor();
  await loaded(sheetOf(page));
  assert.ok(asked.length < count / 2, `${asked.length} of ${count} pictures were asked for after scrolling`);
  assert.equal(new Set(asked).size, asked.length);
  assert.equal((await api('GET', '/api/screen')).revision, revision, 'looking at photos changes nothing');
});

const wordsOf = async (number) => (await readFile(`/proc/${number}/cmdline`, 'utf8').catch(() => '')).split('\0');

/** Whether the process, or one that started it, was given the folder: in a sandbox it does not know it itself. */
async function isFor(folder, number) {
  if (number <= 1) return false;
  if ((await wordsOf(number)).includes(folder)) return true;
  const stat = await readFile(`/proc/${number}/stat`, 'utf8').catch(() => '');
  return isFor(folder, Number(stat.slice(stat.lastIndexOf(')')).split(' ')[2] ?? 0));
}

/** The process number of the Settings program that serves the device folder. */
async function settingsOf(folder) {
  for (const entry of await readdir('/proc')) {
    if (!/^\d+$/.test(entry)) continue;
    const program = await readlink(`/proc/${entry}/exe`).catch(() => '');
    if (program.endsWith('/settings') && await isFor(folder, Number(entry))) return Number(entry);
  }
  throw new Error('Settings does not run');
}

test('After Settings ended, pictures have other addresses and the page shows the right ones', async (t) => {
  const simulator = await startSimulator(t);
  const page = await openPage(t, simulator.url, { expected: /404|50\d/ });
  const iconOf = async () => {
    const { page: front } = await simulator.api('GET', '/api/screen');
    return front.sections.flatMap(({ rows }) => rows).find(({ label }) => label === 'Zuno').image.url;
  };
  const before = await iconOf();
  const icon = page.getByRole('button', { name: 'Zuno' }).locator('img');
  await icon.waitFor();
  await open(page, 'Zuno');
  process.kill(await settingsOf(simulator.folder), 'SIGKILL');
  await page.getByRole('heading', { name: 'Settings', level: 2 }).waitFor();
  const after = await eventually(iconOf);
  assert.notEqual(after, before);
  await icon.waitFor();
  const isDrawn = (element) => element.decode().then(() => element.naturalWidth > 0);
  await eventually(async () => assert.ok(await icon.evaluate(isDrawn)));
});
