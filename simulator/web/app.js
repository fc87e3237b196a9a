import { html, render, useEffect, useState } from 'htm/preact/standalone';
import { Api } from '/api.js';
import { Panel } from '/panel/Panel.js';
import { Phone } from '/phone/Phone.js';
import { Session, SessionContext } from '/session.js';
import { useStore } from '/store.js';
import { takeToken } from '/token.js';

function App({ session }) {
  const { connection, announcement, device } = useStore(session.store);
  const shown = device?.stage?.shown ?? null;
  const [wantsStage, setWantsStage] = useState(true);
  // What comes on the stage is on the screen at first.
  useEffect(() => setWantsStage(true), [shown]);
  const onStage = shown !== null && wantsStage;
  if (connection === 'refused') {
    return html`<${Obstacle} title="This address is out of date"
      text="The simulator was started again since. Open the address that it printed last." />`;
  }
  return html`
    <${SessionContext.Provider} value=${session}>
      <a class="skip-link" href="#device">Skip to what happened on the device</a>
      <div class="stage">
        <main class="stage-phone" aria-label=${onStage ? 'Stage' : 'Phone'}>
          <h1 class="visually-hidden">Settings simulator</h1>
          <${SessionContext.Provider} value=${onStage ? session.stage : session}>
            <${Phone} key=${onStage ? shown : 'settings'} />
          <//>
        </main>
        <${Panel} onStage=${onStage} setOnStage=${setWantsStage} />
      </div>
      <div class="visually-hidden" role="status">${announcement}</div>
    <//>`;
}

function Obstacle({ title, text }) {
  return html`<main class="obstacle"><h1>${title}</h1><p>${text}</p></main>`;
}

const token = takeToken();
const root = document.getElementById('app');
if (token) {
  const api = new Api(token);
  const session = new Session(api);
  Session.addStage(session, api);
  render(html`<${App} session=${session} />`, root);
  session.start();
} else {
  render(html`<${Obstacle} title="The address is incomplete"
    text="Open the whole address that the simulator printed, with all that follows the number sign." />`, root);
}
