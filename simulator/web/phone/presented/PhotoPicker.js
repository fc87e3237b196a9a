import { html, useEffect, useRef } from 'htm/preact/standalone';
import { LazyPicture } from '/images.js';

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

export const photoPicker = {
  title: 'Photos', empty: 'No Photos', Content: PhotoGrid,
  source: {
    label: 'Add from this computer…', accept: 'image/*,.heic,.heif', multiple: true, drop: 'Drop to add to Photos',
    take: (session, files) => session.uploads.addPhotos(files),
  },
};
