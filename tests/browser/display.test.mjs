import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage, settled } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { link, row, screen, section } from './support/screens.mjs';
import { startSimulator } from './support/simulator.mjs';

const choice = (page, name) => page.getByRole('radiogroup', { name: 'Display' }).getByRole('radio', { name });

/** Taps the row `label` through the automation interface; resolves with the screen after it. */
async function tap(api, label) {
  const { page } = await api('GET', '/api/screen');
  const rows = page.sections.flatMap((each) => each.rows);
  return api('POST', '/api/events', { type: 'tap', id: rows.find((each) => each.label === label).id });
}

/** The custom cell at the top of the bundle's page. */
function bannerOf({ page }) {
  return page.sections[0].headerView;
}

test('A custom cell is laid out for the width of the chosen display', async (t) => {
  const { api } = await startSimulator(t);
  const onPhone = bannerOf(await tap(api, 'Zuno'));
  assert.equal(onPhone.frame[2], 390);
  await api('PUT', '/api/device/display', { kind: 'tablet' });
  const onTablet = bannerOf(await api('GET', '/api/screen'));
  assert.deepEqual(onTablet.frame, [0, 0, 820, onPhone.frame[3]]);
  const name = onTablet.views.find((each) => each.text === 'Zuno');
  assert.equal(name.frame[0] + name.frame[2] / 2, 410);
  await api('PUT', '/api/device/display', { kind: 'phone' });
  const again = bannerOf(await api('GET', '/api/screen'));
  const frames = ({ views }) => views.map(({ frame }) => frame);
  assert.deepEqual(frames(again), frames(onPhone));
});

test('A page that lies below another one is laid out for the new width when it comes back', async (t) => {
  const { api } = await startSimulator(t);
  await tap(api, 'Zuno');
  const { page } = await tap(api, 'Open To');
  await api('PUT', '/api/device/display', { kind: 'tablet' });
  const back = await api('POST', '/api/events', { type: 'tap', id: page.back.id });
  assert.equal(bannerOf(back).frame[2], 820);
});

test('The page follows the display, in every tab and through a respring', async (t) => {
  const { url, api } = await startSimulator(t);
  const first = await openPage(t, url, { expected: /404|50\d/ });
  const second = await openPage(t, url, { expected: /404|50\d/ });
  await choice(second, 'iPhone').waitFor();
  const phoneHeight = (await first.locator('.phone').boundingBox()).height;
  await choice(first, 'iPad').click();
  for (const page of [first, second]) {
    await eventually(async () => {
      assert.equal(await page.locator('.screen').evaluate((element) => element.offsetWidth), 820);
    });
    assert.equal(await choice(page, 'iPad').isChecked(), true);
  }
  const box = await first.locator('.phone').boundingBox();
  assert.ok(box.y + box.height <= 920, JSON.stringify(box));
  await tap(api, 'Zuno');
  const drawn = first.locator('.section-view .view').first();
  await eventually(async () => assert.equal(await drawn.evaluate((element) => element.offsetWidth), 820));

  await tap(api, 'Respring').catch(() => {});
  await first.getByText('1 respring').waitFor();
  assert.equal(bannerOf(await tap(api, 'Zuno')).frame[2], 820);
  await choice(second, 'iPhone').click();
  await eventually(async () => assert.equal((await first.locator('.phone').boundingBox()).height, phoneHeight));
});

test('An unknown display is refused', async (t) => {
  const { api } = await startSimulator(t);
  assert.match((await api('PUT', '/api/device/display', { kind: 'watch' })).error, /phone.*tablet/);
  assert.equal((await api('GET', '/api/device')).display.kind, 'phone');
});

async function startOnTablet(t, rows, onEvent, options) {
  const { fake, url } = await startFake(t, screen(['List'], [section('Names', rows)]), onEvent);
  const page = await openPage(t, url, options);
  await choice(page, 'iPad').click();
  await page.locator('[data-display="tablet"]').waitFor();
  return { fake, page };
}

test('On a tablet, which is drawn smaller, a row is dragged to the place under the pointer', async (t) => {
  const rows = Array.from({ length: 8 }, (_, at) => row(`Row ${at}`, { canMove: true }));
  const { fake, page } = await startOnTablet(t, rows);
  const boxOf = (name) => page.getByRole('button', { name: `Move ${name}` }).boundingBox();
  const from = await boxOf('Row 1');
  const to = await boxOf('Row 6');
  assert.ok(from.height < 40, 'the tablet is drawn smaller');
  await page.mouse.move(from.x + from.width / 2, from.y + from.height / 2);
  await page.mouse.down();
  await page.mouse.move(to.x + to.width / 2, to.y + to.height / 2, { steps: 8 });
  await page.mouse.up();
  await eventually(() => assert.equal(fake.events.length, 1));
  const [{ revision, ...event }] = fake.events;
  assert.deepEqual(event, { type: 'move', from: [0, 1], to: [0, 6] });
  assert.equal(typeof revision, 'number');
});

test('On a tablet a row is swiped as far as the pointer goes', async (t) => {
  const rows = [link('Gone', { swipeActions: [{ id: 's', title: 'Delete', color: '#ff0000ff', leading: false }] })];
  const { page } = await startOnTablet(t, rows);
  const slide = page.locator('.row-slide').first();
  const box = await slide.boundingBox();
  await page.mouse.move(box.x + 200, box.y + box.height / 2);
  await page.mouse.down();
  await page.mouse.move(box.x + 140, box.y + box.height / 2, { steps: 4 });
  assert.ok(Math.abs((await slide.boundingBox()).x - (box.x - 60)) < 1);
  await page.mouse.up();
  await page.getByRole('button', { name: /Delete/ }).waitFor();
});

test('In a narrow window a tablet fits the width', async (t) => {
  const { page } = await startOnTablet(t, [link('A')], undefined, { viewport: { width: 390, height: 700 } });
  await settled(page);
  const { scrollWidth, clientWidth } = await page.evaluate(() => {
    const { scrollWidth, clientWidth } = document.documentElement;
    return { scrollWidth, clientWidth };
  });
  assert.equal(scrollWidth, clientWidth);
});

test('axe finds nothing on a tablet', async (t) => {
  const { page } = await startOnTablet(t, [link('A')]);
  await assertAccessible(page);
});
