import { mkdir, writeFile } from 'node:fs/promises';
import { dirname, join } from 'node:path';
import { openPage, settled } from './browser.mjs';
import { readPropertyList } from './propertyList.mjs';
import { startSimulator } from './simulator.mjs';

const preferences = 'var/jb/var/mobile/Library/Preferences';
/** Where the settings of the bundle lie in a device folder. */
export const mainFile = `${preferences}/com.norvik.Zunoprefs.plist`;
export const themeFile = `${preferences}/com.norvik.Zunoprefs.theme.plist`;

/**
 * A simulator of the test's own with a page on it, `labels` opened from the top of Settings on.
 *
 * `prepare(folder)` may lay files into the device folder first. Resolves with what `startSimulator` gives, the `page`,
 * and `stored(file)`, the content of a file of the folder as a second reader has it.
 */
export async function startZuno(t, { labels = ['Zuno'], prepare, ...options } = {}) {
  const simulator = await startSimulator(t, prepare);
  const page = await openPage(t, simulator.url, options);
  await open(page, ...labels);
  const stored = (file = mainFile) => readPropertyList(join(simulator.folder, file));
  return { ...simulator, page, stored };
}

/** Opens the pages that the labels name, one after another; a label begins the name of a row or of the back button. */
export async function open(page, ...labels) {
  const heading = '.page:not([inert]) [data-page-heading]';
  for (const label of labels) {
    const before = await page.locator(heading).elementHandle();
    await page.getByRole('main').getByRole('button', { name: label }).first().click();
    await page.waitForFunction(([selector, old]) => {
      const now = document.querySelector(selector);
      return now && now !== old;
    }, [heading, before]);
    await page.locator('.navigation[data-motion="none"]').waitFor();
  }
}

/** The sections of the page in front, each as the list of its rows' labels. */
export async function labelsOf(api) {
  const { page } = await api('GET', '/api/screen');
  return page.sections.map(({ rows }) => rows.map(({ label }) => label));
}

/** Scrolls the device's table until the row `label` is in the middle of its screen; the browser scrolls on its own. */
export async function bringInSight(api, label) {
  const { page } = await api('GET', '/api/screen');
  const section = page.sections.findIndex(({ rows }) => rows.some((row) => row.label === label));
  const row = page.sections[section].rows.findIndex((each) => each.label === label);
  await api('POST', '/api/events', { type: 'scroll', to: [section, row] });
}

/** The rows that the browser shows in the group of this name, each as the first line of its text. */
export async function shownIn(page, group) {
  await settled(page);
  const texts = await page.getByRole('group', { name: group }).getByRole('listitem').allInnerTexts();
  return texts.map((text) => text.trim().split('\n')[0]);
}

/** The handle that moves the row `name`. */
export function handleOf(page, name) {
  return page.getByRole('button', { name: `Move ${name}`, exact: true });
}

/** Drags the row `name` by its handle with the mouse until it lies `offset` rows below the row `target`. */
export async function dragTo(page, name, target, offset = 0) {
  await settled(page);
  const handle = handleOf(page, name);
  await handle.scrollIntoViewIfNeeded();
  const from = await handle.boundingBox();
  const to = await rowOf(page, target).boundingBox();
  const x = from.x + from.width / 2;
  const start = from.y + from.height / 2;
  const end = to.y + to.height / 2 + offset * to.height;
  await page.mouse.move(x, start);
  await page.mouse.down();
  await page.mouse.move(x, (start + end) / 2, { steps: 5 });
  await page.mouse.move(x, end, { steps: 5 });
  await page.mouse.up();
  await page.locator('.lifted').waitFor({ state: 'detached' });
}

/** The row in front whose text begins with `name`. */
export function rowOf(page, name) {
  return page.locator('.page:not([inert])').getByRole('listitem').filter({ hasText: name }).first();
}

/** The one row of the theme page that chooses a photo: a button while there is none, and then the one that shows it. */
export function photoRow(page) {
  return page.getByRole('button', { name: /^(Choose Photo…|Background Image)$/ });
}

/** Writes `content` to `path` of the device folder, its parent folders included. */
export async function layFile(folder, path, content) {
  const file = join(folder, path);
  await mkdir(dirname(file), { recursive: true });
  await writeFile(file, content);
  return file;
}

/** The names of the Darwin notifications that were posted, oldest first, by whatever Settings was doing when asked. */
export async function notificationsOf(api) {
  await api('GET', '/api/screen');  // Answered after that: a file is written before its notification is posted.
  return (await api('GET', '/api/device')).notifications.map(({ name }) => name);
}

