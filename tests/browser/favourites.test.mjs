import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { propertyListText } from './support/propertyList.mjs';
import {
  dragTo, handleOf, labelsOf, layFile, mainFile, open, rowOf, shownIn, startZuno,
} from './support/zuno.mjs';

const identifiers = {
  Calendar: 'com.apple.mobilecal', Camera: 'com.apple.camera', Clock: 'com.apple.mobiletimer', Files: 'com.apple.DocumentsApp',
  Mail: 'com.apple.mobilemail', Maps: 'com.apple.Maps', Messages: 'com.apple.MobileSMS', Music: 'com.apple.Music',
  Notes: 'com.apple.mobilenotes', Photos: 'com.apple.mobileslideshow',
};
const four = ['Maps', 'Mail', 'Music', 'Notes'];
const none = 'No Favourites Are Enabled...';

/** The editor with the apps `names` enabled; `favourites()` reads the stored list as names. */
async function startEditor(t, names = [], options = {}) {
  const content = { FavouriteApplications: names.map((name) => identifiers[name]), other: 'kept' };
  const prepare = (folder) => layFile(folder, mainFile, propertyListText(content));
  const started = await startZuno(t, { labels: ['Zuno', 'Favourite Apps'], prepare, ...options });
  await rowOf(started.page, 'Calendar').waitFor();
  const nameOf = new Map(Object.entries(identifiers).map(([name, identifier]) => [identifier, name]));
  const favourites = async () => {
    const { FavouriteApplications, ...rest } = await started.stored();
    assert.deepEqual(rest, { other: 'kept' });
    return FavouriteApplications.map((identifier) => nameOf.get(identifier));
  };
  return { ...started, favourites };
}

/** Waits until the browser, the editor and the file have the `enabled` apps; resolves with the disabled ones. */
async function assertEnabled({ page, api, favourites }, enabled) {
  await eventually(async () => assert.deepEqual(await favourites(), enabled));
  await eventually(async () => assert.deepEqual(
    await shownIn(page, /^Enabled/), enabled.length > 0 ? enabled : [none],
  ));
  const [, disabled] = await labelsOf(api);
  await eventually(async () => assert.deepEqual(await shownIn(page, /^Disabled/), disabled));
  assert.deepEqual(disabled.filter((name) => enabled.includes(name)), []);
  return disabled;
}

const tap = (page, name) => rowOf(page, name).getByRole('button', { name: new RegExp(`^${name}`) }).click();

test('The installed apps come with names, identifiers and shadowed icons, and none is enabled at first', async (t) => {
  const { page, api } = await startZuno(t, { labels: ['Zuno', 'Favourite Apps'] });
  await rowOf(page, 'Weather').getByText('com.apple.weather').waitFor();
  assert.deepEqual(await shownIn(page, /^Enabled/), [none]);
  assert.equal((await shownIn(page, /^Disabled/)).length, 16);
  assert.equal(await rowOf(page, none).locator('img').count(), 0);
  assert.equal(await handleOf(page, none).count(), 0);
  const icon = rowOf(page, 'Calendar').locator('img');
  await icon.waitFor();
  const filter = await rowOf(page, 'Calendar').locator('.row-picture').evaluate((element) => getComputedStyle(element).filter);
  assert.match(filter, /^drop-shadow\(.*\b0\.3\) 0px 1px 0\.5px\)$/);
  const { page: { sections } } = await api('GET', '/api/screen');
  assert.deepEqual(sections[1].rows[0].imageStyle.shadow, {
    color: '#808080ff', x: 0, y: 1, opacity: 0.3, radius: 1, path: null,
  });
});

test('A tap enables an app at the end, another tap disables it at the end', async (t) => {
  const editor = await startEditor(t, ['Maps']);
  await tap(editor.page, 'Camera');
  assert.deepEqual((await assertEnabled(editor, ['Maps', 'Camera'])).slice(0, 2), ['Calendar', 'Clock']);
  await tap(editor.page, 'Maps');
  assert.equal((await assertEnabled(editor, ['Camera'])).at(-1), 'Maps');
  await tap(editor.page, 'Camera');
  assert.deepEqual((await assertEnabled(editor, [])).slice(-2), ['Maps', 'Camera']);
});

test('The fifth favourite by tap sends the fourth to the end of the disabled apps', async (t) => {
  const editor = await startEditor(t, four);
  await tap(editor.page, 'Calendar');
  assert.equal((await assertEnabled(editor, ['Maps', 'Mail', 'Music', 'Calendar'])).at(-1), 'Notes');
});

test('The mouse drags within a section and between the sections by the handle', async (t) => {
  const editor = await startEditor(t, ['Maps', 'Mail', 'Music']);
  await dragTo(editor.page, 'Maps', 'Music');
  await assertEnabled(editor, ['Mail', 'Music', 'Maps']);
  await dragTo(editor.page, 'Music', 'Camera');
  const disabled = await assertEnabled(editor, ['Mail', 'Maps']);
  assert.ok(['Calendar', 'Camera'].includes(disabled[disabled.indexOf('Music') - 1]), JSON.stringify(disabled));
  await dragTo(editor.page, 'Calendar', 'Mail');
  const enabled = await editor.favourites();
  assert.deepEqual([...enabled].sort(), ['Calendar', 'Mail', 'Maps']);
  await assertEnabled(editor, enabled);
});

test('Arrow keys move a favourite through both sections', async (t) => {
  const editor = await startEditor(t, ['Maps', 'Mail']);
  const maps = handleOf(editor.page, 'Maps');
  await maps.focus();
  await editor.page.keyboard.press('ArrowDown');
  await assertEnabled(editor, ['Mail', 'Maps']);
  await editor.page.keyboard.press('ArrowDown');
  assert.equal((await assertEnabled(editor, ['Mail']))[0], 'Maps');
  await editor.page.keyboard.press('ArrowUp');
  await assertEnabled(editor, ['Mail', 'Maps']);
});

test('A favourite that is dropped on the placeholder takes its place, above or below it', async (t) => {
  for (const offset of [-0.3, 0.6]) {
    const editor = await startEditor(t, []);
    await dragTo(editor.page, 'Calendar', none, offset);
    assert.equal((await assertEnabled(editor, ['Calendar']))[0], 'Camera');
  }
});

test('The placeholder does nothing when it is tapped', async (t) => {
  const { page, favourites } = await startEditor(t, []);
  const text = await rowOf(page, none).boundingBox();
  await page.mouse.click(text.x + 60, text.y + text.height / 2);
  await tap(page, 'Calendar');
  await eventually(async () => assert.deepEqual(await favourites(), ['Calendar']));
});

test('A drag to the second of four favourites sends the fourth away', async (t) => {
  const editor = await startEditor(t, four);
  await dragTo(editor.page, 'Calendar', 'Mail', -0.3);
  const disabled = await assertEnabled(editor, ['Maps', 'Calendar', 'Mail', 'Music']);
  assert.equal(disabled.at(-1), 'Notes');
});

test('A drop below the fourth favourite ends as the last of four', async (t) => {
  const editor = await startEditor(t, four);
  await handleOf(editor.page, 'Calendar').focus();
  await editor.page.keyboard.press('ArrowUp');
  const disabled = await assertEnabled(editor, ['Maps', 'Mail', 'Music', 'Calendar']);
  assert.equal(disabled.at(-1), 'Notes');
});

test('The browser drags below the fourth favourite too', async (t) => {
  const editor = await startEditor(t, four);
  await dragTo(editor.page, 'Camera', 'Notes', 0.6);
  const disabled = await assertEnabled(editor, ['Maps', 'Mail', 'Music', 'Camera']);
  assert.equal(disabled.at(-1), 'Notes');
});

test('Of six stored apps the first four are enabled, and an app that is gone is dropped at the next save', async (t) => {
  const stored = ['Maps', 'Mail', 'gone', 'Music', 'Notes', 'Files', 'Photos'];
  const prepare = (folder) => layFile(folder, mainFile, propertyListText({
    FavouriteApplications: stored.map((name) => identifiers[name] ?? 'org.example.gone'),
  }));
  const { page, stored: read } = await startZuno(t, { labels: ['Zuno', 'Favourite Apps'], prepare });
  await rowOf(page, 'Calendar').waitFor();
  assert.deepEqual(await shownIn(page, /^Enabled/), four);
  assert.equal((await read()).FavouriteApplications.length, 7);
  await tap(page, 'Maps');
  await eventually(async () => assert.deepEqual(
    (await read()).FavouriteApplications, ['Mail', 'Music', 'Notes'].map((name) => identifiers[name]),
  ));
});

for (const [fault, value] of Object.entries({ 'a text': 'com.apple.Maps', 'a list of other things': [1, {}, ['x']] })) {
  test(`A stored list that is ${fault} counts as empty`, async (t) => {
    const prepare = (folder) => layFile(folder, mainFile, propertyListText({ FavouriteApplications: value, other: 1 }));
    const { page, stored } = await startZuno(t, { labels: ['Zuno', 'Favourite Apps'], prepare });
    await rowOf(page, 'Calendar').waitFor();
    assert.deepEqual(await shownIn(page, /^Enabled/), [none]);
    assert.deepEqual(await stored(), { FavouriteApplications: value, other: 1 });
    await tap(page, 'Calendar');
    await eventually(async () => assert.deepEqual(
      await stored(), { FavouriteApplications: ['com.apple.mobilecal'], other: 1 },
    ));
  });
}

test('The favourites rows of the root page go and come with the favourites page', async (t) => {
  const { page } = await startZuno(t);
  const row = page.getByRole('button', { name: 'Favourite Apps' });
  await row.waitFor();
  await open(page, 'Widgets');
  await tap(page, 'Favourites View');
  await eventually(async () => assert.equal((await shownIn(page, /^Disabled/)).at(-1), 'Favourites View'));
  await open(page, 'Back to Zuno');
  await page.getByRole('button', { name: /^Widgets/ }).waitFor();
  assert.equal(await row.count(), 0);
  assert.equal(await page.getByRole('switch', { name: 'Hide Snapshots on Favourites' }).count(), 0);
  await open(page, 'Widgets');
  await tap(page, 'Favourites View');
  await eventually(async () => assert.equal((await shownIn(page, /^Enabled/)).at(-1), 'Favourites View'));
  await open(page, 'Back to Zuno');
  await row.waitFor();
  await page.getByRole('switch', { name: 'Hide Snapshots on Favourites' }).waitFor();
});

test('A second tab sees the editor as the first leaves it', async (t) => {
  const editor = await startEditor(t, ['Maps']);
  const second = await openPage(t, editor.url);
  await rowOf(second, 'Calendar').waitFor();
  await tap(editor.page, 'Calendar');
  await eventually(async () => assert.deepEqual(await shownIn(second, /^Enabled/), ['Maps', 'Calendar']));
});
