import { ApiError } from '/api.js';

const megabyte = 2 ** 20;
/** Bytes that a file may have; the simulator refuses larger ones. */
const largest = 100 * megabyte;
const pictureName = /\.(png|jpe?g|heic|heif|webp|gif|tiff?)$/i;

/**
 * Files of this computer on their way to the device, one after another.
 *
 * What is under way is `upload` in the store: null, or `{text, fraction, canStop}` with the part that has been sent
 * from 0 to 1, or null when the device works on it. Refusals become the store's `notice`. Nothing here rejects.
 */
export class Uploads {
  #session;
  #api;
  #last = Promise.resolve();
  #stopping = null;

  constructor(session, api) {
    this.#session = session;
    this.#api = api;
  }

  /** Sends nothing more of the files that were chosen together and are under way; what has been sent stays. */
  stop() {
    this.#stopping?.abort();
  }

  /** Adds the pictures to the device's photo library. */
  addPhotos(files) {
    return this.#inTurn(async (signal) => {
      const added = [];
      const refusals = [];
      for (const [at, file] of files.entries()) {
        const count = files.length > 1 ? ` (${at + 1} of ${files.length})` : '';
        const task = { text: `Adding “${file.name}”${count}`, file, signal, isLast: at === files.length - 1 };
        const reason = await this.#send(task, (way) => this.#api.addPhoto(file, way));
        if (reason === null) added.push(file);
        else refusals.push(reason);
        if (signal.aborted) break;
      }
      this.#report(added, refusals);
    });
  }

  /** Picks the file in the document picker on the screen. */
  pickFile(files) {
    if (files.length !== 1) return this.#notice('Choose one file at a time.');
    const [file] = files;
    return this.#inTurn(async (signal) => {
      const task = { text: `Sending “${file.name}”`, file, signal, isLast: true };
      const reason = await this.#send(task, (way) => this.#session.pickFile(file, way));
      if (reason !== null) this.#notice(reason);
    });
  }

  /** Adds them likewise unless one is no picture: nothing on the screen asks for files. */
  addPictures(files) {
    const others = files.filter((file) => !isPicture(file));
    if (others.length === 0) return this.addPhotos(files);
    return this.#notice(`“${others[0].name}” is not a picture. A file can be dropped while a page asks for one.`);
  }

  // Resolves with null or the reason why the file was refused.
  async #send({ text, file, signal, isLast }, send) {
    const { store } = this.#session;
    const progress = (sent) => store.set({
      upload: { text, fraction: sent < 1 ? sent : null, canStop: !signal.aborted && (sent < 1 || !isLast) },
    });
    try {
      if (file.size > largest) throw new ApiError(413, `“${file.name}” is larger than ${largest / megabyte} MB.`);
      await readable(file);
      progress(0);
      await send({ progress, signal });
      return null;
    } catch (error) {
      return error.message;
    } finally {
      store.set({ upload: null });
    }
  }

  #inTurn(work) {
    const done = this.#last.then(() => {
      this.#stopping = new AbortController();
      return work(this.#stopping.signal);
    });
    this.#last = done;
    return done;
  }

  #report(added, refusals) {
    if (refusals.length > 0) {
      const more = refusals.length > 1 ? ` ${refusals.length - 1} more could not be added.` : '';
      this.#notice(refusals[0] + more);
    } else if (added.length > 0) {
      const what = added.length > 1 ? `${added.length} pictures were` : `“${added[0].name}” was`;
      const text = `${what} added to Photos.`;
      // In the open sheet the pictures are there to be seen.
      if (sheetKind(this.#session.store.state.screen) === 'photos') this.#session.announce(text);
      else this.#notice(text);
    }
  }

  #notice(text) {
    this.#session.store.set({ notice: text });
  }
}

function isPicture(file) {
  return file.type.startsWith('image/') || pictureName.test(file.name);
}

/** The kind of the sheet that can be worked now. */
function sheetKind(screen) {
  return screen?.alert ? null : screen?.sheet?.kind ?? null;
}

/** Rejects for a folder, and for a file that has gone since it was chosen. */
async function readable(file) {
  try {
    await file.slice(0, 1).arrayBuffer();
  } catch {
    throw new ApiError(0, `“${file.name}” cannot be read.`);
  }
}
