import { html, useContext, useEffect, useLayoutEffect, useRef, useState } from 'htm/preact/standalone';
import { lengthInWords } from '/longText.js';
import { AlertField } from '/phone/presented/AlertField.js';
import { trapTab } from '/phone/focusTrap.js';
import { SessionContext } from '/session.js';

// Characters of a title that fit into half of an alert.
const fitsBeside = 14;

/** An alert or an action sheet. The focus stays in it until an action was chosen; Escape chooses the cancel action. */
export function Alert({ alert }) {
  const session = useContext(SessionContext);
  const dialog = useRef(null);
  const [drafts, setDrafts] = useState({});
  const sent = useRef({}).current;
  const texts = useRef(null);
  const [scrolls, setScrolls] = useState(false);
  const sheet = alert.style === 'actionSheet';
  const cancel = alert.actions.find(({ style }) => style === 'cancel');

  useLayoutEffect(() => {
    // What is longer than the screen has to be a stop, to be scrolled by keyboard.
    setScrolls(texts.current !== null && texts.current.scrollHeight > texts.current.clientHeight);
  }, [alert.message]);
  useEffect(() => {
    const first = dialog.current.querySelector('input')
      ?? dialog.current.querySelector('[data-style="cancel"]') ?? dialog.current.querySelector('button');
    (first ?? dialog.current).focus();
  }, []);

  const commit = (id) => {
    if (!(id in drafts) || sent[id] === drafts[id]) return;
    sent[id] = drafts[id];
    session.set(id, drafts[id]);
  };
  const edit = (id, text) => setDrafts((all) => ({ ...all, [id]: text }));
  // What the field holds is then the device's to say.
  const forget = (id) => {
    delete sent[id];
    setDrafts(({ [id]: forgotten, ...others }) => others);
  };
  const choose = (action) => {
    Object.keys(drafts).forEach(commit);
    session.tap(action.id);
  };
  const onKeyDown = (event) => {
    trapTab(event, dialog.current);
    if (event.key !== 'Escape' || !cancel) return;
    event.preventDefault();
    choose(cancel);
  };
  const onFieldKey = (event) => {
    if (event.key !== 'Enter') return;
    event.preventDefault();
    const preferred = alert.actions.find((action) => action.preferred)
      ?? alert.actions.find(({ style }) => style !== 'cancel') ?? cancel;
    const next = event.target.closest('li').nextElementSibling?.querySelector('input');
    if (next) next.focus();
    else if (preferred) choose(preferred);
  };

  // A sheet shows its cancel action apart, an alert last, or on the left when its two actions fit side by side.
  const others = alert.actions.filter((action) => action !== cancel);
  const fit = alert.actions.every(({ title }) => title.length <= fitsBeside);
  const sideBySide = !sheet && alert.actions.length === 2 && fit;
  const last = cancel && !sheet ? [cancel] : [];
  const main = sideBySide ? [...last, ...others] : [...others, ...last];
  const button = (action) => html`
    <button type="button" class="alert-action" key=${action.id} data-style=${action.style}
      data-preferred=${action.preferred} disabled=${action.enabled === false} onClick=${() => choose(action)}>
      ${action.title}
    </button>`;

  return html`
    <div class=${sheet ? 'dimming dimming-sheet' : 'dimming'}>
      <div class=${sheet ? 'action-sheet' : 'alert'} role="alertdialog" aria-modal="true" tabindex="-1" ref=${dialog}
        data-interface-style=${alert.interfaceStyle ?? undefined}
        aria-label=${alert.title ? undefined : 'Alert'} aria-labelledby=${alert.title ? 'alert-title' : undefined}
        aria-describedby=${alert.message ? 'alert-message' : undefined} onKeyDown=${onKeyDown}>
        <div class="alert-box">
          ${(alert.title || alert.message || alert.fields?.length > 0) && html`
            <div class="alert-texts" ref=${texts} tabindex=${scrolls ? 0 : undefined}>
              ${alert.title && html`<h2 class="alert-title" id="alert-title">${alert.title}</h2>`}
              ${alert.message && html`
                <p class="alert-message" id="alert-message">
                  ${alert.message}${alert.messageLength && `… (${lengthInWords(alert.messageLength)} in all)`}
                </p>`}
              ${alert.fields?.length > 0 && html`
                <ul class="alert-fields" role="list">
                  ${alert.fields.map((field) => html`
                    <${AlertField} key=${field.id} field=${field} draft=${drafts[field.id]}
                      edit=${(text) => edit(field.id, text)} commit=${() => commit(field.id)}
                      forget=${() => forget(field.id)} onKeyDown=${onFieldKey} />`)}
                </ul>`}
            </div>`}
          ${main.length > 0 && html`
            <div class=${sideBySide ? 'alert-actions alert-actions-pair' : 'alert-actions'}>${main.map(button)}</div>`}
        </div>
        ${sheet && cancel && html`<div class="alert-box alert-cancel">${button(cancel)}</div>`}
      </div>
    </div>`;
}
