// Moving about the rows of a page with the arrow keys.

const pageOfRows = 10;
/** Direction and number of rows. */
const moves = {
  ArrowDown: [1, 1], ArrowUp: [-1, 1], PageDown: [1, pageOfRows], PageUp: [-1, pageOfRows], Home: [-1, Infinity],
  End: [1, Infinity],
};

/**
 * The row to focus after `key` on `place` (`{section, row}` each), or null when the key does not move the focus.
 * `canFocus` says of a row whether the focus can be on something in it.
 */
export function nextStop(page, place, key, canFocus) {
  const [direction, count] = moves[key] ?? [];
  return direction ? search(page, place, direction, count, canFocus) : null;
}

/** The `count`-th row from `place` in `direction` that can have the focus, or the last one that there is. */
function search(page, place, direction, count, canFocus) {
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
    if (!canFocus(candidate)) continue;
    found = { section, row };
    passed += 1;
  }
  return found;
}
