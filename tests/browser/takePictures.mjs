// Takes the pictures of the documentation anew: npm run pictures
import { mkdir } from 'node:fs/promises';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { openPage, settled } from './support/browser.mjs';
import { startSimulator } from './support/simulator.mjs';

const folder = fileURLToPath(new URL('../../docs/pictures/', import.meta.url));

async function open(page, label) {
  await page.getByRole('button', { name: label }).first().click();
  await page.locator('.navigation[data-motion="push"]').waitFor();
  await page.locator('.navigation[data-motion="none"]').waitFor();
}

async function take(page, name) {
  await page.evaluate(() => document.activeElement.blur());
  await page.mouse.move(0, 0);
  await page.waitForTimeout(1800);
  await settled(page);
  await page.screenshot({ path: join(folder, `${name}.png`) });
}

async function takeAll(t) {
  const { url } = await startSimulator(t);
  const page = await openPage(t, url, { colorScheme: 'light', viewport: { width: 1280, height: 916 } });
  await open(page, 'Zuno');
  await page.getByRole('switch', { name: 'Notification Badges' }).click();
  await page.getByRole('switch', { name: 'Show Snapshots' }).click();
  await take(page, 'root-page');
  await page.emulateMedia({ colorScheme: 'dark' });
  await open(page, 'Favourite Apps');
  for (const name of ['Camera', 'Maps', 'Notes']) {
    await page.getByRole('button', { name: new RegExp(`^${name}`) }).first().click();
    await page.getByRole('group', { name: /^Enabled/ }).getByText(name).first().waitFor();
  }
  await take(page, 'favourites');
}

await mkdir(folder, { recursive: true });
const cleanup = [];
try {
  await takeAll({ after: (work) => cleanup.push(work) });
} finally {
  for (const work of cleanup) await work();
}
