import { html, useState } from 'htm/preact/standalone';
import { paintedOver } from '/colors.js';
import { useField } from '/phone/controls/textInput.js';
import { cellBackground } from '/phone/surfaces.js';
import { AttributedText } from '/phone/views/AttributedText.js';

/**
 * Several lines of text, sent when the field is left; Escape takes the change back. A text with attributes is shown
 * with them until the field is edited.
 */
function TextView({ row, name }) {
  const { attributes } = useField(row, name);
  const [isEdited, setEdited] = useState(false);
  const { attributedText, editable, fontSize } = row.control;
  const shown = !isEdited && attributedText;
  const field = {
    ...attributes, readOnly: attributes.readOnly || editable === false,
    onFocus: () => setEdited(editable !== false),
    onBlur: (event) => {
      setEdited(false);
      attributes.onBlur(event);
    },
    style: {
      ...attributes.style, lineHeight: fontSize ? '1.2' : undefined,
      color: shown ? 'transparent' : attributes.style.color,
    },
  };
  return html`
    <span class="text-view-frame">
      ${shown && html`
        <span class="text-view-text" data-scrolls=${editable === false} aria-hidden="true">
          <${AttributedText} text=${shown} background=${paintedOver(cellBackground, row.backgroundColor)} />
        </span>`}
      <textarea ...${field} class="text-view"></textarea>
    </span>`;
}

export const textView = { Content: TextView };
