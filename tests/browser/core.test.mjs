// What people do with the simulator, once each, and quick enough to be tried in every browser that it is meant for.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { eventually, focused, openPage, settled } from './support/browser.mjs';
import { dropFiles } from './support/files.mjs';
import { picture } from './support/pictures.mjs';
import { propertyListText } from './support/propertyList.mjs';
import {
  bringInSight, dragTo, layFile, mainFile, open, photoRow, rowOf, shownIn, startZuno, themeFile,
} from './support/zuno.mjs';

const dialogOf = (page, name) => page.getByRole('dialog', { name, exact: true });
const alertOf = (page, name) => page.getByRole('alertdialog', { name, exact: true });
const switchOf = (page, name) => page.getByRole('switch', { name, exact: true });
const screenOf = (page) => page.locator('.screen');
const theme = ({ stored }) => stored(themeFile);

async function answer(page, title, action) {
  await alertOf(page, title).getByRole('button', { name: action, exact: true }).click();
  await alertOf(page, title).waitFor({ state: 'detached' });
}

/** Flips a switch with the mouse; its value is stored under `key`. */
async function flip({ page, stored }, name, key, value) {
  await switchOf(page, name).click();
  await eventually(async () => assert.equal((await stored())[key], value));
}

/** Drags the slider "Dimming" from the 25 percent at which it stands with the mouse. */
async function slideToMiddle({ page, stored }) {
  const slider = page.getByRole('slider', { name: 'Dimming' });
  await slider.scrollIntoViewIfNeeded();
  const { x, y, width, height } = await slider.boundingBox();
  await page.mouse.move(x + 0.27 * width, y + height / 2);
  await page.mouse.down();
  await page.mouse.move(x + 0.5 * width, y + height / 2, { steps: 5 });
  await page.mouse.up();
  await eventually(async () => {
    const { dimming } = await stored(themeFile);
    assert.ok(Math.abs(dimming - 50) < 5, `dimming is ${dimming}`);
  });
}

test('The root page: a switch, both lists of choices, scrolling by wheel, a link', async (t) => {
  const started = await startZuno(t);
  const { page, stored } = started;
  await flip(started, 'Show Snapshots', 'ShowSwitcherWithSnapshots', 1);
  await open(page, 'Open To');
  await page.getByRole('button', { name: 'First Page', exact: true }).click();
  await eventually(async () => assert.equal((await stored()).OnActivationMode, 2));
  await open(page, 'Back to Zuno', 'Default Music App');
  await rowOf(page, 'Maps').click();
  await page.getByRole('button', { name: /^Maps/, pressed: true }).waitFor();
  await open(page, 'Back to Zuno');
  const box = await screenOf(page).boundingBox();
  const link = page.getByRole('button', { name: 'Follow the Developer' });
  await page.mouse.move(box.x + 200, box.y + 400);
  await page.mouse.wheel(0, 3000);
  await eventually(async () => {
    const { y, height } = await link.boundingBox();
    assert.ok(y > box.y && y + height < box.y + box.height, `the link is at ${y}`);
  });
  await link.click();
  await page.getByRole('list', { name: 'Opened addresses, newest first' }).getByRole('listitem').waitFor();
});

test('The editors: a tap and a drag move rows, and both windows show it', async (t) => {
  const { page, url, stored } = await startZuno(t, { labels: ['Zuno', 'Favourite Apps'] });
  const second = await openPage(t, url);
  for (const name of ['Maps', 'Mail']) {
    await rowOf(page, name).getByRole('button', { name: new RegExp(`^${name}`) }).click();
    await eventually(async () => assert.equal((await shownIn(second, /^Enabled/)).at(-1), name));
  }
  await dragTo(page, 'Mail', 'Maps', -0.3);
  for (const each of [page, second]) {
    await eventually(async () => assert.deepEqual(await shownIn(each, /^Enabled/), ['Mail', 'Maps']));
  }
  assert.deepEqual((await stored()).FavouriteApplications, ['com.apple.mobilemail', 'com.apple.Maps']);
  await open(second, 'Back to Zuno', 'Widgets');
  await rowOf(page, 'Clock').waitFor();
  await dragTo(page, 'Clock', 'Suggestions', -0.3);
  await eventually(async () => assert.equal((await shownIn(second, /^Enabled/))[0], 'Clock'));
});

test('The theme page: a colour, a text, a slider under the mouse, a chosen photo and a dropped one', async (t) => {
  const prepare = (folder) => layFile(folder, themeFile, propertyListText({ enabled: true, useCustom: true }));
  const started = await startZuno(t, { labels: ['Zuno', 'Customise'], prepare });
  const { page, api } = started;
  await page.getByRole('button', { name: 'Titles System' }).click();
  await page.getByRole('gridcell', { name: 'B51A00' }).click();
  await eventually(async () => assert.equal((await theme(started)).titleColour, 'B51A00'));
  await page.getByRole('dialog', { name: 'Titles' }).getByRole('button', { name: 'Close' }).click();
  const device = page.getByRole('textbox', { name: 'Device' });
  await device.click();
  await page.keyboard.type('iPhone15,2');
  await page.keyboard.press('Enter');
  await eventually(async () => assert.equal((await theme(started)).device, 'iPhone15,2'));
  await slideToMiddle(started);

  const file = async (mimeType) => ({ name: 'halves', mimeType, buffer: await picture(page, mimeType) });
  const [png, jpeg] = [await file('image/png'), await file('image/jpeg')];
  const photos = dialogOf(page, 'Photos');
  const take = async (hand) => {
    const before = (await theme(started)).backgroundImage;
    await bringInSight(api, before ? 'Background Image' : 'Choose Photo…');
    await photoRow(page).click();
    await photos.waitFor();
    const count = await photos.getByRole('button', { name: /^IMG_/ }).count();
    await hand();
    await eventually(async () => assert.equal(await photos.getByRole('button', { name: /^IMG_/ }).count(), count + 1));
    await photos.getByRole('button', { name: /^IMG_/ }).last().click();
    await photos.waitFor({ state: 'detached' });
    await eventually(async () => assert.notDeepEqual((await theme(started)).backgroundImage, before));
  };
  await take(() => photos.locator('input[type=file]').setInputFiles([png]));
  await take(() => dropFiles(page, screenOf(page), [jpeg]));
});

test('The presets: an alert with a text, a swipe, the share sheet, and a question', async (t) => {
  const prepare = (folder) => layFile(folder, themeFile, propertyListText({ dimming: 40 }));
  const { page } = await startZuno(t, { labels: ['Zuno', 'Customise', 'Presets'], prepare });
  await page.getByRole('button', { name: 'Add' }).click();
  await alertOf(page, 'New Preset').waitFor();
  assert.equal(await focused(page), 'Preset Name...');
  await page.keyboard.type('Ocean');
  await page.keyboard.press('Enter');
  await rowOf(page, 'Ocean').waitFor();
  await settled(page);

  const actions = page.getByRole('group', { name: 'Actions for Ocean' });
  const swipe = async () => {
    const { x, y, width, height } = await rowOf(page, 'Ocean').boundingBox();
    await page.mouse.move(x + width * 0.7, y + height / 2);
    await page.mouse.down();
    await page.mouse.move(x + width * 0.7 - 120, y + height / 2, { steps: 6 });
    await page.mouse.up();
    await actions.waitFor();
  };
  await swipe();
  await actions.getByRole('button', { name: 'Share' }).click();
  await answer(page, 'Share "Ocean"...', 'Share via file');
  await dialogOf(page, 'Share').getByRole('button', { name: 'Save Ocean.plist' }).waitFor();
  await dialogOf(page, 'Share').getByRole('button', { name: 'Close' }).click();
  await dialogOf(page, 'Share').waitFor({ state: 'detached' });
  await swipe();
  await actions.getByRole('button', { name: 'Delete' }).click();
  await answer(page, 'Delete Preset', 'Confirm');
  await rowOf(page, 'Ocean').waitFor({ state: 'detached' });
});

for (const [name, display] of Object.entries({
  'a tablet': { kind: 'tablet' }, 'a phone on its side': { orientation: 'landscape' },
})) {
  test(`On ${name}, which is drawn smaller: a slider, and a drag`, async (t) => {
    const prepare = async (folder) => {
      await layFile(folder, mainFile, propertyListText({
        FavouriteApplications: ['com.apple.Maps', 'com.apple.mobilemail'],
      }));
      await layFile(folder, themeFile, propertyListText({ enabled: true }));
    };
    const started = await startZuno(t, { prepare });
    const { page, api, stored } = started;
    const { width } = await api('PUT', '/api/device/display', display);
    await eventually(async () => {
      assert.equal(await screenOf(page).evaluate((element) => element.offsetWidth), width);
    });
    await open(page, 'Customise');
    await slideToMiddle(started);
    await open(page, 'Back to Zuno', 'Favourite Apps');
    await dragTo(page, 'Mail', 'Maps', -0.3);
    const swapped = ['com.apple.mobilemail', 'com.apple.Maps'];
    await eventually(async () => assert.deepEqual((await stored()).FavouriteApplications, swapped));
  });
}

test('In the dark the page is dark', async (t) => {
  const { page } = await startZuno(t, { colorScheme: 'dark' });
  const colour = (selector, property) => page.locator(selector).first().evaluate(
    (element, name) => getComputedStyle(element)[name], property,
  );
  assert.equal(await colour('.screen', 'backgroundColor'), 'rgb(0, 0, 0)');
  assert.equal(await colour('.row-label', 'color'), 'rgb(255, 255, 255)');
});
