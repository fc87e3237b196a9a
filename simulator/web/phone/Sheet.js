import { html, useContext, useEffect, useRef } from '/modules/htm-preact.mjs';
import { Picture } from '/images.js';
import { trapTab } from '/phone/focusTrap.js';
import { ShareList } from '/phone/ShareList.js';
import { Page as DocumentSymbol } from '/phone/symbols.js';
import { SessionContext } from '/session.js';

const kinds = {
  photos: { title: 'Photos', content: PhotoGrid, empty: 'No Photos' },
  documents: { title: 'Documents', content: DocumentList, empty: 'No Documents' },
  share: { title: 'Share', content: ShareList, empty: 'Nothing to Share', leave: 'Close' },
  page: { title: 'Page', content: DocumentList, empty: 'The simulator cannot show this page.' },
};

/** A sheet over the page: photos or documents to pick from, or things to share. `covered`: an alert lies over it. */
export function Sheet({ sheet, covered }) {
  const session = useContext(SessionContext);
  const card = useRef(null);
  const kind = kinds[sheet.kind] ?? kinds.documents;
  const title = sheet.title || kind.title;
  const items = sheet.items ?? [];
  const dismiss = () => session.send(() => ({ type: 'dismiss' }));
  const choose = (item) => {
    session.send((screen) => (screen.sheet?.kind === sheet.kind ? { type: 'pick', path: item.path } : null));
  };

  useEffect(() => {
    if (!covered) card.current.focus();
  }, [covered]);

  const onKeyDown = (event) => {
    trapTab(event, card.current);
    if (event.key !== 'Escape') return;
    event.preventDefault();
    dismiss();
  };
  return html`
    <div class="dimming dimming-card" inert=${covered}>
      <div class="card" data-kind=${sheet.kind} role="dialog" aria-modal="true" aria-labelledby="sheet-title" tabindex="-1" ref=${card}
        onKeyDown=${onKeyDown}>
        <header class="card-bar">
          <button type="button" class="bar-button" onClick=${dismiss}>${kind.leave ?? 'Cancel'}</button>
          <h2 class="bar-title" id="sheet-title">${title}</h2>
          <span></span>
        </header>
        ${items.length === 0
          ? html`<p class="card-empty">${kind.empty}</p>`
          : html`<${kind.content} items=${items} choose=${choose} dismiss=${dismiss} />`}
      </div>
    </div>`;
}

function PhotoGrid({ items, choose }) {
  return html`
    <ul class="photo-grid" role="list">
      ${items.map((item) => html`
        <li key=${item.id}>
          <button type="button" class="photo" aria-label=${item.title} onClick=${() => choose(item)}>
            ${item.image
              ? html`<${Picture} image=${item.image} style=${{ width: '100%', height: '100%' }} />`
              : html`<span class="photo-title">${item.title}</span>`}
          </button>
        </li>`)}
    </ul>`;
}

function DocumentList({ items, choose }) {
  return html`
    <ul class="document-list" role="list">
      ${items.map((item) => html`
        <li key=${item.id}>
          <button type="button" class="document-row" onClick=${() => choose(item)}>
            ${item.image
              ? html`<${Picture} class="document" image=${item.image} style=${{ width: null, height: null }} />`
              : html`<${DocumentSymbol} />`}
            <span>${item.title}</span>
          </button>
        </li>`)}
    </ul>`;
}
