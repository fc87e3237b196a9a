/** Builds of one project, by whatever processes, one after another. */
import { spawn } from 'node:child_process';
import { Refusal } from './refusal.mjs';

/** Resolves with what `work` does, after other calls with the lock `file`; a process that ends lets go of it. */
export async function alone(file, work) {
  const holder = spawn('flock', [file, 'sh', '-c', 'echo held; exec cat'], { stdio: ['pipe', 'pipe', 'inherit'] });
  await new Promise((resolve, reject) => {
    holder.once('error', () => reject(new Refusal('flock is missing; script/run installs it.')));
    holder.once('close', () => reject(new Refusal(`${file} cannot be locked.`)));
    holder.stdout.once('data', resolve);
  });
  try {
    return await work();
  } finally {
    holder.stdin.end();
  }
}
