// The rows of colours, from the tap to the theme file.
#import "theme/ZunoColourCell.h"

#import <CoreGraphics/CGColor+Sim.h>
#import <Preferences/PSSpecifier.h>
#import <UIKit/UIColorPickerViewController+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UIWindow+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include <cmath>
#include <set>
#include <utility>

#import "theme/ZunoCustomiseRootListController.h"

#include "ZunoPrefs/theme/ThemeTest.h"

/// A colour of a wider space, as a device gives its parts.
@interface WideColour : UIColor
@end

@implementation WideColour
- (BOOL)getRed:(CGFloat *)red green:(CGFloat *)green blue:(CGFloat *)blue alpha:(CGFloat *)alpha {
  *red = 1.2;
  *green = -0.3;
  *blue = 0.5;
  *alpha = 1;
  return YES;
}
@end

namespace {

const std::vector<std::string> kPostedOnce{"com.norvik.Zuno.theme"};

class ColourRowTest : public ThemeTest {
 protected:
  ZunoCustomiseRootListController *showPage() {
    page_ =
        objcxx::adopt([(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init]);
    navigation_ = show(page_.get());
    return page_.get();
  }
  void SetUp() override {
    ThemeTest::SetUp();
    writeTheme(@{});
  }
  void TearDown() override {
    UIWindow *window = [[UIApplication sharedApplication] keyWindow];
    [window sim_changeScreenToSize:CGSizeMake(390, 844) scale:3 safeArea:UIEdgeInsetsZero];
    ThemeTest::TearDown();
  }
  /// Values beside the switches that let colours be chosen.
  static NSDictionary *withSwitches(NSDictionary *values) {
    NSMutableDictionary *theme = [NSMutableDictionary dictionaryWithDictionary:values];
    [theme addEntriesFromDictionary:@{@"enabled" : @1, @"useCustom" : @1}];
    return theme;
  }
  void writeTheme(NSDictionary *values) { writePreferences(kThemeFile, withSwitches(values)); }
  PSSpecifier *row(NSString *key) { return [page_.get() specifierForID:key]; }
  /// The row's cell, once it is in sight.
  ZunoColourCell *cellOf(NSString *key) {
    UITableView *table = [page_.get() table];
    [table scrollToRowAtIndexPath:[page_.get() indexPathForSpecifier:row(key)]
                 atScrollPosition:UITableViewScrollPositionMiddle
                         animated:NO];
    [table layoutIfNeeded];
    id cell = [page_.get() cachedCellForSpecifierID:key];
    EXPECT_TRUE([cell isKindOfClass:classNamed("ZunoColourCell")]) << [key UTF8String];
    return cell;
  }
  std::string shown(NSString *key) { return [[[cellOf(key) detailTextLabel] text] UTF8String] ?: "none"; }

  /// Taps the row; what is presented then.
  UIColorPickerViewController *open(NSString *key) {
    (void)cellOf(key);
    EXPECT_TRUE([[page_.get() table] sim_tapRowAtIndexPath:[page_.get() indexPathForSpecifier:row(key)]]);
    return picker();
  }
  UIColorPickerViewController *picker() {
    id presented = [navigation_ presentedViewController];
    return [presented isKindOfClass:[UIColorPickerViewController class]] ? presented : nil;
  }
  void close() {
    [picker() sim_close];
    SIMDrainMainQueue();
    EXPECT_EQ([navigation_ presentedViewController], nil);
  }
  static UIColor *colour(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha = 1) {
    return [UIColor colorWithRed:red green:green blue:blue alpha:alpha];
  }
  static std::string text(UIColor *colour) {
    const sim::RGBA parts = sim::components([colour CGColor]);
    std::string text;
    for (const double part : {parts.red, parts.green, parts.blue, parts.alpha}) {
      text += (text.empty() ? "" : ",") + std::to_string(std::lround(part * 255));
    }
    return text;
  }
  static UIImage *swatchOf(ZunoColourCell *cell) {
    for (UIView *view in [[cell accessoryView] subviews]) {
      if ([view isKindOfClass:[UIImageView class]]) return [(UIImageView *)view image];
    }
    return nil;
  }
  /// Nil while it does not show.
  static UIButton *removeButton(ZunoColourCell *cell) {
    for (UIView *view in [[cell accessoryView] subviews]) {
      if ([view isKindOfClass:[UIButton class]] && ![view isHidden]) return (UIButton *)view;
    }
    return nil;
  }
  id stored(NSString *key) { return [preferences(kThemeFile) objectForKey:key]; }

  UINavigationController *navigation_ = nil;  // Owned by its window.
  objcxx::Retained<ZunoCustomiseRootListController> page_;
};

TEST_F(ColourRowTest, ARowShowsItsNameItsValueAndItsColour) {
  writeTheme(@{@"backgroundColour" : @"ff8000", @"titleColour" : @"00FF0033"});
  (void)showPage();
  EXPECT_OBJC_EQ([[cellOf(@"backgroundColour") textLabel] text], @"Background");
  EXPECT_EQ(shown(@"backgroundColour"), "FF8000");
  EXPECT_EQ(colourOf(swatchOf(cellOf(@"backgroundColour"))), "255,128,0");
  EXPECT_EQ(shown(@"titleColour"), "00FF0033");
  EXPECT_EQ(shown(@"badgeColour"), "System");
  EXPECT_EQ(removeButton(cellOf(@"badgeColour")), nil);
  EXPECT_OBJC_EQ([removeButton(cellOf(@"titleColour")) accessibilityLabel], @"Use System Colour for Titles");
}

TEST_F(ColourRowTest, WhatIsNotOpaqueLetsSquaresShow) {
  writeTheme(@{@"backgroundColour" : @"00000000", @"titleColour" : @"FFFFFF"});
  (void)showPage();
  const auto tones = [&](NSString *key) {
    UIImage *image = swatchOf(cellOf(key));
    CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider([image CGImage]));
    const size_t width = CGImageGetWidth([image CGImage]), height = CGImageGetHeight([image CGImage]);
    std::set<int> found;
    const UInt8 *bytes = CFDataGetBytePtr(data);
    for (size_t x = width / 4; x < width * 3 / 4; ++x) found.insert(bytes[(height * 3 / 8 * width + x) * 4]);
    EXPECT_EQ(bytes[3], 0) << "the corners are clear: it is round";
    EXPECT_LT(bytes[(height / 2 * width) * 4], 200) << "an edge sets white off from a white row";
    CFRelease(data);
    return found;
  };
  EXPECT_EQ(tones(@"backgroundColour"), (std::set<int>{170, 255}));
  EXPECT_EQ(tones(@"titleColour"), std::set<int>{255});
}

TEST_F(ColourRowTest, AValueThatIsNoColourIsSaidSoAndCanBeReplacedAndRemoved) {
  NSArray *odd = @[
    @"#FF0000", @"red", @"FFF", @" FF0000", @"FF0000\n", @7, @1.5, @(YES), @[ @"FF0000" ], @{@"FF0000" : @"FF0000"},
    [NSData dataWithBytes:"FF0000" length:6], [NSDate dateWithTimeIntervalSince1970:0], @"🌊 ÅÄÖ", @"ＦＦ００００",
    [@"" stringByPaddingToLength:1 << 20 withString:@"F" startingAtIndex:0]
  ];
  (void)showPage();
  for (id value in odd) {
    NSString *hint = [[value description] length] > 40 ? @"a long text" : [value description];
    for (const bool replaces : {true, false}) {
      writeTheme(@{@"titleColour" : value, @"spacing" : @3});
      [page_.get() reloadSpecifiers];
      EXPECT_EQ(shown(@"titleColour"), "Not a colour") << [hint UTF8String];
      if (replaces) {
        EXPECT_EQ(text([open(@"titleColour") selectedColor]), "255,255,255,255") << "the row's suggestion";
        [picker() sim_selectColorByUser:colour(0, 0, 1) continuously:NO];
        close();
      } else {
        EXPECT_TRUE([removeButton(cellOf(@"titleColour")) sim_tapByUser]);
      }
      EXPECT_OBJC_EQ(preferences(kThemeFile), withSwitches(
                                                  @{@"titleColour" : replaces ? @"0000FF" : @"",
                                                    @"spacing" : @3}))
          << [hint UTF8String];
      EXPECT_EQ(shown(@"titleColour"), replaces ? "0000FF" : "System");
    }
  }
}

TEST_F(ColourRowTest, ATapOpensThePickerWithTheColour) {
  writeTheme(@{@"backgroundColour" : @"FF800033"});
  (void)showPage();
  UIColorPickerViewController *opened = open(@"backgroundColour");
  ASSERT_NE(opened, nil);
  EXPECT_EQ(text([opened selectedColor]), "255,128,0,51");
  EXPECT_TRUE([opened supportsAlpha]);
  EXPECT_OBJC_EQ([opened title], @"Background");
  close();
  EXPECT_EQ(text([open(@"badgeColour") selectedColor]), "255,59,48,255") << "a row without a colour suggests one";
  close();
  EXPECT_OBJC_EQ(preferences(kThemeFile), withSwitches(@{@"backgroundColour" : @"FF800033"}))
      << "looking stores nothing";
  EXPECT_TRUE(notifications.empty());
}

TEST_F(ColourRowTest, AColourIsStoredOnceWhenTheFingerIsLifted) {
  writeTheme(@{@"unknown" : @"kept"});
  (void)showPage();
  UIColorPickerViewController *opened = open(@"titleColour");
  [opened sim_selectColorByUser:colour(1, 0, 0) continuously:YES];
  [opened sim_selectColorByUser:colour(1, 0.5, 0) continuously:YES];
  EXPECT_OBJC_EQ(preferences(kThemeFile), withSwitches(@{@"unknown" : @"kept"}));
  [opened sim_selectColorByUser:colour(1, 0.5, 0) continuously:NO];
  EXPECT_OBJC_EQ(preferences(kThemeFile), withSwitches(@{@"unknown" : @"kept", @"titleColour" : @"FF8000"}));
  EXPECT_EQ(notifications, kPostedOnce);
  EXPECT_EQ(shown(@"titleColour"), "FF8000") << "at once, below the picker";
  [opened sim_selectColorByUser:colour(1, 0.5, 0) continuously:NO];
  close();
  EXPECT_EQ(notifications, kPostedOnce) << "the same colour is stored once";
  const std::string entry = "<key>titleColour</key>\n\t<string>FF8000</string>";
  EXPECT_NE(read(kThemeFile).find(entry), std::string::npos) << read(kThemeFile);
  EXPECT_FALSE(exists(kMainFile));
}

TEST_F(ColourRowTest, TwoColoursInOnePickerAreTwoChanges) {
  (void)showPage();
  UIColorPickerViewController *opened = open(@"titleColour");
  [opened sim_selectColorByUser:colour(1, 0, 0) continuously:NO];
  [opened sim_selectColorByUser:colour(0, 1, 0) continuously:NO];
  [opened sim_selectColorByUser:colour(1, 0, 0) continuously:NO];
  EXPECT_OBJC_EQ(stored(@"titleColour"), @"FF0000");
  EXPECT_EQ(notifications.size(), 3u);
}

TEST_F(ColourRowTest, ADragThatIsNeverEndedIsStoredWhenThePickerGoes) {
  (void)showPage();
  [open(@"titleColour") sim_selectColorByUser:colour(0, 1, 1) continuously:YES];
  close();
  EXPECT_OBJC_EQ(stored(@"titleColour"), @"00FFFF");
  EXPECT_EQ(notifications, kPostedOnce);
}

TEST_F(ColourRowTest, OpacityIsStoredOnlyWhereThereIsSome) {
  (void)showPage();
  UIColorPickerViewController *opened = open(@"badgeColour");
  for (const auto &[alpha, expected] : {std::pair{0.2, @"FF000033"}, std::pair{0.0, @"FF000000"},
                                        std::pair{0.999, @"FF0000"}, std::pair{0.997, @"FF0000FE"}}) {
    [opened sim_selectColorByUser:colour(1, 0, 0, alpha) continuously:NO];
    EXPECT_OBJC_EQ(stored(@"badgeColour"), expected);
  }
  [opened sim_selectColorByUser:[UIColor colorWithWhite:0.5 alpha:1] continuously:NO];
  EXPECT_OBJC_EQ(stored(@"badgeColour"), @"808080") << "a grey has the three parts too";
}

TEST_F(ColourRowTest, WideColoursAreBroughtIntoTheRange) {
  (void)showPage();
  UIColorPickerViewController *opened = open(@"badgeColour");
  UIColor *wide = [[[WideColour alloc] init] autorelease];
  [(id<UIColorPickerViewControllerDelegate>)[opened delegate] colorPickerViewController:opened
                                                                         didSelectColor:wide
                                                                           continuously:NO];
  EXPECT_OBJC_EQ(stored(@"badgeColour"), @"FF0080");
}

TEST_F(ColourRowTest, RemovingLeavesTheColourToTheSystem) {
  writeTheme(@{@"titleColour" : @"FF0000", @"spacing" : @3});
  (void)showPage();
  EXPECT_TRUE([removeButton(cellOf(@"titleColour")) sim_tapByUser]);
  EXPECT_OBJC_EQ(preferences(kThemeFile), withSwitches(@{@"titleColour" : @"", @"spacing" : @3}));
  EXPECT_EQ(notifications, kPostedOnce);
  EXPECT_EQ(shown(@"titleColour"), "System");
  EXPECT_EQ(removeButton(cellOf(@"titleColour")), nil);
  EXPECT_EQ([navigation_ presentedViewController], nil) << "the row itself was not tapped";
  EXPECT_EQ(text([open(@"titleColour") selectedColor]), "255,255,255,255");
}

TEST_F(ColourRowTest, ARowThatIsOffTakesNoTaps) {
  writeTheme(@{@"titleColour" : @"FF0000"});
  (void)showPage();
  [row(@"titleColour") setProperty:@(NO) forKey:PSEnabledKey];
  [page_.get() reloadSpecifierID:@"titleColour"];
  EXPECT_FALSE([removeButton(cellOf(@"titleColour")) sim_tapByUser]);
  [[page_.get() table] sim_tapRowAtIndexPath:[page_.get() indexPathForSpecifier:row(@"titleColour")]];
  EXPECT_EQ([navigation_ presentedViewController], nil);
  EXPECT_OBJC_EQ(stored(@"titleColour"), @"FF0000");
}

TEST_F(ColourRowTest, ThePageMayBeRebuiltWhileThePickerIsOpen) {
  (void)showPage();
  UIColorPickerViewController *opened = open(@"titleColour");
  PSSpecifier *before = row(@"titleColour");
  [page_.get() setPreferenceValue:@1 specifier:row(@"enabled")];
  drainPool();
  ASSERT_NE(row(@"titleColour"), before);
  [opened sim_selectColorByUser:colour(0, 1, 0) continuously:NO];
  EXPECT_OBJC_EQ(stored(@"titleColour"), @"00FF00");
  EXPECT_EQ(shown(@"titleColour"), "00FF00") << "the row of the new page";
}

TEST_F(ColourRowTest, ACellThatShowsAnotherRowMeanwhileDoesNotMatter) {
  (void)showPage();
  UIColorPickerViewController *opened = open(@"titleColour");
  ZunoColourCell *cell = cellOf(@"titleColour");
  [cell setSpecifier:row(@"badgeColour")];
  EXPECT_OBJC_EQ([[cell textLabel] text], @"Badges");
  [opened sim_selectColorByUser:colour(0, 1, 0) continuously:NO];
  EXPECT_OBJC_EQ(preferences(kThemeFile), withSwitches(@{@"titleColour" : @"00FF00"})) << "the row that was tapped";
}

TEST_F(ColourRowTest, ACellThatIsUsedAgainRemovesTheColourOfTheRowThatItShows) {
  writeTheme(@{@"titleColour" : @"FF0000", @"badgeColour" : @"00FF00"});
  (void)showPage();
  ZunoColourCell *cell = cellOf(@"titleColour");
  [cell prepareForReuse];
  [cell setSpecifier:row(@"badgeColour")];
  EXPECT_EQ(colourOf(swatchOf(cell)), "0,255,0");
  EXPECT_OBJC_EQ([removeButton(cell) accessibilityLabel], @"Use System Colour for Badges");
  EXPECT_TRUE([removeButton(cell) sim_tapByUser]);
  EXPECT_OBJC_EQ(preferences(kThemeFile), withSwitches(@{@"titleColour" : @"FF0000", @"badgeColour" : @""}));
}

TEST_F(ColourRowTest, APageThatGoesLeavesThePickerAtWork) {
  UIViewController *first = [[[UIViewController alloc] init] autorelease];
  navigation_ = show(first);
  @autoreleasepool {
    page_ =
        objcxx::adopt([(ZunoCustomiseRootListController *)[classNamed("ZunoCustomiseRootListController") alloc] init]);
    [navigation_ pushViewController:page_.get() animated:NO];
    UIColorPickerViewController *opened = open(@"titleColour");
    [navigation_ popViewControllerAnimated:NO];
    page_ = nullptr;
    EXPECT_NE(opened, nil);
  }
  SIMDrainMainQueue();
  drainPool();
  ASSERT_NE(picker(), nil);
  [picker() sim_selectColorByUser:colour(0, 1, 0) continuously:NO];
  EXPECT_OBJC_EQ(stored(@"titleColour"), @"00FF00");
  EXPECT_EQ(notifications, kPostedOnce);
  close();
}

TEST_F(ColourRowTest, APickerThatIsDismissedByOthersLeavesNothingBehind) {
  (void)showPage();
  objcxx::Retained<UIColorPickerViewController> opened;
  @autoreleasepool {
    opened = objcxx::share(open(@"titleColour"));
    [opened.get() sim_selectColorByUser:colour(1, 0, 0) continuously:NO];
    [navigation_ dismissViewControllerAnimated:NO completion:nil];
  }
  EXPECT_EQ([opened.get() retainCount], 1u) << "nobody else keeps it";
  [opened.get() sim_selectColorByUser:colour(0, 1, 0) continuously:NO];
  EXPECT_OBJC_EQ(stored(@"titleColour"), @"00FF00") << "a last word from a picker on its way out counts";
}

TEST_F(ColourRowTest, OnALargeScreenThePickerPointsToItsRow) {
  (void)showPage();
  UIWindow *window = [[navigation_ view] window];
  [window sim_changeScreenToSize:CGSizeMake(820, 1180) scale:2 safeArea:UIEdgeInsetsZero];
  UIColorPickerViewController *opened = open(@"titleColour");
  ASSERT_NE(opened, nil);
  EXPECT_EQ([[opened popoverPresentationController] sourceView], cellOf(@"titleColour"));
  EXPECT_GT([[opened popoverPresentationController] sourceRect].size.width, 100);
  close();
}

TEST_F(ColourRowTest, ACellOutlivesItsRowAndItsPage) {
  writeTheme(@{@"titleColour" : @"FF0000"});
  objcxx::Retained<ZunoColourCell> cell;
  @autoreleasepool {
    (void)showPage();
    cell = objcxx::share(cellOf(@"titleColour"));
    (void)show([[[UIViewController alloc] init] autorelease]);
    page_ = nullptr;
  }
  drainPool();
  [cell.get() setSpecifier:nil];
  [cell.get() removeColour];
  EXPECT_OBJC_EQ(stored(@"titleColour"), @"FF0000");
}

}  // namespace
