import { html, useContext } from '/modules/htm-preact.mjs';
import { cssTextColor, paintedOver } from '/colors.js';
import { takeLongPaste } from '/longText.js';
import { InlineView } from '/phone/CustomViews.js';
import { alignments } from '/phone/look.js';
import { SessionContext } from '/session.js';
import { useDraft } from '/phone/draft.js';
import { cellBackground } from '/phone/surfaces.js';

const plainSize = 17;
const returnKeys = { return: 'enter', go: 'go', next: 'next', search: 'search', send: 'send', done: 'done' };

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
  const { control } = row;
  const attributes = {
    'data-part': 'main', 'data-own-keys': true, 'aria-label': name, placeholder: control.placeholder ?? '',
    'aria-description': row.accessibilityHint || undefined, inputmode: control.keyboard ?? 'text',
    autocapitalize: control.autocapitalization ?? 'none', autocorrect: control.autocorrection ? 'on' : 'off',
    enterkeyhint: returnKeys[control.returnKey], spellcheck: control.spellChecking === true, style: styleOf(row),
    value: draft.text, disabled: row.enabled === false, readOnly: isBeginning,
    onInput: draft.input, onBlur: draft.commit, onKeyDown,
    onPaste: (event) => takeLongPaste(event, (text) => session.set(row.id, text)),
  };
  return { attributes, draft };
}

/** A colour, a size and an alignment of the bundle's own. */
function styleOf({ control, backgroundColor, enabled }) {
  const ground = paintedOver(cellBackground, backgroundColor);
  return {
    color: enabled === false ? undefined : cssTextColor(control.textColor, ground), textAlign: alignments[control.alignment],
    fontSize: (control.fontSize ?? plainSize) === plainSize ? undefined : `${control.fontSize}px`,
  };
}

/** One line of text, sent by the Return key or when the field is left; Escape takes the change back. */
export function TextField({ row, name }) {
  const { attributes, draft } = useField(row, name);
  const { type, border, leftView, rightView } = row.control;
  const onKeyDown = (event) => {
    if (event.key === 'Enter') draft.commit();
    attributes.onKeyDown(event);
  };
  return html`
    ${leftView && html`<${InlineView} view=${leftView} on="cell" name="field-view" />`}
    <input ...${attributes} type=${type === 'secureText' ? 'password' : 'text'} class="text-field"
      data-border=${border ?? 'none'} autocomplete="off" onKeyDown=${onKeyDown} />
    ${rightView && html`<${InlineView} view=${rightView} on="cell" name="field-view" />`}`;
}

/** Several lines of text, sent when the field is left; Escape takes the change back. */
export function TextView({ row, name }) {
  const { attributes } = useField(row, name);
  return html`<textarea ...${attributes} class="text-view"></textarea>`;
}
