// What a row that opens a list tells of it.
#import "cells/ZunoSummaryCell.h"

#import <Preferences/PSSpecifier.h>

#include <string>
#include <vector>

#include "ZunoPrefs/support/BundleTest.h"
#include "support/objc/MethodSpy.h"

namespace {

class SummaryCellTest : public BundleTest {
 protected:
  static PSSpecifier *row(NSDictionary *properties) { return rowNamed(@"Apps", PSLinkCell, properties); }
  ZunoSummaryCell *cell(NSDictionary *properties) {
    ZunoSummaryCell *cell =
        [[(ZunoSummaryCell *)[classNamed("ZunoSummaryCell") alloc] initWithStyle:UITableViewCellStyleDefault
                                                                 reuseIdentifier:@"Summary"
                                                                       specifier:row(properties)] autorelease];
    [cell refreshCellContentsWithSpecifier:[cell specifier]];
    return cell;
  }
  static std::string told(UITableViewCell *cell) {
    const char *shown = [[[cell detailTextLabel] text] UTF8String];
    const char *spoken = [[cell accessibilityValue] UTF8String];
    return std::string(shown ? shown : "nothing") + "|" + (spoken ? spoken : "nothing");
  }
  std::string toldOf(NSArray *names) { return told(cell(@{@"names" : names})); }
};

TEST_F(SummaryCellTest, ShowsTheNamesAndSaysThem) {
  EXPECT_EQ(toldOf(@[]), "None|None");
  EXPECT_EQ(toldOf(@[ @"Mail" ]), "Mail|Mail");
  EXPECT_EQ(toldOf((@[ @"Mail", @"Notes" ])), "Mail, Notes|Mail, Notes");
  EXPECT_EQ(toldOf((@[ @"A", @"B", @"C", @"D" ])), "A, B, C, D|A, B, C, D");
}

TEST_F(SummaryCellTest, WhereThereIsNoRoomTheLastNamesAreCountedAndAllAreSaid) {
  NSArray *names = @[ @"Siri Suggestions", @"Favourites View", @"Music View" ];
  ZunoSummaryCell *made = cell(@{@"names" : names});
  const auto shownAt = [&](CGFloat width) {
    [made setFrame:CGRectMake(0, 0, width, 44)];
    [made layoutIfNeeded];
    UILabel *label = [made detailTextLabel];
    EXPECT_LE([label sizeThatFits:CGSizeMake(CGFLOAT_MAX, CGFLOAT_MAX)].width, CGRectGetWidth([label frame])) << width;
    EXPECT_GE(CGRectGetMinX([label frame]), CGRectGetMaxX([[made textLabel] frame]) + 8) << width;
    EXPECT_OBJC_EQ([made accessibilityValue], @"Siri Suggestions, Favourites View, Music View");
    return std::string([[label text] UTF8String]);
  };
  std::vector<std::string> seen;
  for (CGFloat width = 140; width <= 600; ++width) {
    const std::string text = shownAt(width);
    if (seen.empty() || seen.back() != text) seen.push_back(text);
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"3", "Siri Suggestions, +2", "Siri Suggestions, Favourites View, +1",
                                            "Siri Suggestions, Favourites View, Music View"}));
  EXPECT_EQ(shownAt(358), "Siri Suggestions, +2") << "a phone that was turned back";
}

TEST_F(SummaryCellTest, ASingleNameIsCutAndNotCounted) {
  ZunoSummaryCell *made = cell(@{@"names" : @[ @"An App with a Name Longer Than Any Phone Is Wide" ]});
  [made setFrame:CGRectMake(0, 0, 200, 44)];
  [made layoutIfNeeded];
  EXPECT_EQ(told(made),
            "An App with a Name Longer Than Any Phone Is Wide|An App with a Name Longer Than Any Phone Is Wide");
}

TEST_F(SummaryCellTest, ATextThatFitsAlreadyIsNotSetAgain) {
  ZunoSummaryCell *made = cell(@{@"names" : @[ @"Siri Suggestions", @"Favourites View" ]});
  [made setFrame:CGRectMake(0, 0, 300, 44)];
  [made layoutIfNeeded];
  ASSERT_EQ(told(made).substr(0, 20), "Siri Suggestions, +1");
  int changes = 0;
  const MethodSpy<NSString *> spy([UILabel class], @selector(setText:), [&](id, NSString *) { ++changes; });
  [made setNeedsLayout];
  [made layoutIfNeeded];
  EXPECT_EQ(changes, 0) << "a device lays a cell out again when a text of it is set";
}

TEST_F(SummaryCellTest, WhileNothingIsKnownNothingStandsThere) {
  EXPECT_EQ(told(cell(@{})), "nothing|nothing");
  EXPECT_EQ(told(cell(@{@"names" : @"Mail"})), "nothing|nothing");
}

TEST_F(SummaryCellTest, TheNameOfTheRowIsSaidOnItsOwn) {
  ZunoSummaryCell *made = cell(@{@"names" : @[ @"Mail" ]});
  EXPECT_OBJC_EQ([made accessibilityLabel], @"Apps");
  EXPECT_OBJC_EQ([[made textLabel] text], @"Apps");
  EXPECT_EQ([made accessoryType], UITableViewCellAccessoryDisclosureIndicator);
}

TEST_F(SummaryCellTest, ACellThatServesAnotherRowForgetsTheOneBefore) {
  ZunoSummaryCell *made = cell(@{@"names" : @[ @"Mail" ]});
  [made setSpecifier:row(@{})];
  EXPECT_EQ(told(made), "nothing|nothing");
}

TEST_F(SummaryCellTest, ADisabledRowIsPaler) {
  EXPECT_OBJC_EQ([[cell(@{@"names" : @[]}) detailTextLabel] textColor], [UIColor secondaryLabelColor]);
  ZunoSummaryCell *off = cell(@{@"names" : @[], @"enabled" : @(NO)});
  EXPECT_OBJC_EQ([[off detailTextLabel] textColor], [UIColor tertiaryLabelColor]);
  EXPECT_FALSE([off cellEnabled]);
}

}  // namespace
