import { html } from 'htm/preact/standalone';
import { format } from '/phone/presented/colorPicker/colorValues.js';
import { PartSlider } from '/phone/presented/colorPicker/PartSlider.js';

/** How opaque the colour is, in percent. */
export function OpacitySlider({ color, choose }) {
  const at = (alpha) => format({ ...color, alpha });
  return html`
    <div class="color-opacity">
      <${PartSlider} name="Opacity" value=${Math.round((color.alpha / 255) * 100)} most=${100} unit="%"
        track=${`linear-gradient(to right, ${at(0)}, ${at(255)}), var(--squares)`}
        knob=${`linear-gradient(${at(color.alpha)} 0 0), var(--squares)`}
        set=${(value, continuous) => choose({ ...color, alpha: Math.round((value / 100) * 255) }, continuous)} />
    </div>`;
}
