import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, focused, openPage, settled } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { label, link, screen, section, view } from './support/screens.mjs';

const names = Array.from({ length: 40 }, (_, at) => `Entry ${at}`);
const root = screen(['Settings'], [section(null, names.map((name) => link(name)))]);
const child = screen(['Settings', 'Child'], [section('Things', [link('Thing')])]);

/** A tap on a row opens the child, the back button leads back. */
function follow(event, fake) {
  fake.screen = event.id.startsWith('back') ? root : child;
}

test('Only the root page has a large title, and each page has one heading', async (t) => {
  const { url } = await startFake(t, root, follow);
  const page = await openPage(t, url);
  const phone = page.getByRole('main');
  const size = (name) => phone.getByRole('heading', { name, level: 2 }).evaluate((element) => getComputedStyle(element).fontSize);
  assert.equal(await size('Settings'), '34px');
  await page.getByRole('button', { name: 'Entry 3', exact: true }).click();
  await settled(page);
  assert.equal(await size('Child'), '17px');
  assert.equal(await phone.getByRole('heading', { level: 2 }).count(), 1);
});

test('Pushing slides the page in, tells assistive technology and moves the focus to its heading', async (t) => {
  const { url } = await startFake(t, root, follow);
  const page = await openPage(t, url, { hurry: 1 });
  await page.getByRole('button', { name: 'Entry 3', exact: true }).focus();
  await page.keyboard.press('Enter');
  await page.locator('.navigation[data-motion="push"]').waitFor();
  assert.equal(await page.locator('.page').count(), 2);
  assert.equal(await page.locator('.page[data-leaving]').evaluate((element) => element.inert), true);
  await eventually(async () => assert.equal(await page.locator('body > #app > [role="status"]').innerText(), 'Child'));
  assert.equal(await focused(page), 'Child');
  await page.locator('.navigation[data-motion="none"]').waitFor();
  assert.equal(await page.locator('.page').count(), 1);
});

test('Coming back restores the scroll position and the focus', async (t) => {
  const { url } = await startFake(t, root, follow);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Entry 35', exact: true }).focus();
  const scrolled = () => page.locator('.scroller').evaluate((element) => element.scrollTop);
  const before = await scrolled();
  assert.ok(before > 300, String(before));
  await page.keyboard.press('Enter');
  await page.getByRole('button', { name: 'Back to Settings' }).click();
  await page.getByRole('button', { name: 'Entry 35', exact: true }).waitFor();
  await page.locator('.navigation[data-motion="none"]').waitFor();
  assert.equal(await scrolled(), before);
  assert.equal(await focused(page), 'Entry 35');
});

test('A page opened from elsewhere does not take the focus out of the panel', async (t) => {
  const { fake, url } = await startFake(t, root);
  const page = await openPage(t, url);
  const pasteboard = page.getByRole('textbox', { name: 'Text on the pasteboard' });
  await pasteboard.focus();
  fake.show(child);
  await page.getByRole('heading', { name: 'Child' }).waitFor();
  await page.locator('.navigation[data-motion="none"]').waitFor();
  assert.equal(await focused(page), 'Text on the pasteboard');
});

test('A change of the page itself does not slide', async (t) => {
  const { fake, url } = await startFake(t, root);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Entry 1', exact: true }).waitFor();
  fake.show(screen(['Settings'], [section(null, [link('Changed')])]));
  await page.getByRole('button', { name: 'Changed' }).waitFor();
  assert.equal(await page.locator('.navigation').getAttribute('data-motion'), 'none');
});

test('With reduced motion nothing slides', async (t) => {
  const { url } = await startFake(t, root, follow);
  const page = await openPage(t, url, { hurry: 1, reducedMotion: 'reduce' });
  await page.getByRole('button', { name: 'Entry 3', exact: true }).click();
  await page.locator('.navigation[data-motion="push"]').waitFor();
  const animations = await page.evaluate(() => document.getAnimations().map(({ animationName }) => animationName));
  assert.deepEqual(animations.filter((name) => /slide|sink|rise/.test(name)), []);
  await page.locator('.navigation[data-motion="none"]').waitFor();
});

test('Bar buttons have names, stand on their side and send taps', async (t) => {
  const buttons = [
    { id: 'b1', title: null, systemItem: 'add', side: 'right', enabled: true },
    { id: 'b2', title: 'Reset', systemItem: null, side: 'left', enabled: true },
  ];
  const { fake, url } = await startFake(t, screen(['Settings'], [], { page: { buttons } }));
  const page = await openPage(t, url);
  const add = page.getByRole('button', { name: 'Add' });
  const reset = page.getByRole('button', { name: 'Reset' });
  await add.click();
  await eventually(() => assert.equal(fake.events[0].id, 'b1'));
  assert.ok((await reset.boundingBox()).x < (await add.boundingBox()).x - 200);
});

test('A page without anything to stop at can be scrolled by keyboard', async (t) => {
  const rows = names.map((name) => link(name, { selectable: false }));
  const { url } = await startFake(t, screen(['Settings', 'Text'], [section(null, rows)]));
  const page = await openPage(t, url);
  await page.getByRole('region', { name: 'Text' }).focus();
  await page.keyboard.press('End');
  await eventually(async () => assert.ok(await page.locator('.scroller').evaluate((element) => element.scrollTop) > 300));
});

test('A page without a table is drawn from its views', async (t) => {
  const whole = view('view', [0, 0, 390, 600], { views: [label('All by itself', [20, 100, 300, 30])] });
  const { url } = await startFake(t, screen(['Settings', 'Own'], [], { page: { view: whole, style: null } }));
  const page = await openPage(t, url);
  await page.getByText('All by itself').waitFor();
});

test('The back button gives way to a long title: first it says Back, then nothing, and keeps its name', async (t) => {
  const shown = async (before, title) => {
    const { url } = await startFake(t, screen([before, title], [section(null, [link('Row')])]));
    const page = await openPage(t, url);
    const button = page.getByRole('button', { name: `Back to ${before}` });
    await button.waitFor();
    return (await button.innerText()).trim();
  };
  assert.equal(await shown('Settings', 'Page'), 'Settings');
  assert.equal(await shown('Applications', 'A page with a long title in its bar'), 'Back');
  assert.equal(await shown('Settings', ''), 'Settings');
});

test('The back button has its whole title again when the display grows', async (t) => {
  const { url } = await startFake(t, screen(['Applications', 'A page with a long title'], [section(null, [link('Row')])]));
  const page = await openPage(t, url);
  const button = page.getByRole('button', { name: 'Back to Applications' });
  await eventually(async () => assert.equal((await button.innerText()).trim(), 'Back'));
  await page.getByRole('radio', { name: 'iPad' }).click();
  await eventually(async () => assert.equal((await button.innerText()).trim(), 'Applications'));
});
