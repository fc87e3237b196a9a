import { html } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { ControlRow } from '/phone/controls/ControlRow.js';
import { CustomViews, InlineView } from '/phone/views/CustomViews.js';
import { labelStyle, textColorIn } from '/phone/labelStyle.js';
import { alignments, setOnly } from '/phone/look.js';
import { RowPicture } from '/phone/RowPicture.js';
import { RowText } from '/phone/RowText.js';
import { Checkmark, Close as CloseSymbol, Disclosure, Info } from '/phone/symbols.js';

/** What a row shows and does: a control, a button, a custom cell, or plain text. `header` is its section's. */
export function RowBody({ row, header, isChoice, tap, tapAccessory, tapButton }) {
  const isCustom = row.views?.length > 0;
  const views = isCustom && html`<${CustomViews} views=${row.views} on="cell" />`;
  if (row.control) return html`<${ControlRow} row=${row} header=${header} />${views}`;
  return html`
    <${Tappable} row=${row} isChoice=${isChoice} tap=${tap}>
      ${row.image && html`<${RowPicture} row=${row} />`}
      ${!(isCustom && !row.label) && html`<${Texts} row=${row} />`}
      ${views}
      ${row.accessoryView
        ? html`<${InlineView} view=${row.accessoryView} on="cell" name="accessory-view" />`
        : html`<${AccessorySymbol} kind=${row.accessory} tint=${row.tintColor} />`}
    <//>
    ${row.accessoryButton && html`<${AccessoryButton} row=${row} tap=${tapButton} />`}
    ${!row.accessoryView && row.accessory?.startsWith('detail') && html`
      <button type="button" class="accessory-button" data-part="accessory" disabled=${row.enabled === false}
        aria-label=${`More about ${row.label || 'this row'}`} onClick=${tapAccessory}><${Info} /></button>`}
    ${!row.accessoryView && row.accessory === 'detailDisclosureButton' && html`
      <span class="accessory-beside"><${Disclosure} /></span>`}`;
}

/** The button in the row's accessory view, which is drawn with that view, over the place where it lies. */
function AccessoryButton({ row, tap }) {
  const { frame: [x, y, width, height], close, enabled, menu, title, accessibilityLabel } = row.accessoryButton;
  const [, , viewWidth, viewHeight] = row.accessoryView.frame;
  const style = {
    right: `calc(var(--covered-right) + var(--margin) + ${viewWidth - x - width}px)`,
    top: `calc(50% + ${y - viewHeight / 2}px)`, width: `${width}px`, height: `${height}px`,
  };
  return html`
    <button type="button" class="row-button" data-part="button" style=${style} onClick=${tap}
      disabled=${!enabled || row.enabled === false} aria-haspopup=${menu ? 'menu' : undefined}
      aria-label=${accessibilityLabel || title || (close ? 'Close' : 'Button')}>
      ${close && html`<${CloseSymbol} />`}
    </button>`;
}

function Tappable({ row, isChoice, tap, children }) {
  const name = nameOf(row);
  const description = row.accessibilityHint || undefined;
  if (!row.selectable && row.enabled !== false) {
    return html`
      <div class="row-main" role=${name && 'group'} aria-label=${name} aria-description=${name && description}>
        ${children}</div>`;
  }
  const pressed = isChoice ? String(row.accessory === 'checkmark') : undefined;
  return html`
    <button type="button" class="row-main" data-part="main" data-through=${row.touchable || undefined}
      aria-label=${name} aria-pressed=${pressed} aria-description=${description} disabled=${row.enabled === false}
      onClick=${tap}>${children}</button>`;
}

/** What an assistive technology calls the row, where its texts do not say it all. */
function nameOf(row) {
  const label = row.accessibilityLabel || (row.accessibilityValue ? row.label : '');
  return [label, row.accessibilityValue].filter(Boolean).join(', ') || undefined;
}

function Texts({ row }) {
  const detail = row.detail ?? '';
  const align = alignments[row.labelAlignment];
  const texts = {
    label: html`<${RowText} row=${row} text=${row.label ?? ''} attributed=${row.attributedLabel} />`,
    detail: html`<${RowText} row=${row} text=${detail} attributed=${row.attributedDetail} />`,
  };
  return html`
    <span class="row-texts" data-style=${row.style ?? 'default'}>
      <span class="row-label" data-own-color=${row.ownLabelColor || undefined} data-wraps=${(row.labelLines ?? 1) !== 1}
        style=${{ ...labelStyle(row), textAlign: align, flexGrow: align && 1 }}>${texts.label}</span>
      ${detail !== '' && html`
        <span class="row-detail" data-own-color=${row.ownDetailColor || undefined}
          style=${{ color: textColorIn(row, row.detailColor, row.ownDetailColor) }}>${texts.detail}</span>`}
    </span>`;
}

function AccessorySymbol({ kind, tint }) {
  if (kind === 'disclosureIndicator') return html`<span class="accessory"><${Disclosure} /></span>`;
  if (kind === 'checkmark') {
    return html`<span class="accessory" style=${setOnly({ '--tint': cssColor(tint) })}><${Checkmark} /></span>`;
  }
  return null;
}
