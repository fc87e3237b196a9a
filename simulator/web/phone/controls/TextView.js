import { html } from 'htm/preact/standalone';
import { useField } from '/phone/controls/textInput.js';

/** Several lines of text, sent when the field is left; Escape takes the change back. */
function TextView({ row, name }) {
  const { attributes } = useField(row, name);
  return html`<textarea ...${attributes} class="text-view"></textarea>`;
}

export const textView = { Content: TextView };
