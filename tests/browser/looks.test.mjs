import assert from 'node:assert/strict';
import { execFile } from 'node:child_process';
import { cp, mkdir, mkdtemp, rm, symlink, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';
import { eventually, openPage } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open, rowOf } from './support/zuno.mjs';

const root = fileURLToPath(new URL('../../', import.meta.url));
const build = process.env.SIMULATOR_BUILD ?? join(root, 'build/dev');
const widgets = 'var/jb/Library/Zuno/Widgets';
const headers = 'var/jb/usr/include';
const run = promisify(execFile);

/** Resolves with the bundle of the fixtures, built once for all tests. */
async function buildFixtures() {
  const folder = await mkdtemp(join(tmpdir(), 'looks-'));
  after(() => rm(folder, { recursive: true, force: true }));
  await cp(join(build, 'device-root', headers), join(folder, headers), { recursive: true });
  await run(join(root, 'script/widget'), [join(root, 'tests/fixtures/widgets/looks'), '--device', folder], {
    env: { ...process.env, ZUNO_BUILD: build },
  });
  return join(folder, widgets, 'LooksWidgets.bundle');
}

const building = buildFixtures();

/** The stage with the widget of the class `name` of the fixtures, and the phone's element. */
async function show(t, name) {
  const { folder, api, url } = await startSimulator(t);
  await cp(await building, join(folder, widgets, 'LooksWidgets.bundle'), { recursive: true });
  const own = join(folder, widgets, `${name}.bundle`);
  await mkdir(own, { recursive: true });
  await symlink('../LooksWidgets.bundle/LooksWidgets', join(own, 'LooksWidgets'));
  await writeFile(join(own, 'Info.plist'), propertyListText({
    CFBundleIdentifier: `org.example.${name}`, CFBundleExecutable: 'LooksWidgets', CFBundleDisplayName: name,
    ZunoWidgetsVersion: 1, ZunoWidgetClass: name,
  }));
  const page = await openPage(t, url, { colorScheme: 'light' });
  const shown = await api('POST', '/api/stage', { type: 'show', widget: `/${widgets}/${name}.bundle` });
  assert.equal(shown.shown, `/${widgets}/${name}.bundle`);
  const stage = page.getByRole('main', { name: 'Stage' });
  await stage.locator('.page-view > .views > .view').waitFor();
  return { page, stage, screen: () => api('GET', '/api/stage/screen') };
}

/** The colours of the widget as it is drawn, at places in points: [[red, green, blue], …]. */
async function coloursAt({ page, stage }, ...places) {
  await page.waitForFunction(() => [...document.querySelectorAll('.view img')].every((image) => image.complete));
  const content = stage.locator('.page-view > .views > .view');
  const width = await content.evaluate((view) => view.offsetWidth);
  const shot = (await content.screenshot()).toString('base64');
  return page.evaluate(async ([base64, points, wanted]) => {
    const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const bitmap = await createImageBitmap(new Blob([bytes], { type: 'image/png' }));
    const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext('2d');
    context.drawImage(bitmap, 0, 0);
    const scale = bitmap.width / points;
    return wanted.map((place) => [...context.getImageData(...place.map((at) => Math.round(at * scale)), 1, 1).data]
      .slice(0, 3));
  }, [shot, width, places]);
}

const red = [255, 0, 0];
const blue = [0, 0, 255];
const white = [255, 255, 255];
const isNear = (one, other, off = 24) => one.every((part, at) => Math.abs(part - other[at]) <= off);

/** The colours of a widget at `places`, each `[x, y, colour, what]`, are those. */
async function assertColours(shown, places) {
  const found = await coloursAt(shown, ...places.map(([x, y]) => [x, y]));
  for (const [at, [x, y, colour, what]] of places.entries()) {
    assert.ok(isNear(found[at], colour), `${what ?? 'the colour'} at ${x}, ${y}: ${found[at]}, not ${colour}`);
  }
}

test('Layers are drawn: gradients, shapes, masks, transforms, their own drawing, one before the other', async (t) => {
  const shown = await show(t, 'LooksLayers');
  await shown.stage.locator('.layer-contents').first().waitFor();
  await shown.page.waitForTimeout(0);
  await assertColours(shown, [
    [22, 82, red, 'an axial gradient begins'], [118, 138, blue, 'ends'],
    [22, 138, [128, 0, 128], 'has its middle in the other corner'], [118, 82, [128, 0, 128]],
    [210, 110, red, 'a radial gradient begins in its middle'], [162, 110, blue, 'ends at its sides'],
    [210, 82, blue, 'which are near where the layer is low'],
    [72, 162, red, 'a conic gradient begins at twelve o’clock'], [66, 162, blue], [70, 216, [128, 0, 128]],
    [210, 215, blue, 'half of a ring is stroked'], [210, 165, white, 'the other is not'],
    [210, 190, white, 'nor is it filled'],
    [70, 270, red, 'a mask leaves its shape'], [24, 244, white, 'and nothing beside it'],
    [210, 225, blue, 'a turned view reaches beyond its frame'], [164, 270, white, 'and not as far to the side'],
    [70, 350, red, 'a view draws itself'], [70, 330, white],
    [170, 350, blue, 'the greater zPosition is in front'], [250, 330, red],
  ]);
});

test('Texts are drawn in the fonts in which they were measured', async (t) => {
  const { page, stage, screen } = await show(t, 'LooksFonts');
  await page.evaluate(() => document.fonts.ready);
  const [{ views: labels }] = (await screen()).page.view.views;
  assert.deepEqual(labels.map((label) => `${label.fontFamily} ${label.fontWeight} ${label.italic}`), [
    'Liberation Sans 400 false', 'Liberation Sans 700 false', 'Liberation Serif 400 true', 'Liberation Mono 400 false',
    'Liberation Mono 700 false',
  ]);
  for (const { text, fontFamily, frame: [, , measured] } of labels) {
    const element = stage.getByText(text, { exact: true });
    const drawn = await element.evaluate((each) => {
      const range = document.createRange();
      range.selectNodeContents(each);
      const scale = each.getBoundingClientRect().width / each.offsetWidth;
      return range.getBoundingClientRect().width / scale;
    });
    assert.ok(Math.abs(drawn - measured) < 1.5, `${text}: ${drawn} points wide, not ${measured}`);
    assert.equal(await element.evaluate((each) => getComputedStyle(each).fontFamily), `"${fontFamily}"`);
  }
  const loaded = await page.evaluate(() => [...document.fonts].filter((font) => font.status === 'loaded')
    .map(({ family }) => family.replaceAll('"', '')));
  for (const face of ['Sans', 'Serif', 'Mono']) assert.ok(loaded.includes(`Liberation ${face}`), face);
});

/** Whether `element` shows a picture in the colour, as red, green and blue, on a ground of another. */
async function isDrawnIn(page, element, colour) {
  const shot = (await element.screenshot()).toString('base64');
  const share = await page.evaluate(async ([base64, wanted]) => {
    const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const bitmap = await createImageBitmap(new Blob([bytes], { type: 'image/png' }));
    const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext('2d');
    context.drawImage(bitmap, 0, 0);
    const { data } = context.getImageData(0, 0, bitmap.width, bitmap.height);
    let near = 0;
    for (let at = 0; at < data.length; at += 4) {
      if (wanted.every((part, index) => Math.abs(data[at + index] - part) <= 24)) near += 1;
    }
    return near / (data.length / 4);
  }, [shot, colour]);
  assert.ok(share > 0.05 && share < 0.9, `${share} of the picture is ${colour}`);
}

test('Symbols are drawn by their names in rows, bars and image views, in the tint of each', async (t) => {
  const { folder, url } = await startSimulator(t);
  const specifier = '[PSSpecifier preferenceSpecifierNamed:@"Paint" target:self set:nil get:nil detail:nil'
    + ' cell:PSTitleValueCell edit:nil]';
  const body = `- (void)viewDidLoad {
  [super viewDidLoad];
  self.navigationItem.rightBarButtonItem =
      [[UIBarButtonItem alloc] initWithImage:[UIImage systemImageNamed:@"square.and.arrow.up"]
                                       style:UIBarButtonItemStylePlain target:self action:@selector(share)];
  self.navigationItem.rightBarButtonItem.accessibilityLabel = @"Share";
  PSSpecifier *paint = self.specifiers.lastObject;
  [paint setProperty:[UIImage systemImageNamed:@"paintbrush"] forKey:@"iconImage"];
  UIImageView *drop = [[UIImageView alloc] initWithImage:[UIImage systemImageNamed:@"drop.fill"]];
  drop.preferredSymbolConfiguration = [UIImageSymbolConfiguration configurationWithPointSize:60];
  drop.tintColor = [UIColor redColor];
  drop.frame = CGRectMake(20, 20, drop.intrinsicContentSize.width, drop.intrinsicContentSize.height);
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 390, 120)];
  [header addSubview:drop];
  UIImageView *flat = [[UIImageView alloc] initWithImage:[UIImage systemImageNamed:@"minus"]];
  flat.frame = CGRectMake(200, 20, flat.image.size.width, flat.image.size.height);
  [header addSubview:flat];
  self.table.tableHeaderView = header;
}
- (void)share {
}`;
  const source = await makerFolder(t, settingsBundle({ 'KiteListController.m': kitePage(specifier, { body }) }));
  await runScript('bundle', source, folder);
  const page = await openPage(t, url, { colorScheme: 'light' });
  await open(page, 'Kite');
  const picture = (inside) => inside.locator('span[style*="mask"]');
  const icon = picture(rowOf(page, 'Paint'));
  const share = picture(page.getByRole('main').getByRole('button', { name: 'Share' }));
  const drop = picture(page.locator('.view')).first();
  for (const [colorScheme, blue] of [['light', [0, 122, 255]], ['dark', [10, 132, 255]]]) {
    await page.emulateMedia({ colorScheme });
    await eventually(() => isDrawnIn(page, icon, blue));
    await eventually(() => isDrawnIn(page, share, blue));
    await eventually(() => isDrawnIn(page, drop, red));
  }
  assert.ok(await drop.evaluate((each) => each.offsetWidth) > 35, 'the drop is as large as its view asks');
  const flat = picture(page.locator('.view')).last();
  assert.equal(await flat.evaluate((each) => each.offsetTop), 0, 'a flat symbol lies where its view does');
});
