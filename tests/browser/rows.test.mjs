import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, hasFocus, openPage } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { control, label, link, row, screen, section, view } from './support/screens.mjs';

const one = (...rows) => screen(['Settings', 'Page'], [section('Group', rows, 'Footer text')]);
const sent = (fake) => fake.events.map(({ revision, ...event }) => event);

test('A row is a button in a list with its label and value as name', async (t) => {
  const { url } = await startFake(t, one(link('Mode', { style: 'value1', detail: 'Automatic' }), link('Other')));
  const page = await openPage(t, url);
  const items = page.getByRole('group', { name: 'Group' }).getByRole('listitem');
  await items.nth(1).waitFor();
  assert.equal(await items.count(), 2);
  assert.equal(await items.first().getAttribute('aria-posinset'), '1');
  await page.getByRole('button', { name: 'Mode Automatic' }).waitFor();
  await page.getByText('Footer text').waitFor();
});

test('Rows fill their height and lie without gaps', async (t) => {
  const rows = [link('First'), link('Second', { height: 60 }), control('Third', 'switch', 0)];
  const { url } = await startFake(t, one(...rows));
  const page = await openPage(t, url);
  const boxes = [];
  for (const name of ['First', 'Second', 'Third']) {
    const main = page.locator('.row-main').filter({ hasText: name });
    boxes.push(await main.boundingBox());
  }
  assert.deepEqual(boxes.map(({ width, height }) => [width, height]), [[358, 44], [358, 60], [358, 44]]);
  assert.deepEqual([boxes[1].y - boxes[0].y, boxes[2].y - boxes[1].y], [44, 60]);
});

test('A tap names the row', async (t) => {
  const { fake, url } = await startFake(t, one(link('Mode', { id: 'row-7' })));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Mode' }).click();
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'tap', id: 'row-7' }]));
});

test('Rows that are disabled or not selectable cannot be tapped', async (t) => {
  const version = row('Version', { selectable: false, style: 'value1', detail: '1.0' });
  const { url } = await startFake(t, one(link('Off', { enabled: false }), version));
  const page = await openPage(t, url);
  assert.equal(await page.getByRole('button', { name: 'Off' }).isDisabled(), true);
  await page.getByText('Version').waitFor();
  assert.equal(await page.getByRole('button', { name: 'Version' }).count(), 0);
});

test('The arrow keys pass over a row that only shows that something is under way', async (t) => {
  const rows = [link('First'), control('Busy', 'spinner', null), control('Later', 'switch', false)];
  const { url } = await startFake(t, one(...rows));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'First' }).focus();
  await page.keyboard.press('ArrowDown');
  await eventually(async () => assert.ok(await hasFocus(page.getByRole('switch', { name: 'Later' }))));
  assert.equal(await page.getByRole('progressbar', { name: 'Busy' }).count(), 1);
});

test('A switch turns at once and sends a boolean', async (t) => {
  const { fake, url } = await startFake(t, one(control('Enabled', 'switch', true)), (event, it) => {
    it.screen = one(control('Enabled', 'switch', event.value));
  });
  const page = await openPage(t, url);
  const toggle = page.getByRole('switch', { name: 'Enabled' });
  assert.equal(await toggle.isChecked(), true);
  await toggle.click();
  assert.equal(await toggle.isChecked(), false);
  await eventually(() => assert.equal(sent(fake)[0].value, false));
  await page.keyboard.press('Space');
  await eventually(() => assert.equal(sent(fake)[1].value, true));
});

test('A refused switch turns back and says why', async (t) => {
  const refusal = { status: 422, error: 'This control is disabled.' };
  const { url } = await startFake(t, one(control('Enabled', 'switch', true)), () => refusal);
  const page = await openPage(t, url, { expected: /422/ });
  const toggle = page.getByRole('switch', { name: 'Enabled' });
  await toggle.click();
  await page.getByText(refusal.error).waitFor();
  assert.equal(await toggle.isChecked(), true);
});

test('A number stands for a switch that is on', async (t) => {
  const rows = [control('One', 'switch', 1), control('Zero', 'switch', 0), control('Text', 'switch', 'yes')];
  const { url } = await startFake(t, one(...rows));
  const page = await openPage(t, url);
  assert.equal(await page.getByRole('switch', { name: 'One' }).isChecked(), true);
  assert.equal(await page.getByRole('switch', { name: 'Zero' }).isChecked(), false);
  assert.equal(await page.getByRole('switch', { name: 'Text' }).isChecked(), false);
});

test('A slider shows its value and sends a number when it is let go', async (t) => {
  const width = control('Width', 'slider', -20, { detail: '-20.0' }, { min: -100, max: 100 });
  const { fake, url } = await startFake(t, one(width));
  const page = await openPage(t, url);
  const slider = page.getByRole('slider', { name: 'Width' });
  assert.equal(await slider.getAttribute('aria-valuetext'), '-20.0');
  const box = await slider.boundingBox();
  await page.mouse.move(box.x + box.width * 0.4, box.y + box.height / 2);
  await page.mouse.down();
  await page.mouse.move(box.x + box.width - 15, box.y + box.height / 2, { steps: 4 });
  assert.deepEqual(sent(fake), []);
  assert.match(await page.locator('output').innerText(), /^9\d\.\d$/);
  await page.mouse.up();
  await eventually(() => assert.equal(fake.events.length, 1));
  assert.equal(typeof fake.events[0].value, 'number');
  assert.ok(fake.events[0].value > 90, String(fake.events[0].value));
});

test('A slider that is followed sends the steps of its drag, with the knob under the mouse, and then its value', async (t) => {
  const slider = (value) => one(control('Width', 'slider', value, {
    accessibilityValue: `${Math.round(value)} points`,
    accessoryView: label(`${Math.round(value)} pt`, [0, 0, 60, 20]),
  }, { min: 0, max: 100, followed: true }));
  const { fake, url } = await startFake(t, slider(0), (event, it) => {
    // The device is always behind.
    it.screen = slider(event.finished === false ? event.value - 1 : event.value);
  });
  const page = await openPage(t, url);
  const knob = page.getByRole('slider', { name: 'Width' });
  const number = page.locator('.accessory-view');
  const box = await knob.boundingBox();
  const place = (share) => box.x + 14 + (box.width - 28) * share;
  await page.mouse.move(place(0), box.y + box.height / 2);
  await page.mouse.down();
  for (const share of [0.3, 0.6]) {
    await page.mouse.move(place(share), box.y + box.height / 2, { steps: 4 });
    const shown = Number(await knob.inputValue());
    assert.ok(Math.abs(shown - share * 100) < 2, String(shown));
    await eventually(async () => assert.equal(await number.innerText(), `${Math.round(shown - 1)} pt`));
    assert.equal(await knob.getAttribute('aria-valuetext'), `${Math.round(shown - 1)} points`);
    assert.equal(Number(await knob.inputValue()), shown);
  }
  assert.ok(sent(fake).length > 0 && sent(fake).every(({ finished }) => finished === false));
  await page.mouse.up();
  await eventually(() => assert.equal(sent(fake).at(-1).finished, undefined));
  assert.ok(Math.abs(sent(fake).at(-1).value - 60) < 2);
  assert.equal(sent(fake).filter(({ finished }) => finished === undefined).length, 1);
});

/** A device with a slider within [min, max] that keeps what is set. */
function startSlider(t, value, min, max) {
  const slider = (now) => one(control('Slider', 'slider', now, { detail: now.toFixed(1) }, { min, max }));
  return startFake(t, slider(value), (event, fake) => {
    fake.screen = slider(event.value);
  });
}

test('A slider keeps its length, whatever its value takes to write', async (t) => {
  const { url } = await startSlider(t, 1, -100, 100);
  const page = await openPage(t, url);
  const slider = page.getByRole('slider');
  const { width } = await slider.boundingBox();
  for (const value of ['-100', '100', '0', '-20.5']) {
    await slider.fill(value);
    await eventually(async () => assert.equal(await page.locator('output').innerText(), Number(value).toFixed(1)));
    assert.equal((await slider.boundingBox()).width, width, value);
  }
});

test('Keys move a slider by hundredths and tenths of its range, and not beyond its ends', async (t) => {
  let release;
  const held = new Promise((resolve) => { release = resolve; });
  const { fake, url } = await startFake(t, one(control('Share', 'slider', 0.5, {}, { min: 0, max: 1 })), () => held);
  const page = await openPage(t, url);
  const slider = page.getByRole('slider');
  await slider.focus();
  const values = { ArrowRight: 0.51, ArrowUp: 0.52, PageUp: 0.62, ArrowLeft: 0.61, ArrowDown: 0.6, PageDown: 0.5 };
  for (const [key, value] of [...Object.entries(values), ['End', 1], ['ArrowRight', 1], ['Home', 0], ['ArrowLeft', 0]]) {
    await page.keyboard.press(key);
    await eventually(async () => {
      const now = Number(await slider.inputValue());
      assert.ok(Math.abs(now - value) < 1e-6, `${key}: ${now}`);
    });
  }
  assert.ok(Math.abs(fake.events[0].value - 0.51) < 1e-6, 'what is set first is sent first');
  release();
});

test('A slider without a usable value stands at its minimum and sends nothing', async (t) => {
  const { fake, url } = await startFake(t, one(control('Width', 'slider', [1], {}, { min: 2, max: 5 })));
  const page = await openPage(t, url);
  assert.equal(await page.getByRole('slider', { name: 'Width' }).inputValue(), '2');
  assert.deepEqual(fake.events, []);
});

test('Segments are a group of radio buttons and send the index', async (t) => {
  const mode = control('Mode', 'segmented', 0, {}, { titles: ['Cards', 'Grid'], selected: 0 });
  const { fake, url } = await startFake(t, one(mode));
  const page = await openPage(t, url);
  const group = page.getByRole('radiogroup', { name: 'Mode' });
  assert.equal(await group.getByRole('radio', { name: 'Cards' }).isChecked(), true);
  await group.getByRole('radio', { name: 'Grid' }).click();
  await eventually(() => assert.equal(sent(fake)[0].value, 1));
});

test('A text field is sent by Return and by leaving it, and only when it was changed', async (t) => {
  const show = (value) => one(control('Name', 'text', value), link('Other'));
  const { fake, url } = await startFake(t, show('old'), (event, it) => {
    if (event.type === 'set') it.screen = show(event.value);
  });
  const page = await openPage(t, url);
  const field = page.getByRole('textbox', { name: 'Name' });
  await field.fill('new');
  await field.press('Enter');
  await eventually(() => assert.equal(sent(fake)[0].value, 'new'));
  assert.equal(sent(fake)[0].return, true, 'the device gets the key');
  await field.press('Tab');
  await field.fill('newer');
  await field.press('Tab');
  await eventually(() => assert.deepEqual(sent(fake).map(({ value }) => value), ['new', 'newer']));
  assert.equal(sent(fake)[1].return, undefined, 'leaving presses no key');
});

test('Return is sent from a field that was not changed, but not over a text that is not shown whole', async (t) => {
  const long = { ...control('Long', 'text', 'begins'), valueLength: 70_000 };
  const { fake, url } = await startFake(t, one(control('Name', 'text', 'old'), long));
  const page = await openPage(t, url);
  await page.getByRole('textbox', { name: 'Long' }).press('Enter');
  await page.getByRole('textbox', { name: 'Name' }).press('Enter');
  await eventually(() => assert.equal(sent(fake).length, 1));
  const [{ value, return: returned }] = sent(fake);
  assert.deepEqual({ value, returned }, { value: 'old', returned: true });
});

test('Return while a word is being composed belongs to the composition', async (t) => {
  const { fake, url } = await startFake(t, one(control('Name', 'text', 'old')));
  const page = await openPage(t, url);
  const field = page.getByRole('textbox', { name: 'Name' });
  await field.dispatchEvent('keydown', { key: 'Enter', isComposing: true, bubbles: true });
  await field.press('Enter');
  await eventually(() => assert.equal(sent(fake).length, 1));
});

test('Escape takes a change of a text field back', async (t) => {
  const { fake, url } = await startFake(t, one(control('Name', 'text', 'old')));
  const page = await openPage(t, url);
  const field = page.getByRole('textbox', { name: 'Name' });
  await field.fill('new');
  await field.press('Escape');
  assert.equal(await field.inputValue(), 'old');
  await field.press('Tab');
  assert.deepEqual(fake.events, []);
});

test('Typing is not disturbed by a screen that comes meanwhile', async (t) => {
  const { fake, url } = await startFake(t, one(control('Name', 'text', 'old')));
  const page = await openPage(t, url);
  const field = page.getByRole('textbox', { name: 'Name' });
  await field.fill('older');
  fake.show(one(control('Name', 'text', 'elsewhere'), link('More')));
  await page.getByRole('button', { name: 'More' }).waitFor();
  await page.keyboard.type(' still');
  assert.equal(await field.inputValue(), 'older still');
});

test('A secret text is not shown', async (t) => {
  const { url } = await startFake(t, one(control('Key', 'secureText', 'abc')));
  const page = await openPage(t, url);
  assert.equal(await page.getByLabel('Key').getAttribute('type'), 'password');
});

test('Check marks are pressed buttons', async (t) => {
  const { url } = await startFake(t, one(row('Red', { accessory: 'checkmark' }), row('Blue')));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Red', pressed: true }).waitFor();
  await page.getByRole('button', { name: 'Blue', pressed: false }).waitFor();
});

test('A detail button is a button of its own', async (t) => {
  const { fake, url } = await startFake(t, one(row('Network', { id: 'r', accessory: 'detailButton' })));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'More about Network' }).click();
  await eventually(() => assert.deepEqual(sent(fake), [{ type: 'tap', id: 'r', part: 'accessory' }]));
});

test('Arrow keys move the focus from row to row', async (t) => {
  const rows = [link('First'), row('Text', { selectable: false }), control('Switch', 'switch', 0), link('Last')];
  const { url } = await startFake(t, one(...rows));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'First' }).focus();
  await page.keyboard.press('ArrowDown');
  assert.ok(await hasFocus(page.getByRole('switch')));
  await page.keyboard.press('End');
  assert.ok(await hasFocus(page.getByRole('button', { name: 'Last' })));
});

test('The focus stays at its place when the rows are made anew', async (t) => {
  const { fake, url } = await startFake(t, one(link('First'), link('Second'), link('Third')));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Second' }).focus();
  fake.show(one(link('Other first'), link('Other second'), link('Other third')));
  const second = page.getByRole('button', { name: 'Other second' });
  await second.waitFor();
  await eventually(async () => assert.ok(await hasFocus(second)));
});

test('The focus goes with its row', async (t) => {
  const sections = (...lists) => screen(['Settings', 'Page'], lists.map((rows) => section(null, rows.map((name) => link(name)))));
  const { fake, url } = await startFake(t, sections(['First', 'Second'], ['Third', 'Fourth']));
  const page = await openPage(t, url);
  const second = page.getByRole('button', { name: 'Second' });
  await second.focus();
  fake.show(sections(['First', 'Fourth'], ['Third', 'Second']));
  await eventually(async () => assert.match(await page.locator('li.row').last().innerText(), /Second/));
  await eventually(async () => assert.ok(await hasFocus(second)));
  await page.keyboard.press('ArrowUp');
  assert.ok(await hasFocus(page.getByRole('button', { name: 'Third' })));
});

test('A tap on a row that is gone meanwhile touches no other row', async (t) => {
  let release;
  const held = new Promise((resolve) => { release = resolve; });
  const touched = [];
  const show = (second) => one(link('Slow'), link(second));
  const { url } = await startFake(t, show('Delete'), async ({ id }, it) => {
    touched.push(id);
    await held;
    it.screen = show('Keep');
  });
  const page = await openPage(t, url, { expected: /404/ });
  await page.getByRole('button', { name: 'Slow' }).click();
  await page.getByRole('button', { name: 'Delete' }).click();
  release();
  await page.getByText('The screen has changed. Please try again.').waitFor();
  assert.deepEqual(touched, ['row2.Slow']);
});

test('A tap on a row that the tap before it has moved goes where the row is now', async (t) => {
  let release;
  const held = new Promise((resolve) => { release = resolve; });
  const names = ['First', 'Second', 'Third'];
  const { fake, url } = await startFake(t, one(...names.map((name) => link(name))), async ({ id }, it) => {
    await held;
    names.splice(names.findIndex((name) => id.endsWith(name)), 1);
    it.screen = one(...names.map((name) => link(name)));
  });
  const page = await openPage(t, url);
  for (const name of ['First', 'Second', 'Third']) await page.getByRole('button', { name }).click();
  release();
  await eventually(() => assert.deepEqual(names, []));
  assert.deepEqual(sent(fake).map(({ id }) => id), ['row2.First', 'row2.Second', 'row2.Third']);
  assert.equal(await page.locator('.notice-text').count(), 0);
});

test('A row that comes before the others leaves them their elements, and what is typed in them', async (t) => {
  const field = () => control('Name', 'text', 'a');
  const { fake, url } = await startFake(t, one(field()));
  const page = await openPage(t, url);
  const input = page.getByRole('textbox', { name: 'Name' });
  await input.fill('half typed');
  fake.show(one(link('New'), field(), link('New')));
  await eventually(async () => assert.equal(await page.getByRole('button', { name: 'New' }).count(), 2));
  assert.ok(await hasFocus(input));
  assert.equal(await input.inputValue(), 'half typed');
});

test('A tap is repeated by itself when only the revision had moved on', async (t) => {
  const { fake, url } = await startFake(t, one(link('Mode', { id: 'a' })), () => undefined);
  const page = await openPage(t, url, { expected: /409/ });
  await page.getByRole('button', { name: 'Mode' }).waitFor();
  fake.revision += 3;
  await page.getByRole('button', { name: 'Mode' }).click();
  await eventually(() => assert.deepEqual(fake.events.map(({ revision }) => revision), [1, 4]));
  assert.equal(await page.locator('.notice-text').count(), 0);
});

test('A cell with views of its own is drawn from their frames', async (t) => {
  const image = { url: '/images/3', width: 80, height: 60 };
  const views = [
    label('Big title', [20, 10, 200, 40], { fontSize: 35, color: '#ff0000ff', alignment: 'center' }),
    label('Unseen', [0, 60, 390, 20], { hidden: true }),
    view('image', [5, 5, 40, 30], { image, contentMode: 'scaleAspectFit', accessibilityLabel: 'Banner' }),
  ];
  const cell = row(null, { cell: 'Banner', selectable: false, height: 150, frame: [0, 0, 390, 150], views });
  const { url } = await startFake(t, one(cell));
  const page = await openPage(t, url);
  const title = page.getByText('Big title');
  assert.equal(await title.evaluate((element) => getComputedStyle(element).fontSize), '35px');
  const screenBox = await page.locator('.screen').boundingBox();
  const picture = page.getByRole('img', { name: 'Banner' });
  await picture.waitFor();
  const box = await picture.boundingBox();
  assert.deepEqual([box.x - screenBox.x, box.width, box.height], [5, 40, 30]);
  assert.equal(await page.getByText('Unseen').count(), 0);
  assert.equal((await page.getByRole('listitem').boundingBox()).height, 150);
});

test('A field in a row has a clear button where its mode shows it', async (t) => {
  const field = (name, clearButtonMode) => control(name, 'text', 'Ann', {}, {
    placeholder: '', clearButton: clearButtonMode !== 'never', clearButtonMode,
  });
  const shown = one(
    field('Never', 'never'), field('Editing', 'whileEditing'), field('Resting', 'unlessEditing'), field('Always', 'always'),
  );
  const { fake, url } = await startFake(t, shown, ({ type, id, value }) => {
    const touched = shown.page.sections[0].rows.find((each) => each.id === id);
    touched.value = type === 'clear' ? '' : value;
  });
  const page = await openPage(t, url);
  const input = (name) => page.getByRole('textbox', { name });
  const button = (name) => page.getByRole('listitem').filter({ has: input(name) }).getByRole('button', { name: 'Clear text' });
  const opacity = (name) => button(name).evaluate((element) => getComputedStyle(element).opacity);
  await input('Never').waitFor();
  assert.equal(await button('Never').count(), 0);
  assert.deepEqual(await Promise.all(['Editing', 'Resting', 'Always'].map(opacity)), ['0', '1', '1']);
  await input('Resting').focus();
  assert.equal(await opacity('Resting'), '0');
  await input('Editing').fill('Annabel');
  assert.equal(await opacity('Editing'), '1');
  await button('Editing').click();
  await eventually(async () => assert.equal(await input('Editing').inputValue(), ''));
  assert.equal(await button('Editing').count(), 0, 'there is nothing to clear');
  assert.ok(await hasFocus(input('Editing')));
  assert.deepEqual(sent(fake), [
    { type: 'set', id: 'row2.Editing', value: 'Annabel' }, { type: 'clear', id: 'row2.Editing' },
  ]);
});
