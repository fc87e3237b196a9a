import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { link, screen, section } from './support/screens.mjs';

const page1 = screen(['Settings', 'Zuno'], [section(null, [link('Respring')])]);
const folder = '/var/jb/var/mobile/Library/Preferences';

async function start(t, device, options) {
  const { fake, url } = await startFake(t, page1);
  fake.device = { ...fake.device, ...device };
  return { fake, page: await openPage(t, url, options) };
}

test('Preference files are shown key by key', async (t) => {
  const content = {
    Enabled: 1, Names: ['one', 'two'], Empty: {}, Text: 'x'.repeat(1000), Image: { data: 'AAAA' },
    Large: { data: null, bytes: 20_000_000 }, Day: { date: '2026-01-02T00:00:00Z' },
  };
  const { page } = await start(t, { files: [{ path: `${folder}/com.example.plist`, content, error: null }] });
  const file = page.getByRole('region', { name: 'Content of com.example.plist' });
  await file.waitFor();
  const text = await file.innerText();
  assert.match(text, /Enabled\s+1/);
  assert.match(text, /Names\s+0\s+one\s+1\s+two/);
  assert.match(text, /Empty\s+empty dictionary/);
  assert.match(text, /Image\s+data, 3 bytes/);
  assert.match(text, /1,000 characters/);
  assert.match(text, /Large\s+data, 20,000,000 bytes/);
  assert.match(text, /Day\s+date, 2026-01-02T00:00:00Z/);
  await page.getByText(folder).waitFor();
});

test('A file that cannot be read says why', async (t) => {
  const error = 'The file is no property list.';
  const { page } = await start(t, { files: [{ path: `${folder}/broken.plist`, content: null, error }] });
  await page.getByText(error).waitFor();
});

test('A change on disk lights up its key', async (t) => {
  const files = (Enabled) => [{ path: `${folder}/a.plist`, content: { Enabled, Other: 5 }, error: null }];
  const { fake, page } = await start(t, { files: files(1) });
  await page.getByRole('region', { name: 'Content of a.plist' }).waitFor();
  fake.changeDevice({ files: files(0) });
  await page.locator('.entry[data-changed="true"]').waitFor();
  assert.match(await page.locator('.entry[data-changed="true"]').innerText(), /Enabled\s+0/);
});

test('Notifications, addresses and the log are listed as they come', async (t) => {
  const { fake, page } = await start(t, {});
  await page.getByText('None yet').waitFor();
  fake.changeDevice({
    notifications: [{ name: 'first', sequence: 1 }, { name: 'second', sequence: 2 }],
    openedURLs: ['https://example.org/a'], log: ['line one', 'line two'],
  });
  const notifications = page.getByRole('list', { name: 'Notifications, newest first' });
  await eventually(async () => {
    assert.deepEqual(await notifications.getByRole('listitem').locator('code').allInnerTexts(), ['second', 'first']);
  });
  await page.getByRole('list', { name: 'Opened addresses, newest first' }).getByText('https://example.org/a').waitFor();
  assert.equal(await page.getByRole('log').innerText(), 'line one\nline two');
});

test('The log follows the newest line until the user scrolls away', async (t) => {
  const lines = (count) => Array.from({ length: count }, (_, at) => `line ${at}`);
  const { fake, page } = await start(t, { log: lines(100) });
  const log = page.getByRole('log');
  const gap = () => log.evaluate((element) => element.scrollHeight - element.scrollTop - element.clientHeight);
  await log.getByText('line 99').waitFor();
  assert.ok(await gap() < 2);
  await log.evaluate((element) => { element.scrollTop = 0; });
  fake.changeDevice({ log: lines(120) });
  await log.getByText('line 119').waitFor();
  assert.equal(await log.evaluate((element) => element.scrollTop), 0);
  await log.evaluate((element) => { element.scrollTop = element.scrollHeight; });
  fake.changeDevice({ log: lines(140) });
  await log.getByText('line 139').waitFor();
  assert.ok(await gap() < 2, 'it follows again');
});

test('The pasteboard is shown, replaced and emptied', async (t) => {
  const { fake, page } = await start(t, { pasteboard: 'abc' });
  const text = page.getByRole('textbox', { name: 'Text on the pasteboard' });
  await eventually(async () => assert.equal(await text.inputValue(), 'abc'));
  await text.fill('def');
  await page.getByRole('button', { name: 'Put on pasteboard' }).click();
  await eventually(() => assert.equal(fake.device.pasteboard, 'def'));
  await page.getByRole('button', { name: 'Empty' }).click();
  await eventually(() => assert.equal(fake.device.pasteboard, null));
  await eventually(async () => assert.equal(await text.inputValue(), ''));
});

test('Of a long text on the pasteboard the beginning is shown, and the whole is copied to the computer', async (t) => {
  const whole = 'x'.repeat(100_000);
  const { fake, page } = await start(
    t, { pasteboard: whole.slice(0, 65_536), pasteboardLength: whole.length },
    { permissions: ['clipboard-read', 'clipboard-write'] },
  );
  fake.pasteboardString = whole;
  await page.getByText('100,000 characters, the first are shown').waitFor();
  const text = page.getByRole('textbox', { name: 'Text on the pasteboard' });
  assert.equal(await text.isEditable(), false);
  await page.getByRole('button', { name: 'Copy to this computer' }).click();
  await eventually(async () => {
    assert.equal(await page.evaluate(() => navigator.clipboard.readText()), whole);
  });
  await text.focus();
  await page.keyboard.press('Control+v');
  await eventually(() => assert.equal(fake.device.pasteboard, whole));
  await page.getByRole('button', { name: 'Empty' }).click();
  await eventually(() => assert.equal(fake.device.pasteboard, null));
});

test('A respring turns the screen black for a moment', async (t) => {
  const { fake, page } = await start(t, { resprings: 2 });
  await page.getByText('2 resprings').waitFor();
  assert.equal(await page.locator('.respring').count(), 0);
  fake.changeDevice({ resprings: 3 });
  const cover = page.locator('.respring');
  await cover.waitFor();
  assert.equal(await cover.evaluate((element) => getComputedStyle(element).backgroundColor), 'rgb(0, 0, 0)');
  await cover.waitFor({ state: 'detached' });
  await page.getByRole('button', { name: 'Respring' }).waitFor();
});

test('In a narrow window the panel lies below the phone and nothing is cut off', async (t) => {
  const { page } = await start(t, {}, { viewport: { width: 390, height: 700 } });
  const phone = await page.getByRole('main', { name: 'Phone' }).boundingBox();
  const panel = await page.getByRole('complementary', { name: 'Device' }).boundingBox();
  assert.ok(panel.y >= phone.y + phone.height);
  assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 390);
});

test('A low window shortens the phone instead of cutting it off', async (t) => {
  const { page } = await start(t, {}, { viewport: { width: 1280, height: 700 } });
  const phone = await page.locator('.phone').boundingBox();
  assert.ok(phone.y + phone.height <= 700, JSON.stringify(phone));
});
