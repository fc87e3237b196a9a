// What the rows of the root page that open a list tell of it.
#import <Preferences/PSTableCell.h>
#import <UIKit/UIKit.h>
#import <dispatch/MainQueue+Sim.h>

#include <string>

#include "ZunoPrefs/core/RootPageTest.h"
#include "ZunoPrefs/support/WidgetTest.h"
#include "support/objc/MethodSpy.h"

namespace {

class RootSummariesTest : public WidgetTest {
 protected:
  ZunoprefsRootListController *newPage() {
    return [[(ZunoprefsRootListController *)[classNamed("ZunoprefsRootListController") alloc] init] autorelease];
  }
  ZunoprefsRootListController *shownPage() {
    ZunoprefsRootListController *page = newPage();
    (void)show(page);
    return page;
  }
  void installApp(NSString *name, NSString *identifier) {
    NSString *folder = [NSString stringWithFormat:@"/Applications/%@.app", name];
    makeFolder(folder);
    NSDictionary *info = @{@"CFBundleIdentifier" : identifier, @"CFBundleDisplayName" : name};
    EXPECT_TRUE([info writeToFile:path([folder stringByAppendingString:@"/Info.plist"]) atomically:YES]);
  }
  /// All names of the row as they are said; "nothing" when it tells none.
  static std::string names(PSListController *page, NSString *row) {
    [[page table] scrollToRowAtIndexPath:[page indexPathForSpecifier:[page specifierForID:row]]
                        atScrollPosition:UITableViewScrollPositionMiddle
                                animated:NO];
    [[page table] layoutIfNeeded];
    PSTableCell *cell = [page cachedCellForSpecifierID:row];
    EXPECT_TRUE([cell isKindOfClass:[PSTableCell class]]);
    return [[cell accessibilityValue] UTF8String] ?: "nothing";
  }
  static std::string music(PSListController *page) { return names(page, @"defaultNowPlayingBundleIdentifier"); }
  static std::string favourites(PSListController *page) { return names(page, @"SelectFavourites"); }
  static std::string widgets(PSListController *page) { return names(page, @"EnabledWidgets"); }
};

TEST_F(RootSummariesTest, WithoutAFileTheFactorySettingsAreTold) {
  installApp(@"Music", @"com.apple.Music");
  ZunoprefsRootListController *page = shownPage();
  EXPECT_EQ(music(page), "Music");
  EXPECT_EQ(favourites(page), "None");
  EXPECT_EQ(widgets(page), "Favourites View, Music View") << "the third of the list is not installed";
}

TEST_F(RootSummariesTest, TheNamesStandInTheOrderOfTheStoredLists) {
  installApp(@"Maps", @"test.maps");
  installApp(@"Mail", @"test.mail");
  (void)installWidget(@"clock", @"FixtureWidget");
  writePreferences(
      kMainFile, @{
        @"FavouriteApplications" : @[ @"test.maps", @"test.gone", @"test.mail" ],
        @"defaultNowPlayingBundleIdentifier" : @[ @"test.mail" ],
        @"EnabledWidgets" : @[ @"KRBFavouritesView", @"test.clock", @"test.gone", @"KRBMusicView" ],
      });
  ZunoprefsRootListController *page = shownPage();
  EXPECT_EQ(favourites(page), "Maps, Mail") << "as the editor passes over an app that is not installed";
  EXPECT_EQ(music(page), "Mail");
  EXPECT_EQ(widgets(page), "Favourites View, Widget clock, Music View");
}

TEST_F(RootSummariesTest, WhileZunoIsOffTheFactorySettingsAreToldAtOnce) {
  installApp(@"Music", @"com.apple.Music");
  installApp(@"Mail", @"test.mail");
  writePreferences(
      kMainFile, @{
        @"FavouriteApplications" : @[ @"test.mail" ],
        @"defaultNowPlayingBundleIdentifier" : @[ @"test.mail" ],
        @"EnabledWidgets" : @[ @"KRBFavouritesView" ],
      });
  ZunoprefsRootListController *page = shownPage();
  const auto told = [&] { return music(page) + "|" + favourites(page) + "|" + widgets(page); };
  EXPECT_EQ(told(), "Mail|Mail|Favourites View");
  [page setPreferenceValue:@0 specifier:[page specifierForID:@"Enabled"]];
  EXPECT_EQ(told(), "Music|None|Favourites View, Music View");
  [page setPreferenceValue:@1 specifier:[page specifierForID:@"Enabled"]];
  EXPECT_EQ(told(), "Mail|Mail|Favourites View");
}

TEST_F(RootSummariesTest, OtherSwitchesLeaveTheRowsAlone) {
  ZunoprefsRootListController *page = shownPage();
  writePreferences(kMainFile, @{@"EnabledWidgets" : @[ @"KRBFavouritesView" ]});
  [page setPreferenceValue:@1 specifier:[page specifierForID:@"NotificationBadges"]];
  EXPECT_EQ(widgets(page), "Favourites View, Music View");
}

TEST_F(RootSummariesTest, ThePageThatAppearsAgainTellsWhatWasChosenMeanwhile) {
  ZunoprefsRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  EXPECT_EQ(favourites(page), "None");
  [navigation pushViewController:[[[UIViewController alloc] init] autorelease] animated:YES];
  installApp(@"Mail", @"test.mail");
  writePreferences(
      kMainFile,
      @{@"FavouriteApplications" : @[ @"test.mail" ],
        @"EnabledWidgets" : @[ @"KRBFavouritesView" ]});
  [navigation popViewControllerAnimated:YES];
  SIMDrainMainQueue();
  EXPECT_EQ(favourites(page), "Mail");
  EXPECT_EQ(widgets(page), "Favourites View");
}

TEST_F(RootSummariesTest, UntilTheAppsAreKnownOnlyWhatNeedsNoNameIsTold) {
  installApp(@"Music", @"com.apple.Music");
  ZunoprefsRootListController *page = newPage();
  UIWindow *window = [[[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]] autorelease];
  [window setRootViewController:[[[UINavigationController alloc] initWithRootViewController:page] autorelease]];
  [window makeKeyAndVisible];  // The main queue has not run yet.
  EXPECT_EQ(music(page), "nothing");
  EXPECT_EQ(favourites(page), "None");
  SIMDrainMainQueue();
  EXPECT_EQ(music(page), "Music");
  [page reloadSpecifiers];
  EXPECT_EQ(music(page), "Music") << "they stay known";
  [window setHidden:YES];
}

TEST_F(RootSummariesTest, AppsThatComeWithoutNewsRedrawNothing) {
  installApp(@"Music", @"com.apple.Music");
  ZunoprefsRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  [navigation pushViewController:[[[UIViewController alloc] init] autorelease] animated:YES];
  [navigation popViewControllerAnimated:YES];
  int reloads = 0;
  const MethodSpy<PSSpecifier *> spy([PSListController class], @selector(reloadSpecifier:),
                                     [&](id, PSSpecifier *) { ++reloads; });
  SIMDrainMainQueue();
  EXPECT_EQ(reloads, 0);
}

TEST_F(RootSummariesTest, NoWidgetIsLoadedAndNoFolderMade) {
  ZunoprefsRootListController *page = shownPage();
  EXPECT_EQ(widgets(page), "Favourites View, Music View");
  EXPECT_FALSE(exists(kWidgetsFolder));
  (void)installWidget(@"good", @"FixtureNeverLoaded");
  writePreferences(kMainFile, @{@"EnabledWidgets" : @[ @"test.good" ]});
  EXPECT_EQ(widgets(shownPage()), "Widget good");
  EXPECT_FALSE(NSClassFromString(@"FixtureNeverLoaded"));
  EXPECT_FALSE(logged("ZunoWidgetLoader"));
}

TEST_F(RootSummariesTest, OnlyWhatKeepsTheContractIsAWidget) {
  (void)installWidget(@"old", @"FixtureWidget", @{@"ZunoWidgetsVersion" : @0});
  (void)installWidget(@"odd", @"FixtureWidget", @{@"ZunoWidgetsVersion" : @[ @1 ]});
  (void)installWidget(@"plain", @"FixtureWidget", @{@"CFBundleDisplayName" : [NSNull null]});
  (void)installWidget(@"number", @"FixtureWidget", @{@"CFBundleDisplayName" : @7});
  (void)installWidget(@"nobody", @"FixtureWidget", @{@"CFBundleIdentifier" : [NSNull null]});
  (void)installWidget(@"false", @"FixtureWidget", @{@"CFBundleIdentifier" : @"KRBMusicView"});
  write([kWidgetsFolder stringByAppendingString:@"/no bundle"], "text");
  writePreferences(
      kMainFile, @{
        @"EnabledWidgets" :
            @[ @"test.old", @"test.odd", @"test.plain", @"test.number", @"test.nobody", @"KRBMusicView" ]
      });
  EXPECT_EQ(widgets(shownPage()), "test.plain, test.number, Music View");
}

TEST_F(RootSummariesTest, ValuesOfOddTypesAreNoChoice) {
  installApp(@"Mail", @"test.mail");
  writePreferences(kMainFile, @{@"FavouriteApplications" : @{@"a" : @"b"}, @"EnabledWidgets" : @7});
  ZunoprefsRootListController *page = newPage();
  (void)show(page);
  EXPECT_EQ(widgets(page), "None");
  writePreferences(
      kMainFile, @{
        @"FavouriteApplications" : @[ @1, @"test.mail", @[], @"" ],
        @"defaultNowPlayingBundleIdentifier" : @"test.mail",
      });
  page = shownPage();
  EXPECT_EQ(favourites(page), "Mail");
  EXPECT_EQ(music(page), "Mail") << "one text stands for a list of one";
}

TEST_F(RootSummariesTest, RespringAsksFirst) {
  PSSpecifier *row = [newPage() specifierForID:@"Respring"];
  EXPECT_OBJC_EQ([row propertyForKey:@"action"], @"respring");
  NSDictionary *confirmation = [row propertyForKey:@"confirmation"];
  for (NSString *key in @[ @"title", @"prompt", @"okTitle", @"cancelTitle" ]) {
    EXPECT_GT([(NSString *)[confirmation objectForKey:key] length], 0u) << [key UTF8String];
  }
}

}  // namespace
