import { html, useContext, useEffect, useRef } from 'htm/preact/standalone';
import { displayIn } from '/display.js';
import { SessionContext } from '/session.js';
import { useStore } from '/store.js';
import { Alert } from '/phone/presented/Alert.js';
import { DevicePlace } from '/phone/DevicePlace.js';
import { DropArea } from '/phone/DropArea.js';
import { Navigation } from '/phone/Navigation.js';
import { RespringCover } from '/phone/RespringCover.js';
import { Menu } from '/phone/presented/Menu.js';
import { Sheet } from '/phone/presented/Sheet.js';
import { StatusSymbols } from '/phone/symbols.js';
import { UploadProgress } from '/phone/UploadProgress.js';

/** The phone: its frame, the Settings application on its screen, and whatever lies over that. */
export function Phone() {
  const session = useContext(SessionContext);
  const state = useStore(session.store);
  const { screen, screenError, device, notice, isWorking, connection } = state;
  const content = useRef(null);
  const covered = Boolean(screen?.alert || screen?.sheet || screen?.menu);
  useFocusReturn(content, covered);

  return html`
    <${DevicePlace} display=${displayIn(state)} isWhole=${session.isStage}>
      <div class="screen">
        <div class="screen-content" ref=${content} inert=${covered}>
          ${screenError !== null || !screen
            ? html`<${NoScreen} reason=${screenError} connection=${connection} />`
            : html`<${Navigation} screen=${screen} />`}
        </div>
        ${screen?.sheet && html`
          <${Sheet} key=${screen.sheet.kind} sheet=${screen.sheet} covered=${Boolean(screen.alert)} />`}
        ${screen?.menu && html`<${Menu} key=${menuKey(screen.menu)} menu=${screen.menu} />`}
        ${screen?.alert && html`<${Alert} key=${alertKey(screen.alert)} alert=${screen.alert} />`}
        <${Notice} text=${connection === 'lost' ? 'The simulator does not answer. Reconnecting…' : notice} />
        ${!screen?.sheet && html`<${UploadProgress} />`}
        <div class="working-sign" role="status">
          ${isWorking && html`<span class="spinner"></span><span class="visually-hidden">Working…</span>`}
        </div>
        <${DropArea} />
        <div class="status-bar" aria-hidden="true"><span class="status-time">9:41</span><${StatusSymbols} /></div>
        <div class="home-indicator" aria-hidden="true"></div>
        <${RespringCover} count=${device?.resprings ?? null} />
      </div>
      <div class="notch" aria-hidden="true"></div>
    <//>`;
}

function alertKey(alert) {
  return alert.actions[0]?.id ?? alert.title;
}

/** A menu has its elements' numbers from the one that it is the menu of. */
function menuKey({ levels }) {
  return levels[0].groups[0]?.items[0]?.id.split('.')[0];
}

function NoScreen({ reason, connection }) {
  const session = useContext(SessionContext);
  if (reason === null) {
    const text = connection === 'connecting' ? 'Connecting…' : 'Loading…';
    return html`<div class="no-screen" role="status">${text}</div>`;
  }
  return html`
    <div class="no-screen" role="alert">
      <h2>Settings does not run</h2>
      <p>${reason}</p>
      <button type="button" class="text-button" onClick=${() => session.reload()}>Try Again</button>
    </div>`;
}

function Notice({ text }) {
  const session = useContext(SessionContext);
  useEffect(() => {
    if (!text) return undefined;
    const timer = setTimeout(() => session.store.set({ notice: null }), 6000);
    return () => clearTimeout(timer);
  }, [text]);
  return html`<div class="notice" role="status">${text && html`<span class="notice-text">${text}</span>`}</div>`;
}

/** Gives the focus back to where it was in `content` when nothing covers the content any more. */
function useFocusReturn(content, covered) {
  const last = useRef(null);
  useEffect(() => {
    const node = content.current;
    const remember = (event) => {
      last.current = event.target;
    };
    node.addEventListener('focusin', remember);
    return () => node.removeEventListener('focusin', remember);
  }, []);
  const wasCovered = useRef(false);
  useEffect(() => {
    const uncovered = wasCovered.current && !covered;
    wasCovered.current = covered;
    if (!uncovered || document.activeElement !== document.body) return;
    if (last.current?.isConnected) last.current.focus();
    else content.current.querySelector('[data-page-heading]')?.focus();
  }, [covered]);
}
