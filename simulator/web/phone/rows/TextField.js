import { html, useContext } from '/modules/htm-preact.mjs';
import { SessionContext } from '/session.js';
import { useDraft } from '/phone/draft.js';

function useCommitted(row) {
  const session = useContext(SessionContext);
  return useDraft(String(row.value ?? ''), (text) => session.set(row.id, text));
}

/** One line of text, sent by the Return key or when the field is left; Escape takes the change back. */
export function TextField({ row, name }) {
  const draft = useCommitted(row);
  const { type, placeholder, keyboard } = row.control;
  const onKeyDown = (event) => {
    if (event.key === 'Enter') draft.commit();
    if (event.key === 'Escape') draft.reset();
  };
  return html`
    <input type=${type === 'secureText' ? 'password' : 'text'} class="text-field" data-part="main" data-own-keys
      aria-label=${name} placeholder=${placeholder ?? ''} inputmode=${keyboard ?? 'text'} value=${draft.text}
      autocomplete="off" autocapitalize="off" spellcheck=${false} disabled=${row.enabled === false}
      onInput=${draft.input} onBlur=${draft.commit} onKeyDown=${onKeyDown} />`;
}

/** Several lines of text, sent when the field is left; Escape takes the change back. */
export function TextView({ row, name }) {
  const draft = useCommitted(row);
  const onKeyDown = (event) => {
    if (event.key === 'Escape') draft.reset();
  };
  return html`
    <textarea class="text-view" data-part="main" data-own-keys aria-label=${name} value=${draft.text}
      placeholder=${row.control.placeholder ?? ''} spellcheck=${false} disabled=${row.enabled === false}
      onInput=${draft.input} onBlur=${draft.commit} onKeyDown=${onKeyDown}></textarea>`;
}
