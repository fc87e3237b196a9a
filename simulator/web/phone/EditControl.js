import { html } from 'htm/preact/standalone';
import { Insert, Minus } from '/phone/symbols.js';

/** What stands before a row in the editing mode: uncovers its delete button, or inserts. */
export function EditControl({ row, tap }) {
  const isInsert = row.editControl === 'insert';
  return html`
    <button type="button" class="edit-control" data-part="edit" data-kind=${row.editControl}
      aria-label=${`${isInsert ? 'Insert' : 'Delete'} ${row.label || 'this row'}`} onClick=${tap}>
      <${isInsert ? Insert : Minus} /></button>`;
}
