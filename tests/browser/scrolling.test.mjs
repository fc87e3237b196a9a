// What a person scrolls in the browser reaches the page, and what its code scrolls is shown.
import assert from 'node:assert/strict';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually, openPage, settled } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { root, runScript } from './support/makers.mjs';
import { link, screen, section, view } from './support/screens.mjs';
import { startSimulator } from './support/simulator.mjs';
import { labelsOf, open } from './support/zuno.mjs';

const pictures = process.env.SAMPLE_PICTURES;
const picture = (page, name) => pictures && page.screenshot({ path: join(pictures, `${name}.png`) });

const scroller = (page) => page.locator('.page:not([inert]) .scroller');
const scrollTop = (page) => scroller(page).evaluate((element) => element.scrollTop);
const wheel = async (page, y, x = 0, at = scroller(page)) => {
  const box = await at.boundingBox();
  await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
  await page.mouse.wheel(x, y);
};

const top = -91;
const rows = (count) => Array.from({ length: count }, (_, at) => link(`Row ${at}`));
/** A page of 100 rows, whose table code has moved to `y`, for the `number`th time. */
const list = ({ number = 1, y = top, title = 'Rows', followed = true, count = 100 } = {}) => ({
  ...screen(['Settings', title], [section(null, rows(count))], {
    page: { largeTitle: false, scrolling: { id: 'view1', number, start: [0, top], ...followed && { followed } } },
  }),
  contentOffset: [0, y],
});
const phases = (events) => events.map(({ phase }) => phase ?? 'whole').filter((phase, at, all) => phase !== all[at - 1]);

/** Drags up with a finger, which is lifted while it moves where it is `quick`. */
async function drag(page, quick) {
  const session = await page.context().newCDPSession(page);
  const { x, y, width, height } = await scroller(page).boundingBox();
  const finger = { x: x + width / 2, y: y + height * 0.8 };
  const touch = (type, touchPoints) => session.send('Input.dispatchTouchEvent', { type, touchPoints });
  await touch('touchStart', [finger]);
  for (let step = 0; step < 10; step += 1) {
    finger.y -= 30;
    await touch('touchMove', [finger]);
  }
  if (!quick) await page.waitForTimeout(300);
  await touch('touchEnd', []);
}

test('A title fades in while the header of a stranger\'s page is scrolled away, and more rows come at the end', async (t) => {
  const { url, folder, api } = await startSimulator(t);
  await runScript('bundle', join(root, 'samples/bundles/Tideline'), folder);
  for (const kind of ['phone', 'tablet']) {
    for (const colorScheme of ['light', 'dark']) {
      await api('PUT', '/api/device/display', { kind });
      const page = await openPage(t, url, { colorScheme, viewport: { width: 1500, height: 1300 } });
      await page.reload();
      await open(page, 'Tideline', 'Harbours');
      const title = page.locator('.navigation-bar .title-view .view').first();
      const opacity = () => title.evaluate((element) => Number(getComputedStyle(element).opacity));
      await eventually(async () => assert.equal(await opacity(), 0));
      await settled(page);
      await picture(page, `harbours-${kind}-${colorScheme}-top`);

      await wheel(page, 85);
      await eventually(async () => assert.ok(await opacity() > 0.3 && await opacity() < 0.8, String(await opacity())));
      await picture(page, `harbours-${kind}-${colorScheme}-between`);
      assert.ok(await scrollTop(page) > 60);

      await wheel(page, 100);
      await eventually(async () => assert.equal(await opacity(), 1));
      await settled(page);
      await picture(page, `harbours-${kind}-${colorScheme}-away`);
      const { contentOffset, page: { scrolling } } = await api('GET', '/api/screen');
      assert.ok(Math.abs(await scrollTop(page) - (contentOffset[1] - scrolling.start[1])) < 1);

      if (kind === 'phone') assert.equal((await labelsOf(api))[0].length, 24);
      for (let turn = 0; turn < 12; turn += 1) {
        await wheel(page, 400);
        await page.waitForTimeout(50);
      }
      await page.getByRole('switch', { name: 'Wick', exact: true }).waitFor();
      assert.equal((await labelsOf(api))[0].length, 51);

      await wheel(page, -9000);
      await eventually(async () => assert.equal(await opacity(), 0));
      await open(page, 'Back', 'Back');
      await page.close();
    }
  }
});

test('A wheel over a page that follows is told as a drag that begins, moves, is left and ends', async (t) => {
  const { fake, url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Row 0', exact: true }).waitFor();
  await page.waitForTimeout(100);
  assert.deepEqual(fake.events, [], 'nobody has scrolled');
  await wheel(page, 300);
  await eventually(() => assert.equal(fake.events.at(-1)?.phase, 'ended'));
  assert.deepEqual(phases(fake.events).filter((phase) => phase !== 'moved'), ['began', 'lifted', 'ended']);
  assert.ok(fake.events.every(({ type, id, revision }) => type === 'scrolled' && id === 'view1' && revision === undefined));
  const all = fake.events.map(({ y }) => y);
  assert.deepEqual(all, all.toSorted((one, other) => one - other));
  assert.equal(all.at(-1), await scrollTop(page) + top);
  assert.equal(fake.events.at(-1).x, 0);
});

test('A page that nobody follows is told of the end alone', async (t) => {
  const { fake, url } = await startFake(t, list({ followed: false }));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Row 0', exact: true }).waitFor();
  await wheel(page, 300);
  await eventually(() => assert.equal(fake.events.length, 1));
  await page.waitForTimeout(300);
  assert.deepEqual(fake.events, [{ type: 'scrolled', id: 'view1', x: 0, y: 300 + top }]);
});

test('What scrolls without a person\'s hand is told as a jump', async (t) => {
  const { fake, url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Row 0', exact: true }).focus();
  await page.keyboard.press('End');
  await eventually(() => assert.ok(fake.events.length > 0));
  await page.waitForTimeout(300);
  assert.deepEqual(phases(fake.events), ['jumped']);
  assert.equal(fake.events.at(-1).y, await scrollTop(page) + top);
});

test('A finger that is lifted as it moves leaves content that glides; one that stops first does not', async (t) => {
  const { fake, url } = await startFake(t, list());
  const page = await openPage(t, url, { hasTouch: true });
  await page.getByRole('button', { name: 'Row 0', exact: true }).waitFor();
  await drag(page, false);
  await eventually(() => assert.equal(fake.events.at(-1)?.phase, 'ended'));
  assert.deepEqual(phases(fake.events).filter((phase) => phase !== 'moved'), ['began', 'ended']);
  fake.events.length = 0;
  await drag(page, true);
  await eventually(() => assert.equal(fake.events.at(-1)?.phase, 'ended'));
  const [begun, lifted, ended] = ['began', 'lifted', 'ended'].map((phase) => fake.events.find((each) => each.phase === phase));
  assert.ok(begun && lifted && ended, phases(fake.events).join());
  assert.ok(lifted.velocity[1] > 0.05 && lifted.velocity[0] === 0, String(lifted.velocity));
  assert.ok(ended.y >= lifted.y);
});

test('Answers that come late neither pile up nor pull the content back', async (t) => {
  const delay = 200;
  let [inFlight, most] = [0, 0];
  const { fake, url } = await startFake(t, list(), async (event) => {
    inFlight += 1;
    most = Math.max(most, inFlight);
    await new Promise((resolve) => setTimeout(resolve, delay));
    inFlight -= 1;
    // The answer is of a moment ago: the device says where it stood then, and that its code has changed the title.
    fake.screen = list({ y: event.y, title: `At ${event.y}` });
  });
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Row 0', exact: true }).waitFor();
  await page.evaluate(() => {
    globalThis.tops = [];
    document.querySelector('.scroller').addEventListener('scroll', ({ target }) => globalThis.tops.push(target.scrollTop));
  });
  const begun = Date.now();
  for (let turn = 0; turn < 20; turn += 1) {
    await wheel(page, 60);
    await page.waitForTimeout(40);
  }
  await eventually(() => assert.equal(fake.events.at(-1).y, 1200 + top));
  await eventually(() => assert.equal(fake.events.at(-1).phase, 'ended'));
  const fewest = (Date.now() - begun) / delay;
  await page.waitForTimeout(300);
  const tops = await page.evaluate(() => globalThis.tops);
  assert.deepEqual(tops, tops.toSorted((one, other) => one - other), 'it never goes back');
  assert.equal(await scrollTop(page), 1200);
  assert.equal(fake.events.at(-1).y, 1200 + top);
  assert.equal(most, 1);
  assert.ok(fake.events.length <= fewest + 1, `${fake.events.length} events, where there was time for ${fewest}`);
  await page.getByRole('heading', { name: `At ${1200 + top}` }).waitFor();
});

test('A position that code sets is shown, also under a hand, and is no report of a person', async (t) => {
  const { fake, url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Row 0', exact: true }).waitFor();
  fake.show(list({ number: 2, y: 500 }));
  await eventually(async () => assert.equal(await scrollTop(page), 500 - top));
  fake.show(list({ number: 2, y: 800 }));
  await page.waitForTimeout(200);
  assert.equal(await scrollTop(page), 500 - top, 'another position under the same number is what somebody scrolled');
  assert.deepEqual(fake.events, []);

  fake.onEvent = ({ y }, { screen: { page: shown } }) => {
    if (y > 600 && shown.scrolling.number === 2) fake.screen = list({ number: 3, y: top });
  };
  await wheel(page, 150);
  await eventually(async () => assert.equal(await scrollTop(page), 0));
  await eventually(() => assert.equal(fake.events.at(-1).phase, 'ended'));
  await page.waitForTimeout(200);
  assert.equal(await scrollTop(page), 0);
  assert.equal(fake.events.at(-1).y, top, 'what the device is told of last is where code has put it');
});

test('The content stands where the device has it when the page is loaded anew', async (t) => {
  const { fake, url } = await startFake(t, list({ y: 700 }));
  const page = await openPage(t, url);
  await eventually(async () => assert.equal(await scrollTop(page), 700 - top));
  await page.waitForTimeout(200);
  assert.deepEqual(fake.events, []);
});

test('Nothing is told of a page that has gone, nor of one behind a sheet', async (t) => {
  const { fake, url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Row 0', exact: true }).waitFor();
  const held = [];
  fake.onEvent = () => new Promise((resolve) => { held.push(resolve); });
  await wheel(page, 50);
  await eventually(() => assert.equal(held.length, 1));
  fake.screen = screen(['Settings', 'Rows', 'Next'], [section(null, [link('Other')])]);
  held[0]();
  await page.getByRole('button', { name: 'Other' }).waitFor();
  await page.waitForTimeout(300);
  assert.equal(fake.events.length, 1, 'what waited was about the page before');
});

test('A tap on the status bar is told, where there is anything to bring back to its top', async (t) => {
  const { fake, url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Row 0', exact: true }).waitFor();
  const { x, y, width } = await page.locator('.screen').boundingBox();
  await page.mouse.click(x + width / 5, y + 20);
  await eventually(() => assert.deepEqual(fake.events.map(({ type }) => type), ['scrollToTop']));
  fake.show(screen(['Settings', 'Bare'], [], { page: { id: 9, style: null, view: view('view', [0, 0, 390, 844]) } }));
  await page.getByRole('heading', { name: 'Bare' }).waitFor();
  await page.mouse.click(x + width / 5, y + 20);
  await page.waitForTimeout(100);
  assert.equal(fake.events.length, 1);
});

/** A page of one scroll view, 300 by 200, at `offset` of a content of 900 by `height`. */
const scrollPage = (offset = [0, 0], { number = 5, height = 200, ...fields } = {}) => screen(['Settings', 'Pages'], [], {
  page: {
    style: null, largeTitle: false,
    view: view('view', [0, 0, 390, 844], {
      views: [view('scroll', [45, 150, 300, 200], {
        contentSize: [900, height], contentInset: [0, 0, 0, 0], adjustedContentInset: [0, 0, 0, 0], scrolls: true,
        scrolling: { id: 'view7', number, start: [0, 0] }, contentOffset: offset,
        views: [0, 1, 2].map((at) => view('view', [300 * at, 0, 300, height], { backgroundColor: `#${at}080ffff` })),
        ...fields,
      })],
    }),
  },
});

test('A scroll view on a page is scrolled sideways, told of, and moved by code', async (t) => {
  const { fake, url } = await startFake(t, scrollPage());
  const page = await openPage(t, url);
  const inner = page.locator('.scroll-view');
  await inner.waitFor();
  await wheel(page, 0, 120, inner);
  await eventually(() => assert.equal(fake.events.length, 1));
  assert.deepEqual(fake.events[0], { type: 'scrolled', id: 'view7', x: 120, y: 0 });
  fake.show(scrollPage([250, 40], { number: 6, height: 400 }));
  await eventually(async () => assert.deepEqual(
    await inner.evaluate(({ scrollLeft, scrollTop: down }) => [scrollLeft, down]), [250, 40]));
  await page.waitForTimeout(200);
  assert.equal(fake.events.length, 1);
});

test('Content that moves in pages comes to rest at one', async (t) => {
  const { fake, url } = await startFake(t, scrollPage([0, 0], { paging: true }));
  const page = await openPage(t, url);
  const inner = page.locator('.scroll-view');
  await inner.waitFor();
  await wheel(page, 0, 170, inner);
  await eventually(() => assert.equal(fake.events.at(-1)?.x, 300));
  assert.equal(await inner.evaluate(({ scrollLeft }) => scrollLeft), 300);
  await wheel(page, 0, 900, inner);
  await eventually(() => assert.equal(fake.events.at(-1)?.x, 600));
});
