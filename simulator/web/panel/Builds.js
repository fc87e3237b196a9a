import { html } from 'htm/preact/standalone';
import { Card } from '/panel/Card.js';

/** What could not be built for the device, with the compiler's errors; what was built before goes on running. */
export function Builds({ builds }) {
  return html`
    <div class="builds" role="alert">
      ${builds.map(({ name, sentence, errors }) => html`
        <${Card} key=${name} title=${`${name} was not built`}>
          ${sentence !== `${name} was not built.` && html`<p class="card-error">${sentence}</p>`}
          ${errors.length > 0 && html`
            <ol class="event-list build-errors" role="list" tabindex="0" aria-label=${`Errors in ${name}`}>
              ${errors.map((error, at) => html`
                <li key=${at}>
                  ${error.file && html`<code class="build-place">${placeOf(error)}</code> `}<span>${error.message}</span>
                </li>`)}
            </ol>`}
        <//>`)}
    </div>`;
}

function placeOf({ file, line, column }) {
  return [file, line, column].filter((part) => part !== null).join(':');
}
