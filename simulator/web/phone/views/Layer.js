import { html } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { Picture } from '/images.js';
import { objectFitOf, placeOf } from '/phone/contentMode.js';
import { layerStyle, setOnly } from '/phone/look.js';

/** What a layer shows behind the view that it belongs to and behind what lies in it. */
export function LayerContent({ view, size }) {
  const { layer } = view;
  if (!layer) return null;
  return html`
    ${layer.shadow?.path && !view.clips && html`<${PathShadow} shadow=${layer.shadow} />`}
    ${layer.contents && html`<${Contents} layer=${layer} size=${size} />`}
    ${layer.shape && html`<${Shape} shape=${layer.shape} origin=${view.boundsOrigin} />`}`;
}

function Contents({ layer, size }) {
  const { image, contentMode } = layer.contents;
  const place = placeOf(contentMode, image, size);
  const round = layerStyle({ ...layer, shadow: null });
  return html`
    <${Picture} class="layer-contents" image=${{ ...image, ...place?.size ?? size }}
      style=${{ objectFit: objectFitOf(contentMode), ...place?.style, ...round }} />`;
}

/** The shadow of a path in place of what the layer shows. */
function PathShadow({ shadow }) {
  const style = {
    opacity: shadow.opacity, filter: `blur(${shadow.radius / 2}px)`,
    transform: `translate(${shadow.x}px, ${shadow.y}px)`,
  };
  return html`
    <svg class="layer-shape" style=${style}><path d=${shadow.path} style=${{ fill: cssColor(shadow.color) }} /></svg>`;
}

function Shape({ shape, origin }) {
  const filled = { fill: cssColor(shape.fillColor) ?? 'none', fillRule: shape.evenOdd ? 'evenodd' : 'nonzero' };
  const stroked = {
    fill: 'none', stroke: cssColor(shape.strokeColor), strokeWidth: shape.lineWidth, strokeLinecap: shape.lineCap,
    strokeLinejoin: shape.lineJoin, strokeMiterlimit: shape.miterLimit,
    ...shape.dashes.length > 0 ? { strokeDasharray: shape.dashes.join(' '), strokeDashoffset: shape.dashPhase } : {},
  };
  const style = setOnly({ transform: origin ? `translate(${-origin[0]}px, ${-origin[1]}px)` : undefined });
  return html`
    <svg class="layer-shape" style=${style}>
      <path d=${shape.path} style=${filled} />
      ${shape.strokeColor && shape.lineWidth > 0 && html`<path d=${shape.strokedPath} style=${stroked} />`}
    </svg>`;
}

const degrees = 180 / Math.PI;

/**
 * The CSS image of a gradient on a layer of `width` by `height`. Its points are parts of the layer, and lines of one
 * colour are stretched with it.
 */
export function gradientImage(gradient, width, height) {
  const { type, stops, start, end } = gradient;
  const list = (place) => stops.map((stop) => `${cssColor(stop.color)} ${place(stop.place)}`).join(', ');
  const share = (place) => `${(place * 100).toFixed(3)}%`;
  const [centreX, centreY] = [start[0] * width, start[1] * height];
  const [acrossX, acrossY] = [(end[0] - start[0]) * width, (end[1] - start[1]) * height];
  if (type === 'radial') {
    const radii = [acrossX, acrossY].map((radius) => `${Math.max(Math.abs(radius), 0.01)}px`).join(' ');
    return `radial-gradient(${radii} at ${centreX}px ${centreY}px, ${list(share)})`;
  }
  if (type === 'conic') {
    const from = Math.atan2(acrossY, acrossX) * degrees + 90;
    return `conic-gradient(from ${from}deg at ${centreX}px ${centreY}px, ${list(share)})`;
  }
  // Across lines of one colour, which are stretched with the layer; how far along that each point lies, in pixels.
  const length = Math.hypot((end[0] - start[0]) * height, (end[1] - start[1]) * width);
  if (!(length > 0)) return undefined;
  const [alongX, alongY] = [(end[0] - start[0]) * height / length, (end[1] - start[1]) * width / length];
  const reach = Math.abs(width * alongX) + Math.abs(height * alongY);
  const along = ([x, y]) => ((x - 0.5) * width * alongX + (y - 0.5) * height * alongY) / reach + 0.5;
  const [from, to] = [along(start), along(end)];
  const colours = list((place) => share(from + (to - from) * place));
  return `linear-gradient(${Math.atan2(alongX, -alongY) * degrees}deg, ${colours})`;
}

/** The styles that put a view where it lies: `[x, y, width, height]` in points, and its transform. */
export function placeStyle(view, shift = [0, 0]) {
  const [x, y, width, height] = view.transform?.rect ?? view.frame;
  const style = { left: `${x - shift[0]}px`, top: `${y - shift[1]}px`, width: `${width}px`, height: `${height}px` };
  if (!view.transform) return style;
  const { matrix, anchor } = view.transform;
  return {
    ...style, transform: `matrix3d(${matrix.join(', ')})`,
    transformOrigin: anchor.map((part) => `${part * 100}%`).join(' '),
  };
}

/** The view with its frame at another place. */
export function movedTo(view, x, y) {
  const [oldX, oldY, width, height] = view.frame;
  const { transform } = view;
  const rect = transform && [transform.rect[0] + x - oldX, transform.rect[1] + y - oldY, ...transform.rect.slice(2)];
  return { ...view, frame: [x, y, width, height], transform: transform && { ...transform, rect } };
}
