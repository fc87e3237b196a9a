/** The simulator that runs on a device folder, by its automation interface. */
import { readFile } from 'node:fs/promises';
import { join } from 'node:path';

/** That of the folder `device`; null when none runs. */
export async function runningSimulator(device) {
  const address = (await readFile(join(device, '.simulator/address'), 'utf8').catch(() => '')).trim();
  return address ? new RunningSimulator(address) : null;
}

class RunningSimulator {
  #origin;
  #token;

  constructor(address) {
    const { origin, hash } = new URL(address);
    this.#origin = origin;
    this.#token = hash.slice('#t='.length);
  }

  /** Has Settings started afresh with the same page open. Resolves with why it was not, or null. */
  reload() {
    return this.#call('POST', '/api/reload', {});
  }

  /** Shows `build`, {name, sentence, errors}, beside the phone; without a sentence what was shown of it goes. */
  tell(build) {
    return this.#call('PUT', '/api/builds', build);
  }

  async #call(method, path, body) {
    const headers = { 'X-Sim-Token': this.#token, 'Content-Type': 'application/json' };
    try {
      const response = await fetch(this.#origin + path, { method, headers, body: JSON.stringify(body) });
      return response.ok ? null : (await response.json()).error;
    } catch {
      return null; // It has ended meanwhile.
    }
  }
}
