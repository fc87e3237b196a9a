import { html, render } from 'htm/preact/standalone';
import { Api } from '/api.js';
import { Panel } from '/panel/Panel.js';
import { Phone } from '/phone/Phone.js';
import { Session, SessionContext } from '/session.js';
import { useStore } from '/store.js';
import { takeToken } from '/token.js';

function App({ session }) {
  const { connection, announcement } = useStore(session.store);
  if (connection === 'refused') {
    return html`<${Obstacle} title="This address is out of date"
      text="The simulator was started again since. Open the address that it printed last." />`;
  }
  return html`
    <${SessionContext.Provider} value=${session}>
      <a class="skip-link" href="#device">Skip to what happened on the device</a>
      <div class="stage">
        <main class="stage-phone" aria-label="Phone">
          <h1 class="visually-hidden">Settings simulator</h1>
          <${Phone} />
        </main>
        <${Panel} />
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
  const session = new Session(new Api(token));
  render(html`<${App} session=${session} />`, root);
  session.start();
} else {
  render(html`<${Obstacle} title="The address is incomplete"
    text="Open the whole address that the simulator printed, with all that follows the number sign." />`, root);
}
