#import "theme/ZunoPresets.h"

#import <UIKit/UITableView+Sim.h>
#import <UIKit/UITableViewCell+Sim.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UITableViewRowAction+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#import "core/ZunoprefsRootListController.h"

#include <sys/stat.h>

#include "ZunoPrefs/support/Replaced.h"
#include "ZunoPrefs/theme/PresetsTest.h"

/// Notes what the page asks of it.
@interface SpyTable : UITableView {
 @public
  std::string calls;
}
@end

@implementation SpyTable
- (void)deselectRowAtIndexPath:(NSIndexPath *)path animated:(BOOL)animated {
  calls +=
      "deselect " + std::to_string([path section]) + "." + std::to_string([path row]) + (animated ? " animated" : "");
}
- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
  calls += std::string(editing ? "edit" : "end editing") + (animated ? " animated" : "");
}
@end

namespace {

class PresetStoreTest : public PresetsTest {};

TEST_F(PresetStoreTest, OpeningMakesTheFolderAndShowsTitleAndAddButton) {
  ZunoPresets *page = showPage();
  EXPECT_TRUE(exists(kPresets));
  EXPECT_OBJC_EQ([(Class)classNamed("ZunoPresets") presetsFolder], path(kPresets));
  EXPECT_OBJC_EQ([[page navigationItem] title], @"Presets");
  EXPECT_OBJC_EQ([[[page navigationItem] rightBarButtonItem] sim_systemItemName], @"add");
  EXPECT_OBJC_EQ([page presetsArray], @[]);
}

TEST_F(PresetStoreTest, TheAddButtonAddsAPreset) {
  ZunoPresets *page = showPage();
  UIBarButtonItem *add = [[page navigationItem] rightBarButtonItem];
  EXPECT_EQ([add target], page);
  EXPECT_OBJC_EQ(NSStringFromSelector([add action]), @"onTapAdd");
  EXPECT_TRUE([add sim_tap]);
  EXPECT_OBJC_EQ([alertOf(page) title], @"New Preset");
}

TEST_F(PresetStoreTest, APresetOfAnotherLetterCaseIsAnotherOne) {
  write([kPresets stringByAppendingString:@"/Dark.plist"], "x");
  ZunoPresets *page = showPage();
  EXPECT_TRUE([page presetWithNameExists:@"Dark"]);
  EXPECT_FALSE([page presetWithNameExists:@"dark"]) << "the file system tells them apart";
  EXPECT_FALSE([page presetWithNameExists:@"DARK"]);
  EXPECT_FALSE([page presetWithNameExists:@"Dark.plist"]);
  EXPECT_OBJC_EQ([page validatePresetName:@"dark"], @"dark");
}

TEST_F(PresetStoreTest, TheSettingsFrameworkCanPushIt) {
  ZunoPresets *page = newPage();
  [page setRootController:page];
  [page setParentController:page];
  [page setSpecifier:page];
}

TEST_F(PresetStoreTest, ListsPlistEntriesInListingOrder) {
  for (NSString *entry in @[ @"b.plist", @"a.plist", @"x.PLIST", @"notes.txt" ]) {
    write([NSString stringWithFormat:@"%@/%@", kPresets, entry], "x");
  }
  makeFolder([kPresets stringByAppendingString:@"/dir.plist"]);
  ZunoPresets *page = showPage();
  NSMutableArray *expected = [NSMutableArray array];
  for (NSString *entry in [[NSFileManager defaultManager] contentsOfDirectoryAtPath:path(kPresets) error:nullptr]) {
    if ([entry hasSuffix:@".plist"]) [expected addObject:[path(kPresets) stringByAppendingPathComponent:entry]];
  }
  ASSERT_EQ([expected count], 3u);
  EXPECT_OBJC_EQ([page presetsArray], expected);
  EXPECT_FALSE([[page presetsArray] isKindOfClass:[NSMutableArray class]]);
  EXPECT_EQ([page tableView:[page tableView] numberOfRowsInSection:0], 3);
}

TEST_F(PresetStoreTest, ARowShowsTheNameAt60Points) {
  write([kPresets stringByAppendingString:@"/My Look .plist"], "x");
  ZunoPresets *page = showPage();
  NSIndexPath *first = [NSIndexPath indexPathForRow:0 inSection:0];
  UITableViewCell *cell = [page tableView:[page tableView] cellForRowAtIndexPath:first];
  EXPECT_OBJC_EQ([[cell textLabel] text], @"My Look ");
  EXPECT_OBJC_EQ([cell reuseIdentifier], @"Cell");
  EXPECT_EQ([cell sim_style], UITableViewCellStyleDefault);
  UITableViewCell *shown = [[page tableView] cellForRowAtIndexPath:first];
  [[page tableView] reloadData];
  [[page tableView] layoutIfNeeded];
  EXPECT_EQ([[page tableView] cellForRowAtIndexPath:first], shown) << "cells are used again";
  EXPECT_EQ([page tableView:[page tableView] heightForRowAtIndexPath:first], 60.0);
  EXPECT_TRUE([page tableView:[page tableView] canEditRowAtIndexPath:first]);
}

TEST_F(PresetStoreTest, NamesAreCleanedAndChecked) {
  ZunoPresets *page = showPage();
  const auto accepted = [&](NSString *name) { return [page validatePresetName:name]; };
  EXPECT_OBJC_EQ(accepted(@"a/b\\c?d%e*f|g\"h<i>j"), @"abcdefghij");
  EXPECT_OBJC_EQ(accepted(@"a~b:c.d"), @"a~b:c.d");
  EXPECT_OBJC_EQ(accepted(@"my.plist"), @"my");
  EXPECT_OBJC_EQ(accepted(@"a.plistb.plist"), @"ab");
  EXPECT_OBJC_EQ(accepted(@"My Preset "), @"My Preset ");
  EXPECT_OBJC_EQ(accepted(@"\n"), @"\n") << "a line break is no white space here";
  NSString *longest = [@"" stringByPaddingToLength:32 withString:@"x" startingAtIndex:0];
  EXPECT_OBJC_EQ(accepted(longest), longest);
  EXPECT_OBJC_EQ(accepted(@"😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀"), @"😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀")
      << "16 emoji are 32 units";
  EXPECT_OBJC_EQ([page presentedViewController], nil);
}

TEST_F(PresetStoreTest, SpacesBelongToTheNameThatIsLookedFor) {
  write([kPresets stringByAppendingString:@"/taken.plist"], "x");
  ZunoPresets *page = showPage();
  EXPECT_OBJC_EQ([page validatePresetName:@"taken "], @"taken ");
  EXPECT_OBJC_EQ([page validatePresetName:@" taken"], @" taken");
}

TEST_F(PresetStoreTest, NoNameIsNoName) {
  ZunoPresets *page = showPage();
  EXPECT_OBJC_EQ([page validatePresetName:nil], nil);
  EXPECT_EQ(describe(alertOf(page)), "Error|Invalid preset name|OK:default");
}

TEST_F(PresetStoreTest, RefusedNamesAreToldInTheOrderOfTheChecks) {
  write([kPresets stringByAppendingString:@"/taken.plist"], "x");
  const auto error = [&](NSString *name) {
    ZunoPresets *page = showPage();
    EXPECT_OBJC_EQ([page validatePresetName:name], nil);
    return describe(alertOf(page));
  };
  for (NSString *name in @[ @"", @"   ", @"\t", @"***", @".plist", @" / " ]) {
    EXPECT_EQ(error(name), "Error|Invalid preset name|OK:default") << [name UTF8String];
  }
  NSString *spaces = [@"x" stringByPaddingToLength:33 withString:@" " startingAtIndex:0];
  EXPECT_EQ(error(spaces), "Error|Preset name is too long|OK:default");
  EXPECT_EQ(error([@"😀" stringByPaddingToLength:34 withString:@"😀" startingAtIndex:0]),
            "Error|Preset name is too long|OK:default");
  EXPECT_EQ(error(@"taken"), "Error|Preset with this name already exists|OK:default");
  EXPECT_EQ(error(@"ta/ken.plist"), "Error|Preset with this name already exists|OK:default");
}

TEST_F(PresetStoreTest, SavingCopiesTheThemeAndMarksTheVersion) {
  NSDictionary *theme = @{@"spacing" : @3, @"enabled" : @(YES), @"note" : @"😀"};
  writePreferences(kThemeFile, theme);
  ZunoPresets *page = showPage();
  [page savePresetWithName:@"My Preset "];
  NSMutableDictionary *expected = [[theme mutableCopy] autorelease];
  [expected setObject:@1 forKey:@"ZunoPresetVersion"];
  EXPECT_OBJC_EQ(preset(@"My Preset "), expected);
  EXPECT_EQ([[page presetsArray] count], 1u);
  EXPECT_TRUE([page presetWithNameExists:@"My Preset "]);
  EXPECT_FALSE([page presetWithNameExists:@"My Preset"]);
  EXPECT_OBJC_EQ(preferences(kThemeFile), theme);
  EXPECT_EQ(listing(kPresets), "My Preset .plist");
}

TEST_F(PresetStoreTest, SavingUnderNoNameGivesARandomOne) {
  writePreferences(kThemeFile, @{@"a" : @1});
  ZunoPresets *page = showPage();
  [page savePresetWithName:nil];
  [page savePresetWithName:nil];
  ASSERT_EQ([[page presetsArray] count], 2u);
  EXPECT_EQ([[[[page presetsArray] objectAtIndex:0] lastPathComponent] length], 36 + [@".plist" length]);
}

TEST_F(PresetStoreTest, SavingWithoutAThemeDoesNothing) {
  ZunoPresets *page = showPage();
  [page savePresetWithName:@"none"];
  EXPECT_EQ(listing(kPresets), "");
  EXPECT_OBJC_EQ([page presentedViewController], nil);
}

TEST_F(PresetStoreTest, AThemeThatIsNoDictionaryIsSavedAsItIs) {
  write(kThemeFile, "damaged");
  ZunoPresets *page = showPage();
  [page savePresetWithName:@"copy"];
  EXPECT_EQ(read([kPresets stringByAppendingString:@"/copy.plist"]), "damaged");
}

TEST_F(PresetStoreTest, SavingReplacesAPresetOfThatName) {
  write([kPresets stringByAppendingString:@"/old.plist"], "old");
  writePreferences(kThemeFile, @{@"a" : @1});
  [showPage() savePresetWithName:@"old"];
  EXPECT_OBJC_EQ(preset(@"old"), (@{@"a" : @1, @"ZunoPresetVersion" : @1}));
}

TEST_F(PresetStoreTest, AThemeThatIsNoDictionaryReplacesAPresetToo) {
  write([kPresets stringByAppendingString:@"/old.plist"], "old");
  write(kThemeFile, "damaged");
  [showPage() savePresetWithName:@"old"];
  EXPECT_EQ(read([kPresets stringByAppendingString:@"/old.plist"]), "damaged");
}

TEST_F(PresetStoreTest, TheVersionIsAnInteger) {
  writePreferences(kThemeFile, @{});
  [showPage() savePresetWithName:@"new"];
  EXPECT_NE(read([kPresets stringByAppendingString:@"/new.plist"]).find("<integer>1</integer>"), std::string::npos);
}

TEST_F(PresetStoreTest, WithoutAThemeNothingHappensToAPresetOfThatNameOrToTheList) {
  writePreset(@"one", @{@"a" : @1});
  ZunoPresets *page = showPage();
  writePreset(@"two", @{@"a" : @2});
  [page savePresetWithName:@"one"];
  EXPECT_OBJC_EQ(preset(@"one"), @{@"a" : @1});
  EXPECT_EQ([[page presetsArray] count], 1u);
  EXPECT_OBJC_EQ([page presentedViewController], nil);
}

TEST_F(PresetStoreTest, WhatRemainsOfAnInterruptedCopyIsInNobodysWay) {
  NSString *ofTheme = [[kThemeFile stringByDeletingLastPathComponent] stringByAppendingString:@"/.copy.partial"];
  write(ofTheme, "half");
  write([kPresets stringByAppendingString:@"/.copy.partial"], "half");
  ZunoPresets *page = showPage();
  EXPECT_FALSE(exists(ofTheme)) << "the page tidies up";
  EXPECT_FALSE(exists([kPresets stringByAppendingString:@"/.copy.partial"]));
  write([kPresets stringByAppendingString:@"/.copy.partial"], "half");
  write(kThemeFile, "damaged");
  [page savePresetWithName:@"new"];
  EXPECT_EQ(read([kPresets stringByAppendingString:@"/new.plist"]), "damaged");
  EXPECT_FALSE(exists([kPresets stringByAppendingString:@"/.copy.partial"]));
}

TEST_F(PresetStoreTest, ACopyThatCannotTakeItsPlaceIsTakenAway) {
  writePreset(@"one", @{@"a" : @1});
  ZunoPresets *page = showPage();
  const auto refuse = +[](id, SEL, NSString *, NSString *, NSError **) -> BOOL { return NO; };
  const Replaced move([NSFileManager class], @selector(moveItemAtPath:toPath:error:), refuse);
  [page applyPreset:presetPath(@"one")];
  EXPECT_EQ(listing([kThemeFile stringByDeletingLastPathComponent]), "");
}

TEST_F(PresetStoreTest, TheFrameworkHearsOfTheLoadAndThePageDoesNotKeepItsList) {
  int deaths = 0;
  CallCounter framework([UITableViewController class], @selector(viewDidLoad));
  ZunoPresets *page = [(ZunoPresets *)[classNamed("ZunoPresets") alloc] init];
  (void)[page view];
  EXPECT_EQ(framework.calls(), 1);
  [page setPresetsArray:@[ [[[Lifetime alloc] initWithCounter:&deaths] autorelease] ]];
  [page release];
  drainPool();
  EXPECT_EQ(deaths, 1);
}

TEST_F(PresetStoreTest, WhatIsPresentedComesWithAnimation) {
  writePreset(@"one", @{@"theme" : @1});
  ZunoPresets *page = showPage();
  NSIndexPath *row = [NSIndexPath indexPathForRow:0 inSection:0];
  const Presentations presentations;
  const auto presented = [&] {
    tapAction(page, "Cancel");
    return presentations.take();
  };
  [page newPresetAlert];
  EXPECT_EQ(presented(), "UIAlertController with Cancel animated");
  [page tableView:[page tableView] didSelectRowAtIndexPath:row];
  EXPECT_EQ(presented(), "UIAlertController with Cancel animated");
  (void)[[page tableView] sim_performSwipeActionAtIndex:0 ofRow:row];
  EXPECT_EQ(presented(), "UIAlertController with Cancel animated");
  [page validatePresetName:@""];
  EXPECT_EQ(presentations.take(), "UIAlertController with OK animated");
}

TEST_F(PresetStoreTest, TheNewPresetDialogSavesUnderTheCheckedName) {
  writePreferences(kThemeFile, @{@"a" : @1});
  ZunoPresets *page = showPage();
  [page newPresetAlert];
  EXPECT_EQ(describe(alertOf(page)),
            "New Preset|Enter a name for your preset|[Preset Name...]|Save:default|Cancel:cancel");
  enter(page, 0, @"a/b");
  tapAction(page, "Save");
  EXPECT_EQ(listing(kPresets), "ab.plist");

  [page newPresetAlert];
  enter(page, 0, @"ab");
  tapAction(page, "Save");
  EXPECT_EQ(describe(alertOf(page)), "Error|Preset with this name already exists|OK:default");
  EXPECT_EQ(listing(kPresets), "ab.plist") << "what is refused is not saved under another name";
  tapAction(page, "OK");
  EXPECT_OBJC_EQ([page presentedViewController], nil);
}

TEST_F(PresetStoreTest, ApplyingKeepsOneBackupAndAsksForAReload) {
  writePreferences(kThemeFile, @{@"theme" : @0});
  writePreset(@"one", @{@"theme" : @1, @"ZunoPresetVersion" : @1});
  writePreset(@"two", @{@"theme" : @2, @"ZunoPresetVersion" : @1});
  ZunoPresets *page = showPage();
  [page applyPreset:presetPath(@"one")];
  EXPECT_TRUE(pendingRootReload());
  EXPECT_OBJC_EQ(preferences(kThemeFile), preset(@"one")) << "byte for byte, the version included";
  EXPECT_OBJC_EQ(preferences(kBackup), @{@"theme" : @0});
  [page applyPreset:presetPath(@"two")];
  EXPECT_OBJC_EQ(preferences(kThemeFile), preset(@"two"));
  EXPECT_OBJC_EQ(preferences(kBackup), preset(@"one"));
  EXPECT_TRUE(notifications.empty());
  EXPECT_EQ(listing(@"/var/jb/var/mobile/Library/Preferences"),
            "com.norvik.Zunoprefs.theme.plist,com.norvik.Zunoprefs.theme.plist.bak");
}

TEST_F(PresetStoreTest, ApplyingWithoutAThemeMakesNoBackup) {
  writePreset(@"one", @{@"theme" : @1});
  [showPage() applyPreset:presetPath(@"one")];
  EXPECT_OBJC_EQ(preferences(kThemeFile), @{@"theme" : @1});
  EXPECT_FALSE(exists(kBackup));
}

TEST_F(PresetStoreTest, ApplyingAPresetThatVanishedDoesNothing) {
  writePreferences(kThemeFile, @{@"theme" : @0});
  [showPage() applyPreset:presetPath(@"gone")];
  EXPECT_FALSE(pendingRootReload());
  EXPECT_OBJC_EQ(preferences(kThemeFile), @{@"theme" : @0});
  EXPECT_FALSE(exists(kBackup));
}

TEST_F(PresetStoreTest, SelectingARowAsksBeforeItApplies) {
  writePreset(@"one", @{@"theme" : @1});
  ZunoPresets *page = showPage();
  [[page tableView] sim_tapRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
  EXPECT_EQ(describe(alertOf(page)),
            "Apply Preset|Are you sure you would like to apply preset \"one\"?\n\nAny current changes will be lost."
            "|Confirm:destructive|Cancel:cancel");
  tapAction(page, "Cancel");
  EXPECT_FALSE(exists(kThemeFile));
  [[page tableView] sim_tapRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
  writePreset(@"two", @{@"theme" : @2});
  tapAction(page, "Confirm");
  EXPECT_OBJC_EQ(preferences(kThemeFile), @{@"theme" : @1});
  EXPECT_EQ([[page presetsArray] count], 2u) << "the list is read anew";
  EXPECT_EQ([[page tableView] numberOfRowsInSection:0], 2);
}

TEST_F(PresetStoreTest, ASelectedRowIsDeselectedAtOnce) {
  writePreset(@"one", @{@"theme" : @1});
  ZunoPresets *page = showPage();
  SpyTable *table = [[[SpyTable alloc] init] autorelease];
  [page tableView:table didSelectRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
  EXPECT_EQ(table->calls, "deselect 0.0");
}

TEST_F(PresetStoreTest, AnAppliedPresetRebuildsTheRootPageOnce) {
  writePreset(@"one", @{@"theme" : @1});
  auto *root = [[(ZunoprefsRootListController *)[classNamed("ZunoprefsRootListController") alloc] init] autorelease];
  UINavigationController *navigation = show(root);
  ZunoPresets *page = newPage();
  [navigation pushViewController:page animated:YES];
  [page applyPreset:presetPath(@"one")];
  EXPECT_TRUE(pendingRootReload());
  [navigation popViewControllerAnimated:YES];
  SIMDrainMainQueue();
  EXPECT_FALSE(pendingRootReload());
  NSArray *rows = [root specifiers];
  [root viewDidAppear:YES];
  EXPECT_EQ([root specifiers], rows);
}

TEST_F(PresetStoreTest, SwipingOffersDeleteAndShare) {
  writePreset(@"one", @{@"theme" : @1});
  ZunoPresets *page = showPage();
  NSIndexPath *row = [NSIndexPath indexPathForRow:0 inSection:0];
  NSArray *actions = [page tableView:[page tableView] editActionsForRowAtIndexPath:row];
  ASSERT_EQ([actions count], 2u);
  UITableViewRowAction *remove = [actions objectAtIndex:0];
  UITableViewRowAction *share = [actions objectAtIndex:1];
  EXPECT_OBJC_EQ([remove title], @"Delete");
  EXPECT_OBJC_EQ([remove backgroundColor], [UIColor redColor]);
  EXPECT_EQ([remove style], UITableViewRowActionStyleNormal);
  EXPECT_OBJC_EQ([share title], @"Share");
  EXPECT_OBJC_EQ([share backgroundColor], [UIColor colorWithRed:0.0 green:0.48 blue:1.0 alpha:1.0]);
  EXPECT_EQ([share style], UITableViewRowActionStyleNormal);
}

TEST_F(PresetStoreTest, TheActionsEndTheEditingOfTheirTable) {
  writePreset(@"one", @{@"theme" : @1});
  ZunoPresets *page = showPage();
  NSIndexPath *row = [NSIndexPath indexPathForRow:0 inSection:0];
  SpyTable *table = [[[SpyTable alloc] init] autorelease];
  for (UITableViewRowAction *action in [page tableView:table editActionsForRowAtIndexPath:row]) {
    table->calls.clear();
    [action sim_performAtIndexPath:row];
    EXPECT_EQ(table->calls, "end editing animated") << [[action title] UTF8String];
  }
  SIMDrainMainQueue();
}

TEST_F(PresetStoreTest, DeletingAsksFirst) {
  writePreset(@"one", @{@"theme" : @1});
  ZunoPresets *page = showPage();
  NSIndexPath *row = [NSIndexPath indexPathForRow:0 inSection:0];
  ASSERT_TRUE([[page tableView] sim_performSwipeActionAtIndex:0 ofRow:row]);
  EXPECT_EQ(describe(alertOf(page)),
            "Delete Preset|Are you sure you would like to delete preset \"one\"?|Confirm:destructive|Cancel:cancel");
  EXPECT_OBJC_EQ([[page tableView] sim_swipedRow], nil) << "the row closes when its action is chosen";
  tapAction(page, "Cancel");
  EXPECT_EQ(listing(kPresets), "one.plist");
  EXPECT_OBJC_EQ([[page tableView] sim_swipedRow], nil);
  ASSERT_TRUE([[page tableView] sim_performSwipeActionAtIndex:0 ofRow:row]);
  tapAction(page, "Confirm");
  EXPECT_EQ(listing(kPresets), "");
  EXPECT_OBJC_EQ([page presetsArray], @[]);
}

TEST_F(PresetStoreTest, AFileInPlaceOfTheFolderShowsAnEmptyList) {
  write(kPresets, "a file");
  writePreferences(kThemeFile, @{@"a" : @1});
  ZunoPresets *page = showPage();
  EXPECT_OBJC_EQ([page presetsArray], @[]);
  [page savePresetWithName:@"x"];
  EXPECT_EQ(read(kPresets), "a file");
}

TEST_F(PresetStoreTest, AFolderInPlaceOfAPresetIsAppliedWithoutLosingTheTheme) {
  writePreferences(kThemeFile, @{@"theme" : @0});
  makeFolder([kPresets stringByAppendingString:@"/dir.plist"]);
  ZunoPresets *page = showPage();
  [page applyPreset:presetPath(@"dir")];
  EXPECT_OBJC_EQ(preferences(kBackup), @{@"theme" : @0});
}

}  // namespace
