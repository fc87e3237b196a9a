import { html, useEffect, useRef, useState } from 'htm/preact/standalone';

/**
 * A slider over the colours that it leads to, and its number in a field. `track` and `knob` are CSS backgrounds,
 * `set(value, continuous)` gets whole numbers from 0 to `most`.
 */
export function PartSlider({ name, value, most, unit = '', track, knob, set }) {
  const [text, setText] = useState(String(value));
  useEffect(() => setText(String(value)), [value]);

  const isHeld = useRef(false);
  const slide = (continuous) => (event) => {
    isHeld.current = continuous;
    set(Number(event.target.value), continuous);
  };
  // A knob that is let go where it was taken tells of no change.
  const letGo = (event) => setTimeout(() => isHeld.current && slide(false)(event));
  const type = (event) => {
    const entered = event.target.value.trim().replace(/\s*%$/, '');
    const number = /^\d{1,3}$/.test(entered) ? Math.min(Number(entered), most) : value;
    setText(String(number));
    event.target.value = number;
    if (number !== value) set(number, false);
  };
  return html`
    <div class="color-part">
      <span class="color-part-name" aria-hidden="true">${name}</span>
      <input type="range" class="slider color-slider" min="0" max=${most} step="1" value=${value} aria-label=${name}
        aria-valuetext=${`${value}${unit}`} style=${{ '--colors': track, '--knob': knob }}
        onInput=${slide(true)} onChange=${slide(false)} onPointerUp=${letGo} onPointerCancel=${letGo} />
      <span class="color-amount">
        <input type="text" inputmode="numeric" class="color-number" value=${text} maxlength="4"
          aria-label=${`${name}, number`} onInput=${(event) => setText(event.target.value)} onChange=${type} />
        ${unit && html`<span aria-hidden="true">${unit}</span>`}
      </span>
    </div>`;
}
