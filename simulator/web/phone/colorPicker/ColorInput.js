/**
 * Sends colours one after another. Of those that come while one is on its way only the last is sent, so that the device
 * keeps up with the finger or the key; where a finger is lifted is sent before what the next one drags.
 */
export class ColorInput {
  #deliver;
  #waiting = [];
  #running = null;

  /** `deliver(value, continuous)` resolves with whether the colour was taken. */
  constructor(deliver) {
    this.#deliver = deliver;
  }

  get isBusy() {
    return this.#running !== null;
  }

  /** Resolves, when all that waits was sent, with whether the last of it was taken. */
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
      taken = await this.#deliver(value, continuous);
    }
    return taken;
  }
}
