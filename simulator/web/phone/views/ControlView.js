import { html, useContext } from 'htm/preact/standalone';
import { controlOf } from '/phone/controls/controls.js';
import { textOf } from '/phone/views/CustomViews.js';
import { isTouch } from '/phone/touches.js';
import { SessionContext } from '/session.js';

/** A control that stands somewhere on a page, not in a row, and is worked where it is. */
export function ControlView({ view, children }) {
  const session = useContext(SessionContext);
  const { control, id, enabled } = view;
  const name = textOf(view) || control.placeholder || view.accessibilityIdentifier || view.class;
  if (control.type === 'button') {
    return html`
      <span class="view-face" aria-hidden="true">${children}</span>
      <button type="button" class="view-button" aria-label=${name} disabled=${!enabled}
        aria-description=${view.accessibilityHint || undefined}
        aria-haspopup=${control.menu ? 'menu' : undefined} data-through=${view.touchable || undefined}
        onClick=${(event) => (view.touchable && isTouch(event)) || session.tap(id)}></button>`;
  }
  const { Content } = controlOf(control);
  return html`<span class="view-control"><${Content} row=${view} name=${name} /></span>`;
}
