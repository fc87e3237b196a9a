import { html, useContext, useState } from '/modules/htm-preact.mjs';
import { Page as DocumentSymbol } from '/phone/symbols.js';
import { SessionContext } from '/session.js';

/**
 * Things that an app shares. An item with `text` can be copied to the device's pasteboard, one with the `url` of its
 * content can be saved on the computer; both close the sheet.
 */
export function ShareList({ items, dismiss }) {
  const session = useContext(SessionContext);
  const [refusal, setRefusal] = useState(null);

  const copy = async ({ text }) => {
    const reason = await session.setPasteboard(text);
    setRefusal(reason);
    if (reason === null) dismiss();
  };
  const save = async ({ url, title }) => {
    try {
      download(await session.blob(url), title);
      dismiss();
    } catch (error) {
      setRefusal(error.message);
    }
  };
  return html`
    <ul class="document-list" role="list">
      ${items.map((item) => html`
        <li key=${item.id} class="share-item">
          <${DocumentSymbol} />
          <span class="share-title">${item.title}</span>
          ${typeof item.text === 'string' && html`
            <button type="button" class="share-button" aria-label=${`Copy ${item.title}`}
              onClick=${() => copy(item)}>Copy</button>`}
          ${item.url && html`
            <button type="button" class="share-button" aria-label=${`Save ${item.title}`}
              onClick=${() => save(item)}>Save</button>`}
        </li>`)}
    </ul>
    ${refusal && html`<p class="share-refusal" role="alert">${refusal}</p>`}`;
}

function download(blob, name) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(blob);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
}
