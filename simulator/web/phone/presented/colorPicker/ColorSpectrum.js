import { html, useState } from 'htm/preact/standalone';
import { digitsOf, format, hueAndLightness, nameOf, opaque, pureColor } from '/phone/presented/colorPicker/colorValues.js';
import { dragging } from '/phone/presented/colorPicker/dragging.js';

// What an arrow key moves the knob by, as a share of the surface.
const small = 0.01;
const large = 0.1;

/** All pure colours: hues from left to right, from white at the top through full strength to black. */
export function ColorSpectrum({ color, choose }) {
  // Where the knob was put says more than the digits: those of white have no hue, and both edges have the same.
  const [put, setPut] = useState(null);
  const isThere = put && digitsOf(pureColor(put)) === digitsOf(color);
  const place = isThere ? put : hueAndLightness(color);

  const take = (next, continuous) => {
    setPut(next);
    choose({ ...pureColor(next), alpha: color.alpha }, continuous);
  };
  const onKeyDown = (event) => {
    const step = event.shiftKey ? large : small;
    const [right, up] = moves[event.key] ?? [0, 0];
    if (right === 0 && up === 0) return;
    event.preventDefault();
    const within = (share) => Math.min(Math.max(share, 0), 1);
    take({ hue: within(place.hue + right * step), lightness: within(place.lightness + up * step) }, false);
  };
  const style = {
    left: `${place.hue * 100}%`, top: `${(1 - place.lightness) * 100}%`, background: format(opaque(color)),
  };
  return html`
    <div class="color-spectrum" ...${dragging(({ x, y }, continuous) => take({ hue: x, lightness: 1 - y }, continuous))}>
      <span class="color-knob" role="slider" tabindex="0" aria-label="Hue and lightness" aria-valuemin="0"
        aria-valuemax="360" aria-valuenow=${Math.round(place.hue * 360)} aria-valuetext=${nameOf(color)}
        aria-description="The arrow keys change the hue and the lightness, with the shift key by more."
        onKeyDown=${onKeyDown} style=${style}></span>
    </div>`;
}

const moves = {
  ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, 1], ArrowDown: [0, -1],
  Home: [-Infinity, 0], End: [Infinity, 0], PageUp: [0, 10], PageDown: [0, -10],
};
