import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { Picture } from '/images.js';
import { DragInput } from '/phone/DragInput.js';
import { setOnly } from '/phone/look.js';
import { SessionContext } from '/session.js';

const unseenDecimals = 2;
// What a key moves the knob by, in hundredths of the range. Browsers differ in what they do where there are no steps.
const moves = { ArrowLeft: -1, ArrowDown: -1, ArrowRight: 1, ArrowUp: 1, PageDown: -10, PageUp: 10 };

/**
 * A number within [min, max]. It is sent when the knob is let go, and also meanwhile if something on the device follows
 * it (`row.control.followed`). `row.detail` is how the device writes it, if it does.
 */
function Slider({ row, name }) {
  const session = useContext(SessionContext);
  const { min = 0, max = 1, minimumImage, maximumImage, followed = false } = row.control;
  const stored = clamp(Number(row.value), min, max);
  const [shown, setShown] = useState(stored);
  const isHeld = useRef(false);
  const values = useRef(null);
  if (values.current?.id !== row.id) values.current = { id: row.id, input: new DragInput(session, row.id) };
  // What the device answers to a step is behind the knob.
  useEffect(() => {
    if (!isHeld.current) setShown(stored);
  }, [row]);

  const input = (event) => {
    setShown(Number(event.target.value));
    if (!followed) return;
    isHeld.current = true;
    values.current.input.send(Number(event.target.value), true);
  };
  const change = async (event) => {
    isHeld.current = false;
    if (!(await values.current.input.send(Number(event.target.value), false))) setShown(stored);
  };
  // A knob that is let go where it was taken tells of no change.
  const letGo = (event) => setTimeout(() => isHeld.current && change(event));
  const onKeyDown = (event) => {
    const move = moves[event.key];
    if (!move) return;
    event.preventDefault();
    event.target.value = clamp(Number(event.target.value) + (move / 100) * (max - min), min, max);
    setShown(Number(event.target.value));
    change(event);
  };
  const share = max > min ? (shown - min) / (max - min) : 0;
  const written = row.detail ?? '';
  const decimals = written ? decimalsOf(written) : unseenDecimals;
  const number = written && shown === stored ? written : shown.toFixed(decimals);
  const [longest] = [min, max].map((end) => end.toFixed(decimals)).sort((one, other) => other.length - one.length);
  return html`
    ${minimumImage && html`<${Picture} class="slider-image" image=${minimumImage} />`}
    <input type="range" class="slider" data-part="main" data-own-keys aria-label=${name}
      aria-valuetext=${((followed || shown === stored) && row.accessibilityValue) || number}
      aria-description=${row.accessibilityHint || undefined}
      min=${min} max=${max} step="any" value=${shown} disabled=${row.enabled === false}
      style=${{ '--share': share, ...tintsOf(row.control) }} onInput=${input} onChange=${change}
      onKeyDown=${onKeyDown} onPointerUp=${letGo} onPointerCancel=${letGo} />
    ${maximumImage && html`<${Picture} class="slider-image" image=${maximumImage} />`}
    ${written && html`<output class="slider-value" data-longest=${longest}>${number}</output>`}`;
}

export const slider = { Content: Slider };

function tintsOf(control) {
  return setOnly({
    '--control-tint': cssColor(control.minimumTrackTintColor), '--track': cssColor(control.maximumTrackTintColor),
    '--thumb': cssColor(control.thumbTintColor),
  });
}

function decimalsOf(text) {
  return text.match(/\.(\d+)/)?.[1].length ?? 0;
}

function clamp(value, min, max) {
  return Number.isFinite(value) ? Math.min(Math.max(value, min), max) : min;
}
