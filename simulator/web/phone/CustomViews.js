import { html } from '/modules/htm-preact.mjs';
import { cssColor, cssTextColor, paintedOver } from '/colors.js';
import { Picture } from '/images.js';
import { objectFitOf } from '/phone/RowPicture.js';
import { cellBackground, pageBackground } from '/phone/surfaces.js';

const largeText = 24;
const alignments = { center: 'center', right: 'right', justified: 'justify' };

/** Views with frames of their own, in points from the top left corner. `on`, "cell" or "page", is what they lie on. */
export function CustomViews({ views, on }) {
  const background = on === 'cell' ? cellBackground : pageBackground;
  return html`
    <span class="views">
      ${views.map((view, at) => html`<${View} key=${at} view=${view} background=${background} />`)}
    </span>`;
}

function View({ view, background }) {
  if (view.hidden) return null;
  const [x, y, width, height] = view.frame;
  const below = paintedOver(background, view.backgroundColor);
  const style = {
    left: `${x}px`, top: `${y}px`, width: `${width}px`, height: `${height}px`,
    backgroundColor: cssColor(view.backgroundColor), opacity: view.alpha ?? undefined,
  };
  return html`
    <span class="view" style=${style}>
      ${view.text && html`<${Label} view=${view} background=${below} />`}
      ${view.image && html`
        <${Picture} alt=${view.accessibilityLabel ?? ''} image=${{ ...view.image, width, height }}
          style=${{ objectFit: objectFitOf(view.contentMode) }} />`}
      ${(view.views ?? []).map((child, at) => html`<${View} key=${at} view=${child} background=${below} />`)}
    </span>`;
}

function Label({ view, background }) {
  const size = view.fontSize ?? 17;
  const style = {
    fontSize: `${size}px`, fontWeight: view.fontWeight ?? undefined, textAlign: alignments[view.alignment],
    color: cssTextColor(view.color, background, size >= largeText),
    whiteSpace: view.lines === 1 ? 'nowrap' : undefined,
  };
  return html`<span class="view-label" style=${style}><span>${view.text}</span></span>`;
}
