import { html, useContext, useEffect, useRef, useState } from '/modules/htm-preact.mjs';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';

/** Lets files of the computer be dropped anywhere onto the element that this stands in, and says so meanwhile. */
export function DropArea() {
  const session = useContext(SessionContext);
  const kind = useStore(session.store, ({ screen }) => screen?.sheet?.kind);
  const area = useRef(null);
  const [over, setOver] = useState(false);

  useEffect(() => {
    const phone = area.current.parentElement;
    const follow = (event) => {
      if (!carriesFiles(event)) return;
      // Beside the phone the browser would open the file in place of the page.
      event.preventDefault();
      const inside = phone.contains(event.target);
      event.dataTransfer.dropEffect = inside ? 'copy' : 'none';
      setOver(inside && event.type === 'dragover');
      if (event.type === 'drop' && inside) session.uploads.drop([...event.dataTransfer.files]);
    };
    const leave = (event) => {
      if (event.relatedTarget === null) setOver(false);
    };
    addEventListener('dragover', follow);
    addEventListener('drop', follow);
    addEventListener('dragleave', leave);
    return () => {
      removeEventListener('dragover', follow);
      removeEventListener('drop', follow);
      removeEventListener('dragleave', leave);
    };
  }, []);

  return html`
    <div class="drop-area" ref=${area} data-over=${over} aria-hidden="true">
      ${over && html`
        <span class="drop-text">${kind === 'documents' ? 'Drop to choose this file' : 'Drop to add to Photos'}</span>`}
    </div>`;
}

function carriesFiles({ dataTransfer }) {
  return dataTransfer !== null && [...dataTransfer.types].includes('Files');
}
