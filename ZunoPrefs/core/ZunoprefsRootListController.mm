#import "core/ZunoprefsRootListController.h"

#import <NorvikAppList/NorvikAppList.h>
#import <NorvikAppList/NorvikAppListTableViewController.h>
#import <Preferences/PSSpecifier.h>
#import <UIKit/UIKit.h>

#import "core/KRBPreferenceManager.h"
#import "core/PreferenceKeys.h"
#import "core/PreferenceRow.h"
#import "core/Respring.h"
#import "core/RowSummaries.h"
#import "core/TruthValue.h"
#import "lists/ZunoFavouritesPicker.h"
#import "lists/ZunoWidgetsPicker.h"
#import "widgets/WidgetNames.h"

BOOL pendingRootReload = NO;

namespace {

NSString *const kDeveloperProfile = @"https://social.example/@norvik";
NSString *const kDesignerProfile = @"https://social.example/@norvik.design";

bool favouritesPageIsEnabled() {
  id widgets = [KRBPreferenceManager getPrefForKey:zuno::kEnabledWidgets];
  return [widgets isKindOfClass:[NSArray class]] && [widgets containsObject:zuno::kFavouritesPage];
}

bool quickSwitcherIsOn() {
  id value = [KRBPreferenceManager getPrefForKey:@"quickSwitcher"];
  return [value respondsToSelector:@selector(intValue)] && [value intValue] != 0;
}

void removeRowsKeyed(NSArray *keys, NSMutableArray *rows) {
  for (PSSpecifier *row in [NSArray arrayWithArray:rows]) {
    NSString *key = zuno::rowText(row, @"key");
    if (key && [keys containsObject:key]) [rows removeObject:row];
  }
}

void openAddress(NSString *address) {
  [[UIApplication sharedApplication] openURL:[NSURL URLWithString:address] options:@{} completionHandler:nil];
}

}  // namespace

@implementation ZunoprefsRootListController

- (void)dealloc {
  [appNames release];
  [super dealloc];
}

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;

  NSMutableArray *rows = [[[self loadSpecifiersFromPlistName:@"Root" target:self] mutableCopy] autorelease];
  if (!favouritesPageIsEnabled()) {
    removeRowsKeyed(@[ @"SelectFavourites", zuno::kQuickSwitcherShowsFavourites, zuno::kHidesSnapshotsOnFavourites ],
                    rows);
  }
  if (!quickSwitcherIsOn()) {
    removeRowsKeyed(
        @[ zuno::kQuickSwitcherShowsFavourites, zuno::kQuickSwitcherWidth, @"quickSwitcherGestureModifierLabel" ],
        rows);
  }
  zuno::summariseRows(rows, appNames);
  _specifiers = [rows copy];
  return _specifiers;
}

- (id)readPreferenceValue:(PSSpecifier *)specifier {
  return zuno::rowValue(specifier, zuno::PreferenceFile::ofDomain(zuno::kMainDomain));
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier {
  zuno::setRowValue(zuno::integerForTruth(value), specifier, zuno::PreferenceFile::ofDomain(zuno::kMainDomain));
  if (zuno::isPartOfUserAgent(specifier)) [self reloadSpecifierID:zuno::kUserAgentRow];
  if ([zuno::rowText(specifier, @"key") isEqualToString:zuno::kEnabled]) [self showSummaries];
}

/// Has the rows that open a list tell what is chosen there now.
- (void)showSummaries {
  for (PSSpecifier *row in zuno::summariseRows(_specifiers, appNames)) [self reloadSpecifier:row];
}

- (void)askForAppNames {
  NorvikAppList *library = [[[NorvikAppList alloc] init] autorelease];
  [library getAppList:^(NSArray *apps) {
    [appNames autorelease];
    appNames = [zuno::namesOfApps(apps) copy];
    [self showSummaries];
  }];
}

- (void)respring {
  zuno::respring();
}

- (void)selectDefaultMusicApp {
  NorvikAppListTableViewController *picker =
      [[[NorvikAppListTableViewController alloc] initWithIdentifier:zuno::kMainDomain
                                                             andKey:zuno::kNowPlayingApplication] autorelease];
  [picker setMaxEnabled:1];
  [[self navigationController] pushViewController:picker animated:YES];
  [picker setShowBundleIdentifierOnTap:YES];
  [[self navigationItem] setHidesBackButton:NO];
}

- (void)selectFavourites {
  [self openEditor:[[[ZunoFavouritesPicker alloc] initWithIdentifier:zuno::kMainDomain] autorelease]];
}

- (void)selectWidgets {
  [self openEditor:[[[ZunoWidgetsPicker alloc] initWithIdentifier:zuno::kMainDomain] autorelease]];
}

- (void)openEditor:(UIViewController *)editor {
  [[self navigationController] pushViewController:editor animated:YES];
  [[self navigationItem] setHidesBackButton:NO];
}

- (void)developerProfileLink {
  openAddress(kDeveloperProfile);
}

- (void)designerProfileLink {
  openAddress(kDesignerProfile);
}

- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  shouldReload = YES;
  [self reloadSpecifiers];
  [self askForAppNames];
}

- (void)viewDidAppear:(BOOL)animated {
  [super viewDidAppear:animated];
  if (!pendingRootReload) return;

  pendingRootReload = NO;
  shouldReload = YES;
  [self reloadSpecifiers];
}

@end
