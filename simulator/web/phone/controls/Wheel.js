import { html, useEffect, useRef, useState } from 'htm/preact/standalone';
import { pixelsPerPoint } from '/phone/points.js';
import { textOf } from '/phone/views/CustomViews.js';

// Degrees between two rows of a wheel of rows as high as the system's, and how far around it is seen.
const degreesPerRow = 18;
const seen = 90;
// Milliseconds without a turn of the mouse's wheel after which the picker's stands.
const untilStill = 150;
const pageOfRows = 5;

/**
 * One wheel of a picker, turned by dragging, with a mouse's wheel, by a click on a row or by keys. `component` has
 * `rows` of the `count`, from the number `first` on; `value` is the one that stands in the middle. `turn` is called
 * with the number of a row when the wheel stands; `draw` draws a row.
 */
export function Wheel({ name, component, value, enabled, height, isMain, turn, draw }) {
  const { count, first, rows, rowHeight, width } = component;
  // Where it is turned to, until the device says the same.
  const [wanted, setWanted] = useState(null);
  const turns = useRef(0);
  const finger = useRef(null);
  const still = useRef({ timer: 0, place: null }).current;
  const element = useRef(null);
  useEffect(() => () => clearTimeout(still.timer), []);
  const bounded = (place) => Math.min(Math.max(place, 0), Math.max(count - 1, 0));
  const middle = bounded(wanted ?? value);

  const stand = async (place) => {
    const number = Math.round(bounded(place));
    turns.current += 1;
    const own = turns.current;
    setWanted(number);
    if (number !== value || wanted !== null) await turn(number);
    if (own === turns.current) setWanted(null);
  };

  const onPointerDown = (event) => {
    if (!enabled || event.button !== 0 || count === 0) return;
    finger.current = { id: event.pointerId, from: event.clientY, start: middle, moved: false };
    element.current.setPointerCapture(event.pointerId);
  };
  const onPointerMove = (event) => {
    if (finger.current?.id !== event.pointerId) return;
    const points = (event.clientY - finger.current.from) / pixelsPerPoint(element.current);
    finger.current.moved ||= Math.abs(points) > 3;
    if (finger.current.moved) setWanted(bounded(finger.current.start - points / rowHeight));
  };
  const onPointerUp = (event) => {
    const held = finger.current;
    if (held?.id !== event.pointerId) return;
    finger.current = null;
    if (held.moved) {
      stand(middle);
      return;
    }
    const box = element.current.getBoundingClientRect();
    const points = (event.clientY - box.top - box.height / 2) / pixelsPerPoint(element.current);
    stand(middle + Math.round(points / rowHeight));
  };
  const onPointerCancel = () => {
    finger.current = null;
    setWanted(null);
  };
  // Added by hand: what is not passive keeps the page from scrolling.
  const onWheel = useRef(null);
  onWheel.current = (event) => {
    if (!enabled || count === 0) return;
    event.preventDefault();
    const lines = event.deltaMode === 0 ? event.deltaY / rowHeight : event.deltaY;
    still.place = bounded((still.place ?? middle) + lines);
    setWanted(still.place);
    clearTimeout(still.timer);
    still.timer = setTimeout(() => {
      const { place } = still;
      still.place = null;
      stand(place);
    }, untilStill);
  };
  useEffect(() => {
    const node = element.current;
    const turned = (event) => onWheel.current(event);
    node.addEventListener('wheel', turned, { passive: false });
    return () => node.removeEventListener('wheel', turned);
  }, []);
  const onKeyDown = (event) => {
    const steps = {
      ArrowDown: 1, ArrowUp: -1, PageDown: pageOfRows, PageUp: -pageOfRows, Home: -Infinity, End: Infinity,
    };
    if (!enabled || !(event.key in steps)) return;
    event.preventDefault();
    stand(Math.round(middle) + steps[event.key]);
  };

  const reach = Math.ceil(seen / degreesPerRow);
  const radius = rowHeight / 2 / Math.tan((degreesPerRow / 2) * (Math.PI / 180));
  const near = rows.map((row, at) => ({ row, number: first + at }))
    .filter(({ number }) => Math.abs(number - middle) < reach);
  const chosen = rows[value - first];
  const text = chosen ? chosen.title ?? textOf(chosen.view) : '';
  return html`
    <span class="wheel" role="spinbutton" aria-label=${name} aria-valuenow=${value} aria-valuemin="0"
      aria-valuemax=${Math.max(count - 1, 0)} aria-valuetext=${text || 'None'} tabindex=${enabled ? 0 : undefined}
      aria-disabled=${enabled ? undefined : 'true'} data-part=${isMain ? 'main' : undefined} ref=${element}
      style=${{ width: `${width}px`, height: `${height}px`, '--row-height': `${rowHeight}px` }}
      onPointerDown=${onPointerDown} onPointerMove=${onPointerMove} onPointerUp=${onPointerUp}
      onPointerCancel=${onPointerCancel} onKeyDown=${onKeyDown}>
      <span class="wheel-rows" aria-hidden="true">
        ${near.map(({ row, number }) => html`
          <span class="wheel-row" key=${number} data-chosen=${Math.round(middle) === number}
            style=${{
              transform: `rotateX(${(middle - number) * degreesPerRow}deg) translateZ(${radius}px)`,
            }}>${draw(row)}</span>`)}
      </span>
    </span>`;
}
