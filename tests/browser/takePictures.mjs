// Takes the pictures of the documentation anew, see script/pictures.
import { mkdir } from 'node:fs/promises';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { closeBrowser, openPage, settled } from './support/browser.mjs';
import { Device } from './support/device.mjs';
import { startSimulator } from './support/simulator.mjs';

const folder = fileURLToPath(new URL('../../docs/pictures/', import.meta.url));
const appearances = ['light', 'dark'];
// Longer than the slide from one page to the next, and than a screen takes to arrive after its event.
const pause = 700;

/** Takes the phone as it stands, light and dark, scrolled down by `scrollTop` points. */
async function take({ page, device }, name, scrollTop = 0) {
  for (const colorScheme of appearances) {
    await page.emulateMedia({ colorScheme });
    await device.hasAppearance(colorScheme);
    await page.waitForTimeout(pause);
    await page.evaluate((top) => { document.querySelector('.scroller').scrollTop = top; }, scrollTop);
    await page.evaluate(() => document.activeElement.blur());
    await settled(page);
    await page.locator('.phone').screenshot({ path: join(folder, `${name}-${colorScheme}.png`) });
  }
}

async function takeLists(stage) {
  const { device } = stage;
  await device.tapRow('Open To');
  await take(stage, 'open-to');
  await device.back();
  await device.tapRow('Default Music App');
  await take(stage, 'music-app');
  await device.back();
  await device.tapRow('Favourite Apps');
  for (const app of ['Camera', 'Maps', 'Notes']) await device.tapRow(app);
  await take(stage, 'favourites');
  await device.back();
  await device.tapRow('Widgets');
  await take(stage, 'widgets');
  await device.back();
}

async function takeTheme(stage) {
  const { device } = stage;
  await device.tapRow('Customise');
  await device.setRow('Enabled', true);
  await device.setRow('Use Custom Look', true);
  await device.tapRow('Choose Photo…');
  await take(stage, 'photos');
  await device.pick((await device.screen()).sheet.items[0].path);
  await device.setRow('Use Custom Look', true);
  await take(stage, 'customise');
  await take(stage, 'customise-middle', 560);
  await take(stage, 'customise-end', 5000);
  await device.tapRow('Presets');
  await device.tapButton(0);
  await device.type('Evening');
  await take(stage, 'new-preset');
  await device.answer('Save');
  await device.tapButton(0);
  await device.type('Morning');
  await device.answer('Save');
  await take(stage, 'presets');
  await device.tapRow('Evening');
  await take(stage, 'apply-preset');
}

/** The pages with most on them, on another display, in a window that shows it in its own size. */
async function takeDisplay(stage, api, { name, display, viewport }) {
  const { page, device } = stage;
  await page.setViewportSize(viewport);
  await api('PUT', '/api/device/display', display);
  await device.home();
  await device.tapRow('Zuno');
  await take(stage, `${name}-root`);
  await device.tapRow('Favourite Apps');
  await take(stage, `${name}-favourites`);
  await device.back();
  await device.tapRow('Customise');
  await take(stage, `${name}-customise`);
}

async function takeAll(t) {
  const { url, api } = await startSimulator(t);
  const page = await openPage(t, url, {
    viewport: { width: 1280, height: 916 }, reducedMotion: 'reduce',
    expected: /404/, // Pictures of a screen that the next event replaced before it was drawn.
  });
  const stage = { page, device: new Device(api) };
  await page.locator('.row').first().waitFor();
  await take(stage, 'settings');
  await stage.device.tapRow('Zuno');
  await take(stage, 'root');
  await take(stage, 'root-middle', 620);
  await take(stage, 'root-end', 5000);
  await takeLists(stage);
  await takeTheme(stage);
  await stage.device.answer('Cancel');
  await takeDisplay(stage, api, {
    name: 'landscape', display: { orientation: 'landscape' }, viewport: { width: 1500, height: 600 },
  });
  await takeDisplay(stage, api, {
    name: 'tablet', display: { kind: 'tablet', orientation: 'portrait' }, viewport: { width: 1500, height: 1260 },
  });
}

await mkdir(folder, { recursive: true });
const cleanup = [];
try {
  await takeAll({ after: (work) => cleanup.push(work) });
} finally {
  for (const work of cleanup) await work();
  await closeBrowser();
}
