import assert from 'node:assert/strict';
import { cp, readdir, readFile, rm, stat, writeFile } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { Device } from './support/device.mjs';
import { kitePage, layFiles, makerFolder, root, runScript, settingsBundle } from './support/makers.mjs';
import { readPropertyList } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open, rowOf } from './support/zuno.mjs';

const bundles = 'var/jb/Library/PreferenceBundles';
const entries = 'var/jb/Library/PreferenceLoader/Preferences';
const lantern = join(root, 'samples/bundles/Lantern');

/** What the script says on standard error as it refuses. */
async function refusal(source, folder, name = 'bundle') {
  const result = await runScript(name, source, folder).catch((error) => error);
  assert.equal(result.code, 1, 'it refuses');
  return result.stderr;
}

test('A stranger\'s settings bundle with ARC is built, opened and worked', async (t) => {
  const { api, folder, url } = await startSimulator(t);
  const { stdout, stderr } = await runScript('bundle', lantern, folder);
  assert.equal(stdout, `Installed ${join(folder, bundles, 'LanternPrefs.bundle')}\n`);
  assert.equal(stderr, '');
  assert.deepEqual((await readdir(join(folder, bundles, 'LanternPrefs.bundle'))).sort(), [
    'Info.plist', 'LanternPrefs', 'Root.plist', 'de.lproj', 'en.lproj', 'icon.png', 'icon@2x.png',
  ]);

  const page = await openPage(t, url);
  await page.reload();
  await open(page, 'Lantern');
  const main = page.getByRole('main');
  await main.getByText('A light that says it is charging').waitFor();
  await main.getByText('A light glows in the status bar while the device is charging.').waitFor();
  assert.match(await rowOf(page, 'Speed').innerText(), /Speed\s+Steady/);
  await main.getByRole('switch', { name: 'Enabled' }).click();
  const file = join(folder, 'var/mobile/Library/Preferences/org.example.lantern.plist');
  await eventually(async () => assert.deepEqual(await readPropertyList(file), { enabled: false }));
  await page.getByText('org.example.lantern/changed').first().waitFor();

  await open(page, 'Colours');
  await rowOf(page, 'Jade').getByRole('button').click();
  const colour = join(folder, 'var/mobile/Library/Preferences/org.example.lantern.colour.plist');
  await eventually(async () => assert.deepEqual(await readPropertyList(colour), { colour: 'JADE' }));
  const { page: shown } = await api('GET', '/api/screen');
  assert.deepEqual(shown.sections[0].rows.map(({ label, accessory }) => [label, accessory]), [
    ['Amber', 'none'], ['Jade', 'checkmark'], ['Rose', 'none'],
  ]);
  await open(page, 'Back to Lantern', 'Speed');
  await rowOf(page, 'Quick').getByRole('button').click();
  await eventually(async () => assert.deepEqual(await readPropertyList(file), { enabled: false, speed: 2 }));
  await open(page, 'Back to Lantern');

  await main.getByRole('button', { name: 'Reset Settings' }).click();
  await page.getByRole('alertdialog').getByRole('button', { name: 'Reset' }).click();
  await eventually(async () => assert.equal(await main.getByRole('switch', { name: 'Enabled' }).isChecked(), true));
  await assert.rejects(stat(file));
});

test('A project\'s layout and the rules of its Makefile install files, and take away what they no longer have', async (t) => {
  const { folder } = await startSimulator(t);
  const stage = 'internal-stage::\n\t$(ECHO_NOTHING)mkdir -p $(THEOS_STAGING_DIR)/Library/Kite$(ECHO_END)\n'
    + '\t$(ECHO_NOTHING)echo staged > $(THEOS_STAGING_DIR)/Library/Kite/staged.txt$(ECHO_END)\n';
  const files = settingsBundle({
    'KiteListController.m': kitePage('', { body: '- (id)name {\n  return [[[NSString alloc] init] autorelease];\n}' }),
  });
  files.Makefile = files.Makefile.replace('-fobjc-arc', '-fobjc-arc -fno-objc-arc');  // The last one counts.
  const source = await makerFolder(t, {
    ...files, Makefile: files.Makefile + stage, 'Resources/Info.plist~': 'of an editor', 'layout/DEBIAN/postinst': '#!/bin/sh', 'layout/Library/Kite/own.txt': 'own',
    'layout/var/jb/usr/share/kite.txt': 'kite', 'layout/Library/Old/gone.txt': 'gone',
  });
  await runScript('bundle', source, folder);
  assert.deepEqual((await readdir(join(folder, bundles, 'Kite.bundle'))).sort(), ['Info.plist', 'Kite']);
  const kite = join(folder, 'var/jb/Library/Kite');
  assert.equal(await readFile(join(kite, 'staged.txt'), 'utf8'), 'staged\n');
  assert.equal(await readFile(join(folder, 'var/jb/usr/share/kite.txt'), 'utf8'), 'kite');
  assert.deepEqual((await readdir(join(folder, 'var/jb'))).sort(), ['Library', 'usr', 'var']);

  await rm(join(source, 'layout/Library/Old'), { recursive: true });
  await writeFile(join(kite, 'own.txt'), 'changed on the device');
  await runScript('bundle', source, folder);
  await assert.rejects(stat(join(folder, 'var/jb/Library/Old')));
  assert.equal(await readFile(join(kite, 'own.txt'), 'utf8'), 'changed on the device', 'the source has not changed');
  await writeFile(join(source, 'layout/Library/Kite/own.txt'), 'own anew');
  await runScript('bundle', source, folder);
  assert.equal(await readFile(join(kite, 'own.txt'), 'utf8'), 'own anew');
});

test('A tweak\'s settings bundle is found among its subprojects, and sources have options of their own', async (t) => {
  const { api, folder } = await startSimulator(t);
  const files = settingsBundle({
    'KiteListController.m': kitePage('[PSSpecifier groupSpecifierWithHeader:@(KITE_NAME) footer:[KiteText text]]', {
      top: '#import "KiteText.h"',
    }),
    'headers/KiteText.h': '#import <Foundation/Foundation.h>\n@interface KiteText : NSObject\n+ (NSString *)text;\n@end\n',
    'text/KiteText.m': '#import "KiteText.h"\n@implementation KiteText\n+ (NSString *)text {\n'
      + '  return [[[NSString alloc] initWithUTF8String:"Without ARC"] autorelease];\n}\n@end\n',
    'text/Other.mm': '#include <string>\n#import <Foundation/Foundation.h>\nNSString *kiteOther(const std::string &text) '
      + '{ return @(text.c_str()); }\n',
  });
  files.Makefile = files.Makefile.replace('Kite_FILES = KiteListController.m', 'Kite_FILES = $(wildcard *.m text/*)')
    .replace('-fobjc-arc', '-fobjc-arc -Iheaders -DKITE_NAME=\\"Kites\\ fly\\"\ntext/KiteText.m_CFLAGS = -fno-objc-arc');
  const tweak = Object.fromEntries(Object.entries(files).map(([path, text]) => [`prefs/${path}`, text]));
  tweak.Makefile = 'include $(THEOS)/makefiles/common.mk\nTWEAK_NAME = Kite\nKite_FILES = Tweak.x\n'
    + 'include $(THEOS_MAKE_PATH)/tweak.mk\nSUBPROJECTS += prefs\ninclude $(THEOS_MAKE_PATH)/aggregate.mk\n';
  tweak['layout/Library/PreferenceLoader/Preferences/Kite.plist'] = tweak['prefs/layout/Library/PreferenceLoader/Preferences/Kite.plist'];
  delete tweak['prefs/layout/Library/PreferenceLoader/Preferences/Kite.plist'];
  await runScript('bundle', await makerFolder(t, tweak), folder);
  await new Device(api).home();
  await api('POST', '/api/events', { type: 'tap', id: 'none' });
  const text = await readFile(join(folder, bundles, 'Kite.bundle/Kite'), 'latin1');
  assert.ok(text.includes('Kites fly') && text.includes('Without ARC'));
});

test('Builds of one project that are begun together come one after another, and each installs', async (t) => {
  const { folder: device } = await startSimulator(t);
  const files = settingsBundle();
  // It fails where another one is between its first and its last command.
  files.Makefile += 'internal-stage::\n\t@mkdir busy && sleep 0.3 && rmdir busy\n';
  const source = await makerFolder(t, files);
  const all = await Promise.all([1, 2, 3].map(() => runScript('bundle', source, device)));
  for (const { stdout } of all) assert.match(stdout, /^Installed .*Kite\.bundle\n$/);
});

test('What the simulator does not carry is told in one sentence, with classes, methods and headers', async (t) => {
  const { folder } = await startSimulator(t);
  const source = await makerFolder(t, settingsBundle({
    'KiteListController.m': kitePage('', {
      top: '#import <HomeKit/HomeKit.h>\n#import <KiteKit/KKString.h>\n@class UIKiteView;\n'
        + 'extern void UIKiteFly(void);',
      body: `- (void)fly {
  UIPageControl *dots = nil;
  [self.view setKeyboardLayoutGuide:dots];
  self.view.focusGroupIdentifier = @"kite";
  [UIPointerInteraction new];
  UIGraphicsBeginPDFPage();
}`,
    }),
  }));
  const said = await refusal(source, folder);
  const sentence = said.trim().split('\n').at(-1);
  assert.match(sentence, /^script\/bundle: Kite needs what the simulator does not carry: /);
  for (const name of [
    '<HomeKit/HomeKit.h>', '<KiteKit/KKString.h>', 'UIPageControl', 'UIPointerInteraction',
    '-[UIView setKeyboardLayoutGuide:]', 'focusGroupIdentifier of UIView', 'UIGraphicsBeginPDFPage',
  ]) assert.ok(sentence.includes(name), `${name} in ${sentence}`);
  assert.match(sentence, /\bheaders <HomeKit\/HomeKit\.h>, <KiteKit\/KKString\.h>;/);
  assert.match(said, /KiteListController\.m:3:9: fatal error: 'HomeKit\/HomeKit\.h' file not found/);
  await assert.rejects(stat(join(folder, bundles, 'Kite.bundle')));

  // What only the linker misses: classes and functions that the maker has declared.
  await writeFile(join(source, 'KiteListController.m'), kitePage('', {
    top: '@interface SBKite : NSObject\n+ (void)land;\n@end\nextern void UIKiteFly(void);',
    body: '- (void)fly {\n  UIKiteFly();\n  [SBKite land];\n}',
  }));
  const linked = (await refusal(source, folder)).trim().split('\n').at(-1);
  assert.match(linked, /not carry: .*\bclass SBKite\b/);
  assert.match(linked, /\bfunction UIKiteFly\b/);
});

test('A slip of the maker\'s own is told as the compiler does, without a word on what is carried', async (t) => {
  const { folder } = await startSimulator(t);
  const source = await makerFolder(t, settingsBundle({
    'KiteListController.m': kitePage('', { body: '- (void)fly {\n  kiteHeight = 3;\n  kiteFly();\n}' }),
  }));
  const said = await refusal(source, folder);
  assert.match(said, /KiteListController\.m:12:3: error: use of undeclared identifier 'kiteHeight'/);
  assert.equal(said.trim().split('\n').at(-1), 'script/bundle: Kite was not built.');

  await writeFile(join(source, 'KiteListController.m'), kitePage('', { top: '#import "KiteString.h"' }));
  const missing = await refusal(source, folder);
  assert.match(missing, /fatal error: 'KiteString\.h' file not found/);
  assert.equal(missing.trim().split('\n').at(-1), 'script/bundle: Kite was not built.', 'a header of the maker\'s own');
});

test('What a bundle names and does without is told, and so is that no entry opens it', async (t) => {
  const { folder } = await startSimulator(t);
  const files = settingsBundle();
  files.Makefile = `${files.Makefile}Kite_FRAMEWORKS = UIKit AVFoundation\nKite_LIBRARIES = sqlite3\n`;
  delete files['layout/Library/PreferenceLoader/Preferences/Kite.plist'];
  const { stderr } = await runScript('bundle', await makerFolder(t, files), folder);
  assert.deepEqual(stderr.trim().split('\n'), [
    'Kite is built without what the simulator does not carry: the framework AVFoundation, the library sqlite3.',
    'No entry in /var/jb/Library/PreferenceLoader/Preferences opens Kite in /var/jb/Library/PreferenceBundles/Kite.bundle.',
  ]);
});

test('A folder that is no such bundle is refused in a sentence', async (t) => {
  const { folder } = await startSimulator(t);
  const files = settingsBundle();
  const without = (name) => Object.fromEntries(Object.entries(files).filter(([path]) => path !== name));
  const cases = [
    [{ 'notes.txt': 'nothing' }, /has neither a Makefile that builds a bundle nor the Info\.plist of a widget\./],
    [without('Resources/Info.plist'), /has no Info\.plist\./],
    [{ ...files, Makefile: `${files.Makefile}Kite_FILES += Tweak.x\n` }, /is built of Tweak\.x, and the simulator builds Objective-C, C and C\+\+ alone\./],
    [without('KiteListController.m'), /KiteListController\.m, of which Kite is built, is not there\./],
    [{ ...files, Makefile: 'Kite_FILES = (\nendif\n' }, /Makefile cannot be read:\n.*Makefile:\d+/s],
    [{ ...files, 'Resources/Info.plist': files['Resources/Info.plist'].replace('>Kite<', '>Bite<') }, /names the executable Bite, and the Makefile builds Kite\./],
  ];
  for (const [each, told] of cases) assert.match(await refusal(await makerFolder(t, each), folder), told);
  assert.match(await refusal(join(root, 'samples/widgets/Clock'), folder), /is a widget, which script\/widget builds\./);
  assert.match(await refusal(lantern, folder, 'widget'), /is a settings bundle, which script\/bundle builds\./);
  assert.deepEqual((await readdir(join(folder, entries))).filter((name) => name.startsWith('Kite')), []);
});

test('The sample is what its makers would have: it needs nothing of this tree', async (t) => {
  const { folder } = await startSimulator(t);
  const source = await makerFolder(t, {});
  await cp(lantern, source, { recursive: true });
  await layFiles(source, { 'packages/old.deb': 'a package', '.theos/obj/x.o': 'an object' });
  await runScript('bundle', source, folder);
  const information = await readPropertyList(join(folder, entries, 'LanternPrefs.plist'));
  assert.equal(information.entry.bundle, 'LanternPrefs');
});
