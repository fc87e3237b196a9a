import { html } from 'htm/preact/standalone';
import { Page as DocumentSymbol } from '/phone/symbols.js';

function DocumentList({ items, choose, working }) {
  return html`
    <ul class="document-list" role="list">
      ${items.map((item) => html`
        <li key=${item.id}>
          <button type="button" class="document-row" data-working=${item.id === working} onClick=${() => choose(item)}>
            <${DocumentSymbol} />
            <span>${item.title}</span>
            ${item.id === working && html`<span class="spinner"></span>`}
          </button>
        </li>`)}
    </ul>`;
}

export const documentPicker = {
  title: 'Documents', empty: 'No Documents', Content: DocumentList,
  source: {
    label: 'Choose from this computer…', drop: 'Drop to choose this file',
    take: (session, files) => session.uploads.pickFile(files),
  },
};
