// The value beside a slider.
#import "cells/ZunoSliderCell.h"

#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier.h>
#import <UIKit/UISlider+Sim.h>

#include <cmath>
#include <string>

#include "ZunoPrefs/support/BundleTest.h"

namespace {

class SliderCellTest : public BundleTest {
 protected:
  PSSpecifier *row(NSDictionary *properties) { return rowNamed(@"Width", PSSliderCell, properties); }
  ZunoSliderCell *cell(NSDictionary *properties) {
    ZunoSliderCell *cell =
        [[(ZunoSliderCell *)[classNamed("ZunoSliderCell") alloc] initWithStyle:UITableViewCellStyleValue1
                                                               reuseIdentifier:@"Slider"
                                                                     specifier:row(properties)] autorelease];
    [cell refreshCellContentsWithSpecifier:[cell specifier]];
    return cell;
  }
  static UISlider *slider(PSControlTableCell *cell) { return (UISlider *)[cell control]; }
  static UILabel *number(UITableViewCell *cell) { return (UILabel *)[cell accessoryView]; }
  static std::string text(UITableViewCell *cell) { return [[number(cell) text] UTF8String] ?: "none"; }
  /// What is shown for `value` on a slider with these properties.
  std::string shown(float value, NSDictionary *properties) {
    NSMutableDictionary *all = [NSMutableDictionary dictionaryWithDictionary:@{@"min" : @-1000, @"max" : @1000}];
    [all addEntriesFromDictionary:properties];
    ZunoSliderCell *made = cell(all);
    [slider(made) sim_setValueByUser:value finished:NO];
    return text(made);
  }
};

TEST_F(SliderCellTest, TheNumberHasItsUnitAndNoDecimalsUnlessTheRowAsksForThem) {
  EXPECT_EQ(shown(12, @{@"unit" : @"pt"}), "12 pt");
  EXPECT_EQ(shown(12.4f, @{@"unit" : @"pt"}), "12 pt");
  EXPECT_EQ(shown(-20, @{@"unit" : @"pt", @"decimals" : @0}), "-20 pt");
  EXPECT_EQ(shown(25, @{@"unit" : @"%"}), "25 %");
  EXPECT_EQ(shown(7, @{}), "7");
  EXPECT_EQ(shown(7, @{@"unit" : @7}), "7") << "a unit is a text";
  EXPECT_EQ(shown(1.25f, @{@"decimals" : @1}), "1.3");
  EXPECT_EQ(shown(2, @{@"decimals" : @2, @"unit" : @"s"}), "2.00 s");
}

TEST_F(SliderCellTest, AHalfIsRoundedAwayFromZeroAndZeroHasNoSign) {
  EXPECT_EQ(shown(12.5f, @{}), "13") << "12 is the even neighbour";
  EXPECT_EQ(shown(-12.5f, @{}), "-13");
  EXPECT_EQ(shown(-0.4f, @{}), "0");
  EXPECT_EQ(shown(-0.04f, @{@"decimals" : @1}), "0.0");
}

TEST_F(SliderCellTest, OddDecimalsDoNoHarm) {
  EXPECT_EQ(shown(1.5f, @{@"decimals" : @-3}), "2");
  EXPECT_EQ(shown(1.5f, @{@"decimals" : @400}), "1.500000");
  EXPECT_EQ(shown(1.5f, @{@"decimals" : @[ @1 ]}), "2");
}

TEST_F(SliderCellTest, TheNumberIsSpokenByTheSliderAlone) {
  ZunoSliderCell *made = cell(@{@"max" : @60, @"unit" : @"pt", @"spokenUnit" : @"points"});
  [slider(made) sim_setValueByUser:30 finished:NO];
  EXPECT_OBJC_EQ([slider(made) accessibilityValue], @"30 points");
  EXPECT_OBJC_EQ([slider(made) accessibilityLabel], @"Width");
  EXPECT_FALSE([number(made) isAccessibilityElement]);
  ZunoSliderCell *other = cell(@{@"max" : @60, @"unit" : @"pt"});
  [slider(other) sim_setValueByUser:30 finished:YES];
  EXPECT_OBJC_EQ([slider(other) accessibilityValue], @"30 pt");
}

TEST_F(SliderCellTest, TheNumberFollowsTheDragAndTheValueIsStoredAtItsEnd) {
  writePreferences(kMainFile, @{@"quickSwitcher" : @1});
  PSListController *page = [[(PSListController *)[classNamed("ZunoprefsRootListController") alloc] init] autorelease];
  (void)show(page);
  PSSpecifier *width = [page specifierForID:@"quickSwitcherWidthModifier"];
  [[page table] scrollToRowAtIndexPath:[page indexPathForSpecifier:width]
                      atScrollPosition:UITableViewScrollPositionMiddle
                              animated:NO];
  [[page table] layoutIfNeeded];
  auto *made = (PSControlTableCell *)[page cachedCellForSpecifier:width];
  ASSERT_TRUE([made isKindOfClass:classNamed("ZunoSliderCell")]);
  EXPECT_EQ(text(made), "-20 pt");
  EXPECT_OBJC_EQ([[made detailTextLabel] text], nil) << "the number stands there once";
  for (const auto &[value, expected] : {std::pair{-100.f, "-100 pt"}, {0.f, "0 pt"}, {42.7f, "43 pt"}}) {
    [slider(made) sim_setValueByUser:value finished:NO];
    EXPECT_EQ(text(made), expected);
  }
  EXPECT_TRUE(notifications.empty());
  EXPECT_OBJC_EQ([preferences(kMainFile) objectForKey:@"quickSwitcherWidthModifier"], nil);
  [slider(made) sim_setValueByUser:50 finished:YES];
  EXPECT_EQ(text(made), "50 pt");
  EXPECT_OBJC_EQ([preferences(kMainFile) objectForKey:@"quickSwitcherWidthModifier"], @50.0);
  EXPECT_EQ(notifications.size(), 1u);
}

TEST_F(SliderCellTest, AStoredValueThatIsNoFiniteNumberShowsAsTheDefault) {
  PSListController *page =
      [[(PSListController *)[classNamed("ZunoCustomiseRootListController") alloc] init] autorelease];
  (void)show(page);
  const auto shownFor = [&](id stored) {
    writePreferences(kThemeFile, @{@"enabled" : @1, @"blurRadius" : stored});
    [page reloadSpecifiers];
    [[page table] scrollToRowAtIndexPath:[page indexPathForSpecifier:[page specifierForID:@"blurRadius"]]
                        atScrollPosition:UITableViewScrollPositionMiddle
                                animated:NO];
    [[page table] layoutIfNeeded];
    auto *made = (PSControlTableCell *)[page cachedCellForSpecifierID:@"blurRadius"];
    EXPECT_EQ(text(made), std::to_string(std::lround([slider(made) value])) + " pt");
    return text(made);
  };
  for (id odd in @[
         @"40", @[ @40 ], @{}, [NSData data], [NSNumber numberWithDouble:NAN], [NSNumber numberWithDouble:INFINITY],
         [NSNumber numberWithDouble:-INFINITY]
       ]) {
    EXPECT_EQ(shownFor(odd), "12 pt") << [[odd description] UTF8String];
  }
  EXPECT_EQ(shownFor(@1e30), "60 pt") << "beyond the range the nearer end";
  EXPECT_EQ(shownFor(@-3), "0 pt");
  EXPECT_EQ(shownFor(@40), "40 pt");
}

TEST_F(SliderCellTest, AFingerThatLeavesTheSliderStillDragsIt) {
  ZunoSliderCell *made = cell(@{@"max" : @60, @"unit" : @"pt"});
  [slider(made) setValue:30];
  EXPECT_EQ(text(made), "0 pt") << "code that sets a value sends nothing";
  [slider(made) sendActionsForControlEvents:UIControlEventTouchDragOutside];
  EXPECT_EQ(text(made), "30 pt");
}

TEST_F(SliderCellTest, ThereIsRoomForEveryNumberBesideTheSliderWhichKeepsItsLength) {
  ZunoSliderCell *made = cell(@{@"min" : @-100, @"max" : @100, @"unit" : @"pt"});
  [made setFrame:CGRectMake(0, 0, 358, 44)];
  [made layoutIfNeeded];
  const CGRect frame = [slider(made) frame];
  const CGRect place = [number(made) frame];
  const CGRect content = [[made contentView] frame];
  EXPECT_GT(frame.size.width, 200);
  EXPECT_EQ([number(made) textAlignment], NSTextAlignmentRight) << "the unit stands still";
  EXPECT_LE(CGRectGetMaxX([made convertRect:frame fromView:[made contentView]]), place.origin.x);
  EXPECT_LE(CGRectGetMaxX(content), place.origin.x);
  for (int value = -100; value <= 100; ++value) {
    [slider(made) sim_setValueByUser:static_cast<float>(value) finished:NO];
    [made layoutIfNeeded];
    EXPECT_LE([number(made) sizeThatFits:CGSizeMake(CGFLOAT_MAX, CGFLOAT_MAX)].width, place.size.width) << value;
    EXPECT_TRUE(CGRectEqualToRect([slider(made) frame], frame)) << value;
  }
}

TEST_F(SliderCellTest, ACellThatServesAnotherRowShowsThatRowsNumberInThatRowsRoom) {
  ZunoSliderCell *made = cell(@{@"max" : @1, @"unit" : @"s"});
  const CGFloat before = [number(made) frame].size.width;
  [made setSpecifier:row(@{@"min" : @-1000, @"max" : @1000, @"unit" : @"pt", @"decimals" : @2})];
  EXPECT_EQ(text(made), "-1,000.00 pt");
  EXPECT_GT([number(made) frame].size.width, before + 40);
}

TEST_F(SliderCellTest, ADisabledRowHasAPalerNumberAndASliderThatCannotBeMoved) {
  ZunoSliderCell *made = cell(@{@"max" : @60, @"unit" : @"pt"});
  EXPECT_OBJC_EQ([number(made) textColor], [UIColor secondaryLabelColor]);
  EXPECT_TRUE([slider(made) isEnabled]);
  ZunoSliderCell *off = cell(@{@"max" : @60, @"unit" : @"pt", @"enabled" : @(NO)});
  EXPECT_OBJC_EQ([number(off) textColor], [UIColor tertiaryLabelColor]);
  EXPECT_FALSE([slider(off) isEnabled]);
  EXPECT_FALSE([slider(off) sim_setValueByUser:30 finished:YES]);
  EXPECT_EQ(text(off), "0 pt");
}

TEST_F(SliderCellTest, ASliderThatOutlivesItsCellTellsNobody) {
  objcxx::Retained<UISlider> kept;
  @autoreleasepool {
    kept = objcxx::share(slider(cell(@{@"max" : @60})));
  }
  drainPool();
  EXPECT_EQ([[kept.get() allTargets] count], 0u);
  EXPECT_TRUE([kept.get() sim_setValueByUser:30 finished:YES]);
}

}  // namespace
