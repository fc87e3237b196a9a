import assert from 'node:assert/strict';
import { readFile, readdir, rm } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually } from './support/browser.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { layFile, open, rowOf, startZuno, themeFile } from './support/zuno.mjs';

const labels = ['Zuno', 'Customise', 'Presets'];
const presets = 'var/jb/Library/Zuno/Presets';
const documents = 'var/mobile/Documents';
const fileOf = (name) => `${presets}/${name}.plist`;
const ocean = { device: 'Tablet', iosVersion: '16.5', enabled: true, dimming: 40, titleColour: '🌊 "ocean" ÅÄÖ' };

/** The presets screen over a theme file with `content` and the presets of `saved`, each a name and a content. */
function startPresets(t, { content = ocean, saved = {} } = {}) {
  const prepare = async (folder) => {
    if (content) await layFile(folder, themeFile, propertyListText(content));
    for (const [name, preset] of Object.entries(saved)) await layFile(folder, fileOf(name), propertyListText(preset));
  };
  return startZuno(t, { labels, prepare });
}

const alertOf = (page, name) => page.getByRole('alertdialog', { name, exact: true });
const namesIn = async ({ folder }) => (await readdir(join(folder, presets))).sort();

async function choose(page, title, action) {
  await alertOf(page, title).getByRole('button', { name: action, exact: true }).click();
  await alertOf(page, title).waitFor({ state: 'detached' });
}

async function tapRow(page, name) {
  await rowOf(page, name).getByRole('button', { name, exact: true }).click();
}

/** Opens the actions of the row `name` by its button and performs `action`. */
async function act(page, name, action) {
  await page.getByRole('button', { name: `Actions for ${name}`, exact: true }).click();
  await page.getByRole('group', { name: `Actions for ${name}` }).getByRole('button', { name: action }).click();
}

async function shownPresets(page) {
  const texts = await page.locator('.page:not([inert])').getByRole('listitem').allInnerTexts();
  return texts.map((text) => text.trim().split('\n')[0]).sort();
}

async function save(page, name) {
  await page.getByRole('button', { name: 'Add' }).click();
  const alert = alertOf(page, 'New Preset');
  await alert.getByRole('textbox', { name: 'Preset Name...' }).fill(name);
  await alert.getByRole('button', { name: 'Save' }).click();
}

test('The theme is saved under a name, and a name that cannot be used is refused with the reason', async (t) => {
  const started = await startPresets(t);
  const { page, stored } = started;
  await save(page, 'Ocean/*.plist');
  await rowOf(page, 'Ocean').waitFor();
  assert.deepEqual(await stored(fileOf('Ocean')), { ...ocean, ZunoPresetVersion: 1 });
  const refusals = {
    '***': 'Invalid preset name', ['x'.repeat(33)]: 'Preset name is too long', Ocean: 'Preset with this name already exists',
  };
  for (const [name, reason] of Object.entries(refusals)) {
    await save(page, name);
    await alertOf(page, 'Error').getByText(reason).waitFor();
    await choose(page, 'Error', 'OK');
    assert.deepEqual(await namesIn(started), ['Ocean.plist']);
  }
  await save(page, 'x'.repeat(32));
  await eventually(async () => assert.deepEqual(await shownPresets(page), ['Ocean', 'x'.repeat(32)]));
});

test('Applying asks first, keeps one backup, and the other pages show the preset', async (t) => {
  const dark = { device: 'Phone', iosVersion: '15', dimming: 90, ZunoPresetVersion: 1 };
  const { page, stored, folder } = await startPresets(t, { saved: { Dark: dark } });
  await tapRow(page, 'Dark');
  const question = 'Are you sure you would like to apply preset "Dark"?';
  await alertOf(page, 'Apply Preset').getByText(question).waitFor();
  await choose(page, 'Apply Preset', 'Cancel');
  assert.deepEqual(await stored(themeFile), ocean);
  await tapRow(page, 'Dark');
  await choose(page, 'Apply Preset', 'Confirm');
  await eventually(async () => assert.deepEqual(await stored(themeFile), dark));
  assert.deepEqual(await readFile(join(folder, themeFile)), await readFile(join(folder, fileOf('Dark'))));
  assert.deepEqual(await stored(`${themeFile}.bak`), ocean);
  await open(page, 'Back to Customise');
  await rowOf(page, 'User-Agent').getByText('Phone/15').waitFor();
  assert.equal(await page.getByRole('slider', { name: 'Dimming' }).inputValue(), '90');
  await open(page, 'Back to Zuno');
  await page.getByRole('switch', { name: 'Enabled' }).waitFor();
  await open(page, 'Customise', 'Presets');
  await tapRow(page, 'Dark');
  await choose(page, 'Apply Preset', 'Confirm');
  await eventually(async () => assert.deepEqual(await stored(`${themeFile}.bak`), dark));
});

test('A preset that vanished meanwhile is applied as nothing, and leaves the list', async (t) => {
  const { page, folder, stored } = await startPresets(t, { saved: { Dark: { dimming: 1 } } });
  await rm(join(folder, fileOf('Dark')));
  await tapRow(page, 'Dark');
  await choose(page, 'Apply Preset', 'Confirm');
  await eventually(async () => assert.deepEqual(await shownPresets(page), []));
  assert.deepEqual(await stored(themeFile), ocean);
});

test('Deleting asks first and removes the one file', async (t) => {
  const started = await startPresets(t, { saved: { Dark: { dimming: 1 }, Light: { dimming: 2 } } });
  const { page } = started;
  await act(page, 'Dark', 'Delete');
  await alertOf(page, 'Delete Preset').getByText('Are you sure you would like to delete preset "Dark"?').waitFor();
  await choose(page, 'Delete Preset', 'Cancel');
  assert.equal(await page.getByRole('group', { name: 'Actions for Dark' }).count(), 0, 'the row has closed');
  assert.deepEqual(await namesIn(started), ['Dark.plist', 'Light.plist']);
  await act(page, 'Dark', 'Delete');
  await choose(page, 'Delete Preset', 'Confirm');
  await eventually(async () => assert.deepEqual(await shownPresets(page), ['Light']));
  assert.deepEqual(await namesIn(started), ['Light.plist']);
});

test('A preset travels as a string by way of the pasteboard and comes back under another name', async (t) => {
  const preset = { ...ocean, ZunoPresetVersion: 1, backgroundImage: 'AAAA\r\nBBBB' };
  const started = await startPresets(t, { saved: { Ocean: preset } });
  const { page, stored, api } = started;
  const original = await stored(fileOf('Ocean'));
  await act(page, 'Ocean', 'Share');
  // The alert that follows has the same title.
  await alertOf(page, 'Share "Ocean"...').getByRole('button', { name: 'Share via string' }).click();
  await alertOf(page, 'Share "Ocean"...').getByText('Copy the following to share the preset:').waitFor();
  await choose(page, 'Share "Ocean"...', 'Copy to Clipboard');
  let text;
  await eventually(async () => {
    text = (await api('GET', '/api/device')).pasteboard;
    assert.ok(text);
  });
  assert.match(text, /^[A-Za-z0-9+/]+={0,2}$/);
  assert.deepEqual(JSON.parse(Buffer.from(text, 'base64').toString('utf8')), original);
  const pasteboard = page.getByRole('textbox', { name: 'Text on the pasteboard' });
  await eventually(async () => assert.equal(await pasteboard.inputValue(), text));

  await importString(page, 'Copy', text);
  await rowOf(page, 'Copy').waitFor();
  assert.deepEqual(await stored(fileOf('Copy')), original);
});

/** Walks from the add button through the menus to the dialog, and imports `text` as `name`. */
async function importString(page, name, text) {
  await page.getByRole('button', { name: 'Add' }).click();
  await choose(page, 'Import/Add', 'Import Existing Preset...');
  await alertOf(page, 'Import Preset').getByText('Chose import...').waitFor();
  await alertOf(page, 'Import Preset').getByRole('button', { name: 'Import from string...' }).click();
  const dialog = alertOf(page, 'Import Preset');
  await dialog.getByRole('textbox', { name: 'Preset Name...' }).fill(name);
  await dialog.getByRole('textbox', { name: 'Preset Data...' }).fill(text);
  await dialog.getByRole('button', { name: 'Import', exact: true }).click();
  await dialog.waitFor({ state: 'detached' });
}

test('Strings that are no preset end in an alert and leave no file', async (t) => {
  const started = await startPresets(t);
  const { page, api } = started;
  await api('PUT', '/api/device/pasteboard', { string: 'anything' });
  const reason = 'Failed to import preset. Please check the preset data and try again.';
  const encoded = (text) => Buffer.from(text).toString('base64');
  const strings = ['', '%%', `${encoded('{}')} `, encoded('[1]'), encoded('7'), encoded('null'), encoded('{"a":null}'), encoded('{"a"')];
  for (const text of strings) {
    await importString(page, 'Bad', text);
    await alertOf(page, 'Error').getByText(reason).waitFor();
    await choose(page, 'Error', 'OK');
  }
  assert.deepEqual(await namesIn(started), []);
  await importString(page, 'Good', encoded('{"dimming": 7, "enabled": true, "name": "é🎉"}'));
  await rowOf(page, 'Good').waitFor();
  assert.deepEqual(await started.stored(fileOf('Good')), { dimming: 7, enabled: true, name: 'é🎉' });
});

test('Sharing as a file hands the preset file to the share sheet', async (t) => {
  const { page } = await startPresets(t, { saved: { Ocean: ocean } });
  await act(page, 'Ocean', 'Share');
  await choose(page, 'Share "Ocean"...', 'Share via file');
  const sheet = page.getByRole('dialog', { name: 'Share' });
  await sheet.getByText('Ocean.plist').waitFor();
  await page.keyboard.press('Escape');
  await sheet.waitFor({ state: 'detached' });
});

test('A file is imported beside the preset of its name, and refused where there is none', async (t) => {
  const old = { dimming: 1, ZunoPresetVersion: 1 };
  const started = await startPresets(t, { saved: { Ocean: old, Unversioned: { dimming: 2 } } });
  const { page, folder, stored, api } = started;
  const picked = propertyListText({ dimming: 99 });
  for (const name of ['Ocean.plist', 'Unversioned.plist', 'New.plist', 'Notes.txt']) {
    await layFile(folder, `${documents}/${name}`, picked);
  }
  await api('PUT', '/api/device/pasteboard', { string: 'anything' });
  const importFile = async (name) => {
    await page.getByRole('button', { name: 'Add' }).click();
    await choose(page, 'Import/Add', 'Import Existing Preset...');
    await choose(page, 'Import Preset', 'Import from file...');
    const sheet = page.getByRole('dialog');
    await sheet.getByRole('button', { name, exact: true }).click();
    await sheet.waitFor({ state: 'detached' });
  };
  for (const name of ['New.plist', 'Unversioned.plist', 'Notes.txt']) {
    await importFile(name);
    await alertOf(page, 'Error').getByText('Invalid file selected.').waitFor();
    await choose(page, 'Error', 'OK');
    assert.deepEqual(await namesIn(started), ['Ocean.plist', 'Unversioned.plist']);
  }
  await importFile('Ocean.plist');
  await eventually(async () => assert.equal(await readFile(join(folder, fileOf('Ocean_1')), 'utf8'), picked));
  await importFile('Ocean.plist');
  await eventually(async () => assert.equal(await readFile(join(folder, fileOf('Ocean_2')), 'utf8'), picked));
  assert.deepEqual(await stored(fileOf('Ocean')), old);
  assert.deepEqual(await shownPresets(page), ['Ocean', 'Unversioned']);
  await open(page, 'Back to Customise', 'Presets');
  assert.deepEqual(await shownPresets(page), ['Ocean', 'Ocean_1', 'Ocean_2', 'Unversioned']);
});

test('Without a theme nothing is saved, and nothing is said', async (t) => {
  const started = await startPresets(t, { content: null });
  await save(started.page, 'Nothing');
  await alertOf(started.page, 'New Preset').waitFor({ state: 'detached' });
  assert.deepEqual(await namesIn(started), []);
  assert.equal(await started.page.getByRole('alertdialog').count(), 0);
});
