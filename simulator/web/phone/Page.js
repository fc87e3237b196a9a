import { html, useContext, useEffect, useLayoutEffect, useRef, useState } from 'htm/preact/standalone';
import { displayIn, isShallow } from '/display.js';
import { cssColor, pairOf } from '/colors.js';
import { CustomViews } from '/phone/views/CustomViews.js';
import { controlOf, rowCanFocus } from '/phone/controls/controls.js';
import { groundColor, lineColor } from '/phone/BarGround.js';
import { lookOf, textStyle } from '/phone/barLook.js';
import { movedTo } from '/phone/views/Layer.js';
import { setOnly } from '/phone/look.js';
import { NavigationBar } from '/phone/NavigationBar.js';
import { useScrolling } from '/phone/scrolling.js';
import { Table } from '/phone/Table.js';
import { useTouches } from '/phone/touches.js';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';

/**
 * One page of the navigation stack.
 *
 * `place` says where a page that comes back was left (`{scrollTop, scrolling, section, row, id}`); `onLeave` hears it.
 * `takesFocus`: the focus was in the page before, and this one takes it over.
 */
export function Page({ screen, leaving, place, takesFocus, onLeave }) {
  const { page } = screen;
  const scroller = useRef(null);
  const heading = useRef(null);
  const active = useRef({ section: place?.section ?? 0, row: place?.row ?? null, id: place?.id ?? null });
  const [scrolled, setScrolled] = useState({ bar: false, title: false });
  const session = useContext(SessionContext);
  const shallow = useStore(session.store, (state) => isShallow(displayIn(state)));
  const isBarHidden = Boolean(page.bar?.hidden || page.search?.coversBar);
  const large = (page.largeTitle ?? !page.back) && !shallow && !isBarHidden;

  // A page without a table is scrolled by a view in it, if at all.
  const follow = (event) => {
    const top = (event?.target.matches('.page-view .scroll-view') ? event.target : scroller.current).scrollTop;
    const next = { bar: top > (large ? 44 : 2), title: top > 34 };
    setScrolled((last) => (last.bar === next.bar && last.title === next.title ? last : next));
  };

  useLayoutEffect(() => {
    if (place) scroller.current.scrollTop = place.scrollTop;
    follow();
  }, []);
  useScrolling(scroller, leaving ? null : page.scrolling, screen.contentOffset, place?.scrolling);
  useEffect(() => {
    if (takesFocus && active.current.row === null) heading.current?.focus({ preventScroll: true });
  }, []);
  // What the page was left like has to be read while it still stands.
  useLayoutEffect(() => {
    if (leaving) onLeave({ scrollTop: scroller.current.scrollTop, scrolling: page.scrolling, ...active.current });
  }, [leaving]);

  const touches = useTouches(session);
  const title = page.title ?? '';
  const edge = lookOf(page.bar, false);
  // What stands under the bar belongs to it until it is scrolled away.
  const edgeStyle = edge.color ? { background: groundColor(edge) } : {};
  const titleEdge = edge.clear ? 'transparent' : lineColor(edge);
  const ground = page.backgroundColor ? pairOf(page.backgroundColor) : 'page';
  const [insetTop, insetBottom] = page.contentInset ?? [0, 0];
  const style = setOnly({
    backgroundColor: cssColor(page.backgroundColor), '--separator': cssColor(page.separatorColor),
    '--inset-top': `${insetTop}px`, '--inset-bottom': `${insetBottom}px`,
  });
  return html`
    <div class=${`page page-${page.style ?? 'insetGrouped'}`} data-leaving=${leaving} inert=${leaving}
      data-prompt=${Boolean(page.prompt)} data-bar=${isBarHidden ? 'hidden' : 'shown'}
      data-under-bar=${Boolean(page.underBar && !large && !page.search)}
      data-separators=${String(page.separators !== false)} data-interface-style=${page.interfaceStyle ?? undefined}
      style=${style} aria-hidden=${leaving ? 'true' : undefined}
      ...${touches}>
      ${page.backgroundView && html`<${CustomViews} views=${[page.backgroundView]} on="page" />`}
      <${NavigationBar} page=${page} solid=${scrolled.bar} large=${large} showTitle=${!large || scrolled.title}
        heading=${large || page.search?.coversBar ? null : heading} />
      ${scrollsToTop(page) && html`<div class="status-tap" onClick=${() => session.scrollToTop()}></div>`}
      <div class="scroller" data-followed=${page.scrolling?.followed || undefined} ref=${scroller} onScrollCapture=${follow} data-touch=${page.touchId ?? undefined}
        data-scrolls=${String(page.scrolls !== false)} tabindex=${hasStops(page) ? undefined : 0}
        role=${hasStops(page) ? undefined : 'region'} aria-label=${hasStops(page) ? undefined : title}>
        ${page.search?.coversBar && html`<h2 class="visually-hidden" ref=${heading} tabindex="-1"
          data-page-heading>${title || 'Untitled page'}</h2>`}
        ${large && html`<h2 class="large-title" ref=${heading} tabindex="-1" data-page-heading
          data-own-color=${Boolean(edge.largeTitle?.color) || undefined}
          style=${setOnly({
            ...textStyle(edge.largeTitle), ...edgeStyle, '--title-edge': titleEdge,
          })}>${title}</h2>`}
        ${page.search && html`<${Search} search=${page.search} style=${edgeStyle} />`}
        ${page.headerView && html`<${TableView} view=${page.headerView} ground=${ground} />`}
        ${page.view && html`
          <div class="section-view page-view" style=${{ height: `${page.view.frame[1] + page.view.frame[3]}px` }}>
            <${CustomViews} views=${[page.view]} on="page" />
          </div>`}
        <${Table} page=${page} scroller=${scroller} active=${active} takesFocus=${takesFocus && place !== null} />
        ${page.footerView && html`<${TableView} view=${page.footerView} ground=${ground} />`}
      </div>
    </div>`;
}

/** The bar to search the page by. What it obscures ends the search when it is touched. */
function Search({ search, style }) {
  const session = useContext(SessionContext);
  const { bar, scrolls, obscures } = search;
  const { Content } = controlOf(bar.control);
  return html`
    <div class="page-search" data-scrolls=${scrolls} style=${style}>
      <${Content} row=${bar} name=${bar.accessibilityLabel || bar.control.placeholder || 'Search'} />
    </div>
    ${obscures && html`
      <div class="page-obscured" onClick=${() => session.set(bar.id, null)}></div>`}`;
}

/** A view above or below all sections. */
function TableView({ view, ground }) {
  const [x, , , height] = view.frame;
  return html`
    <div class="section-view" style=${{ height: `${height}px` }}>
      <${CustomViews} views=${[movedTo(view, x, 0)]} on=${ground} />
    </div>`;
}

/** Whether the Tab key stops anywhere in the page's table; else the table itself has to be a stop to be scrolled. */
function hasStops(page) {
  return page.sections.some(({ rows }) => rows.some(rowCanFocus));
}

/** Whether there is anything on the page that a tap on the status bar could bring back to its top. */
function scrollsToTop({ scrolling, view }) {
  const scrollsIn = (each) => Boolean(each.scrolling) || (each.views ?? []).some(scrollsIn);
  return scrolling ? true : Boolean(view && scrollsIn(view));
}
