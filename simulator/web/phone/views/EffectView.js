import { html } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';

/** What the effect makes of what lies behind the view, or of its content. */
export function EffectView({ view, children }) {
  const { effect } = view;
  if (effect?.type === 'blur') {
    const style = {
      backgroundColor: cssColor(effect.tint),
      backdropFilter: `blur(${effect.radius}px) saturate(${effect.saturation * 100}%)`,
    };
    return html`<span class="effect-backdrop" style=${style}></span>${children}`;
  }
  if (!effect?.color) return children;
  const { light, dark } = typeof effect.color === 'string' ? { light: effect.color, dark: effect.color } : effect.color;
  const style = { '--vibrant-light': shapeFilter(light), '--vibrant-dark': shapeFilter(dark) };
  return html`<span class="effect-vibrant" style=${style}>${children}</span>`;
}

/** Fills the shape of what it is applied to: with black or white, as opaque as "#rrggbbaa" says. */
function shapeFilter(color) {
  const opacity = parseInt(color.slice(7) || 'ff', 16) / 255;
  const isWhite = color.slice(1, 3) === 'ff';
  return `brightness(0) ${isWhite ? 'invert(1) ' : ''}opacity(${opacity.toFixed(3)})`;
}
