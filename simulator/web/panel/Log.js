import { html, useLayoutEffect, useRef } from '/modules/htm-preact.mjs';
import { Card } from '/panel/Card.js';

const shownLines = 500;

/** The device's log. It follows the newest line for as long as the user has not scrolled away from it. */
export function Log({ lines }) {
  const list = useRef(null);
  const follows = useRef(true);
  const shown = lines.slice(-shownLines);
  useLayoutEffect(() => {
    if (list.current && follows.current) list.current.scrollTop = list.current.scrollHeight;
  }, [lines]);
  const onScroll = ({ currentTarget }) => {
    const { scrollTop, scrollHeight, clientHeight } = currentTarget;
    follows.current = scrollHeight - scrollTop - clientHeight < 30;
  };
  return html`
    <${Card} title="Log" note=${lines.length > shownLines ? `last ${shownLines} lines` : ''}>
      ${shown.length === 0
        ? html`<p class="card-none">Nothing was logged yet</p>`
        : html`
          <div class="log" ref=${list} tabindex="0" role="log" aria-label="Log" onScroll=${onScroll}>
            ${shown.map((line, at) => html`
              <div class="log-line" key=${lines.length - shown.length + at}>${line}</div>`)}
          </div>`}
    <//>`;
}
