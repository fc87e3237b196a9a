import assert from 'node:assert/strict';
import { mkdir, readFile, writeFile } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually } from './support/browser.mjs';
import { open, rowOf, startZuno } from './support/zuno.mjs';

const presets = 'var/jb/Library/Zuno/Presets';
const count = 10_000;
const patience = { timeout: 40_000 };
/** Characters of the value in a preset whose string has 16 MiB; the simulator takes four times as much. */
const length = 12 * 1024 * 1024 - 22;

/** Opens the presets and from there the dialog that imports a string. */
async function openImport(page, api) {
  await api('PUT', '/api/device/pasteboard', { string: 'anything' });
  await page.getByRole('button', { name: 'Add' }).click();
  await page.getByRole('button', { name: 'Import Existing Preset...' }).click();
  await page.getByRole('button', { name: 'Import from string...' }).click();
  const dialog = page.getByRole('alertdialog', { name: 'Import Preset' });
  await dialog.getByRole('textbox', { name: 'Preset Data...' }).waitFor();
  return dialog;
}

test('Ten thousand presets open, scroll, and are applied from anywhere in the list', async (t) => {
  const prepare = async (folder) => {
    await mkdir(join(folder, presets), { recursive: true });
    for (let at = 0; at < count; at += 1) {
      const content = `<plist version="1.0"><dict><key>dimming</key><integer>${at}</integer></dict></plist>`;
      await writeFile(join(folder, presets, `Preset ${at}.plist`), content);
    }
  };
  const { page, api, stored } = await startZuno(t, { labels: ['Zuno', 'Customise', 'Presets'], prepare });
  const list = page.locator('.page:not([inert])');
  await list.getByRole('listitem').first().getByRole('button').first().waitFor();
  const { page: described } = await api('GET', '/api/screen');
  const { rows } = described.sections[0];
  assert.equal(rows.length, count);
  assert.ok(rows.filter(({ outline }) => !outline).length < 400);

  for (const place of [5000, 9990, 2500]) {
    await list.locator('.scroller').evaluate((element, top) => { element.scrollTop = top; }, place * 60);
    await list.locator(`[data-row="${place + 3}"]`).getByRole('button').first().waitFor();
  }
  const name = (await list.locator('[data-row="2503"]').innerText()).trim().split('\n')[0];
  await list.locator('[data-row="2503"]').getByRole('button', { name, exact: true }).click();
  await page.getByRole('alertdialog', { name: 'Apply Preset' }).getByText(`"${name}"`).waitFor();
  await page.getByRole('button', { name: 'Confirm' }).click();
  await eventually(async () => {
    const { dimming } = await stored('var/jb/var/mobile/Library/Preferences/com.norvik.Zunoprefs.theme.plist');
    assert.equal(name, `Preset ${dimming}`);
  });
});

test('A preset string of 16 MiB is pasted, imported, shared and copied whole', async (t) => {
  const { page, api, folder } = await startZuno(t, { labels: ['Zuno', 'Customise', 'Presets'] });
  const dialog = await openImport(page, api);
  await dialog.getByRole('textbox', { name: 'Preset Name...' }).fill('Huge');
  await dialog.getByRole('textbox', { name: 'Preset Data...' }).evaluate((element, size) => {
    const text = btoa(JSON.stringify({ backgroundImage: 'A'.repeat(size) }));
    const clipboardData = new DataTransfer();
    clipboardData.setData('text/plain', text);
    element.dispatchEvent(new ClipboardEvent('paste', { clipboardData, bubbles: true, cancelable: true }));
  }, length);
  await dialog.getByText('16,777,216 characters').waitFor(patience);
  await dialog.getByRole('button', { name: 'Import', exact: true }).click();
  await rowOf(page, 'Huge').waitFor(patience);
  const file = await readFile(join(folder, presets, 'Huge.plist'), 'latin1');
  assert.ok(file.includes(`<string>${'A'.repeat(length)}</string>`));

  await page.getByRole('button', { name: 'Actions for Huge', exact: true }).click();
  await page.getByRole('group', { name: 'Actions for Huge' }).getByRole('button', { name: 'Share' }).click();
  await page.getByRole('button', { name: 'Share via string' }).click();
  await page.getByText(/… \(16,\d{3},\d{3} characters in all\)/).waitFor(patience);
  await page.getByRole('button', { name: 'Copy to Clipboard' }).click();
  await page.getByText(/16,\d{3},\d{3} characters, the first are shown/).waitFor(patience);
  const { string } = await api('GET', '/api/device/pasteboard/string');
  const { backgroundImage } = JSON.parse(Buffer.from(string, 'base64').toString('latin1'));
  assert.equal(backgroundImage.length, length);
  await open(page, 'Back to Customise');
});
