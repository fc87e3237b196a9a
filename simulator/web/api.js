/** An answer of the simulator that is no success. `status` is 0 when there was no answer at all. */
export class ApiError extends Error {
  constructor(status, message) {
    super(message);
    this.status = status;
  }
}

/** The simulator's HTTP interface; every call carries the token. */
export class Api {
  #token;
  #place;

  /** `place` is that of the screen and of what is done on it: "/api" for the settings, "/api/stage" for the stage. */
  constructor(token, place = '/api') {
    this.#token = token;
    this.#place = place;
  }

  /** The interface to the screen of the stage, and to the same device. */
  get ofStage() {
    return new Api(this.#token, '/api/stage');
  }

  screen() {
    return this.#json('GET', `${this.#place}/screen`);
  }

  /** Resolves with the state of the stage when `action` is done. */
  stage(action) {
    return this.#json('POST', '/api/stage', action);
  }

  device() {
    return this.#json('GET', '/api/device');
  }

  /** Resolves with the screen after the event. */
  event(event) {
    return this.#json('POST', `${this.#place}/events`, event);
  }

  /** Resolves with `{string}`. */
  pasteboardString() {
    return this.#json('GET', '/api/device/pasteboard/string');
  }

  setPasteboard(string) {
    return this.#json('PUT', '/api/device/pasteboard', { string });
  }

  /** `style` is "light" or "dark". */
  setAppearance(style) {
    return this.#json('PUT', '/api/device/appearance', { style });
  }

  /** `changes`: `kind`, "phone" or "tablet", or `orientation`, "portrait" or "landscape", or both. */
  setDisplay(changes) {
    return this.#json('PUT', '/api/device/display', changes);
  }

  /**
   * Resolves with `{path}`, the picture's place in the photo library. `way`: `progress` gets the part that has been
   * sent; `signal` ends the sending, and changes nothing once all has been sent.
   */
  addPhoto(file, way) {
    return this.#upload('/api/photos', file, {}, way);
  }

  /** Resolves with the screen after the pick. */
  pickFile(file, revision, way) {
    return this.#upload(`${this.#place}/picked-file`, file, { 'X-Sim-Revision': String(revision) }, way);
  }

  async blob(url) {
    return (await this.#fetch(url)).blob();
  }

  /** Opens the event stream; resolves with the response when the simulator has accepted it. */
  stream(signal) {
    return this.#fetch('/api/stream', { signal, headers: { Accept: 'text/event-stream' } });
  }

  // `fetch` does not tell how much of a body has been sent.
  #upload(path, file, headers, { progress, signal }) {
    const notSent = new ApiError(0, `“${file.name}” was not sent.`);
    if (signal.aborted) return Promise.reject(notSent);
    const request = new XMLHttpRequest();
    request.open('PUT', path);
    const all = {
      ...headers, 'X-Sim-Token': this.#token, 'X-Sim-File-Name': encodeURIComponent(file.name),
      'Content-Type': 'application/octet-stream',
    };
    for (const [name, value] of Object.entries(all)) request.setRequestHeader(name, value);
    request.upload.addEventListener('progress', ({ loaded, total }) => progress(total > 0 ? loaded / total : 1));
    const stop = () => request.abort();
    signal.addEventListener('abort', stop);
    request.upload.addEventListener('load', () => signal.removeEventListener('abort', stop));
    return new Promise((resolve, reject) => {
      request.addEventListener('abort', () => reject(notSent));
      request.addEventListener('error', () => reject(new ApiError(0, 'The simulator does not answer.')));
      request.addEventListener('load', () => {
        if (request.status === 200) resolve(JSON.parse(request.responseText));
        else reject(new ApiError(request.status, reasonIn(request.responseText, request.statusText)));
      });
      request.send(file);
    });
  }

  async #json(method, path, body) {
    const options = { method };
    if (body !== undefined) {
      options.body = JSON.stringify(body);
      options.headers = { 'Content-Type': 'application/json' };
    }
    const response = await this.#fetch(path, options);
    const text = await response.text();
    return text ? JSON.parse(text) : null;
  }

  async #fetch(path, options = {}) {
    const headers = { ...options.headers, 'X-Sim-Token': this.#token };
    let response;
    try {
      response = await fetch(path, { ...options, headers, cache: 'no-store' });
    } catch (error) {
      if (error.name === 'AbortError') throw error;
      throw new ApiError(0, 'The simulator does not answer.');
    }
    if (!response.ok) throw new ApiError(response.status, await reasonOf(response));
    return response;
  }
}

async function reasonOf(response) {
  return reasonIn(await response.text().catch(() => ''), response.statusText);
}

function reasonIn(text, statusText) {
  try {
    return JSON.parse(text).error || statusText;
  } catch {
    return text || statusText;
  }
}
