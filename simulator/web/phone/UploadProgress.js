import { html, useContext } from 'htm/preact/standalone';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';

/** How far the file has come that is on its way to the device, with a button that stops it. */
export function UploadProgress() {
  const session = useContext(SessionContext);
  const upload = useStore(session.store, (state) => state.upload);
  if (!upload) return null;
  return html`
    <div class="upload">
      <span class="upload-text" aria-hidden="true">${upload.text}</span>
      <button type="button" class="upload-stop" aria-label=${`Stop: ${upload.text}`} disabled=${!upload.canStop}
        onClick=${() => session.uploads.stop()}>Stop</button>
      <progress class="upload-bar" aria-label=${upload.text} max="1" value=${upload.fraction ?? undefined}></progress>
    </div>`;
}
