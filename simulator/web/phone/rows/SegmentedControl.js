import { html, useContext, useEffect, useState } from '/modules/htm-preact.mjs';
import { SessionContext } from '/session.js';

/** One of a few titles. `control.selected` is the index of the chosen one, or negative. */
export function SegmentedControl({ row, name }) {
  const session = useContext(SessionContext);
  const { titles = [], selected } = row.control;
  const [shown, setShown] = useState(selected);
  useEffect(() => setShown(selected), [row]);

  const choose = async (index) => {
    setShown(index);
    if (!(await session.set(row.id, index))) setShown(selected);
  };
  return html`
    <div class="segmented" role="radiogroup" aria-label=${name} data-own-keys>
      ${titles.map((title, index) => html`
        <label class="segment" key=${index} data-chosen=${index === shown}>
          <input type="radio" name=${row.id} checked=${index === shown} disabled=${row.enabled === false}
            data-part=${index === Math.max(0, shown ?? 0) ? 'main' : undefined} onChange=${() => choose(index)} />
          <span>${title}</span>
        </label>`)}
    </div>`;
}
