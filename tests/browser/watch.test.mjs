import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { cp, mkdtemp, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { createInterface } from 'node:readline';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { build } from './support/build.mjs';
import { defer } from './support/cleanup.mjs';
import { kitePage, makerFolder, root, settingsBundle } from './support/makers.mjs';
import { open } from './support/zuno.mjs';

const group = (header) => `[PSSpecifier groupSpecifierWithHeader:@"${header}" footer:nil]`;
const link = (name) => `[PSSpecifier preferenceSpecifierNamed:@"${name}" target:self set:NULL get:NULL `
  + 'detail:KiteLinesController.class cell:PSLinkCell edit:nil]';

/** A second page of `count` rows that are called `word` and their number. */
const lines = (word, count = 60) => `#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier.h>
@interface KiteLinesController : PSListController
@end
@implementation KiteLinesController
- (NSArray *)specifiers {
  if (!_specifiers) {
    _specifiers = [NSMutableArray array];
    for (int i = 0; i < ${count}; ++i) {
      NSString *name = [NSString stringWithFormat:@"${word} %d", i];
      [_specifiers addObject:[PSSpecifier preferenceSpecifierNamed:name target:self set:NULL get:NULL detail:nil
                                                              cell:PSStaticTextCell edit:nil]];
    }
  }
  return _specifiers;
}
@end
`;

const shown = /shown after [\d.]+ s/;

/** The simulator under the watch of `folders`, on a device folder of its own; `url`, `told` (what it says). */
async function startWatch(t, folders) {
  const device = await mkdtemp(join(tmpdir(), 'device-'));
  defer(t, () => rm(device, { recursive: true, force: true }));
  const words = [join(build, 'simulator/simulator'), '--device', device, '--port', '0', '--', ...folders];
  const child = spawn(process.execPath, [join(root, 'script/lib/makers/watch.mjs'), build, ...words], {
    stdio: ['ignore', 'pipe', 'pipe'],
  });
  const ended = new Promise((resolve) => child.once('close', resolve));
  defer(t, async () => {
    child.kill('SIGTERM');
    assert.equal(await ended, 0, 'it ends with the simulator');
  });
  let said = '';
  const heard = new Set();
  child.stderr.on('data', (text) => {
    said += text;
    for (const each of heard) each();
  });
  /** Resolves when it has said `pattern` since the last time that this was asked. */
  const told = (pattern) => new Promise((resolve) => {
    const look = () => {
      const match = said.match(pattern);
      if (!match) return;
      said = said.slice(match.index + match[0].length);
      heard.delete(look);
      resolve(match[0]);
    };
    heard.add(look);
    look();
  });
  const [address] = await new Promise((resolve) => {
    createInterface({ input: child.stdout }).once('line', (...line) => resolve(line));
  });
  return { url: address, told, device };
}

test('What is saved is shown on the same page at the same place, and what does not compile beside the phone', async (t) => {
  const files = settingsBundle({
    'KiteListController.m': kitePage(`${group('First')}, ${link('Lines')}`, { top: '@class KiteLinesController;\n'
      + '@interface KiteLinesController : PSListController\n@end' }),
    'KiteLinesController.m': lines('Line'),
    'Resources/Texts.plist': '<plist version="1.0"><dict><key>title</key><string>Kites</string></dict></plist>',
  });
  files.Makefile = files.Makefile.replace('Kite_FILES = KiteListController.m', 'Kite_FILES = $(wildcard *.m)');
  const source = await makerFolder(t, files);
  const { url, told, device } = await startWatch(t, [source]);
  await told(shown);

  const page = await openPage(t, url);
  const main = page.getByRole('main');
  await open(page, 'Kite', 'Lines');
  const scroller = page.locator('.page:not([inert]) .scroller');
  await scroller.evaluate((element) => { element.scrollTop = 900; });
  await page.evaluate(() => { window.isSamePage = true; });

  // A source.
  const begin = performance.now();
  await writeFile(join(source, 'KiteLinesController.m'), lines('Row'));
  // However long a busy machine takes to compile it.
  await told(shown);
  await main.getByText('Row 25', { exact: true }).waitFor();
  t.diagnostic(`a saved source was seen after ${Math.round(performance.now() - begin)} ms`);
  assert.equal(await scroller.evaluate((element) => element.scrollTop), 900);
  assert.equal(await page.evaluate(() => window.isSamePage), true, 'the page in the browser was not loaded anew');

  // A compiler error: what was built before runs on.
  await writeFile(join(source, 'KiteLinesController.m'), lines('Broken').replace('return _specifiers;', 'return kite;'));
  await told(/Kite was not built\./);
  const alert = page.getByRole('alert').filter({ hasText: 'was not built' });
  await alert.getByText('KiteLinesController.m:15:10').waitFor();
  await alert.getByText('use of undeclared identifier \'kite\'').waitFor();
  await main.getByText('Row 25', { exact: true }).waitFor();
  assert.equal(await scroller.evaluate((element) => element.scrollTop), 900);

  // What the simulator does not carry is told in the same place.
  await writeFile(join(source, 'KiteLinesController.m'), `#import <HomeKit/HomeKit.h>\n${lines('Broken')}`);
  await told(/Kite needs/);
  await alert.getByText('Kite needs what the simulator does not carry: header <HomeKit/HomeKit.h>.').waitFor();

  // Mended, and a property list.
  await writeFile(join(source, 'KiteLinesController.m'), lines('Mended'));
  await told(shown);
  await main.getByText('Mended 25', { exact: true }).waitFor();
  await alert.waitFor({ state: 'detached' });
  await writeFile(join(source, 'Resources/Texts.plist'), files['Resources/Texts.plist'].replace('Kites', 'Gulls'));
  await told(shown);
  const installed = join(device, 'var/jb/Library/PreferenceBundles/Kite.bundle/Texts.plist');
  assert.match(await readFile(installed, 'utf8'), /Gulls/);

  // The page in front is not there any more.
  await writeFile(join(source, 'KiteListController.m'), kitePage(group('Second')));
  await told(shown);
  await main.getByText('Second').waitFor();
});

test('A widget on the stage is shown anew at the same step, wherever its folder lies and whatever came between', async (t) => {
  // Folders of this name are left out in a project, not above it.
  const source = join(await makerFolder(t, {}), 'packages (1)/packages/Hello');
  await cp(join(root, 'samples/widgets/Hello'), source, { recursive: true });
  const code = await readFile(join(source, 'HelloWidget.m'), 'utf8');
  const save = (text) => writeFile(join(source, 'HelloWidget.m'), text);
  const { url, told } = await startWatch(t, [source]);
  await told(shown);

  const [origin, token] = url.split('/#t=');
  const call = async (method, path, body) => {
    const headers = { 'X-Sim-Token': token, 'Content-Type': 'application/json' };
    return (await fetch(origin + path, { method, headers, body: body && JSON.stringify(body) })).json();
  };
  const stage = async () => (await call('GET', '/api/device')).stage;
  await call('POST', '/api/stage', { type: 'show', widget: '/var/jb/Library/Zuno/Widgets/HelloWidget.bundle' });
  const { nextStep } = await call('POST', '/api/stage', { type: 'step' });
  assert.ok(nextStep > 0);
  const seen = async (text) => {
    assert.equal((await stage()).nextStep, nextStep);
    assert.ok(JSON.stringify(await call('GET', '/api/stage/screen')).includes(`"${text}"`));
  };

  await save(code.replace('@"Hello"', '@"Changed"'));
  await told(shown);
  await eventually(() => seen('Changed'));
  // Code that raises, and a class that the loader does not find.
  await save(code.replace('self.contentView.text', '[NSException raise:@"Raised" format:@"on purpose"]; self.contentView.text'));
  await told(shown);
  await eventually(async () => assert.equal((await stage()).fault?.kind, 'raised'));
  await save(code.replaceAll('HelloWidget', 'OtherWidget'));
  await told(shown);
  await eventually(async () => {
    assert.equal((await stage()).widgets.find(({ path }) => path.includes('Hello')).state, 'refused');
  });
  await save(code.replace('@"Hello"', '@"Mended"'));
  await told(shown);
  await eventually(() => seen('Mended'));
});

test('What a Makefile writes into its own folder is no change when it was there before', async (t) => {
  const files = settingsBundle();
  files.Makefile += 'before-stage::\n\t@echo made > Resources/made.txt\n';
  const source = await makerFolder(t, files);
  const { told, device } = await startWatch(t, [source]);
  await told(shown);
  await writeFile(join(source, 'Resources/note.txt'), 'saved');
  const installed = join(device, 'var/jb/Library/PreferenceBundles/Kite.bundle/note.txt');
  await eventually(async () => assert.equal(await readFile(installed, 'utf8'), 'saved'));
  let count = 0;
  const counting = async () => {
    for (;;) {
      await told(shown);
      count += 1;
    }
  };
  counting();
  await new Promise((resolve) => setTimeout(resolve, 4000));
  assert.ok(count <= 3, `it was built ${count} times more`);
});
