import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { SessionContext } from '/session.js';

const duration = 1600;

/** Turns the screen black for a moment whenever `count` (of the device's resprings; null while unknown) has grown. */
export function RespringCover({ count }) {
  const session = useContext(SessionContext);
  const [playing, setPlaying] = useState(false);
  const known = useRef(null);

  useEffect(() => {
    const grown = known.current !== null && count > known.current;
    known.current = count;
    if (!grown) return undefined;
    setPlaying(true);
    session.announce('The device resprings.');
    const timer = setTimeout(() => setPlaying(false), duration);
    return () => clearTimeout(timer);
  }, [count]);

  return playing && html`<div class="respring" aria-hidden="true"><span class="spinner spinner-large"></span></div>`;
}
