#import "TableSource.h"

#import <UIKit/UITableViewRowAction+Sim.h>
#import <support/objc/ObjCMatchers.h>
#import <support/objc/ObjCTest.h>

#include <objcxx/BlockHandle.h>

using objcxx::adopt;
using testing_support::at;
using testing_support::describedRows;
using testing_support::tableShowing;
using testing_support::takeEvents;

/// Gives an array of row actions.
@interface RowActionSource : TableSource
@end

@implementation RowActionSource
- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView editingStyleForRowAtIndexPath:(NSIndexPath *)path {
  return [path row] == 3 ? UITableViewCellEditingStyleNone : UITableViewCellEditingStyleDelete;
}
- (NSArray *)tableView:(UITableView *)tableView editActionsForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewRowAction *remove =
      [UITableViewRowAction rowActionWithStyle:UITableViewRowActionStyleNormal
                                         title:@"Delete"
                                       handler:^(UITableViewRowAction *action, NSIndexPath *at) {
                                         [self note:[[action title] UTF8String] at:at];
                                       }];
  [remove setBackgroundColor:[UIColor redColor]];
  UITableViewRowAction *destroy = [UITableViewRowAction rowActionWithStyle:UITableViewRowActionStyleDestructive
                                                                     title:@"Destroy"
                                                                   handler:nil];
  return @[ remove, destroy ];
}
- (void)tableView:(UITableView *)tableView willBeginEditingRowAtIndexPath:(NSIndexPath *)path {
  [self note:"begins" at:path];
}
- (void)tableView:(UITableView *)tableView didEndEditingRowAtIndexPath:(NSIndexPath *)path {
  [self note:"ends" at:path];
}
@end

/// Gives configurations for both sides. The handler of the first row's actions never says that it is done.
@interface ConfigurationSource : TableSource {
 @public
  objcxx::BlockHandle<void, BOOL> lastDone;
}
@end

@implementation ConfigurationSource
- (UISwipeActionsConfiguration *)side:(NSString *)title style:(UIContextualActionStyle)style path:(NSIndexPath *)path {
  UIContextualAction *action =
      [UIContextualAction contextualActionWithStyle:style
                                              title:title
                                            handler:^(UIContextualAction *given, UIView *view, void (^done)(BOOL)) {
                                              [self note:[[given title] UTF8String] at:path];
                                              lastDone = objcxx::copyOf(done);
                                              if ([view isKindOfClass:[UITableViewCell class]] && [path row]) done(YES);
                                            }];
  return [UISwipeActionsConfiguration configurationWithActions:@[ action ]];
}
- (UISwipeActionsConfiguration *)tableView:(UITableView *)tableView
    trailingSwipeActionsConfigurationForRowAtIndexPath:(NSIndexPath *)path {
  return [self side:@"Bin" style:UIContextualActionStyleDestructive path:path];
}
- (UISwipeActionsConfiguration *)tableView:(UITableView *)tableView
    leadingSwipeActionsConfigurationForRowAtIndexPath:(NSIndexPath *)path {
  return [self side:@"Pin" style:UIContextualActionStyleNormal path:path];
}
@end

/// Has the plain delete button; the first row cannot be edited, the second is not to be deleted.
@interface DeleteSource : TableSource {
 @public
  BOOL named;
}
@end

@implementation DeleteSource
- (BOOL)tableView:(UITableView *)tableView canEditRowAtIndexPath:(NSIndexPath *)path {
  return [path row] != 0;
}
- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView editingStyleForRowAtIndexPath:(NSIndexPath *)path {
  return [path row] == 1 ? UITableViewCellEditingStyleNone : UITableViewCellEditingStyleDelete;
}
- (NSString *)tableView:(UITableView *)tableView titleForDeleteConfirmationButtonForRowAtIndexPath:(NSIndexPath *)path {
  return named ? @"Remove" : nil;
}
- (void)tableView:(UITableView *)tableView
    commitEditingStyle:(UITableViewCellEditingStyle)style
     forRowAtIndexPath:(NSIndexPath *)path {
  [[self section:0] removeObjectAtIndex:[path row]];
  [tableView deleteRowsAtIndexPaths:@[ path ] withRowAnimation:UITableViewRowAnimationFade];
}
@end

namespace {

class UITableViewSwipeTest : public ObjCTest {
 protected:
  template <typename Source>
  Source *show(std::vector<int> counts) {
    Source *source = [[Source alloc] initWithCounts:counts];
    rows_ = adopt((TableSource *)source);
    table_ = tableShowing(source, 88);
    return source;
  }
  UITableView *table() { return table_.get(); }
  SIMSwipeAction *action(NSInteger row, NSUInteger index) {
    NSArray *actions = [table() sim_swipeActionsAtIndexPath:at(0, row)];
    return index < [actions count] ? [actions objectAtIndex:index] : nil;
  }

  objcxx::Retained<TableSource> rows_;
  objcxx::Retained<UITableView> table_;
};

}  // namespace

TEST_F(UITableViewSwipeTest, RowActionsAreDescribedInOrder) {
  show<RowActionSource>({5});
  EXPECT_EQ([[table() sim_swipeActionsAtIndexPath:at(0, 4)] count], 2u);
  EXPECT_OBJC_EQ([action(4, 0) title], @"Delete");
  EXPECT_OBJC_EQ([action(4, 0) backgroundColor], [UIColor redColor]);
  EXPECT_FALSE([action(4, 0) isDestructive]);
  EXPECT_FALSE([action(4, 0) isLeading]);
  EXPECT_TRUE([action(4, 1) isDestructive]);
}

TEST_F(UITableViewSwipeTest, PerformingRunsTheHandler) {
  RowActionSource *rows = show<RowActionSource>({5});
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 4)]);
  EXPECT_EQ(takeEvents(rows), "begins 0.4, Delete 0.4");
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:1 ofRow:at(0, 1)]);
  EXPECT_EQ(takeEvents(rows), "ends 0.4, begins 0.1");
  EXPECT_FALSE([table() sim_performSwipeActionAtIndex:2 ofRow:at(0, 1)]);
  EXPECT_FALSE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 5)]);
  EXPECT_FALSE([table() sim_performSwipeActionAtIndex:0 ofRow:nil]);
  EXPECT_EQ(takeEvents(rows), "");
}

TEST_F(UITableViewSwipeTest, ARowStaysOpenAfterItsActionUntilTheEditingEnds) {
  RowActionSource *rows = show<RowActionSource>({5});
  EXPECT_OBJC_EQ([table() sim_swipedRow], nil);
  EXPECT_FALSE([table() sim_closeSwipedRow]);
  EXPECT_TRUE([table() sim_swipeRowAtIndexPath:at(0, 1)]);
  EXPECT_TRUE([table() sim_swipeRowAtIndexPath:at(0, 1)]);
  EXPECT_EQ(takeEvents(rows), "begins 0.1");
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 1)]);
  EXPECT_OBJC_EQ([table() sim_swipedRow], at(0, 1));
  EXPECT_TRUE([table() isEditing]);
  EXPECT_EQ(takeEvents(rows), "Delete 0.1");
  [table() setEditing:NO animated:YES];
  EXPECT_OBJC_EQ([table() sim_swipedRow], nil);
  EXPECT_FALSE([table() isEditing]);
  EXPECT_EQ(takeEvents(rows), "ends 0.1");
  EXPECT_FALSE([table() sim_swipeRowAtIndexPath:at(0, 3)]) << "a row without actions";
  EXPECT_FALSE([table() sim_swipeRowAtIndexPath:at(0, 9)]);
  EXPECT_EQ(takeEvents(rows), "");
}

TEST_F(UITableViewSwipeTest, OneRowIsOpenAtATime) {
  RowActionSource *rows = show<RowActionSource>({5});
  (void)[table() sim_swipeRowAtIndexPath:at(0, 1)];
  (void)[table() sim_swipeRowAtIndexPath:at(0, 2)];
  EXPECT_OBJC_EQ([table() sim_swipedRow], at(0, 2));
  EXPECT_TRUE([table() sim_closeSwipedRow]);
  EXPECT_EQ(takeEvents(rows), "begins 0.1, ends 0.1, begins 0.2, ends 0.2");
}

TEST_F(UITableViewSwipeTest, TheEditingModeClosesAnOpenRow) {
  RowActionSource *rows = show<RowActionSource>({5});
  (void)[table() sim_swipeRowAtIndexPath:at(0, 1)];
  [table() setEditing:YES animated:NO];
  EXPECT_OBJC_EQ([table() sim_swipedRow], nil);
  EXPECT_TRUE([table() isEditing]);
  EXPECT_EQ(takeEvents(rows), "begins 0.1, ends 0.1");
}

TEST_F(UITableViewSwipeTest, AnOpenRowMovesAlongAndClosesWhenItGoesOrIsLoadedAnew) {
  RowActionSource *rows = show<RowActionSource>({5});
  const auto open = [&] {
    EXPECT_TRUE([table() sim_swipeRowAtIndexPath:at(0, 1)]);
    takeEvents(rows);
  };
  open();
  [[rows section:0] insertObject:@"new" atIndex:0];
  [table() insertRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:UITableViewRowAnimationFade];
  EXPECT_OBJC_EQ([table() sim_swipedRow], at(0, 2));
  EXPECT_EQ(takeEvents(rows), "");
  [[rows section:0] removeObjectAtIndex:2];
  [table() deleteRowsAtIndexPaths:@[ at(0, 2) ] withRowAnimation:UITableViewRowAnimationFade];
  EXPECT_EQ(takeEvents(rows), "ends 0.2");
  open();
  [table() reloadRowsAtIndexPaths:@[ at(0, 0) ] withRowAnimation:UITableViewRowAnimationFade];
  EXPECT_EQ(takeEvents(rows), "");
  [table() reloadRowsAtIndexPaths:@[ at(0, 1) ] withRowAnimation:UITableViewRowAnimationFade];
  EXPECT_EQ(takeEvents(rows), "ends 0.1");
  open();
  [table() reloadData];
  EXPECT_EQ(takeEvents(rows), "ends 0.1");
  EXPECT_OBJC_EQ([table() sim_swipedRow], nil);
}

TEST_F(UITableViewSwipeTest, AnOpenRowClosesWhenTheTableLeavesTheScreen) {
  RowActionSource *rows = show<RowActionSource>({5});
  const auto window = adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 320, 88)]);
  [window.get() addSubview:table()];
  (void)[table() sim_swipeRowAtIndexPath:at(0, 1)];
  [table() removeFromSuperview];
  EXPECT_EQ(takeEvents(rows), "begins 0.1, ends 0.1");
}

TEST_F(UITableViewSwipeTest, AContextualActionClosesItsRowWhenItIsDone) {
  ConfigurationSource *rows = show<ConfigurationSource>({3});
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 1)]);
  EXPECT_OBJC_EQ([table() sim_swipedRow], nil);
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 0)]);
  EXPECT_OBJC_EQ([table() sim_swipedRow], at(0, 0)) << "not done yet";
  const auto late = rows->lastDone;
  (void)[table() sim_swipeRowAtIndexPath:at(0, 2)];
  late(YES);
  EXPECT_OBJC_EQ([table() sim_swipedRow], at(0, 2)) << "that was for another row";
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 0)]);
  const auto timely = rows->lastDone;
  timely(NO);
  EXPECT_OBJC_EQ([table() sim_swipedRow], nil);
  rows->lastDone = {};
}

TEST_F(UITableViewSwipeTest, ConfigurationsHaveTwoSides) {
  ConfigurationSource *rows = show<ConfigurationSource>({2});
  EXPECT_OBJC_EQ([action(0, 0) title], @"Bin");
  EXPECT_TRUE([action(0, 0) isDestructive]);
  EXPECT_FALSE([action(0, 0) isLeading]);
  EXPECT_OBJC_EQ([action(0, 0) backgroundColor], [UIColor systemRedColor]);
  EXPECT_OBJC_EQ([action(0, 1) title], @"Pin");
  EXPECT_TRUE([action(0, 1) isLeading]);
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:1 ofRow:at(0, 1)]);
  EXPECT_EQ(takeEvents(rows), "Pin 0.1");
}

TEST_F(UITableViewSwipeTest, ADeleteButtonStandsWhereRowsAreDeleted) {
  DeleteSource *rows = show<DeleteSource>({4});
  EXPECT_OBJC_EQ([action(2, 0) title], @"Delete");
  EXPECT_TRUE([action(2, 0) isDestructive]);
  rows->named = YES;
  EXPECT_OBJC_EQ([action(2, 0) title], @"Remove");
  EXPECT_OBJC_EQ(action(0, 0), nil);
  EXPECT_OBJC_EQ(action(1, 0), nil);
  EXPECT_TRUE([table() sim_performSwipeActionAtIndex:0 ofRow:at(0, 2)]);
  EXPECT_EQ(describedRows(table()), "a0 a1 a3");
  EXPECT_OBJC_EQ([table() sim_swipedRow], nil);
}

TEST_F(UITableViewSwipeTest, TheEditingModeHasNoSwipes) {
  show<RowActionSource>({2});
  [table() setEditing:YES];
  EXPECT_FALSE([table() sim_swipeRowAtIndexPath:at(0, 0)]);
  EXPECT_EQ([table() sim_swipedRow], nil);
}

TEST_F(UITableViewSwipeTest, WithoutAnyThereAreNone) {
  show<TableSource>({1});
  EXPECT_EQ([[table() sim_swipeActionsAtIndexPath:at(0, 0)] count], 0u);
}

TEST_F(UITableViewSwipeTest, ARowActionIsCopiedWithAllItHas) {
  __block int runs = 0;
  UITableViewRowAction *action = [UITableViewRowAction rowActionWithStyle:UITableViewRowActionStyleNormal
                                                                    title:@"Share"
                                                                  handler:^(UITableViewRowAction *, NSIndexPath *) {
                                                                    ++runs;
                                                                  }];
  const auto copy = adopt((UITableViewRowAction *)[action copy]);
  EXPECT_OBJC_EQ([copy.get() title], @"Share");
  EXPECT_EQ([copy.get() style], UITableViewRowActionStyleNormal);
  EXPECT_OBJC_EQ([copy.get() backgroundColor], [UIColor systemGrayColor]);
  [copy.get() sim_performAtIndexPath:at(0, 0)];
  EXPECT_EQ(runs, 1);
}
