import { html, useRef } from 'htm/preact/standalone';

/** A button that asks for files of the computer and gives them to `choose` as an array. `accept` as of an input. */
export function FileChooser({ label, accept, multiple, choose }) {
  const input = useRef(null);
  const onChange = ({ target }) => {
    const files = [...target.files];
    target.value = '';  // So that the same file can be chosen again.
    if (files.length > 0) choose(files);
  };
  return html`
    <div class="file-chooser">
      <input type="file" hidden ref=${input} accept=${accept} multiple=${multiple} onChange=${onChange} />
      <button type="button" class="file-chooser-button" onClick=${() => input.current.click()}>${label}</button>
    </div>`;
}
