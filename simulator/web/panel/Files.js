import { html } from 'htm/preact/standalone';
import { Card } from '/panel/Card.js';
import { PropertyList } from '/panel/PropertyList.js';

/** The device's property lists as they stand on its disk. */
export function Files({ files }) {
  if (files.length === 0) {
    return html`<${Card} title="Preference files"><p class="card-none">No preference file was written yet</p><//>`;
  }
  return files.map((file) => html`<${File} key=${file.path} file=${file} />`);
}

function File({ file }) {
  const slash = file.path.lastIndexOf('/');
  return html`
    <${Card} title=${file.path.slice(slash + 1)} path=${file.path.slice(0, slash)}>
      ${file.error
        ? html`<p class="card-error">${file.error}</p>`
        : html`
          <div class="file-content" tabindex="0" role="region" aria-label=${`Content of ${file.path.slice(slash + 1)}`}>
            <${PropertyList} value=${file.content} />
          </div>`}
    <//>`;
}
