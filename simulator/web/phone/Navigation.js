import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { Page } from '/phone/Page.js';
import { SessionContext } from '/session.js';

const longestTransition = 700;

/**
 * The navigation stack: shows the page of `screen`, and slides between pages when the stack grew or shrank.
 *
 * Pages below the top are not in the screen, so what is kept of them is where they were scrolled and focused.
 */
export function Navigation({ screen }) {
  const session = useContext(SessionContext);
  const [, redraw] = useState(0);
  const state = useRef({ number: 0, current: null, leaving: null, motion: 'none', places: [] }).current;
  const container = useRef(null);

  const transition = advance(state, screen, container.current);

  useEffect(() => {
    if (!state.leaving) return undefined;
    session.announce(screen.page.title || 'Untitled page');
    const { leaving } = state;
    const finish = () => {
      if (state.leaving !== leaving) return;
      state.leaving = null;
      state.motion = 'none';
      redraw((count) => count + 1);
    };
    const timer = setTimeout(finish, longestTransition);
    const onEnd = (event) => event.target.classList.contains('page') && finish();
    container.current.addEventListener('animationend', onEnd);
    return () => {
      clearTimeout(timer);
      container.current?.removeEventListener('animationend', onEnd);
    };
  }, [transition]);

  const { current, leaving, motion } = state;
  const layers = leaving ? [leaving, current] : [current];
  if (motion === 'pop') layers.reverse();
  return html`
    <div class="navigation" ref=${container} data-motion=${motion}>
      ${layers.map((layer) => html`
        <${Page} key=${layer.number} screen=${layer.screen} leaving=${layer === leaving} place=${layer.place}
          takesFocus=${layer.takesFocus} onLeave=${(place) => leave(state, layer, place)} />`)}
    </div>`;
}

/** Takes `screen` into `state`; returns the number of the transition that is shown. */
function advance(state, screen, container) {
  const { current } = state;
  if (current?.screen === screen) return state.number;
  const depth = screen.path.length;
  const grown = current ? depth - current.screen.path.length : 0;
  if (current && current.screen.page.id === screen.page.id) {
    current.screen = screen;
    return state.number;
  }
  state.number += 1;
  state.motion = grown > 0 ? 'push' : grown < 0 ? 'pop' : 'none';
  state.leaving = state.motion === 'none' ? null : current;
  const place = grown < 0 ? state.places[depth] : null;
  state.places.length = Math.min(depth, current?.screen.path.length ?? 0);
  const focused = document.activeElement;
  const takesFocus = Boolean(current && container && (container.contains(focused) || focused === document.body));
  state.current = { number: state.number, screen, place: place ?? null, takesFocus };
  return state.number;
}

/** Keeps where a page was left that now lies below another one. */
function leave(state, layer, place) {
  if (state.motion === 'push') state.places[layer.screen.path.length] = place;
}
