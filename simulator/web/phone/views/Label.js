import { html } from 'htm/preact/standalone';
import { cssColor, inkOf } from '/colors.js';
import { alignments, fontStyle, largeText, textShadow } from '/phone/look.js';
import { AttributedText } from '/phone/views/AttributedText.js';

/**
 * The text's colour is kept legible on `background`, unless it is the bundle's own or the text is part of a picture.
 * What is shortened is told whole to assistive technologies.
 */
export function Label({ view, background, isDepicted, children }) {
  if (view.attributedText) {
    return html`
      <span class="view-label">
        <${AttributedText} text=${view.attributedText} whole=${view.text} background=${background}
          isDepicted=${isDepicted} />
      </span>${children}`;
  }
  const size = view.fontSize ?? 17;
  const isShortened = typeof view.shownText === 'string';
  const style = {
    fontSize: `${size}px`, fontWeight: view.fontWeight ?? undefined, textAlign: alignments[view.alignment],
    color: isDepicted ? cssColor(view.color) : inkOf(view.color, view.ownColor, background, size >= largeText),
    ...fontStyle(view.fontFamily, view.italic, view.tabularDigits),
    textShadow: textShadow(view.textShadow), whiteSpace: isShortened ? 'pre' : view.lines === 1 ? 'nowrap' : undefined,
  };
  return html`${view.text && html`
    <span class="view-label" style=${style}>
      ${isShortened && html`<span class="visually-hidden">${view.text}</span>`}
      <span data-own-color=${view.ownColor || undefined} aria-hidden=${isShortened || undefined}>${
        view.shownText ?? view.text}</span>
    </span>`}${children}`;
}
