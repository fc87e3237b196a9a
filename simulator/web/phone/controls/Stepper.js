import { html, useContext, useEffect, useRef } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { Picture } from '/images.js';
import { SessionContext } from '/session.js';

// Milliseconds until a finger that stays goes on, and between its steps.
const untilRepeat = 500;
const betweenSteps = 100;

const buttons = [
  { way: 'decrement', can: 'canDecrement', image: 'decrementImage', name: 'Decrement', symbol: 'M5 12h14' },
  { way: 'increment', can: 'canIncrement', image: 'incrementImage', name: 'Increment', symbol: 'M5 12h14M12 5v14' },
];

/** A minus and a plus. A finger that stays goes on where the stepper repeats. */
function Stepper({ row, name }) {
  const session = useContext(SessionContext);
  const shown = useRef(row);
  shown.current = row;
  const held = useRef(null);
  const lift = () => {
    if (!held.current) return;
    clearTimeout(held.current.timer);
    held.current.listening.abort();
    held.current = null;
    session.set(row.id, 'lift');
  };
  useEffect(() => lift, []);

  const press = async (event, way, can) => {
    if (event.button !== 0 || held.current) return;
    const finger = { listening: new AbortController(), timer: 0 };
    held.current = finger;
    // The button itself hears of nothing when it cannot be pressed any more.
    for (const type of ['pointerup', 'pointercancel']) {
      document.addEventListener(type, lift, { signal: finger.listening.signal });
    }
    const step = async (pause) => {
      await session.drag(row.id, way);
      finger.timer = setTimeout(() => {
        const { control } = shown.current;
        if (held.current === finger && control.repeats && control[can]) step(betweenSteps);
      }, pause);
    };
    step(untilRepeat);
  };
  return html`
    <div class="stepper" role="group" aria-label=${name} data-own-keys>
      ${buttons.map(({ way, can, image, name: what, symbol }) => html`
        <button type="button" key=${way} class="stepper-button" data-part=${way === 'increment' ? 'main' : undefined}
          aria-label=${`${what} ${name}`} disabled=${row.enabled === false || !row.control[can]}
          onPointerDown=${(event) => press(event, way, can)}
          onClick=${(event) => event.detail === 0 && session.set(row.id, way)}>
          ${row.control[image]
            ? html`<${Picture} image=${row.control[image]} />`
            : html`<svg viewBox="0 0 24 24" aria-hidden="true" style=${{ color: cssColor(row.tintColor) }}>
                <path d=${symbol} /></svg>`}
        </button>`)}
    </div>`;
}

export const stepper = { Content: Stepper, isGroup: true, showsDetail: true };
