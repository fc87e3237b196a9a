import assert from 'node:assert/strict';
import { readFile, readdir, rm } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { test } from 'node:test';
import { Device } from './support/device.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';
import { layFile, mainFile } from './support/zuno.mjs';

const logOf = async (api) => (await api('GET', '/api/device')).log;

/** A simulator with the root page of the bundle in front, and the value that the row of this label shows. */
async function startRootPage(t, prepare) {
  const simulator = await startSimulator(t, prepare);
  const device = new Device(simulator.api);
  await device.tapRow('Zuno');
  const shown = async (label) => {
    const { page } = await device.screen();
    return page.sections.flatMap(({ rows }) => rows).find((row) => row.label === label).value;
  };
  return { ...simulator, device, shown };
}

test('A text that no property list can hold leaves the file as it is, and the log says so', async (t) => {
  const stored = propertyListText({ Enabled: 1, device: 'iPhone15,2' });
  const prepare = (folder) => layFile(folder, mainFile, stored);
  const { api, folder, device } = await startRootPage(t, prepare);
  await device.setRow('Device', 'a\u0001b');
  assert.equal(await readFile(join(folder, mainFile), 'utf8'), stored);
  const lines = (await logOf(api)).filter((line) => line.startsWith('[Foundation]'));
  assert.deepEqual(lines, [
    `[Foundation] /${mainFile} was not written: A text holds a character that XML cannot hold`,
  ]);
});

test('A folder that cannot be written is told in the log; the switch stays as it was flipped', async (t) => {
  const { api, folder, device, shown } = await startRootPage(t);
  const preferences = dirname(join(folder, mainFile));
  await rm(preferences, { recursive: true });
  await layFile(folder, dirname(mainFile), 'a file in place of the folder');
  await device.setRow('Enabled', false);
  assert.equal(await shown('Enabled'), false);
  assert.equal(await readFile(preferences, 'utf8'), 'a file in place of the folder');
  const lines = (await logOf(api)).filter((line) => line.startsWith('[Foundation]'));
  assert.deepEqual(lines, [`[Foundation] /${mainFile} was not written: Not a directory`]);
});

test('What interrupted writes have left is removed when Settings starts, and nothing else', async (t) => {
  const folders = ['var/jb/var/mobile/Library/Preferences', 'var/mobile/Library/Preferences', 'var/jb/Library/Zuno/Presets',
    'var/mobile/Documents'];
  const prepare = async (folder) => {
    for (const each of folders) {
      await layFile(folder, `${each}/.simulator-write-Ab3dEf`, 'half of a');
      await layFile(folder, `${each}/.simulator-write-notes`, 'a foreign file');
    }
  };
  const { folder, device } = await startRootPage(t, prepare);
  const hidden = async (each) => (await readdir(join(folder, each))).filter((name) => name.startsWith('.'));
  for (const each of folders) assert.deepEqual(await hidden(each), ['.simulator-write-notes'], each);

  // A respring starts Settings anew.
  for (const each of folders) await layFile(folder, `${each}/.simulator-write-Gh4iJk`, 'half of a file');
  await device.home();
  await device.tapRow('Zuno');
  await device.tapRow('Respring');
  await device.answer('Respring').catch(() => {});
  await device.screen();
  for (const each of folders) assert.deepEqual(await hidden(each), ['.simulator-write-notes'], each);
});
