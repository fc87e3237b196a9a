import { html, useContext, useState } from 'htm/preact/standalone';
import { Page as DocumentSymbol } from '/phone/symbols.js';
import { SessionContext } from '/session.js';

/**
 * Things that an app shares. What an item's `activities` allow can be done with it: "copy" puts it on the device's
 * pasteboard, "save" its content, at `url`, on the computer. Either closes the sheet.
 */
function ShareList({ items }) {
  const session = useContext(SessionContext);
  const [refusal, setRefusal] = useState(null);

  const copy = ({ id }) => session.tap(id, { part: 'copy' });
  const save = async ({ id, url, fileName }) => {
    try {
      download(await session.blob(url), fileName);
    } catch (error) {
      setRefusal(error.message);
      return;
    }
    session.tap(id, { part: 'save' });
  };
  const button = (item, activity, label, perform) => item.activities?.includes(activity) && html`
    <button type="button" class="share-button" aria-label=${`${label} ${item.title}`}
      onClick=${() => perform(item)}>${label}</button>`;
  return html`
    <ul class="document-list" role="list">
      ${items.map((item) => html`
        <li key=${item.id} class="share-item">
          <${DocumentSymbol} />
          <span class="share-title">${item.title}</span>
          ${button(item, 'copy', 'Copy', copy)}
          ${button(item, 'save', 'Save', save)}
        </li>`)}
    </ul>
    ${refusal && html`<p class="share-refusal" role="alert">${refusal}</p>`}`;
}

export const shareSheet = { title: 'Share', empty: 'Nothing to Share', leave: 'Close', Content: ShareList };

function download(blob, name) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(blob);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
}
