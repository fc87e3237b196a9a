// Sections: titles, footers, views of their own, and heights of rows.
#import <UIKit/UITableView+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

@interface BannerView : PSTableCell <PreferencesTableCustomView>
@end

@implementation BannerView
static int gBanners = 0;
- (id)initWithSpecifier:(PSSpecifier *)specifier {
  ++gBanners;
  return [super initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"Cell" specifier:specifier];
}
- (CGFloat)preferredHeightForWidth:(CGFloat)width {
  return width / 2;
}
@end

@interface TallView : UIView <PSHeaderFooterView>
@end

@implementation TallView
- (id)initWithSpecifier:(PSSpecifier *)specifier {
  (void)specifier;
  return [super initWithFrame:CGRectZero];
}
- (CGFloat)preferredHeightForWidth:(CGFloat)width {
  (void)width;
  return 1;
}
- (CGFloat)preferredHeightForWidth:(CGFloat)width inTableView:(UITableView *)tableView {
  (void)width;
  return tableView ? 321 : 2;
}
@end

@interface PlainUIKitCell : UITableViewCell
@end
@implementation PlainUIKitCell
@end

namespace {

class PSListTableTest : public PreferencesTest {
 protected:
  UITableView *tableOf(NSArray *items) {
    UITableView *table = [showPage(items) table];
    [table sim_prepareForDescription];
    return table;
  }
  static CGFloat height(UITableView *table, NSInteger row) {
    return [table sim_heightOfRowAtIndexPath:[NSIndexPath indexPathForRow:row inSection:0]];
  }
};

TEST_F(PSListTableTest, TitlesAndFootersOfGroups) {
  UITableView *table = tableOf(@[
    @{@"cell" : @"PSGroupCell", @"label" : @"Head", @"footerText" : @"Foot"}, @{@"cell" : @"PSGroupCell"},
    @{@"cell" : @"PSGroupCell",
      @"label" : @"",
      @"footerText" : @7}
  ]);
  ASSERT_EQ([table numberOfSections], 3);
  EXPECT_OBJC_EQ([table sim_titleForHeaderInSection:0], @"Head");
  EXPECT_OBJC_EQ([table sim_titleForFooterInSection:0], @"Foot");
  for (NSInteger section = 1; section < 3; ++section) {
    EXPECT_OBJC_EQ([table sim_titleForHeaderInSection:section], nil);
    EXPECT_OBJC_EQ([table sim_titleForFooterInSection:section], nil);
  }
}

TEST_F(PSListTableTest, AGroupsOwnViewReplacesItsText) {
  gBanners = 0;
  UITableView *table = tableOf(@[ @{
    @"cell" : @"PSGroupCell",
    @"label" : @"Head",
    @"footerText" : @"Foot",
    @"headerCellClass" : @"BannerView",
    @"footerCellClass" : @"TallView"
  } ]);
  UIView *header = [table sim_viewForHeaderInSection:0];
  EXPECT_TRUE([header isKindOfClass:[BannerView class]]);
  EXPECT_TRUE([[table sim_viewForFooterInSection:0] isKindOfClass:[TallView class]]);
  EXPECT_OBJC_EQ([table sim_titleForHeaderInSection:0], nil);
  EXPECT_OBJC_EQ([table sim_titleForFooterInSection:0], nil);
  [table reloadData];
  [table sim_prepareForDescription];
  EXPECT_EQ([table sim_viewForHeaderInSection:0], header);
  EXPECT_EQ(gBanners, 1);
}

TEST_F(PSListTableTest, HeightsOfAGroupsOwnViews) {
  UITableView *table =
      tableOf(@[ @{@"cell" : @"PSGroupCell", @"headerCellClass" : @"BannerView", @"footerCellClass" : @"TallView"} ]);
  const CGFloat width = [table bounds].size.width;
  const CGFloat header = [table rectForHeaderInSection:0].size.height;
  EXPECT_GT(header, 0);
  EXPECT_LT(header, width / 2);  // The margins of the section are taken off the width.
  EXPECT_EQ(header, (width - 32) / 2);
  EXPECT_EQ([table rectForFooterInSection:0].size.height, 321);
}

TEST_F(PSListTableTest, AnUnknownViewClassIsLoggedAndTheTextStays) {
  for (NSString *name in @[ @"NoSuchView", @"NSString", @"UIView" ]) {
    log.clear();
    UITableView *table = tableOf(@[ @{@"cell" : @"PSGroupCell", @"label" : @"Head", @"headerCellClass" : name} ]);
    EXPECT_EQ([table sim_viewForHeaderInSection:0], nil);
    EXPECT_OBJC_EQ([table sim_titleForHeaderInSection:0], @"Head");
    EXPECT_EQ(logged("names no view"), 1) << [name UTF8String];
  }
}

TEST_F(PSListTableTest, TheViewsGoWithTheirPage) {
  PSSpecifier *group = nil;
  @autoreleasepool {
    TestPage *page = showPage(@[ @{@"cell" : @"PSGroupCell", @"headerCellClass" : @"BannerView"} ]);
    [[page table] sim_prepareForDescription];
    [[page table] sim_viewForHeaderInSection:0];
    group = [[page specifierAtIndex:0] retain];
    EXPECT_TRUE([[group propertyForKey:PSHeaderViewKey] isKindOfClass:[BannerView class]]);
    show([[[UIViewController alloc] init] autorelease]);
    SIMDrainMainQueue();
  }
  drainPool();
  EXPECT_OBJC_EQ([group propertyForKey:PSHeaderViewKey], nil);
  [group release];
}

TEST_F(PSListTableTest, HeightsOfRows) {
  UITableView *table = tableOf(@[
    @{@"cell" : @"PSTitleValueCell", @"label" : @"A"},
    @{@"cell" : @"PSTitleValueCell",
      @"label" : @"B",
      @"height" : @120},
    @{@"cell" : @"PSGiantCell", @"label" : @"C"}, @{@"cell" : @"PSTitleValueCell", @"label" : @"D", @"height" : @"90"},
    @{@"cell" : @"PSTitleValueCell",
      @"label" : @"E",
      @"height" : @[]},
    @{@"cell" : @"PSTitleValueCell",
      @"label" : @"F",
      @"height" : @-5}
  ]);
  EXPECT_EQ(height(table, 0), 44);
  EXPECT_EQ(height(table, 1), 120);
  EXPECT_EQ(height(table, 2), 66);
  EXPECT_EQ(height(table, 3), 90);
  EXPECT_EQ(height(table, 4), 44);
  EXPECT_EQ(height(table, 5), 44);
  EXPECT_EQ(logged("is no height"), 2);
}

TEST_F(PSListTableTest, ACellOfUIKitsOwnKindShowsTheName) {
  TestPage *page = showPage(@[ @{@"cell" : @"PSTitleValueCell", @"label" : @"Row", @"cellClass" : @"PlainUIKitCell"} ]);
  UITableViewCell *row = cell(page, @"Row");
  EXPECT_TRUE([row isKindOfClass:[PlainUIKitCell class]]);
  EXPECT_OBJC_EQ([[row textLabel] text], @"Row");
}

TEST_F(PSListTableTest, TenThousandRows) {
  NSMutableArray *items = [NSMutableArray arrayWithCapacity:10000];
  for (int number = 0; number < 10000; ++number) {
    [items addObject:@{@"cell" : @"PSLinkCell", @"label" : [NSString stringWithFormat:@"Row %d", number]}];
  }
  UITableView *table = tableOf(items);
  __block int described = 0;
  [table sim_describeRows:NSMakeRange(0, NSIntegerMax)
                inSection:0
               usingBlock:^(NSIndexPath *, UITableViewCell *) {
                 ++described;
               }];
  EXPECT_EQ(described, 10000);
}

}  // namespace
