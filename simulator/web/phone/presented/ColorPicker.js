import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { ColorGrid } from '/phone/presented/colorPicker/ColorGrid.js';
import { ColorSliders } from '/phone/presented/colorPicker/ColorSliders.js';
import { ColorSpectrum } from '/phone/presented/colorPicker/ColorSpectrum.js';
import { format, nameOf, opaque, parse, percent } from '/phone/presented/colorPicker/colorValues.js';
import { OpacitySlider } from '/phone/presented/colorPicker/OpacitySlider.js';
import { DragInput } from '/phone/DragInput.js';
import { pairOf } from '/colors.js';
import { SessionContext } from '/session.js';

const ways = [
  { name: 'Grid', content: ColorGrid },
  { name: 'Spectrum', content: ColorSpectrum },
  { name: 'Sliders', content: ColorSliders },
];

/** What the colour picker holds below its bar. `color` is that of the sheet: `{id, value, supportsAlpha}`. */
function ColorPicker({ sheet: { color } }) {
  const session = useContext(SessionContext);
  const [way, setWay] = useState(0);
  const [shown, setShown] = useState(() => parse(pairOf(color.value).light));
  const input = useRef(null);
  input.current ??= new DragInput(session, color.id);
  const stored = pairOf(color.value).light;
  useEffect(() => {
    if (!input.current.isBusy) setShown(parse(stored));
  }, [stored]);

  /** Shows and sends a colour; `continuous` while it is dragged. */
  const choose = (next, continuous = false) => {
    setShown(next);
    input.current.send(format(next), continuous).then((taken) => {
      if (!taken) setShown(parse(stored));
    });
  };
  const { content: Content } = ways[way];
  return html`
    <div class="color-picker">
      <div class="segmented color-ways" role="radiogroup" aria-label="Way to choose" data-own-keys>
        ${ways.map(({ name }, at) => html`
          <label class="segment" key=${name} data-chosen=${at === way}>
            <input type="radio" name="color-way" checked=${at === way} onChange=${() => setWay(at)} />
            <span>${name}</span>
          </label>`)}
      </div>
      <${Content} color=${shown} choose=${choose} />
      ${color.supportsAlpha && html`<${OpacitySlider} color=${shown} choose=${choose} />`}
      <div class="color-present">
        <span class="color-swatch" role="img" aria-label=${`Chosen colour: ${describe(shown)}`}
          style=${{ '--color': format(shown), '--opaque': format(opaque(shown)) }}></span>
      </div>
    </div>`;
}

export const colorPicker = { title: 'Colors', hasCross: true, Content: ColorPicker };

function describe(color) {
  return color.alpha === 255 ? nameOf(color) : `${nameOf(color)}, ${percent(color.alpha)} opaque`;
}
