// Where rows lie. All lengths are points; a row's place is counted from the top of its section's list.

const standardHeight = 44;

export function heightOf(row) {
  return row.height > 0 ? row.height : standardHeight;
}

/** Size of a row's image: as it is, or as large as fits the height of the row. Null without an image. */
export function imageSizeOf(row) {
  if (!row.image) return null;
  const { width, height } = row.image;
  const scale = Math.min(1, heightOf(row) / height);
  return { width: width * scale, height: height * scale };
}

/** Tops of all rows, and after them the height of the list. */
export function topsOf(rows) {
  const tops = new Float64Array(rows.length + 1);
  for (let at = 0; at < rows.length; at += 1) tops[at + 1] = tops[at] + heightOf(rows[at]);
  return tops;
}

/** Index of the last row that begins at or above `y`, within [0, rows - 1]. */
export function rowAt(tops, y) {
  let low = 0;
  let high = tops.length - 2;
  while (low < high) {
    const middle = Math.ceil((low + high) / 2);
    if (tops[middle] <= y) low = middle;
    else high = middle - 1;
  }
  return low;
}

/**
 * How far each row is moved aside while a row of `height` is dragged from `from` to `to` (`{section, row}` each, the
 * destination counted without the dragged row). `offset(row)` is for rows of `section` other than the dragged one.
 */
export function dragLayout(section, tops, drag) {
  const total = tops[tops.length - 1];
  if (!drag) return { offset: () => 0, total };
  const { from, to, height } = drag;
  const leaves = from.section === section;
  const enters = to.section === section;
  // The row of this list, counted as it stands, before which the gap opens.
  const opening = leaves && to.row >= from.row ? to.row + 1 : to.row;
  const offset = (row) =>
    (leaves && row > from.row ? -height : 0) + (enters && row >= opening ? height : 0);
  return { offset, total: total - (leaves ? height : 0) + (enters ? height : 0) };
}

/**
 * The destination `to` whose place (`top`) is nearest to a dragged row whose top is at `y`.
 *
 * `lists` are the sections' lists as they stood when the drag began: `{top, tops}`.
 */
export function nearestDestination(lists, from, y) {
  const source = lists[from.section];
  const height = source.tops[from.row + 1] - source.tops[from.row];
  let best = { distance: Infinity };
  lists.forEach((list, section) => {
    const isSource = section === from.section;
    const shift = section > from.section ? -height : 0;
    const count = list.tops.length - 1 - (isSource ? 1 : 0);
    // Place of the n-th slot, counted without the dragged row.
    const slot = (n) => list.top + shift + (isSource && n > from.row ? list.tops[n + 1] - height : list.tops[n]);
    let low = 0;
    let high = count;
    while (low < high) {
      const middle = Math.ceil((low + high) / 2);
      if (slot(middle) <= y) low = middle;
      else high = middle - 1;
    }
    for (const row of [low, Math.min(low + 1, count)]) {
      const distance = Math.abs(slot(row) - y);
      if (distance < best.distance) best = { distance, section, row, top: slot(row) };
    }
  });
  return { to: { section: best.section, row: best.row }, top: best.top };
}
