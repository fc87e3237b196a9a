// Colours as the simulator writes them: "#rrggbbaa", or {"light", "dark"} for one that follows the appearance.

const legibleContrast = 4.5;
const legibleContrastOfLargeText = 3;

/** The CSS colour of `color`, or undefined when there is none. */
export function cssColor(color) {
  if (!color) return undefined;
  if (typeof color === 'string') return color;
  return `light-dark(${color.light}, ${color.dark})`;
}

/**
 * The CSS colour of a text: as it is where it is the bundle's `own`, else legible on `background`. Who draws it marks
 * the element with `data-own-color`.
 */
export function inkOf(color, own, background, large) {
  return own ? cssColor(color) : cssTextColor(color, background, large);
}

/**
 * The CSS colour for text of `color` on `background`, moved towards black or white only as far as reading needs.
 *
 * `large` is for text of 24 pixels and more, which is read at less contrast.
 */
export function cssTextColor(color, background, large = false) {
  if (!color) return undefined;
  const wanted = large ? legibleContrastOfLargeText : legibleContrast;
  const light = legible(parse(color.light ?? color), parse(background.light), wanted);
  const dark = legible(parse(color.dark ?? color), parse(background.dark), wanted);
  return `light-dark(${light}, ${dark})`;
}

/** `over` where it is opaque, else what lies below; for text whose own views paint a background. */
export function paintedOver(background, over) {
  if (!over) return background;
  return {
    light: format(blend(parse(over.light ?? over), parse(background.light))),
    dark: format(blend(parse(over.dark ?? over), parse(background.dark))),
  };
}

/** A colour as `{light, dark}`, also when it is the same in both. */
export function pairOf(color) {
  return typeof color === 'string' ? { light: color, dark: color } : color;
}

function parse(text) {
  const channel = (at) => parseInt(text.slice(at, at + 2), 16);
  return { rgb: [channel(1), channel(3), channel(5)], alpha: text.length > 7 ? channel(7) / 255 : 1 };
}

function format({ rgb }) {
  return `#${rgb.map((channel) => Math.round(channel).toString(16).padStart(2, '0')).join('')}`;
}

function blend(top, bottom) {
  return { rgb: top.rgb.map((channel, at) => channel * top.alpha + bottom.rgb[at] * (1 - top.alpha)), alpha: 1 };
}

function luminance({ rgb }) {
  const [red, green, blue] = rgb.map((channel) => {
    const share = channel / 255;
    return share <= 0.04045 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4;
  });
  return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

function contrast(one, other) {
  const [high, low] = [luminance(one), luminance(other)].sort((a, b) => b - a);
  return (high + 0.05) / (low + 0.05);
}

function legible(color, background, wanted) {
  const base = blend(color, background);
  const extreme = luminance(background) > 0.18 ? 0 : 255;
  for (let share = 0; share <= 1; share += 0.05) {
    const mixed = { rgb: base.rgb.map((channel) => channel + (extreme - channel) * share), alpha: 1 };
    if (contrast(mixed, background) >= wanted) return format(mixed);
  }
  return extreme === 0 ? '#000000' : '#ffffff';
}
