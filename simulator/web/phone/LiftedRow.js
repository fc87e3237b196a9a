import { html } from 'htm/preact/standalone';
import { RowBody } from '/phone/RowBody.js';
import { Grip } from '/phone/symbols.js';

/** The picture of a row that is being dragged, over the table. */
export function LiftedRow({ row, drag }) {
  return html`
    <div class="lifted" inert aria-hidden="true" data-settling=${drag.settling}
      style=${{ height: `${drag.height}px`, transform: `translateY(${drag.top}px)` }}>
      <div class="row-slide">
        <${RowBody} row=${row} isChoice=${false} tap=${() => {}} />
        <span class="move-handle"><${Grip} /></span>
      </div>
    </div>`;
}
