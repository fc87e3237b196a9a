import { html } from '/modules/htm-preact.mjs';
import { cssTextColor } from '/colors.js';
import { ControlRow } from '/phone/rows/ControlRow.js';
import { CustomViews } from '/phone/CustomViews.js';
import { RowPicture } from '/phone/RowPicture.js';
import { Checkmark, Disclosure, Info } from '/phone/symbols.js';
import { cellBackground } from '/phone/surfaces.js';

const alignments = { center: 'center', right: 'right', justified: 'justify' };

/** What a row shows and does: a control, a button, a custom cell, or plain text. `header` is its section's. */
export function RowBody({ row, header, isChoice, tap, tapAccessory }) {
  if (row.control) return html`<${ControlRow} row=${row} header=${header} />`;
  const isCustom = row.views?.length > 0;
  return html`
    <${Tappable} row=${row} isChoice=${isChoice} tap=${tap}>
      ${row.image && html`<${RowPicture} row=${row} />`}
      ${!(isCustom && !row.label) && html`<${Texts} row=${row} />`}
      ${isCustom && html`<${CustomViews} views=${row.views} on="cell" />`}
      <${AccessorySymbol} kind=${row.accessory} />
    <//>
    ${row.accessory?.startsWith('detail') && html`
      <button type="button" class="accessory-button" data-part="accessory" disabled=${row.enabled === false}
        aria-label=${`More about ${row.label || 'this row'}`} onClick=${tapAccessory}><${Info} /></button>`}
    ${row.accessory === 'detailDisclosureButton' && html`<span class="accessory-beside"><${Disclosure} /></span>`}`;
}

function Tappable({ row, isChoice, tap, children }) {
  const name = row.accessibilityLabel || undefined;
  if (!row.selectable && row.enabled !== false) {
    return html`
      <div class="row-main" role=${name && 'group'} aria-label=${name}>${children}</div>`;
  }
  const pressed = isChoice ? String(row.accessory === 'checkmark') : undefined;
  return html`
    <button type="button" class="row-main" data-part="main" aria-label=${name} aria-pressed=${pressed}
      disabled=${row.enabled === false} onClick=${tap}>${children}</button>`;
}

function Texts({ row }) {
  const detail = row.detail ?? '';
  const align = alignments[row.labelAlignment];
  const colored = (color) => (row.enabled === false ? undefined : cssTextColor(color, cellBackground));
  return html`
    <span class="row-texts" data-style=${row.style ?? 'default'}>
      <span class="row-label" data-wraps=${(row.labelLines ?? 1) !== 1}
        style=${{ color: colored(row.labelColor), textAlign: align, flexGrow: align && 1 }}>${row.label ?? ''}</span>
      ${detail !== '' && html`<span class="row-detail" style=${{ color: colored(row.detailColor) }}>${detail}</span>`}
    </span>`;
}

function AccessorySymbol({ kind }) {
  if (kind === 'disclosureIndicator') return html`<span class="accessory"><${Disclosure} /></span>`;
  if (kind === 'checkmark') return html`<span class="accessory"><${Checkmark} /></span>`;
  return null;
}
