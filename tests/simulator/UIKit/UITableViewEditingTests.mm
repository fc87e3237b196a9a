#import "TableSource.h"

#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

using objcxx::adopt;
using testing_support::at;
using testing_support::describedRows;
using testing_support::liveRows;
using testing_support::tableShowing;
using testing_support::takeEvents;

/// Moves its strings.
@interface MovingSource : TableSource {
 @public
  BOOL reloads;
  BOOL raises;
}
@end

@implementation MovingSource
- (void)tableView:(UITableView *)tableView moveRowAtIndexPath:(NSIndexPath *)from toIndexPath:(NSIndexPath *)to {
  if (raises) [NSException raise:NSRangeException format:@"No such place."];
  [self note:"from" at:from];
  [self note:"to" at:to];
  events.push_back("shows " + liveRows(tableView));
  NSString *string = [[[[self section:[from section]] objectAtIndex:[from row]] retain] autorelease];
  [[self section:[from section]] removeObjectAtIndex:[from row]];
  [[self section:[to section]] insertObject:string atIndex:[to row]];
  if (reloads) [tableView reloadData];
}
@end

/// As above; rows that start with "fixed" cannot be edited, those that start with "stay" cannot be moved.
@interface PickySource : MovingSource
@end

@implementation PickySource
- (BOOL)tableView:(UITableView *)tableView canEditRowAtIndexPath:(NSIndexPath *)path {
  return ![[[self section:[path section]] objectAtIndex:[path row]] hasPrefix:@"fixed"];
}
- (BOOL)tableView:(UITableView *)tableView canMoveRowAtIndexPath:(NSIndexPath *)path {
  return ![[[self section:[path section]] objectAtIndex:[path row]] hasPrefix:@"stay"];
}
- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView editingStyleForRowAtIndexPath:(NSIndexPath *)path {
  return UITableViewCellEditingStyleNone;
}
- (BOOL)tableView:(UITableView *)tableView shouldIndentWhileEditingRowAtIndexPath:(NSIndexPath *)path {
  return NO;
}
@end

/// Sends drags to the second section to the end of the first, and drags to row 0 back.
@interface GuidingSource : MovingSource
@end

@implementation GuidingSource
- (NSIndexPath *)tableView:(UITableView *)tableView
    targetIndexPathForMoveFromRowAtIndexPath:(NSIndexPath *)from
                         toProposedIndexPath:(NSIndexPath *)proposed {
  if ([proposed row] == 0) return from;
  return [proposed section] == 1 ? at(0, [[self section:0] count] - 1) : proposed;
}
@end

/// Deletes and inserts.
@interface CommittingSource : TableSource
@end

@implementation CommittingSource
- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView editingStyleForRowAtIndexPath:(NSIndexPath *)path {
  return [path row] == 0 ? UITableViewCellEditingStyleInsert : UITableViewCellEditingStyleDelete;
}
- (void)tableView:(UITableView *)tableView
    commitEditingStyle:(UITableViewCellEditingStyle)style
     forRowAtIndexPath:(NSIndexPath *)path {
  if (style == UITableViewCellEditingStyleInsert) {
    [[self section:[path section]] insertObject:@"new" atIndex:1];
    [tableView insertRowsAtIndexPaths:@[ at([path section], 1) ] withRowAnimation:UITableViewRowAnimationFade];
  } else {
    [[self section:[path section]] removeObjectAtIndex:[path row]];
    [tableView deleteRowsAtIndexPaths:@[ path ] withRowAnimation:UITableViewRowAnimationFade];
  }
}
@end

/// Notes what it hears of rows under edit.
@interface TellingSource : TableSource
@end

@implementation TellingSource
- (void)tableView:(UITableView *)tableView
    commitEditingStyle:(UITableViewCellEditingStyle)style
     forRowAtIndexPath:(NSIndexPath *)path {
}
- (void)tableView:(UITableView *)tableView willBeginEditingRowAtIndexPath:(NSIndexPath *)path {
  [self note:"will" at:path];
}
- (void)tableView:(UITableView *)tableView didEndEditingRowAtIndexPath:(NSIndexPath *)path {
  [self note:"did" at:path];
}
@end

/// Has an action on the leading side, too.
@interface LeadingSource : TellingSource
@end

@implementation LeadingSource
- (UISwipeActionsConfiguration *)tableView:(UITableView *)tableView
    leadingSwipeActionsConfigurationForRowAtIndexPath:(NSIndexPath *)path {
  UIContextualAction *pin =
      [UIContextualAction contextualActionWithStyle:UIContextualActionStyleNormal
                                              title:@"Pin"
                                            handler:^(UIContextualAction *, UIView *, void (^)(BOOL)){
                                            }];
  return [UISwipeActionsConfiguration configurationWithActions:@[ pin ]];
}
@end

/// Inserts, and has an action behind each row.
@interface InsertingSource : TableSource
@end

@implementation InsertingSource
- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView editingStyleForRowAtIndexPath:(NSIndexPath *)path {
  return UITableViewCellEditingStyleInsert;
}
- (UISwipeActionsConfiguration *)tableView:(UITableView *)tableView
    trailingSwipeActionsConfigurationForRowAtIndexPath:(NSIndexPath *)path {
  UIContextualAction *mark = [UIContextualAction contextualActionWithStyle:UIContextualActionStyleNormal
                                                                     title:@"Mark"
                                                                   handler:nil];
  return [UISwipeActionsConfiguration configurationWithActions:@[ mark ]];
}
@end

namespace {

class UITableViewEditingTest : public ObjCTest {
 protected:
  template <typename Source>
  Source *show(std::vector<int> counts) {
    Source *source = [[Source alloc] initWithCounts:counts];
    rows_ = adopt((TableSource *)source);
    table_ = tableShowing(source);
    [table() setEditing:YES animated:NO];
    return source;
  }
  UITableView *table() { return table_.get(); }
  BOOL move(NSIndexPath *from, NSIndexPath *to) { return [table() sim_moveRowFrom:from to:to]; }

  objcxx::Retained<TableSource> rows_;
  objcxx::Retained<UITableView> table_;
};

}  // namespace

TEST_F(UITableViewEditingTest, CellsFollowTheMode) {
  show<MovingSource>({2});
  UITableViewCell *cell = [table() cellForRowAtIndexPath:at(0, 0)];
  EXPECT_TRUE([table() isEditing]);
  EXPECT_TRUE([cell isEditing]);
  EXPECT_EQ([cell editingStyle], UITableViewCellEditingStyleDelete);
  EXPECT_TRUE([cell showsReorderControl]);
  EXPECT_TRUE([cell shouldIndentWhileEditing]);
  [table() setEditing:NO animated:YES];
  EXPECT_FALSE([cell isEditing]);
}

TEST_F(UITableViewEditingTest, CellsThatComeLaterAreInTheModeToo) {
  show<MovingSource>({30});
  UITableViewCell *cell = [table() sim_cellForControlEventsAtIndexPath:at(0, 29)];
  EXPECT_TRUE([cell isEditing]);
  [table() setEditing:NO];
  EXPECT_FALSE([[table() sim_cellForControlEventsAtIndexPath:at(0, 0)] isEditing]);
}

TEST_F(UITableViewEditingTest, WithoutADataSourceThatMovesThereAreNoHandles) {
  show<TableSource>({2});
  EXPECT_FALSE([table() sim_canMoveRowAtIndexPath:at(0, 0)]);
  EXPECT_FALSE([[table() cellForRowAtIndexPath:at(0, 0)] showsReorderControl]);
  EXPECT_FALSE(move(at(0, 0), at(0, 1)));
}

TEST_F(UITableViewEditingTest, RowsThatCannotBeEditedOrMovedHaveNoHandle) {
  PickySource *rows = show<PickySource>({0});
  [[rows section:0] setArray:@[ @"free", @"fixed", @"stay" ]];
  [table() reloadData];
  [table() layoutIfNeeded];
  EXPECT_TRUE([table() sim_canMoveRowAtIndexPath:at(0, 0)]);
  EXPECT_FALSE([table() sim_canMoveRowAtIndexPath:at(0, 1)]);
  EXPECT_FALSE([table() sim_canMoveRowAtIndexPath:at(0, 2)]);
  EXPECT_FALSE([table() sim_canMoveRowAtIndexPath:at(0, 3)]);
  EXPECT_FALSE([table() sim_canEditRowAtIndexPath:at(0, 1)]);
  EXPECT_FALSE([[table() cellForRowAtIndexPath:at(0, 1)] isEditing]);
  EXPECT_FALSE([[table() cellForRowAtIndexPath:at(0, 1)] showsReorderControl]);
  UITableViewCell *cell = [table() cellForRowAtIndexPath:at(0, 0)];
  EXPECT_EQ([cell editingStyle], UITableViewCellEditingStyleNone);
  EXPECT_FALSE([cell shouldIndentWhileEditing]);
  EXPECT_FALSE(move(at(0, 1), at(0, 0)));
  EXPECT_FALSE(move(at(0, 2), at(0, 0)));
  EXPECT_EQ(takeEvents(rows), "");
}

TEST_F(UITableViewEditingTest, OutsideTheModeNothingIsDragged) {
  show<MovingSource>({2});
  [table() setEditing:NO];
  EXPECT_FALSE([table() sim_canMoveRowAtIndexPath:at(0, 0)]);
  EXPECT_FALSE(move(at(0, 0), at(0, 1)));
}

TEST_F(UITableViewEditingTest, ADragMovesTheRowBeforeItTellsTheDataSource) {
  MovingSource *rows = show<MovingSource>({3, 2});
  UITableViewCell *cell = [table() cellForRowAtIndexPath:at(0, 0)];
  EXPECT_TRUE(move(at(0, 0), at(0, 2)));
  EXPECT_EQ(takeEvents(rows), "from 0.0, to 0.2, shows a1 a2 a0 b0 b1");
  EXPECT_EQ([table() cellForRowAtIndexPath:at(0, 2)], cell);
  EXPECT_EQ(describedRows(table()), "a1 a2 a0 | b0 b1");
  EXPECT_EQ([cell frame].origin.y, 88);
}

TEST_F(UITableViewEditingTest, ADragCrossesSections) {
  MovingSource *rows = show<MovingSource>({1, 2});
  EXPECT_TRUE(move(at(0, 0), at(1, 2)));
  EXPECT_EQ(takeEvents(rows), "from 0.0, to 1.2, shows b0 b1 a0");
  EXPECT_EQ([table() numberOfRowsInSection:0], 0);
  EXPECT_EQ([table() numberOfRowsInSection:1], 3);
  EXPECT_TRUE(move(at(1, 1), at(0, 0)));
  EXPECT_EQ(describedRows(table()), "b1 | b0 a0");
}

TEST_F(UITableViewEditingTest, TheDataSourceMayReload) {
  MovingSource *rows = show<MovingSource>({2, 1});
  rows->reloads = YES;
  EXPECT_TRUE(move(at(0, 1), at(1, 0)));
  EXPECT_EQ(describedRows(table()), "a0 | a1 b0");
}

TEST_F(UITableViewEditingTest, ADataSourceThatRaisesIsShownAsItIs) {
  MovingSource *rows = show<MovingSource>({2, 1});
  rows->raises = YES;
  EXPECT_EQ(raisedBy([&] { move(at(0, 0), at(1, 0)); }), "NSRangeException");
  EXPECT_EQ(describedRows(table()), "a0 a1 | b0");
}

TEST_F(UITableViewEditingTest, GoalsThatAreNotThereAreRefused) {
  MovingSource *rows = show<MovingSource>({2, 1});
  for (NSIndexPath *goal in
       @[ at(0, 2), at(0, -1), at(1, 2), at(2, 0), at(-1, 0), [NSIndexPath indexPathWithIndex:0] ]) {
    EXPECT_FALSE(move(at(0, 0), goal));
  }
  EXPECT_FALSE(move(at(0, 0), nil));
  EXPECT_FALSE(move(at(0, 2), at(0, 0)));
  EXPECT_FALSE(move(nil, at(0, 0)));
  EXPECT_EQ(takeEvents(rows), "");
  EXPECT_EQ(describedRows(table()), "a0 a1 | b0");
}

TEST_F(UITableViewEditingTest, ARowLetGoInItsPlaceTellsNobody) {
  MovingSource *rows = show<MovingSource>({2});
  EXPECT_TRUE(move(at(0, 1), at(0, 1)));
  EXPECT_EQ(takeEvents(rows), "");
}

TEST_F(UITableViewEditingTest, TheDelegateGuidesDrags) {
  GuidingSource *rows = show<GuidingSource>({3, 2});
  EXPECT_TRUE(move(at(0, 0), at(1, 1)));
  EXPECT_EQ(describedRows(table()), "a1 a2 a0 | b0 b1");
  takeEvents(rows);
  EXPECT_FALSE(move(at(0, 2), at(0, 0)));
  EXPECT_EQ(takeEvents(rows), "");
}

TEST_F(UITableViewEditingTest, ControlsOfTheModeCommit) {
  show<CommittingSource>({3});
  EXPECT_EQ([table() sim_editingStyleAtIndexPath:at(0, 0)], UITableViewCellEditingStyleInsert);
  EXPECT_FALSE([table() sim_commitDeleteAtIndexPath:at(0, 0)]);
  EXPECT_FALSE([table() sim_commitInsertAtIndexPath:at(0, 1)]);
  EXPECT_TRUE([table() sim_commitInsertAtIndexPath:at(0, 0)]);
  EXPECT_EQ(describedRows(table()), "a0 new a1 a2");
  EXPECT_TRUE([table() sim_commitDeleteAtIndexPath:at(0, 2)]);
  EXPECT_EQ(describedRows(table()), "a0 new a2");
  EXPECT_FALSE([table() sim_commitDeleteAtIndexPath:at(0, 3)]);
}

TEST_F(UITableViewEditingTest, TheControlBeforeARowInsertsOrUncoversItsDeleteButton) {
  show<CommittingSource>({3, 1});
  EXPECT_EQ([table() sim_editControlAtIndexPath:at(0, 0)], UITableViewCellEditingStyleInsert);
  EXPECT_EQ([table() sim_editControlAtIndexPath:at(0, 1)], UITableViewCellEditingStyleDelete);
  EXPECT_EQ([[table() sim_swipeActionsAtIndexPath:at(0, 0)] count], 0u);
  EXPECT_FALSE([table() sim_swipeRowAtIndexPath:at(0, 1)]) << "nothing is swiped in the editing mode";
  EXPECT_TRUE([table() sim_tapEditControlAtIndexPath:at(0, 0)]);
  EXPECT_EQ(describedRows(table()), "a0 new a1 a2 | b0");
  EXPECT_EQ([table() sim_swipedRow], nil);
  EXPECT_TRUE([table() sim_tapEditControlAtIndexPath:at(0, 2)]);
  EXPECT_OBJC_EQ([table() sim_swipedRow], at(0, 2));
  EXPECT_EQ(describedRows(table()), "a0 new a1 a2 | b0") << "not before it is confirmed";
  EXPECT_TRUE([table() sim_isInEditingMode]);
  NSArray *actions = [table() sim_swipeActionsAtIndexPath:at(0, 2)];
  ASSERT_EQ([actions count], 1u);
  EXPECT_OBJC_EQ([(SIMSwipeAction *)[actions objectAtIndex:0] title], @"Delete");
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 2)]);
  EXPECT_EQ(describedRows(table()), "a0 new a2 | b0");
  EXPECT_EQ([table() sim_swipedRow], nil);
  EXPECT_FALSE([table() sim_tapEditControlAtIndexPath:at(0, 9)]);

  [table() setEditing:NO];
  EXPECT_FALSE([table() sim_isInEditingMode]);
  EXPECT_EQ([table() sim_editControlAtIndexPath:at(0, 0)], UITableViewCellEditingStyleNone);
  EXPECT_FALSE([table() sim_tapEditControlAtIndexPath:at(0, 0)]);
  EXPECT_FALSE([table() sim_tapEditControlAtIndexPath:at(0, 1)]);
  EXPECT_TRUE([table() sim_swipeRowAtIndexPath:at(0, 1)]);
}

TEST_F(UITableViewEditingTest, TheDelegateOfTheEditingModeHearsOfNoSwipe) {
  TellingSource *rows = show<TellingSource>({2});
  EXPECT_TRUE([table() sim_tapEditControlAtIndexPath:at(0, 1)]);
  EXPECT_TRUE([table() sim_closeSwipedRow]);
  EXPECT_EQ(takeEvents(rows), "");
  [table() setEditing:NO];
  EXPECT_TRUE([table() sim_swipeRowAtIndexPath:at(0, 1)]);
  EXPECT_TRUE([table() sim_closeSwipedRow]);
  EXPECT_EQ(takeEvents(rows), "will 0.1, did 0.1");
}

TEST_F(UITableViewEditingTest, OnlyTrailingActionsAreUncoveredInTheEditingMode) {
  show<LeadingSource>({1});
  EXPECT_EQ([[table() sim_swipeActionsAtIndexPath:at(0, 0)] count], 1u);
  [table() setEditing:NO];
  EXPECT_EQ([[table() sim_swipeActionsAtIndexPath:at(0, 0)] count], 2u);
}

TEST_F(UITableViewEditingTest, ARowThatInsertsHasNoActionsBehindIt) {
  show<InsertingSource>({1});
  EXPECT_EQ([[table() sim_swipeActionsAtIndexPath:at(0, 0)] count], 0u);
  [table() setEditing:NO];
  EXPECT_EQ([[table() sim_swipeActionsAtIndexPath:at(0, 0)] count], 1u);
}

TEST_F(UITableViewEditingTest, WithoutACommitNothingIsDeleted) {
  show<MovingSource>({2});
  EXPECT_FALSE([table() sim_commitDeleteAtIndexPath:at(0, 0)]);
}
