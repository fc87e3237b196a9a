import { html } from 'htm/preact/standalone';
import { Picture } from '/images.js';
import { layerStyle } from '/phone/look.js';
import { objectFitOf, placeOf } from '/phone/contentMode.js';

/** The picture, as its content mode says. */
export function ImageView({ view, children }) {
  if (!view.image) return children;
  const [, , width, height] = view.frame;
  const place = placeOf(view.contentMode, view.image, { width, height });
  const image = { ...view.image, ...place?.size ?? { width, height } };
  // A layer rounds its own contents, so a picture, whether it clips what lies in it or not.
  const round = layerStyle(view.layer && { ...view.layer, shadow: null });
  return html`
    <${Picture} alt=${view.isAccessibilityElement ? '' : view.accessibilityLabel ?? ''} image=${image}
      style=${{ display: 'block', objectFit: objectFitOf(view.contentMode), ...place?.style, ...round }} />
    ${children}`;
}
