import { picker } from '/phone/controls/Picker.js';
import { searchBar } from '/phone/controls/SearchBar.js';
import { segmentedControl } from '/phone/controls/SegmentedControl.js';
import { slider } from '/phone/controls/Slider.js';
import { spinner } from '/phone/controls/Spinner.js';
import { stepper } from '/phone/controls/Stepper.js';
import { switchControl } from '/phone/controls/Switch.js';
import { textField } from '/phone/controls/TextField.js';
import { textView } from '/phone/controls/TextView.js';

/**
 * The controls by their `type`. `Content` is given `{row, name}`, the name for assistive technologies. `isGroup`: it
 * has no single element that a label could name. `showsDetail`: the row's detail stands beside it. `isPassive`: it
 * takes no input.
 */
const controls = {
  switch: switchControl, slider, segmented: segmentedControl, text: textField, secureText: textField, textView, spinner,
  stepper, search: searchBar, picker,
};

/** One that is not known is shown as something under way. */
export function controlOf({ type }) {
  return controls[type] ?? spinner;
}

/** Whether the focus can be on something in `row`; of an outline it is assumed. */
export function rowCanFocus(row) {
  if (row.outline) return true;
  const hasControl = row.control && !controlOf(row.control).isPassive;
  return row.enabled !== false && Boolean(hasControl || row.selectable || row.canMove || row.swipeActions?.length);
}
