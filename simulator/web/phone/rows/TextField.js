import { html, useContext } from '/modules/htm-preact.mjs';
import { takeLongPaste } from '/longText.js';
import { SessionContext } from '/session.js';
import { useDraft } from '/phone/draft.js';

/** What both kinds of field share: the text under edit, and the attributes of the element that shows it. */
function useField(row, name) {
  const session = useContext(SessionContext);
  const draft = useDraft(String(row.value ?? ''), (text) => session.set(row.id, text));
  // Of a text too long to be shown whole, only its replacement can be sent.
  const isBeginning = row.valueLength !== undefined;
  const onKeyDown = (event) => {
    if (event.key === 'Escape') draft.reset();
    if (isBeginning && (event.key === 'Backspace' || event.key === 'Delete')) session.set(row.id, '');
  };
  const attributes = {
    'data-part': 'main', 'data-own-keys': true, 'aria-label': name, placeholder: row.control.placeholder ?? '',
    value: draft.text, spellcheck: false, disabled: row.enabled === false, readOnly: isBeginning,
    onInput: draft.input, onBlur: draft.commit, onKeyDown,
    onPaste: (event) => takeLongPaste(event, (text) => session.set(row.id, text)),
  };
  return { attributes, draft };
}

/** One line of text, sent by the Return key or when the field is left; Escape takes the change back. */
export function TextField({ row, name }) {
  const { attributes, draft } = useField(row, name);
  const { type, keyboard } = row.control;
  const onKeyDown = (event) => {
    if (event.key === 'Enter') draft.commit();
    attributes.onKeyDown(event);
  };
  return html`
    <input ...${attributes} type=${type === 'secureText' ? 'password' : 'text'} class="text-field"
      inputmode=${keyboard ?? 'text'} autocomplete="off" autocapitalize="off" onKeyDown=${onKeyDown} />`;
}

/** Several lines of text, sent when the field is left; Escape takes the change back. */
export function TextView({ row, name }) {
  const { attributes } = useField(row, name);
  return html`<textarea ...${attributes} class="text-view"></textarea>`;
}
