import { html, useRef } from 'htm/preact/standalone';
import { useScrolling } from '/phone/scrolling.js';

/** The content of a scroll view, which a finger moves where there is more of it than room. */
export function ScrollView({ view, children }) {
  const [width, height] = view.contentSize;
  const [top, left, bottom, right] = view.adjustedContentInset ?? view.contentInset;
  const element = useRef(null);
  useScrolling(element, view.scrolling, view.contentOffset);
  const content = {
    width: `${width + left + right}px`, height: `${height + top + bottom}px`, paddingTop: `${top}px`,
    paddingLeft: `${left}px`,
  };
  return html`
    <span class="scroll-view" ref=${element} data-scrolls=${view.scrolls} data-paging=${view.paging}
      data-followed=${view.scrolling?.followed || undefined}>
      <span class="scroll-content" style=${content}>
        ${view.paging && html`<${Pages} view=${view} />`}
        <span class="scroll-origin">${children}</span>
      </span>
    </span>`;
}

// Nobody pages through more, whatever size a content says that it has.
const mostPages = 1000;

/** Where content that moves in pages comes to rest: at multiples of the view's own size. */
function Pages({ view }) {
  const [, , width, height] = view.frame;
  const count = (length, page) => Math.min(Math.max(Math.ceil(length / page) || 1, 1), mostPages);
  const columns = count(view.contentSize[0], width);
  const places = Array.from({ length: Math.min(columns * count(view.contentSize[1], height), mostPages) }, (_, at) => ({
    left: `${(at % columns) * width}px`, top: `${Math.floor(at / columns) * height}px`, width: `${width}px`,
    height: `${height}px`,
  }));
  return places.map((place, at) => html`<span class="scroll-page" key=${at} style=${place}></span>`);
}
