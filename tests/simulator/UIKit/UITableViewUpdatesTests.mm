#import "TableSource.h"

#import <dispatch/MainQueue+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::at;
using testing_support::describedRows;
using testing_support::liveRows;
using testing_support::tableShowing;

/// Reloads another row each time that it makes the cell of its first row, as pages do whose rows depend on each other.
@interface EntangledSource : TableSource
@end

@implementation EntangledSource
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  if ([indexPath row] == 0) {
    [tableView reloadRowsAtIndexPaths:@[ at(0, 1) ] withRowAnimation:UITableViewRowAnimationNone];
  }
  return [super tableView:tableView cellForRowAtIndexPath:indexPath];
}
@end

/// Reloads everything whenever it makes a cell.
@interface RestlessSource : TableSource
@end

@implementation RestlessSource
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [super tableView:tableView cellForRowAtIndexPath:indexPath];
  [tableView reloadData];
  return cell;
}
@end

namespace {

constexpr auto kNone = UITableViewRowAnimationNone;

class UITableViewUpdatesTest : public ObjCTest {
 protected:
  void show(std::vector<int> counts) {
    rows_ = adopt([[TableSource alloc] initWithCounts:counts]);
    table_ = tableShowing(rows_.get());
  }
  NSMutableArray *section(NSInteger section) { return [rows_.get() section:section]; }
  UITableView *table() { return table_.get(); }

  objcxx::Retained<TableSource> rows_;
  objcxx::Retained<UITableView> table_;
};

}  // namespace

TEST_F(UITableViewUpdatesTest, InsertedRowsShowAtOnceAndOthersKeepTheirCells) {
  show({2});
  UITableViewCell *former = [table() cellForRowAtIndexPath:at(0, 1)];
  [section(0) insertObject:@"new" atIndex:1];
  [table() insertRowsAtIndexPaths:@[ at(0, 1) ] withRowAnimation:kNone];
  EXPECT_EQ(liveRows(table()), "a0 new a1");
  EXPECT_EQ([table() cellForRowAtIndexPath:at(0, 2)], former);
  EXPECT_EQ([former frame].origin.y, 88);
  EXPECT_EQ([table() numberOfRowsInSection:0], 3);
}

TEST_F(UITableViewUpdatesTest, DeletedRowsGiveTheirCellsBack) {
  show({3});
  UITableViewCell *gone = [table() cellForRowAtIndexPath:at(0, 0)];
  [section(0) removeObjectAtIndex:0];
  [table() deleteRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:UITableViewRowAnimationFade];
  EXPECT_EQ(liveRows(table()), "a1 a2");
  EXPECT_TRUE([gone isHidden]);
  EXPECT_EQ([table() dequeueReusableCellWithIdentifier:@"Cell"], gone);
}

TEST_F(UITableViewUpdatesTest, ReloadedRowsAreAskedForAgain) {
  show({2});
  [section(0) replaceObjectAtIndex:1 withObject:@"changed"];
  EXPECT_EQ(liveRows(table()), "a0 a1");
  rows_.get()->cellsGiven = 0;
  [table() reloadRowsAtIndexPaths:@[ at(0, 1) ] withRowAnimation:kNone];
  EXPECT_EQ(liveRows(table()), "a0 changed");
  EXPECT_EQ(rows_.get()->cellsGiven, 1);
}

TEST_F(UITableViewUpdatesTest, ABatchIsOneUpdate) {
  show({3, 2});
  [section(0) setArray:@[ @"a1" ]];
  [section(1) setArray:@[ @"a2", @"b0", @"new", @"b1" ]];
  [table() beginUpdates];
  [table() deleteRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  [table() insertRowsAtIndexPaths:@[ at(1, 2) ] withRowAnimation:kNone];
  [table() moveRowAtIndexPath:at(0, 2) toIndexPath:at(1, 0)];
  EXPECT_EQ([table() numberOfRowsInSection:0], 3);
  [table() endUpdates];
  EXPECT_EQ(liveRows(table()), "a1 a2 b0 new b1");
  EXPECT_EQ(describedRows(table()), "a1 | a2 b0 new b1");
}

TEST_F(UITableViewUpdatesTest, SectionsComeGoAndAreReloaded) {
  show({1, 1});
  [rows_.get()->sections.get() insertObject:[NSMutableArray arrayWithObject:@"new"] atIndex:0];
  [table() insertSections:[NSIndexSet indexSetWithIndex:0] withRowAnimation:kNone];
  EXPECT_EQ(liveRows(table()), "new a0 b0");
  [rows_.get()->sections.get() removeObjectAtIndex:1];
  [table() deleteSections:[NSIndexSet indexSetWithIndex:1] withRowAnimation:kNone];
  EXPECT_EQ(describedRows(table()), "new | b0");
  [section(1) addObject:@"b1"];
  [table() reloadSections:[NSIndexSet indexSetWithIndex:1] withRowAnimation:kNone];
  EXPECT_EQ(liveRows(table()), "new b0 b1");
  [rows_.get()->sections.get() exchangeObjectAtIndex:0 withObjectAtIndex:1];
  [table() moveSection:1 toSection:0];
  EXPECT_EQ(describedRows(table()), "b0 b1 | new");
}

TEST_F(UITableViewUpdatesTest, WrongCountsRaiseAndLeaveAUsableTable) {
  const auto wrong = [this](auto change) {
    show({2});
    const std::string name = raisedBy([&] { change(table()); });
    EXPECT_EQ(describedRows(table()), "a0 a1");
    return name;
  };
  const std::string inconsistent = "NSInternalInconsistencyException";
  EXPECT_EQ(wrong([](UITableView *table) { [table insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone]; }),
            inconsistent);
  EXPECT_EQ(wrong([](UITableView *table) { [table deleteRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone]; }),
            inconsistent);
  EXPECT_EQ(wrong([](UITableView *table) { [table deleteRowsAtIndexPaths:@[ at(0, 7) ] withRowAnimation:kNone]; }),
            inconsistent);
  EXPECT_EQ(wrong([](UITableView *table) { [table reloadRowsAtIndexPaths:@[ at(3, 0) ] withRowAnimation:kNone]; }),
            inconsistent);
  EXPECT_EQ(
      wrong([](UITableView *table) { [table insertSections:[NSIndexSet indexSetWithIndex:0] withRowAnimation:kNone]; }),
      inconsistent);
  EXPECT_EQ(wrong([](UITableView *table) { [table endUpdates]; }), inconsistent);
}

TEST_F(UITableViewUpdatesTest, ChangesWithoutAnUpdateAreFoundAtTheNextOne) {
  show({2});
  [section(0) addObject:@"unannounced"];
  EXPECT_EQ(raisedBy([&] { [table() reloadRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone]; }),
            "NSInternalInconsistencyException");
}

TEST_F(UITableViewUpdatesTest, TheCompletionComesFromTheMainQueue) {
  show({1});
  __block int finished = 0;
  [table()
      performBatchUpdates:^{
        [section(0) addObject:@"new"];
        [table() insertRowsAtIndexPaths:@[ at(0, 1) ] withRowAnimation:kNone];
      }
      completion:^(BOOL done) {
        finished += done ? 1 : 100;
      }];
  EXPECT_EQ(liveRows(table()), "a0 new");
  EXPECT_EQ(finished, 0);
  SIMDrainMainQueue();
  EXPECT_EQ(finished, 1);
}

TEST_F(UITableViewUpdatesTest, SelectionMovesAlongWithItsRow) {
  show({3});
  [table() selectRowAtIndexPath:at(0, 1) animated:NO scrollPosition:UITableViewScrollPositionNone];
  [section(0) insertObject:@"new" atIndex:0];
  [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], at(0, 2));
  [section(0) removeObjectAtIndex:2];
  [table() deleteRowsAtIndexPaths:@[ at(0, 2) ] withRowAnimation:kNone];
  EXPECT_OBJC_EQ([table() indexPathForSelectedRow], nil);
}

TEST_F(UITableViewUpdatesTest, UpdatesBeforeTheFirstLayoutCountFromWhatIsThen) {
  rows_ = adopt([[TableSource alloc] initWithCounts:{1}]);
  table_ = adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, 400)]);
  [table() setDataSource:rows_.get()];
  [table() beginUpdates];
  [section(0) addObject:@"new"];
  [table() insertRowsAtIndexPaths:@[ at(0, 1) ] withRowAnimation:kNone];
  [table() endUpdates];
  EXPECT_EQ(liveRows(table()), "a0 new");
}

TEST_F(UITableViewUpdatesTest, ARowMayBeReloadedWhileAnotherIsMade) {
  const auto rows = adopt([[EntangledSource alloc] initWithCounts:{3}]);
  const auto table = tableShowing(rows.get());
  EXPECT_EQ(liveRows(table.get()), "a0 a1 a2");
  EXPECT_EQ(describedRows(table.get()), "a0 a1 a2");
  [[rows.get() section:0] replaceObjectAtIndex:1 withObject:@"changed"];
  [table.get() reloadRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:kNone];
  EXPECT_EQ(liveRows(table.get()), "a0 changed a2");
}

TEST_F(UITableViewUpdatesTest, ASourceThatNeverRestsComesToAnEnd) {
  const auto rows = adopt([[RestlessSource alloc] initWithCounts:{3}]);
  const auto table = tableShowing(rows.get());
  [table.get() sim_describeRows:NSMakeRange(0, NSIntegerMax)
                      inSection:0
                     usingBlock:^(NSIndexPath *, UITableViewCell *cell) {
                       EXPECT_NE(cell, nil);
                     }];
  EXPECT_LT(rows.get()->cellsGiven, 5000);
}
