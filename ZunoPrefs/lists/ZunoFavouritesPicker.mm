#import "lists/ZunoFavouritesPicker.h"

#import <NorvikAppList/NorvikAppList.h>

#import "core/KRBPreferenceManager.h"
#import "core/PreferenceFile.h"
#import "lists/IconTone.h"
#import "lists/ListRecords.h"
#import "lists/MovingRules.h"
#import "lists/TwoSectionTable.h"

namespace {

NSString *const kFavourites = @"FavouriteApplications";
const zuno::MovingRules kRules({.tapEvicts = true, .evictedIsDisabled = true});

}  // namespace

@implementation ZunoFavouritesPicker

@synthesize menuItems = _menuItems;
@synthesize menuItemsDisabled = _menuItemsDisabled;
@synthesize prefsIdentifier = _prefsIdentifier;
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
  [_menuItems release];
  [_menuItemsDisabled release];
  [_prefsIdentifier release];
  [_appList release];
  [super dealloc];
}

- (void)setApps:(NSArray *)apps {
  [self setAppList:[[apps copy] autorelease]];
  [self loadLists];
}

// The superclass has nothing to prepare.
- (void)viewDidLoad {
  zuno::prepareForEditing([self tableView]);
}

#pragma mark - UITableViewDelegate

- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView
           editingStyleForRowAtIndexPath:(NSIndexPath *)indexPath {
  return UITableViewCellEditingStyleNone;
}

- (BOOL)tableView:(UITableView *)tableView shouldIndentWhileEditingRowAtIndexPath:(NSIndexPath *)indexPath {
  return NO;
}

#pragma mark - UITableViewDataSource

- (BOOL)tableView:(UITableView *)tableView canEditRowAtIndexPath:(NSIndexPath *)indexPath {
  return zuno::canEditRows([indexPath section], _menuItems, _menuItemsDisabled);
}

- (void)tableView:(UITableView *)tableView moveRowAtIndexPath:(NSIndexPath *)from toIndexPath:(NSIndexPath *)to {
  kRules.drag(from, to, _menuItems, _menuItemsDisabled);
  [[self tableView] reloadData];
  [self saveLists];
}

- (NSInteger)numberOfSectionsInTableView:(UITableView *)tableView {
  return 2;
}

- (NSString *)tableView:(UITableView *)tableView titleForHeaderInSection:(NSInteger)section {
  return zuno::sectionTitle(section);
}

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  if (!_menuItems) return 0;
  return zuno::rowCount(zuno::sectionList(section, _menuItems, _menuItemsDisabled));
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = zuno::listCell(tableView);
  NSArray *apps = zuno::sectionList([indexPath section], _menuItems, _menuItemsDisabled);
  if ([apps count] == 0) {
    zuno::showPlaceholder(cell, [indexPath section] == zuno::kEnabledSection ? @"No Favourites Are Enabled..."
                                                                             : @"No Favourites Are Disabled...");
    return cell;
  }
  NorvikAppRecord *app = [apps objectAtIndex:static_cast<NSUInteger>([indexPath row])];
  [[cell textLabel] setText:[app displayName]];
  [[cell detailTextLabel] setText:[[app bundleIdentifier] lastPathComponent]];
  [[cell imageView] setImage:[app icon]];
  zuno::styleIcon(cell);
  return cell;
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)indexPath {
  [tableView deselectRowAtIndexPath:indexPath animated:YES];
  if (!kRules.tap(indexPath, _menuItems, _menuItemsDisabled)) return;
  [[self tableView] reloadData];
  [self saveLists];
}

#pragma mark - Lists

- (void)loadLists {
  const auto file = zuno::PreferenceFile::ofDomain(_prefsIdentifier);
  id stored = file.exists() ? [KRBPreferenceManager getPrefForKey:kFavourites] : nil;
  NSArray *apps = [self defaultItems];
  [self setMenuItems:zuno::recordsNamed(stored, apps, zuno::MovingRules::kLimit)];
  [self setMenuItemsDisabled:zuno::recordsNotIn(_menuItems, apps)];
  [[self tableView] reloadData];
}

- (void)saveLists {
  zuno::PreferenceFile::ofDomain(_prefsIdentifier)
      .setValue(zuno::identifiersOf(_menuItems), kFavourites, zuno::Damaged::kLeaveAlone);
}

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
