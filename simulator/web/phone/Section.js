import { html, useEffect, useLayoutEffect, useMemo, useRef, useState } from 'htm/preact/standalone';
import { CustomViews } from '/phone/views/CustomViews.js';
import { dragLayout, rowAt, topsOf } from '/phone/layout.js';
import { pixelsPerPoint } from '/phone/points.js';
import { useDescribedRows, useKnownRows } from '/phone/outlines.js';
import { Row, rowStyle } from '/phone/Row.js';

// Sections with more rows than this are drawn only where they can be seen.
const drawnWhole = 60;
const overscan = 800;
const stepOfRange = 8;

/** One section: its header, its list of rows, its footer. */
export function Section({
  section, number, scroller, active, reordering, restoreFocus, openSwipe, setOpenSwipe,
}) {
  const rows = useKnownRows(section.rows, active);
  const list = useRef(null);
  const tops = useMemo(() => topsOf(rows), [rows]);
  const { first, last, isNear } = useVisibleRange(list, scroller, rows, tops);
  const { drag } = reordering;
  const { offset, total } = dragLayout(number, tops, drag);
  useDescribedRows({ rows: section.rows, section: number, first, last, isNear, active });
  useLayoutEffect(restoreFocus);
  const headerId = `header-${number}`;
  const isChoice = rows.some((row) => row.accessory === 'checkmark');

  const indexes = [];
  for (let at = first; at <= last && at < rows.length; at += 1) indexes.push(at);
  const dragged = drag?.from.section === number ? drag.from.row : null;
  for (const kept of [active, dragged]) {
    if (kept !== null && kept < rows.length && !indexes.includes(kept)) indexes.push(kept);
  }
  indexes.sort((one, other) => one - other);

  // The list items are elements here, not components, because then those that stay are not taken out when others go.
  const item = (at) => html`
    <li class="row" key=${rows[at].id} data-section=${number} data-row=${at} data-id=${rows[at].id}
      data-hidden=${at === dragged} data-first=${at === 0} data-last=${at === rows.length - 1}
      data-custom=${rows[at].views?.length > 0} data-touch=${rows[at].touchable ? rows[at].id : undefined}
      data-dragged=${rows[at].dragged || undefined} data-menu=${rows[at].contextMenu ? rows[at].id : undefined}
      data-swipe=${openSwipe === rows[at].id ? 'open' : 'closed'} aria-setsize=${rows.length} aria-posinset=${at + 1}
      style=${rowStyle(rows[at], tops[at] + offset(at))}>
      ${!rows[at].outline && html`
        <${Row} row=${rows[at]} section=${number} index=${at} header=${section.header} isChoice=${isChoice}
          reordering=${reordering} swipeOpen=${openSwipe === rows[at].id}
          setSwipeOpen=${(open) => setOpenSwipe(rows[at].id, open)} />`}
    </li>`;

  return html`
    <div class="section" role=${section.header ? 'group' : undefined}
      aria-labelledby=${section.header ? headerId : undefined}>
      ${section.headerView
        ? html`<${SectionView} view=${section.headerView} height=${section.headerHeight} />`
        : section.header
          ? html`<h3 class="section-slot section-header" id=${headerId} style=${slotOf(section.headerHeight)}>
              ${section.header}</h3>`
          : html`<div class="section-slot" style=${slotOf(section.headerHeight)}></div>`}
      ${rows.length === 0
        ? html`<div class="rows-empty" data-list=${number} style=${{ height: `${total}px` }}></div>`
        : html`
          <ul class="rows" role="list" ref=${list} data-list=${number} style=${{ height: `${total}px` }}>
            ${indexes.map(item)}
          </ul>`}
      ${section.footerView
        ? html`<${SectionView} view=${section.footerView} height=${section.footerHeight} />`
        : section.footer
          ? html`<p class="section-slot section-footer" style=${slotOf(section.footerHeight)}>${section.footer}</p>`
          : html`<div class="section-slot" style=${slotOf(section.footerHeight)}></div>`}
    </div>`;
}

/** Style of what lies above or below the rows; the simulator's own pages leave the height to the style sheet. */
function slotOf(height) {
  return Number.isFinite(height) ? { '--slot': `${height}px`, minHeight: `${height}px` } : undefined;
}

/** A view in place of a header's or footer's text. It may be higher than the space that it gets, as on the device. */
function SectionView({ view, height }) {
  const [x, , width, ownHeight] = view.frame;
  return html`
    <div class="section-view" style=${{ height: `${height ?? ownHeight}px` }}>
      <${CustomViews} views=${[{ ...view, frame: [x, 0, width, ownHeight] }]} on="page" />
    </div>`;
}

/** First and last row to draw, as the list lies in its scroller, and whether the list comes near what can be seen. */
function useVisibleRange(list, scroller, rows, tops) {
  const count = rows.length;
  const whole = useMemo(() => count <= drawnWhole && !rows.some(({ outline }) => outline), [rows]);
  const [range, setRange] = useState({ first: 0, last: drawnWhole, isNear: false });

  const measure = () => {
    if (!list.current || !scroller.current) return;
    const view = scroller.current.getBoundingClientRect();
    const scale = pixelsPerPoint(scroller.current);
    const top = (view.top - list.current.getBoundingClientRect().top) / scale - overscan;
    const bottom = top + view.height / scale + 2 * overscan;
    const [above, below] = [rowAt(tops, top), rowAt(tops, bottom)];
    const next = {
      first: above - (above % stepOfRange), last: below + stepOfRange - (below % stepOfRange),
      isNear: bottom > 0 && top < tops[count],
    };
    setRange((now) => (Object.keys(next).every((name) => next[name] === now[name]) ? now : next));
  };

  useLayoutEffect(() => {
    if (!whole) measure();
  }, [whole, tops]);
  useEffect(() => {
    if (whole) return undefined;
    const node = scroller.current;
    const observer = new ResizeObserver(measure);
    observer.observe(node);
    node.addEventListener('scroll', measure, { passive: true });
    return () => {
      observer.disconnect();
      node.removeEventListener('scroll', measure);
    };
  }, [whole, tops]);

  return whole ? { first: 0, last: count - 1, isNear: true } : range;
}
