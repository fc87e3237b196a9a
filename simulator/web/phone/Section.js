import { html, useEffect, useLayoutEffect, useMemo, useRef, useState } from '/modules/htm-preact.mjs';
import { CustomViews } from '/phone/CustomViews.js';
import { dragLayout, rowAt, topsOf } from '/phone/layout.js';
import { pixelsPerPoint } from '/phone/points.js';
import { Row, rowStyle } from '/phone/Row.js';
import { identityOf } from '/targets.js';

// Sections with more rows than this are drawn only where they can be seen.
const drawnWhole = 60;
const overscan = 800;
const stepOfRange = 8;

/** One section: its header, its list of rows, its footer. */
export function Section({
  section, number, scroller, active, reordering, restoreFocus, openSwipe, setOpenSwipe,
}) {
  const { rows } = section;
  const list = useRef(null);
  const tops = useMemo(() => topsOf(rows), [rows]);
  const keys = useMemo(() => keysOf(rows), [rows]);
  const [first, last] = useVisibleRange(list, scroller, tops);
  const { drag } = reordering;
  const { offset, total } = dragLayout(number, tops, drag);
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
    <li class="row" key=${keys[at]} data-section=${number} data-row=${at} data-hidden=${at === dragged}
      data-first=${at === 0} data-last=${at === rows.length - 1} data-custom=${rows[at].views?.length > 0}
      data-swipe=${openSwipe === at ? 'open' : 'closed'} aria-setsize=${rows.length} aria-posinset=${at + 1}
      style=${rowStyle(rows[at], tops[at] + offset(at))}>
      <${Row} row=${rows[at]} section=${number} index=${at} header=${section.header} isChoice=${isChoice}
        reordering=${reordering} swipeOpen=${openSwipe === at}
        setSwipeOpen=${(open) => setOpenSwipe(open ? at : null)} />
    </li>`;

  return html`
    <div class="section" role=${section.header ? 'group' : undefined}
      aria-labelledby=${section.header ? headerId : undefined}>
      ${section.headerView
        ? html`<${SectionView} view=${section.headerView} />`
        : section.header
          ? html`<h3 class="section-header" id=${headerId}>${section.header}</h3>`
          : html`<div class="section-gap"></div>`}
      ${rows.length === 0
        ? html`<div class="rows-empty" data-list=${number} style=${{ height: `${total}px` }}></div>`
        : html`
          <ul class="rows" role="list" ref=${list} data-list=${number} style=${{ height: `${total}px` }}>
            ${indexes.map(item)}
          </ul>`}
      ${section.footerView
        ? html`<${SectionView} view=${section.footerView} />`
        : section.footer && html`<p class="section-footer">${section.footer}</p>`}
    </div>`;
}

/** A view in place of a header's or footer's text. Where it lies in the table is the list's matter. */
function SectionView({ view }) {
  const [x, , width, height] = view.frame;
  return html`
    <div class="section-view" style=${{ height: `${height}px` }}>
      <${CustomViews} views=${[{ ...view, frame: [x, 0, width, height] }]} on="page" />
    </div>`;
}

/** A key for each row that follows the row when the rows are put in another order. */
function keysOf(rows) {
  const seen = new Map();
  return rows.map((row) => {
    const identity = identityOf(row);
    const count = seen.get(identity) ?? 0;
    seen.set(identity, count + 1);
    return `${identity} ${count}`;
  });
}

/** First and last row to draw, as the list lies in its scroller. */
function useVisibleRange(list, scroller, tops) {
  const count = tops.length - 1;
  const whole = count <= drawnWhole;
  const [range, setRange] = useState([0, drawnWhole]);

  const measure = () => {
    if (!list.current || !scroller.current) return;
    const view = scroller.current.getBoundingClientRect();
    const scale = pixelsPerPoint(scroller.current);
    const above = (view.top - list.current.getBoundingClientRect().top) / scale;
    const first = rowAt(tops, above - overscan);
    const last = rowAt(tops, above + view.height / scale + overscan);
    const next = [first - (first % stepOfRange), last + stepOfRange - (last % stepOfRange)];
    setRange((now) => (now[0] === next[0] && now[1] === next[1] ? now : next));
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

  return whole ? [0, count - 1] : range;
}
