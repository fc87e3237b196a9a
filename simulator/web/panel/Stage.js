import { html, useContext, useState } from 'htm/preact/standalone';
import { Card } from '/panel/Card.js';
import { SessionContext } from '/session.js';

const states = { refused: 'Not loaded', raised: 'Raised', crashed: 'Crashed', hung: 'Hung' };

/**
 * The widgets of the device, and the stage on which one of them is shown and told what a switcher tells it. `stage` is
 * its state as the simulator describes it. `onStage`: the screen shows the widget, not the settings.
 */
export function Stage({ stage, onStage, setOnStage }) {
  const session = useContext(SessionContext);
  const [refusal, setRefusal] = useState(null);
  if (!stage) return null;
  const { widgets, busy, shown, fault } = stage;
  const perform = async (action) => {
    setRefusal(null);
    setRefusal(await session.directStage(action));
  };
  return html`
    <${Card} title="Widgets" note=${busy ? 'working…' : ''}>
      <div class="stage-card" aria-busy=${busy}>
        <button type="button" class="panel-button" onClick=${() => perform({ type: 'load' })}>
          ${widgets ? 'Load again' : 'Load widgets'}
        </button>
        <${Fault} fault=${fault} widgets=${widgets} />
        ${refusal && refusal !== fault?.text && html`<p class="card-error" role="alert">${refusal}</p>`}
        ${shown && html`
          <${Direction} stage=${stage} widget=${widgets.find(({ path }) => path === shown)} perform=${perform}
            onStage=${onStage} setOnStage=${setOnStage} />`}
        ${stage.calls.length > 0 && html`<${Calls} calls=${stage.calls} />`}
        ${widgets?.length === 0 && html`<p class="card-none">The widgets folder is empty</p>`}
        ${widgets?.length > 0 && html`
          <ul class="widget-list" role="list" aria-label="Widgets">
            ${widgets.map((widget) => html`
              <${Widget} key=${widget.path} widget=${widget} isShown=${widget.path === shown}
                show=${() => perform({ type: 'show', widget: widget.path })} />`)}
          </ul>`}
      </div>
    <//>`;
}

/** What ended the last widget. */
function Fault({ fault, widgets }) {
  if (!fault) return null;
  const widget = widgets?.find(({ path }) => path === fault.widget);
  const name = widget ? nameOf(widget) : fileOf(fault.widget);
  return html`<p class="card-error" role="alert"><strong>${name} was taken off the stage.</strong> ${fault.text}</p>`;
}

function Widget({ widget, isShown, show }) {
  const { state, reason, path } = widget;
  return html`
    <li class="widget" data-state=${state}>
      <div class="widget-texts">
        <span class="widget-name">${nameOf(widget)}</span>
        <span class="widget-file">${fileOf(path)}</span>
        ${reason && html`<p class="widget-reason"><strong>${states[state]}.</strong> ${reason}</p>`}
      </div>
      <button type="button" class="panel-button" disabled=${state === 'refused'} aria-label=${`Show ${nameOf(widget)}`}
        onClick=${show}>${isShown ? 'Show again' : 'Show'}</button>
    </li>`;
}

/** What the maker can have the switcher say to the widget on the stage. */
function Direction({ stage, widget, perform, onStage, setOnStage }) {
  const { steps, nextStep, busy, isActivePage } = stage;
  const next = nextStep === null ? null : steps[nextStep];
  const screens = [[true, nameOf(widget)], [false, 'Settings']];
  return html`
    <div class="direction" role="group" aria-label=${`What ${nameOf(widget)} is told`}>
      <div class="direction-row">
        <div class="segmented" role="radiogroup" aria-label="Screen">
          ${screens.map(([value, title]) => html`
            <label class="segment" key=${value} data-chosen=${value === onStage}>
              <input type="radio" name="screen" checked=${value === onStage} onChange=${() => setOnStage(value)} />
              <span>${title}</span>
            </label>`)}
        </div>
      </div>
      <div class="direction-row">
        <button type="button" class="panel-button panel-button-strong" disabled=${busy || !next}
          onClick=${() => perform({ type: 'step' })}>${next ? `Next: ${callOf(next)}` : 'No further step'}</button>
        <button type="button" class="panel-button" disabled=${busy || !widget.hasPreferences}
          onClick=${() => perform({ type: 'preferences' })}>Preferences</button>
        <button type="button" class="panel-button" onClick=${() => perform({ type: 'close' })}>Close</button>
      </div>
      <ul class="method-list" role="list" aria-label="Methods">
        ${widget.methods.map((method) => html`
          <${Method} key=${method.name} method=${method} busy=${busy} perform=${perform}
            note=${noteOn(method, isActivePage)} />`)}
      </ul>
    </div>`;
}

function Method({ method: { name, takesFlag, implemented }, note, busy, perform }) {
  return html`
    <li data-implemented=${implemented}>
      <code>${name}</code>
      ${note && html`<span class="method-note">${note}</span>`}
      <span class="method-buttons">
        ${(takesFlag ? [true, false] : [null]).map((argument) => html`
          <button type="button" class="panel-button" key=${String(argument)} disabled=${busy || !implemented}
            aria-label=${`Send ${callOf({ method: name, argument })}`}
            onClick=${() => perform({ type: 'call', method: name, argument })}>
            ${argument === null ? 'Send' : flagOf(argument)}
          </button>`)}
      </span>
    </li>`;
}

/** What the widget was told, newest first. */
function Calls({ calls }) {
  return html`
    <ol class="event-list" role="list" tabindex="0" aria-label="Calls, newest first">
      ${[...calls].reverse().map((call) => html`
        <li key=${call.number}>
          <span class="event-number">${call.number}</span> <code>${callOf(call)}</code>
          ${call.outcome === 'done'
            ? html`<span class="method-note">${call.milliseconds?.toFixed(1)} ms</span>`
            : html`<span class="call-fault">${call.detail ?? call.outcome}</span>`}
        </li>`)}
    </ol>`;
}

function noteOn({ name, implemented }, isActivePage) {
  if (!implemented) return 'not implemented';
  return name === 'setIsActivePage:' && isActivePage !== null ? `now ${flagOf(isActivePage)}` : null;
}

function flagOf(argument) {
  return argument ? 'YES' : 'NO';
}

function callOf({ method, argument }) {
  return argument === null || argument === undefined ? method : `${method}${flagOf(argument)}`;
}

function fileOf(path) {
  return path.slice(path.lastIndexOf('/') + 1);
}

function nameOf(widget) {
  return widget.displayName || widget.identifier || fileOf(widget.path);
}
