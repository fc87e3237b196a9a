import { html, useLayoutEffect, useRef } from 'htm/preact/standalone';
import { Card } from '/panel/Card.js';

const shownLines = 500;
// Pixels from the end within which the log counts as scrolled to it.
const nearEnd = 30;

/** The device's log. It follows the newest line for as long as the user has not scrolled away from it. */
export function Log({ lines }) {
  const list = useRef(null);
  const height = useRef(0);
  const shown = lines.slice(-shownLines);
  useLayoutEffect(() => {
    const log = list.current;
    if (!log) return;
    // Where it stands now, not what the last scroll event said: that one may still be on its way.
    if (height.current - log.scrollTop - log.clientHeight < nearEnd) log.scrollTop = log.scrollHeight;
    height.current = log.scrollHeight;
  }, [lines]);
  return html`
    <${Card} title="Log" note=${lines.length > shownLines ? `last ${shownLines} lines` : ''}>
      ${shown.length === 0
        ? html`<p class="card-none">Nothing was logged yet</p>`
        : html`
          <div class="log" ref=${list} tabindex="0" role="log" aria-label="Log">
            ${shown.map((line, at) => html`
              <div class="log-line" key=${lines.length - shown.length + at}>${line}</div>`)}
          </div>`}
    <//>`;
}
