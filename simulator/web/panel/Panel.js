import { html, useContext } from 'htm/preact/standalone';
import { displayIn } from '/display.js';
import { Builds } from '/panel/Builds.js';
import { Card } from '/panel/Card.js';
import { Display } from '/panel/Display.js';
import { Files } from '/panel/Files.js';
import { Log } from '/panel/Log.js';
import { Pasteboard } from '/panel/Pasteboard.js';
import { Stage } from '/panel/Stage.js';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';

const recent = 100;

/** What happened on the device, beside the phone. `onStage`: the screen shows the stage, not the settings. */
export function Panel({ onStage, setOnStage }) {
  const session = useContext(SessionContext);
  const device = useStore(session.store, (state) => state.device);
  return html`
    <aside class="panel" id="device" tabindex="-1" aria-label="Device">
      ${device && html`
        <${Display} display=${displayIn({ device })} />
        <${Builds} builds=${device.builds ?? []} />
        <div class="panel-column">
          <${Stage} stage=${device.stage} onStage=${onStage} setOnStage=${setOnStage} />
          <${Files} files=${device.files ?? []} />
        </div>
        <div class="panel-column">
          <${Notifications} notifications=${device.notifications ?? []} resprings=${device.resprings ?? 0} />
          <${OpenedAddresses} addresses=${device.openedURLs ?? []} />
          <${Pasteboard} string=${device.pasteboard ?? null} length=${device.pasteboardLength ?? 0} />
          <${Log} lines=${device.log ?? []} />
        </div>`}
    </aside>`;
}

function Notifications({ notifications, resprings }) {
  const shown = notifications.slice(-recent).reverse();
  const note = resprings === 1 ? '1 respring' : `${resprings} resprings`;
  return html`
    <${Card} title="Notifications posted" note=${note}>
      ${shown.length === 0
        ? html`<p class="card-none">None yet</p>`
        : html`
          <ol class="event-list" role="list" tabindex="0" aria-label="Notifications, newest first">
            ${shown.map(({ name, sequence }) => html`
              <li key=${sequence}><span class="event-number">${sequence}</span> <code>${name}</code></li>`)}
          </ol>`}
    <//>`;
}

function OpenedAddresses({ addresses }) {
  const shown = addresses.slice(-recent).map((address, at) => ({ address, at })).reverse();
  if (shown.length === 0) return null;
  return html`
    <${Card} title="Opened addresses">
      <ol class="event-list" role="list" tabindex="0" aria-label="Opened addresses, newest first">
        ${shown.map(({ address, at }) => html`<li key=${at}><code>${address}</code></li>`)}
      </ol>
    <//>`;
}
