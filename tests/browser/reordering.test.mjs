import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, hasFocus, openPage, settled } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { row, screen, section } from './support/screens.mjs';

const app = (name) => row(name, { canMove: true, height: 60, key: null });
const placeholder = (text) => row(text, { height: 60, selectable: false });

/** The editor's screen for two lists of names; an empty list shows a placeholder. */
function editor(enabled, disabled) {
  const rows = (names, text) => (names.length ? names.map(app) : [placeholder(text)]);
  return screen(['Settings', 'Favourites'], [
    section('Enabled', rows(enabled, 'None enabled')), section('Disabled', rows(disabled, 'None disabled')),
  ], { page: { style: 'plain', editing: true } });
}

/** An editor that carries moves out as a list of two sections does. */
async function startEditor(t, enabled, disabled) {
  const lists = [[...enabled], [...disabled]];
  const started = await startFake(t, editor(...lists), ({ type, from, to }, fake) => {
    if (type !== 'move') return;
    const [name] = lists[from[0]].splice(from[1], 1);
    lists[to[0]].splice(to[1], 0, name);
    fake.screen = editor(...lists);
  });
  return { ...started, lists };
}

const moves = (fake) => fake.events.map(({ type, from, to }) => [type, from, to]);

async function handleOf(page, name) {
  const handle = page.getByRole('button', { name: `Move ${name}`, exact: true });
  await handle.scrollIntoViewIfNeeded();
  const box = await handle.boundingBox();
  return { x: box.x + box.width / 2, y: box.y + box.height / 2 };
}

async function drag(page, name, distance) {
  const { x, y } = await handleOf(page, name);
  await page.mouse.move(x, y);
  await page.mouse.down();
  await page.mouse.move(x, y + distance / 2, { steps: 4 });
  await page.mouse.move(x, y + distance, { steps: 4 });
  await page.mouse.up();
}

const shownNames = async (page, group) => {
  await settled(page);
  return (await page.getByRole('group', { name: group }).getByRole('listitem').allInnerTexts()).map((text) => text.trim());
};

test('Dragging a row down sends its place and the new one, and shows the answer', async (t) => {
  const { fake, url } = await startEditor(t, ['Music', 'Maps', 'Mail', 'Notes'], ['Clock']);
  const page = await openPage(t, url);
  await drag(page, 'Music', 125);
  await eventually(() => assert.deepEqual(moves(fake), [['move', [0, 0], [0, 2]]]));
  await eventually(async () => assert.deepEqual(await shownNames(page, 'Enabled'), ['Maps', 'Mail', 'Music', 'Notes']));
  assert.equal(await page.locator('.lifted').count(), 0);
});

test('Dragging a row up counts the destination without the dragged row', async (t) => {
  const { fake, url } = await startEditor(t, ['Music', 'Maps', 'Mail'], ['Clock']);
  const page = await openPage(t, url);
  await drag(page, 'Mail', -65);
  await eventually(() => assert.deepEqual(moves(fake), [['move', [0, 2], [0, 1]]]));
});

test('Rows can be dragged into the other section, and onto a placeholder', async (t) => {
  const { fake, url, lists } = await startEditor(t, ['Music', 'Maps'], []);
  const page = await openPage(t, url);
  await drag(page, 'Music', 155);
  await eventually(() => assert.equal(fake.events.length, 1));
  assert.deepEqual(moves(fake)[0].slice(0, 2), ['move', [0, 0]]);
  assert.equal(fake.events[0].to[0], 1);
  await eventually(async () => assert.deepEqual(await shownNames(page, 'Disabled'), ['Music']));
  assert.deepEqual(lists, [['Maps'], ['Music']]);
});

test('Other rows make room while a row is dragged', async (t) => {
  const { url } = await startEditor(t, ['Music', 'Maps', 'Mail'], ['Clock']);
  const page = await openPage(t, url);
  const { x, y } = await handleOf(page, 'Music');
  const maps = page.getByRole('listitem').filter({ hasText: 'Maps' });
  const before = (await maps.boundingBox()).y;
  await page.mouse.move(x, y);
  await page.mouse.down();
  await page.mouse.move(x, y + 70, { steps: 4 });
  await page.locator('.lifted').waitFor();
  await settled(page);
  assert.equal((await maps.boundingBox()).y, before - 60);
  await page.mouse.up();
});

test('Escape takes a drag back, and a row let go at its own place is not moved', async (t) => {
  const { fake, url } = await startEditor(t, ['Music', 'Maps', 'Mail'], ['Clock']);
  const page = await openPage(t, url);
  const { x, y } = await handleOf(page, 'Music');
  await page.mouse.move(x, y);
  await page.mouse.down();
  await page.mouse.move(x, y + 120, { steps: 4 });
  await page.keyboard.press('Escape');
  await page.mouse.up();
  await drag(page, 'Maps', 12);
  assert.deepEqual(await shownNames(page, 'Enabled'), ['Music', 'Maps', 'Mail']);
  assert.deepEqual(fake.events, []);
});

test('The table scrolls by itself when a row is held at its edge', async (t) => {
  const names = Array.from({ length: 30 }, (_, at) => `App ${at}`);
  const { fake, url } = await startEditor(t, names, ['Clock']);
  const page = await openPage(t, url);
  const { x, y } = await handleOf(page, 'App 1');
  const scroller = await page.locator('.scroller').boundingBox();
  await page.mouse.move(x, y);
  await page.mouse.down();
  await page.mouse.move(x, scroller.y + scroller.height - 8, { steps: 8 });
  await eventually(async () => assert.ok(await page.locator('.scroller').evaluate((element) => element.scrollTop) > 400));
  await page.mouse.up();
  await eventually(() => assert.equal(fake.events.length, 1));
  assert.ok(fake.events[0].to[1] > 15, JSON.stringify(fake.events[0]));
});

test('Touch drags by the handle', async (t) => {
  const { fake, url } = await startEditor(t, ['Music', 'Maps', 'Mail'], ['Clock']);
  const page = await openPage(t, url, { hasTouch: true });
  const { x, y } = await handleOf(page, 'Music');
  const touch = await page.context().newCDPSession(page);
  const send = (type, ...touchPoints) => touch.send('Input.dispatchTouchEvent', { type, touchPoints });
  await send('touchStart', { x, y });
  for (let step = 1; step <= 6; step += 1) await send('touchMove', { x, y: y + step * 11 });
  await send('touchEnd');
  await eventually(() => assert.deepEqual(moves(fake), [['move', [0, 0], [0, 1]]]));
});

test('Arrow keys on the handle move the row, keep the focus on it and tell its place', async (t) => {
  const { fake, url } = await startEditor(t, ['Music', 'Maps'], ['Clock']);
  const page = await openPage(t, url);
  const handle = page.getByRole('button', { name: 'Move Music' });
  const status = page.locator('body > #app > [role="status"]');
  await handle.focus();
  await page.keyboard.press('ArrowDown');
  await eventually(async () => assert.equal(await status.innerText(), 'Music, row 2 of 2 in Enabled'));
  assert.ok(await hasFocus(handle));
  await page.keyboard.press('ArrowDown');
  await eventually(async () => assert.equal(await status.innerText(), 'Music, row 1 of 2 in Disabled'));
  assert.ok(await hasFocus(handle));
  await page.keyboard.press('ArrowUp');
  await eventually(async () => assert.equal(await status.innerText(), 'Music, row 2 of 2 in Enabled'));
  assert.deepEqual(moves(fake), [['move', [0, 0], [0, 1]], ['move', [0, 1], [1, 0]], ['move', [1, 0], [0, 1]]]);
});

test('A list that changed during a drag is not moved in', async (t) => {
  const { fake, url } = await startEditor(t, ['Music', 'Maps', 'Mail'], ['Clock']);
  const page = await openPage(t, url);
  const { x, y } = await handleOf(page, 'Music');
  await page.mouse.move(x, y);
  await page.mouse.down();
  await page.mouse.move(x, y + 70, { steps: 4 });
  fake.show(editor(['Music', 'Mail'], ['Clock', 'Maps']));
  await page.getByRole('group', { name: 'Disabled' }).getByText('Maps').waitFor();
  await page.mouse.up();
  await page.getByText('The screen has changed. Please try again.').waitFor();
  assert.deepEqual(fake.events, []);
});

test('A refused move puts the row back', async (t) => {
  const refusal = { status: 422, error: 'This row cannot be moved there.' };
  const { url } = await startFake(t, editor(['Music', 'Maps'], []), () => refusal);
  const page = await openPage(t, url, { expected: /422/ });
  await drag(page, 'Music', 65);
  await page.getByText(refusal.error).waitFor();
  assert.deepEqual(await shownNames(page, 'Enabled'), ['Music', 'Maps']);
});
