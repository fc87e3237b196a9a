// Which rows of the theme page show and can be used, and removing the background image.
#import <Foundation/SIMDevice.h>
#import <Preferences/PSSpecifier.h>
#import <Preferences/PSTableCell.h>
#import <dispatch/MainQueue+Sim.h>

#import "theme/ZunoCustomiseRootListController.h"
#import "theme/ZunoImagePickerCell.h"

#include <sys/wait.h>

#include <string>

#include "ZunoPrefs/support/Replaced.h"
#include "ZunoPrefs/support/TracedProgram.h"
#include "ZunoPrefs/theme/ThemeTest.h"
#include "support/objc/DiskFaults.h"

namespace {

NSString *const kPreferences = @"/var/jb/var/mobile/Library/Preferences";
constexpr const char *kAsksToRemove =
    "Remove Photo|Are you sure you would like to remove the background image?|Remove Photo:destructive|Cancel:cancel";

class ThemeRowsTest : public ThemeTest {
 protected:
  ZunoCustomiseRootListController *newPage() {
    return
        [[(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init] autorelease];
  }
  ZunoCustomiseRootListController *shownPage() {
    ZunoCustomiseRootListController *page = newPage();
    (void)show(page);
    return page;
  }
  /// Identifiers of the disabled rows, in order.
  static std::string disabled(PSListController *page) {
    std::string all;
    for (PSSpecifier *row in [page specifiers]) {
      id enabled = [row propertyForKey:@"enabled"];
      if (enabled && ![enabled boolValue]) all += (all.empty() ? "" : ",") + std::string([[row identifier] UTF8String]);
    }
    return all;
  }
  std::string disabledFor(NSDictionary *theme) {
    writePreferences(kThemeFile, theme);
    return disabled(newPage());
  }
  static PSSpecifier *row(PSCellType type, NSString *key, NSString *dependsOn) {
    PSSpecifier *made = [PSSpecifier preferenceSpecifierNamed:key
                                                       target:nil
                                                          set:nullptr
                                                          get:nullptr
                                                       detail:Nil
                                                         cell:type
                                                         edit:Nil];
    [made setProperty:key forKey:@"key"];
    [made setProperty:key forKey:@"id"];
    if (dependsOn) [made setProperty:dependsOn forKey:@"dependsOn"];
    return made;
  }
  /// Identifiers of the rows for the photo, in order.
  static std::string photoRows(PSListController *page) {
    std::string all;
    for (NSString *identifier in @[ @"backgroundImage", @"SelectImage", @"RemoveImage" ]) {
      if (![page specifierForID:identifier]) continue;
      all += (all.empty() ? "" : ",") + std::string([identifier UTF8String]);
    }
    return all;
  }
  NSString *encoded(UIColor *colour) { return [newPage() encodeToBase64String:picture(16, colour)]; }

  static inline const std::string kSystems = "blurRadius,dimming";
  static inline const std::string kCards = "cornerRadius,spacing,appearance,backgroundColour,titleColour,badgeColour";
};

TEST_F(ThemeRowsTest, TheSwitchesDisableWhatDependsOnThem) {
  const std::string all = "useCustom," + kSystems + "," + kCards;
  EXPECT_EQ(disabled(newPage()), all) << "without a file both are off";
  EXPECT_EQ(disabledFor(@{}), all);
  EXPECT_EQ(disabledFor(@{@"enabled" : @0, @"useCustom" : @1}), all) << "a switch that is disabled counts as off";
  EXPECT_EQ(disabledFor(@{@"enabled" : @1}), kCards);
  EXPECT_EQ(disabledFor(@{@"enabled" : @(YES), @"useCustom" : @(NO)}), kCards);
  EXPECT_EQ(disabledFor(@{@"enabled" : @1, @"useCustom" : @1}), "");
  EXPECT_EQ(disabledFor(@{@"useCustom" : @1}), all);
}

TEST_F(ThemeRowsTest, ASwitchIsTakenAsThePreviewAndTheSwitcherTakeIt) {
  for (id odd in @[ @[ @1 ], @{}, @"no", @"1", [NSData data], [NSNumber numberWithDouble:NAN] ]) {
    EXPECT_EQ(disabledFor(@{@"enabled" : odd}).substr(0, 10), "useCustom,") << [[odd description] UTF8String];
  }
  write(kThemeFile, "damaged");
  EXPECT_EQ(disabled(newPage()).substr(0, 10), "useCustom,");
  EXPECT_EQ(disabledFor(@{@"enabled" : @1, @"useCustom" : @"1"}), kCards) << "a text is no truth value";
  EXPECT_EQ(disabledFor(@{@"enabled" : @-0.5, @"useCustom" : @2}), "") << "on for every number but 0";
}

TEST_F(ThemeRowsTest, ARowsOwnSwitchComesBeforeThatOfItsGroupAndOnlySwitchesCount) {
  using Loading = NSArray *(id, SEL, NSString *, id);
  writePreferences(kThemeFile, @{@"on" : @1, @"number" : @1});
  const Replaced<Loading> rows([PSListController class], @selector(loadSpecifiersFromPlistName:target:),
                               [](id, SEL, NSString *, id) {
                                 PSSpecifier *group = row(PSGroupCell, @"group", @"off");
                                 return @[
                                   row(PSSwitchCell, @"on", nil), row(PSSliderCell, @"number", nil), group,
                                   row(PSSliderCell, @"ofSwitch", @"on"), row(PSSliderCell, @"ofGroup", nil),
                                   row(PSSliderCell, @"ofNumber", @"number")
                                 ];
                               });
  EXPECT_EQ(disabled(newPage()), "ofGroup,ofNumber") << "a slider is no switch";
}

TEST_F(ThemeRowsTest, AFlippedSwitchEnablesItsRowsAtOnce) {
  ZunoCustomiseRootListController *page = shownPage();
  for (NSString *key in @[ @"enabled", @"useCustom" ])
    [page setPreferenceValue:@(YES) specifier:[page specifierForID:key]];
  EXPECT_EQ(disabled(page), "");
  [page setPreferenceValue:@(NO) specifier:[page specifierForID:@"useCustom"]];
  EXPECT_EQ(disabled(page), kCards);
  EXPECT_OBJC_EQ(preferences(kThemeFile), (@{@"enabled" : @1, @"useCustom" : @0}));
}

TEST_F(ThemeRowsTest, ADisabledRowOfEveryKindLooksSoAndRefusesATap) {
  ZunoCustomiseRootListController *page = shownPage();
  int rows = 0;
  for (PSSpecifier *row in [page specifiers]) {
    if ([row cellType] == PSGroupCell) continue;
    NSIndexPath *place = [page indexPathForSpecifier:row];
    [[page table] scrollToRowAtIndexPath:place atScrollPosition:UITableViewScrollPositionMiddle animated:NO];
    [[page table] layoutIfNeeded];
    PSTableCell *cell = [page cachedCellForSpecifier:row];
    ASSERT_TRUE(cell != nil) << [[row identifier] UTF8String];
    const bool isDisabled = [row propertyForKey:@"enabled"] != nil;
    EXPECT_EQ(static_cast<bool>([cell cellEnabled]), !isDisabled) << [[row identifier] UTF8String];
    if (!isDisabled) continue;
    ++rows;
    EXPECT_FALSE([page tableView:[page table] shouldHighlightRowAtIndexPath:place]) << [[row identifier] UTF8String];
    id control = [row propertyForKey:@"control"];
    if (control) EXPECT_FALSE([control isEnabled]) << [[row identifier] UTF8String];
  }
  EXPECT_EQ(rows, 9);
}

TEST_F(ThemeRowsTest, OneRowIsThereToChooseAPhotoAndOneToRemoveItWhileThereIsOne) {
  ZunoCustomiseRootListController *page = shownPage();
  EXPECT_EQ(photoRows(page), "SelectImage");
  EXPECT_OBJC_EQ([[page specifierForID:@"SelectImage"] propertyForKey:@"action"], @"selectImage");
  writePreferences(kThemeFile, @{@"backgroundImage" : encoded([UIColor redColor])});
  [page reloadSpecifiers];
  EXPECT_EQ(photoRows(page), "backgroundImage,RemoveImage");
  for (id odd in @[ @"no picture", @7, @[ @"x" ], @"" ]) {
    writePreferences(kThemeFile, @{@"backgroundImage" : odd});
    EXPECT_EQ(photoRows(newPage()), "backgroundImage,RemoveImage") << "what is there can be replaced and removed";
  }
  write(kThemeFile, "damaged");
  EXPECT_EQ(photoRows(newPage()), "SelectImage");
}

TEST_F(ThemeRowsTest, ThePageThatAppearsAgainHasTheRowsForThePhotoOfAnAppliedPreset) {
  ZunoCustomiseRootListController *page = newPage();
  UINavigationController *navigation = show(page);
  const auto returnWith = [&](NSDictionary *theme) {
    [navigation pushViewController:[[[UIViewController alloc] init] autorelease] animated:YES];
    writePreferences(kThemeFile, theme);
    [navigation popViewControllerAnimated:YES];
    return photoRows(page);
  };
  EXPECT_EQ(returnWith(@{@"backgroundImage" : @"x"}), "backgroundImage,RemoveImage");
  EXPECT_EQ(returnWith(@{@"spacing" : @1}), "SelectImage");
}

TEST_F(ThemeRowsTest, APhotoIsReplacedByTheImageCellAndThenRemoved) {
  makePhotoLibrary();
  ZunoCustomiseRootListController *page = shownPage();
  [page selectImage];
  [page imagePickerController:(UIImagePickerController *)[page presentedViewController]
      didFinishPickingMediaWithInfo:picked(picture(16, [UIColor redColor]))];
  SIMDrainMainQueue();
  [[page table] layoutIfNeeded];
  auto *cell = (ZunoImagePickerCell *)[page cachedCellForSpecifierID:@"backgroundImage"];
  ASSERT_TRUE([cell isKindOfClass:classNamed("ZunoImagePickerCell")]);
  EXPECT_EQ(colourOf([[cell imageView] image]), "255,0,0");
  NSArray *rows = [page specifiers];
  [cell openImagePicker];
  [cell imagePickerController:(UIImagePickerController *)[page presentedViewController]
      didFinishPickingMediaWithInfo:picked(picture(16, [UIColor greenColor]))];
  SIMDrainMainQueue();
  EXPECT_EQ([page specifiers], rows);
  EXPECT_EQ(photoRows(page), "backgroundImage,RemoveImage");
  EXPECT_EQ(colourOf(storedPicture()), "0,255,0");

  [page removeImage];
  EXPECT_EQ(describe(alertOf(page)), kAsksToRemove);
  tapAction(page, "Cancel");
  EXPECT_EQ(colourOf(storedPicture()), "0,255,0");
  [page removeImage];
  tapAction(page, "Remove Photo");
  EXPECT_OBJC_EQ(preferences(kThemeFile), @{});
  EXPECT_EQ(photoRows(page), "SelectImage");
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ThemeRowsTest, RemovingTakesOutThePhotoAndNothingElse) {
  NSDictionary *others = @{@"enabled" : @(YES), @"spacing" : @3.5, @"device" : @"Tablet 🎉", @"unknown" : @[ @1, @{} ]};
  NSMutableDictionary *theme = [[others mutableCopy] autorelease];
  [theme setObject:encoded([UIColor redColor]) forKey:@"backgroundImage"];
  writePreferences(kThemeFile, theme);
  ZunoCustomiseRootListController *page = shownPage();
  [page removeImage];
  tapAction(page, "Remove Photo");
  EXPECT_OBJC_EQ(preferences(kThemeFile), others);
  EXPECT_EQ(listing(kPreferences), "com.norvik.Zunoprefs.theme.plist");
}

TEST_F(ThemeRowsTest, WhereThereIsNothingToRemoveNothingIsWritten) {
  const auto remove = [&] {
    ZunoCustomiseRootListController *page = shownPage();
    [page removeImage];
    tapAction(page, "Remove Photo");
  };
  remove();
  EXPECT_FALSE(exists(kThemeFile));
  for (const std::string content : {"damaged", "<plist><array/></plist>", "{ spacing = 1; }", ""}) {
    write(kThemeFile, content);
    remove();
    EXPECT_EQ(read(kThemeFile), content);
    EXPECT_EQ(listing(kPreferences), "com.norvik.Zunoprefs.theme.plist");
  }
}

TEST_F(ThemeRowsTest, OnAFullDiskOrInAReadOnlyFolderThePhotoStays) {
  NSString *rest = [@"" stringByPaddingToLength:200'000 withString:@"x" startingAtIndex:0];
  writePreferences(kThemeFile, @{@"backgroundImage" : encoded([UIColor redColor]), @"rest" : rest});
  const std::string before = read(kThemeFile);
  ZunoCustomiseRootListController *page = shownPage();
  [page removeImage];
  {
    const FullDisk full(64 * 1024);
    tapAction(page, "Remove Photo");
  }
  EXPECT_TRUE(read(kThemeFile) == before);
  EXPECT_EQ(listing(kPreferences), "com.norvik.Zunoprefs.theme.plist");
  EXPECT_EQ(photoRows(page), "backgroundImage,RemoveImage") << "the page shows what is on the disk";
  [page removeImage];
  {
    const ReadOnlyFolder folder(path(kPreferences));
    tapAction(page, "Remove Photo");
  }
  EXPECT_TRUE(read(kThemeFile) == before);
}

TEST_F(ThemeRowsTest, ARemovalKilledAtAnyChangeOfTheDiskLeavesTheOldFileOrTheNewOne) {
  NSString *rest = [@"" stringByPaddingToLength:200'000 withString:@"x" startingAtIndex:0];
  NSDictionary *without = @{@"rest" : rest};
  NSMutableDictionary *with = [[without mutableCopy] autorelease];
  [with setObject:@"photo" forKey:@"backgroundImage"];
  int kills = 0;
  for (int call = 1;; ++call) {
    writePreferences(kThemeFile, with);
    TracedProgram program({BUILD_FOLDER "/tests/support/kill/theme_change",
                           [SIMDeviceFolder() fileSystemRepresentation], "remove", "backgroundImage"});
    const int status = program.runUntil(call);
    NSDictionary *left = preferences(kThemeFile);
    if (WIFEXITED(status)) {
      EXPECT_EQ(WEXITSTATUS(status), 0);
      EXPECT_OBJC_EQ(left, without);
      break;
    }
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "status " << status;
    EXPECT_TRUE([left isEqual:with] || [left isEqual:without]) << "in part at call " << call;
    ++kills;
  }
  EXPECT_GE(kills, 3) << "opening, writing and moving are changes of their own";
}

TEST_F(ThemeRowsTest, AQuickLookForThePhotoFindsWhatAWholeReadingFinds) {
  for (id value in @[ @"text", @7, @[ @"x" ], [NSData dataWithBytes:"x" length:1], [NSDate date], @(NO) ]) {
    writePreferences(kThemeFile, @{@"backgroundImage" : value});
    EXPECT_EQ(photoRows(newPage()), "backgroundImage,RemoveImage") << [[value description] UTF8String];
  }
  writePreferences(kThemeFile, @{@"nested" : @{@"backgroundImage" : @"x"}, @"backgroundImages" : @"x"});
  EXPECT_EQ(photoRows(newPage()), "SelectImage");
}

}  // namespace
