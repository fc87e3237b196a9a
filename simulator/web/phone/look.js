// What views and their layers look like, as styles.
import { cssColor } from '/colors.js';

const corners = {
  topLeft: 'borderTopLeftRadius', topRight: 'borderTopRightRadius',
  bottomRight: 'borderBottomRightRadius', bottomLeft: 'borderBottomLeftRadius',
};

/** Points from which on a text counts as large, so that less contrast keeps it legible. */
export const largeText = 24;

export const alignments = { center: 'center', right: 'right', justified: 'justify' };

/** `style` without what is not set: the browser would take it for a value of a custom property. */
export function setOnly(style) {
  return Object.fromEntries(Object.entries(style).filter(([, value]) => value !== undefined));
}

/**
 * The CSS filter for a layer's shadow, which follows what the picture does not leave transparent. A shadow with a path
 * of its own has none.
 */
export function shadowFilter(shadow) {
  if (!shadow || !(shadow.opacity > 0) || shadow.path) return undefined;
  const color = `color-mix(in srgb, ${cssColor(shadow.color) ?? '#000'} ${shadow.opacity * 100}%, transparent)`;
  return `drop-shadow(${shadow.x ?? 0}px ${shadow.y ?? 0}px ${(shadow.radius ?? 0) / 2}px ${color})`;
}

/**
 * The styles of a layer: rounded corners, a border inside of the edges, a shadow. `clips`: what lies outside of the
 * layer, or of its round corners, is not drawn; nor is then its shadow.
 */
export function layerStyle(layer, clips) {
  const style = clips ? { overflow: 'hidden' } : {};
  if (!layer) return style;
  for (const corner of layer.cornerRadius > 0 ? layer.corners : []) style[corners[corner]] = `${layer.cornerRadius}px`;
  if (!clips) style.filter = shadowFilter(layer.shadow);
  return style;
}

/** The style of an element that lies over the whole layer and draws its border; undefined without one. */
export function borderStyle(layer) {
  if (!(layer?.borderWidth > 0) || !layer.borderColor) return undefined;
  const boxShadow = `inset 0 0 0 ${layer.borderWidth}px ${cssColor(layer.borderColor)}`;
  return { ...layerStyle({ ...layer, shadow: null }), boxShadow };
}

export function textShadow(shadow) {
  return shadow ? `${shadow.x}px ${shadow.y}px 0 ${cssColor(shadow.color)}` : undefined;
}

/** The font that a text is drawn in, where it is not the page's own. */
export function fontStyle(family, italic, tabularDigits) {
  return setOnly({
    fontFamily: family && family !== 'Inter' ? `"${family}"` : undefined, fontStyle: italic ? 'italic' : undefined,
    fontVariantNumeric: tabularDigits ? 'tabular-nums' : undefined,
  });
}
