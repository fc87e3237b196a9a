// The page of choices behind a link list row.
#import <dispatch/MainQueue+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

@interface ChoosingPage : TestPage
@end
@implementation ChoosingPage
- (NSArray *)numbers:(PSSpecifier *)specifier {
  (void)specifier;
  return @[ @10, @20 ];
}
- (NSArray *)names:(PSSpecifier *)specifier {
  (void)specifier;
  return @[ @"Ten", @"Twenty" ];
}
@end

namespace {

class PSListItemsControllerTest : public PreferencesTest {
 protected:
  PSListItemsController *open(NSDictionary *more, id value = nil) {
    NSMutableDictionary *item = [NSMutableDictionary dictionaryWithDictionary:@{
      @"cell" : @"PSLinkListCell",
      @"label" : @"Size",
      @"key" : @"size",
      @"detail" : @"PSListItemsController",
      @"validValues" : @[ @1, @2, @3 ],
      @"validTitles" : @[ @"Small", @"Medium", @"Large" ]
    }];
    [item addEntriesFromDictionary:more];
    writeList(@[ item ]);
    parent_ = [[[ChoosingPage alloc] init] autorelease];
    parent_->_testBundle = [bundle() retain];
    if (value) [parent_->_store setObject:value forKey:@"size"];
    show(parent_);
    tap(parent_, @"Size");
    return (PSListItemsController *)top();
  }
  static std::string checked(PSListController *page) {
    std::string result;
    for (NSInteger row = 0; row < [page rowsForGroup:0]; ++row) {
      PSSpecifier *item = [page specifierAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]];
      if ([cell(page, [item identifier]) isChecked]) result += text([item name]);
    }
    return result;
  }
  ChoosingPage *parent_ = nil;
};

TEST_F(PSListItemsControllerTest, ShowsEveryChoiceAndChecksTheCurrentOne) {
  PSListItemsController *page = open(@{@"staticTextMessage" : @"A note", @"staticHeaderText" : @"Head"}, @2);
  ASSERT_TRUE([page isMemberOfClass:[PSListItemsController class]]);
  EXPECT_OBJC_EQ([page title], @"Size");
  EXPECT_EQ(rows(page), "[Head] Small Medium Large");
  EXPECT_EQ(checked(page), "Medium");
  EXPECT_OBJC_EQ([[page specifierAtIndex:0] propertyForKey:PSFooterTextGroupKey], @"A note");
  EXPECT_OBJC_EQ([[page specifierAtIndex:3] identifier], @"3");
}

TEST_F(PSListItemsControllerTest, ATapStoresAtOnceAndStays) {
  PSListItemsController *page = open(@{}, @2);
  EXPECT_TRUE(tap(page, @"3"));
  EXPECT_EQ(checked(page), "Large");
  EXPECT_OBJC_EQ([parent_->_store objectForKey:@"size"], @3);
  EXPECT_EQ(top(), page);
  [navigation() popViewControllerAnimated:NO];
  SIMDrainMainQueue();
  EXPECT_OBJC_EQ([[cell(parent_, @"Size") detailTextLabel] text], @"Large");
  EXPECT_EQ([parent_->_calls count], 1u);
}

TEST_F(PSListItemsControllerTest, AnUnknownValueChecksNothing) {
  EXPECT_EQ(checked(open(@{}, @9)), "");
  EXPECT_EQ(checked(open(@{}, @[])), "");
  EXPECT_EQ(checked(open(@{})), "");
}

TEST_F(PSListItemsControllerTest, ADeferredChoiceIsStoredOnLeaving) {
  PSListItemsController *page = open(@{@"deferItemSelection" : @1}, @1);
  tap(page, @"2");
  tap(page, @"3");
  EXPECT_OBJC_EQ(parent_->_calls, @[]);
  [navigation() popViewControllerAnimated:NO];
  EXPECT_OBJC_EQ(parent_->_calls, @[ @"set size=3" ]);
}

TEST_F(PSListItemsControllerTest, ChoicesMayComeFromTheTarget) {
  PSListItemsController *page = open(@{@"valuesDataSource" : @"numbers:", @"titlesDataSource" : @"names:"}, @20);
  EXPECT_EQ(rows(page), "[] Ten Twenty");
  EXPECT_EQ(checked(page), "Twenty");
}

TEST_F(PSListItemsControllerTest, WithoutTitlesTheValuesShow) {
  PSListItemsController *page = open(@{@"validTitles" : @[ @"a", @"b", @"c" ]});
  EXPECT_EQ(rows(page), "[] a b c");
  PSListItemsController *bare = [[[PSListItemsController alloc] init] autorelease];
  PSSpecifier *specifier = [PSSpecifier groupSpecifierWithName:@"Bare"];
  [specifier setValues:@[ @1, @"two" ] titles:nil];
  [bare setSpecifier:specifier];
  EXPECT_EQ(rows(bare), "[] 1 two");
}

TEST_F(PSListItemsControllerTest, AParentThatIsGoneIsNoHarm) {
  PSListItemsController *page = [[open(@{}, @1) retain] autorelease];
  [navigation() setViewControllers:@[ page ]];
  parent_ = nil;
  tap(page, @"2");
  EXPECT_EQ(checked(page), "Medium");
  [navigation() setViewControllers:@[ [[[UIViewController alloc] init] autorelease] ]];
}

}  // namespace
