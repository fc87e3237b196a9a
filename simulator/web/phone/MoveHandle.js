import { html } from 'htm/preact/standalone';
import { Grip } from '/phone/symbols.js';

/** The handle of a row that can be moved: dragged by a pointer, or moved by the up and down arrow keys. */
export function MoveHandle({ row, begin, nudge }) {
  const onKeyDown = (event) => {
    if (event.key !== 'ArrowUp' && event.key !== 'ArrowDown') return;
    event.preventDefault();
    nudge(event.key === 'ArrowUp' ? -1 : 1);
  };
  return html`
    <button type="button" class="move-handle" data-part="handle" data-own-keys
      aria-label=${`Move ${row.label || 'row'}`} aria-description="Press the up or down arrow key"
      onPointerDown=${begin} onKeyDown=${onKeyDown}><${Grip} /></button>`;
}
