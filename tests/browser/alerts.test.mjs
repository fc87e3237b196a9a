import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, focused, hasFocus, openPage, settled } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { link, screen, section } from './support/screens.mjs';

const action = (id, title, style = 'default', fields = {}) => ({ id, title, style, enabled: true, preferred: false, ...fields });
const page1 = screen(['Settings', 'Presets'], [section(null, [link('First'), link('Apply')])]);
const withAlert = (alert) => ({ ...page1, alert: { title: null, message: null, style: 'alert', fields: [], ...alert } });
const confirm = withAlert({
  title: 'Apply Preset', message: 'Are you sure?\n\nIt is lost.',
  actions: [action('yes', 'Confirm', 'destructive'), action('no', 'Cancel', 'cancel')],
});
const naming = withAlert({
  title: 'New Preset', message: 'Enter a name',
  fields: [{ id: 'f1', placeholder: 'Preset Name...', value: '', clearButton: true, secure: false }],
  actions: [action('save', 'Save'), action('no', 'Cancel', 'cancel')],
});
const sent = (fake) => fake.events.map(({ revision, ...event }) => event);

/** A tap opens `alert`, and any action closes it. */
const opening = (alert) => (event, fake) => {
  if (event.type === 'tap') fake.screen = ['yes', 'no', 'save', 'ok'].includes(event.id) ? page1 : alert;
};

test('An alert is an alert dialog with title, message and actions', async (t) => {
  const { url } = await startFake(t, confirm);
  const page = await openPage(t, url);
  const dialog = page.getByRole('alertdialog', { name: 'Apply Preset' });
  await dialog.waitFor();
  const described = await dialog.getAttribute('aria-describedby');
  assert.equal(await page.locator(`#${described}`).innerText(), 'Are you sure?\n\nIt is lost.');
  assert.deepEqual(await dialog.getByRole('button').allInnerTexts(), ['Cancel', 'Confirm']);
});

test('The focus stays in the alert and returns to where it was', async (t) => {
  const { url } = await startFake(t, page1, opening(confirm));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Apply' }).focus();
  await page.keyboard.press('Enter');
  await page.getByRole('alertdialog').waitFor();
  const visited = [];
  for (let press = 0; press < 4; press += 1) {
    visited.push(await focused(page));
    await page.keyboard.press('Tab');
  }
  assert.deepEqual(visited, ['Cancel', 'Confirm', 'Cancel', 'Confirm']);
  await page.keyboard.press('Shift+Tab');
  assert.equal(await focused(page), 'Confirm');
  await page.keyboard.press('Enter');
  await page.getByRole('alertdialog').waitFor({ state: 'detached' });
  await eventually(async () => assert.equal(await focused(page), 'Apply'));
});

test('What lies under an alert cannot be used', async (t) => {
  const { fake, url } = await startFake(t, confirm);
  const page = await openPage(t, url);
  await page.getByRole('alertdialog').waitFor();
  const box = await page.locator('[data-row="0"]').boundingBox();
  await page.mouse.click(box.x + 50, box.y + 20);
  assert.equal(await page.locator('.screen-content').evaluate((element) => element.inert), true);
  assert.deepEqual(fake.events, []);
});

test('Escape chooses the cancel action', async (t) => {
  const { fake, url } = await startFake(t, confirm, opening(confirm));
  const page = await openPage(t, url);
  await page.getByRole('alertdialog').waitFor();
  await page.keyboard.press('Escape');
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'tap', id: 'no' }]));
});

test('Escape does nothing when there is nothing to cancel', async (t) => {
  const only = withAlert({ title: 'Error', actions: [action('ok', 'OK')] });
  const { fake, url } = await startFake(t, only, opening(only));
  const page = await openPage(t, url);
  await page.getByRole('alertdialog', { name: 'Error' }).waitFor();
  assert.equal(await focused(page), 'OK');
  await page.keyboard.press('Escape');
  await page.keyboard.press('Enter');
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'tap', id: 'ok' }]));
});

test('The text of a field is sent before the action, and once', async (t) => {
  const { fake, url } = await startFake(t, naming, opening(naming));
  const page = await openPage(t, url);
  const field = page.getByRole('textbox', { name: 'Preset Name...' });
  await field.waitFor();
  assert.ok(await hasFocus(field));
  await field.fill('Ocean');
  await page.getByRole('button', { name: 'Save' }).click();
  await eventually(() => assert.equal(fake.events.length, 2));
  assert.deepEqual(sent(fake), [{ type: 'set', id: 'f1', value: 'Ocean' }, { type: 'tap', id: 'save' }]);
});

test('Return in the last field chooses the first action', async (t) => {
  const { fake, url } = await startFake(t, naming, opening(naming));
  const page = await openPage(t, url);
  await page.getByRole('alertdialog').getByRole('textbox').pressSequentially('Sea');
  await page.keyboard.press('Enter');
  await eventually(() => assert.equal(fake.events.length, 2));
  assert.deepEqual(sent(fake), [{ type: 'set', id: 'f1', value: 'Sea' }, { type: 'tap', id: 'save' }]);
});

test('A field with a clear button can be emptied', async (t) => {
  const screen = structuredClone(naming);
  const { fake, url } = await startFake(t, screen, ({ type, value }) => {
    screen.alert.fields[0].value = type === 'clear' ? '' : value;
  });
  const page = await openPage(t, url);
  const field = page.getByRole('alertdialog').getByRole('textbox');
  const clear = page.getByRole('button', { name: 'Clear text' });
  await field.waitFor();
  assert.equal(await clear.count(), 0);
  await field.fill('abc');
  await clear.click();
  await eventually(async () => assert.equal(await field.inputValue(), ''));
  assert.ok(await hasFocus(field));
  assert.deepEqual(sent(fake), [{ type: 'set', id: 'f1', value: 'abc' }, { type: 'clear', id: 'f1' }]);
});

test('What is on the pasteboard of the device is pasted into an empty field', async (t) => {
  const { fake, url } = await startFake(t, structuredClone(naming), (event, { screen }) => {
    if (event.type === 'paste') screen.alert.fields[0].value = 'pasted';
    if (event.type === 'set') screen.alert.fields[0].value = event.value;
    if (event.type === 'clear') screen.alert.fields[0].value = '';
  });
  const page = await openPage(t, url);
  const field = page.getByRole('alertdialog').getByRole('textbox');
  const paste = page.getByRole('button', { name: 'Paste into Preset Name...' });
  await field.waitFor();
  assert.equal(await paste.count(), 0, 'the pasteboard is empty');
  fake.changeDevice({ pasteboard: 'pasted', pasteboardLength: 6 });
  await paste.click();
  await eventually(async () => assert.equal(await field.inputValue(), 'pasted'));
  assert.deepEqual(sent(fake), [{ type: 'paste', id: 'f1' }]);
  assert.ok(await hasFocus(field));
  assert.equal(await paste.count(), 0, 'there is a text now');
  await field.fill('typed');
  await page.getByRole('button', { name: 'Clear text' }).click();
  await paste.click();
  await eventually(async () => assert.equal(await field.inputValue(), 'pasted'));
});

test('A long text is sent whole as it is pasted, and the field shows its beginning', async (t) => {
  const { fake, url } = await startFake(t, structuredClone(naming), (event, { screen }) => {
    const [field] = screen.alert.fields;
    if (event.type !== 'set' && event.type !== 'clear') return;
    const text = event.type === 'clear' ? '' : event.value;
    field.value = text.slice(0, 65_536);
    field.valueLength = text.length > 65_536 ? text.length : undefined;
  });
  const page = await openPage(t, url);
  const field = page.getByRole('alertdialog').getByRole('textbox');
  await field.fill('ab');
  const pasteText = (length) => field.evaluate((element, count) => {
    element.setSelectionRange(1, 1);
    const clipboardData = new DataTransfer();
    clipboardData.setData('text/plain', 'x'.repeat(count));
    element.dispatchEvent(new ClipboardEvent('paste', { clipboardData, bubbles: true, cancelable: true }));
  }, length);
  await pasteText(100_000);
  await page.getByText('100,002 characters').waitFor();
  assert.equal(fake.events.at(-1).value, `a${'x'.repeat(100_000)}b`);
  assert.equal(await field.isEditable(), false);
  await pasteText(70_000);
  await page.getByText('70,000 characters').waitFor();
  await page.getByRole('button', { name: 'Clear text' }).click();
  await eventually(async () => assert.equal(await field.isEditable(), true));
  await field.fill('short');
  await page.getByRole('button', { name: 'Save' }).click();
  await eventually(() => assert.equal(fake.events.at(-1).type, 'tap'));
  assert.equal(fake.events.at(-2).value, 'short');
});

test('A message that was cut says how long it is', async (t) => {
  const cut = withAlert({ title: 'Share', message: 'word '.repeat(100), messageLength: 20_000_000, actions: [action('ok', 'OK')] });
  const { url } = await startFake(t, cut);
  const page = await openPage(t, url);
  await page.getByText('… (20,000,000 characters in all)').waitFor();
});

test('One alert after another starts afresh', async (t) => {
  const fields = [{ ...naming.alert.fields[0], id: 'f2' }];
  const again = withAlert({ ...naming.alert, fields, actions: [action('ok', 'OK')] });
  const { url } = await startFake(t, naming, (event, fake) => {
    if (event.id === 'save') fake.screen = again;
  });
  const page = await openPage(t, url);
  await page.getByRole('alertdialog').getByRole('textbox').fill('left over');
  await page.getByRole('button', { name: 'Save' }).click();
  await page.getByRole('button', { name: 'OK' }).waitFor();
  assert.equal(await page.getByRole('alertdialog').getByRole('textbox').inputValue(), '');
});

test('An action sheet keeps its cancel action apart, at the bottom', async (t) => {
  const actions = [action('no', 'Cancel', 'cancel'), action('yes', 'Delete', 'destructive')];
  const sheet = withAlert({ style: 'actionSheet', message: 'Choose', actions });
  const { url } = await startFake(t, sheet, opening(sheet));
  const page = await openPage(t, url);
  const dialog = page.getByRole('alertdialog');
  await dialog.waitFor();
  assert.deepEqual(await dialog.getByRole('button').allInnerTexts(), ['Delete', 'Cancel']);
});

test('Of three actions, and of two that are too long to stand side by side, the cancel action comes last', async (t) => {
  const cancel = action('no', 'Cancel', 'cancel');
  const three = withAlert({ title: 'Share', actions: [action('a', 'String'), cancel, action('b', 'File')] });
  const two = withAlert({ title: 'Copy', actions: [cancel, action('a', 'Copy to Clipboard')] });
  const { fake, url } = await startFake(t, three);
  const page = await openPage(t, url);
  const texts = () => page.getByRole('alertdialog').getByRole('button').allInnerTexts();
  await page.getByRole('alertdialog', { name: 'Share' }).waitFor();
  assert.deepEqual(await texts(), ['String', 'File', 'Cancel']);
  fake.show(two);
  await page.getByRole('alertdialog', { name: 'Copy' }).waitFor();
  assert.deepEqual(await texts(), ['Copy to Clipboard', 'Cancel']);
});

test('A message longer than the screen can be scrolled by keyboard', async (t) => {
  const long = withAlert({ title: 'Long', message: 'word '.repeat(2000), actions: [action('ok', 'OK')] });
  const { url } = await startFake(t, long);
  const page = await openPage(t, url);
  await page.getByRole('alertdialog').waitFor();
  await settled(page);
  await page.keyboard.press('Tab');
  await page.keyboard.press('End');
  await eventually(async () => {
    assert.ok(await page.locator('.alert-texts').evaluate((element) => element.scrollTop) > 500);
  });
  const [box, phone] = [await page.locator('.alert').boundingBox(), await page.locator('.screen').boundingBox()];
  assert.ok(box.height < phone.height);
  await assertAccessible(page);
});

test('A disabled action cannot be chosen', async (t) => {
  const actions = [action('yes', 'Save', 'default', { enabled: false }), action('no', 'Cancel', 'cancel')];
  const { url } = await startFake(t, withAlert({ title: 'Name', actions }));
  const page = await openPage(t, url);
  assert.equal(await page.getByRole('button', { name: 'Save' }).isDisabled(), true);
});
