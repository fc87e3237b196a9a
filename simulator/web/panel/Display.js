import { html, useContext } from 'htm/preact/standalone';
import { SessionContext } from '/session.js';
import { Turn } from '/phone/symbols.js';

const kinds = [['phone', 'iPhone'], ['tablet', 'iPad']];

/** Which screen the device has, and how it is held. */
export function Display({ display: { kind, orientation } }) {
  const session = useContext(SessionContext);
  const lies = orientation === 'landscape';
  return html`
    <div class="display-choice">
      <div class="segmented" role="radiogroup" aria-label="Display">
        ${kinds.map(([value, title]) => html`
          <label class="segment" key=${value} data-chosen=${value === kind}>
            <input type="radio" name="display" checked=${value === kind}
              onChange=${() => session.setDisplay({ kind: value })} />
            <span>${title}</span>
          </label>`)}
      </div>
      <button type="button" class="turn-button" aria-pressed=${String(lies)}
        onClick=${() => session.setDisplay({ orientation: lies ? 'portrait' : 'landscape' })}>
        <${Turn} />Landscape
      </button>
    </div>`;
}
