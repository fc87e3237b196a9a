import { html } from 'htm/preact/standalone';
import { groundOf } from '/phone/labelStyle.js';
import { AttributedText } from '/phone/views/AttributedText.js';

/** A text of a row, as the device has laid it out where it has attributes of its own. */
export function RowText({ row, text, attributed }) {
  return attributed ? html`<${AttributedText} text=${attributed} whole=${text} background=${groundOf(row)} />` : text;
}
