import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { control, link, screen, section } from './support/screens.mjs';

const page1 = screen(['Settings'], [section(null, [link('Zuno')])]);
const lost = /ERR_|Failed to load resource/;

test('The token leaves the address bar and survives a reload', async (t) => {
  const { url } = await startFake(t, page1);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Zuno' }).waitFor();
  assert.equal(new URL(page.url()).hash, '');
  await page.reload();
  await page.getByRole('button', { name: 'Zuno' }).waitFor();
});

test('Without a token the page says what to open', async (t) => {
  const { url } = await startFake(t, page1);
  const page = await openPage(t, new URL(url).origin);
  await page.getByRole('heading', { name: 'The address is incomplete' }).waitFor();
});

test('With the token of another run the page says so and stops asking', async (t) => {
  const { url } = await startFake(t, page1);
  const page = await openPage(t, url.replace(/f+$/, 'old'), { expected: /403/ });
  await page.getByRole('heading', { name: 'This address is out of date' }).waitFor();
});

test('Several tabs show the same device', async (t) => {
  const show = (on) => screen(['Settings'], [section(null, [control('Enabled', 'switch', on)])]);
  const { url } = await startFake(t, show(false), (event, fake) => {
    fake.screen = show(event.value);
  });
  const first = await openPage(t, url);
  const second = await openPage(t, url);
  await second.getByRole('switch').waitFor();
  await first.getByRole('switch').click();
  await eventually(async () => assert.equal(await second.getByRole('switch').isChecked(), true));
});

test('A broken stream is told and opened again, and what was missed is shown', async (t) => {
  const { fake, url } = await startFake(t, page1);
  const page = await openPage(t, url, { expected: lost });
  await page.getByRole('button', { name: 'Zuno' }).waitFor();
  fake.screen = screen(['Settings'], [section(null, [link('Changed meanwhile')])]);
  fake.revision += 1;
  fake.dropStreams();
  await page.getByText('The simulator does not answer. Reconnecting…').waitFor();
  await page.getByRole('button', { name: 'Changed meanwhile' }).waitFor();
  await page.getByText('The simulator does not answer. Reconnecting…').waitFor({ state: 'detached' });
});

test('A hidden page closes its stream and opens it again when it is seen', async (t) => {
  const { fake, url } = await startFake(t, page1);
  const page = await openPage(t, url);
  const turn = (state) => page.evaluate((value) => {
    Object.defineProperty(document, 'visibilityState', { value, configurable: true });
    document.dispatchEvent(new Event('visibilitychange'));
  }, state);
  await eventually(() => assert.equal(fake.streams, 1));
  await turn('hidden');
  await eventually(() => assert.equal(fake.streams, 0));
  fake.show(screen(['Settings'], [section(null, [link('Later')])]));
  await turn('visible');
  await page.getByRole('button', { name: 'Later' }).waitFor();
  assert.equal(fake.streams, 1);
});

test('The device follows the appearance of the browser', async (t) => {
  const { fake, url } = await startFake(t, page1);
  const page = await openPage(t, url, { colorScheme: 'dark' });
  await eventually(() => assert.equal(fake.appearance, 'dark'));
  await page.emulateMedia({ colorScheme: 'light' });
  await eventually(() => assert.equal(fake.appearance, 'light'));
});

test('Pictures are fetched once with the token and shown as blobs', async (t) => {
  const image = { url: '/images/5', width: 29, height: 29 };
  const { url } = await startFake(t, screen(['Settings'], [section(null, [link('One', { image }), link('Two', { image })])]));
  const asked = [];
  const page = await openPage(t, 'about:blank');
  page.on('request', (request) => asked.push(new URL(request.url()).pathname));
  await page.goto(url);
  await page.locator('.row-picture[src^="blob:"]').nth(1).waitFor();
  assert.equal(asked.filter((path) => path === '/images/5').length, 1);
});

test('When Settings does not run the phone says why and tries again on request', async (t) => {
  const { fake, url } = await startFake(t, page1);
  const page = await openPage(t, url, { expected: /50\d/ });
  await page.getByRole('button', { name: 'Zuno' }).waitFor();
  fake.failure = { status: 503, error: 'Settings ended three times in a row.' };
  fake.show(page1);
  await page.getByText('Settings ended three times in a row.').waitFor();
  fake.failure = null;
  await page.getByRole('button', { name: 'Try Again' }).click();
  await page.getByRole('button', { name: 'Zuno' }).waitFor();
});

test('An input that takes its time shows that it is worked on', async (t) => {
  let finish;
  const { url } = await startFake(t, page1, () => new Promise((resolve) => { finish = resolve; }));
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Zuno' }).click();
  await page.getByText('Working…').waitFor({ state: 'attached' });
  assert.ok(await page.locator('.working-sign .spinner').isVisible());
  finish();
  await page.locator('.working-sign .spinner').waitFor({ state: 'detached' });
});

test('An answer takes away the notice that stood before it, and none that came meanwhile', async (t) => {
  let finish;
  const { fake, url } = await startFake(t, page1, () => {
    if (fake.events.length === 1) return { status: 422, error: 'Not now.' };
    return fake.events.length === 3 ? new Promise((resolve) => { finish = resolve; }) : undefined;
  });
  const page = await openPage(t, url, { expected: /422/ });
  const row = page.getByRole('button', { name: 'Zuno' });
  await row.click();
  await page.getByText('Not now.').waitFor();
  await row.click();
  await page.getByText('Not now.').waitFor({ state: 'detached' });
  await row.click();
  await eventually(() => assert.ok(finish));
  await page.evaluate(() => {
    const transfer = new DataTransfer();
    transfer.items.add(new File(['text'], 'notes.txt', { type: 'text/plain' }));
    document.querySelector('.screen').dispatchEvent(new DragEvent('drop', { dataTransfer: transfer, bubbles: true }));
  });
  const refusal = page.getByText('“notes.txt” is not a picture.');
  await refusal.waitFor();
  finish();
  await eventually(() => assert.equal(fake.revision, 3));
  await page.waitForTimeout(200);
  assert.ok(await refusal.isVisible());
});
