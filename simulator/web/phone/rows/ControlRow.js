import { html } from '/modules/htm-preact.mjs';
import { cssColor } from '/colors.js';
import { InlineView } from '/phone/CustomViews.js';
import { RowPicture } from '/phone/RowPicture.js';
import { SegmentedControl } from '/phone/rows/SegmentedControl.js';
import { Slider } from '/phone/rows/Slider.js';
import { Switch } from '/phone/rows/Switch.js';
import { TextField, TextView } from '/phone/rows/TextField.js';

const controls = {
  switch: Switch, slider: Slider, segmented: SegmentedControl,
  text: TextField, secureText: TextField, textView: TextView,
};

/** A row that holds a control. The row's label names the control, or else what is nearest to a label. */
export function ControlRow({ row, header }) {
  const { type } = row.control;
  const label = row.label ?? '';
  const name = row.accessibilityLabel || label || row.control.placeholder || header || row.key || 'Value';
  if (type === 'spinner' || !controls[type]) {
    return html`
      <div class="row-main" data-control=${type}>
        ${row.image && html`<${RowPicture} row=${row} />`}
        <span class="row-label">${label}</span>
        <span class="spinner" role="progressbar" aria-label=${name} style=${{ color: cssColor(row.control.color) }}></span>
      </div>`;
  }
  // A group of radio buttons has no single element that a label could name.
  const Wrapper = type === 'segmented' ? 'div' : 'label';
  return html`
    <${Wrapper} class="row-main" data-control=${type} data-disabled=${row.enabled === false}>
      ${row.image && html`<${RowPicture} row=${row} />`}
      ${label !== '' && html`<span class="row-label">${label}</span>`}
      ${row.detail && type === 'switch' && html`<span class="row-detail row-detail-below">${row.detail}</span>`}
      <${controls[type]} row=${row} name=${name} />
      ${row.accessoryView && html`<${InlineView} view=${row.accessoryView} on="cell" name="accessory-view" />`}
    <//>`;
}
