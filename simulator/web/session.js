import { createContext } from 'htm/preact/standalone';
import { ApiError } from '/api.js';
import { ImageCache } from '/images.js';
import { Store } from '/store.js';
import { readEvents } from '/stream.js';
import { Uploads } from '/uploads.js';

export const SessionContext = createContext(null);

const shortestPause = 300;
const longestPause = 5000;
const attempts = 3;
// Milliseconds after which people wonder whether their input was taken.
const noticeable = 500;

/**
 * What this tab knows of the device, kept current by the event stream, and the way to send input to it.
 *
 * `store.state`: `connection` ("connecting", "open", "lost" or "refused"), `screen`, `screenError` (why there is no
 * screen), `device`, `announcement` (for assistive technology), `notice` (a refusal to show), `isWorking` (an
 * input has not been answered for a while), `upload` (see uploads.js).
 */
export class Session {
  store = new Store({
    connection: 'connecting', screen: null, screenError: null, device: null, announcement: '', notice: null,
    isWorking: false, upload: null,
  });
  images;
  uploads;
  /** The session of the stage's screen, which follows this one; null in that one. */
  stage = null;
  /** Whether this is that one. */
  isStage = false;
  #api;
  #input = Promise.resolve();
  #stream = null;
  #refreshScreen;
  #refreshDevice;

  constructor(api) {
    this.#api = api;
    this.images = new ImageCache((url) => api.blob(url));
    this.uploads = new Uploads(this, api);
    this.#refreshScreen = coalesced(() => this.#loadScreen());
    this.#refreshDevice = coalesced(() => this.#loadDevice());
  }

  /** Gives `session` one of the stage's screen: the device is the same, and told by `session`. */
  static addStage(session, api) {
    const stage = new Session(api.ofStage);
    stage.isStage = true;
    session.stage = stage;
    session.store.subscribe(({ device, connection }) => stage.#follow(device, connection));
  }

  /** Connects, and from then on is connected whenever the page is visible. */
  start() {
    const darkness = matchMedia('(prefers-color-scheme: dark)');
    darkness.addEventListener('change', () => this.#sendAppearance(darkness));
    document.addEventListener('visibilitychange', () => this.#followVisibility(darkness));
    this.#followVisibility(darkness);
  }

  /** `more` is what the event says beside the id. */
  tap(id, more) {
    return this.send(() => ({ type: 'tap', id, ...more }));
  }

  /** A finger stays on what has the `id`, at a point of it (`[x, y]`) or in its middle. */
  press(id, at) {
    return this.send(() => ({ type: 'gesture', kind: 'press', id, ...at && { at } }));
  }

  /** Swipes the row `id` open so that its actions show, or closed. */
  swipe(id, open) {
    return this.send(() => ({ type: 'swipe', id, open }));
  }

  set(id, value) {
    return this.send(() => ({ type: 'set', id, value }));
  }

  /** Sets a text field's text and presses its return key. */
  enter(id, value) {
    return this.send(() => ({ type: 'set', id, value, return: true }));
  }

  /** Moves a slider, or a colour in its picker, while the finger stays on it. */
  drag(id, value) {
    return this.send(() => ({ type: 'set', id, value, finished: false }));
  }

  /**
   * Sends a part of a touch, which is about what was touched when it began, whatever the screen shows now. Resolves
   * with whether it was taken.
   */
  touch(part) {
    return this.#tell({ type: 'touch', ...part });
  }

  /** Tells where a person has scrolled what the screen of that moment still `holds`; otherwise like `touch`. */
  scrolled(part, holds) {
    return this.#tell({ type: 'scrolled', ...part }, holds);
  }

  /** A tap on the status bar. */
  scrollToTop() {
    return this.send(() => ({ type: 'scrollToTop' }));
  }

  /** Adds what is on the device's pasteboard to the text of a field. */
  paste(id) {
    return this.send(() => ({ type: 'paste', id }));
  }

  /** Presses the clear button of a field. */
  clear(id) {
    return this.send(() => ({ type: 'clear', id }));
  }

  /** Has the device scroll to a row of which the screen has the outline only, so that it is described. */
  reveal(section, row) {
    this.#input = this.#input.then(async () => {
      const { screen } = this.store.state;
      if (!screen?.page.sections[section]?.rows[row]?.outline) return;
      try {
        this.#show(await this.#api.event({ type: 'scroll', to: [section, row], revision: screen.revision }));
      } catch (error) {
        if (!(error instanceof ApiError)) throw error;
        await this.#refreshScreen();
      }
    });
    return this.#input;
  }

  /**
   * Sends one input event after all earlier ones were answered, and shows the screen that it led to.
   *
   * `make` makes the event from the screen of that moment; when it returns null the screen is another than the one
   * that the user saw, and nothing is sent. Resolves with true when the simulator accepted the event. Never rejects.
   */
  send(make) {
    return this.#queue((screen) => {
      const event = make(screen);
      return event && this.#api.event({ ...event, revision: screen.revision });
    });
  }

  /** Picks a file of this computer in the document picker on the screen; otherwise like `send`. */
  pickFile(file, way) {
    return this.#queue((screen) => (
      screen.sheet?.kind === 'documents' ? this.#api.pickFile(file, screen.revision, way) : null));
  }

  /** Resolves with null or with the reason why the pasteboard was not changed. */
  async setPasteboard(string) {
    try {
      await this.#api.setPasteboard(string);
    } catch (error) {
      return error.message;
    }
    await this.#refreshDevice();
    return null;
  }

  /** Resolves with the whole text on the pasteboard, of which the device's state has the beginning; null for none. */
  async pasteboardString() {
    return (await this.#api.pasteboardString()).string;
  }

  /** Changes `kind` or `orientation` of the display. The screen on it comes when the device has laid it out anew. */
  async setDisplay(changes) {
    try {
      await this.#api.setDisplay(changes);
    } catch (error) {
      this.store.set({ notice: error.message });
    }
    await this.#refreshDevice();
  }

  /** Resolves with null or with the reason why the stage did not do `action`. */
  async directStage(action) {
    try {
      await this.#api.stage(action);
    } catch (error) {
      return error.message;
    } finally {
      await this.#refreshDevice();
    }
    return null;
  }

  blob(url) {
    return this.#api.blob(url);
  }

  /** Has assistive technology read `text`. */
  announce(text) {
    // A live region says nothing when its text stays the same.
    const repeated = this.store.state.announcement === text;
    this.store.set({ announcement: repeated ? `${text}\u00a0` : text });
  }

  reload() {
    return this.#refreshScreen();
  }

  #tell(event, holds = () => true) {
    const done = this.#input.then(async () => {
      if (!holds(this.store.state.screen)) return false;
      try {
        this.#show(await this.#api.event(event));
        return true;
      } catch (error) {
        if (!(error instanceof ApiError)) throw error;
        await this.#refreshScreen();
        return false;
      }
    });
    this.#input = done;
    return done;
  }

  #queue(perform) {
    const done = this.#input.then(() => this.#deliver(perform));
    this.#input = done;
    return done;
  }

  // `perform` resolves with the screen that the input led to; it is null when the input makes no sense any more.
  async #deliver(perform) {
    const working = setTimeout(() => this.store.set({ isWorking: true }), noticeable);
    try {
      return await this.#attempt(perform);
    } finally {
      clearTimeout(working);
      if (this.store.state.isWorking) this.store.set({ isWorking: false });
    }
  }

  async #attempt(perform) {
    const { notice } = this.store.state;
    for (let attempt = 0; attempt < attempts; attempt += 1) {
      const { screen } = this.store.state;
      const answer = screen && perform(screen);
      if (!answer) break;
      try {
        this.#show(await answer);
        // One that came meanwhile is about something else.
        if (this.store.state.notice === notice) this.store.set({ notice: null });
        return true;
      } catch (error) {
        await this.#refreshScreen();
        // What the user saw is gone.
        if (error.status === 404) break;
        if (error.status !== 409) {
          if (this.store.state.screenError === null) this.store.set({ notice: error.message });
          return false;
        }
      }
    }
    this.store.set({ notice: 'The screen has changed. Please try again.' });
    return false;
  }

  #show(screen) {
    const shown = this.store.state.screen;
    if (shown && screen.revision < shown.revision) return;
    // What may be different under one revision, the position of a table, is the browser's own.
    const isSame = shown?.revision === screen.revision && this.store.state.screenError === null;
    if (!isSame) this.store.set({ screen, screenError: null });
  }

  async #loadScreen() {
    try {
      this.#show(await this.#api.screen());
    } catch (error) {
      if (error.status !== 0) this.store.set({ screenError: error.message });
    }
  }

  async #loadDevice() {
    try {
      const device = await this.#api.device();
      const known = this.store.state.device;
      const resprung = known !== null && device.resprings !== known.resprings;
      this.store.set(resprung ? { device, screen: null, notice: null } : { device });
      if (!resprung) return;
      // Settings has started afresh: what was on its screen means nothing any more.
      this.#refreshScreen();
    } catch (error) {
      if (!(error instanceof ApiError)) throw error;
    }
  }

  #follow(device, connection) {
    const known = this.store.state;
    if (known.device === device && known.connection === connection) return;
    this.store.set({ device, connection });
    const { shown = null, revision = 0 } = device?.stage ?? {};
    if (shown === null) this.store.set({ screen: null, screenError: null, notice: null });
    else if (revision > (known.screen?.revision ?? 0)) this.#refreshScreen();
  }

  #sendAppearance(darkness) {
    if (document.visibilityState === 'hidden') return;
    this.#api.setAppearance(darkness.matches ? 'dark' : 'light').catch(() => {});
  }

  // Browsers open only a few connections to one host, so a page that nobody sees gives its stream up.
  #followVisibility(darkness) {
    if (document.visibilityState === 'hidden') {
      this.#stream?.abort();
      this.#stream = null;
    } else if (!this.#stream) {
      this.#stream = new AbortController();
      this.#sendAppearance(darkness);
      this.#listen(this.#stream.signal);
    }
  }

  async #listen(signal) {
    let pause = shortestPause;
    while (!signal.aborted) {
      try {
        const response = await this.#api.stream(signal);
        pause = shortestPause;
        this.store.set({ connection: 'open' });
        this.#refreshScreen();
        this.#refreshDevice();
        await readEvents(response.body, (event) => this.#receive(event));
      } catch (error) {
        if (signal.aborted) return;
        if (error.status === 401 || error.status === 403) {
          this.store.set({ connection: 'refused' });
          return;
        }
      }
      if (signal.aborted) return;
      this.store.set({ connection: 'lost' });
      await new Promise((resolve) => setTimeout(resolve, pause));
      pause = Math.min(pause * 2, longestPause);
    }
  }

  #receive({ event, data }) {
    if (event === 'device') this.#refreshDevice();
    if (event !== 'screen') return;
    const { revision } = JSON.parse(data);
    const shown = this.store.state.screen;
    if (!shown || revision > shown.revision) this.#refreshScreen();
  }
}

/** Runs `work` at most once at a time; calls that come meanwhile are met by one further run. */
function coalesced(work) {
  let running = null;
  let next = null;
  const run = () => {
    running = work().finally(() => {
      running = null;
    });
    return running;
  };
  return () => {
    if (!running) return run();
    next ??= running.then(() => {
      next = null;
      return run();
    });
    return next;
  };
}
