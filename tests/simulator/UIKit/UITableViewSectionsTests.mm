#import "TableSource.h"

#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::at;
using testing_support::tableShowing;
using testing_support::takeEvents;

/// Titles "Section N" above and "End N" below the rows; nothing for section 1.
@interface TitleSource : TableSource
@end

@implementation TitleSource
- (NSString *)tableView:(UITableView *)tableView titleForHeaderInSection:(NSInteger)section {
  [self note:"title" at:at(section, 0)];
  return section == 1 ? nil : [NSString stringWithFormat:@"Section %ld", (long)section];
}
- (NSString *)tableView:(UITableView *)tableView titleForFooterInSection:(NSInteger)section {
  return section == 1 ? nil : [NSString stringWithFormat:@"End %ld", (long)section];
}
@end

/// Titles that take several lines in a narrow table view.
@interface LongTitleSource : TitleSource
@end

@implementation LongTitleSource
- (NSString *)tableView:(UITableView *)tableView titleForHeaderInSection:(NSInteger)section {
  [self note:"title" at:at(section, 0)];
  return @"a title that is too long for one line of a telephone";
}
- (NSString *)tableView:(UITableView *)tableView titleForFooterInSection:(NSInteger)section {
  return @"A footer of one sentence, which takes several lines where the screen is that of a telephone.";
}
@end

/// Views above the rows of every section but the last, of 50 points; the titles show in the last.
@interface ViewSource : TitleSource {
 @public
  int viewsMade;
}
@end

@implementation ViewSource
- (UIView *)tableView:(UITableView *)tableView viewForHeaderInSection:(NSInteger)section {
  if (section + 1 == [tableView numberOfSections]) return nil;
  ++viewsMade;
  return [[[UIView alloc] initWithFrame:CGRectZero] autorelease];
}
- (CGFloat)tableView:(UITableView *)tableView heightForHeaderInSection:(NSInteger)section {
  return 50;
}
- (void)tableView:(UITableView *)tableView willDisplayHeaderView:(UIView *)view forSection:(NSInteger)section {
  [self note:[view superview] ? "late" : "header" at:at(section, 0)];
}
@end

/// Headers from the reuse queue.
@interface ReusingSource : TableSource
@end

@implementation ReusingSource
- (UIView *)tableView:(UITableView *)tableView viewForHeaderInSection:(NSInteger)section {
  UITableViewHeaderFooterView *view = [tableView dequeueReusableHeaderFooterViewWithIdentifier:@"Header"];
  [[view textLabel] setText:[NSString stringWithFormat:@"Header %ld", (long)section]];
  return view;
}
@end

namespace {

class UITableViewSectionsTest : public ObjCTest {
 protected:
  template <typename Source>
  Source *show(std::vector<int> counts, UITableViewStyle style = UITableViewStyleGrouped) {
    Source *source = [[Source alloc] initWithCounts:counts];
    rows_ = adopt((TableSource *)source);
    table_ = tableShowing(source, 1000, style);
    return source;
  }
  UITableView *table() { return table_.get(); }

  objcxx::Retained<TableSource> rows_;
  objcxx::Retained<UITableView> table_;
};

}  // namespace

TEST_F(UITableViewSectionsTest, TitlesComeFromTheDataSourceOnce) {
  TitleSource *rows = show<TitleSource>({1, 1, 1});
  takeEvents(rows);
  EXPECT_OBJC_EQ([table() sim_titleForHeaderInSection:0], @"Section 0");
  EXPECT_OBJC_EQ([table() sim_titleForHeaderInSection:1], nil);
  EXPECT_OBJC_EQ([table() sim_titleForFooterInSection:2], @"End 2");
  EXPECT_OBJC_EQ([table() sim_viewForHeaderInSection:0], nil);
  EXPECT_OBJC_EQ([table() sim_titleForHeaderInSection:3], nil);
  EXPECT_OBJC_EQ([table() sim_titleForHeaderInSection:-1], nil);
  EXPECT_EQ(takeEvents(rows), "");
  [table() reloadData];
  EXPECT_EQ(takeEvents(rows), "title 0.0, title 1.0, title 2.0");
}

TEST_F(UITableViewSectionsTest, TitlesShowInViews) {
  show<TitleSource>({1, 1});
  EXPECT_OBJC_EQ([[[table() headerViewForSection:0] textLabel] text], @"SECTION 0");
  EXPECT_OBJC_EQ([[[table() footerViewForSection:0] textLabel] text], @"End 0");
  EXPECT_OBJC_EQ([table() headerViewForSection:1], nil);
  EXPECT_OBJC_EQ([table() headerViewForSection:7], nil);
  EXPECT_EQ([[table() headerViewForSection:0] superview], table());
}

TEST_F(UITableViewSectionsTest, ReloadingASectionAsksAgain) {
  TitleSource *rows = show<TitleSource>({1, 1});
  takeEvents(rows);
  [table() reloadSections:[NSIndexSet indexSetWithIndex:0] withRowAnimation:UITableViewRowAnimationNone];
  EXPECT_EQ(takeEvents(rows), "title 0.0");
  EXPECT_OBJC_EQ([[[table() headerViewForSection:0] textLabel] text], @"SECTION 0");
}

TEST_F(UITableViewSectionsTest, TheDelegatesViewsComeFirst) {
  ViewSource *rows = show<ViewSource>({1, 1, 1});
  UIView *view = [table() sim_viewForHeaderInSection:0];
  EXPECT_NE(view, nil);
  EXPECT_OBJC_EQ([table() sim_titleForHeaderInSection:0], nil);
  EXPECT_TRUE(CGRectEqualToRect([view frame], CGRectMake(0, 0, 320, 50)));
  EXPECT_EQ([view superview], table());
  EXPECT_OBJC_EQ([table() sim_viewForHeaderInSection:2], nil);
  EXPECT_OBJC_EQ([table() sim_titleForHeaderInSection:2], @"Section 2");
  EXPECT_EQ(rows->viewsMade, 2);
  EXPECT_EQ([table() sim_viewForHeaderInSection:0], view);
  EXPECT_EQ([table() rectForHeaderInSection:1].size.height, 50);
  [table() reloadData];
  EXPECT_EQ([view superview], nil);
  [table() layoutIfNeeded];
  EXPECT_EQ(rows->viewsMade, 4);
}

TEST_F(UITableViewSectionsTest, TheDelegateSeesAViewBeforeItShows) {
  ViewSource *rows = show<ViewSource>({1, 1, 1});
  EXPECT_EQ(takeEvents(rows), "title 0.0, header 0.0, title 1.0, header 1.0, title 2.0, header 2.0");
}

TEST_F(UITableViewSectionsTest, PlacesFollowFromTheHeights) {
  show<ViewSource>({1, 2});
  EXPECT_EQ([table() rectForRowAtIndexPath:at(0, 0)].origin.y, 50);
  const CGRect footer = [table() rectForFooterInSection:0];
  EXPECT_EQ(footer.origin.y, 94);
  EXPECT_GT(footer.size.height, 0);
  EXPECT_EQ([table() rectForSection:1].origin.y, 94 + footer.size.height);
  EXPECT_EQ([table() rectForRowAtIndexPath:at(1, 1)].origin.y, 94 + footer.size.height + 50 + 44);
}

TEST_F(UITableViewSectionsTest, GroupsKeepADistanceWhereNothingShows) {
  show<TableSource>({1, 1});
  EXPECT_GT([table() rectForHeaderInSection:0].size.height, [table() rectForHeaderInSection:1].size.height);
  EXPECT_GT([table() rectForFooterInSection:1].size.height, 0);
  show<TableSource>({1, 1}, UITableViewStylePlain);
  EXPECT_EQ([table() rectForHeaderInSection:0].size.height, 0);
  EXPECT_EQ([table() rectForFooterInSection:0].size.height, 0);
}

TEST_F(UITableViewSectionsTest, GroupsLie35PointsApart) {
  show<TableSource>({1, 1}, UITableViewStyleInsetGrouped);
  EXPECT_EQ([table() sim_heightOfHeaderInSection:0], 35);
  EXPECT_EQ([table() sim_heightOfFooterInSection:0] + [table() sim_heightOfHeaderInSection:1], 35);
  EXPECT_EQ([table() sim_heightOfHeaderInSection:2], 0);
  EXPECT_EQ([table() sim_heightOfFooterInSection:-1], 0);
}

TEST_F(UITableViewSectionsTest, TitlesLieAtTheRows) {
  show<TitleSource>({1, 1, 1}, UITableViewStyleInsetGrouped);
  UITableViewHeaderFooterView *header = [table() headerViewForSection:2];
  [header layoutIfNeeded];
  const CGRect above = [[header textLabel] frame];
  EXPECT_EQ(above.origin.x, 16);
  EXPECT_DOUBLE_EQ(above.origin.y, 15.5);
  EXPECT_DOUBLE_EQ([header frame].size.height - CGRectGetMaxY(above), 6.5);
  EXPECT_DOUBLE_EQ([table() sim_heightOfHeaderInSection:0], [table() sim_heightOfHeaderInSection:2] + 17.5);

  UITableViewHeaderFooterView *footer = [table() footerViewForSection:0];
  [footer layoutIfNeeded];
  EXPECT_EQ([[footer textLabel] frame].origin.y, 7);
  EXPECT_DOUBLE_EQ([footer frame].size.height, [[footer textLabel] frame].size.height + 14);
}

TEST_F(UITableViewSectionsTest, PlainTitlesAreLargeAndAsTheyWereGiven) {
  show<TitleSource>({1, 1}, UITableViewStylePlain);
  UILabel *label = [[table() headerViewForSection:0] textLabel];
  EXPECT_OBJC_EQ([label text], @"Section 0");
  EXPECT_OBJC_EQ([label font], [UIFont systemFontOfSize:17 weight:UIFontWeightSemibold]);
  EXPECT_EQ([table() sim_heightOfHeaderInSection:1], 0);
}

TEST_F(UITableViewSectionsTest, AnotherWidthWrapsTitlesAnew) {
  LongTitleSource *rows = show<LongTitleSource>({1, 1}, UITableViewStyleInsetGrouped);
  const CGFloat header = [table() sim_heightOfHeaderInSection:1];
  const CGFloat footer = [table() sim_heightOfFooterInSection:1];
  const CGFloat rowTop = [table() rectForRowAtIndexPath:at(1, 0)].origin.y;
  takeEvents(rows);
  [table() setFrame:CGRectMake(0, 0, 820, 1000)];
  [table() layoutIfNeeded];
  EXPECT_EQ(takeEvents(rows), "") << "the titles are still known";
  EXPECT_LT([table() sim_heightOfHeaderInSection:1], header);
  EXPECT_LT([table() sim_heightOfFooterInSection:1], footer);
  EXPECT_LT([table() rectForRowAtIndexPath:at(1, 0)].origin.y, rowTop);
  EXPECT_EQ([[table() headerViewForSection:1] frame].size.width, 780);
  EXPECT_EQ([[[table() headerViewForSection:1] textLabel] frame].origin.x, 20);

  [table() setFrame:CGRectMake(0, 0, 320, 1000)];
  [table() layoutIfNeeded];
  EXPECT_EQ([table() sim_heightOfHeaderInSection:1], header);
  EXPECT_EQ([table() sim_heightOfFooterInSection:1], footer);
  EXPECT_EQ([table() rectForRowAtIndexPath:at(1, 0)].origin.y, rowTop);
}

TEST_F(UITableViewSectionsTest, HeightsThatAreSetHold) {
  show<TitleSource>({1, 1});
  [table() setSectionHeaderHeight:60];
  [table() setSectionFooterHeight:5];
  [table() layoutIfNeeded];
  EXPECT_EQ([table() rectForHeaderInSection:0].size.height, 60);
  EXPECT_EQ([table() rectForFooterInSection:1].size.height, 5);
}

TEST_F(UITableViewSectionsTest, HeadersAreReused) {
  const auto rows = adopt([[ReusingSource alloc] initWithCounts:{1}]);
  const auto table = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 400)]);
  EXPECT_OBJC_EQ([table.get() dequeueReusableHeaderFooterViewWithIdentifier:@"Header"], nil);
  [table.get() registerClass:[UITableViewHeaderFooterView class] forHeaderFooterViewReuseIdentifier:@"Header"];
  [table.get() setDataSource:rows.get()];
  [table.get() setDelegate:rows.get()];
  [table.get() sim_prepareForDescription];
  UITableViewHeaderFooterView *view = [table.get() headerViewForSection:0];
  EXPECT_OBJC_EQ([[view textLabel] text], @"Header 0");
  EXPECT_OBJC_EQ([view reuseIdentifier], @"Header");
  [table.get() reloadData];
  [table.get() layoutIfNeeded];
  EXPECT_EQ([table.get() headerViewForSection:0], view);
}
