#import "widgets/WidgetNames.h"

#import "core/DevicePaths.h"
#import "widgets/WidgetInfo.h"
#import "widgets/ZunoWidgetHolder.h"

namespace zuno {
namespace {

ZunoWidgetHolder *builtInPage(NSString *identifier, NSString *name) {
  ZunoWidgetHolder *page = [[[ZunoWidgetHolder alloc] init] autorelease];
  [page setBundleIdentifier:identifier];
  [page setDisplayName:name];
  return page;
}

}  // namespace

NSString *const kMusicPage = @"KRBMusicView";
NSString *const kFavouritesPage = @"KRBFavouritesView";

NSArray *builtInPages() {
  return @[ builtInPage(kMusicPage, @"Music View"), builtInPage(kFavouritesPage, @"Favourites View") ];
}

NSDictionary *namesOfWidgets() {
  NSMutableDictionary *names = [NSMutableDictionary dictionary];
  for (ZunoWidgetHolder *page in builtInPages()) [names setObject:[page displayName] forKey:[page bundleIdentifier]];

  NSString *folder = widgetsFolder();
  for (NSString *entry in [[NSFileManager defaultManager] contentsOfDirectoryAtPath:folder error:nullptr]) {
    NSBundle *bundle = [NSBundle bundleWithPath:[folder stringByAppendingPathComponent:entry]];
    NSString *identifier = contractVersion(bundle) > 0 ? infoText(bundle, @"CFBundleIdentifier") : nil;
    if (!identifier || [names objectForKey:identifier]) continue;
    NSString *name = infoText(bundle, @"CFBundleDisplayName");
    [names setObject:[name length] > 0 ? name : identifier forKey:identifier];
  }
  return names;
}

}  // namespace zuno
