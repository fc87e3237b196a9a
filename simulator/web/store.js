import { useEffect, useState } from 'htm/preact/standalone';

/** Holds one state object and tells its listeners when it was replaced. */
export class Store {
  #state;
  #listeners = new Set();

  constructor(state) {
    this.#state = state;
  }

  get state() {
    return this.#state;
  }

  set(changes) {
    this.#state = { ...this.#state, ...changes };
    for (const listener of this.#listeners) listener(this.#state);
  }

  subscribe(listener) {
    this.#listeners.add(listener);
    return () => this.#listeners.delete(listener);
  }
}

/** The store's state; the component is drawn again at each change of what `select` picks from it. */
export function useStore(store, select = (state) => state) {
  const [selected, setSelected] = useState(() => select(store.state));
  useEffect(() => {
    setSelected(() => select(store.state));
    return store.subscribe((state) => setSelected(() => select(state)));
  }, [store]);
  return selected;
}
