import { html, useContext, useEffect, useLayoutEffect, useRef, useState } from 'htm/preact/standalone';
import { rowCanFocus } from '/phone/controls/controls.js';
import { findRow } from '/phone/findRow.js';
import { nextStop } from '/phone/keyboard.js';
import { LiftedRow } from '/phone/LiftedRow.js';
import { useReordering } from '/phone/reordering.js';
import { Section } from '/phone/Section.js';
import { useOpenRow } from '/phone/swiping.js';
import { SessionContext } from '/session.js';

/**
 * The sections of a page.
 *
 * `scroller` refers to the element that scrolls. `active` refers to `{section, row, id}`, the row that last had the
 * focus, or what is in its place when it is gone; `takesFocus`: it gets the focus back when the table appears.
 */
export function Table({ page, scroller, active, takesFocus }) {
  const session = useContext(SessionContext);
  active.current = { ...active.current, ...findRow(page, active.current.id) };
  const [, setActive] = useState(active.current);
  const activeRow = active.current.row === null ? null : active.current;
  const [openSwipe, setOpenSwipe] = useOpenRow(page, session);
  const table = useRef(null);
  const focus = useRef({ held: false, part: 'main', wanted: takesFocus ? 'main' : null }).current;
  const reordering = useReordering({ page, scroller, table, session, focusRow });

  function focusRow(place, part = 'main') {
    focus.wanted = part;
    activate(place);
  }

  function activate(place) {
    active.current = place;
    setActive(place);
  }

  const onFocusIn = (event) => {
    const place = placeOf(event.target);
    focus.held = place !== null;
    focus.part = event.target.closest('[data-part]')?.dataset.part ?? 'main';
    if (place && place.id !== active.current.id) activate(place);
  };
  const onFocusOut = (event) => {
    if (event.relatedTarget) focus.held = table.current.contains(event.relatedTarget);
  };
  useEffect(() => {
    const onPointerDown = () => {
      focus.held = false;
    };
    document.addEventListener('pointerdown', onPointerDown, true);
    return () => document.removeEventListener('pointerdown', onPointerDown, true);
  }, []);

  // An element that is taken out of the document, or moved within it, loses the focus though the user did not move it.
  function restoreFocus() {
    const lost = focus.held && document.activeElement === document.body;
    const part = focus.wanted ?? (lost ? focus.part : null);
    if (part === null || active.current.row === null) return;
    const element = elementOf(table.current, active.current, part);
    if (!element) return;
    focus.wanted = null;
    element.focus({ preventScroll: lost });
  }
  useLayoutEffect(restoreFocus);

  const onKeyDown = (event) => {
    const place = placeOf(event.target);
    if (!place || event.defaultPrevented || event.target.closest('[data-own-keys]')) return;
    const next = nextStop(page, place, event.key, rowCanFocus);
    if (!next) return;
    event.preventDefault();
    focusRow({ ...next, id: page.sections[next.section].rows[next.row].id });
  };

  return html`
    <div class="table" ref=${table} data-reordering=${reordering.drag !== null} onfocusin=${onFocusIn}
      onfocusout=${onFocusOut} onKeyDown=${onKeyDown}>
      ${page.sections.map((section, at) => html`
        <${Section} key=${at} section=${section} number=${at} scroller=${scroller}
          active=${activeRow?.section === at ? activeRow.row : null} reordering=${reordering}
          restoreFocus=${restoreFocus} openSwipe=${openSwipe} setOpenSwipe=${setOpenSwipe} />`)}
      ${reordering.drag && html`<${LiftedRow} row=${reordering.row} drag=${reordering.drag} />`}
    </div>`;
}

function placeOf(element) {
  const { section, row, id } = element.closest('[data-row]')?.dataset ?? {};
  return id ? { section: Number(section), row: Number(row), id } : null;
}

/** The element of a row to focus: the wanted part, or the nearest thing to it in the row or the rows around it. */
function elementOf(table, place, part) {
  if (!place) return null;
  const item = table.querySelector(`[data-section="${place.section}"][data-row="${place.row}"]`);
  return item?.querySelector(`[data-part="${part}"]:not(:disabled)`)
    ?? item?.querySelector('[data-part="main"]:not(:disabled)')
    ?? item?.querySelector('button:not(:disabled), input:not(:disabled), textarea:not(:disabled)')
    ?? null;
}

