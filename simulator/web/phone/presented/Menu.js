import { html, useContext, useEffect, useLayoutEffect, useRef, useState } from 'htm/preact/standalone';
import { Picture } from '/images.js';
import { trapTab } from '/phone/focusTrap.js';
import { besideAnchor, placeOfSource } from '/phone/presented/menuPlace.js';
import { Checkmark, Disclosure } from '/phone/symbols.js';
import { SessionContext } from '/session.js';

const checked = { on: 'true', mixed: 'mixed', off: 'false' };

/**
 * A menu beside what it belongs to. A menu that was opened in it covers it, and has a head that closes it. The focus
 * stays in the innermost one: the arrow keys move it about, and open and close menus; Escape closes one after another.
 */
export function Menu({ menu }) {
  const session = useContext(SessionContext);
  const cover = useRef(null);
  const [anchor, setAnchor] = useState(null);
  const { levels } = menu;
  const inner = levels.at(-1);
  const dismiss = () => session.send((screen) => (screen.menu ? { type: 'dismiss' } : null));
  // Of what is open when it comes to that: the key may be pressed again before the first one was answered.
  const close = () => session.send(({ menu: now }) => {
    const last = now?.levels.at(-1);
    return last && (last.id ? { type: 'tap', id: last.id } : { type: 'dismiss' });
  });

  // Before it is drawn: what it belongs to does not move while it is open.
  useLayoutEffect(() => setAnchor(placeOfSource(menu, cover.current.closest('.screen'))), []);
  const open = levels.map(({ id }) => id).join(' ');
  const takeFocus = () => {
    if (cover.current.querySelector('.menu:not([inert])').contains(document.activeElement)) return;
    const items = itemsIn(cover.current);
    (items.find((item) => !item.dataset.head) ?? items[0] ?? cover.current.querySelector('.menu'))?.focus();
  };
  // At once when a menu has closed: the next key may be there already. One that opens can take it when it is placed.
  useLayoutEffect(takeFocus, [open]);
  useEffect(takeFocus, [open, anchor]);

  const onKeyDown = (event) => {
    trapTab(event, cover.current.querySelector('.menu:not([inert])'));
    const items = itemsIn(cover.current);
    const at = items.indexOf(document.activeElement);
    const focused = items[at];
    const moves = {
      ArrowDown: () => items[(at + 1) % items.length]?.focus(),
      ArrowUp: () => items.at(at > 0 ? at - 1 : -1)?.focus(),
      Home: () => items[0]?.focus(),
      End: () => items.at(-1)?.focus(),
      ArrowRight: () => focused?.getAttribute('aria-expanded') === 'false' && focused.click(),
      ArrowLeft: () => inner.id && close(),
      Escape: close,
    };
    if (!moves[event.key]) return;
    event.preventDefault();
    moves[event.key]();
  };
  const onClick = (event) => {
    if (event.target === cover.current) dismiss();
  };
  return html`
    <div class="menu-cover" data-appearance=${menu.appearance} ref=${cover} onClick=${onClick} onKeyDown=${onKeyDown}>
      ${menu.appearance === 'rich' && anchor && html`
        <div class="menu-lifted" style=${Object.fromEntries(
          Object.entries(anchor).map(([name, points]) => [name, `${points}px`]))}></div>`}
      ${levels.map((level, at) => html`
        <${Level} key=${level.id ?? ''} level=${level} anchor=${anchor} depth=${levels.length - 1 - at}
          close=${close} />`)}
    </div>`;
}

function itemsIn(cover) {
  return [...cover.querySelectorAll('.menu:not([inert]) .menu-item:not(:disabled)')];
}

/** `depth`: how many menus lie over this one. */
function Level({ level, anchor, depth, close }) {
  const session = useContext(SessionContext);
  const panel = useRef(null);
  const [place, setPlace] = useState(null);
  const { id, title, groups } = level;
  const shape = groups.map(({ items }) => items.length).join(' ');
  useLayoutEffect(() => {
    if (anchor) setPlace(besideAnchor(anchor, panel.current));
  }, [anchor, shape]);
  const marks = groups.some(({ items }) => items.some(({ state }) => state !== 'off'));
  const style = place
    ? { left: `${place.left}px`, top: `${place.top}px`, maxHeight: `${place.maxHeight}px`, transformOrigin: place.origin }
    : { visibility: 'hidden' };
  return html`
    <div class="menu" role="menu" aria-label=${title || 'Menu'} inert=${depth > 0} data-depth=${Math.min(depth, 2)}
      data-marks=${marks} tabindex="-1" ref=${panel} style=${style}>
      ${id
        ? html`
          <button type="button" class="menu-item menu-head" role="menuitem" aria-expanded="true" data-head="true"
            onClick=${close}><span class="menu-titles">${title}</span><${Disclosure} /></button>`
        : title && html`<div class="menu-title" role="presentation">${title}</div>`}
      ${groups.map((group, at) => html`
        <div class="menu-group" key=${at} role="group" aria-label=${group.title || undefined}>
          ${group.title && html`<div class="menu-title" role="presentation">${group.title}</div>`}
          ${group.items.map((item) => html`
            <${Item} key=${item.id} item=${item} marks=${marks} choose=${() => session.tap(item.id)} />`)}
        </div>`)}
    </div>`;
}

function Item({ item, marks, choose }) {
  const { kind, title, subtitle, image, state, enabled, destructive, discoverabilityTitle } = item;
  if (kind === 'loading') {
    return html`
      <button type="button" class="menu-item" role="menuitem" aria-disabled="true" disabled>
        <span class="menu-titles">Loading…</span><span class="spinner"></span>
      </button>`;
  }
  const checks = marks && kind === 'action';
  return html`
    <button type="button" class="menu-item" role=${checks ? 'menuitemcheckbox' : 'menuitem'}
      aria-checked=${checks ? checked[state] : undefined} aria-expanded=${kind === 'menu' ? 'false' : undefined}
      aria-haspopup=${kind === 'menu' ? 'menu' : undefined} aria-description=${discoverabilityTitle || undefined}
      aria-disabled=${enabled ? undefined : 'true'} data-destructive=${destructive} disabled=${!enabled}
      onClick=${choose}>
      ${marks && html`<span class="menu-mark">
        ${state === 'on' ? html`<${Checkmark} />` : state === 'mixed' ? '–' : ''}</span>`}
      <span class="menu-titles">${title}${subtitle && html`<span class="menu-subtitle">${subtitle}</span>`}</span>
      ${image && html`<span class="menu-picture"><${Picture} image=${image} /></span>`}
      ${kind === 'menu' && html`<${Disclosure} />`}
    </button>`;
}
