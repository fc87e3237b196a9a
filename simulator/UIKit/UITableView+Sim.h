// The simulator's own face of a table view: how the host shows its rows and passes on what a finger does.
#pragma once

#import <UIKit/UIScrollView+Sim.h>
#import <UIKit/UITableView.h>

#include <UIKit/RowNumbers.hpp>

#include <cstdint>

@class UIImage;

/// An action that a swipe over a row uncovers.
@interface SIMSwipeAction : NSObject {
 @private
  NSString *_title;
  UIColor *_backgroundColor;
  UIImage *_image;
  BOOL _destructive;
  BOOL _leading;
}
@property(nonatomic, readonly, copy) NSString *title;
@property(nonatomic, readonly, retain) UIColor *backgroundColor;
@property(nonatomic, retain) UIImage *image;
@property(nonatomic, readonly, getter=isDestructive) BOOL destructive;
/// YES on the leading side of the row.
@property(nonatomic, readonly, getter=isLeading) BOOL leading;
@end

@interface UITableView (SimSeparators)
/// nil, or nothing set, where the table view leaves it to the system.
@property(nonatomic, readonly) UIColor *sim_ownSeparatorColor;
@property(nonatomic, readonly) BOOL sim_hasSeparatorInset;
@end

@interface UITableView (Sim)
/// Brings the table view up to date: pending counts, layout, the cells in the bounds.
- (void)sim_prepareForDescription;
/// Gives `visitor` the cells of the rows of `section` that are in `rows`, in order. Cells outside the bounds are made,
/// shown to the visitor as subviews of the table view, and put into the reuse queue: keep neither cell nor path beyond
/// the call. The visitor must not change the table view. Time is linear in the number of rows.
- (void)sim_describeRows:(NSRange)rows
               inSection:(NSInteger)section
              usingBlock:(void (^)(NSIndexPath *indexPath, UITableViewCell *cell))visitor;
/// The rows of `section` to make cells for: all of them, or in a table view of more than a thousand rows those within
/// some screens of the bounds.
- (NSRange)sim_rowsToDescribeInSection:(NSInteger)section;

/// The height in points, an estimate where only the cell knows it; 0 for a row that is not there. Makes no cell.
- (CGFloat)sim_likelyHeightOfRowAtIndexPath:(NSIndexPath *)indexPath;
/// The final height in points, never an estimate; 0 for a row that is not there.
- (CGFloat)sim_heightOfRowAtIndexPath:(NSIndexPath *)indexPath;
/// Has the row in the middle of what can be seen, without anybody's code having moved it.
- (void)sim_showRowInMiddle:(NSIndexPath *)indexPath;
/// Scrolls the row into the bounds and gives its live cell, whose controls may then be worked; nil for a row that is
/// not there.
- (UITableViewCell *)sim_cellForControlEventsAtIndexPath:(NSIndexPath *)indexPath;
@end

/// The numbers by which the host names rows; see sim::RowNumbers.
@interface UITableView (SimIdentity)
/// What the row is known again by after a reload. Nothing for a path that names no row.
- (void)sim_knowRowAtIndexPath:(NSIndexPath *)indexPath by:(const sim::RowTraits &)traits;
/// Numbers the rows that have no number, after all was said of them that is known.
- (void)sim_settleRowNumbers;
/// NO when rows have come or were loaded anew since.
@property(nonatomic, readonly) BOOL sim_hasRowNumbers;
/// 0 for a row that is not there or has no number yet. No two rows of the process ever have the same.
- (std::uint32_t)sim_numberOfRowAtIndexPath:(NSIndexPath *)indexPath;
/// nil when no row has it.
- (NSIndexPath *)sim_indexPathOfRowNumbered:(std::uint32_t)number;
@end

@interface UITableView (SimHeadersAndFooters)
/// The title; nil when the section has a view of its own there or nothing.
- (NSString *)sim_titleForHeaderInSection:(NSInteger)section;
- (NSString *)sim_titleForFooterInSection:(NSInteger)section;
/// The delegate's own view; nil when it gives none. Kept by the table view until the section is loaded again.
- (UIView *)sim_viewForHeaderInSection:(NSInteger)section;
- (UIView *)sim_viewForFooterInSection:(NSInteger)section;
/// The space above the rows, in points: of the delegate's choice, or what the title or the distance from the section
/// before takes.
- (CGFloat)sim_heightOfHeaderInSection:(NSInteger)section;
/// The space below the rows.
- (CGFloat)sim_heightOfFooterInSection:(NSInteger)section;
@end

/// All of these answer NO, nothing or UITableViewCellEditingStyleNone for a path that names no row.
@interface UITableView (SimSelection)
/// YES when selection is allowed in the present mode; the row itself may still refuse a tap.
@property(nonatomic, readonly) BOOL sim_allowsSelectionNow;
/// Whether a tap on the row, which `cell` shows, does anything that can be seen. The delegate may still refuse it.
- (BOOL)sim_tapShowsAtIndexPath:(NSIndexPath *)indexPath cell:(UITableViewCell *)cell;
/// What a finger does: scrolls the row into the bounds, highlights, selects. NO when the row refuses.
- (BOOL)sim_tapRowAtIndexPath:(NSIndexPath *)indexPath;
/// NO when the row shows no button as its accessory, or the delegate does not take it.
- (BOOL)sim_tapAccessoryAtIndexPath:(NSIndexPath *)indexPath;
@end

@interface UITableView (SimEditingMode)
/// Whether the table view is in it itself; `isEditing` says so of a swiped row, too.
@property(nonatomic, readonly) BOOL sim_isInEditingMode;
- (BOOL)sim_hasRowAtIndexPath:(NSIndexPath *)indexPath;
- (BOOL)sim_canEditRowAtIndexPath:(NSIndexPath *)indexPath;
- (UITableViewCellEditingStyle)sim_editingStyleAtIndexPath:(NSIndexPath *)indexPath;
/// YES when the row shows a reorder handle now.
- (BOOL)sim_canMoveRowAtIndexPath:(NSIndexPath *)indexPath;
/// A drag by the reorder handle. `to` counts as if the row had been taken out. The delegate may change the goal. NO
/// when the row has no handle, a path is not there, or the delegate sends the row back where it was.
- (BOOL)sim_moveRowFrom:(NSIndexPath *)from to:(NSIndexPath *)to;
/// What stands before the row in the editing mode, of the table view and not of a swiped row.
- (UITableViewCellEditingStyle)sim_editControlAtIndexPath:(NSIndexPath *)indexPath;
/// The delete control of the editing mode, confirmed. NO when the row cannot be deleted.
- (BOOL)sim_commitDeleteAtIndexPath:(NSIndexPath *)indexPath;
/// NO when the data source does not take it.
- (BOOL)sim_commitInsertAtIndexPath:(NSIndexPath *)indexPath;
@end

@interface UITableView (SimSwipe)
/// The actions (of SIMSwipeAction) that swipes over the row uncover: trailing ones, then leading ones. In the editing
/// mode those that the row's delete control uncovers: the trailing ones.
- (NSArray *)sim_swipeActionsAtIndexPath:(NSIndexPath *)indexPath;
/// The row that stands open; nil when none does.
@property(nonatomic, readonly) NSIndexPath *sim_swipedRow;
/// A swipe over the row, which uncovers its actions until the row is closed: by a touch elsewhere, by the end of the
/// editing, when the row goes or is loaded anew, and when the table view leaves the screen. One row is open at a time.
/// NO when it has no actions, and in the editing mode.
- (BOOL)sim_swipeRowAtIndexPath:(NSIndexPath *)indexPath;
/// A tap on the control that stands before the row in the editing mode: uncovers the actions of a row that can be
/// deleted, or inserts. NO when there is none.
- (BOOL)sim_tapEditControlAtIndexPath:(NSIndexPath *)indexPath;
/// What a touch beside the open row does. NO when none is open.
- (BOOL)sim_closeSwipedRow;
/// A tap on one of the actions above, after a swipe where the row is closed. As on a device, the row is still open
/// afterwards unless the action's code has closed it: a contextual action by its completion handler, a row action by
/// ending the editing. NO when there is no action of that index.
- (BOOL)sim_performSwipeActionAtIndex:(NSUInteger)index ofRow:(NSIndexPath *)indexPath;
@end
