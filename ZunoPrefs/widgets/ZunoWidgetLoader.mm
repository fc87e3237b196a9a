#import "widgets/ZunoWidgetLoader.h"

#import <dispatch/dispatch.h>
#import <objcxx/Retained.h>

#import "core/DevicePaths.h"
#import "widgets/WidgetInfo.h"
#import "widgets/ZunoWidgetHolder.h"
#import "widgets/ZunoWidgetProtocol.h"

namespace {

using zuno::contractVersion;
using zuno::infoText;

/// The widget's principal class; Nil when there is none or it does not adopt the contract. The protocol is looked up by
/// name: only a protocol that some loaded class adopts is sure to be registered with the runtime.
Class widgetClass(NSString *name) {
  Class found = name ? NSClassFromString(name) : Nil;
  Protocol *contract = NSProtocolFromString(@"ZunoWidgetProtocol");
  return contract && [found conformsToProtocol:contract] ? found : Nil;
}

/// Checks the bundle at `path`, loads its code and makes its widget. Empty, with a line in the log, when it fails.
objcxx::Retained<ZunoWidgetHolder> loadWidget(NSString *path) {
  NSBundle *bundle = [NSBundle bundleWithPath:path];
  if (contractVersion(bundle) <= 0) {
    NSLog(@"[ZunoWidgetLoader] Widget out of date! %@", path);
    return nullptr;
  }
  NSString *displayName = infoText(bundle, @"CFBundleDisplayName");
  NSString *className = infoText(bundle, @"ZunoWidgetClass");
  NSString *identifier = [bundle bundleIdentifier];

  [bundle load];
  NSLog(@"[ZunoWidgetLoader]: %@", bundle);
  if (![bundle isLoaded]) {
    NSLog(@"[ZunoWidgetLoader] Failed to load bundle: %@", path);
    return nullptr;
  }
  Class principal = widgetClass(className);
  if (!principal) {
    NSLog(@"[ZunoWidgetLoader] Widget class does not conform to protocol: %@", path);
    return nullptr;
  }
  NSString *preferences = [bundle pathForResource:@"Preferences" ofType:@"plist"];
  const auto widget = objcxx::adopt((NSObject<ZunoWidgetProtocol> *)[[principal alloc] init]);

  auto holder = objcxx::adopt([[ZunoWidgetHolder alloc] init]);
  [holder.get() setBundleIdentifier:identifier];
  [holder.get() setDisplayName:displayName];
  [holder.get() setClassName:className];
  [holder.get() setWidget:widget.get()];
  [holder.get() setBundle:bundle];
  if (preferences) {
    [holder.get() setHasPreferences:YES];
    [holder.get() setPreferencesFile:preferences];
  }
  NSLog(@"[ZunoWidgetLoader]: Loaded widget: %@", identifier);
  return holder;
}

/// The names in the widgets folder, which is made if it is missing; nil when it cannot be listed.
NSArray *entriesOfWidgetsFolder(NSString *folder) {
  NSFileManager *files = [NSFileManager defaultManager];
  BOOL isFolder = NO;
  if (![files fileExistsAtPath:folder isDirectory:&isFolder] || !isFolder) {
    [files createDirectoryAtPath:folder withIntermediateDirectories:YES attributes:nil error:nullptr];
  }
  return [files contentsOfDirectoryAtPath:folder error:nullptr];
}

}  // namespace

@implementation ZunoWidgetLoader

@synthesize loadedWidgets = _loadedWidgets;

+ (instancetype)sharedInstance {
  static ZunoWidgetLoader *shared = nil;
  static dispatch_once_t once = 0;
  dispatch_once(&once, ^{
    shared = [[ZunoWidgetLoader alloc] init];
    [shared setLoadedWidgets:[NSArray array]];
  });
  return shared;
}

- (void)dealloc {
  [_loadedWidgets release];
  [super dealloc];
}

- (void)loadWidgets {
  [self setLoadedWidgets:[NSArray array]];
  NSString *folder = zuno::widgetsFolder();
  NSArray *entries = entriesOfWidgetsFolder(folder);
  NSLog(@"[ZunoWidgetLoader] Found bundles: %@", entries);

  NSMutableArray *loaded = [NSMutableArray array];
  for (NSString *entry in entries) {
    NSString *path = [folder stringByAppendingPathComponent:entry];
    NSLog(@"[ZunoWidgetLoader] Loading: %@", path);
    if (const auto holder = loadWidget(path)) [loaded addObject:holder.get()];
  }
  [self setLoadedWidgets:loaded];
  NSLog(@"[ZunoWidgetLoader] Loaded %d widgets!", static_cast<int>([loaded count]));
}

- (ZunoWidgetHolder *)widgetWithIdentifier:(NSString *)identifier {
  for (ZunoWidgetHolder *holder in [[ZunoWidgetLoader sharedInstance] loadedWidgets]) {
    if ([[holder bundleIdentifier] isEqualToString:identifier]) return holder;
  }
  return nil;
}

- (void)setAllWidgetsInactive {
  for (ZunoWidgetHolder *holder in [[ZunoWidgetLoader sharedInstance] loadedWidgets]) {
    id<ZunoWidgetProtocol> widget = [holder widget];
    if (![widget contentView]) continue;
    if ([widget respondsToSelector:@selector(isActivePage)] && [widget isActivePage]) [widget viewDidDisappear];
    if ([widget respondsToSelector:@selector(setIsActivePage:)]) [widget setIsActivePage:NO];
  }
}

@end
