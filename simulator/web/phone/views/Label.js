import { html } from 'htm/preact/standalone';
import { cssColor, cssTextColor } from '/colors.js';
import { alignments, fontStyle, largeText, textShadow } from '/phone/look.js';
import { AttributedText } from '/phone/views/AttributedText.js';

/** The text's colour is kept legible on `background`, unless the text is part of a picture. */
export function Label({ view, background, isDepicted, children }) {
  if (view.attributedText) {
    return html`
      <span class="view-label">
        <${AttributedText} text=${view.attributedText} background=${background} isDepicted=${isDepicted} />
      </span>${children}`;
  }
  const size = view.fontSize ?? 17;
  const style = {
    fontSize: `${size}px`, fontWeight: view.fontWeight ?? undefined, textAlign: alignments[view.alignment],
    color: isDepicted ? cssColor(view.color) : cssTextColor(view.color, background, size >= largeText),
    ...fontStyle(view.fontFamily, view.italic, view.tabularDigits),
    textShadow: textShadow(view.textShadow), whiteSpace: view.lines === 1 ? 'nowrap' : undefined,
  };
  return html`${view.text && html`<span class="view-label" style=${style}><span>${view.shownText ?? view.text}</span></span>`}${children}`;
}
