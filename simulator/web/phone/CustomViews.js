import { html } from '/modules/htm-preact.mjs';
import { cssColor, cssTextColor, paintedOver } from '/colors.js';
import { Picture } from '/images.js';
import { alignments, layerStyle, objectFitOf, textShadow } from '/phone/look.js';
import { Border } from '/phone/RowPicture.js';
import { cellBackground, pageBackground } from '/phone/surfaces.js';

const largeText = 24;

const grounds = { cell: cellBackground, page: pageBackground };

/**
 * Views with frames of their own, in points from the top left corner. `on` is what they lie on: "cell", "page", or the
 * `{light, dark}` of a colour.
 */
export function CustomViews({ views, on }) {
  const background = grounds[on] ?? on;
  return html`
    <span class="views">
      ${views.map((view, at) => html`<${View} key=${at} view=${view} background=${background} />`)}
    </span>`;
}

/** One view where a line of text or a button would stand, with its own size. */
export function InlineView({ view, on, name }) {
  const [, , width, height] = view.frame;
  return html`
    <span class=${name} style=${{ position: 'relative', flex: 'none', width: `${width}px`, height: `${height}px` }}>
      <${CustomViews} views=${[{ ...view, frame: [0, 0, width, height] }]} on=${on} />
    </span>`;
}

/** All texts in a view, as what names it. */
export function textOf(view) {
  return [view.accessibilityLabel || view.text, ...(view.views ?? []).map(textOf)].filter(Boolean).join(' ');
}

/** `isDepicted`: the view is part of one that is told as a whole, so a picture, and its texts keep their colours. */
function View({ view, background, isDepicted }) {
  if (view.hidden) return null;
  const [x, y, width, height] = view.frame;
  const below = paintedOver(background, view.backgroundColor);
  const style = {
    left: `${x}px`, top: `${y}px`, width: `${width}px`, height: `${height}px`,
    backgroundColor: cssColor(view.backgroundColor), opacity: view.alpha ?? undefined,
    ...layerStyle(view.layer, view.clips),
  };
  const names = namesOf(view);
  const depicts = isDepicted || Boolean(names.role);
  const children = (view.views ?? []).map((child, at) => html`
    <${View} key=${at} view=${child} background=${below} isDepicted=${depicts} />`);
  return html`
    <span class="view" data-identifier=${view.accessibilityIdentifier ?? undefined} style=${style} ...${names}>
      ${view.text && html`<${Label} view=${view} background=${isDepicted ? null : below} />`}
      ${view.image && html`
        <${Picture} alt=${view.isAccessibilityElement ? '' : view.accessibilityLabel ?? ''}
          image=${{ ...view.image, width, height }}
          style=${{ objectFit: objectFitOf(view.contentMode), ...radiusOf(view) }} />`}
      ${view.type === 'scroll' ? html`<${Scrolled} view=${view}>${children}<//>` : children}
      <${Border} layer=${view.layer} />
    </span>`;
}

/** A layer rounds its own contents, so a picture, whether it clips what lies in it or not. */
function radiusOf(view) {
  return layerStyle(view.layer && { ...view.layer, shadow: null });
}

/** What an assistive technology is told of a view that the bundle made an element of its own. */
function namesOf(view) {
  if (!view.isAccessibilityElement || !view.accessibilityLabel) return {};
  const name = [view.accessibilityLabel, view.accessibilityValue].filter(Boolean).join(', ');
  return { role: 'img', 'aria-label': name, 'aria-description': view.accessibilityHint ?? undefined };
}

/** The content of a scroll view, which a finger moves where there is more of it than room. */
function Scrolled({ view, children }) {
  const [width, height] = view.contentSize;
  const [top, left, bottom, right] = view.contentInset;
  const content = {
    width: `${width + left + right}px`, height: `${height + top + bottom}px`, paddingTop: `${top}px`,
    paddingLeft: `${left}px`,
  };
  return html`
    <span class="scroll-view" data-scrolls=${view.scrolls}>
      <span class="scroll-content" style=${content}><span class="scroll-origin">${children}</span></span>
    </span>`;
}

/** `background`: the text's colour is kept legible on it; null leaves the colour as it is. */
function Label({ view, background }) {
  const size = view.fontSize ?? 17;
  const style = {
    fontSize: `${size}px`, fontWeight: view.fontWeight ?? undefined, textAlign: alignments[view.alignment],
    color: background ? cssTextColor(view.color, background, size >= largeText) : cssColor(view.color),
    textShadow: textShadow(view.textShadow),
    whiteSpace: view.lines === 1 ? 'nowrap' : undefined,
  };
  return html`<span class="view-label" style=${style}><span>${view.text}</span></span>`;
}
