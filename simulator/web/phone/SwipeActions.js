import { html, useContext, useEffect, useLayoutEffect, useRef } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { Picture } from '/images.js';
import { More } from '/phone/symbols.js';
import { SessionContext } from '/session.js';

/** The actions behind a row. The first action lies at the edge of the screen, as it does on a phone. */
export function SwipeActions({ row, actions, focus }) {
  const session = useContext(SessionContext);
  const group = useRef(null);
  const first = useRef(null);
  useLayoutEffect(() => {
    group.current.parentElement.style.setProperty('--actions-width', `${group.current.offsetWidth}px`);
  }, [actions]);
  useEffect(() => {
    if (focus) first.current?.focus({ preventScroll: true });
  }, [focus]);

  return html`
    <div class="swipe-actions" ref=${group} role="group" aria-label=${`Actions for ${row.label || 'this row'}`}>
      ${actions.map((action, at) => html`
        <button type="button" key=${action.id} ref=${at === 0 ? first : undefined} class="swipe-action"
          style=${{ '--action-color': cssColor(action.color) }} onClick=${() => session.tap(action.id)}>
          ${action.image && html`<${Picture} class="swipe-image" image=${action.image} />`}${action.title}
        </button>`)}
    </div>`;
}

/** Opens a row's swipe actions for those who cannot or do not want to swipe. */
export function SwipeMenuButton({ row, open, setOpen }) {
  return html`
    <button type="button" class="swipe-menu" data-part="menu" aria-expanded=${open ? 'true' : 'false'}
      aria-label=${`Actions for ${row.label || 'this row'}`} onClick=${() => setOpen(!open)}><${More} /></button>`;
}
