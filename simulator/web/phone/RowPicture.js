import { html } from 'htm/preact/standalone';
import { Picture } from '/images.js';
import { objectFitOf, placeOf } from '/phone/contentMode.js';
import { imageSizeOf } from '/phone/layout.js';
import { borderStyle, layerStyle, shadowFilter } from '/phone/look.js';

/** The image of a row's standard image view. */
export function RowPicture({ row }) {
  const { image, imageStyle } = row;
  const size = imageSizeOf(row);
  const place = placeOf(imageStyle?.contentMode, image, size);
  const picture = (style, name) => html`
    <${Picture} class=${name} image=${{ ...image, ...place?.size ?? size }}
      style=${{ objectFit: objectFitOf(imageStyle?.contentMode), ...place?.style, ...style }} />`;
  const shadow = { filter: shadowFilter(imageStyle?.shadow) };
  if (!imageStyle?.layer && !place) return picture(shadow, 'row-picture');
  const frame = { width: `${size.width}px`, height: `${size.height}px` };
  return html`
    <span class="row-picture" style=${{ ...frame, ...layerStyle(imageStyle.layer, imageStyle.clips) }}>
      ${picture({ display: 'block', ...imageStyle.layer ? {} : shadow })}
      <${Border} layer=${imageStyle.layer} />
    </span>`;
}

/** The border of a layer, over what the element that it stands in holds. */
export function Border({ layer }) {
  const style = borderStyle(layer);
  return style && html`<span class="layer-border" style=${style}></span>`;
}
