import assert from 'node:assert/strict';
import { test } from 'node:test';
import { cssColor, cssTextColor, inkOf, paintedOver } from '../../simulator/web/colors.js';
import { objectFitOf, placeOf as placeOfPicture } from '../../simulator/web/phone/contentMode.js';
import { nextStop } from '../../simulator/web/phone/keyboard.js';
import { dragLayout, nearestDestination, rowAt, topsOf } from '../../simulator/web/phone/layout.js';
import { readEvents } from '../../simulator/web/stream.js';
import { control, row, section } from './support/screens.mjs';

const white = { light: '#ffffff', dark: '#000000' };

test('A plain colour stays as it is and a pair follows the appearance', () => {
  assert.equal(cssColor('#11223344'), '#11223344');
  assert.equal(cssColor({ light: '#ffffffff', dark: '#000000ff' }), 'light-dark(#ffffffff, #000000ff)');
  assert.equal(cssColor(null), undefined);
});

test('A legible text colour is kept exactly', () => {
  assert.equal(cssTextColor({ light: '#102030ff', dark: '#d0e0f0ff' }, white), 'light-dark(#102030, #d0e0f0)');
});

test('A faint text colour is moved only as far as reading needs', () => {
  const [light, dark] = cssTextColor('#808080ff', white).match(/#[0-9a-f]{6}/g);
  assert.ok(light > '#707070' && light < '#808080', light);
  assert.equal(dark, '#808080');
});

test('A colour of the bundle\'s own is kept however faint it is', () => {
  assert.equal(inkOf('#fefefeff', true, white), '#fefefeff');
  assert.notEqual(inkOf('#fefefeff', false, white), '#fefefeff');
  assert.equal(inkOf(null, true, white), undefined);
});

test('Large text keeps a colour that small text could not have', () => {
  assert.equal(cssTextColor('#808080ff', white, true), 'light-dark(#808080, #808080)');
});

test('A translucent background mixes with what lies under it', () => {
  assert.deepEqual(paintedOver(white, '#ff000080'), { light: '#ff7f7f', dark: '#800000' });
  assert.equal(paintedOver(white, null), white);
});

const rowsOf = (...heights) => heights.map((height) => row('x', { height }));

test('Rows lie one under the other, and a missing height is the standard one', () => {
  assert.deepEqual([...topsOf(rowsOf(60, 0, 44))], [0, 60, 104, 148]);
});

test('The row at a height is found, also beyond both ends', () => {
  const tops = topsOf(rowsOf(60, 44, 44));
  assert.deepEqual([-10, 0, 59, 60, 103, 104, 500].map((y) => rowAt(tops, y)), [0, 0, 0, 1, 1, 2, 2]);
});

test('Dragging down within a section moves the rows between up', () => {
  const tops = topsOf(rowsOf(50, 50, 50, 50));
  const drag = { from: { section: 0, row: 0 }, to: { section: 0, row: 2 }, height: 50 };
  const { offset, total } = dragLayout(0, tops, drag);
  assert.deepEqual([1, 2, 3].map(offset), [-50, -50, 0]);
  assert.equal(total, 200);
});

test('Dragging up within a section moves the rows between down', () => {
  const tops = topsOf(rowsOf(50, 50, 50, 50));
  const { offset } = dragLayout(0, tops, { from: { section: 0, row: 3 }, to: { section: 0, row: 1 }, height: 50 });
  assert.deepEqual([0, 1, 2].map(offset), [0, 50, 50]);
});

test('Dragging into another section closes one list and opens the other', () => {
  const tops = topsOf(rowsOf(50, 50, 50));
  const drag = { from: { section: 0, row: 0 }, to: { section: 1, row: 1 }, height: 50 };
  assert.deepEqual([1, 2].map(dragLayout(0, tops, drag).offset), [-50, -50]);
  assert.equal(dragLayout(0, tops, drag).total, 100);
  assert.deepEqual([0, 1, 2].map(dragLayout(1, tops, drag).offset), [0, 50, 50]);
  assert.equal(dragLayout(1, tops, drag).total, 200);
});

test('A dragged row goes to the nearest place, counted without itself', () => {
  const lists = [{ top: 30, tops: topsOf(rowsOf(50, 50, 50)) }, { top: 210, tops: topsOf(rowsOf(50)) }];
  const from = { section: 0, row: 1 };
  const to = (y) => Object.values(nearestDestination(lists, from, y).to);
  assert.deepEqual(to(80), [0, 1]);
  assert.deepEqual(to(30), [0, 0]);
  assert.deepEqual(to(126), [0, 2]);
  assert.deepEqual(to(158), [1, 0]);
  assert.deepEqual(to(212), [1, 1]);
  assert.deepEqual(to(900), [1, 1]);
});

test('An empty section can be dragged into', () => {
  const lists = [{ top: 0, tops: topsOf(rowsOf(50)) }, { top: 80, tops: topsOf([]) }];
  assert.deepEqual(nearestDestination(lists, { section: 0, row: 0 }, 40).to, { section: 1, row: 0 });
});

test('Arrow keys pass over rows that cannot have the focus and over section borders', () => {
  const page = { sections: [
    section('A', [row('1'), row('2', { selectable: false }), row('3', { enabled: false })]),
    section('B', []), section('C', [control('4', 'switch', 0), row('5')]),
  ] };
  const canFocus = (each) => each.enabled && (each.selectable || each.control !== null);
  const stop = (place, key) => nextStop(page, place, key, canFocus);
  assert.deepEqual(stop({ section: 0, row: 0 }, 'ArrowDown'), { section: 2, row: 0 });
  assert.deepEqual(stop({ section: 2, row: 0 }, 'ArrowUp'), { section: 0, row: 0 });
  assert.deepEqual(stop({ section: 0, row: 0 }, 'End'), { section: 2, row: 1 });
  assert.equal(stop({ section: 2, row: 1 }, 'ArrowDown'), null);
  assert.equal(stop({ section: 0, row: 0 }, 'a'), null);
});

test('A picture that is not scaled lies at its edge or corner of the view, or in the middle of the rest', () => {
  const placed = (mode) => placeOfPicture(mode, { width: 20, height: 10 }, { width: 50, height: 50 })?.style;
  const at = (left, top) => ({ position: 'absolute', left: `${left}px`, top: `${top}px` });
  assert.deepEqual(['topLeft', 'top', 'topRight'].map(placed), [at(0, 0), at(15, 0), at(30, 0)]);
  assert.deepEqual(['left', 'center', 'right'].map(placed), [at(0, 20), at(15, 20), at(30, 20)]);
  assert.deepEqual(['bottomLeft', 'bottom', 'bottomRight'].map(placed), [at(0, 40), at(15, 40), at(30, 40)]);
  const { size, style } = placeOfPicture('center', { width: 90, height: 10 }, { width: 50, height: 50 });
  assert.deepEqual([size, style], [{ width: 90, height: 10 }, at(-20, 20)], 'it may reach beyond the view');
});

test('A picture that is scaled fills the view, whole or cut, with its shape or without', () => {
  const modes = ['scaleToFill', 'scaleAspectFit', 'scaleAspectFill', undefined];
  assert.deepEqual(modes.map(objectFitOf), ['fill', 'contain', 'cover', 'fill']);
  for (const mode of modes) assert.equal(placeOfPicture(mode, { width: 1, height: 1 }, { width: 2, height: 2 }), null);
});

test('Events are read from a stream however it is cut', async () => {
  const text = ': hello\n\nid: 7\nevent: screen\ndata: {"revision":7}\n\nevent: device\r\ndata: a\r\ndata: b\r\n\r\ndata: cut';
  for (const size of [1, 2, 3, 1000]) {
    const bytes = new TextEncoder().encode(text);
    const body = new ReadableStream({
      start(controller) {
        for (let at = 0; at < bytes.length; at += size) controller.enqueue(bytes.slice(at, at + size));
        controller.close();
      },
    });
    const events = [];
    await readEvents(body, (event) => events.push(event));
    assert.deepEqual(events, [
      { event: 'screen', data: '{"revision":7}', id: '7' }, { event: 'device', data: 'a\nb', id: null },
    ]);
  }
});
