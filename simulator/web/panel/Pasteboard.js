import { html, useContext, useEffect, useState } from 'htm/preact/standalone';
import { lengthInWords, takeLongPaste } from '/longText.js';
import { Card } from '/panel/Card.js';
import { SessionContext } from '/session.js';

/**
 * The device's pasteboard, which can be read, replaced, emptied and copied to the computer's clipboard here. `string`
 * is the beginning of a text of `length` UTF-16 units, all of it as a rule; null when there is none.
 */
export function Pasteboard({ string, length }) {
  const session = useContext(SessionContext);
  const [draft, setDraft] = useState(null);
  const [refusal, setRefusal] = useState(null);
  const isBeginning = string !== null && length > string.length;
  useEffect(() => setDraft(null), [string, length]);

  const put = async (value) => {
    const reason = await session.setPasteboard(value);
    setRefusal(reason);
    if (reason === null) setDraft(null);
  };
  const copy = async () => {
    try {
      await navigator.clipboard.writeText(await session.pasteboardString() ?? '');
      setRefusal(null);
      session.announce('Copied to the clipboard of this computer');
    } catch (error) {
      setRefusal(`Not copied: ${error.message}`);
    }
  };
  const submit = (event) => {
    event.preventDefault();
    put(draft ?? '');
  };
  const note = string === null ? 'empty' : isBeginning ? `${lengthInWords(length)}, the first are shown` : '';
  return html`
    <${Card} title="Pasteboard" note=${note}>
      <form class="pasteboard" onSubmit=${submit}>
        <textarea aria-label="Text on the pasteboard" rows="3" spellcheck=${false} value=${draft ?? string ?? ''}
          readOnly=${isBeginning} onInput=${(event) => setDraft(event.target.value)}
          onPaste=${(event) => takeLongPaste(event, put)}></textarea>
        <div class="pasteboard-buttons">
          <button type="submit" class="panel-button" disabled=${draft === null || draft === string}>
            Put on pasteboard
          </button>
          <button type="button" class="panel-button" disabled=${string === null} onClick=${copy}>
            Copy to this computer
          </button>
          <button type="button" class="panel-button" disabled=${string === null && draft === null}
            onClick=${() => (string === null ? setDraft(null) : put(null))}>Empty</button>
        </div>
        ${refusal && html`<p class="card-error" role="alert">${refusal}</p>`}
      </form>
    <//>`;
}
