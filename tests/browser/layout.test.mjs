// The simulator lays out; the browser has to draw everything where that put it.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { Device } from './support/device.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { control, link, row, screen, section } from './support/screens.mjs';
import { startSimulator } from './support/simulator.mjs';

const tolerance = 0.5;
const phone = { kind: 'phone', orientation: 'portrait' };
const displays = [
  [phone, 390], [{ orientation: 'landscape' }, 844], [{ kind: 'tablet' }, 1180], [{ orientation: 'portrait' }, 820], [phone, 390],
];
const pages = [
  [], ['Zuno'], ['Zuno', 'Open To'], ['Zuno', 'Default Music App'], ['Zuno', 'Favourite Apps'], ['Zuno', 'Widgets'],
  ['Zuno', 'Customise'], ['Zuno', 'Customise', 'Presets'],
];

/** Where things lie on the page in front, in points from the table's top left corner: `{rows, slots, views}`. */
function drawn(page) {
  return page.evaluate(() => {
    const table = document.querySelector('.page:not([inert]) .table');
    const origin = table.getBoundingClientRect();
    const scale = origin.width / table.offsetWidth;
    const frameOf = (element) => {
      const { x, y, width, height } = element.getBoundingClientRect();
      return [(x - origin.x) / scale, (y - origin.y) / scale, width / scale, height / scale];
    };
    const sections = [...table.querySelectorAll('.section')];
    return {
      rows: sections.map((each) => [...each.querySelectorAll('.row')].map(frameOf)),
      slots: sections.map((each) => [each.firstElementChild, each.lastElementChild].map((slot) => frameOf(slot)[3])),
      views: sections.map((each) => [...each.querySelectorAll('.section-view > .views > .view')].map(frameOf)),
    };
  });
}

/** The same as the simulator laid it out. */
function laidOut({ page }) {
  return {
    rows: page.sections.map(({ rows }) => rows.map(({ frame }) => frame)),
    slots: page.sections.map(({ headerHeight, footerHeight }) => [headerHeight, footerHeight]),
    views: page.sections.map(({ headerView, footerView }) =>
      [headerView, footerView].filter(Boolean).map(({ frame }) => frame)),
  };
}

function assertNear(actual, expected, place) {
  assert.equal(actual.length, expected.length, place);
  actual.forEach((value, at) => {
    const where = `${place} ${at}`;
    if (Array.isArray(value)) assertNear(value, expected[at], where);
    else assert.ok(Math.abs(value - expected[at]) <= tolerance, `${where}: ${actual} is not near ${expected}`);
  });
}

async function assertDrawnAsLaidOut(page, api, place) {
  await eventually(async () => {
    const screen = await api('GET', '/api/screen');
    assert.equal(await page.locator('.page').count(), 1);
    const [actual, expected] = [await drawn(page), laidOut(screen)];
    for (const part of ['rows', 'slots', 'views']) assertNear(actual[part], expected[part], `${place} ${part}`);
  });
}

test('Rows, headers, footers and custom cells are drawn where they were laid out, however the device is held', async (t) => {
  const { url, api } = await startSimulator(t);
  const device = new Device(api);
  const page = await openPage(t, url, { reducedMotion: 'reduce', expected: /404/ });
  for (const labels of pages) {
    for (const label of labels) await device.tapRow(label);
    for (const [display, width] of displays) {
      await api('PUT', '/api/device/display', display);
      await eventually(async () => {
        assert.equal(await page.locator('.screen').evaluate((element) => element.offsetWidth), width);
      });
      await assertDrawnAsLaidOut(page, api, `${labels.join(' > ')}, ${width} wide:`);
    }
    for (const label of labels) await device.back(label);
  }
});

test('Rows keep 16 points from the edges of a phone, 20 from those of a tablet and from the corners of a turned phone', async (t) => {
  const { api } = await startSimulator(t);
  await new Device(api).tapRow('Zuno');
  const edges = async () => {
    const { page } = await api('GET', '/api/screen');
    return page.sections.flatMap(({ rows }) => rows).map(({ frame: [x, , width] }) => [x, x + width]);
  };
  for (const [left, right] of await edges()) assert.deepEqual([left, right], [16, 374]);
  await api('PUT', '/api/device/display', { kind: 'tablet' });
  for (const [left, right] of await edges()) assert.deepEqual([left, right], [20, 800]);
  await api('PUT', '/api/device/display', { kind: 'phone', orientation: 'landscape' });
  for (const [left, right] of await edges()) assert.deepEqual([left, right], [67, 777]);
});

test('A footer that needs fewer lines on a tablet gets less room there', async (t) => {
  const { api } = await startSimulator(t);
  await new Device(api).tapRow('Zuno');
  const heights = async () => {
    const { page } = await api('GET', '/api/screen');
    return page.sections.filter(({ footer }) => footer).map(({ footerHeight }) => footerHeight);
  };
  const onPhone = await heights();
  await api('PUT', '/api/device/display', { kind: 'tablet' });
  const onTablet = await heights();
  assert.ok(onTablet.every((height, at) => height <= onPhone[at]));
  assert.ok(onTablet[0] < onPhone[0] - 10, `${onTablet[0]} against ${onPhone[0]}`);
});

test('A custom cell that is higher than its slot covers what follows, as on a device, but takes no taps', async (t) => {
  const { url, api } = await startSimulator(t);
  await new Device(api).tapRow('Zuno');
  const [banner] = (await api('GET', '/api/screen')).page.sections;
  assert.equal(banner.headerHeight, 150);
  assert.equal(banner.headerView.frame[3], 195);
  const page = await openPage(t, url);
  const credit = await page.getByText('by Norvik').boundingBox();
  const first = await page.locator('.row').first().boundingBox();
  assert.ok(credit.y + credit.height < first.y, 'the rows begin below the text');
  const slot = page.locator('.section-view').first();
  assert.equal(await slot.evaluate((element) => element.offsetHeight), 150);
  assert.equal(await slot.evaluate((element) => getComputedStyle(element).pointerEvents), 'none');
});

/**
 * How strong the line is below each row that is not its section's last and can be seen, in pixels of the separators'
 * colour.
 */
async function linesDrawn(page) {
  const shot = await page.screenshot();
  return page.evaluate(async (base64) => {
    const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const bitmap = await createImageBitmap(new Blob([bytes], { type: 'image/png' }));
    const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext('2d');
    context.drawImage(bitmap, 0, 0);
    const inkAt = (row) => {
      const { x, width, bottom } = row.getBoundingClientRect();
      // A column of pixels across the border of two rows, where neither has anything else.
      const column = x + 0.75 * width;
      if (![-3, 3].every((off) => document.elementFromPoint(column, bottom + off)?.closest('.row'))) return [];
      const scale = bitmap.width / innerWidth;
      const { data } = context.getImageData(...[column, bottom - 3, 1 / scale, 6]
        .map((length) => Math.round(length * scale)));
      const [red, , , alpha] = getComputedStyle(row, '::after').backgroundColor.match(/[\d.]+/g).map(Number);
      return [data.reduce((sum, value, at) => sum + (at % 4 === 0 ? 255 - value : 0), 0) / ((255 - red) * alpha)];
    };
    return [...document.querySelectorAll('.row:not([data-last="true"])')].flatMap(inkAt);
  }, shot.toString('base64'));
}

for (const deviceScaleFactor of [1, 2, 3]) {
  test(`Neighbouring rows are parted by one line, wherever they lie, with ${deviceScaleFactor} pixels a point`, async (t) => {
    // The borders of rows fall on many fractions of a pixel.
    const group = (height) => ({ ...section('A', Array.from({ length: 5 }, () => link('Row', { height }))), headerHeight: 37.2 });
    const { fake, url } = await startFake(t, screen(['List'], [44, 43.5, 44.3].map(group)));
    // For a screenshot Playwright puts a style into Firefox's page, which refuses it.
    const options = { deviceScaleFactor, colorScheme: 'light', viewport: { width: 1280, height: 917 }, expected: /inline style/ };
    const page = await openPage(t, url, options);
    for (const [display, width] of displays) {
      fake.turn(display);
      await eventually(async () => {
        assert.equal(await page.locator('.screen').evaluate((element) => element.offsetWidth), width);
      });
      const drawn = await linesDrawn(page);
      assert.ok(drawn.length >= 4, `${drawn.length} borders are in sight, ${width} wide`);
      for (const pixels of drawn) {
        assert.ok(pixels > 0.8 && pixels < Math.min(deviceScaleFactor, 2) + 0.2, `${width} wide: ${drawn.join(' ')}`);
      }
    }
  });
}

test('Texts stand in the middle of their rows, whatever element shows them', async (t) => {
  const rows = [
    link('Open', { style: 'value1', detail: 'Now' }), control('Turn', 'switch', true), row('Show', { selectable: false }),
    control('Name', 'text', 'Text', {}, { placeholder: '' }),
  ];
  const { url } = await startFake(t, screen(['List'], [section('A', rows)]));
  const page = await openPage(t, url);
  await page.locator('.row').first().waitFor();
  const offsets = await page.evaluate(() => [...document.querySelectorAll('.row-label')].map((label) => {
    const box = (element) => element.getBoundingClientRect();
    const [own, around] = [box(label), box(label.closest('.row'))];
    return own.y + own.height / 2 - around.y - around.height / 2;
  }));
  assert.equal(offsets.length, rows.length);
  for (const offset of offsets) assert.ok(Math.abs(offset) <= 0.5, String(offsets));
  const rendering = await page.locator('.text-field').evaluate((field) => getComputedStyle(field).textRendering);
  assert.equal(rendering, 'geometricprecision');
});
