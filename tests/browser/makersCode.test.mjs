import assert from 'node:assert/strict';
import { execFile } from 'node:child_process';
import { cp, mkdir, mkdtemp, readdir, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { promisify } from 'node:util';
import { build } from './support/build.mjs';
import { defer } from './support/cleanup.mjs';
import { Device } from './support/device.mjs';
import { propertyListText } from './support/propertyList.mjs';
import { startSimulator } from './support/simulator.mjs';

const root = fileURLToPath(new URL('../../', import.meta.url));
const run = promisify(execFile);

/** A widget as makers write it: in C or C++, with what only today's Objective-C has. */
const source = `
#import <Zuno/ZunoWidgetProtocol.h>
#import <objc/runtime.h>

@interface Mortal : NSObject
@property (nonatomic, copy) void (^ended)(void);
@end
@implementation Mortal
- (void)dealloc {
  _ended();
}
@end

@interface Tide : NSObject <ZunoWidgetProtocol>
@property (nonatomic, strong) UIView *contentView;
@property (nonatomic, weak) Mortal *mortal;
@property (nonatomic) BOOL isActivePage;
@end

@interface Tide () {
  NSMutableDictionary<NSString *, NSString *(^)(void)> *_answers;
}
@end

@implementation Tide {
  UILabel *_label;
}

- (instancetype)init {
  if ((self = [super init])) {
    _answers = [NSMutableDictionary dictionary];
    __weak Tide *weak = self;
    _answers[@"name"] = ^{
      return NSStringFromClass([weak class]);
    };
    __block int ends = 0;
    Mortal *mortal = [Mortal new];
    mortal.ended = ^{
      ends++;
    };
    self.mortal = mortal;
    NSString *raised = @"nothing";
    @try {
      (void)@[ @YES ][3];
    } @catch (NSException *exception) {
      raised = exception.name;
    }
    [self setupWithFrame:CGRectMake(0, 0, 100, 50)];
    objc_setAssociatedObject(self, @selector(init), @[ _label ], OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    mortal = nil;
    BOOL isThen = NO, isNow = NO;
    if (@available(iOS 15.0, *)) isThen = YES;
    if (!@available(iOS 17.0, *)) isNow = YES;
    unsigned int count = 0;
    objc_property_t *properties = class_copyPropertyList([Tide class], &count);
    NSLog(@"[Tide] available %d %d, %u properties, %s", isThen, isNow, count, property_getAttributes(properties[0]));
    free(properties);
    NSLog(@"[Tide] %@ %@ %d %@ %d %g", _answers[@"name"](), raised, ends, self.mortal, [objc_getAssociatedObject(self, @selector(init))[0] isKindOfClass:[UILabel class]], _label.frame.size.width);
  }
  return self;
}

- (void)dealloc {
  NSLog(@"[Tide] ended");
}

- (void)setupWithFrame:(CGRect)frame {
  self.contentView = [[UIView alloc] initWithFrame:frame];
  _label = [[UILabel alloc] initWithFrame:self.contentView.bounds];
  [self.contentView addSubview:_label];
}

- (void)setIsActivePage:(BOOL)active {
  _isActivePage = active;
}

@end
`;

// Objective-C++ imports headers.
const imports = {
  m: '@import UIKit;\n@import Foundation;',
  mm: '#import <UIKit/UIKit.h>\n#include <string>\nstatic const std::string kTide = "tide";',
};

for (const suffix of ['m', 'mm']) {
  test(`A widget in today's Objective-C, with ARC, runs beside ours: .${suffix}`, async (t) => {
    const { api, folder } = await startSimulator(t);
    const maker = await mkdtemp(join(tmpdir(), 'maker-'));
    defer(t, () => rm(maker, { recursive: true, force: true }));
    await mkdir(maker, { recursive: true });
    await writeFile(join(maker, `Tide.${suffix}`), imports[suffix] + source);
    await writeFile(join(maker, 'Makefile'), 'BUNDLE_NAME = Tide\nTide_CFLAGS = -fobjc-arc\n');
    await writeFile(join(maker, 'Info.plist'), propertyListText({
      CFBundleExecutable: 'Tide', CFBundleIdentifier: 'org.example.tide', CFBundleDisplayName: 'Tide', ZunoWidgetsVersion: 1,
      ZunoWidgetClass: 'Tide',
    }).replaceAll('><', '>\n<'));
    await run(join(root, 'script/widget'), [maker, '--device', folder], { env: { ...process.env, ZUNO_BUILD: build } });

    const device = new Device(api);
    await device.tapRow('Zuno');
    await device.tapRow('Widgets');
    const { log } = await api('GET', '/api/device');
    assert.ok(log.includes('[Tide] available 1 1, 3 properties, T@"UIView",&,N,V_contentView'), log.join('\n'));
    assert.ok(log.includes('[Tide] Tide NSRangeException 1 (null) 1 100'), log.join('\n'));
    assert.ok(log.includes('Loaded widget: org.example.tide') || log.some((line) => line.includes('org.example.tide')), log.join('\n'));
  });
}

test('The widget that the documents begin with is the sample, and is built, listed and shown', async (t) => {
  const sample = join(root, 'samples/widgets/Hello');
  const code = await readFile(join(sample, 'HelloWidget.m'), 'utf8');
  for (const document of ['widgets.md', 'simulator.md']) {
    const text = await readFile(join(root, 'docs', document), 'utf8');
    assert.equal(text.match(/```objc\n(.*?)```/s)[1], code, document);
  }
  const { api, folder } = await startSimulator(t);
  const copy = await mkdtemp(join(tmpdir(), 'maker-'));
  defer(t, () => rm(copy, { recursive: true, force: true }));
  await cp(sample, copy, { recursive: true });
  await writeFile(join(copy, 'control'), 'Package: org.example.hello\n');
  await run(join(root, 'script/widget'), [copy, '--device', folder], { env: { ...process.env, ZUNO_BUILD: build } });
  const device = new Device(api);
  await device.tapRow('Zuno');
  const { page } = await device.tapRow('Widgets');
  assert.ok(page.sections.some(({ rows }) => rows.some(({ label }) => label === 'Hello')));
  const widget = '/var/jb/Library/Zuno/Widgets/HelloWidget.bundle';
  assert.deepEqual((await readdir(join(folder, widget))).sort(), ['HelloWidget', 'Info.plist'], 'no source, nothing of the package tools');
  assert.equal((await api('POST', '/api/stage', { type: 'show', widget })).shown, widget);
  assert.match(JSON.stringify(await api('GET', '/api/stage/screen')), /"text":"Hello"/);
});
