import { html, useContext, useRef } from 'htm/preact/standalone';
import { lengthInWords, takeLongPaste } from '/longText.js';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';

/**
 * A text field of an alert. `draft` is what the user typed and has not sent yet; `forget` drops it. What is on the
 * device's pasteboard can be pasted into an empty field; the browser's own paste takes the computer's clipboard.
 */
export function AlertField({ field, draft, edit, commit, forget, onKeyDown }) {
  const session = useContext(SessionContext);
  const hasPasteboard = useStore(session.store, ({ device }) => typeof device?.pasteboard === 'string');
  const element = useRef(null);
  const text = draft ?? field.value ?? '';
  const isBeginning = draft === undefined && field.valueLength !== undefined;

  const send = (event) => {
    commit();
    forget();
    event();
    element.current.focus();
  };
  const onPaste = (event) => takeLongPaste(event, (pasted) => send(() => session.set(field.id, pasted)));
  return html`
    <li class="alert-field">
      <input ref=${element} type=${field.secure ? 'password' : 'text'} aria-label=${field.placeholder || 'Text'}
        placeholder=${field.placeholder ?? ''} value=${text} autocomplete="off" spellcheck=${false}
        readOnly=${isBeginning} onInput=${(event) => edit(event.target.value)} onBlur=${commit} onPaste=${onPaste}
        onKeyDown=${onKeyDown} />
      ${isBeginning && html`<span class="field-length">${lengthInWords(field.valueLength)}</span>`}
      ${text === '' && hasPasteboard && html`
        <button type="button" class="paste-button" aria-label=${`Paste into ${field.placeholder || 'the field'}`}
          onClick=${() => send(() => session.paste(field.id))}>Paste</button>`}
      ${field.clearButton && text !== '' && html`
        <button type="button" class="clear-button" aria-label="Clear text"
          onClick=${() => send(() => session.clear(field.id))}></button>`}
    </li>`;
}
