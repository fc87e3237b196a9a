#import "TableSource.h"

#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

#include <chrono>

using objcxx::adopt;
using testing_support::at;
using testing_support::describedRows;
using testing_support::liveRows;
using testing_support::tableShowing;
using testing_support::takeEvents;

/// Notes the cells that come and go.
@interface DisplaySource : TableSource
@end

@implementation DisplaySource
- (void)tableView:(UITableView *)tableView
      willDisplayCell:(UITableViewCell *)cell
    forRowAtIndexPath:(NSIndexPath *)indexPath {
  [self note:"will" at:indexPath];
}
- (void)tableView:(UITableView *)tableView
    didEndDisplayingCell:(UITableViewCell *)cell
       forRowAtIndexPath:(NSIndexPath *)indexPath {
  [self note:"ended" at:indexPath];
}
@end

/// Rows of ten points times (row + 1), and counts the questions.
@interface HeightSource : TableSource {
 @public
  int heightsAsked;
}
@end

@implementation HeightSource
- (CGFloat)tableView:(UITableView *)tableView heightForRowAtIndexPath:(NSIndexPath *)indexPath {
  ++heightsAsked;
  return 10 * ([indexPath row] + 1);
}
@end

@interface AutomaticSource : TableSource
@end

@implementation AutomaticSource
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [super tableView:tableView cellForRowAtIndexPath:indexPath];
  [[cell textLabel] setNumberOfLines:0];
  return cell;
}
- (CGFloat)tableView:(UITableView *)tableView heightForRowAtIndexPath:(NSIndexPath *)indexPath {
  return UITableViewAutomaticDimension;
}
@end

/// Every third row has several lines.
@interface UnequalSource : AutomaticSource
@end

@implementation UnequalSource
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [super tableView:tableView cellForRowAtIndexPath:indexPath];
  if ([indexPath row] % 3 == 0) [[cell textLabel] setText:@"one\ntwo\nthree"];
  return cell;
}
@end

@interface NoCellSource : TableSource
@end

@implementation NoCellSource
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  return nil;
}
@end

/// Counts where it is added and taken away, and how often it is made ready for another row.
@interface CountingCell : UITableViewCell {
 @public
  int moves;
  int reuses;
}
@end

@implementation CountingCell
- (void)didMoveToSuperview {
  [super didMoveToSuperview];
  ++moves;
}
- (void)prepareForReuse {
  [super prepareForReuse];
  ++reuses;
}
@end

namespace {

class UITableViewTest : public ObjCTest {
 protected:
  template <typename Source = TableSource>
  static objcxx::Retained<Source> source(std::vector<int> counts) {
    return adopt((Source *)[[Source alloc] initWithCounts:counts]);
  }
  /// Cells in the queue are subviews too, hidden.
  static int shownSubviews(UITableView *table) {
    int count = 0;
    for (UIView *view in [table subviews]) count += ![view isHidden];
    return count;
  }
};

}  // namespace

#pragma mark - Rows on screen

TEST_F(UITableViewTest, RowsGoWithADataSourceThatIsFreed) {
  auto rows = source<DisplaySource>({3, 20});
  objcxx::Retained<UITableView> table;
  @autoreleasepool {
    table = tableShowing(rows.get(), 200);
    EXPECT_EQ([table.get() dataSource], rows.get());
    EXPECT_EQ([table.get() delegate], rows.get());
    rows = nullptr;
  }
  EXPECT_FALSE([table.get() dataSource]);
  EXPECT_FALSE([table.get() delegate]);
  [table.get() setContentOffset:CGPointMake(0, 300)];
  [table.get() layoutIfNeeded];
  EXPECT_EQ([table.get() numberOfSections], 0);
  EXPECT_EQ(liveRows(table.get()), "");
  [table.get() reloadData];
  EXPECT_EQ(describedRows(table.get()), "");
}

TEST_F(UITableViewTest, OnlyTheRowsInTheBoundsHaveCells) {
  const auto rows = source({3, 20});
  const auto table = tableShowing(rows.get(), 200);
  EXPECT_EQ(liveRows(table.get()), "a0 a1 a2 b0 b1");
  EXPECT_EQ(rows.get()->cellsMade, 5);
  EXPECT_EQ([table.get() numberOfSections], 2);
  EXPECT_EQ([table.get() numberOfRowsInSection:1], 20);
  EXPECT_EQ([table.get() contentSize].height, 23 * 44);
  EXPECT_OBJC_EQ([[table.get() indexPathsForVisibleRows] lastObject], at(1, 1));
}

TEST_F(UITableViewTest, ScrollingReusesCells) {
  const auto rows = source<DisplaySource>({100});
  const auto table = tableShowing(rows.get(), 88);
  EXPECT_EQ(takeEvents(rows.get()), "will 0.0, will 0.1");
  UITableViewCell *first = [table.get() cellForRowAtIndexPath:at(0, 0)];
  EXPECT_NE(first, nil);
  EXPECT_EQ([table.get() cellForRowAtIndexPath:at(0, 2)], nil);
  [table.get() setContentOffset:CGPointMake(0, 44)];
  [table.get() layoutIfNeeded];
  EXPECT_EQ(takeEvents(rows.get()), "ended 0.0, will 0.2");
  EXPECT_EQ([table.get() cellForRowAtIndexPath:at(0, 2)], first);
  EXPECT_EQ(liveRows(table.get()), "a1 a2");
  EXPECT_EQ(rows.get()->cellsMade, 2);
}

TEST_F(UITableViewTest, CellsKnowTheirRowsAndLieInTheirPlaces) {
  const auto rows = source({3, 3});
  const auto table = tableShowing(rows.get());
  UITableViewCell *cell = [table.get() cellForRowAtIndexPath:at(1, 2)];
  EXPECT_OBJC_EQ([table.get() indexPathForCell:cell], at(1, 2));
  EXPECT_EQ([cell superview], table.get());
  EXPECT_TRUE(CGRectEqualToRect([cell frame], CGRectMake(0, 5 * 44, 320, 44)));
  EXPECT_TRUE(CGRectEqualToRect([table.get() rectForRowAtIndexPath:at(1, 2)], [cell frame]));
  EXPECT_TRUE(CGRectEqualToRect([table.get() rectForSection:1], CGRectMake(0, 132, 320, 132)));
  EXPECT_OBJC_EQ([table.get() indexPathForRowAtPoint:CGPointMake(5, 5 * 44 + 1)], at(1, 2));
  EXPECT_OBJC_EQ([table.get() indexPathForRowAtPoint:CGPointMake(5, 6 * 44)], nil);
  EXPECT_OBJC_EQ([table.get() indexPathForRowAtPoint:CGPointMake(5, -1)], nil);
  const auto other = adopt([[UITableViewCell alloc] init]);
  EXPECT_OBJC_EQ([table.get() indexPathForCell:other.get()], nil);
  EXPECT_OBJC_EQ([table.get() indexPathForCell:nil], nil);
}

TEST_F(UITableViewTest, PlacesThatAreNotThere) {
  const auto rows = source({1});
  const auto table = tableShowing(rows.get());
  EXPECT_EQ(raisedBy([&] { [table.get() numberOfRowsInSection:1]; }), "NSRangeException");
  EXPECT_EQ(raisedBy([&] { [table.get() rectForSection:-1]; }), "NSRangeException");
  EXPECT_TRUE(CGRectIsEmpty([table.get() rectForRowAtIndexPath:at(0, 1)]));
  EXPECT_OBJC_EQ([table.get() cellForRowAtIndexPath:at(4, 0)], nil);
  EXPECT_OBJC_EQ([table.get() cellForRowAtIndexPath:nil], nil);
  EXPECT_FALSE([table.get() sim_tapRowAtIndexPath:at(0, 1)]);
  EXPECT_FALSE([table.get() sim_tapRowAtIndexPath:at(-1, 0)]);
  EXPECT_FALSE([table.get() sim_tapRowAtIndexPath:nil]);
  EXPECT_FALSE([table.get() sim_tapRowAtIndexPath:[NSIndexPath indexPathWithIndex:0]]);
  EXPECT_EQ([table.get() sim_heightOfRowAtIndexPath:at(0, 1)], 0);
  EXPECT_EQ([table.get() sim_cellForControlEventsAtIndexPath:at(0, 1)], nil);
}

TEST_F(UITableViewTest, WithoutADataSourceThereIsNothing) {
  const auto table = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 400)]);
  [table.get() sim_prepareForDescription];
  EXPECT_EQ([table.get() numberOfSections], 0);
  EXPECT_EQ(describedRows(table.get()), "");
  EXPECT_OBJC_EQ([table.get() indexPathsForVisibleRows], nil);
}

TEST_F(UITableViewTest, ADataSourceWithoutACellRaises) {
  const auto rows = source<NoCellSource>({1});
  EXPECT_EQ(raisedBy([&] { (void)tableShowing(rows.get()); }), "NSInternalInconsistencyException");
  const auto table = adopt([[UITableView alloc] init]);
  EXPECT_EQ(raisedBy([&] { [table.get() dequeueReusableCellWithIdentifier:@"Unknown" forIndexPath:at(0, 0)]; }),
            "NSInternalInconsistencyException");
}

#pragma mark - Reloading

TEST_F(UITableViewTest, ReloadDataAsksForCountsAtOnceAndForCellsAtLayout) {
  const auto rows = source({2});
  const auto table = tableShowing(rows.get());
  [[rows.get() section:0] addObject:@"new"];
  EXPECT_EQ([table.get() numberOfRowsInSection:0], 2);
  rows.get()->cellsGiven = 0;
  [table.get() reloadData];
  EXPECT_EQ([table.get() numberOfRowsInSection:0], 3);
  EXPECT_EQ(rows.get()->cellsGiven, 0);
  [table.get() layoutIfNeeded];
  EXPECT_EQ(liveRows(table.get()), "a0 a1 new");
  EXPECT_EQ(rows.get()->cellsMade, 3);
}

TEST_F(UITableViewTest, AnotherDataSourceIsShown) {
  const auto one = source({1});
  const auto two = source({2, 1});
  const auto table = tableShowing(one.get());
  [table.get() setDataSource:two.get()];
  EXPECT_EQ(describedRows(table.get()), "a0 a1 | b0");
  [table.get() setDataSource:nil];
  EXPECT_EQ(describedRows(table.get()), "");
}

#pragma mark - Describing

TEST_F(UITableViewTest, ADescriptionVisitsAllRowsInOrder) {
  const auto rows = source<DisplaySource>({2, 0, 3});
  const auto table = tableShowing(rows.get(), 88);
  takeEvents(rows.get());
  EXPECT_EQ(describedRows(table.get()), "a0 a1 | | c0 c1 c2");
  EXPECT_EQ(takeEvents(rows.get()), "will 2.0, ended 2.0, will 2.1, ended 2.1, will 2.2, ended 2.2");
  EXPECT_EQ(liveRows(table.get()), "a0 a1");
  EXPECT_EQ(rows.get()->cellsMade, 3);
}

TEST_F(UITableViewTest, ADescribedCellIsInTheTableView) {
  const auto rows = source({5});
  const auto table = tableShowing(rows.get(), 44);
  __block int visits = 0;
  [table.get() sim_describeRows:NSMakeRange(0, NSIntegerMax)
                      inSection:0
                     usingBlock:^(NSIndexPath *path, UITableViewCell *cell) {
                       ++visits;
                       EXPECT_EQ([cell superview], table.get());
                       EXPECT_OBJC_EQ([table.get() indexPathForCell:cell], path);
                       EXPECT_EQ([table.get() sim_heightOfRowAtIndexPath:path], 44);
                       EXPECT_GT([[cell textLabel] frame].size.width, 0);
                     }];
  EXPECT_EQ(visits, 5);
  EXPECT_EQ(shownSubviews(table.get()), 1);
}

TEST_F(UITableViewTest, AVisitorThatRaisesLeavesNoGuest) {
  const auto rows = source({3});
  const auto table = tableShowing(rows.get(), 44);
  EXPECT_EQ(raisedBy([&] {
              [table.get() sim_describeRows:NSMakeRange(0, NSIntegerMax)
                                  inSection:0
                                 usingBlock:^(NSIndexPath *path, UITableViewCell *) {
                                   if ([path row] == 1) [NSException raise:@"Visitor" format:@"x"];
                                 }];
            }),
            "Visitor");
  EXPECT_EQ(shownSubviews(table.get()), 1);
  EXPECT_EQ(describedRows(table.get()), "a0 a1 a2");
}

TEST_F(UITableViewTest, OfALongTableTheRowsAroundTheBoundsAreToBeDescribed) {
  const auto rows = source({1, 3000, 0, 2});
  const auto table = tableShowing(rows.get(), 440);
  const auto toDescribe = [&](NSInteger section) {
    const NSRange range = [table.get() sim_rowsToDescribeInSection:section];
    return std::to_string(range.location) + "+" + std::to_string(range.length);
  };
  // 440 points of bounds and 8000 below them are 191.8 rows, of which the first section has one.
  EXPECT_EQ(toDescribe(0), "0+1");
  EXPECT_EQ(toDescribe(1), "0+191");
  EXPECT_EQ(toDescribe(2), "0+0");
  EXPECT_EQ(toDescribe(3), "0+0");
  EXPECT_EQ(toDescribe(4), "0+0");
  EXPECT_EQ(toDescribe(-1), "0+0");

  [table.get() scrollToRowAtIndexPath:at(1, 1000) atScrollPosition:UITableViewScrollPositionTop animated:NO];
  EXPECT_EQ(toDescribe(0), "1+0");
  // Row 1000 begins 1001 rows down; 8000 points above it are 181.8 rows.
  EXPECT_EQ(toDescribe(1), "818+374");
  EXPECT_EQ(toDescribe(3), "0+0");

  [table.get() scrollToRowAtIndexPath:at(3, 1) atScrollPosition:UITableViewScrollPositionBottom animated:NO];
  EXPECT_EQ(toDescribe(0), "1+0");
  EXPECT_EQ(toDescribe(1), "2810+190");
  EXPECT_EQ(toDescribe(3), "0+2");

  __block int visits = 0;
  [table.get() sim_describeRows:NSMakeRange(2810, 190)
                      inSection:1
                     usingBlock:^(NSIndexPath *path, UITableViewCell *cell) {
                       EXPECT_EQ([path row], 2810 + visits++);
                       EXPECT_EQ(cell, [table.get() cellForRowAtIndexPath:path] ?: cell);
                     }];
  EXPECT_EQ(visits, 190);
}

TEST_F(UITableViewTest, DescribingALongTableOfUnequalRowsDoesNotChangeWhatIsToBeDescribed) {
  const auto rows = source<UnequalSource>({3000});
  const auto table = tableShowing(rows.get(), 440);
  for (const int row : {0, 1500, 700, 2999}) {
    [table.get() scrollToRowAtIndexPath:at(0, row) atScrollPosition:UITableViewScrollPositionMiddle animated:NO];
    [table.get() sim_prepareForDescription];
    const NSRange range = [table.get() sim_rowsToDescribeInSection:0];
    [table.get() sim_describeRows:range
                        inSection:0
                       usingBlock:^(NSIndexPath *, UITableViewCell *){
                       }];
    [table.get() sim_prepareForDescription];
    EXPECT_TRUE(NSEqualRanges([table.get() sim_rowsToDescribeInSection:0], range)) << row;
    EXPECT_TRUE(NSLocationInRange(NSUInteger(row), range)) << row;
  }
}

TEST_F(UITableViewTest, TheFirstHeightThatACellGivesIsTheEstimateOfTheOthers) {
  const auto rows = source<UnequalSource>({3000});
  const auto table = tableShowing(rows.get(), 440);
  const CGFloat first = [table.get() sim_heightOfRowAtIndexPath:at(0, 0)];
  EXPECT_GT(first, 44);
  EXPECT_EQ([table.get() sim_likelyHeightOfRowAtIndexPath:at(0, 2500)], first);
}

TEST_F(UITableViewTest, AThousandRowsAreAllToBeDescribed) {
  const auto rows = source({400, 600});
  const auto table = tableShowing(rows.get(), 440);
  EXPECT_EQ(NSMaxRange([table.get() sim_rowsToDescribeInSection:0]), 400u);
  EXPECT_EQ(NSMaxRange([table.get() sim_rowsToDescribeInSection:1]), 600u);
}

TEST_F(UITableViewTest, ALikelyHeightMakesNoCell) {
  const auto rows = source({2000});
  const auto table = tableShowing(rows.get(), 440);
  const int made = rows.get()->cellsGiven;
  EXPECT_EQ([table.get() sim_likelyHeightOfRowAtIndexPath:at(0, 1500)], 44);
  EXPECT_EQ([table.get() sim_likelyHeightOfRowAtIndexPath:at(0, 2000)], 0);
  EXPECT_EQ(rows.get()->cellsGiven, made);
}

TEST_F(UITableViewTest, TenThousandRowsCostLinearTime) {
  const auto timeOf = [](int count) {
    const auto rows = source({count});
    const auto table = tableShowing(rows.get(), 440);
    const auto start = std::chrono::steady_clock::now();
    [table.get() reloadData];
    [table.get() layoutIfNeeded];
    __block int visits = 0;
    [table.get() sim_describeRows:NSMakeRange(0, NSIntegerMax)
                        inSection:0
                       usingBlock:^(NSIndexPath *path, UITableViewCell *cell) {
                         visits += [[table.get() indexPathForCell:cell] row] == [path row];
                         [table.get() sim_heightOfRowAtIndexPath:path];
                       }];
    EXPECT_EQ(visits, count);
    EXPECT_LE(rows.get()->cellsMade, 12);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  timeOf(100);
  const double small = timeOf(1000);
  const double large = timeOf(10000);
  EXPECT_LT(large, 40 * small + 0.1);  // Quadratic would be a hundred times as long.
}

#pragma mark - Heights

TEST_F(UITableViewTest, HeightsComeFromTheDelegateWhenRowsComeOnScreen) {
  const auto rows = source<HeightSource>({1000});
  const auto table = tableShowing(rows.get(), 100);
  EXPECT_EQ(liveRows(table.get()), "a0 a1 a2 a3");
  EXPECT_LT(rows.get()->heightsAsked, 20);
  EXPECT_EQ([table.get() rectForRowAtIndexPath:at(0, 3)].origin.y, 60);
  EXPECT_EQ([table.get() sim_heightOfRowAtIndexPath:at(0, 99)], 1000);
}

TEST_F(UITableViewTest, WithoutEstimatesAllHeightsAreAsked) {
  const auto rows = source<HeightSource>({10});
  const auto table = tableShowing(rows.get(), 15);
  [table.get() setEstimatedRowHeight:0];
  EXPECT_EQ([table.get() rectForRowAtIndexPath:at(0, 9)].origin.y, 450);
  [table.get() layoutIfNeeded];
  EXPECT_EQ([table.get() contentSize].height, 550);
}

TEST_F(UITableViewTest, AutomaticHeightsFitTheContent) {
  const auto rows = source<AutomaticSource>({2});
  NSMutableString *text = [NSMutableString string];
  for (int word = 0; word < 60; ++word) [text appendString:@"word "];
  [[rows.get() section:0] replaceObjectAtIndex:1 withObject:text];
  const auto table = tableShowing(rows.get());
  EXPECT_EQ([table.get() rectForRowAtIndexPath:at(0, 0)].size.height, 44);
  EXPECT_GT([table.get() rectForRowAtIndexPath:at(0, 1)].size.height, 100);
  EXPECT_EQ([[table.get() cellForRowAtIndexPath:at(0, 1)] frame].size.height,
            [table.get() sim_heightOfRowAtIndexPath:at(0, 1)]);
}

TEST_F(UITableViewTest, ViewsBesideTheRowsTakeTheirRoom) {
  const auto rows = source({2});
  const auto table = tableShowing(rows.get());
  const auto header = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 30)]);
  const auto footer = adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 20)]);
  [table.get() setTableHeaderView:header.get()];
  [table.get() setTableFooterView:footer.get()];
  [table.get() sim_prepareForDescription];
  EXPECT_TRUE(CGRectEqualToRect([header.get() frame], CGRectMake(0, 0, 320, 30)));
  EXPECT_TRUE(CGRectEqualToRect([footer.get() frame], CGRectMake(0, 30 + 88, 320, 20)));
  EXPECT_EQ([table.get() rectForRowAtIndexPath:at(0, 0)].origin.y, 30);
  EXPECT_EQ([table.get() contentSize].height, 138);
  [table.get() setTableHeaderView:nil];
  [table.get() sim_prepareForDescription];
  EXPECT_EQ([header.get() superview], nil);
  EXPECT_EQ([table.get() rectForRowAtIndexPath:at(0, 0)].origin.y, 0);
}

TEST_F(UITableViewTest, InsetRowsAreNarrower) {
  const auto rows = source({1});
  const auto table = tableShowing(rows.get(), 440, UITableViewStyleInsetGrouped);
  const CGRect frame = [[table.get() cellForRowAtIndexPath:at(0, 0)] frame];
  EXPECT_EQ(frame.origin.x, 16);
  EXPECT_EQ(frame.size.width, 320 - 32);
}

#pragma mark - Reuse

TEST_F(UITableViewTest, RegisteredClassesMakeCells) {
  const auto table = adopt([[UITableView alloc] init]);
  EXPECT_OBJC_EQ([table.get() dequeueReusableCellWithIdentifier:@"Counting"], nil);
  [table.get() registerClass:[CountingCell class] forCellReuseIdentifier:@"Counting"];
  UITableViewCell *cell = [table.get() dequeueReusableCellWithIdentifier:@"Counting" forIndexPath:at(0, 0)];
  EXPECT_TRUE([cell isKindOfClass:[CountingCell class]]);
  EXPECT_OBJC_EQ([cell reuseIdentifier], @"Counting");
  EXPECT_EQ(((CountingCell *)cell)->reuses, 0);
  EXPECT_EQ(raisedBy([&] { [table.get() registerClass:[NSObject class] forCellReuseIdentifier:@"x"]; }),
            "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [table.get() dequeueReusableCellWithIdentifier:nil]; }), "NSInvalidArgumentException");
}

@interface CountingSource : TableSource
@end

@implementation CountingSource
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  return [tableView dequeueReusableCellWithIdentifier:@"Counting" forIndexPath:indexPath];
}
@end

namespace {

objcxx::Retained<UITableView> tableOfCountingCells(TableSource *rows) {
  auto table = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 100)]);
  [table.get() registerClass:[CountingCell class] forCellReuseIdentifier:@"Counting"];
  [table.get() setDataSource:rows];
  [table.get() sim_prepareForDescription];
  return table;
}

}  // namespace

TEST_F(UITableViewTest, AReusedCellIsMadeReadyAndShowsAgainWithoutMoving) {
  const auto rows = source<CountingSource>({1});
  const auto table = tableOfCountingCells(rows.get());
  const auto cell = objcxx::share((CountingCell *)[table.get() cellForRowAtIndexPath:at(0, 0)]);
  EXPECT_EQ(cell.get()->moves, 1);
  EXPECT_EQ(cell.get()->reuses, 0);
  [table.get() reloadData];
  EXPECT_EQ([cell.get() superview], table.get());
  EXPECT_TRUE([cell.get() isHidden]) << "a cell in the queue stays where it is";
  EXPECT_OBJC_EQ([table.get() indexPathForCell:cell.get()], nil);
  [table.get() layoutIfNeeded];
  EXPECT_EQ([table.get() cellForRowAtIndexPath:at(0, 0)], cell.get());
  EXPECT_FALSE([cell.get() isHidden]);
  EXPECT_EQ(cell.get()->moves, 1);
  EXPECT_EQ(cell.get()->reuses, 1);
}

TEST_F(UITableViewTest, AFieldInACellThatLeavesTheScreenIsNoLongerEdited) {
  const auto rows = source<CountingSource>({1});
  const auto table = tableOfCountingCells(rows.get());
  const auto window = adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 320, 100)]);
  [window.get() addSubview:table.get()];
  const auto field = adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)]);
  [[[table.get() cellForRowAtIndexPath:at(0, 0)] contentView] addSubview:field.get()];
  ASSERT_TRUE([field.get() becomeFirstResponder]);
  [table.get() reloadData];
  EXPECT_FALSE([field.get() isFirstResponder]);
}

/// Keeps its one cell.
@interface KeepingSource : CountingSource {
 @public
  objcxx::Retained<CountingCell> kept;
}
@end

@implementation KeepingSource
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  return kept.get();
}
@end

TEST_F(UITableViewTest, ACellThatTheDataSourceKeepsShowsAgainAndWaitsNoMore) {
  const auto rows = source<KeepingSource>({1});
  for (NSString *identifier in @[ @"Counting", @"" ]) {
    rows.get()->kept = adopt([[CountingCell alloc] initWithStyle:UITableViewCellStyleDefault
                                                 reuseIdentifier:[identifier length] > 0 ? identifier : nil]);
    CountingCell *cell = rows.get()->kept.get();
    const auto table = tableOfCountingCells(rows.get());
    [table.get() reloadData];
    const bool canWait = [identifier length] > 0;
    EXPECT_EQ([cell superview], canWait ? table.get() : nil) << "what nobody can ask for is not kept";
    [table.get() layoutIfNeeded];
    EXPECT_EQ([table.get() cellForRowAtIndexPath:at(0, 0)], cell);
    EXPECT_FALSE([cell isHidden]);
    EXPECT_EQ(cell->reuses, 0);
    EXPECT_EQ(cell->moves, canWait ? 1 : 3);
    EXPECT_NE([table.get() dequeueReusableCellWithIdentifier:@"Counting"], cell);
  }
}

TEST_F(UITableViewTest, OnlySoManyCellsWait) {
  const auto rows = source<CountingSource>({100});
  const auto table = tableOfCountingCells(rows.get());
  [table.get() setFrame:CGRectMake(0, 0, 320, 4400)];
  [table.get() sim_prepareForDescription];
  [rows.get()->sections.get() removeAllObjects];
  [table.get() reloadData];
  EXPECT_EQ([[table.get() subviews] count], 64u);
}

#pragma mark - Scrolling

TEST_F(UITableViewTest, ScrollsARowIntoTheBounds) {
  const auto rows = source({100});
  const auto table = tableShowing(rows.get(), 88);
  const auto offsetAfter = [&](NSIndexPath *path, UITableViewScrollPosition position) {
    [table.get() scrollToRowAtIndexPath:path atScrollPosition:position animated:NO];
    return [table.get() contentOffset].y;
  };
  EXPECT_EQ(offsetAfter(at(0, 10), UITableViewScrollPositionTop), 440);
  EXPECT_EQ(offsetAfter(at(0, 10), UITableViewScrollPositionNone), 440);
  EXPECT_EQ(offsetAfter(at(0, 12), UITableViewScrollPositionNone), 13 * 44 - 88);
  EXPECT_EQ(offsetAfter(at(0, 10), UITableViewScrollPositionBottom), 11 * 44 - 88);
  EXPECT_EQ(offsetAfter(at(0, 10), UITableViewScrollPositionMiddle), 440 - 22);
  EXPECT_EQ(offsetAfter(at(0, 99), UITableViewScrollPositionTop), 100 * 44 - 88);
  EXPECT_EQ(offsetAfter(at(0, 0), UITableViewScrollPositionBottom), 0);
  EXPECT_EQ(offsetAfter(at(0, NSNotFound), UITableViewScrollPositionTop), 0);
  EXPECT_EQ(raisedBy([&] { offsetAfter(at(0, 100), UITableViewScrollPositionTop); }), "NSRangeException");
}

TEST_F(UITableViewTest, ControlsAreWorkedInLiveCells) {
  const auto rows = source({100});
  const auto table = tableShowing(rows.get(), 88);
  UITableViewCell *cell = [table.get() sim_cellForControlEventsAtIndexPath:at(0, 70)];
  EXPECT_OBJC_EQ([[cell textLabel] text], @"a70");
  EXPECT_EQ([table.get() cellForRowAtIndexPath:at(0, 70)], cell);
}

TEST_F(UITableViewTest, EstimatesThatWereWrongDoNotHideTheRow) {
  const auto rows = source<HeightSource>({60});
  const auto table = tableShowing(rows.get(), 700);
  for (int row : {59, 0, 30}) {
    EXPECT_OBJC_EQ([[[table.get() sim_cellForControlEventsAtIndexPath:at(0, row)] textLabel] text],
                   ([NSString stringWithFormat:@"a%d", row]));
  }
}

#pragma mark - Life

/// Counts its own death.
@interface MortalCell : UITableViewCell
@end

static int mortalDeaths = 0;

@implementation MortalCell
- (void)dealloc {
  ++mortalDeaths;
  [super dealloc];
}
@end

TEST_F(UITableViewTest, ATableViewGoesWithItsCells) {
  mortalDeaths = 0;
  {
    const auto rows = source<CountingSource>({30});
    const auto table = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 100)]);
    [table.get() registerClass:[MortalCell class] forCellReuseIdentifier:@"Counting"];
    [table.get() setDataSource:rows.get()];
    [table.get() sim_prepareForDescription];
    [table.get() sim_describeRows:NSMakeRange(0, NSIntegerMax)
                        inSection:0
                       usingBlock:^(NSIndexPath *, UITableViewCell *){
                       }];
    EXPECT_EQ([[table.get() visibleCells] count], 3u);
    drainPool();
    EXPECT_EQ(mortalDeaths, 0);
  }
  drainPool();
  EXPECT_EQ(mortalDeaths, 4);
}
