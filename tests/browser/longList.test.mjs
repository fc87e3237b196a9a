import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, hasFocus, openPage } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { control, link, screen, section } from './support/screens.mjs';

const count = 10_000;
const icon = (at) => ({ url: `/images/${at}`, width: 29, height: 29 });
const apps = () => Array.from({ length: count }, (_, at) => link(`App ${at}`, { image: icon(at) }));
const list = (name = '') => screen(['Settings', 'Apps'], [
  section('Search', [control('Name', 'text', name)]), section('All', apps()),
]);

const drawn = (page) => page.getByRole('group', { name: 'All' }).getByRole('listitem').count();
const scrollTo = (page, top) => page.locator('.scroller').evaluate((element, to) => { element.scrollTop = to; }, top);

test('Of ten thousand rows only those near the screen are drawn, with their true place and number', async (t) => {
  const { url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'App 0', exact: true }).waitFor();
  assert.ok(await drawn(page) < 100, String(await drawn(page)));
  await scrollTo(page, 44 * 5000);
  const row = page.getByRole('listitem').filter({ has: page.getByRole('button', { name: 'App 5005', exact: true }) });
  await row.waitFor();
  assert.equal(await row.getAttribute('aria-setsize'), String(count));
  assert.equal(await row.getAttribute('aria-posinset'), '5006');
  assert.ok(await drawn(page) < 100);
});

test('End goes to the last row and Home back to the first', async (t) => {
  const { url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'App 0', exact: true }).focus();
  await page.keyboard.press('End');
  const last = page.getByRole('button', { name: `App ${count - 1}`, exact: true });
  await eventually(async () => assert.ok(await hasFocus(last)));
  await page.keyboard.press('Home');
  await eventually(async () => assert.ok(await hasFocus(page.getByRole('textbox', { name: 'Name' }))));
});

test('A row with the focus stays in the document when it is scrolled away', async (t) => {
  const { url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'App 3', exact: true }).focus();
  await scrollTo(page, 44 * 4000);
  await page.getByRole('button', { name: 'App 4000', exact: true }).waitFor();
  await page.keyboard.press('ArrowDown');
  await eventually(async () => assert.ok(await hasFocus(page.getByRole('button', { name: 'App 4', exact: true }))));
});

test('Scrolling draws each row once, and typing draws none', async (t) => {
  const { fake, url } = await startFake(t, list());
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'App 0', exact: true }).waitFor();
  await page.evaluate(() => {
    globalThis.added = 0;
    new MutationObserver((records) => {
      globalThis.added += records.flatMap((record) => [...record.addedNodes]).filter((node) => node.localName === 'li').length;
    }).observe(document.querySelector('.table'), { childList: true, subtree: true });
  });
  const distance = 9000;
  await page.locator('.scroller').evaluate((element, end) => new Promise((resolve) => {
    const step = () => {
      element.scrollTop += 150;
      if (element.scrollTop < end) requestAnimationFrame(step);
      else requestAnimationFrame(() => requestAnimationFrame(resolve));
    };
    step();
  }), distance);
  const whileScrolling = await page.evaluate(() => globalThis.added);
  assert.ok(whileScrolling <= distance / 44 + 60, `${whileScrolling} rows for ${distance} points`);

  await scrollTo(page, 0);
  const field = page.getByRole('textbox', { name: 'Name' });
  await field.focus();
  await page.getByRole('button', { name: 'App 3', exact: true }).waitFor();
  const before = await page.evaluate(() => globalThis.added);
  await page.keyboard.type('typing quickly');
  assert.equal(await field.inputValue(), 'typing quickly');
  assert.equal(await page.evaluate(() => globalThis.added), before);
  assert.deepEqual(fake.events, []);
});

for (const followed of [true, undefined]) {
  test(`A long list that ${followed ? 'is followed is told of once a frame at most' : 'nobody follows is told of at rest'}`, async (t) => {
    const { fake, url } = await startFake(t, outlinedList(1, 0), () => undefined);
    fake.screen = {
      ...fake.screen, contentOffset: [0, -91],
      page: { ...fake.screen.page, scrolling: { id: 'view1', number: 1, start: [0, -91], followed } },
    };
    const page = await openPage(t, url);
    await page.getByRole('button', { name: 'App 0', exact: true }).waitFor();
    await page.evaluate(() => {
      globalThis.frames = 0;
      const count = () => {
        globalThis.frames += 1;
        requestAnimationFrame(count);
      };
      requestAnimationFrame(count);
    });
    const box = await page.locator('.scroller').boundingBox();
    await page.mouse.move(box.x + 100, box.y + 300);
    const turns = 10;
    for (let turn = 0; turn < turns; turn += 1) {
      await page.mouse.wheel(0, 400);
      await page.waitForTimeout(30);
    }
    await eventually(() => assert.equal(fake.events.at(-1)?.y, 4000 - 91));
    if (followed) await eventually(() => assert.equal(fake.events.at(-1).phase, 'ended'));
    const frames = await page.evaluate(() => globalThis.frames);
    assert.ok(fake.events.every(({ type }) => type === 'scrolled'));
    assert.ok(fake.events.length <= (followed ? frames + 2 : turns), `${fake.events.length} events in ${frames} frames`);
    assert.ok(fake.events.every((event) => JSON.stringify(event).length < 120), JSON.stringify(fake.events.at(-1)));
  });
}

/** A list of which only the rows near the row that was scrolled to last are described. */
function outlinedList(section1, row1) {
  const whole = list();
  whole.page.sections.forEach(({ rows }, section) => rows.forEach((row, at) => {
    if (section === section1 && Math.abs(at - row1) <= 200) return;
    if (section === 0 && section1 === 1 && row1 <= 200) return;
    rows[at] = { id: row.id, outline: true, height: 44 };
  }));
  return whole;
}

function startOutlined(t) {
  return startFake(t, outlinedList(1, 0), (event, fake) => {
    if (event.type === 'scroll') fake.screen = outlinedList(...event.to);
  });
}

test('Rows that the screen only outlines are asked for when the user comes to them', async (t) => {
  const { fake, url } = await startOutlined(t);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'App 0', exact: true }).waitFor();
  assert.deepEqual(fake.events, []);
  for (const place of [5000, 9000, 5100, 20]) {
    await scrollTo(page, 44 * place);
    await page.getByRole('button', { name: `App ${place + 5}`, exact: true }).waitFor();
  }
  assert.ok(fake.events.every(({ type }) => type === 'scroll'));
  assert.ok(fake.events.length <= 8, `${fake.events.length} events`);
  await scrollTo(page, 0);
  await page.getByRole('textbox', { name: 'Name' }).waitFor();
  const events = fake.events.length;
  await page.waitForTimeout(300);
  assert.equal(fake.events.length, events, 'what is described is not asked for again');
});

test('The focus goes to rows that were only outlined, and stays when its row is so again', async (t) => {
  const { url } = await startOutlined(t);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'App 0', exact: true }).focus();
  await page.keyboard.press('End');
  const last = page.getByRole('button', { name: `App ${count - 1}`, exact: true });
  await eventually(async () => assert.ok(await hasFocus(last)));
  await page.keyboard.press('Home');
  await eventually(async () => assert.ok(await hasFocus(page.getByRole('textbox', { name: 'Name' }))));
  await page.getByRole('button', { name: 'App 3', exact: true }).focus();
  await scrollTo(page, 44 * 4000);
  await page.getByRole('button', { name: 'App 4005', exact: true }).waitFor();
  await page.keyboard.press('ArrowDown');
  await eventually(async () => assert.ok(await hasFocus(page.getByRole('button', { name: 'App 4', exact: true }))));
});
