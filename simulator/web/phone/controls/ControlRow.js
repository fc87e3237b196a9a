import { html } from 'htm/preact/standalone';
import { controlOf } from '/phone/controls/controls.js';
import { labelStyle } from '/phone/labelStyle.js';
import { RowPicture } from '/phone/RowPicture.js';
import { RowText } from '/phone/RowText.js';
import { InlineView } from '/phone/views/CustomViews.js';

/** A row that holds a control. The row's label names the control, or else what is nearest to a label. */
export function ControlRow({ row, header }) {
  const { Content, isGroup, showsDetail, isPassive } = controlOf(row.control);
  const label = row.label ?? '';
  const name = row.accessibilityLabel || label || row.control.placeholder || header || row.key || 'Value';
  const Wrapper = isGroup || isPassive ? 'div' : 'label';
  return html`
    <${Wrapper} class="row-main" data-control=${row.control.type}
      data-disabled=${isPassive ? undefined : row.enabled === false}>
      ${row.image && html`<${RowPicture} row=${row} />`}
      ${(label !== '' || isPassive) && html`
        <span class="row-label" style=${labelStyle(row)}><${RowText}
          row=${row} text=${label} attributed=${row.attributedLabel} /></span>`}
      ${row.detail && showsDetail && html`<span class="row-detail row-detail-below">${row.detail}</span>`}
      <${Content} row=${row} name=${name} />
      ${row.accessoryView && html`<${InlineView} view=${row.accessoryView} on="cell" name="accessory-view" />`}
    <//>`;
}
