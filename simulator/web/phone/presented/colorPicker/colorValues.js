// Colours as the picker works with them: red, green, blue and alpha as whole numbers from 0 to 255.

/** The colour that "#rrggbb" or "#rrggbbaa" names. */
export function parse(text) {
  const part = (at) => parseInt(text.slice(at, at + 2), 16);
  return { red: part(1), green: part(3), blue: part(5), alpha: text.length > 7 ? part(7) : 255 };
}

/** "#rrggbbaa". */
export function format({ red, green, blue, alpha }) {
  return `#${[red, green, blue, alpha].map(twoDigits).join('')}`;
}

/** Six digits in capitals, without opacity. */
export function digitsOf({ red, green, blue }) {
  return [red, green, blue].map(twoDigits).join('').toUpperCase();
}

export function opaque(color) {
  return { ...color, alpha: 255 };
}

export function percent(alpha) {
  return `${Math.round((alpha / 255) * 100)}%`;
}

/** Hue from 0 up to 1, and lightness from 0 to 1. A grey has no hue of its own and gets 0. */
export function hueAndLightness({ red, green, blue }) {
  const high = Math.max(red, green, blue);
  const range = high - Math.min(red, green, blue);
  const lightness = (2 * high - range) / 510;
  if (range === 0) return { hue: 0, lightness };
  let hue = (red - green) / range + 4;
  if (high === red) hue = (green - blue) / range;
  else if (high === green) hue = (blue - red) / range + 2;
  return { hue: ((hue + 6) % 6) / 6, lightness };
}

/** The opaque colour of full saturation with this hue and lightness. */
export function pureColor({ hue, lightness }) {
  const strength = 1 - Math.abs(2 * lightness - 1);
  const part = (offset) => {
    const k = (offset + hue * 6) % 6;
    const share = Math.min(Math.max(Math.abs(k - 3) - 1, 0), 1);
    return Math.round((lightness + strength * (share - 0.5)) * 255);
  };
  return { red: part(0), green: part(4), blue: part(2), alpha: 255 };
}

const hues = ['red', 'orange', 'yellow', 'lime', 'green', 'mint', 'cyan', 'azure', 'blue', 'violet', 'magenta', 'pink'];

/** What people call a colour, and its digits: "dark blue, 012F7B". */
export function nameOf(color) {
  const { hue, lightness } = hueAndLightness(color);
  const range = Math.max(color.red, color.green, color.blue) - Math.min(color.red, color.green, color.blue);
  const word = range < 12 ? greyOf(lightness) : `${shadeOf(lightness)}${hues[Math.round(hue * 12) % 12]}`;
  return `${word}, ${digitsOf(color)}`;
}

function greyOf(lightness) {
  if (lightness > 0.97) return 'white';
  if (lightness < 0.03) return 'black';
  return `${shadeOf(lightness)}grey`;
}

function shadeOf(lightness) {
  if (lightness < 0.2) return 'very dark ';
  if (lightness < 0.38) return 'dark ';
  if (lightness > 0.85) return 'very light ';
  return lightness > 0.65 ? 'light ' : '';
}

function twoDigits(part) {
  return part.toString(16).padStart(2, '0');
}
