// Moving about the rows of a page with the arrow keys.

const pageOfRows = 10;

/** Whether the focus can be on something in `row`; of an outline it is assumed. */
export function rowCanFocus(row) {
  if (row.outline) return true;
  const hasControl = row.control && row.control.type !== 'spinner';
  return row.enabled !== false && Boolean(hasControl || row.selectable || row.canMove || row.swipeActions?.length);
}

/** The row to focus after `key` on `place` (`{section, row}` each), or null when the key does not move the focus. */
export function nextStop(page, place, key) {
  if (key === 'ArrowDown') return search(page, place, 1, 1);
  if (key === 'ArrowUp') return search(page, place, -1, 1);
  if (key === 'PageDown') return search(page, place, 1, pageOfRows);
  if (key === 'PageUp') return search(page, place, -1, pageOfRows);
  if (key === 'Home') return search(page, place, -1, Infinity);
  if (key === 'End') return search(page, place, 1, Infinity);
  return null;
}

/** The `count`-th row from `place` in `direction` that can have the focus, or the last one that there is. */
function search(page, place, direction, count) {
  let { section, row } = place;
  let found = null;
  for (let passed = 0; passed < count;) {
    row += direction;
    while (page.sections[section] && (row < 0 || row >= page.sections[section].rows.length)) {
      section += direction;
      if (page.sections[section]) row = direction > 0 ? 0 : page.sections[section].rows.length - 1;
    }
    const candidate = page.sections[section]?.rows[row];
    if (!candidate) break;
    if (!rowCanFocus(candidate)) continue;
    found = { section, row };
    passed += 1;
  }
  return found;
}
