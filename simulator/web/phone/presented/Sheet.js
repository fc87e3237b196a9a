import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { FileChooser } from '/phone/FileChooser.js';
import { trapTab } from '/phone/focusTrap.js';
import { sheetOf } from '/phone/presented/sheets.js';
import { Close as CloseSymbol } from '/phone/symbols.js';
import { UploadProgress } from '/phone/UploadProgress.js';
import { SessionContext } from '/session.js';

/**
 * A sheet over the page: photos, documents or a colour to pick, or things to share. `covered`: an alert lies over
 * it.
 */
export function Sheet({ sheet, covered }) {
  const session = useContext(SessionContext);
  const card = useRef(null);
  const { title, empty, leave = 'Cancel', hasCross, Content, source } = sheetOf(sheet);
  const items = sheet.items ?? [];
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
        data-interface-style=${sheet.interfaceStyle ?? undefined} aria-busy=${working !== null} tabindex="-1" ref=${card} onKeyDown=${onKeyDown}>
        <header class="card-bar">
          ${hasCross
            ? html`<span></span>`
            : html`<button type="button" class="bar-button" onClick=${dismiss}>${leave}</button>`}
          <h2 class="bar-title" id="sheet-title">${sheet.title || title}</h2>
          ${hasCross
            ? html`
              <button type="button" class="card-close" aria-label="Close" onClick=${dismiss}><${CloseSymbol} /></button>`
            : html`<span></span>`}
        </header>
        ${source && html`
          <${FileChooser} label=${source.label} accept=${source.accept} multiple=${source.multiple}
            choose=${(files) => source.take(session, files)} />`}
        ${empty && items.length === 0
          ? html`<p class="card-empty">${empty}</p>`
          : Content && html`<${Content} sheet=${sheet} items=${items} choose=${choose} working=${working} />`}
        <${UploadProgress} />
      </div>
    </div>`;
}
