// What a bundle sets about the look of its page, as the page in the browser draws it.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { control, label, link, row, screen, section, view } from './support/screens.mjs';

const red = '#ff0000ff';
const green = '#00ff00ff';
const purple = { light: '#800080ff', dark: '#c080c0ff' };
const picture = (fields) => ({ url: '/images/1-1', width: 20, height: 20, tint: null, ...fields });
const layer = (fields) => ({
  cornerRadius: 0, corners: ['topLeft', 'topRight', 'bottomRight', 'bottomLeft'], borderWidth: 0, borderColor: '#000000ff',
  shadow: null, ...fields,
});
const one = (...rows) => screen(['Settings', 'Page'], [section('Group', rows)]);
const pageOf = (fields, sections = [section('Group', [link('Row')])]) => screen(['Settings', 'Page'], sections, { page: fields });

async function open(t, shown, onEvent) {
  const { fake, url } = await startFake(t, shown, onEvent);
  return { fake, page: await openPage(t, url) };
}

const style = (locator, name, pseudo) => locator.evaluate(
  (element, [property, part]) => getComputedStyle(element, part).getPropertyValue(property), [name, pseudo ?? null],
);

test('Layers round their corners, draw borders and shadows, and clip what lies in them', async (t) => {
  const inner = view('view', [0, 0, 40, 40], { backgroundColor: green });
  const shadow = { color: '#000000ff', x: 0, y: 2, opacity: 0.5, radius: 4 };
  const { page } = await open(t, one(row('', {
    frame: [16, 0, 358, 100], height: 100,
    views: [
      view('view', [10, 10, 40, 40], {
        accessibilityIdentifier: 'clipped', backgroundColor: red, clips: true, views: [inner],
        layer: layer({ cornerRadius: 8, corners: ['topLeft', 'bottomRight'], borderWidth: 2, borderColor: green }),
      }),
      view('view', [60, 10, 40, 40], {
        accessibilityIdentifier: 'shadowed', backgroundColor: red, clips: false, layer: layer({ cornerRadius: 20, shadow }),
      }),
    ],
  })));
  const clipped = page.locator('[data-identifier="clipped"]');
  assert.equal(await style(clipped, 'border-top-left-radius'), '8px');
  assert.equal(await style(clipped, 'border-top-right-radius'), '0px');
  assert.equal(await style(clipped, 'border-bottom-right-radius'), '8px');
  assert.equal(await style(clipped, 'overflow'), 'hidden');
  const border = clipped.locator('> .layer-border');
  assert.match(await style(border, 'box-shadow'), /rgb\(0, 255, 0\) 0px 0px 0px 2px inset/);
  assert.deepEqual(await border.boundingBox(), await clipped.boundingBox());
  const shadowed = page.locator('[data-identifier="shadowed"]');
  assert.match(await style(shadowed, 'filter'), /drop-shadow/);
  assert.equal(await style(shadowed, 'overflow'), 'visible');
  assert.equal(await shadowed.locator('> .layer-border').count(), 0);
});

test("A row's picture has the corners and the border of its layer", async (t) => {
  const round = { shadow: null, clips: true, contentMode: 'scaleAspectFill', layer: layer({ cornerRadius: 10, borderWidth: 1 }) };
  const { page } = await open(t, one(link('Row', { image: picture({ width: 29, height: 29 }), imageStyle: round })));
  const shown = page.locator('.row-picture');
  await shown.locator('img').waitFor();
  assert.equal(await style(shown, 'border-bottom-left-radius'), '10px');
  assert.equal(await style(shown.locator('img'), 'object-fit'), 'cover');
  const { width, height } = await shown.boundingBox();
  assert.deepEqual([width, height], [29, 29]);
});

test("A row's picture that is not scaled keeps its size, and the row cuts what is too tall for it", async (t) => {
  const tall = picture({ width: 40, height: 100 });
  const rows = [['Centred', 'center', false], ['At the top', 'top', true], ['Scaled', 'scaleToFill', false]];
  const { page } = await open(t, one(...rows.map(([title, contentMode, clips]) =>
    link(title, { image: tall, imageStyle: { shadow: null, layer: null, clips, contentMode } }))));
  const places = [];
  for (const [title] of rows) {
    const item = page.locator('.row', { hasText: title });
    await item.locator('img').waitFor();
    const [outer, inner] = [await item.boundingBox(), await item.locator('img').boundingBox()];
    places.push([inner.width, inner.height, inner.y - outer.y].map(Math.round));
    assert.equal((await item.locator('.row-picture').boundingBox()).height, 44, 'its view is as high as the row');
  }
  assert.deepEqual(places, [[40, 100, -28], [40, 100, 0], [18, 44, 0]]);
  const overflow = await style(page.locator('.row', { hasText: 'At the top' }).locator('.row-picture'), 'overflow');
  assert.equal(overflow, 'hidden', 'a view that clips cuts its picture itself');
  assert.equal(await style(page.locator('.row-content').first(), 'overflow'), 'hidden');
});

test('A template is filled with its tint, another picture keeps its colours', async (t) => {
  const image = (at, fields) => view('image', [at, 0, 30, 20], { image: picture(fields), contentMode: 'scaleAspectFit', accessibilityLabel: `Picture ${at}` });
  const { page } = await open(t, one(row('', { frame: [16, 0, 358, 44], views: [image(0, { tint: purple }), image(40, {})] })));
  const template = page.getByRole('img', { name: 'Picture 0' });
  await template.waitFor();
  assert.equal(await style(template, 'background-color'), 'rgb(128, 0, 128)');
  assert.match(await style(template, 'mask-image'), /^url\("blob:/);
  assert.equal(await style(template, 'mask-size'), 'contain');
  assert.equal(await page.getByRole('img', { name: 'Picture 40' }).evaluate(({ tagName }) => tagName), 'IMG');
});

test('A picture that is not scaled is drawn in points where its content mode says, a scaled one in the whole view', async (t) => {
  const image = (name, contentMode) => view('image', [100, 10, 60, 30], {
    image: picture({ width: 20, height: 10 }), contentMode, accessibilityLabel: name,
  });
  const views = ['center', 'bottomRight', 'scaleAspectFill'].map((mode) => image(mode, mode));
  const { page } = await open(t, one(row('', { frame: [0, 0, 390, 60], height: 60, views })));
  const origin = await page.locator('.row').boundingBox();
  for (const [name, ...expected] of [
    ['center', 120, 20, 20, 10], ['bottomRight', 140, 30, 20, 10], ['scaleAspectFill', 100, 10, 60, 30],
  ]) {
    const shown = page.getByRole('img', { name });
    await shown.waitFor();
    const { x, y, width, height } = await shown.boundingBox();
    assert.deepEqual([x - origin.x, y - origin.y, width, height], expected, name);
  }
});

test('Switches and sliders have the colours and pictures that were set', async (t) => {
  const { page } = await open(t, one(
    control('Tinted', 'switch', true, {}, { onTintColor: purple, thumbTintColor: red }),
    control('Plain', 'switch', true, {}, { onTintColor: null, thumbTintColor: null }),
    control('Volume', 'slider', 0.5, {}, {
      min: 0, max: 1, minimumTrackTintColor: red, maximumTrackTintColor: green, thumbTintColor: purple,
      minimumImage: picture(), maximumImage: picture({ tint: green }),
    }),
  ));
  const tinted = page.getByRole('switch', { name: 'Tinted' });
  await eventually(async () => assert.equal(await style(tinted, 'background-color'), 'rgb(128, 0, 128)'));
  assert.equal(await style(tinted, 'background-color', '::before'), 'rgb(255, 0, 0)');
  assert.equal(await style(page.getByRole('switch', { name: 'Plain' }), 'background-color'), 'rgb(52, 199, 89)');
  const slider = page.getByRole('slider');
  assert.equal(await slider.evaluate((element) => element.style.getPropertyValue('--control-tint')), red);
  assert.equal(await slider.evaluate((element) => element.style.getPropertyValue('--track')), green);
  const images = page.locator('.slider-image');
  await eventually(async () => assert.equal(await page.locator('img.slider-image').count(), 1));
  assert.equal(await images.count(), 2);
  const [first, last, bar] = await Promise.all(
    [images.first(), images.last(), slider].map((each) => each.boundingBox()),
  );
  assert.ok(first.x < bar.x && bar.x < last.x, 'the pictures stand at the ends');
});

test('Segments can be pictures, disabled, and tinted where they are chosen', async (t) => {
  const { page } = await open(t, one(control('', 'segmented', 0, { accessibilityLabel: 'View' }, {
    titles: ['List', null, 'Off'], images: [null, picture({ tint: purple }), null], enabled: [true, true, false], selected: 0,
    selectedTintColor: '#101080ff',
  })));
  const chosen = page.locator('.screen .segment[data-chosen="true"]');
  assert.equal(await style(chosen, 'background-color'), 'rgb(16, 16, 128)');
  assert.notEqual(await style(chosen, 'color'), 'rgb(0, 0, 0)', 'black is not legible on it');
  assert.equal(await page.getByRole('radio', { name: 'Off' }).isDisabled(), true);
  assert.equal(await page.getByRole('radio', { name: 'List' }).isDisabled(), false);
  await page.getByRole('radio', { name: 'Segment 2 of 3' }).waitFor();
});

test('A field has the colour, alignment, border and keyboard that were set, and views beside its text', async (t) => {
  const field = {
    placeholder: '', keyboard: 'email', autocapitalization: 'words', autocorrection: true, spellChecking: true, returnKey: 'next',
    textColor: '#a00000ff', alignment: 'right', fontSize: 13, border: 'roundedRect', clearButton: false,
    leftView: view('view', [0, 0, 12, 12], { accessibilityIdentifier: 'left', backgroundColor: red }), rightView: null,
  };
  const { page } = await open(t, one(control('Name', 'text', 'Ann', {}, field)));
  const input = page.getByRole('textbox', { name: 'Name' });
  assert.deepEqual(
    await input.evaluate((element) => ['inputmode', 'autocapitalize', 'autocorrect', 'enterkeyhint', 'spellcheck']
      .map((name) => element.getAttribute(name))),
    ['email', 'words', 'on', 'next', 'true'],
  );
  assert.equal(await style(input, 'color'), 'rgb(160, 0, 0)');
  assert.equal(await style(input, 'text-align'), 'right');
  assert.equal(await style(input, 'font-size'), '13px');
  assert.equal(await style(input, 'border-radius'), '5px');
  const left = await page.locator('[data-identifier="left"]').boundingBox();
  assert.ok(left.x + left.width <= (await input.boundingBox()).x);
});

test('The bar shows a view for the title, a prompt, coloured and bold buttons, pictures and views in them', async (t) => {
  const solid = { color: '#203060ff', blur: true, clear: false, shadow: true, title: { color: '#ffffffff' } };
  const button = (index, fields) => ({
    id: `button2.${index}`, title: null, systemItem: null, side: 'right', enabled: true, image: null, tintColor: null, style: 'plain',
    width: 0, accessibilityLabel: null, view: null, ...fields,
  });
  const { fake, page } = await open(t, pageOf({
    prompt: 'Choose well', titleView: view('view', [0, 0, 80, 30], { views: [label('Drawn title', [0, 0, 80, 30], { color: '#ffffffff' })] }),
    bar: {
      color: '#203060ff', titleColor: '#ffffffff', largeTitleColor: null, tintColor: '#ffd000ff', translucent: true, hidden: false,
      standard: solid, scrollEdge: solid,
    },
    buttons: [
      button(0, { title: 'Save', style: 'done', tintColor: red }),
      button(1, { image: picture({ tint: green }), accessibilityLabel: 'Star' }),
      button(2, { view: view('view', [0, 0, 50, 20], { views: [label('Custom', [0, 0, 50, 20])] }) }),
    ],
  }));
  const heading = page.getByRole('heading', { name: 'Drawn title' });
  await heading.waitFor();
  assert.equal(await style(page.getByText('Drawn title'), 'color'), 'rgb(255, 255, 255)', 'legible on the bar');
  const prompt = page.getByText('Choose well');
  assert.equal(await style(prompt, 'color'), 'rgb(255, 255, 255)');
  assert.ok((await prompt.boundingBox()).y < (await heading.boundingBox()).y);
  const row = await page.getByRole('button', { name: 'Row' }).boundingBox();
  const bar = page.locator('.navigation-bar');
  const barBox = await bar.boundingBox();
  assert.equal(barBox.height, 47 + 44 + 30);
  assert.ok(row.y >= barBox.y + barBox.height, 'the rows begin below the bar');
  assert.equal(await style(bar.locator('.bar-ground[data-shown="true"]'), 'background-color'), 'rgb(32, 48, 96)');
  assert.equal(await style(page.getByRole('button', { name: 'Back to Settings' }), 'color'), 'rgb(255, 208, 0)');
  const save = page.getByRole('button', { name: 'Save' });
  assert.equal(await style(save, 'color'), 'rgb(255, 0, 0)');
  assert.equal(await style(save, 'font-weight'), '600');
  await page.getByRole('button', { name: 'Star' }).waitFor();
  await page.getByRole('button', { name: 'Custom' }).click();
  await eventually(() => assert.equal(fake.events.at(-1)?.id, 'button2.2'));
});

test('A page with a large title of its own has one, and the first page none when it wants none', async (t) => {
  const { fake, page } = await open(t, pageOf({ largeTitle: true }));
  await page.locator('.large-title').waitFor();
  fake.show(screen(['Settings'], [section(null, [link('Row')])], { page: { largeTitle: false } }));
  await page.getByRole('heading', { name: 'Settings', exact: true }).waitFor();
  await eventually(async () => assert.equal(await page.locator('.page:not([data-leaving="true"]) .large-title').count(), 0));
});

test('A table shows its header and footer views, its background, and the separators that were set', async (t) => {
  const band = (text, height) => view('view', [0, 0, 390, height], { views: [label(text, [10, 0, 200, height])] });
  const { page } = await open(t, pageOf({
    headerView: band('Above all', 80), footerView: band('Below all', 60), backgroundColor: '#fff0e0ff', separatorColor: red,
    contentInset: [20, 30], separators: true,
    backgroundView: view('view', [0, 0, 390, 844], { accessibilityIdentifier: 'ground', backgroundColor: '#ffe0c0ff' }),
  }, [section('Group', [
    link('First', { separatorInset: [0, 5] }),
    link('Second', { separatorInset: [50, 0], backgroundColor: '#e0ffe0ff' }),
    link('Third', { highlighted: true }),
  ])]));
  const above = await page.getByText('Above all').boundingBox();
  const below = await page.getByText('Below all').boundingBox();
  const first = await page.getByRole('button', { name: 'First' }).boundingBox();
  const third = await page.getByRole('button', { name: 'Third' }).boundingBox();
  assert.ok(above.y + above.height <= first.y && third.y + third.height <= below.y);
  assert.equal(await style(page.locator('.page'), 'background-color'), 'rgb(255, 240, 224)');
  await page.locator('[data-identifier="ground"]').waitFor();
  const line = (index, name) => style(page.locator('.row').nth(index), name, '::after');
  assert.deepEqual([await line(0, 'left'), await line(0, 'right')], ['0px', '5px']);
  assert.equal(await line(1, 'left'), '50px');
  assert.equal(await line(0, 'background-color'), 'rgb(255, 0, 0)');
  assert.equal(await style(page.locator('.row-slide').nth(1), 'background-color'), 'rgb(224, 255, 224)');
  assert.notEqual(await style(page.locator('.row-slide').nth(2), 'background-color'), await style(page.locator('.row-slide').first(), 'background-color'));
  const scroller = await page.locator('.scroller').evaluate((element) => getComputedStyle(element).paddingBottom);
  assert.equal(scroller, '70px');
});

test('Without separators there are no lines; without scrolling the page stays', async (t) => {
  const { page } = await open(t, pageOf({ separators: false, scrolls: false }, [section(null, [link('First'), link('Second')])]));
  await page.getByRole('button', { name: 'Second' }).waitFor();
  assert.equal(await style(page.locator('.row').first(), 'display', '::after'), 'none');
  assert.equal(await style(page.locator('.scroller'), 'overflow-y'), 'hidden');
});

test("A row's own accessory view and tint take the place of the system's", async (t) => {
  const badge = view('view', [0, 0, 30, 20], { backgroundColor: red, views: [label('7', [0, 0, 30, 20])] });
  const { page } = await open(t, one(
    link('Updates', { accessoryView: badge }), row('Chosen', { accessory: 'checkmark', tintColor: purple }),
  ));
  const shown = await page.locator('.accessory-view').boundingBox();
  assert.deepEqual([shown.width, shown.height], [30, 20]);
  assert.equal(await page.locator('.row').first().locator('.disclosure').count(), 0);
  assert.equal(await style(page.locator('.row').nth(1).locator('.checkmark'), 'color'), 'rgb(128, 0, 128)');
});

test('Values and hints for assistive technology are told, and elements of their own have names', async (t) => {
  const element = view('view', [0, 0, 40, 40], {
    isAccessibilityElement: true, accessibilityLabel: 'Battery', accessibilityValue: '40 %', accessibilityHint: 'Charges soon',
  });
  const { page } = await open(t, one(
    link('Mode', { accessibilityValue: 'automatic', accessibilityHint: 'Opens a page' }),
    control('Volume', 'slider', 0.5, { accessibilityValue: 'half' }, { min: 0, max: 1 }),
    row('', { frame: [16, 0, 358, 44], views: [element] }),
  ));
  const mode = page.getByRole('button', { name: 'Mode, automatic' });
  assert.equal(await mode.getAttribute('aria-description'), 'Opens a page');
  assert.equal(await page.getByRole('slider').getAttribute('aria-valuetext'), 'half');
  assert.equal(await page.getByRole('img', { name: 'Battery, 40 %' }).getAttribute('aria-description'), 'Charges soon');
});

test('A scroll view in a page is moved through its content', async (t) => {
  const scroll = view('scroll', [0, 0, 300, 100], {
    scrolls: true, contentSize: [300, 400], contentInset: [10, 0, 0, 0], clips: true,
    views: [label('Top', [0, 0, 100, 20]), label('End', [0, 380, 100, 20])],
  });
  const { page } = await open(t, one(row('', { frame: [16, 0, 358, 100], height: 100, views: [scroll] })));
  const inside = page.locator('.scroll-view');
  assert.equal(await inside.evaluate(({ scrollHeight }) => scrollHeight), 410);
  const before = await page.getByText('End').boundingBox();
  await inside.evaluate((element) => element.scrollTo(0, 300));
  await eventually(async () => assert.equal((await page.getByText('End').boundingBox()).y, before.y - 300));
});

test('Swipe actions show their pictures, spinners their colour, texts their shadow', async (t) => {
  const action = { id: 'swipe1', title: 'Pin', color: '#5856d6ff', leading: false, image: picture({ tint: '#ffffffff' }) };
  const shadowed = label('Shadowed', [0, 0, 200, 40], { textShadow: { color: red, x: 1, y: 2 } });
  const { page } = await open(t, one(
    link('Row', { swipeActions: [action] }), control('Busy', 'spinner', null, {}, { color: purple }),
    row('', { frame: [16, 0, 358, 44], views: [shadowed] }),
  ));
  assert.equal(await style(page.getByRole('progressbar'), 'color'), 'rgb(128, 0, 128)');
  assert.equal(await style(page.locator('.view-label'), 'text-shadow'), 'rgb(255, 0, 0) 1px 2px 0px');
  await page.getByRole('button', { name: 'Actions for Row' }).press('Enter');
  await page.locator('.swipe-action .swipe-image').waitFor();
});
