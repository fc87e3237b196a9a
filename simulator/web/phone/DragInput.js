/**
 * Sends the values of a control that is dragged, one after another. Of those that come while one is on its way only the
 * last is sent, so that the device keeps up with the finger or the key; where a finger is lifted is sent before what
 * the next one drags.
 */
export class DragInput {
  #session;
  #id;
  #waiting = [];
  #running = null;

  constructor(session, id) {
    this.#session = session;
    this.#id = id;
  }

  get isBusy() {
    return this.#running !== null;
  }

  /**
   * `continuous` while the finger stays. Resolves, when all that waits was sent, with whether the last of it was
   * taken.
   */
  send(value, continuous) {
    if (!continuous) this.#waiting = [];
    else if (this.#waiting.at(-1)?.continuous) this.#waiting.pop();
    this.#waiting.push({ value, continuous });
    this.#running ??= this.#run().finally(() => {
      this.#running = null;
    });
    return this.#running;
  }

  async #run() {
    let taken = true;
    while (this.#waiting.length > 0) {
      const { value, continuous } = this.#waiting.shift();
      taken = await (continuous ? this.#session.drag(this.#id, value) : this.#session.set(this.#id, value));
    }
    return taken;
  }
}
