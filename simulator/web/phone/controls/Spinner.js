import { html } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';

/** Something under way. */
function Spinner({ row, name }) {
  return html`
    <span class="spinner" role="progressbar" aria-label=${name} style=${{ color: cssColor(row.control.color) }}></span>`;
}

export const spinner = { Content: Spinner, isPassive: true };
