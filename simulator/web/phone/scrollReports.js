/**
 * Tells the device of scrolling, one report at a time. What is out of date when its turn comes is never sent: of
 * positions the newest counts, and what ended before another drag began is left out.
 */
export class ScrollReports {
  #send;
  #waiting = [];
  #isSending = false;

  /** `send` resolves with whether the report was taken. */
  constructor(send) {
    this.#send = send;
  }

  /** `report`: `{id, phase, x, y, velocity}`. */
  add(report) {
    const last = this.#waiting.at(-1);
    const isNews = last?.id !== report.id || isKept(last);
    if (report.phase === 'began') this.#waiting = [report];
    else if (isNews) this.#waiting.push(report);
    else if (last.phase !== 'began') this.#waiting.splice(-1, 1, report);
    else if (report.phase === 'moved') this.#waiting.splice(-1, 1, { ...report, phase: 'began' });
    else this.#waiting.push(report);
    if (!this.#isSending) this.#run();
  }

  /** Code has moved the content to `offset`: older positions mean nothing any more. */
  giveWay([x, y]) {
    this.#waiting = this.#waiting.filter(isKept).map((report) => ({ ...report, x, y }));
  }

  async #run() {
    this.#isSending = true;
    while (this.#waiting.length > 0) {
      const isTaken = await this.#send(this.#waiting.shift());
      // What was scrolled is gone, or takes no finger now.
      if (!isTaken) this.#waiting = [];
    }
    this.#isSending = false;
  }
}

/** Whether a report is of more than a position, which a newer one makes meaningless. */
function isKept({ phase }) {
  return phase === 'lifted' || phase === 'ended';
}
