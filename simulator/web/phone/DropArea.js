import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { sheetOf } from '/phone/presented/sheets.js';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';

/** Lets files of the computer be dropped anywhere onto the element that this stands in, and says so meanwhile. */
export function DropArea() {
  const session = useContext(SessionContext);
  const sheet = useStore(session.store, ({ screen }) => screen?.sheet);
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
      if (event.type === 'drop' && inside) drop(session, [...event.dataTransfer.files]);
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
        <span class="drop-text">${(sheet && sheetOf(sheet).source?.drop) ?? 'Drop to add to Photos'}</span>`}
    </div>`;
}

/** Does with the files what the sheet that can be worked now asks for; pictures can be added at any time. */
function drop(session, files) {
  const { alert, sheet } = session.store.state.screen ?? {};
  const source = !alert && sheet ? sheetOf(sheet).source : null;
  if (source) source.take(session, files);
  else session.uploads.addPictures(files);
}

function carriesFiles({ dataTransfer }) {
  return dataTransfer !== null && [...dataTransfer.types].includes('Files');
}
