// What a bar's looks say of its ground and of the texts in it.
import { cssColor, pairOf } from '/colors.js';
import { fontStyle, setOnly } from '/phone/look.js';

/** The look of a bar under which content lies (`isSolid`), or none does yet. */
export function lookOf(bar, isSolid) {
  return (isSolid ? bar?.standard : bar?.scrollEdge) ?? (isSolid ? { blur: true, shadow: true } : { clear: true });
}

/** What texts of a bar lie on, for the legibility of those in the system's colours. */
export function groundOf(look) {
  return look.color && !look.image ? pairOf(look.color) : 'page';
}

/** The style of a text that is drawn as `text` says. */
export function textStyle(text) {
  if (!text) return {};
  return setOnly({
    color: cssColor(text.color), fontSize: text.fontSize ? `${text.fontSize}px` : undefined, fontWeight: text.fontWeight ?? undefined,
    ...fontStyle(text.fontFamily, text.italic),
  });
}

/** The style that moves a text by `[right, down]` points. */
export function offsetStyle(offset) {
  if (!offset || (offset[0] === 0 && offset[1] === 0)) return {};
  return { position: 'relative', left: `${offset[0]}px`, top: `${offset[1]}px` };
}

/**
 * The style of a button whose bar has the look `looks` for it and which has `own` attributes. A disabled one takes the
 * font of the others and its own colour, the system's grey where none is set.
 */
export function buttonStyle(looks, own, isEnabled) {
  const state = (name) => ({ ...looks?.[name], ...set(own?.[name]) });
  const normal = state('normal');
  if (!isEnabled) return textStyle({ ...normal, color: undefined, ...set(state('disabled')) });
  const pressed = cssColor(state('highlighted').color);
  return { ...textStyle(normal), ...setOnly({ '--pressed': pressed }) };
}

function set(text) {
  return Object.fromEntries(Object.entries(text ?? {}).filter(([, value]) => value !== null && value !== undefined));
}
