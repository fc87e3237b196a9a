import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { createRequire } from 'node:module';
import { after } from 'node:test';
import playwright from 'playwright-core';
import { defer } from './cleanup.mjs';

/** The browser that the tests run in: "chromium" or "firefox". */
const name = process.env.BROWSER ?? 'chromium';
const launchers = {
  chromium: () => playwright.chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium-headless-shell',
    // Chromium refuses to start its sandbox for the root user; the pages are our own.
    args: ['--no-sandbox', '--disable-gpu', '--host-resolver-rules=MAP * ~NOTFOUND,EXCLUDE 127.0.0.1,EXCLUDE localhost'],
  }),
  // Debian's own Firefox over WebDriver BiDi: Playwright's public name means a build of its own.
  firefox: (dark) => playwright._bidiFirefox.launch({
    executablePath: process.env.FIREFOX ?? '/usr/bin/firefox-esr',
    firefoxUserPrefs: { 'layout.css.prefers-color-scheme.content-override': dark ? 0 : 1 },
  }),
};
const axePath = createRequire(import.meta.url).resolve('axe-core/axe.min.js');

// Running browsers by what sets them apart: a page's colour scheme can be chosen in Chromium, and in Firefox only for
// all.
const launched = new Map();
let axeSource = null;

after(closeBrowser);

/** For programs that are no tests: lets the process end. */
export async function closeBrowser() {
  for (const launching of launched.values()) await (await launching).close();
}

/**
 * A page in a browser context of its own; `options` are those of a context.
 *
 * Its animations run `hurry` times as fast in Chromium, which draws each of their frames with the processor: a test
 * that looks at the motion itself asks for 1.
 *
 * When the test `t` ends it fails if the page wrote an error to the console, threw one, or asked another host.
 * `expected` matches console errors and exceptions that belong to the test.
 */
export async function openPage(t, url, { expected = /(?!)/, hurry = 10, ...options } = {}) {
  const dark = name === 'firefox' && options.colorScheme === 'dark';
  if (!launched.has(dark)) launched.set(dark, launchers[name](dark));
  const browser = await launched.get(dark);
  const context = await browser.newContext({ viewport: { width: 1280, height: 920 }, ...options });
  const troubles = [];
  const note = (kind, text) => {
    if (!expected.test(text)) troubles.push(`${kind}: ${text}`);
  };
  context.on('console', (message) => {
    if (message.type() === 'error') note('console', `${message.text()} ${message.location().url}`);
  });
  context.on('weberror', (error) => note('exception', String(error.error().stack)));
  context.on('request', (request) => {
    const address = new URL(request.url());
    if (!['127.0.0.1', 'localhost'].includes(address.hostname) && address.protocol !== 'blob:') {
      troubles.push(`request: ${request.url()}`);
    }
  });
  defer(t, async () => {
    await context.close();
    assert.deepEqual(troubles, []);
  });
  const page = await context.newPage();
  page.setDefaultTimeout(10_000);
  if (name === 'chromium' && hurry !== 1) {
    const session = await context.newCDPSession(page);
    await session.send('Animation.setPlaybackRate', { playbackRate: hurry });
  }
  await page.goto(url);
  return page;
}

/**
 * Fails if axe-core finds anything wrong with the page as it stands. Of texts in colours that a bundle has set it may
 * find that there is too little contrast: they are shown as they are on a device.
 */
export async function assertAccessible(page) {
  axeSource ??= await readFile(axePath, 'utf8');
  await settled(page);
  await page.evaluate(axeSource);
  const violations = await page.evaluate(async () => {
    const isOwn = ({ target }) => document.querySelector(target.at(-1))?.closest('[data-own-color]');
    const all = (await globalThis.axe.run()).violations;
    return all.map(({ id, nodes }) => (
      { id, nodes: id === 'color-contrast' ? nodes.filter((node) => !isOwn(node)) : nodes }));
  });
  const found = violations.flatMap(({ id, nodes }) => nodes.map((node) => `${id}: ${node.html} ${node.failureSummary}`));
  assert.deepEqual(found, []);
}

/** Resolves when no animation or transition runs any more, endless ones aside. */
export async function settled(page) {
  await page.evaluate(() => Promise.all(document.getAnimations()
    .filter((animation) => Number.isFinite(animation.effect.getComputedTiming().endTime))
    .map((animation) => animation.finished.catch(() => {}))));
}

/** Retries `check` until it does not throw any more, for at most five seconds. */
export async function eventually(check) {
  const deadline = Date.now() + 5000;
  for (;;) {
    try {
      return await check();
    } catch (error) {
      if (Date.now() > deadline) throw error;
      await new Promise((resolve) => setTimeout(resolve, 15));
    }
  }
}

/** Name and role of the element that has the focus. */
export function focused(page) {
  return page.evaluate(() => {
    const element = document.activeElement;
    return element.getAttribute('aria-label') ?? element.innerText?.trim() ?? element.tagName;
  });
}

/** Whether the element of `locator` has the focus. */
export function hasFocus(locator) {
  return locator.evaluate((element) => element === document.activeElement);
}
