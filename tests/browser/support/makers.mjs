/** Folders of makers, and the scripts that build them. */
import { execFile } from 'node:child_process';
import { mkdir, mkdtemp, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';
import { build } from './build.mjs';
import { defer } from './cleanup.mjs';
import { propertyListText } from './propertyList.mjs';

export const root = fileURLToPath(new URL('../../../', import.meta.url));
const run = promisify(execFile);

/** Runs script/NAME, "bundle" or "widget", on `source`. Resolves with what it prints, or rejects with it. */
export function runScript(name, source, device) {
  return run(join(root, 'script', name), [source, '--device', device], { env: { ...process.env, ZUNO_BUILD: build } });
}

/** A folder of its own for the test `t` with `files`, texts by their paths. */
export async function makerFolder(t, files) {
  const folder = await mkdtemp(join(tmpdir(), 'maker-'));
  defer(t, () => rm(folder, { recursive: true, force: true }));
  await layFiles(folder, files);
  return folder;
}

export async function layFiles(folder, files) {
  for (const [path, text] of Object.entries(files)) {
    await mkdir(dirname(join(folder, path)), { recursive: true });
    await writeFile(join(folder, path), text);
  }
}

/** The files of a settings bundle "Kite" as Theos lays it out, with one page, and `more` in their place or beside. */
export function settingsBundle(more = {}) {
  return {
    Makefile: [
      'include $(THEOS)/makefiles/common.mk', 'BUNDLE_NAME = Kite', 'Kite_FILES = KiteListController.m',
      'Kite_INSTALL_PATH = /Library/PreferenceBundles', 'Kite_CFLAGS = -fobjc-arc', 'include $(THEOS_MAKE_PATH)/bundle.mk', '',
    ].join('\n'),
    'Resources/Info.plist': propertyListText({
      CFBundleExecutable: 'Kite', CFBundleIdentifier: 'org.example.kite', NSPrincipalClass: 'KiteListController',
    }),
    'layout/Library/PreferenceLoader/Preferences/Kite.plist': propertyListText({
      entry: { bundle: 'Kite', cell: 'PSLinkCell', isController: true, label: 'Kite' },
    }),
    'KiteListController.m': kitePage('[PSSpecifier groupSpecifierWithHeader:@"Kite" footer:nil]'),
    ...more,
  };
}

/** The page of "Kite" with these specifiers; `body` stands in its implementation and `top` before it. */
export function kitePage(specifiers, { body = '', top = '' } = {}) {
  return `#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier.h>
${top}
@interface KiteListController : PSListController
@end
@implementation KiteListController
- (NSArray *)specifiers {
  if (!_specifiers) _specifiers = [@[ ${specifiers} ] mutableCopy];
  return _specifiers;
}
${body}
@end
`;
}
