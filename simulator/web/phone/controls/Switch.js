import { html, useContext, useEffect, useState } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { setOnly } from '/phone/look.js';
import { SessionContext } from '/session.js';

/** On or off. It turns at once, and turns back if the simulator did not take the change. */
function Switch({ row, name }) {
  const session = useContext(SessionContext);
  const stored = isOn(row.value);
  const [shown, setShown] = useState(stored);
  useEffect(() => setShown(stored), [row]);

  const change = async (event) => {
    const { checked } = event.target;
    setShown(checked);
    if (!(await session.set(row.id, checked))) setShown(stored);
  };
  return html`
    <input type="checkbox" role="switch" class="switch" data-part="main" aria-label=${name} checked=${shown}
      aria-description=${row.accessibilityHint || undefined} disabled=${row.enabled === false} onChange=${change}
      style=${tintsOf(row.control)} />`;
}

export const switchControl = { Content: Switch, showsDetail: true };

function tintsOf({ onTintColor, thumbTintColor }) {
  return setOnly({ '--switch-on': cssColor(onTintColor), '--thumb': cssColor(thumbTintColor) });
}

function isOn(value) {
  return value === true || (typeof value === 'number' && value !== 0);
}
