import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, focused, openPage, settled } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { row, screen, section, swiped } from './support/screens.mjs';

const preset = (name) => row(name, { height: 60, swipeActions: [
  { id: `delete ${name}`, title: 'Delete', color: '#ff0000ff' }, { id: `share ${name}`, title: 'Share', color: '#007affff' },
] });
const names = ['Dark', 'Light'];
const presets = () => screen(['Settings', 'Presets'], [section(null, names.map(preset))], { page: { style: 'plain' } });
const taps = (fake) => fake.events.filter(({ type }) => type === 'tap').map(({ id }) => id);
const swipes = (fake) => fake.events.filter(({ type }) => type === 'swipe').map(({ id, open }) => [id, open]);

/** A device whose action "Delete" closes its row, and that answers after `delay` milliseconds. */
function startPresets(t, delay = 0) {
  return startFake(t, presets(), async ({ id }, fake) => {
    await new Promise((resolve) => setTimeout(resolve, delay));
    if (id.startsWith('delete')) fake.screen = presets();
  });
}

async function swipe(page, name, distance) {
  const box = await page.getByRole('button', { name, exact: true }).boundingBox();
  const [x, y] = [box.x + 200, box.y + 30];
  await page.mouse.move(x, y);
  await page.mouse.down();
  await page.mouse.move(x + distance, y, { steps: 6 });
  await page.mouse.up();
}

test('Swiping a row shows its actions, the first at the edge', async (t) => {
  const { fake, url } = await startPresets(t);
  const page = await openPage(t, url);
  await swipe(page, 'Light', -120);
  const actions = page.getByRole('group', { name: 'Actions for Light' });
  await actions.waitFor();
  await settled(page);
  const remove = actions.getByRole('button', { name: 'Delete' });
  const share = actions.getByRole('button', { name: 'Share' });
  assert.ok((await remove.boundingBox()).x > (await share.boundingBox()).x);
  await eventually(() => assert.deepEqual(swipes(fake), [['row2.Light', true]]));
  assert.deepEqual(taps(fake), []);
});

test('A row stays open after its action until the device closes it', async (t) => {
  const { fake, url } = await startPresets(t);
  const page = await openPage(t, url);
  await swipe(page, 'Light', -120);
  const actions = page.getByRole('group', { name: 'Actions for Light' });
  await actions.getByRole('button', { name: 'Share' }).click();
  await eventually(() => assert.deepEqual(taps(fake), ['share Light']));
  await settled(page);
  assert.equal(await actions.count(), 1);
  await actions.getByRole('button', { name: 'Delete' }).click();
  await actions.waitFor({ state: 'detached' });
  assert.deepEqual(taps(fake), ['share Light', 'delete Light']);
});

test('A row that the device opens shows its actions', async (t) => {
  const { fake, url } = await startPresets(t);
  const page = await openPage(t, url);
  fake.show(swiped(presets(), { id: 'row2.Dark', open: true }));
  await page.getByRole('group', { name: 'Actions for Dark' }).waitFor();
  fake.show(presets());
  await page.getByRole('group', { name: 'Actions for Dark' }).waitFor({ state: 'detached' });
  assert.deepEqual(fake.events, []);
});

test('A short swipe shows nothing, and is no tap', async (t) => {
  const { fake, url } = await startPresets(t);
  const page = await openPage(t, url);
  await swipe(page, 'Light', -25);
  await settled(page);
  assert.equal(await page.getByRole('group', { name: 'Actions for Light' }).count(), 0);
  assert.deepEqual(fake.events, []);
});

test('A click beside an open row closes it and does nothing else', async (t) => {
  const { fake, url } = await startPresets(t);
  const page = await openPage(t, url);
  await swipe(page, 'Light', -120);
  const actions = page.getByRole('group', { name: 'Actions for Light' });
  await actions.waitFor();
  await page.getByRole('heading', { name: 'Presets' }).click();
  await actions.waitFor({ state: 'detached' });
  await swipe(page, 'Light', -120);
  await actions.waitFor();
  await page.getByRole('button', { name: 'Dark', exact: true }).click();
  await actions.waitFor({ state: 'detached' });
  await settled(page);
  assert.deepEqual(taps(fake), []);
  await eventually(() => assert.deepEqual(swipes(fake), [true, false, true, false].map((open) => ['row2.Light', open])));
  await page.getByRole('button', { name: 'Dark', exact: true }).click();
  await eventually(() => assert.deepEqual(taps(fake), ['row2.Dark']));
});

test('A trackpad swipes by scrolling sideways', async (t) => {
  const { url } = await startPresets(t);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Dark', exact: true }).hover();
  for (let step = 0; step < 4; step += 1) await page.mouse.wheel(20, 0);
  await page.getByRole('group', { name: 'Actions for Dark' }).waitFor();
});

test('The keyboard reaches the actions by a button and closes them with Escape', async (t) => {
  const { fake, url } = await startPresets(t);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Dark', exact: true }).focus();
  await page.keyboard.press('Tab');
  assert.equal(await focused(page), 'Actions for Dark');
  await page.keyboard.press('Enter');
  await eventually(async () => assert.equal(await focused(page), 'Delete'));
  await page.keyboard.press('Escape');
  await eventually(async () => assert.equal(await focused(page), 'Dark'));
  await page.keyboard.press('Shift+F10');
  await eventually(async () => assert.equal(await focused(page), 'Delete'));
  await page.keyboard.press('Tab');
  await page.keyboard.press('Enter');
  await eventually(() => assert.deepEqual(taps(fake), ['share Dark']));
});

test('What the user does last counts, however late the device answers', async (t) => {
  const { fake, url } = await startPresets(t, 400);
  const page = await openPage(t, url);
  const actions = page.getByRole('group', { name: 'Actions for Dark' });
  await page.getByRole('button', { name: 'Dark', exact: true }).focus();
  await page.keyboard.press('Shift+F10');
  await page.keyboard.press('Escape');
  await page.keyboard.press('Shift+F10');
  await eventually(async () => assert.equal(await focused(page), 'Delete'));
  await eventually(() => assert.equal(fake.revision, 4));
  assert.deepEqual(swipes(fake).map(([, open]) => open), [true, false, true]);
  await settled(page);
  assert.equal(await actions.count(), 1);
  assert.equal(await focused(page), 'Delete');
});

test('Touch swipes', async (t) => {
  const { url } = await startPresets(t);
  const page = await openPage(t, url, { hasTouch: true });
  const box = await page.getByRole('button', { name: 'Light', exact: true }).boundingBox();
  const touch = await page.context().newCDPSession(page);
  const send = (type, ...touchPoints) => touch.send('Input.dispatchTouchEvent', { type, touchPoints });
  const [x, y] = [box.x + 220, box.y + 30];
  await send('touchStart', { x, y });
  for (let step = 1; step <= 8; step += 1) await send('touchMove', { x: x - step * 15, y });
  await send('touchEnd');
  await page.getByRole('group', { name: 'Actions for Light' }).waitFor();
});

test('In the editing mode the control before a row uncovers its actions, and no swipe does', async (t) => {
  const editable = (open) => screen(['Settings', 'Editable'], [section(null, [
    row('New', { height: 60, editControl: 'insert' }),
    row('Old', {
      height: 60, editControl: 'delete', swipeOpen: open,
      swipeActions: [{ id: 'delete Old', title: 'Delete', color: '#ff0000ff' }],
    }),
  ])], { page: { style: 'plain', editing: true } });
  const { fake, url } = await startFake(t, editable(false), ({ part, id }, device) => {
    if (part === 'edit' && id.endsWith('Old')) device.screen = editable(true);
  });
  const page = await openPage(t, url);
  const actions = page.getByRole('group', { name: 'Actions for Old' });
  await swipe(page, 'Old', -120);
  await settled(page);
  assert.equal(await actions.count(), 0);
  assert.deepEqual(swipes(fake), []);
  fake.events.length = 0;
  assert.equal(await page.locator('.swipe-menu').count(), 0);
  await page.getByRole('button', { name: 'Insert New' }).click();
  const control = page.getByRole('button', { name: 'Delete Old' });
  const [box, text] = await Promise.all([control.boundingBox(), page.getByText('Old', { exact: true }).boundingBox()]);
  assert.ok(box.x + box.width <= text.x, 'it stands before the text');
  await control.click();
  await actions.getByRole('button', { name: 'Delete' }).waitFor();
  await eventually(async () => assert.equal(await focused(page), 'Delete'));
  assert.deepEqual(
    fake.events.map(({ type, id, part }) => [type, id, part]),
    [['tap', 'row2.New', 'edit'], ['tap', 'row2.Old', 'edit']],
  );
});
