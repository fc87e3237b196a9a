import { useEffect, useRef, useState } from 'htm/preact/standalone';
import { findRow } from '/phone/findRow.js';
import { nearestDestination, topsOf } from '/phone/layout.js';
import { pixelsPerPoint } from '/phone/points.js';

const scrollZone = 70;
const fastestScroll = 14;

/**
 * Moving rows by dragging their handles and by the arrow keys on them.
 *
 * `drag` is null or `{from, to, height, top, settling}`: `from` and `to` are `{section, row}`, the destination counted
 * without the dragged row, as the simulator takes it; `top` is where the dragged row is shown, from the table's top.
 */
export function useReordering({ page, scroller, table, session, focusRow }) {
  const [drag, setDrag] = useState(null);
  const gesture = useRef(null);
  const busy = useRef(false);

  useEffect(() => () => gesture.current?.end(), []);

  function begin(event, section, row) {
    if (gesture.current || drag || (event.pointerType === 'mouse' && event.button !== 0)) return;
    event.preventDefault();
    event.currentTarget.focus({ preventScroll: true });
    gesture.current = startGesture(event, {
      page, scroller: scroller.current, table: table.current, from: { section, row },
      show: setDrag,
      finish: (last) => {
        gesture.current = null;
        if (last) drop(last);
        else setDrag(null);
      },
    });
  }

  async function drop(last) {
    const { from, to } = last;
    const stays = from.section === to.section && from.row === to.row;
    setDrag({ ...last, settling: true });
    if (!stays) await move(page, from, to);
    setDrag(null);
  }

  async function move(seen, from, to) {
    const moved = seen.sections[from.section].rows[from.row];
    const sent = await session.send(({ page: now }) =>
      (sameRows(seen, now) ? { type: 'move', from: [from.section, from.row], to: [to.section, to.row] } : null));
    if (!sent) return;
    const shown = session.store.state.screen.page;
    const place = findRow(shown, moved.id);
    if (!place) return;
    focusRow({ ...place, id: moved.id }, 'handle');
    const { header, rows } = shown.sections[place.section];
    session.announce(`${moved.label}, row ${place.row + 1} of ${rows.length}${header ? ` in ${header}` : ''}`);
  }

  /** Moves a row by one place; `direction` is -1 (up) or 1 (down). */
  async function nudge(section, row, direction) {
    if (busy.current || drag) return;
    const to = neighbour(page, section, row, direction);
    if (!to) return;
    busy.current = true;
    await move(page, { section, row }, to);
    busy.current = false;
  }

  const row = drag && page.sections[drag.from.section]?.rows[drag.from.row];
  return { drag: row ? drag : null, row, begin, nudge };
}

function sameRows(one, other) {
  return one === other || (one.sections.length === other.sections.length
    && one.sections.every(({ rows }, at) => rows.length === other.sections[at].rows.length
      && rows.every(({ id }, index) => id === other.sections[at].rows[index].id)));
}

/** Where a row goes by one step: within its section, or over its edge into the next one. */
function neighbour({ sections }, section, row, direction) {
  const next = row + direction;
  if (next >= 0 && next < sections[section].rows.length) return { section, row: next };
  const other = section + direction;
  if (!sections[other]) return null;
  return { section: other, row: direction > 0 ? 0 : sections[other].rows.length };
}

/**
 * Follows one pointer from the handle until it is lifted. `finish` is given the last drag, null if it was
 * cancelled.
 */
function startGesture(event, { page, scroller, table, from, show, finish }) {
  const { pointerId } = event;
  const scale = pixelsPerPoint(table);
  const topOf = (element) => element.getBoundingClientRect().top / scale;
  const origin = topOf(table);
  const lists = page.sections.map(({ rows }, section) => ({
    top: topOf(table.querySelector(`[data-list="${section}"]`)) - origin,
    tops: topsOf(rows),
  }));
  const { tops } = lists[from.section];
  const height = tops[from.row + 1] - tops[from.row];
  const grabbed = event.clientY / scale - origin - lists[from.section].top - tops[from.row];
  const highest = lists[0].top;
  const lowest = lists.at(-1).top + lists.at(-1).tops.at(-1);
  let y = event.clientY / scale;
  let frame = 0;
  let last = null;

  const update = () => {
    const free = y - topOf(table) - grabbed;
    const top = Math.min(Math.max(free, highest - height / 2), lowest - height / 2);
    last = { from, height, top, to: nearestDestination(lists, from, top).to, settling: false };
    show(last);
  };
  const scroll = () => {
    const top = topOf(scroller);
    const style = getComputedStyle(scroller);
    const above = top + parseFloat(style.scrollPaddingTop) + scrollZone - y;
    const below = y - (top + scroller.offsetHeight - scrollZone);
    const depth = above > 0 ? -above : Math.max(0, below);
    if (depth !== 0) {
      const before = scroller.scrollTop;
      scroller.scrollTop += Math.sign(depth) * Math.min(fastestScroll, Math.abs(depth) / 4);
      if (scroller.scrollTop !== before) update();
    }
    frame = requestAnimationFrame(scroll);
  };
  const onMove = (moved) => {
    if (moved.pointerId !== pointerId) return;
    y = moved.clientY / scale;
    update();
  };
  const end = () => {
    cancelAnimationFrame(frame);
    table.removeEventListener('pointermove', onMove);
    table.removeEventListener('pointerup', onUp);
    table.removeEventListener('pointercancel', onCancel);
    document.removeEventListener('keydown', onKey, true);
    if (table.hasPointerCapture(pointerId)) table.releasePointerCapture(pointerId);
  };
  const onUp = (lifted) => {
    if (lifted.pointerId !== pointerId) return;
    end();
    finish({ ...last, top: nearestDestination(lists, from, last.top).top });
  };
  const onCancel = () => {
    end();
    finish(null);
  };
  const onKey = (pressed) => {
    if (pressed.key !== 'Escape') return;
    pressed.stopPropagation();
    onCancel();
  };

  table.setPointerCapture(pointerId);
  table.addEventListener('pointermove', onMove);
  table.addEventListener('pointerup', onUp);
  table.addEventListener('pointercancel', onCancel);
  document.addEventListener('keydown', onKey, true);
  frame = requestAnimationFrame(scroll);
  update();
  return { end };
}
