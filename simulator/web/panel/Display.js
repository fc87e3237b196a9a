import { html, useContext } from '/modules/htm-preact.mjs';
import { SessionContext } from '/session.js';

const kinds = [['phone', 'iPhone'], ['tablet', 'iPad']];

/** Which screen the device has; `kind` is "phone" or "tablet". */
export function Display({ kind }) {
  const session = useContext(SessionContext);
  return html`
    <div class="segmented display-choice" role="radiogroup" aria-label="Display">
      ${kinds.map(([value, title]) => html`
        <label class="segment" key=${value} data-chosen=${value === kind}>
          <input type="radio" name="display" checked=${value === kind} onChange=${() => session.setDisplay(value)} />
          <span>${title}</span>
        </label>`)}
    </div>`;
}
