const storageKey = 'simulator-token';

/**
 * The token that the simulator printed in its address (`#t=…`).
 *
 * It is moved from the address bar to the session storage of this tab, so that it shows in no history entry and
 * survives a reload. Returns null when the tab never had one.
 */
export function takeToken() {
  const given = new URLSearchParams(location.hash.slice(1)).get('t');
  if (given) {
    sessionStorage.setItem(storageKey, given);
    history.replaceState(null, '', location.pathname + location.search);
  }
  return sessionStorage.getItem(storageKey);
}
