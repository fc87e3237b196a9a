#import "lists/ZunoFavouritesPicker.h"

#import <NorvikAppList/NorvikAppList.h>

#import "core/PreferenceKeys.h"
#import "lists/IconTone.h"

namespace zuno {
namespace {

void showApp(id record, UITableViewCell *cell) {
  NorvikAppRecord *app = record;
  [[cell textLabel] setText:[app displayName]];
  [[cell detailTextLabel] setText:[[app bundleIdentifier] lastPathComponent]];
  [[cell imageView] setImage:[app icon]];
}

const ListKind kKind{
    .key = kFavouriteApplications,
    .needsFile = true,
    .enabledEmpty = @"No Favourites Are Enabled...",
    .disabledEmpty = @"No Favourites Are Disabled...",
    .show = showApp,
    .policy = {.loadLimit = EditorModel::kFull, .tapEvicts = true, .evictedIsDisabled = true},
};

}  // namespace

FavouritesModel::FavouritesModel() : EditorModel(kKind) {}

}  // namespace zuno

@implementation ZunoFavouritesPicker

@synthesize appList = _appList;

- (instancetype)initWithIdentifier:(NSString *)identifier {
  if (!(self = [super init])) return nil;

  [self setPrefsIdentifier:identifier];
  NorvikAppList *library = [[[NorvikAppList alloc] init] autorelease];
  [library getAppList:^(NSArray *apps) {
    [self setApps:[[apps copy] autorelease]];
  }];
  return self;
}

- (void)dealloc {
  [_prefsIdentifier release];
  [_appList release];
  [super dealloc];
}

- (void)setApps:(NSArray *)apps {
  [self setAppList:[[apps copy] autorelease]];
  [self loadLists];
}

#include "lists/ListEditorMethods.h"

- (NSArray *)defaultItems {
  return [[_appList copy] autorelease];
}

#pragma mark - Icon tone

- (BOOL)isImageDark:(UIImage *)image {
  @autoreleasepool {
    return zuno::isImageDark(image);
  }
}

- (UIImage *)invertImage:(UIImage *)image {
  UIImage *inverted = nil;
  @autoreleasepool {
    inverted = [zuno::invertedImage(image) retain];
  }
  return [inverted autorelease];
}

@end
