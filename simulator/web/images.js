import { html, useContext, useEffect, useRef, useState } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { SessionContext } from '/session.js';

const keptUnused = 200;
const mostAtOnce = 2;
const maskSizes = { contain: 'contain', cover: 'cover' };

/** Pictures of the device as `blob:` addresses, because a bare `<img>` could not send the token. */
export class ImageCache {
  #load;
  #entries = new Map();
  #waiting = new Set();
  #loading = 0;

  constructor(load) {
    this.#load = load;
  }

  /**
   * Resolves with an address that stays good until `release`. Rejects when there is no such picture.
   *
   * Few pictures are asked for at once, so that input never waits behind many; one that is released before its turn is
   * never asked for.
   */
  acquire(url) {
    let entry = this.#entries.get(url);
    if (entry) {
      this.#entries.delete(url);
    } else {
      entry = { url, users: 0 };
      entry.address = new Promise((resolve, reject) => Object.assign(entry, { resolve, reject }));
      entry.address.catch(() => this.#forget(entry));
      this.#waiting.add(entry);
    }
    entry.users += 1;
    this.#entries.set(url, entry);
    this.#loadNext();
    return { address: entry.address, release: () => this.#release(entry) };
  }

  #loadNext() {
    for (const entry of this.#waiting) {
      if (this.#loading >= mostAtOnce) return;
      this.#waiting.delete(entry);
      this.#loading += 1;
      this.#load(entry.url).then((blob) => entry.resolve(URL.createObjectURL(blob)), entry.reject).finally(() => {
        this.#loading -= 1;
        this.#loadNext();
      });
    }
  }

  #release(entry) {
    entry.users -= 1;
    if (entry.users > 0) return;
    if (this.#waiting.delete(entry)) {
      this.#forget(entry);
      entry.reject(new Error('The picture is not needed any more.'));
    } else {
      this.#trim();
    }
  }

  #trim() {
    const unused = [...this.#entries.values()].filter((entry) => entry.users === 0);
    for (const entry of unused.slice(0, Math.max(0, unused.length - keptUnused))) {
      this.#forget(entry);
      revoke(entry);
    }
  }

  #forget(entry) {
    if (this.#entries.get(entry.url) === entry) this.#entries.delete(entry.url);
  }
}

function revoke(entry) {
  entry.address.then(URL.revokeObjectURL, () => {});
}

/** The address of a picture of the device once it is there: `{address, failed}`. Nothing is asked for without `url`. */
export function useAddress(url) {
  const { images } = useContext(SessionContext);
  const [result, setResult] = useState({ address: null, failed: false });
  useEffect(() => {
    if (!url) return undefined;
    let current = true;
    const held = images.acquire(url);
    held.address.then(
      (found) => current && setResult({ address: found, failed: false }),
      () => current && setResult({ address: null, failed: true }),
    );
    return () => {
      current = false;
      held.release();
    };
  }, [url]);
  return result;
}

/**
 * One picture of the device: `image` is `{url, width, height, tint}` in points; with a tint only its shape counts,
 * which is filled with that colour. Without `alt` it is decoration. `fallback` is shown when the picture cannot be had.
 */
export function Picture({ image, alt = '', style, fallback, ...rest }) {
  const { address, failed } = useAddress(image.url);
  if (failed && fallback) return fallback;
  const size = { width: `${image.width}px`, height: `${image.height}px` };
  if (!address) return html`<span ...${rest} style=${{ ...size, ...style }}></span>`;
  if (image.tint) {
    const { objectFit, ...others } = style ?? {};
    const filled = {
      display: 'inline-block', ...size, ...others, backgroundColor: cssColor(image.tint),
      mask: `url("${address}") center / ${maskSizes[objectFit] ?? '100% 100%'} no-repeat`,
    };
    return html`<span ...${rest} role=${alt ? 'img' : undefined} aria-label=${alt || undefined} style=${filled}></span>`;
  }
  return html`<img ...${rest} src=${address} alt=${alt} draggable=${false} style=${{ ...size, ...style }} />`;
}

const whole = { display: 'block', width: '100%', height: '100%' };

/** A picture that fills the element around it and is held only while it is in view. */
export function LazyPicture({ style, ...picture }) {
  const element = useRef(null);
  const [isInView, setInView] = useState(false);
  useEffect(() => {
    const observer = new IntersectionObserver((changes) => setInView(changes.at(-1).isIntersecting));
    observer.observe(element.current);
    return () => observer.disconnect();
  }, []);
  return html`
    <span ref=${element} style=${whole}>
      ${isInView && html`<${Picture} ...${picture} style=${{ ...whole, ...style }} />`}
    </span>`;
}
