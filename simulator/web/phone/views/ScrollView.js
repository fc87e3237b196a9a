import { html } from 'htm/preact/standalone';

/** The content of a scroll view, which a finger moves where there is more of it than room. */
export function ScrollView({ view, children }) {
  const [width, height] = view.contentSize;
  const [top, left, bottom, right] = view.adjustedContentInset ?? view.contentInset;
  const content = {
    width: `${width + left + right}px`, height: `${height + top + bottom}px`, paddingTop: `${top}px`,
    paddingLeft: `${left}px`,
  };
  return html`
    <span class="scroll-view" data-scrolls=${view.scrolls}>
      <span class="scroll-content" style=${content}><span class="scroll-origin">${children}</span></span>
    </span>`;
}
