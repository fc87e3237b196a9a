import { html, useContext, useEffect, useState } from '/modules/htm-preact.mjs';
import { SessionContext } from '/session.js';

const unseenDecimals = 2;

/** A number within [min, max]. It is sent when the knob is let go. `row.detail` is how the device writes it, if it does. */
export function Slider({ row, name }) {
  const session = useContext(SessionContext);
  const { min = 0, max = 1 } = row.control;
  const stored = clamp(Number(row.value), min, max);
  const [shown, setShown] = useState(stored);
  useEffect(() => setShown(stored), [row]);

  const input = (event) => setShown(Number(event.target.value));
  const change = async (event) => {
    if (!(await session.set(row.id, Number(event.target.value)))) setShown(stored);
  };
  const share = max > min ? (shown - min) / (max - min) : 0;
  const written = row.detail ?? '';
  const text = written && shown === stored ? written : shown.toFixed(written ? decimalsOf(written) : unseenDecimals);
  return html`
    <input type="range" class="slider" data-part="main" data-own-keys aria-label=${name} aria-valuetext=${text}
      min=${min} max=${max} step="any" value=${shown} disabled=${row.enabled === false}
      style=${{ '--share': share }} onInput=${input} onChange=${change} />
    ${written && html`<output class="slider-value">${text}</output>`}`;
}

function decimalsOf(text) {
  return text.match(/\.(\d+)/)?.[1].length ?? 0;
}

function clamp(value, min, max) {
  return Number.isFinite(value) ? Math.min(Math.max(value, min), max) : min;
}
