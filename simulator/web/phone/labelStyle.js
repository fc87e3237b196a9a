import { inkOf, paintedOver } from '/colors.js';
import { fontStyle } from '/phone/look.js';
import { cellBackground } from '/phone/surfaces.js';

// The system's label, which the style sheet has.
const plainSize = 17;
const plainWeight = 400;

/** What the texts of `row` lie on. */
export const groundOf = (row) => paintedOver(cellBackground, row.backgroundColor);

/**
 * The CSS colour of a text of `row`, legible on it unless it is the bundle's `own`; undefined for a row that is
 * disabled, which has its own.
 */
export function textColorIn(row, color, own) {
  return row.enabled === false ? undefined : inkOf(color, own, groundOf(row));
}

/** The style of the row's label: its colour, and its font where that is not the system's. */
export function labelStyle(row) {
  const isOwnFont = row.style !== 'value2' && (row.labelSize ?? plainSize) !== plainSize;
  const isOwnWeight = (row.labelWeight ?? plainWeight) !== plainWeight;
  return {
    color: textColorIn(row, row.labelColor, row.ownLabelColor), fontSize: isOwnFont ? `${row.labelSize}px` : undefined,
    fontWeight: isOwnWeight ? row.labelWeight : undefined, ...fontStyle(row.labelFamily, row.labelItalic),
  };
}
