/** Works the simulated device through its interface; `api` is that of `startSimulator`. Rejects what is refused. */
export class Device {
  #api;

  constructor(api) {
    this.#api = api;
  }

  screen() {
    return this.#api('GET', '/api/screen');
  }

  /** Taps the first row whose label is `label`. */
  async tapRow(label) {
    const { page } = await this.screen();
    return this.#tap(page.sections.flatMap(({ rows }) => rows).find((row) => row.label === label), label);
  }

  async setRow(label, value) {
    const { page } = await this.screen();
    const row = page.sections.flatMap(({ rows }) => rows).find((each) => each.label === label);
    return this.#send({ type: 'set', id: row?.id, value });
  }

  async tapButton(index) {
    const { page } = await this.screen();
    return this.#tap(page.buttons[index], `button ${index}`);
  }

  async back() {
    const { page } = await this.screen();
    return this.#tap(page.back, 'the back button');
  }

  /** Goes back to the first page of Settings. */
  async home() {
    while ((await this.screen()).page.back) await this.back();
  }

  /** Types into the first field of the alert. */
  async type(text) {
    const { alert } = await this.screen();
    return this.#send({ type: 'set', id: alert?.fields[0]?.id, value: text });
  }

  /** Taps the action of the alert whose title is `title`. */
  async answer(title) {
    const { alert } = await this.screen();
    return this.#tap(alert?.actions.find((action) => action.title === title), title);
  }

  pick(path) {
    return this.#send({ type: 'pick', path });
  }

  dismiss() {
    return this.#send({ type: 'dismiss' });
  }

  /** Resolves when the device has the appearance `style`. */
  async hasAppearance(style) {
    for (;;) {
      if ((await this.#api('GET', '/api/device')).appearance === style) return;
      await new Promise((resolve) => setTimeout(resolve, 20));
    }
  }

  #tap(target, name) {
    if (!target) throw new Error(`The screen shows no ${name}.`);
    return this.#send({ type: 'tap', id: target.id });
  }

  async #send(event) {
    const answer = await this.#api('POST', '/api/events', event);
    if (answer.error) throw new Error(`${JSON.stringify(event)}: ${answer.error}`);
    return answer;
  }
}
