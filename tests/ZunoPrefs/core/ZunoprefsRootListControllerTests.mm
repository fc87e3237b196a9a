#import <NorvikAppList/NorvikAppListTableViewController.h>
#import <Preferences/PSTableCell.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>

#import "core/KRBPreferenceManager.h"
#import "lists/ZunoFavouritesPicker.h"

#include <set>

#include "ZunoPrefs/core/RootPageTest.h"
#include "support/objc/MethodSpy.h"

namespace {

/// Whether the rows of the quick switcher's options are on the page.
bool hasOptions(ZunoprefsRootListController *page) {
  return [page specifierForID:@"quickSwitcherWidthModifier"] != nil;
}

TEST_F(RootPageTest, HasARowForEveryKeyOfTheDefaultTableWithTheSameDefault) {
  writePreferences(kMainFile, @{@"quickSwitcher" : @1});
  NSDictionary *defaults = [classNamed("KRBPreferenceManager") defaultPrefs];
  NSMutableDictionary *shown = [NSMutableDictionary dictionary];
  for (PSSpecifier *row in [newPage() specifiers]) {
    NSString *key = [row propertyForKey:@"key"];
    if ([defaults objectForKey:key]) [shown setObject:[row propertyForKey:@"default"] ?: @"none" forKey:key];
  }
  EXPECT_OBJC_EQ(shown, defaults);
}

TEST_F(RootPageTest, EveryNotificationOfTheRowsIsOfTheProduct) {
  int rowsWithNotification = 0;
  for (PSSpecifier *row in [newPage() specifiers]) {
    NSString *name = [row propertyForKey:@"PostNotification"];
    if (!name) continue;
    ++rowsWithNotification;
    EXPECT_TRUE([name hasPrefix:@"com.norvik.Zuno"]) << [name UTF8String];
  }
  EXPECT_GT(rowsWithNotification, 5);
}

TEST_F(RootPageTest, EveryActionOfTheRowsIsAMethodOfThePage) {
  ZunoprefsRootListController *page = newPage();
  std::set<std::string> actions;
  for (PSSpecifier *row in [page specifiers]) {
    NSString *action = [row propertyForKey:@"action"];
    if (!action) continue;
    actions.insert([action UTF8String]);
    EXPECT_TRUE([page respondsToSelector:NSSelectorFromString(action)]) << [action UTF8String];
  }
  EXPECT_EQ(actions, (std::set<std::string>{"respring", "selectDefaultMusicApp", "selectFavourites", "selectWidgets",
                                            "developerProfileLink", "designerProfileLink"}));
}

TEST_F(RootPageTest, RowsAreCachedUntilTheyAreReloaded) {
  ZunoprefsRootListController *page = newPage();
  NSArray *first = [page specifiers];
  writePreferences(kMainFile, @{@"quickSwitcher" : @1});
  EXPECT_EQ([page specifiers], first);
  EXPECT_FALSE([first isKindOfClass:[NSMutableArray class]]);
  [page reloadSpecifiers];
  EXPECT_TRUE(hasOptions(page));
}

TEST_F(RootPageTest, RowsAreReevaluatedEachTimeThePageAppears) {
  ZunoprefsRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  EXPECT_FALSE(hasOptions(page));
  UIViewController *other = [[[UIViewController alloc] init] autorelease];
  [navigation pushViewController:other animated:YES];
  writePreferences(kMainFile, @{@"quickSwitcher" : @1});
  EXPECT_FALSE(hasOptions(page));
  [navigation popViewControllerAnimated:YES];
  EXPECT_TRUE(hasOptions(page));
}

TEST_F(RootPageTest, TheUserAgentRowInSightFollowsItsPartsAtOnce) {
  ZunoprefsRootListController *page = newPage();
  (void)show(page);
  [[page table] scrollToRowAtIndexPath:[page indexPathForSpecifier:[page specifierForID:@"User-Agent"]]
                      atScrollPosition:UITableViewScrollPositionMiddle
                              animated:NO];
  [[page table] layoutIfNeeded];
  PSTableCell *cell = [page cachedCellForSpecifierID:@"User-Agent"];
  ASSERT_TRUE([[[page table] visibleCells] containsObject:cell]);
  const auto shown = [&] { return std::string([[[cell detailTextLabel] text] UTF8String] ?: "none"); };
  EXPECT_EQ(shown(), "(null)/(null)");
  [page setPreferenceValue:@"iPhone15,2" specifier:[page specifierForID:@"device"]];
  EXPECT_EQ(shown(), "iPhone15,2/(null)");
  [page setPreferenceValue:@"16.5" specifier:[page specifierForID:@"iosVersion"]];
  EXPECT_EQ(shown(), "iPhone15,2/16.5");

  // Only these two.
  writePreferences(kMainFile, @{@"device" : @"iPad13,4"});
  [page setPreferenceValue:@1 specifier:[page specifierForID:@"NotificationBadges"]];
  EXPECT_EQ(shown(), "iPhone15,2/16.5");
}

TEST_F(RootPageTest, ProfileLinksOpenOneAddressEach) {
  ZunoprefsRootListController *page = newPage();
  [page developerProfileLink];
  [page designerProfileLink];
  SIMDrainMainQueue();
  EXPECT_EQ(openedURLs,
            (std::vector<std::string>{"https://social.example/@norvik", "https://social.example/@norvik.design"}));
}

TEST_F(RootPageTest, EachPickerIsPushedAnimatedAndThenTheBackButtonStays) {
  const std::pair<const char *, const char *> pickers[] = {
      {"selectDefaultMusicApp", "NorvikAppListTableViewController"},
      {"selectFavourites", "ZunoFavouritesPicker"},
      {"selectWidgets", "ZunoWidgetsPicker"},
  };
  for (const auto &[action, name] : pickers) {
    ZunoprefsRootListController *page = newPage();
    UINavigationController *navigation = show(page);
    [[page navigationItem] setHidesBackButton:YES];
    int pushes = 0;
    MethodSpy<UIViewController *, BOOL> push(
        [UINavigationController class], @selector(pushViewController:animated:),
        [&](id, UIViewController *pushed, BOOL animated) {
          ++pushes;
          if ([pushed respondsToSelector:@selector(maxEnabled)]) {
            EXPECT_EQ([(NorvikAppListTableViewController *)pushed maxEnabled], 1) << action << ": set before the push";
            EXPECT_FALSE([(NorvikAppListTableViewController *)pushed showBundleIdentifierOnTap])
                << action << ": and this after";
          }
          EXPECT_TRUE(animated) << action;
          EXPECT_TRUE([[page navigationItem] hidesBackButton]) << action << ": not before the push";
        });
    [page performSelector:sel_registerName(action)];
    EXPECT_EQ(pushes, 1) << action;
    EXPECT_FALSE([[page navigationItem] hidesBackButton]) << action;
    UIViewController *picker = [navigation topViewController];
    EXPECT_EQ([picker class], NSClassFromString([NSString stringWithUTF8String:name])) << action;
    if (![picker respondsToSelector:@selector(prefsIdentifier)]) continue;
    EXPECT_OBJC_EQ([(ZunoFavouritesPicker *)picker prefsIdentifier], @"com.norvik.Zunoprefs") << action;
  }
}

TEST_F(RootPageTest, TheMusicAppIsStoredAsAListOfOne) {
  for (NSString *name in @[ @"First", @"Second" ]) {
    NSString *info = [NSString stringWithFormat:@"/Applications/%@.app/Info.plist", name];
    makeFolder([info stringByDeletingLastPathComponent]);
    NSDictionary *app =
        @{@"CFBundleIdentifier" : [@"test." stringByAppendingString:name], @"CFBundleDisplayName" : name};
    ASSERT_TRUE([app writeToFile:path(info) atomically:YES]);
  }
  writePreferences(kMainFile, @{@"Enabled" : @1});
  ZunoprefsRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  [page selectDefaultMusicApp];
  SIMDrainMainQueue();
  auto *picker = (NorvikAppListTableViewController *)[navigation topViewController];
  EXPECT_EQ([picker maxEnabled], 1);
  UITableView *table = [picker tableView];
  [table layoutIfNeeded];
  for (NSInteger row : {0, 1}) {
    [picker tableView:table didSelectRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]];
    SIMDrainMainQueue();
  }
  [table layoutIfNeeded];
  UITableViewCell *tapped = [table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:1 inSection:0]];
  EXPECT_OBJC_EQ([[tapped detailTextLabel] text], @"test.Second") << "a tapped row shows its identifier";
  EXPECT_OBJC_EQ(preferences(kMainFile),
                 (
                     @{@"Enabled" : @1,
                       @"defaultNowPlayingBundleIdentifier" : @[ @"test.Second" ]}));
}

}  // namespace
