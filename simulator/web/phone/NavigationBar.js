import { html, useContext, useEffect, useLayoutEffect, useRef, useState } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { Picture } from '/images.js';
import { BarGround } from '/phone/BarGround.js';
import { buttonStyle, groundOf, lookOf, offsetStyle, textStyle } from '/phone/barLook.js';
import { InlineView, textOf } from '/phone/views/CustomViews.js';
import { setOnly } from '/phone/look.js';
import { usePress } from '/phone/pressing.js';
import { BackChevron, Plus } from '/phone/symbols.js';
import { SessionContext } from '/session.js';

const systemItems = {
  add: { name: 'Add', symbol: Plus },
  done: { name: 'Done', strong: true },
  save: { name: 'Save', strong: true },
  edit: { name: 'Edit' },
  cancel: { name: 'Cancel' },
  close: { name: 'Close' },
  undo: { name: 'Undo' },
  redo: { name: 'Redo' },
  refresh: { name: 'Refresh' },
  reply: { name: 'Reply' },
  action: { name: 'Share' },
  organize: { name: 'Organize' },
  compose: { name: 'Compose' },
  search: { name: 'Search' },
  trash: { name: 'Delete' },
  camera: { name: 'Camera' },
  bookmarks: { name: 'Bookmarks' },
  stop: { name: 'Stop' },
  play: { name: 'Play' },
  pause: { name: 'Pause' },
  rewind: { name: 'Rewind' },
  fastForward: { name: 'Fast Forward' },
};

/**
 * The bar over a page, `solid` while content lies below it. `heading` receives the title's element, except where a
 * large title is the heading.
 */
export function NavigationBar({ page, solid, large, showTitle, heading }) {
  const title = page.title ?? '';
  const buttons = page.buttons ?? [];
  const bar = page.bar ?? {};
  const look = lookOf(bar, solid);
  const ground = groundOf(look);
  const barButtons = (side) => buttons.filter((button) => (button.side ?? 'right') === side)
    .map((button) => html`<${BarButton} key=${button.id} button=${button} look=${look}
      ground=${ground} barTint=${bar.tintColor} />`);
  const style = setOnly({ '--tint': cssColor(bar.tintColor) });
  const titleStyle = { ...textStyle(look.title), ...offsetStyle(look.titleOffset) };
  const isOwn = Boolean(look.title?.color) || undefined;
  const shownTitle = page.titleView
    ? html`<${InlineView} view=${page.titleView} on=${ground} name="title-view" />`
    : title;
  return html`
    <header class="navigation-bar" style=${style}
      data-interface-style=${styleOver(page, look)}>
      <${BarGround} look=${lookOf(bar, false)} shown=${!solid} lined=${!large} />
      <${BarGround} look=${lookOf(bar, true)} shown=${solid} lined />
      ${page.prompt && html`<div class="bar-prompt" style=${titleStyle}
        data-own-color=${isOwn}>${page.prompt}</div>`}
      <div class="bar-side">
        ${page.back && html`<${BackButton} key=${`${page.back.title} ${title}`} back=${page.back}
          look=${look} barTint=${bar.tintColor} />`}
        ${barButtons('left')}
      </div>
      ${large
        ? html`<div class="bar-title" style=${titleStyle} data-shown=${showTitle} aria-hidden="true"
            data-own-color=${(!page.titleView && isOwn) || undefined}>${shownTitle}</div>`
        : html`<h2 class="bar-title" style=${titleStyle} data-shown="true" ref=${heading} tabindex="-1" data-page-heading
            data-own-color=${(!page.titleView && isOwn) || undefined}
            aria-label=${(page.titleView && textOf(page.titleView)) || title || 'Untitled page'}>${shownTitle}</h2>`}
      <div class="bar-side bar-side-right">
        ${barButtons('right')}
      </div>
    </header>`;
}

/** Light or dark: the bar's own, but legible where the page shows through it. */
function styleOver(page, look) {
  if (page.bar?.interfaceStyle) return page.bar.interfaceStyle;
  return page.interfaceStyle && !look.clear ? 'device' : page.interfaceStyle ?? undefined;
}

/** Shows the title of the page before; where that has no room "Back", and where that has none the arrow alone. */
function BackButton({ back, look, barTint }) {
  const session = useContext(SessionContext);
  const text = useRef(null);
  const texts = [back.title || 'Back', 'Back', ''];
  const [shown, setShown] = useState(0);
  useLayoutEffect(() => {
    if (text.current.scrollWidth > text.current.clientWidth) setShown(shown + 1);
  }, [shown]);
  useEffect(() => {
    const observer = new ResizeObserver(() => setShown(0));
    observer.observe(text.current.closest('.bar-side'));
    return () => observer.disconnect();
  }, []);
  // What is left open of it is as in the other buttons.
  const style = { ...buttonStyle(look.button, null, true), ...buttonStyle(look.backButton, null, true) };
  return html`
    <button type="button" class="back-button" style=${style} data-own-color=${Boolean(style.color || barTint) || undefined}
      onClick=${() => session.tap(back.id)}
      aria-label=${`Back to ${back.title || 'the page before'}`}>
      <${BackChevron} /><span ref=${text} style=${offsetStyle(look.backButton?.offset)}>${texts[shown]}</span>
    </button>`;
}

function BarButton({ button, look, ground, barTint }) {
  const session = useContext(SessionContext);
  const known = systemItems[button.systemItem];
  const name = button.title || known?.name || button.systemItem || 'Button';
  const symbol = !button.title && known?.symbol;
  const isStrong = known?.strong || button.style === 'done';
  const label = button.accessibilityLabel || (button.view && textOf(button.view))
    || (symbol || button.image ? name : undefined);
  const isEnabled = button.enabled !== false;
  const looks = isStrong ? look.doneButton : look.button;
  const style = {
    color: isEnabled ? cssColor(button.tintColor) : undefined,
    width: button.width > 0 ? `${button.width}px` : undefined,
    ...button.view || button.image || symbol ? {} : buttonStyle(looks, button.titleLook, isEnabled),
  };
  const handlers = usePress(
    () => session.tap(button.id), button.menu === 'press' ? () => session.press(button.id) : null);
  const opensMenu = button.menu === 'tap' || button.view?.control?.menu;
  return html`
    <button type="button" class=${isStrong ? 'bar-button bar-button-strong' : 'bar-button'} style=${style}
      data-own-color=${(!button.view && Boolean(style.color || barTint)) || undefined}
      data-identifier=${button.accessibilityIdentifier ?? undefined} disabled=${button.enabled === false}
      data-source=${button.id} aria-label=${label} aria-haspopup=${opensMenu ? 'menu' : undefined} ...${handlers}>
      ${button.view ? html`<${InlineView} view=${button.view} on=${ground} name="bar-view" />`
        : button.image ? html`<${Picture} image=${button.image} />`
        : symbol ? html`<${symbol} />` : html`<span style=${offsetStyle(looks?.offset)}>${name}</span>`}</button>`;
}
