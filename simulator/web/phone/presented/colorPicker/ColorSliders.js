import { html, useEffect, useState } from 'htm/preact/standalone';
import { digitsOf, format, parse } from '/phone/presented/colorPicker/colorValues.js';
import { PartSlider } from '/phone/presented/colorPicker/PartSlider.js';

const parts = ['red', 'green', 'blue'];

/** One slider for each part of the colour, and its digits. */
export function ColorSliders({ color, choose }) {
  return html`
    <div class="color-sliders">
      ${parts.map((part) => {
        const at = (value) => format({ ...color, alpha: 255, [part]: value });
        return html`
          <${PartSlider} key=${part} name=${`${part[0].toUpperCase()}${part.slice(1)}`} value=${color[part]} most=${255}
            track=${`linear-gradient(to right, ${at(0)}, ${at(255)})`} knob=${format({ ...color, alpha: 255 })}
            set=${(value, continuous) => choose({ ...color, [part]: value }, continuous)} />`;
      })}
      <${HexField} color=${color} choose=${choose} />
    </div>`;
}

/** Six hexadecimal digits. What is none is put back when the field is left. */
function HexField({ color, choose }) {
  const digits = digitsOf(color);
  const [text, setText] = useState(digits);
  useEffect(() => setText(digits), [digits]);

  const take = (event) => {
    const entered = event.target.value.trim().replace(/^#/, '');
    if (!/^[0-9a-f]{6}$/i.test(entered)) setText(digits);
    else if (entered.toUpperCase() !== digits) choose({ ...parse(`#${entered}`), alpha: color.alpha });
    event.target.value = /^[0-9a-f]{6}$/i.test(entered) ? entered.toUpperCase() : digits;
  };
  return html`
    <label class="color-hex">
      <span>sRGB Hex Color #</span>
      <input type="text" class="color-number" value=${text} maxlength="7" spellcheck=${false} autocomplete="off"
        autocapitalize="characters" onInput=${(event) => setText(event.target.value)} onChange=${take} />
    </label>`;
}
