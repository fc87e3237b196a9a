#import "lists/ZunoWidgetsPicker.h"

#import "core/KRBPreferenceManager.h"
#import "core/PreferenceFile.h"
#import "lists/IconTone.h"
#import "lists/ListRecords.h"
#import "lists/MovingRules.h"
#import "lists/TwoSectionTable.h"
#import "widgets/WidgetNames.h"
#import "widgets/ZunoWidgetHolder.h"
#import "widgets/ZunoWidgetLoader.h"

namespace {

NSString *const kWidgets = @"EnabledWidgets";
const zuno::MovingRules kRules({.tapEvicts = false, .evictedIsDisabled = false});

}  // namespace

@implementation ZunoWidgetsPicker

@synthesize menuItems = _menuItems;
@synthesize menuItemsDisabled = _menuItemsDisabled;
@synthesize prefsIdentifier = _prefsIdentifier;
@synthesize widgetsList = _widgetsList;

- (instancetype)initWithIdentifier:(NSString *)identifier {
  if (!(self = [super init])) return nil;

  [self setPrefsIdentifier:identifier];
  [self loadWidgets];
  return self;
}

- (void)dealloc {
  [_menuItems release];
  [_menuItemsDisabled release];
  [_prefsIdentifier release];
  [_widgetsList release];
  [super dealloc];
}

- (void)loadWidgets {
  ZunoWidgetLoader *loader = [ZunoWidgetLoader sharedInstance];
  [loader loadWidgets];
  [self setWidgetsList:[loader loadedWidgets]];
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
  NSArray *pages = zuno::sectionList([indexPath section], _menuItems, _menuItemsDisabled);
  if ([pages count] == 0) {
    zuno::showPlaceholder(cell, [indexPath section] == zuno::kEnabledSection ? @"No Widgets Are Enabled..."
                                                                             : @"No Widgets Are Disabled...");
    return cell;
  }
  ZunoWidgetHolder *page = [pages objectAtIndex:static_cast<NSUInteger>([indexPath row])];
  [[cell textLabel] setText:[page displayName]];
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
  NSArray *pages = [self defaultItems];
  [self setMenuItems:zuno::recordsNamed([KRBPreferenceManager getPrefForKey:kWidgets], pages)];
  [self setMenuItemsDisabled:zuno::recordsNotIn(_menuItems, pages)];
  [[self tableView] reloadData];
}

- (void)saveLists {
  zuno::PreferenceFile::ofDomain(_prefsIdentifier)
      .setValue(zuno::identifiersOf(_menuItems), kWidgets, zuno::Damaged::kLeaveAlone);
}

- (NSArray *)defaultItems {
  return [zuno::builtInPages() arrayByAddingObjectsFromArray:_widgetsList ?: @[]];
}

#pragma mark - Icon tone

- (BOOL)isImageDark:(UIImage *)image {
  return zuno::isImageDark(image);
}

- (UIImage *)invertImage:(UIImage *)image {
  return zuno::invertedImage(image);
}

@end
