import { html, useContext, useEffect, useState } from 'htm/preact/standalone';
import { cssColor, cssTextColor, pairOf } from '/colors.js';
import { Picture } from '/images.js';
import { fontStyle, setOnly } from '/phone/look.js';
import { SessionContext } from '/session.js';

const plainText = { light: '#000000', dark: '#ffffff' };

/** One of a few titles or pictures. `control.selected` is the index of the chosen one, or negative. */
function SegmentedControl({ row, name }) {
  const session = useContext(SessionContext);
  const { titles = [], images = [], enabled = [], selected, selectedTintColor } = row.control;
  const [shown, setShown] = useState(selected);
  useEffect(() => setShown(selected), [row]);

  const choose = async (index) => {
    setShown(index);
    if (!(await session.set(row.id, index))) setShown(selected);
  };
  const { titleLooks = {} } = row.control;
  const lookOf = (index) => {
    if (index === shown) return titleLooks.selected;
    return enabled[index] === false ? titleLooks.disabled : titleLooks.normal;
  };
  const tinted = selectedTintColor && {
    '--segment-chosen': cssColor(selectedTintColor), color: cssTextColor(plainText, pairOf(selectedTintColor)),
  };
  return html`
    <div class="segmented" role="radiogroup" aria-label=${name} data-own-keys>
      ${titles.map((title, index) => html`
        <label class="segment" key=${index} data-chosen=${index === shown} data-disabled=${enabled[index] === false}
          style=${index === shown ? tinted : undefined}>
          <input type="radio" name=${row.id} checked=${index === shown}
            disabled=${row.enabled === false || enabled[index] === false}
            aria-label=${title || `Segment ${index + 1} of ${titles.length}`}
            data-part=${index === Math.max(0, shown ?? 0) ? 'main' : undefined} onChange=${() => choose(index)} />
          ${images[index] ? html`<${Picture} image=${images[index]} />` : html`
            <span style=${ownLook(lookOf(index))} data-own-color=${Boolean(lookOf(index)?.color) || undefined}>${title}</span>`}
        </label>`)}
    </div>`;
}

/** The font and the colour of titles, where the bundle has set any. */
function ownLook(look) {
  if (!look) return undefined;
  return setOnly({
    color: cssColor(look.color), fontSize: `${look.fontSize}px`, fontWeight: look.fontWeight,
    ...fontStyle(look.fontFamily, look.italic, look.tabularDigits),
  });
}

export const segmentedControl = { Content: SegmentedControl, isGroup: true };
