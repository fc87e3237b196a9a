import { html, useContext, useEffect, useRef, useState } from '/modules/htm-preact.mjs';
import { LazyPicture, Picture } from '/images.js';
import { ColorPicker } from '/phone/ColorPicker.js';
import { FileChooser } from '/phone/FileChooser.js';
import { trapTab } from '/phone/focusTrap.js';
import { ShareList } from '/phone/ShareList.js';
import { Close as CloseSymbol, Page as DocumentSymbol } from '/phone/symbols.js';
import { UploadProgress } from '/phone/UploadProgress.js';
import { SessionContext } from '/session.js';

const kinds = {
  photos: { title: 'Photos', content: PhotoGrid, empty: 'No Photos' },
  documents: { title: 'Documents', content: DocumentList, empty: 'No Documents' },
  share: { title: 'Share', content: ShareList, empty: 'Nothing to Share', leave: 'Close' },
  color: { title: 'Colors' },
  page: { title: 'Page', content: DocumentList, empty: 'The simulator cannot show this page.' },
};

/** What a sheet takes from the computer. */
const sources = {
  photos: {
    label: 'Add from this computer…', accept: 'image/*,.heic,.heif', multiple: true,
    choose: (session, files) => session.uploads.addPhotos(files),
  },
  documents: { label: 'Choose from this computer…', choose: (session, files) => session.uploads.pickFile(files) },
};

/** A sheet over the page: photos, documents or a colour to pick, or things to share. `covered`: an alert lies over it. */
export function Sheet({ sheet, covered }) {
  const session = useContext(SessionContext);
  const card = useRef(null);
  const kind = kinds[sheet.kind] ?? kinds.documents;
  const title = sheet.title || kind.title;
  const items = sheet.items ?? [];
  const source = sources[sheet.kind];
  const [working, setWorking] = useState(null);
  const dismiss = () => {
    if (!working) session.send(() => ({ type: 'dismiss' }));
  };
  // A large photo takes the device a moment.
  const choose = async (item) => {
    if (working) return;
    setWorking(item.id);
    await session.send((screen) => (screen.sheet?.kind === sheet.kind ? { type: 'pick', path: item.path } : null));
    setWorking(null);
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
      <div class="card" data-kind=${sheet.kind} role="dialog" aria-modal="true" aria-labelledby="sheet-title"
        aria-busy=${working !== null} tabindex="-1" ref=${card} onKeyDown=${onKeyDown}>
        <header class="card-bar">
          ${sheet.color
            ? html`<span></span>`
            : html`<button type="button" class="bar-button" onClick=${dismiss}>${kind.leave ?? 'Cancel'}</button>`}
          <h2 class="bar-title" id="sheet-title">${title}</h2>
          ${sheet.color
            ? html`
              <button type="button" class="card-close" aria-label="Close" onClick=${dismiss}><${CloseSymbol} /></button>`
            : html`<span></span>`}
        </header>
        ${source && html`
          <${FileChooser} label=${source.label} accept=${source.accept} multiple=${source.multiple}
            choose=${(files) => source.choose(session, files)} />`}
        ${sheet.color && html`<${ColorPicker} color=${sheet.color} />`}
        ${!sheet.color && items.length === 0 && html`<p class="card-empty">${kind.empty}</p>`}
        ${items.length > 0 && html`<${kind.content} items=${items} choose=${choose} working=${working} />`}
        <${UploadProgress} />
      </div>
    </div>`;
}

function PhotoGrid({ items, choose, working }) {
  const list = useRef(null);
  const known = useRef(items.length);
  useEffect(() => {
    // A photo that has come in stands at the end.
    if (items.length > known.current) list.current.lastElementChild.scrollIntoView({ block: 'nearest' });
    known.current = items.length;
  }, [items.length]);
  return html`
    <ul class="photo-grid" role="list" ref=${list}>
      ${items.map((item) => html`
        <li key=${item.id}>
          <button type="button" class="photo" aria-label=${item.title} data-working=${item.id === working}
            onClick=${() => choose(item)}>
            <${PhotoPicture} item=${item} />
            ${item.id === working && html`<span class="working"><span class="spinner spinner-large"></span></span>`}
          </button>
        </li>`)}
    </ul>`;
}

/** The thumbnail; the title for a photo that has none. */
function PhotoPicture({ item }) {
  const title = html`<span class="photo-title">${item.title}</span>`;
  return item.image ? html`<${LazyPicture} key=${item.image.url} image=${item.image} fallback=${title} />` : title;
}

function DocumentList({ items, choose, working }) {
  return html`
    <ul class="document-list" role="list">
      ${items.map((item) => html`
        <li key=${item.id}>
          <button type="button" class="document-row" data-working=${item.id === working} onClick=${() => choose(item)}>
            ${item.image
              ? html`<${Picture} class="document" image=${item.image} style=${{ width: null, height: null }} />`
              : html`<${DocumentSymbol} />`}
            <span>${item.title}</span>
            ${item.id === working && html`<span class="spinner"></span>`}
          </button>
        </li>`)}
    </ul>`;
}
