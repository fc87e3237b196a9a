import { html, useContext, useEffect, useState } from '/modules/htm-preact.mjs';
import { SessionContext } from '/session.js';

const keptUnused = 200;

/** Pictures of the device as `blob:` addresses, because a bare `<img>` could not send the token. */
export class ImageCache {
  #load;
  #entries = new Map();
  /** Grows when all that was loaded became worthless; addresses of an older generation mean other pictures. */
  generation = 0;

  constructor(load) {
    this.#load = load;
  }

  /** Resolves with an address that stays good until `release`. Rejects when there is no such picture. */
  acquire(url) {
    let entry = this.#entries.get(url);
    if (entry) {
      this.#entries.delete(url);
    } else {
      entry = { users: 0, address: this.#load(url).then((blob) => URL.createObjectURL(blob)) };
      entry.address.catch(() => {
        if (this.#entries.get(url) === entry) this.#entries.delete(url);
      });
    }
    entry.users += 1;
    this.#entries.set(url, entry);
    return { address: entry.address, release: () => this.#release(url, entry) };
  }

  clear() {
    this.generation += 1;
    for (const [url, entry] of this.#entries) {
      this.#entries.delete(url);
      if (entry.users === 0) revoke(entry);
    }
  }

  #release(url, entry) {
    entry.users -= 1;
    if (entry.users > 0) return;
    if (this.#entries.get(url) !== entry) revoke(entry);
    else this.#trim();
  }

  #trim() {
    let unused = [...this.#entries].filter(([, entry]) => entry.users === 0);
    for (const [url, entry] of unused.slice(0, Math.max(0, unused.length - keptUnused))) {
      this.#entries.delete(url);
      revoke(entry);
    }
  }
}

function revoke(entry) {
  entry.address.then(URL.revokeObjectURL, () => {});
}

/** One picture of the device: `image` is `{url, width, height}` in points. Without `alt` it is decoration. */
export function Picture({ image, alt = '', style, ...rest }) {
  const { images } = useContext(SessionContext);
  const [address, setAddress] = useState(null);
  useEffect(() => {
    let current = true;
    const held = images.acquire(image.url);
    held.address.then((found) => current && setAddress(found), () => current && setAddress(null));
    return () => {
      current = false;
      held.release();
    };
  }, [image.url, images.generation]);
  const size = { width: `${image.width}px`, height: `${image.height}px` };
  if (!address) return html`<span ...${rest} style=${{ ...size, ...style }}></span>`;
  return html`<img ...${rest} src=${address} alt=${alt} draggable=${false} style=${{ ...size, ...style }} />`;
}
