import assert from 'node:assert/strict';
import { readFile, readdir } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { assertAccessible, eventually } from './support/browser.mjs';
import { chooseFiles, dropFiles } from './support/files.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { layFile, startZuno } from './support/zuno.mjs';

const labels = ['Zuno', 'Customise', 'Presets'];
const presets = 'var/jb/Library/Zuno/Presets';
const fileOf = (name) => `${presets}/${name}.plist`;
const ocean = { dimming: 40, titleColour: '🌊 Å', ZunoPresetVersion: 1 };

async function startPresets(t, saved, options) {
  const prepare = async (folder) => {
    for (const [name, preset] of Object.entries(saved)) await layFile(folder, fileOf(name), preset);
  };
  return startZuno(t, { labels, prepare, ...options });
}

const alertOf = (page, name) => page.getByRole('alertdialog', { name, exact: true });
const namesIn = async ({ folder }) => (await readdir(join(folder, presets))).sort();
const documentsOf = (page) => page.getByRole('dialog', { name: 'Files' });
const shareSheetOf = (page) => page.getByRole('dialog', { name: 'Share' });
const noticeOf = (page, text) => page.getByRole('status').filter({ hasText: text });
const fileNamed = (name, text) => ({ name, mimeType: '', buffer: Buffer.from(text) });

async function answer(page, title, action) {
  await alertOf(page, title).getByRole('button', { name: action, exact: true }).click();
  await alertOf(page, title).waitFor({ state: 'detached' });
}

/** Opens the document picker. */
async function importFile({ page, api }) {
  await api('PUT', '/api/device/pasteboard', { string: 'anything' });
  await page.getByRole('button', { name: 'Add' }).click();
  await answer(page, 'Import/Add', 'Import Existing Preset...');
  await answer(page, 'Import Preset', 'Import from file...');
  await documentsOf(page).waitFor();
}

async function shareFile({ page }, name) {
  await page.getByRole('button', { name: `Actions for ${name}`, exact: true }).click();
  await page.getByRole('group', { name: `Actions for ${name}` }).getByRole('button', { name: 'Share' }).click();
  await answer(page, `Share "${name}"...`, 'Share via file');
  await shareSheetOf(page).waitFor();
}

for (const [how, hand] of Object.entries({
  chosen: (page, files) => (
    chooseFiles(page, documentsOf(page).getByRole('button', { name: 'Choose from this computer…' }), files)),
  dropped: (page, files) => dropFiles(page, page.locator('.screen'), files),
})) {
  test(`A file of the computer that is ${how} is imported beside the preset of its name`, async (t) => {
    const started = await startPresets(t, { Ocean: propertyListText(ocean) });
    const { page, folder } = started;
    const text = propertyListText({ dimming: 99 });
    await importFile(started);
    await hand(page, [fileNamed('Ocean.plist', text)]);
    await documentsOf(page).waitFor({ state: 'detached' });
    await eventually(async () => assert.equal(await readFile(join(folder, fileOf('Ocean_1')), 'utf8'), text));
    assert.equal(await alertOf(page, 'Error').count(), 0);

    await importFile(started);
    await hand(page, [fileNamed('New.plist', text)]);
    await alertOf(page, 'Error').getByText('Invalid file selected.').waitFor();
    await answer(page, 'Error', 'OK');
    assert.deepEqual(await namesIn(started), ['Ocean.plist', 'Ocean_1.plist']);
    assert.deepEqual(await readdir(join(folder, '.simulator/uploads')), []);
  });
}

test('Names of files come through as they are, and one file is picked at a time', async (t) => {
  const name = 'Grün 100% “é” 🌿';
  const started = await startPresets(t, { [name]: propertyListText(ocean) });
  const { page } = started;
  await importFile(started);
  const files = [fileNamed(`${name}.plist`, 'x'), fileNamed('b.plist', 'y')];
  await dropFiles(page, page.locator('.screen'), files);
  await noticeOf(page, 'Choose one file at a time.').waitFor();
  await assertAccessible(page);
  await dropFiles(page, page.locator('.screen'), files.slice(0, 1));
  await documentsOf(page).waitFor({ state: 'detached' });
  await eventually(async () => assert.deepEqual(await namesIn(started), [`${name}.plist`, `${name}_1.plist`]));
});

test('Sharing as a file can save, byte for byte, and that closes the sheet', async (t) => {
  const large = propertyListText({ ...ocean, backgroundImage: 'A'.repeat(20_000_000) });
  const started = await startPresets(t, { Ocean: propertyListText(ocean), Large: large });
  const { page, folder } = started;
  for (const name of ['Ocean', 'Large']) {
    await shareFile(started, name);
    const [download] = await Promise.all([
      page.waitForEvent('download'), shareSheetOf(page).getByRole('button', { name: `Save ${name}.plist` }).click(),
    ]);
    assert.equal(download.suggestedFilename(), `${name}.plist`);
    assert.ok((await readFile(await download.path())).equals(await readFile(join(folder, fileOf(name)))));
    await shareSheetOf(page).waitFor({ state: 'detached' });
  }
});

test('Sharing as a file can copy its text, and that closes the sheet', async (t) => {
  const text = propertyListText(ocean);
  const started = await startPresets(t, { Ocean: text });
  const { page, api } = started;
  await shareFile(started, 'Ocean');
  await assertAccessible(page);
  await shareSheetOf(page).getByRole('button', { name: 'Copy Ocean.plist' }).click();
  await shareSheetOf(page).waitFor({ state: 'detached' });
  await eventually(async () => assert.equal((await api('GET', '/api/device')).pasteboard, text));
});

test('A shared file is gone from its address with the sheet', async (t) => {
  const started = await startPresets(t, { Ocean: propertyListText(ocean) });
  const { page, api, url } = started;
  await shareFile(started, 'Ocean');
  const { sheet } = await api('GET', '/api/screen');
  const address = new URL(sheet.items[0].url, url);
  const token = new URL(url).hash.slice(3);
  const get = (headers) => fetch(address, { headers });
  assert.equal((await get({ 'X-Sim-Token': token })).status, 200);
  assert.equal((await get({})).status, 403);
  await shareSheetOf(page).getByRole('button', { name: 'Close' }).click();
  await shareSheetOf(page).waitFor({ state: 'detached' });
  assert.equal((await get({ 'X-Sim-Token': token })).status, 404);
});
