import { spawn } from 'node:child_process';
import { mkdtemp, rm } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { createInterface } from 'node:readline';
import { build } from './build.mjs';
import { defer } from './cleanup.mjs';

const program = join(build, 'simulator/simulator');

/**
 * Starts the simulator on a device folder of its own for the length of the test `t`.
 *
 * `prepare(folder)` may lay files into the folder first. Resolves with the page's address `url`, the `folder`, and
 * `api(method, path, body)`, which resolves with the JSON of the answer.
 */
export async function startSimulator(t, prepare = async () => {}) {
  const folder = await mkdtemp(join(tmpdir(), 'device-'));
  defer(t, () => rm(folder, { recursive: true, force: true }));
  await prepare(folder);
  const child = spawn(program, ['--device', folder, '--port', '0'], { stdio: ['ignore', 'pipe', 'inherit'] });
  const ended = new Promise((resolve) => child.once('close', resolve));
  defer(t, async () => {
    child.kill('SIGTERM');
    await ended;
  });
  const url = await addressOf(child);
  const { origin, hash } = new URL(url);
  const token = hash.slice(3);
  const api = async (method, path, body) => {
    const headers = { 'X-Sim-Token': token, ...(body && { 'Content-Type': 'application/json' }) };
    const response = await fetch(origin + path, { method, headers, body: body && JSON.stringify(body) });
    return response.json();
  };
  return { url, folder, api };
}

async function addressOf(child) {
  for await (const line of createInterface({ input: child.stdout })) {
    if (/^http:\/\/127\.0\.0\.1:\d+\/#t=/.test(line)) return line;
  }
  throw new Error(`${program} ended without telling its address`);
}
