import { html } from 'htm/preact/standalone';
import { cssColor, inkOf, paintedOver } from '/colors.js';
import { Picture } from '/images.js';
import { fontStyle, largeText, setOnly } from '/phone/look.js';

const patterns = { dot: 'dotted', dash: 'dashed', dashDot: 'dashed', dashDotDot: 'dashed' };

/**
 * A text whose lines the device has laid out: each stands where it says, in points from the top left corner of this
 * element, which is as high as they are. `isDepicted`: its colours are kept as they are. `whole`: what assistive
 * technologies are told where the lines leave something out.
 */
export function AttributedText({ text, whole, background, isDepicted }) {
  const sizes = { '--text-width': `${text.width}px`, '--text-room': `${text.room || text.width}px` };
  return html`
    ${text.shortened && html`<span class="visually-hidden">${whole}</span>`}
    <span class="attributed-text" style=${{ height: `${text.height}px`, ...sizes }}
      aria-hidden=${text.shortened ? 'true' : undefined}>
      ${text.lines.map((line, at) => html`
        <${Line} key=${at} line=${line} background=${background} isDepicted=${isDepicted} />`)}
    </span>`;
}

/** Its first child reaches from the top to the baseline, on which everything else in it stands. */
function Line({ line, background, isDepicted }) {
  const wordSpacing = line.wordSpacing > 0 ? `${line.wordSpacing}px` : undefined;
  return html`
    <span class="attributed-line" style=${setOnly({ top: `${line.top}px`, left: `${line.x}px`, wordSpacing })}>
      <span class="attributed-strut" style=${{ height: `${line.baseline - line.top}px` }}></span>
      ${line.pieces.map((piece, at) => html`
        <${Piece} key=${at} piece=${piece} background=${background} isDepicted=${isDepicted} />`)}
    </span>`;
}

/** As wide as the device has laid it out; the text in it may be a little less or more. */
function Piece({ piece, background, isDepicted }) {
  if (piece.height !== undefined) return html`<${Attachment} piece=${piece} />`;
  const ground = paintedOver(background, piece.backgroundColor);
  const style = setOnly({
    fontSize: `${piece.fontSize}px`, fontWeight: piece.fontWeight,
    color: isDepicted ? cssColor(piece.color) : inkOf(piece.color, piece.ownColor, ground, piece.fontSize >= largeText),
    backgroundColor: cssColor(piece.backgroundColor), letterSpacing: piece.kern ? `${piece.kern}px` : undefined,
    top: piece.baselineOffset ? `${-piece.baselineOffset}px` : undefined, textShadow: shadowOf(piece.textShadow),
    ...fontStyle(piece.fontFamily, piece.italic, piece.tabularDigits),
  });
  // Lines under and through a text may differ in all but the text.
  const ink = html`<span data-own-color=${piece.ownColor || undefined}>${piece.text}</span>`;
  const struck = html`<${Lined} kind="line-through" line=${piece.strikethrough}>${ink}<//>`;
  return html`
    <span class="attributed-piece" data-link=${piece.link ?? undefined} style=${{ width: `${piece.width}px` }}>
      <span class="attributed-ink" style=${style}><${Lined} kind="underline" line=${piece.underline}>${struck}<//></span>
    </span>`;
}

function Lined({ kind, line, children }) {
  if (!line) return children;
  const pattern = line.style === 'double' ? 'double' : patterns[line.pattern] ?? 'solid';
  const style = setOnly({
    textDecorationLine: kind, textDecorationStyle: pattern, textDecorationColor: cssColor(line.color),
    textDecorationThickness: line.style === 'thick' ? '0.13em' : '0.065em', textDecorationSkipInk: 'auto',
  });
  return html`<span style=${style}>${children}</span>`;
}

function Attachment({ piece }) {
  const { image, width, height, ascent, baselineOffset } = piece;
  return html`
    <span class="attributed-attachment" style=${{ width: `${width}px` }}>
      ${image && html`
        <${Picture} alt="" image=${{ ...image, width, height }}
          style=${{ top: `${-ascent - baselineOffset}px`, objectFit: 'fill' }} />`}
    </span>`;
}

function shadowOf(shadow) {
  return shadow ? `${shadow.x}px ${shadow.y}px ${shadow.radius}px ${cssColor(shadow.color)}` : undefined;
}
