import { html, useContext } from '/modules/htm-preact.mjs';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';

/** How far the file has come that is on its way to the device. */
export function UploadProgress() {
  const session = useContext(SessionContext);
  const upload = useStore(session.store, (state) => state.upload);
  if (!upload) return null;
  return html`
    <div class="upload">
      <span class="upload-text" aria-hidden="true">${upload.text}</span>
      <progress class="upload-bar" aria-label=${upload.text} max="1" value=${upload.fraction ?? undefined}></progress>
    </div>`;
}
