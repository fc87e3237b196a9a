// Long lists: the screen describes the rows around the device's scroll position, and of the others has an outline.

import { useContext, useEffect, useMemo, useRef } from 'htm/preact/standalone';
import { SessionContext } from '/session.js';

// Milliseconds in which a list that is being scrolled does not ask again.
const pause = 50;

/** The rows, in which the `active` one stays as it was last described: an element must not vanish under the focus. */
export function useKnownRows(rows, active) {
  const known = useRef(null);
  return useMemo(() => {
    const row = active === null ? undefined : rows[active];
    if (!row) known.current = null;
    else if (!row.outline) known.current = row;
    else if (known.current?.id === row.id) return rows.with(active, known.current);
    return rows;
  }, [rows, active]);
}

/**
 * Asks for what the user comes to see: the rows from `first` to `last` when the list `isNear` the screen, or the row
 * `active` that the focus goes to.
 *
 * The position is the device's, which other pages in other windows follow too. So that two windows never pull it to and
 * fro, one that does not have the focus asks only when it was scrolled itself.
 */
export function useDescribedRows({ rows, section, first, last, isNear, active }) {
  const session = useContext(SessionContext);
  const asked = useRef('');
  useEffect(() => {
    if (!isNear || !rows.slice(first, last + 1).some(({ outline }) => outline)) return undefined;
    const range = `${first} ${last}`;
    if (asked.current === range && !document.hasFocus()) return undefined;
    const timer = setTimeout(() => {
      asked.current = range;
      session.reveal(section, Math.min(Math.floor((first + last) / 2), rows.length - 1));
    }, pause);
    return () => clearTimeout(timer);
  }, [rows, first, last, isNear]);
  useEffect(() => {
    if (active !== null && rows[active]?.outline) session.reveal(section, active);
  }, [active]);
}
