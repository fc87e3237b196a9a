#import "core/ZunoprefsRootListController.h"

#import <Preferences/PSSpecifier.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>

#import "core/KRBPreferenceManager.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <set>

#include "ZunoPrefs/support/BundleTest.h"

/// Counts the reloads of the root page. Made at run time below the bundle's class.
namespace {

const std::set<std::string> kFavouritesRows{"SelectFavourites", "quickSwitcherDefaultToFavourites",
                                            "hideSnapshotsOnFavourites"};
const std::set<std::string> kQuickSwitcherRows{"quickSwitcherDefaultToFavourites", "quickSwitcherWidthModifier",
                                               "quickSwitcherGestureModifierLabel"};

class RootPageTest : public BundleTest {
 protected:
  ZunoprefsRootListController *newPage() {
    return [[(ZunoprefsRootListController *)[classNamed("ZunoprefsRootListController") alloc] init] autorelease];
  }

  static std::set<std::string> keysOf(NSArray *rows) {
    std::set<std::string> keys;
    for (PSSpecifier *row in rows) {
      NSString *key = [row propertyForKey:@"key"];
      if ([key length] > 0) keys.insert([key UTF8String]);
    }
    return keys;
  }
  std::set<std::string> keys() { return keysOf([newPage() specifiers]); }

  /// Which of the five rows that rules can remove are missing.
  std::set<std::string> hidden() {
    std::set<std::string> missing;
    const auto shown = keys();
    for (const auto *rule : {&kFavouritesRows, &kQuickSwitcherRows}) {
      for (const auto &key : *rule) {
        if (!shown.count(key)) missing.insert(key);
      }
    }
    return missing;
  }
};

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

TEST_F(RootPageTest, WithoutAFileOnlyTheQuickSwitcherRowsAreHidden) { EXPECT_EQ(hidden(), kQuickSwitcherRows); }

TEST_F(RootPageTest, WithoutTheFavouritesPageItsRowsAreHidden) {
  writePreferences(kMainFile,
                   @{@"EnabledWidgets" : @[ @"com.norvik.Zunowidgets.siri", @"KRBMusicView" ], @"quickSwitcher" : @1});
  EXPECT_EQ(hidden(), kFavouritesRows);
}

TEST_F(RootPageTest, WithTheFavouritesPageAndTheQuickSwitcherNothingIsHidden) {
  writePreferences(kMainFile, @{@"EnabledWidgets" : @[ @"KRBFavouritesView" ], @"quickSwitcher" : @1});
  EXPECT_TRUE(hidden().empty());
}

TEST_F(RootPageTest, WhenBothRulesHoldAllFiveRowsAreHiddenAndTheUserAgentStays) {
  writePreferences(kMainFile, @{@"EnabledWidgets" : @[]});
  std::set<std::string> all = kFavouritesRows;
  all.insert(kQuickSwitcherRows.begin(), kQuickSwitcherRows.end());
  EXPECT_EQ(hidden(), all);
  EXPECT_EQ(keys().count("presetUserAgent"), 1u);
}

TEST_F(RootPageTest, TheMasterSwitchOffShowsFavouritesAndHidesTheQuickSwitcherRows) {
  writePreferences(kMainFile, @{@"Enabled" : @0, @"EnabledWidgets" : @[ @"KRBMusicView" ], @"quickSwitcher" : @1});
  EXPECT_EQ(hidden(), kQuickSwitcherRows);
}

TEST_F(RootPageTest, QuickSwitcherEnabledDoesNotDecideAboutTheRows) {
  writePreferences(kMainFile, @{@"QuickSwitcherEnabled" : @1});
  EXPECT_EQ(hidden(), kQuickSwitcherRows);
}

TEST_F(RootPageTest, ValuesOfTheWrongTypeCountAsNoListAndAsZero) {
  writePreferences(kMainFile, @{@"EnabledWidgets" : @"KRBFavouritesView", @"quickSwitcher" : @[ @1 ]});
  EXPECT_EQ(hidden().size(), 5u);
  writePreferences(kMainFile, @{@"quickSwitcher" : @"1"});
  EXPECT_TRUE(hidden().empty()) << "a text that holds a number is one";
}

TEST_F(RootPageTest, RowsAreCachedUntilTheyAreReloaded) {
  ZunoprefsRootListController *page = newPage();
  NSArray *first = [page specifiers];
  writePreferences(kMainFile, @{@"quickSwitcher" : @1});
  EXPECT_EQ([page specifiers], first);
  EXPECT_FALSE([first isKindOfClass:[NSMutableArray class]]);
  [page reloadSpecifiers];
  EXPECT_EQ(keysOf([page specifiers]).count("quickSwitcherWidthModifier"), 1u);
}

TEST_F(RootPageTest, RowsAreReevaluatedEachTimeThePageAppears) {
  ZunoprefsRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  EXPECT_EQ(keysOf([page specifiers]).count("quickSwitcherWidthModifier"), 0u);
  UIViewController *other = [[[UIViewController alloc] init] autorelease];
  [navigation pushViewController:other animated:YES];
  writePreferences(kMainFile, @{@"quickSwitcher" : @1});
  EXPECT_EQ(keysOf([page specifiers]).count("quickSwitcherWidthModifier"), 0u);
  [navigation popViewControllerAnimated:YES];
  EXPECT_EQ(keysOf([page specifiers]).count("quickSwitcherWidthModifier"), 1u);
}

TEST_F(RootPageTest, APendingReloadIsHonouredOnceWhenThePageHasAppeared) {
  ZunoprefsRootListController *page = newPage();
  (void)show(page);
  NSArray *before = [page specifiers];
  [page viewDidAppear:YES];
  EXPECT_EQ([page specifiers], before) << "without a request nothing is rebuilt";

  pendingRootReload() = YES;
  [page viewDidAppear:YES];
  EXPECT_FALSE(pendingRootReload());
  NSArray *rebuilt = [page specifiers];
  EXPECT_NE(rebuilt, before);
  [page viewDidAppear:YES];
  EXPECT_EQ([page specifiers], rebuilt);
}

TEST_F(RootPageTest, ShouldReloadIsSetWhenThePageAppears) {
  ZunoprefsRootListController *page = newPage();
  EXPECT_FALSE([[page valueForKey:@"shouldReload"] boolValue]);
  (void)show(page);
  EXPECT_TRUE([[page valueForKey:@"shouldReload"] boolValue]);
}

TEST_F(RootPageTest, ProfileLinksOpenOneAddressEach) {
  ZunoprefsRootListController *page = newPage();
  [page developerProfileLink];
  [page designerProfileLink];
  SIMDrainMainQueue();
  ASSERT_EQ(openedURLs.size(), 2u);
  EXPECT_EQ(openedURLs[0].rfind("https://", 0), 0u);
  EXPECT_EQ(openedURLs[1].rfind("https://", 0), 0u);
  EXPECT_NE(openedURLs[0], openedURLs[1]);
}

TEST_F(RootPageTest, ThePickersArePushedAndTheBackButtonStays) {
  for (const char *action : {"selectDefaultMusicApp", "selectFavourites", "selectWidgets"}) {
    ZunoprefsRootListController *page = newPage();
    UINavigationController *navigation = show(page);
    [[page navigationItem] setHidesBackButton:YES];
    [page performSelector:sel_registerName(action)];
    EXPECT_EQ([[navigation viewControllers] count], 2u) << action;
    EXPECT_FALSE([[page navigationItem] hidesBackButton]) << action;
  }
}

TEST_F(RootPageTest, TheMusicAppIsStoredAsAListOfOne) {
  for (NSString *name in @[ @"First", @"Second" ]) {
    NSString *info = [NSString stringWithFormat:@"/Applications/%@.app/Info.plist", name];
    makeFolder([info stringByDeletingLastPathComponent]);
    NSDictionary *app = @{@"CFBundleIdentifier" : [@"test." stringByAppendingString:name], @"CFBundleDisplayName" : name};
    ASSERT_TRUE([app writeToFile:path(info) atomically:YES]);
  }
  writePreferences(kMainFile, @{@"Enabled" : @1});
  ZunoprefsRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  [page selectDefaultMusicApp];
  SIMDrainMainQueue();
  auto *picker = (UITableViewController *)[navigation topViewController];
  UITableView *table = [picker tableView];
  [table layoutIfNeeded];
  for (NSInteger row : {0, 1}) {
    [picker tableView:table didSelectRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]];
    SIMDrainMainQueue();
  }
  EXPECT_OBJC_EQ(preferences(kMainFile),
                 (@{@"Enabled" : @1, @"defaultNowPlayingBundleIdentifier" : @[ @"test.Second" ]}));
}

TEST_F(RootPageTest, RespringStartsTheToolWithTheseArgumentsAndNoEnvironment) {
  // A stand-in for the tool records how it was started.
  NSString *tool = write(@"/var/jb/usr/bin/killall",
                         "#!/bin/sh\nprintf '%s|' \"$0\" \"$@\" > \"$(dirname \"$0\")/arguments\"\n"
                         "env > \"$(dirname \"$0\")/environment\"\ntouch \"$(dirname \"$0\")/done\"\n");
  ASSERT_EQ(chmod([tool fileSystemRepresentation], 0755), 0);
  [newPage() respring];
  for (int tries = 0; tries < 500 && !exists(@"/var/jb/usr/bin/done"); ++tries) usleep(10'000);
  const std::string arguments = read(@"/var/jb/usr/bin/arguments");
  EXPECT_NE(arguments.find("|-9|backboardd|"), std::string::npos) << arguments;
  EXPECT_EQ(read(@"/var/jb/usr/bin/environment").find("HOME="), std::string::npos);
}

TEST_F(RootPageTest, AMissingToolIsNotReported) {
  EXPECT_EQ(raisedBy([&] { [newPage() respring]; }), "");
}

}  // namespace
