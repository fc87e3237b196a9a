// The preview at the head of the theme page, as the browser draws it.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { assertAccessible, eventually, settled } from './support/browser.mjs';
import { Device } from './support/device.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { layFile, open, startZuno, themeFile } from './support/zuno.mjs';

const previewOf = (page) => page.getByRole('img', { name: /^Preview of the switcher/ });
const screenOf = (page) => previewOf(page).locator('> .view').first();
const expected = /404/; // Pictures of a screen that the next event replaced before it was drawn.

const photo = { x: 0.06, y: 0.12 }; // Above the cards.
const card = { x: 0.5, y: 0.79 };
const gap = { x: 0.185, y: 0.6 }; // Between the middle card and the left one when they are apart.
const corner = { x: 0.228, y: 0.825 }; // At the middle card's lower left.
const badge = { x: 0.83, y: 0.27 };

/**
 * The colours of the preview's screen as it is drawn, at places given as shares of its sides: [[red, green, blue],
 * …].
 */
async function coloursAt(page, ...places) {
  await settled(page);
  await page.waitForFunction(() => [...document.querySelectorAll('.view img')].every((image) => image.complete));
  const shot = (await screenOf(page).screenshot()).toString('base64');
  return page.evaluate(async ([base64, wanted]) => {
    const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const bitmap = await createImageBitmap(new Blob([bytes], { type: 'image/png' }));
    const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext('2d');
    context.drawImage(bitmap, 0, 0);
    return wanted.map(({ x, y }) => {
      const place = [x * (bitmap.width - 1), y * (bitmap.height - 1)].map(Math.round);
      return [...context.getImageData(...place, 1, 1).data].slice(0, 3);
    });
  }, [shot, places]);
}

/** The number of pixels of the preview that differ between two screenshots of it, as a share. */
async function shareChanged(page, before, after) {
  return page.evaluate(async (shots) => {
    const [one, other] = await Promise.all(shots.map(async (base64) => {
      const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
      const bitmap = await createImageBitmap(new Blob([bytes], { type: 'image/png' }));
      const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext('2d');
      context.drawImage(bitmap, 0, 0);
      return context.getImageData(0, 0, bitmap.width, bitmap.height).data;
    }));
    let changed = 0;
    for (let at = 0; at < one.length; at += 4) {
      if ([0, 1, 2].some((part) => Math.abs(one[at + part] - other[at + part]) > 8)) changed += 1;
    }
    return changed / (one.length / 4);
  }, [before, after].map((shot) => shot.toString('base64')));
}

const dark = ([red, green, blue]) => red + green + blue < 200;
const near = (one, other, off = 6) => one.every((part, at) => Math.abs(part - other[at]) <= off);

/** Starts with the theme `values` and a photo of the library in it. */
async function startThemed(t, values, options = {}) {
  const started = await startZuno(t, {
    labels: ['Zuno'], expected, ...options,
    prepare: async (folder) =>
      layFile(folder, themeFile, propertyListText({ enabled: true, useCustom: true, ...values })),
  });
  if (options.photo !== false) {
    const png = await readFile(join(started.folder, 'var/mobile/Media/DCIM/100APPLE/IMG_0002.PNG'));
    const backgroundImage = png.toString('base64').replace(/.{64}/g, '$&\r\n');
    await layFile(started.folder, themeFile,
      propertyListText({ enabled: true, useCustom: true, ...values, backgroundImage }));
  }
  await open(started.page, 'Customise');
  await previewOf(started.page).waitFor();
  return started;
}

/** Drags the slider `name` with the mouse to `share` of its width. */
async function drag(page, name, share) {
  const slider = page.getByRole('slider', { name });
  await slider.scrollIntoViewIfNeeded();
  const { x, y, width, height } = await slider.boundingBox();
  const value = await slider.evaluate((element) => (element.value - element.min) / (element.max - element.min));
  const place = (part) => x + 10 + part * (width - 20);
  await page.mouse.move(place(value), y + height / 2);
  await page.mouse.down();
  await page.mouse.move(place((value + share) / 2), y + height / 2, { steps: 4 });
  await page.mouse.move(place(share), y + height / 2, { steps: 4 });
  await page.mouse.up();
  await screenOf(page).scrollIntoViewIfNeeded();
}

test('Sliders that are dragged change the preview', async (t) => {
  const started = await startThemed(t, { blurRadius: 0, dimming: 0, cornerRadius: 0, spacing: 30 });
  const { page } = started;
  const stored = (key) => started.stored(themeFile).then((theme) => theme[key]);

  const [bright, between, edge] = await coloursAt(page, photo, gap, corner);
  await drag(page, 'Dimming', 1);
  await eventually(async () => assert.equal(await stored('dimming'), 100));
  await eventually(async () => assert.ok((await coloursAt(page, photo))[0].every((part) => part < 8)));
  assert.ok(!bright.every((part) => part < 8));
  await drag(page, 'Dimming', 0);
  await eventually(async () => assert.ok(near((await coloursAt(page, photo))[0], bright)));

  await drag(page, 'Spacing', 0);
  await eventually(async () => assert.equal(await stored('spacing'), 0));
  await eventually(async () => assert.ok(!near((await coloursAt(page, gap))[0], between), 'a card has moved there'));

  await drag(page, 'Corner Radius', 1);
  await eventually(async () => assert.ok(!near((await coloursAt(page, corner))[0], edge), 'the corner is cut off'));

  const sharp = await screenOf(page).screenshot();
  await drag(page, 'Blur Radius', 1);
  await eventually(async () => assert.equal(await stored('blurRadius'), 60));
  await eventually(async () => {
    assert.ok(await shareChanged(page, sharp, await screenOf(page).screenshot()) > 0.05);
  });
});

test('The preview follows a photo that is picked by the button, another one picked in the cell, and clearing', async (t) => {
  const { page, api } = await startThemed(t, { blurRadius: 0, dimming: 0 }, { photo: false });
  const [plain] = await coloursAt(page, photo);
  assert.equal(await screenOf(page).locator('img').count(), 0);
  let before = plain;
  for (const [row, name] of [['Choose Photo…', 'IMG_0003.PNG'], ['Background Image', 'IMG_0002.PNG']]) {
    await page.getByRole('button', { name: row, exact: true }).click();
    await page.getByRole('dialog', { name: 'Photos' }).getByRole('button', { name }).click();
    await page.getByRole('dialog').waitFor({ state: 'detached' });
    await screenOf(page).scrollIntoViewIfNeeded();
    await screenOf(page).locator('img').waitFor();
    await eventually(async () => assert.ok(!near((await coloursAt(page, photo))[0], before)));
    [before] = await coloursAt(page, photo);
  }
  const device = new Device(api);
  await device.tapRow('Clear All Settings');
  await device.answer('Yes');
  await screenOf(page).locator('img').waitFor({ state: 'detached' });
  await eventually(async () => assert.ok(near((await coloursAt(page, photo))[0], plain)));
});

test('Colours and appearances are drawn as they are set', async (t) => {
  const values = { backgroundColour: '102030', titleColour: '304050', badgeColour: '00C800', appearance: 1, dimming: 0 };
  const { page } = await startThemed(t, values, { photo: false, colorScheme: 'dark' });
  const [ground, middle, sign] = await coloursAt(page, photo, card, badge);
  assert.deepEqual(ground, [0x10, 0x20, 0x30]);
  assert.deepEqual(middle, [255, 255, 255]);
  assert.deepEqual(sign, [0, 0xc8, 0]);
  const title = screenOf(page).getByText('Notes');
  assert.equal(await title.evaluate((element) => getComputedStyle(element).color), 'rgb(48, 64, 80)');
  await page.getByRole('radio', { name: 'Dark' }).click();
  await screenOf(page).scrollIntoViewIfNeeded();
  await eventually(async () => assert.ok(dark((await coloursAt(page, card))[0])));
  await page.getByRole('radio', { name: 'System' }).click();
  await screenOf(page).scrollIntoViewIfNeeded();
  await eventually(async () => assert.ok(dark((await coloursAt(page, card))[0])));
  await page.emulateMedia({ colorScheme: 'light' });
  await eventually(async () => assert.ok(!dark((await coloursAt(page, card))[0])));
});

const displays = [
  { kind: 'phone', orientation: 'portrait', size: [390, 844] }, { kind: 'phone', orientation: 'landscape', size: [844, 390] },
  { kind: 'tablet', orientation: 'portrait', size: [820, 1180] },
  { kind: 'tablet', orientation: 'landscape', size: [1180, 820] },
];

test('The preview has the proportions of each display and is found accessible, light and dark', async (t) => {
  const { page, api } = await startThemed(t, {}, { viewport: { width: 1560, height: 1260 } });
  for (const { kind, orientation, size: [width, height] } of displays) {
    await api('PUT', '/api/device/display', { kind, orientation });
    await eventually(async () => {
      const [shown, place] = await Promise.all([screenOf(page), previewOf(page)].map(
        (each) => each.evaluate((element) => [element.offsetWidth, element.offsetHeight, element.offsetLeft]),
      ));
      assert.ok(Math.abs(shown[0] - 0.3 * width) <= 1 && Math.abs(shown[1] - 0.3 * height) <= 1, `${kind} ${orientation}: ${shown}`);
      assert.ok(Math.abs(shown[2] + shown[0] / 2 - place[0] / 2) <= 1, 'in the middle');
    });
    const rows = await page.locator('.page:not([inert]) .row').first().boundingBox();
    const frame = await screenOf(page).boundingBox();
    assert.ok(frame.y + frame.height <= rows.y, 'the rows begin below it');
    for (const colorScheme of ['light', 'dark']) {
      await page.emulateMedia({ colorScheme });
      await assertAccessible(page);
    }
  }
});

test('The preview is one picture for assistive technologies, told in words that follow', async (t) => {
  const { page } = await startThemed(t, { appearance: 2, dimming: 10 }, { photo: false });
  await page.getByRole('img', { name: /darkened by 10 percent, .*, dark$/ }).waitFor();
  await page.getByRole('radio', { name: 'Light' }).click();
  await page.getByRole('img', { name: /darkened by 10 percent, .*, light$/ }).waitFor();
  await page.getByRole('switch', { name: 'Enabled' }).click();
  await page.getByRole('img', { name: /background of the system, cards with corners of 20 points, 16 points apart, / }).waitFor();
  assert.equal(await page.getByRole('img', { name: /^Preview/ }).count(), 1);
});
