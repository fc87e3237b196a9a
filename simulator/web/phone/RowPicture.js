import { html } from '/modules/htm-preact.mjs';
import { cssColor } from '/colors.js';
import { Picture } from '/images.js';
import { imageSizeOf } from '/phone/layout.js';

const objectFits = { scaleToFill: 'fill', scaleAspectFit: 'contain', scaleAspectFill: 'cover', center: 'none' };

export function objectFitOf(contentMode) {
  return objectFits[contentMode] ?? 'fill';
}

/** The CSS filter for a layer's shadow, which follows what the picture does not leave transparent. */
export function shadowFilter(shadow) {
  if (!shadow || !(shadow.opacity > 0)) return undefined;
  const color = `color-mix(in srgb, ${cssColor(shadow.color) ?? '#000'} ${shadow.opacity * 100}%, transparent)`;
  return `drop-shadow(${shadow.x ?? 0}px ${shadow.y ?? 0}px ${(shadow.radius ?? 0) / 2}px ${color})`;
}

/** The image of a row's standard image view. */
export function RowPicture({ row }) {
  const { image, imageStyle } = row;
  return html`
    <${Picture} class="row-picture" image=${{ ...image, ...imageSizeOf(row) }}
      style=${{ filter: shadowFilter(imageStyle?.shadow), objectFit: objectFitOf(imageStyle?.contentMode) }} />`;
}
