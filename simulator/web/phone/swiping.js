import { useEffect, useMemo, useRef, useState } from 'htm/preact/standalone';
import { pixelsPerPoint } from '/phone/points.js';

const begins = 8;
const opensAt = 40;
const wheelRest = 250;

/**
 * The id of the row of `page` that shows its swipe actions, or null, and the way to change that.
 *
 * The device says which; what the user does shows at once, and until the device has answered.
 */
export function useOpenRow(page, session) {
  const [ahead, setAhead] = useState(null);
  const described = useMemo(() => openRowOf(page), [page]);
  const open = ahead ? ahead.open : described;
  const setOpen = async (id, isOpen) => {
    if (isOpen === (open === id)) return;
    const own = { open: isOpen ? id : null };
    setAhead(own);
    await session.swipe(id, isOpen);
    setAhead((now) => (now === own ? null : now));
  };
  return [open, setOpen];
}

function openRowOf({ sections }) {
  for (const { rows } of sections) {
    const open = rows.find(({ swipeOpen }) => swipeOpen);
    if (open) return open.id;
  }
  return null;
}

/**
 * Swiping a row to the left with a finger, a mouse or a trackpad.
 *
 * Returns the handlers for the part that slides, and `offset`, its distance in points during a swipe, else 0.
 */
export function useSwipe({ item, enabled, open, setOpen }) {
  const [offset, setOffset] = useState(0);
  const gesture = useRef(null);
  const wheel = useRef({ sum: 0, timer: 0 }).current;

  useEffect(() => () => clearTimeout(wheel.timer), []);
  useEffect(() => {
    if (!open) return undefined;
    const onDown = (event) => {
      const page = item.current?.closest('.page');
      if (!page?.contains(event.target) || item.current.contains(event.target)) return;
      setOpen(false);
      const table = event.target.closest('.table');
      if (table) swallowClickOfTouch(table);
    };
    document.addEventListener('pointerdown', onDown, true);
    return () => document.removeEventListener('pointerdown', onDown, true);
  }, [open, setOpen]);

  if (!enabled) return { offset: 0, handlers: {} };

  const width = () => item.current.querySelector('.swipe-actions')?.offsetWidth ?? 0;
  const onPointerDown = (event) => {
    if (event.button !== 0 || event.target.closest('.move-handle')) return;
    const scale = pixelsPerPoint(item.current);
    gesture.current = { x: event.clientX, y: event.clientY, scale, base: open ? -width() : 0, swiping: false };
  };
  const onPointerMove = (event) => {
    const { current } = gesture;
    if (!current) return;
    const moved = (event.clientX - current.x) / current.scale;
    if (!current.swiping) {
      if (Math.abs(event.clientY - current.y) > begins) gesture.current = null;
      if (!gesture.current || Math.abs(moved) < begins) return;
      current.swiping = true;
      event.currentTarget.setPointerCapture(event.pointerId);
    }
    setOffset(Math.min(0, current.base + moved) || -0.01);
  };
  const onPointerUp = (event) => {
    const { current } = gesture;
    gesture.current = null;
    if (!current?.swiping) return;
    swallowNextClick(event.currentTarget);
    setOpen(current.base + (event.clientX - current.x) / current.scale < -opensAt);
    setOffset(0);
  };
  const onPointerCancel = () => {
    gesture.current = null;
    setOffset(0);
  };
  const onWheel = (event) => {
    if (Math.abs(event.deltaX) <= Math.abs(event.deltaY)) return;
    event.preventDefault();
    wheel.sum += event.deltaX;
    clearTimeout(wheel.timer);
    wheel.timer = setTimeout(() => { wheel.sum = 0; }, wheelRest);
    if (Math.abs(wheel.sum) < opensAt) return;
    setOpen(wheel.sum > 0);
    wheel.sum = 0;
  };
  return { offset, handlers: { onPointerDown, onPointerMove, onPointerUp, onPointerCancel, onWheel } };
}

/** The touch that has just begun is no click on anything in `element`, wherever it ends. */
function swallowClickOfTouch(element) {
  const ended = new AbortController();
  const options = { capture: true, signal: ended.signal };
  document.addEventListener('pointerup', () => {
    swallowNextClick(element);
    ended.abort();
  }, options);
  document.addEventListener('pointercancel', () => ended.abort(), options);
}

/** A swipe that ends over a button is no click on it. */
function swallowNextClick(element) {
  const swallow = (event) => {
    event.stopPropagation();
    event.preventDefault();
  };
  element.addEventListener('click', swallow, { capture: true, once: true });
  setTimeout(() => element.removeEventListener('click', swallow, { capture: true }), 0);
}
