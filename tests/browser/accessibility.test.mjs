import { test } from 'node:test';
import { assertAccessible, openPage } from './support/browser.mjs';
import { startFake } from './support/fakeSimulator.mjs';
import { control, label, link, row, screen, section } from './support/screens.mjs';

const image = { url: '/images/1', width: 29, height: 29 };
const credit = label('Made by us', [0, 0, 390, 20], { fontSize: 12, color: '#808080ff', alignment: 'center' });
const settings = screen(['Settings', 'Zuno'], [
  {
    ...section(null, [row(null, { cell: 'Footer', selectable: false, frame: [0, 0, 390, 44], views: [credit] })]),
    headerView: credit,
  },
  section('General', [
    control('Enabled', 'switch', 1), control('Off', 'switch', 0, { enabled: false }),
    control('Width', 'slider', 2, { detail: '2.00' }, { min: 0, max: 4 }),
    control('Mode', 'segmented', 1, {}, { titles: ['A', 'B'], selected: 1 }), control('Name', 'text', 'x'),
    control('', 'text', '', { key: 'agent' }, { placeholder: 'Agent' }),
    control('Notes', 'textView', 'x', { height: 90 }),
    control('Loading', 'spinner', null),
  ], 'What these do.'),
  section(null, [
    link('Mode', {
      style: 'value1', detail: 'Automatic', image, labelColor: { light: '#000000ff', dark: '#ffffffff' },
      detailColor: '#8e8e93ff',
    }),
    row('Respring', { cell: 'PSButtonCell', labelColor: '#007affff' }),
    row('Delete', { cell: 'PSButtonCell', labelColor: '#ff3b30ff', labelAlignment: 'center' }),
    row('Info', { accessory: 'detailDisclosureButton' }), row('Red', { accessory: 'checkmark' }),
  ]),
]);
const editor = screen(['Settings', 'Zuno', 'Favourites'], [
  section('Enabled', [row('Maps', { canMove: true, image, style: 'subtitle', detail: 'com.example.maps', height: 60 })]),
  section('Disabled', [row('None')]),
], { page: { style: 'plain', editing: true } });
const swipeActions = [{ id: 'd', title: 'Delete', color: '#ff0000ff' }, { id: 's', title: 'Share', color: '#007affff' }];
const add = { id: 'b', title: null, systemItem: 'add', side: 'right', enabled: true };
const presets = screen(['Settings', 'Presets'], [section(null, [row('Dark', { height: 60, swipeActions })])], {
  page: { style: 'plain', buttons: [add] },
});
const action = (title, style) => ({ id: title, title, style, enabled: true, preferred: false });
const alert = {
  title: 'New Preset', message: 'Enter a name', style: 'alert',
  fields: [{ id: 'f', placeholder: 'Name', value: 'x', clearButton: true }],
  actions: [action('Save', 'default'), action('Cancel', 'cancel')],
};
const choices = {
  title: 'Theme', message: 'Choose', style: 'actionSheet', fields: [],
  actions: [action('Delete', 'destructive'), action('Copy', 'default'), action('Cancel', 'cancel')],
};
const photos = { kind: 'photos', title: null, items: [{ id: 'p', title: 'IMG_1.PNG', path: '/p', image }] };
const documents = { kind: 'documents', title: null, items: [{ id: 'd', title: 'a.plist', path: '/d', image: null }] };

const device = {
  notifications: [{ name: 'a.b', sequence: 1 }], resprings: 1, openedURLs: ['https://example.org'], pasteboard: 'abc',
  log: ['one', 'two'],
  files: [
    { path: '/a/b.plist', content: { A: 1, B: ['x'], C: 'text', D: { data: 'AAAA' } }, error: null },
    { path: '/a/c.plist', content: null, error: 'Broken.' },
  ],
};
const pages = {
  'a root page': screen(['Settings'], [section(null, [link('Zuno', { image }), link('Other', { image })])]),
  'a page of settings': settings,
  'an editor': editor,
  'rows with swipe actions': presets,
  'an alert': { ...presets, alert },
  'an action sheet': { ...presets, alert: choices },
  photos: { ...settings, sheet: photos },
  documents: { ...settings, sheet: documents },
  'an empty page': screen(['Settings', 'Empty'], []),
};

for (const colorScheme of ['light', 'dark']) {
  for (const [name, shown] of Object.entries(pages)) {
    test(`axe finds nothing on ${name}, ${colorScheme}`, async (t) => {
      const { fake, url } = await startFake(t, shown);
      fake.device = device;
      const page = await openPage(t, url, { colorScheme });
      await page.locator('.page').waitFor();
      await page.getByRole('log').waitFor();
      await assertAccessible(page);
    });
  }

  test(`axe finds nothing while swipe actions are open, ${colorScheme}`, async (t) => {
    const { url } = await startFake(t, presets);
    const page = await openPage(t, url, { colorScheme });
    await page.getByRole('button', { name: 'Actions for Dark' }).press('Enter');
    await page.getByRole('button', { name: 'Delete' }).waitFor();
    await assertAccessible(page);
  });
}

test('axe finds nothing in a narrow window', async (t) => {
  const { fake, url } = await startFake(t, settings);
  fake.device = device;
  const page = await openPage(t, url, { viewport: { width: 390, height: 800 } });
  await page.getByRole('log').waitFor();
  await assertAccessible(page);
});
