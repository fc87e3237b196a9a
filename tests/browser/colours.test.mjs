import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, focused, settled } from './support/browser.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { layFile, notificationsOf, startZuno, themeFile } from './support/zuno.mjs';

const labels = ['Zuno', 'Customise'];
const rowOf = (page, name, value) => page.getByRole('button', { name: `${name} ${value}`, exact: true });
const dialogOf = (page, name = 'Titles') => page.getByRole('dialog', { name });
const cellOf = (page, digits) => page.getByRole('gridcell', { name: digits });
const wayOf = (page, name) => page.getByRole('radio', { name });
const removeOf = (page, name) => page.getByRole('button', { name: `Use System Colour for ${name}` });
const spectrum = (page) => page.locator('.color-spectrum');
const posted = 'com.norvik.Zuno.theme';

/** The switches that let colours be chosen. */
const switches = { enabled: true, useCustom: true };

/** `content` is what the theme file holds beside the switches. */
function start(t, content, options) {
  const prepare = (folder) => layFile(folder, themeFile, propertyListText({ ...switches, ...content }));
  return startZuno(t, { labels, prepare, ...options });
}

async function openPicker(page, value = 'System', name = 'Titles') {
  await rowOf(page, name, value).click();
  await dialogOf(page, name).waitFor();
  await settled(page);
}

async function close(page) {
  await dialogOf(page).getByRole('button', { name: 'Close' }).click();
  await page.getByRole('dialog').waitFor({ state: 'detached' });
}

/** The middle of an element, or another place in it as shares of its width and height. */
async function placeIn(locator, across = 0.5, down = 0.5) {
  const { x, y, width, height } = await locator.boundingBox();
  return [x + width * across, y + height * down];
}

const storedIs = ({ stored }, content) =>
  eventually(async () => assert.deepEqual(await stored(themeFile), { ...switches, ...content }));

test('A colour is picked in the grid by the mouse, and stored once when the button is let go', async (t) => {
  const started = await start(t, { unknown: 'kept' });
  const { page, api } = started;
  await openPicker(page);
  await cellOf(page, 'FFFFFF').focus();
  await page.keyboard.press('ArrowDown');
  await cellOf(page, '0061FD').click();
  assert.equal(await cellOf(page, '0061FD').getAttribute('tabindex'), '0', 'the keys go on from there');
  await storedIs(started, { unknown: 'kept', titleColour: '0061FD' });
  assert.deepEqual(await notificationsOf(api), [posted]);
  assert.equal(await cellOf(page, '0061FD').getAttribute('aria-selected'), 'true');

  await page.mouse.move(...await placeIn(cellOf(page, '000000')));
  await page.mouse.down();
  for (const digits of ['263E0F', '4F5504', 'E22400']) {
    await page.mouse.move(...await placeIn(cellOf(page, digits)), { steps: 4 });
  }
  await eventually(async () => {
    const { sheet } = await api('GET', '/api/screen');
    assert.equal(sheet.color.value, '#e22400ff');
  });
  await storedIs(started, { unknown: 'kept', titleColour: '0061FD' });
  await page.mouse.up();
  await storedIs(started, { unknown: 'kept', titleColour: 'E22400' });
  assert.deepEqual(await notificationsOf(api), [posted, posted]);

  const grid = page.getByRole('grid', { name: 'Colours' });
  for (const [edge, digits] of [[-0.05, 'FFFFFF'], [1.05, 'DEEED4']]) {
    await page.mouse.move(...await placeIn(cellOf(page, '0061FD')));
    await page.mouse.down();
    await page.mouse.move(...await placeIn(grid, edge, edge), { steps: 4 });
    await page.mouse.up();
    await storedIs(started, { unknown: 'kept', titleColour: digits });
  }
  await close(page);
  await rowOf(page, 'Titles', 'DEEED4').waitFor();
});

test('A finger picks in the grid and in the spectrum', async (t) => {
  const started = await start(t, null, { hasTouch: true });
  const { page } = started;
  await openPicker(page);
  await cellOf(page, 'FFAB01').tap();
  await storedIs(started, { titleColour: 'FFAB01' });
  await wayOf(page, 'Spectrum').tap();
  await page.touchscreen.tap(...await placeIn(spectrum(page), 1 / 3, 0.5));
  await eventually(async () => {
    const { titleColour } = await started.stored(themeFile);
    const [red, green, blue] = [0, 2, 4].map((at) => parseInt(titleColour.slice(at, at + 2), 16));
    assert.ok(red < 10 && green > 245 && blue < 10, titleColour);
  });
});

test('A knob that is let go where it was taken ends its drag', async (t) => {
  const started = await start(t, { titleColour: 'FF800080' });
  const { page, api } = started;
  await openPicker(page, 'FF800080');
  const slider = page.getByRole('slider', { name: 'Opacity' });
  const isHalf = (whether) => eventually(async () => {
    const { sheet } = await api('GET', '/api/screen');
    assert.equal(sheet.color.value === '#ff800080', whether);
  });
  await page.mouse.move(...await placeIn(slider));
  await page.mouse.down();
  await page.mouse.move(...await placeIn(slider, 0.75), { steps: 4 });
  await isHalf(false);
  await page.mouse.move(...await placeIn(slider), { steps: 4 });
  await isHalf(true);
  assert.deepEqual(await notificationsOf(api), []);
  await page.mouse.up();
  await eventually(async () => assert.deepEqual(await notificationsOf(api), [posted]));
  await storedIs(started, { titleColour: 'FF800080' });
});

test('A touch that the system takes away ends its drag', async (t) => {
  const started = await start(t, null, { hasTouch: true });
  const { page } = started;
  await openPicker(page);
  const client = await page.context().newCDPSession(page);
  const touch = async (type, ...places) => client.send('Input.dispatchTouchEvent', {
    type, touchPoints: places.map(([x, y]) => ({ x, y })),
  });
  await touch('touchStart', await placeIn(cellOf(page, '0061FD')));
  await touch('touchMove', await placeIn(cellOf(page, 'E22400')));
  await eventually(async () => assert.equal(await cellOf(page, 'E22400').getAttribute('aria-selected'), 'true'));
  await touch('touchCancel');
  await storedIs(started, { titleColour: 'E22400' });
});

test('A colour is picked by the keyboard alone', async (t) => {
  const started = await start(t, { titleColour: 'FFFFFF' });
  const { page } = started;
  const press = async (...keys) => {
    for (const key of keys) await page.keyboard.press(key);
  };
  await rowOf(page, 'Titles', 'FFFFFF').focus();
  await press('Enter');
  await dialogOf(page).waitFor();
  await press('Tab', 'Tab', 'Tab');
  assert.match(await focused(page), /^white, FFFFFF$/);
  await press('ArrowDown', 'ArrowDown', 'ArrowRight');
  assert.match(await focused(page), /^dark azure, 012F7B$/);
  await storedIs(started, { titleColour: 'FFFFFF' });
  await press('Enter');
  await storedIs(started, { titleColour: '012F7B' });
  await press('End', 'PageDown', 'Space');
  await storedIs(started, { titleColour: 'DEEED4' });
  await press('Control+Home', 'Space');
  await storedIs(started, { titleColour: 'FFFFFF' });

  await press('Shift+Tab', 'ArrowRight');
  assert.equal(await wayOf(page, 'Spectrum').isChecked(), true);
  await press('Tab');
  assert.equal(await focused(page), 'Hue and lightness');
  for (let times = 0; times < 5; times += 1) await press('PageDown');
  await storedIs(started, { titleColour: 'FF0000' });
  for (let times = 0; times < 50; times += 1) await press('ArrowRight');
  await storedIs(started, { titleColour: '00FFFF' });
  await press('Tab');
  assert.equal(await focused(page), 'Opacity');
  await press('Home');
  await storedIs(started, { titleColour: '00FFFF00' });
  await press('Escape');
  await page.getByRole('dialog').waitFor({ state: 'detached' });
  await eventually(async () => assert.match(await focused(page), /^Titles/));
});

test('The sliders and the fields set the parts and the digits, and every way keeps the opacity', async (t) => {
  const started = await start(t, { titleColour: '102030' });
  const { page, api } = started;
  await openPicker(page, '102030');
  await wayOf(page, 'Sliders').check();
  const enter = async (name, text) => {
    await page.getByRole('textbox', { name }).fill(text);
    await page.keyboard.press('Enter');
  };
  assert.equal(await page.getByRole('slider', { name: 'Green' }).inputValue(), '32');
  await page.getByRole('slider', { name: 'Green' }).focus();
  await page.keyboard.press('ArrowRight');
  await storedIs(started, { titleColour: '102130' });
  const green = page.getByRole('textbox', { name: 'Green, number' });
  await eventually(async () => assert.equal(await green.inputValue(), '33', 'the number follows'));
  await enter('Red, number', '255');
  await storedIs(started, { titleColour: 'FF2130' });
  await enter('Blue, number', '999');
  await storedIs(started, { titleColour: 'FF21FF' });
  const digits = page.getByRole('textbox', { name: /Hex/ });
  await eventually(async () => assert.equal(await digits.inputValue(), 'FF21FF', 'the digits follow'));
  await enter('Opacity, number', '50');
  await storedIs(started, { titleColour: 'FF21FF80' });
  await enter('sRGB Hex Color #', 'abcdef');
  await storedIs(started, { titleColour: 'ABCDEF80' });
  assert.equal(await page.getByRole('slider', { name: 'Red' }).inputValue(), '171');
  const before = await notificationsOf(api);
  for (const text of ['', 'red', '12345', '1234567', 'GGGGGG']) {
    await enter('sRGB Hex Color #', text);
    await eventually(async () => assert.equal(await digits.inputValue(), 'ABCDEF'));
  }
  for (const text of ['', '-1', '1.5', 'x']) {
    await enter('Green, number', text);
    await eventually(async () => assert.equal(await green.inputValue(), '205'));
  }
  assert.equal((await notificationsOf(api)).length, before.length, 'what is no colour is not sent');
  await wayOf(page, 'Grid').check();
  await cellOf(page, '0061FD').click();
  await storedIs(started, { titleColour: '0061FD80' });
  await wayOf(page, 'Spectrum').check();
  await page.mouse.click(...await placeIn(spectrum(page), 0.1, 0.999));
  await eventually(async () => assert.match((await started.stored(themeFile)).titleColour, /^0[0-9]0[0-9]0080$/));
  await enter('Opacity, number', '100');
  await eventually(async () => assert.match((await started.stored(themeFile)).titleColour, /^0[0-9]0[0-9]00$/));
});

test('A value that is no colour is said so, replaced and removed', async (t) => {
  const started = await start(t, { titleColour: 7, badgeColour: 'crimson', backgroundColour: '' });
  const { page } = started;
  await rowOf(page, 'Background', 'System').waitFor();
  assert.equal(await removeOf(page, 'Background').count(), 0);
  await openPicker(page, 'Not a colour');
  await cellOf(page, 'FCC700').click();
  await storedIs(started, { titleColour: 'FCC700', badgeColour: 'crimson', backgroundColour: '' });
  await close(page);
  await rowOf(page, 'Badges', 'Not a colour').waitFor();
  await removeOf(page, 'Badges').click();
  await rowOf(page, 'Badges', 'System').waitFor();
  await removeOf(page, 'Titles').focus();
  await page.keyboard.press('Enter');
  await rowOf(page, 'Titles', 'System').waitFor();
  await storedIs(started, { titleColour: '', badgeColour: '', backgroundColour: '' });
  await eventually(async () => assert.match(await focused(page), /^Titles/, 'the button has gone'));
  assert.equal(await page.getByRole('dialog').count(), 0);
});

for (const colorScheme of ['light', 'dark']) {
  test(`Rows and picker are accessible, in ${colorScheme}, on every display`, async (t) => {
    const { page, api } = await start(t, { titleColour: 'FF800080', badgeColour: 'x' }, { colorScheme });
    await rowOf(page, 'Titles', 'FF800080').scrollIntoViewIfNeeded();
    await assertAccessible(page);
    for (const display of [
      { kind: 'phone', orientation: 'portrait' }, { kind: 'phone', orientation: 'landscape' },
      { kind: 'tablet', orientation: 'landscape' },
    ]) {
      await api('PUT', '/api/device/display', display);
      const selector = `.device-place[data-display="${display.kind}"][data-orientation="${display.orientation}"]`;
      await page.locator(selector).waitFor();
      await openPicker(page, 'FF800080');
      for (const way of ['Grid', 'Spectrum', 'Sliders']) {
        await wayOf(page, way).check();
        await assertAccessible(page);
        const [card, screen] = await Promise.all([dialogOf(page).boundingBox(), page.locator('.screen').boundingBox()]);
        assert.ok(card.y >= screen.y - 1 && card.y + card.height <= screen.y + screen.height + 1, 'within the screen');
        await page.getByRole('img', { name: 'Chosen colour: orange, FF8000, 50% opaque' }).scrollIntoViewIfNeeded();
      }
      await close(page);
    }
  });
}

test('What is no colour, and a picker that has gone, are refused', async (t) => {
  const started = await start(t);
  const { page, api } = started;
  await openPicker(page);
  const { sheet } = await api('GET', '/api/screen');
  const answer = await api('POST', '/api/events', { type: 'set', id: sheet.color.id, value: 'red' });
  assert.equal(answer.error, 'A colour is set to "#rrggbb" or "#rrggbbaa".');
  await close(page);
  const late = await api('POST', '/api/events', { type: 'set', id: sheet.color.id, value: '#ff0000' });
  assert.equal(late.error, 'Nothing on the screen has this id.');
  await openPicker(page);
  await cellOf(page, '000000').click();
  await storedIs(started, { titleColour: '000000' });
});
