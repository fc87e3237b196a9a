import { createServer } from 'node:http';
import { readFile } from 'node:fs/promises';
import { extname, join, normalize } from 'node:path';
import { build } from './build.mjs';
import { defer } from './cleanup.mjs';
import { swiped } from './screens.mjs';

const types = {
  '.html': 'text/html', '.js': 'text/javascript', '.mjs': 'text/javascript', '.css': 'text/css',
  '.svg': 'image/svg+xml', '.otf': 'font/otf',
};
const policy = "default-src 'self'; img-src 'self' blob:; frame-ancestors 'none'";
const display = (kind, orientation, width, height, scale, [top, left, bottom, right]) => ({
  kind, orientation, width, height, scale, safeArea: { top, left, bottom, right },
});
const displays = [
  display('phone', 'portrait', 390, 844, 3, [47, 0, 34, 0]), display('phone', 'landscape', 844, 390, 3, [0, 47, 21, 47]),
  display('tablet', 'portrait', 820, 1180, 2, [24, 0, 20, 0]), display('tablet', 'landscape', 1180, 820, 2, [24, 0, 20, 0]),
];
const displayLike = (wanted) => displays.find(
  ({ kind, orientation }) => kind === wanted.kind && orientation === wanted.orientation,
);
const token = 'f'.repeat(32);

/** A picture of one pixel, given for any image address. */
const picture = Buffer.from(
  'iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPj/HwADBwIAMCbHYQAAAABJRU5ErkJggg==', 'base64',
);

/**
 * The simulator's HTTP interface over screens that a test makes up, for what no installed bundle shows.
 *
 * `screen` is the screen without its revision. A row that is swiped stays open until it is swiped back, as on a device.
 * An event for an id that is not on the screen is refused. `onEvent(event, fake)` may change `fake.screen` and
 * `fake.device`; it returns undefined, or `{status, error}` to refuse the event. All events are kept in `events`.
 */
export class FakeSimulator {
  events = [];
  revision = 1;
  /** `{status, error}` to answer for the screen, or null. */
  failure = null;
  /** What is on the pasteboard when it is asked for whole. */
  pasteboardString = null;
  device = {
    notifications: [], resprings: 0, openedURLs: [], pasteboard: null, pasteboardLength: null, display: displays[0],
    log: [], files: [],
  };
  #streams = new Set();
  #server = createServer((request, response) => this.#answer(request, response));

  constructor(screen, onEvent = () => undefined) {
    this.screen = screen;
    this.onEvent = onEvent;
  }

  async start() {
    await new Promise((resolve) => this.#server.listen(0, '127.0.0.1', resolve));
    return `http://127.0.0.1:${this.#server.address().port}/#t=${token}`;
  }

  async stop() {
    for (const stream of this.#streams) stream.destroy();
    this.#server.closeAllConnections();
    await new Promise((resolve) => this.#server.close(resolve));
  }

  get streams() {
    return this.#streams.size;
  }

  /** Shows `screen` as if something on the device had changed it. */
  show(screen) {
    this.screen = screen;
    this.revision += 1;
    this.#push('screen', { revision: this.revision });
  }

  changeDevice(changes) {
    this.device = { ...this.device, ...changes };
    this.#push('device', { sequence: this.revision });
  }

  /** Makes the device one of another display: `{kind, orientation}`, or one of them. */
  turn(display) {
    this.changeDevice({ display: displayLike({ ...this.device.display, ...display }) });
  }

  dropStreams() {
    for (const stream of this.#streams) stream.destroy();
  }

  #push(event, data) {
    const message = `id: ${this.revision}\nevent: ${event}\ndata: ${JSON.stringify(data)}\n\n`;
    for (const stream of this.#streams) stream.write(message);
  }

  async #answer(request, response) {
    const path = new URL(request.url, 'http://127.0.0.1').pathname;
    if (!path.startsWith('/api/') && !path.startsWith('/images/')) return this.#file(path, response);
    if (request.headers['x-sim-token'] !== token) return reply(response, 403, { error: 'wrong token' });
    if (path.startsWith('/images/')) {
      response.writeHead(200, { 'Content-Type': 'image/png' });
      return response.end(picture);
    }
    const body = await bodyOf(request);
    switch (`${request.method} ${path}`) {
      case 'GET /api/screen':
        if (this.failure) return reply(response, this.failure.status, this.failure);
        return reply(response, 200, this.#current());
      case 'GET /api/device': return reply(response, 200, this.device);
      case 'GET /api/stream': return this.#stream(response);
      case 'POST /api/events': return this.#event(body, response);
      case 'PUT /api/device/pasteboard':
        this.changeDevice({ pasteboard: body.string, pasteboardLength: body.string?.length ?? null });
        return reply(response, 200, {});
      case 'GET /api/device/pasteboard/string': return reply(response, 200, { string: this.pasteboardString });
      case 'PUT /api/device/appearance':
        this.appearance = body.style;
        return reply(response, 200, {});
      case 'PUT /api/device/display':
        this.turn(body);
        return reply(response, 200, this.device.display);
      default: return reply(response, 404, { error: 'no such address' });
    }
  }

  #current() {
    return { revision: this.revision, alert: null, sheet: null, ...this.screen };
  }

  async #event(event, response) {
    this.events.push(event);
    if (event.revision !== undefined && event.revision !== this.revision) {
      return reply(response, 409, { error: 'the screen has changed' });
    }
    if (event.id !== undefined && !JSON.stringify(this.screen).includes(`"id":${JSON.stringify(event.id)}`)) {
      return reply(response, 404, { error: 'nothing has this id' });
    }
    const refused = await this.onEvent(event, this);
    if (refused) return reply(response, refused.status, { error: refused.error });
    if (event.type === 'swipe') this.screen = swiped(this.screen, event);
    this.revision += 1;
    reply(response, 200, this.#current());
    return this.#push('screen', { revision: this.revision });
  }

  #stream(response) {
    response.writeHead(200, { 'Content-Type': 'text/event-stream' });
    response.write(': open\n\n');
    this.#streams.add(response);
    response.on('close', () => this.#streams.delete(response));
  }

  async #file(path, response) {
    const file = path.startsWith('/fonts/') ? join('/usr/share/fonts/opentype/inter', normalize(path.slice(6)))
      : join(build, 'page', normalize(path === '/' ? '/index.html' : path));
    try {
      const content = await readFile(file);
      const type = types[extname(file)] ?? 'application/octet-stream';
      response.writeHead(200, { 'Content-Type': type, 'Content-Security-Policy': policy });
      response.end(content);
    } catch {
      reply(response, 404, { error: 'no such file' });
    }
  }
}

function reply(response, status, body) {
  response.writeHead(status, { 'Content-Type': 'application/json' });
  response.end(JSON.stringify(body));
}

async function bodyOf(request) {
  let text = '';
  for await (const part of request) text += part;
  return text ? JSON.parse(text) : null;
}

/** Starts a fake for the length of the test `t`; resolves with it and its address. */
export async function startFake(t, screen, onEvent) {
  const fake = new FakeSimulator(screen, onEvent);
  const url = await fake.start();
  defer(t, () => fake.stop());
  return { fake, url };
}
