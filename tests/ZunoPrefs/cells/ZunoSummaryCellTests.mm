// What a row that opens a list tells of it.
#import "cells/ZunoSummaryCell.h"

#import <Preferences/PSSpecifier.h>

#include <string>

#include "ZunoPrefs/support/BundleTest.h"

namespace {

class SummaryCellTest : public BundleTest {
 protected:
  static PSSpecifier *row(NSDictionary *properties) {
    PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:@"Apps"
                                                      target:nil
                                                         set:@selector(setPreferenceValue:specifier:)
                                                         get:nullptr
                                                      detail:Nil
                                                        cell:PSLinkCell
                                                        edit:Nil];
    for (NSString *key in properties) [row setProperty:[properties objectForKey:key] forKey:key];
    return row;
  }
  ZunoSummaryCell *cell(NSDictionary *properties) {
    ZunoSummaryCell *cell = [[(ZunoSummaryCell *)[classNamed("ZunoSummaryCell") alloc]
        initWithStyle:UITableViewCellStyleDefault
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

TEST_F(SummaryCellTest, ShowsTheFirstNamesAndHowManyMoreThereAreAndSaysAll) {
  EXPECT_EQ(toldOf(@[]), "None|None");
  EXPECT_EQ(toldOf(@[ @"Mail" ]), "Mail|Mail");
  EXPECT_EQ(toldOf((@[ @"Mail", @"Notes" ])), "Mail, Notes|Mail, Notes");
  EXPECT_EQ(toldOf((@[ @"Mail", @"Notes", @"Maps" ])), "Mail, Notes, +1|Mail, Notes, Maps");
  EXPECT_EQ(toldOf((@[ @"A", @"B", @"C", @"D" ])), "A, B, +2|A, B, C, D");
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
  EXPECT_OBJC_EQ([[cell(@{@"names" : @[], @"enabled" : @(NO)}) detailTextLabel] textColor],
                 [UIColor tertiaryLabelColor]);
}

}  // namespace
