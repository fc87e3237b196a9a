import { html } from 'htm/preact/standalone';

/** A titled part of the panel; `note` is a short remark beside the title, `path` a longer one below it. */
export function Card({ title, note, path, children }) {
  return html`
    <section class="panel-card">
      <header class="panel-card-header">
        <h2>${title}</h2>
        ${note && html`<span class="panel-card-note">${note}</span>`}
        ${path && html`<p class="panel-card-path">${path}</p>`}
      </header>
      ${children}
    </section>`;
}
