import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { cssColor, inkOf, pairOf } from '/colors.js';
import { DragInput } from '/phone/DragInput.js';
import { setOnly } from '/phone/look.js';
import { Magnifier } from '/phone/symbols.js';
import { SessionContext } from '/session.js';

const plainText = { light: '#000000', dark: '#ffffff' };

/** A field that is searched by as it is typed into, and the button that ends the search. */
function SearchBar({ row, name }) {
  const session = useContext(SessionContext);
  const { control } = row;
  const stored = String(row.value ?? '');
  const [text, setText] = useState(stored);
  const field = useRef(null);
  const typed = useRef(null);
  if (typed.current?.id !== row.id) typed.current = { id: row.id, input: new DragInput(session, row.id) };
  useEffect(() => {
    if (!typed.current.input.isBusy) setText(stored);
  }, [row]);

  const type = (value) => {
    setText(value);
    typed.current.input.send(value, true);
  };
  const focus = () => {
    if (!control.editing) typed.current.input.send(text, true);
  };
  const cancel = () => {
    setText('');
    session.set(row.id, null);
    field.current.blur();
  };
  const onKeyDown = (event) => {
    if (event.key === 'Enter') session.enter(row.id, text);
    if (event.key === 'Escape' && control.cancelButton) cancel();
  };
  const style = setOnly({
    '--search-field': cssColor(control.fieldColor),
    '--search-text': control.fieldColor
      ? inkOf(control.textColor ?? plainText, control.ownTextColor, pairOf(control.fieldColor))
      : cssColor(control.textColor),
    '--tint': cssColor(control.tintColor),
    background: control.minimal ? undefined : cssColor(control.barColor),
  });
  return html`
    <div class="search-bar" style=${style} data-own-keys>
      <span class="search-field">
        <${Magnifier} />
        <input type="text" role="searchbox" aria-label=${name} placeholder=${control.placeholder ?? ''} value=${text}
          ref=${field} disabled=${row.enabled === false} inputmode=${control.keyboard ?? 'text'} enterkeyhint="search"
          autocapitalize=${control.autocapitalization ?? 'none'} autocorrect=${control.autocorrection ? 'on' : 'off'}
          spellcheck=${control.spellChecking === true} autocomplete="off" data-part="main"
          data-own-color=${control.ownTextColor || undefined} onFocus=${focus}
          onInput=${(event) => type(event.target.value)} onKeyDown=${onKeyDown} />
        ${text !== '' && html`
          <button type="button" class="search-clear" aria-label="Clear text" onClick=${() => {
            type('');
            field.current.focus();
          }}>✕</button>`}
      </span>
      ${control.cancelButton && html`
        <button type="button" class="search-cancel" onClick=${cancel}>Cancel</button>`}
    </div>`;
}

export const searchBar = { Content: SearchBar, isGroup: true };
