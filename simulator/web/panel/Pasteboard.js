import { html, useContext, useEffect, useState } from '/modules/htm-preact.mjs';
import { Card } from '/panel/Card.js';
import { SessionContext } from '/session.js';

/** The device's pasteboard, which can be read, replaced and emptied here. */
export function Pasteboard({ string }) {
  const session = useContext(SessionContext);
  const [draft, setDraft] = useState(null);
  const [refusal, setRefusal] = useState(null);
  useEffect(() => setDraft(null), [string]);

  const put = async (value) => {
    const reason = await session.setPasteboard(value);
    setRefusal(reason);
    if (reason === null) setDraft(null);
  };
  const submit = (event) => {
    event.preventDefault();
    put(draft ?? '');
  };
  return html`
    <${Card} title="Pasteboard" note=${string === null ? 'empty' : ''}>
      <form class="pasteboard" onSubmit=${submit}>
        <textarea aria-label="Text on the pasteboard" rows="3" spellcheck=${false} value=${draft ?? string ?? ''}
          onInput=${(event) => setDraft(event.target.value)}></textarea>
        <div class="pasteboard-buttons">
          <button type="submit" class="panel-button" disabled=${draft === null || draft === string}>
            Put on pasteboard
          </button>
          <button type="button" class="panel-button" disabled=${string === null && draft === null}
            onClick=${() => (string === null ? setDraft(null) : put(null))}>Empty</button>
        </div>
        ${refusal && html`<p class="card-error" role="alert">${refusal}</p>`}
      </form>
    <//>`;
}
