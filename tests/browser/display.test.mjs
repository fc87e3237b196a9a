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

/** The custom cell at the end of the bundle's page. */
function footerOf({ page }) {
  return page.sections.at(-1).footerView;
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

  const { alert } = await tap(api, 'Respring');
  const { id } = alert.actions.find(({ title }) => title === 'Respring');
  await api('POST', '/api/events', { type: 'tap', id }).catch(() => {});
  await first.getByText('1 respring').waitFor();
  assert.equal(bannerOf(await tap(api, 'Zuno')).frame[2], 820);
  await choice(second, 'iPhone').click();
  await eventually(async () => assert.equal((await first.locator('.phone').boundingBox()).height, phoneHeight));
});

test('A custom cell turns with the device and comes back as it was', async (t) => {
  const { api } = await startSimulator(t);
  const turn = (orientation) => api('PUT', '/api/device/display', { orientation });
  const framesIn = ({ frame, views }) => [frame, ...views.map((view) => view.frame)];
  const framesOf = (screen) => [bannerOf(screen), footerOf(screen)].flatMap(framesIn);
  const upright = framesOf(await tap(api, 'Zuno'));
  for (let turns = 0; turns < 2; turns += 1) {
    await turn('landscape');
    const lying = framesOf(await api('GET', '/api/screen'));
    lying.forEach(([x, , width, height], at) => {
      assert.deepEqual([x, width, height], [0, 844, upright[at][3]], 'from edge to edge, and as high as before');
    });
    await turn('portrait');
    assert.deepEqual(framesOf(await api('GET', '/api/screen')), upright);
  }
});

test('A page that is opened and left on a turned phone is laid out for it, and upright again after the turn back', async (t) => {
  const { api } = await startSimulator(t);
  await api('PUT', '/api/device/display', { orientation: 'landscape' });
  assert.equal(bannerOf(await tap(api, 'Zuno')).frame[2], 844);
  const { page } = await tap(api, 'Favourite Apps');
  assert.deepEqual(page.sections[0].rows.map(({ frame }) => frame[2]), page.sections[0].rows.map(() => 844));
  await api('PUT', '/api/device/display', { orientation: 'portrait' });
  assert.equal(bannerOf(await api('POST', '/api/events', { type: 'tap', id: page.back.id })).frame[2], 390);
});

test('The phone is turned with a button, and everything on it stays clear of the notch', async (t) => {
  const { url, api } = await startSimulator(t);
  const page = await openPage(t, url, { reducedMotion: 'reduce', expected: /404/ });
  const turn = page.getByRole('button', { name: 'Landscape' });
  await page.locator('.large-title').waitFor();
  await turn.click();
  await page.locator('[data-orientation="landscape"]').waitFor();
  assert.equal(await turn.getAttribute('aria-pressed'), 'true');
  assert.equal(await page.locator('.large-title').count(), 0, 'there is no room for a large title');
  await page.getByRole('heading', { name: 'Settings', exact: true }).waitFor();
  assert.equal(await page.locator('.status-bar').isVisible(), false);

  for (const place of ['Zuno', 'Widgets']) {
    await page.locator('.page:not([inert]) .row').filter({ hasText: place }).first().click();
    await page.locator('.page:not([inert]) .back-button').waitFor();
    await eventually(async () => assert.equal(await page.locator('.page').count(), 1));
    const [edge, texts] = await page.evaluate(() => {
      const startOf = (node) => {
        const range = document.createRange();
        range.selectNodeContents(node);
        return { text: node.textContent, start: range.getBoundingClientRect().x };
      };
      const shown = document.querySelectorAll('.back-button, .row-label, .section-header, .section-footer');
      return [document.querySelector('.notch').getBoundingClientRect().right, [...shown].map(startOf)];
    });
    assert.ok(texts.length > 3);
    for (const { text, start } of texts) assert.ok(start > edge, `“${text}” begins at ${start}, the notch ends at ${edge}`);
  }
  await turn.click();
  await page.locator('[data-orientation="portrait"]').waitFor();
  assert.equal((await api('GET', '/api/device')).display.orientation, 'portrait');
});

test('An unknown display is refused', async (t) => {
  const { api } = await startSimulator(t);
  assert.match((await api('PUT', '/api/device/display', { kind: 'watch' })).error, /phone.*tablet/);
  assert.match((await api('PUT', '/api/device/display', { orientation: 'flat' })).error, /portrait.*landscape/);
  assert.equal((await api('GET', '/api/device')).display.kind, 'phone');
});

async function startOnTablet(t, rows, onEvent, options) {
  const { fake, url } = await startFake(t, screen(['List'], [section('Names', rows)]), onEvent);
  const page = await openPage(t, url, options);
  await choice(page, 'iPad').click();
  await page.locator('[data-display="tablet"]').waitFor();
  return { fake, page };
}

async function startOnTurnedPhone(t, rows, onEvent, options) {
  const { fake, url } = await startFake(t, screen(['List'], [section('Names', rows)]), onEvent);
  const page = await openPage(t, url, options);
  await page.getByRole('button', { name: 'Landscape' }).click();
  await page.locator('[data-orientation="landscape"]').waitFor();
  return { fake, page };
}

const places = [
  ['a tablet', startOnTablet, { from: 1, to: 6 }], ['a phone on its side', startOnTurnedPhone, { from: 0, to: 4 }],
];
for (const [place, start, { from, to }] of places) {
  test(`On ${place}, which is drawn smaller, a row is dragged to the place under the pointer`, async (t) => {
    const rows = Array.from({ length: 8 }, (_, at) => row(`Row ${at}`, { canMove: true }));
    const { fake, page } = await start(t, rows, undefined, { viewport: { width: 1280, height: 916 } });
    const boxOf = (at) => page.getByRole('button', { name: `Move Row ${at}` }).boundingBox();
    const [first, last] = [await boxOf(from), await boxOf(to)];
    assert.ok(first.height < 40, 'the device is drawn smaller');
    await page.mouse.move(first.x + first.width / 2, first.y + first.height / 2);
    await page.mouse.down();
    await page.mouse.move(last.x + last.width / 2, last.y + last.height / 2, { steps: 8 });
    await page.mouse.up();
    await eventually(() => assert.equal(fake.events.length, 1));
    const [{ revision, ...event }] = fake.events;
    assert.deepEqual(event, { type: 'move', from: [0, from], to: [0, to] });
    assert.equal(typeof revision, 'number');
  });
}

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

for (const [place, start] of places) {
  test(`In a narrow window ${place} fits the width`, async (t) => {
    const { page } = await start(t, [link('A')], undefined, { viewport: { width: 390, height: 700 } });
    await settled(page);
    const { scrollWidth, clientWidth } = await page.evaluate(() => {
      const { scrollWidth, clientWidth } = document.documentElement;
      return { scrollWidth, clientWidth };
    });
    assert.equal(scrollWidth, clientWidth);
  });

  test(`axe finds nothing on ${place}`, async (t) => {
    const { page } = await start(t, [link('A')]);
    await assertAccessible(page);
  });
}
