import { html, useContext } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { Wheel } from '/phone/controls/Wheel.js';
import { CustomViews } from '/phone/views/CustomViews.js';
import { SessionContext } from '/session.js';

/** The wheels of a picker. What a wheel was turned to is sent when it stands. */
function Picker({ row, name }) {
  const session = useContext(SessionContext);
  const { components, size: [width, height] } = row.control;
  const values = row.value ?? [];
  const turn = (at, value) => session.set(row.id, components.map((_, each) => (each === at ? value : null)));
  return html`
    <span class="picker" role="group" aria-label=${name} data-own-keys
      style=${{ width: `${width}px`, height: `${height}px` }} data-disabled=${row.enabled === false}>
      ${components.map((component, at) => html`
        <${Wheel} key=${at} name=${components.length > 1 ? `${name}, ${at + 1} of ${components.length}` : name}
          component=${component} value=${values[at] ?? -1} enabled=${row.enabled !== false} height=${height}
          isMain=${at === 0} turn=${(value) => turn(at, value)} draw=${drawRow} />`)}
    </span>`;
}

function drawRow({ title, color, view }) {
  if (!view) return html`<span class="wheel-title" style=${{ color: cssColor(color) }}>${title}</span>`;
  return html`<${CustomViews} views=${[view]} on="cell" />`;
}

export const picker = { Content: Picker, isGroup: true };
