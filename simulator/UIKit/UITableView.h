// Rows in sections, given by a data source and looked after by a delegate.
#pragma once

#import <UIKit/NSIndexPath+UIKit.h>
#import <UIKit/UIContextMenuInteraction.h>
#import <UIKit/UIScrollView.h>
#import <UIKit/UITableViewCell.h>

#include <objcxx/HiddenState.h>

@class UISwipeActionsConfiguration;
@class UITableView;
@class UITableViewHeaderFooterView;
@class UITableViewRowAction;

typedef NS_ENUM(NSInteger, UITableViewStyle) {
  UITableViewStylePlain = 0,
  UITableViewStyleGrouped,
  UITableViewStyleInsetGrouped,
};

typedef NS_ENUM(NSInteger, UITableViewScrollPosition) {
  UITableViewScrollPositionNone = 0,
  UITableViewScrollPositionTop,
  UITableViewScrollPositionMiddle,
  UITableViewScrollPositionBottom,
};

typedef NS_ENUM(NSInteger, UITableViewRowAnimation) {
  UITableViewRowAnimationFade = 0,
  UITableViewRowAnimationRight,
  UITableViewRowAnimationLeft,
  UITableViewRowAnimationTop,
  UITableViewRowAnimationBottom,
  UITableViewRowAnimationNone,
  UITableViewRowAnimationMiddle,
  UITableViewRowAnimationAutomatic = 100,
};

typedef NS_ENUM(NSInteger, UITableViewCellSeparatorStyle) {
  UITableViewCellSeparatorStyleNone = 0,
  UITableViewCellSeparatorStyleSingleLine,
};

/// Stands for a height that the table view finds out itself.
UIKIT_EXTERN const CGFloat UITableViewAutomaticDimension;

@protocol UITableViewDataSource <NSObject>
- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section;
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath;
@optional
- (NSInteger)numberOfSectionsInTableView:(UITableView *)tableView;
- (NSString *)tableView:(UITableView *)tableView titleForHeaderInSection:(NSInteger)section;
- (NSString *)tableView:(UITableView *)tableView titleForFooterInSection:(NSInteger)section;
- (BOOL)tableView:(UITableView *)tableView canEditRowAtIndexPath:(NSIndexPath *)indexPath;
- (BOOL)tableView:(UITableView *)tableView canMoveRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView
    commitEditingStyle:(UITableViewCellEditingStyle)editingStyle
     forRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView
    moveRowAtIndexPath:(NSIndexPath *)sourceIndexPath
           toIndexPath:(NSIndexPath *)destinationIndexPath;
@end

@protocol UITableViewDelegate <NSObject, UIScrollViewDelegate>
@optional
- (void)tableView:(UITableView *)tableView
      willDisplayCell:(UITableViewCell *)cell
    forRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView willDisplayHeaderView:(UIView *)view forSection:(NSInteger)section;
- (void)tableView:(UITableView *)tableView willDisplayFooterView:(UIView *)view forSection:(NSInteger)section;
- (void)tableView:(UITableView *)tableView
    didEndDisplayingCell:(UITableViewCell *)cell
       forRowAtIndexPath:(NSIndexPath *)indexPath;

- (CGFloat)tableView:(UITableView *)tableView heightForRowAtIndexPath:(NSIndexPath *)indexPath;
- (CGFloat)tableView:(UITableView *)tableView heightForHeaderInSection:(NSInteger)section;
- (CGFloat)tableView:(UITableView *)tableView heightForFooterInSection:(NSInteger)section;
- (CGFloat)tableView:(UITableView *)tableView estimatedHeightForRowAtIndexPath:(NSIndexPath *)indexPath;
- (UIView *)tableView:(UITableView *)tableView viewForHeaderInSection:(NSInteger)section;
- (UIView *)tableView:(UITableView *)tableView viewForFooterInSection:(NSInteger)section;
- (NSInteger)tableView:(UITableView *)tableView indentationLevelForRowAtIndexPath:(NSIndexPath *)indexPath;

- (void)tableView:(UITableView *)tableView accessoryButtonTappedForRowWithIndexPath:(NSIndexPath *)indexPath;
- (BOOL)tableView:(UITableView *)tableView shouldHighlightRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView didHighlightRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView didUnhighlightRowAtIndexPath:(NSIndexPath *)indexPath;
- (NSIndexPath *)tableView:(UITableView *)tableView willSelectRowAtIndexPath:(NSIndexPath *)indexPath;
- (NSIndexPath *)tableView:(UITableView *)tableView willDeselectRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView didDeselectRowAtIndexPath:(NSIndexPath *)indexPath;

- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView
           editingStyleForRowAtIndexPath:(NSIndexPath *)indexPath;
- (NSString *)tableView:(UITableView *)tableView
    titleForDeleteConfirmationButtonForRowAtIndexPath:(NSIndexPath *)indexPath;
- (NSArray<UITableViewRowAction *> *)tableView:(UITableView *)tableView
                  editActionsForRowAtIndexPath:(NSIndexPath *)indexPath;
- (UISwipeActionsConfiguration *)tableView:(UITableView *)tableView
    leadingSwipeActionsConfigurationForRowAtIndexPath:(NSIndexPath *)indexPath;
- (UISwipeActionsConfiguration *)tableView:(UITableView *)tableView
    trailingSwipeActionsConfigurationForRowAtIndexPath:(NSIndexPath *)indexPath;
- (BOOL)tableView:(UITableView *)tableView shouldIndentWhileEditingRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView willBeginEditingRowAtIndexPath:(NSIndexPath *)indexPath;
- (void)tableView:(UITableView *)tableView didEndEditingRowAtIndexPath:(NSIndexPath *)indexPath;
- (NSIndexPath *)tableView:(UITableView *)tableView
    targetIndexPathForMoveFromRowAtIndexPath:(NSIndexPath *)sourceIndexPath
                         toProposedIndexPath:(NSIndexPath *)proposedDestinationIndexPath;
/// The menu of a finger that stays on the row; nil for none. `point` is in the table's coordinates.
- (UIContextMenuConfiguration *)tableView:(UITableView *)tableView
    contextMenuConfigurationForRowAtIndexPath:(NSIndexPath *)indexPath
                                        point:(CGPoint)point;
- (void)tableView:(UITableView *)tableView
    willDisplayContextMenuWithConfiguration:(UIContextMenuConfiguration *)configuration
                                   animator:(id<UIContextMenuInteractionAnimating>)animator;
- (void)tableView:(UITableView *)tableView
    willEndContextMenuInteractionWithConfiguration:(UIContextMenuConfiguration *)configuration
                                          animator:(id<UIContextMenuInteractionAnimating>)animator;
@end

SIM_STATE_TYPE(TableViewState);

/// Main thread. Only the rows that lie in the bounds have cells; the cells of the others wait in the reuse queue.
/// Counts are asked at -reloadData, cells at the next layout.
@interface UITableView : UIScrollView {
 @private
  SIM_STATE(TableViewState, _tableViewState);
}
/// Designated.
- (instancetype)initWithFrame:(CGRect)frame style:(UITableViewStyle)style;
@property(nonatomic, readonly) UITableViewStyle style;
/// Not owned. What it answers to is noted when it is set.
@property(nonatomic, assign) id<UITableViewDataSource> dataSource;
/// Not owned. What it answers to is noted when it is set.
@property(nonatomic, assign) id<UITableViewDelegate> delegate;

/// Heights in points. `rowHeight` is automatic at first; an estimate of 0 has every height asked in advance.
@property(nonatomic) CGFloat rowHeight;
@property(nonatomic) CGFloat estimatedRowHeight;
@property(nonatomic) CGFloat sectionHeaderHeight;
@property(nonatomic) CGFloat sectionFooterHeight;
@property(nonatomic) CGFloat sectionHeaderTopPadding;
@property(nonatomic) UITableViewCellSeparatorStyle separatorStyle;
@property(nonatomic) UIEdgeInsets separatorInset;
@property(nonatomic, retain) UIColor *separatorColor;
@property(nonatomic, retain) UIView *backgroundView;
@property(nonatomic, retain) UIView *tableHeaderView;
@property(nonatomic, retain) UIView *tableFooterView;

@property(nonatomic, readonly) NSInteger numberOfSections;
/// Raises NSRangeException for a section that is not there.
- (NSInteger)numberOfRowsInSection:(NSInteger)section;
- (CGRect)rectForSection:(NSInteger)section;
- (CGRect)rectForHeaderInSection:(NSInteger)section;
- (CGRect)rectForFooterInSection:(NSInteger)section;
/// In content coordinates; CGRectZero for a row that is not there.
- (CGRect)rectForRowAtIndexPath:(NSIndexPath *)indexPath;
- (NSIndexPath *)indexPathForRowAtPoint:(CGPoint)point;
/// nil for a cell that does not show.
- (NSIndexPath *)indexPathForCell:(UITableViewCell *)cell;
/// nil for a row that does not show.
- (UITableViewCell *)cellForRowAtIndexPath:(NSIndexPath *)indexPath;
@property(nonatomic, readonly) NSArray<__kindof UITableViewCell *> *visibleCells;
/// nil when no row shows.
@property(nonatomic, readonly) NSArray<NSIndexPath *> *indexPathsForVisibleRows;
/// Raises NSRangeException for a row that is not there. NSNotFound as the row stands for the head of the section.
- (void)scrollToRowAtIndexPath:(NSIndexPath *)indexPath
              atScrollPosition:(UITableViewScrollPosition)position
                      animated:(BOOL)animated;

- (void)reloadData;
@end

@interface UITableView (ContextMenus)
/// Of the menus of rows; nil while the delegate has none.
@property(nonatomic, readonly) UIContextMenuInteraction *contextMenuInteraction;
@end

@interface UITableView (HeadersAndFooters)
/// nil when the section shows none, or a view of another class.
- (UITableViewHeaderFooterView *)headerViewForSection:(NSInteger)section;
- (UITableViewHeaderFooterView *)footerViewForSection:(NSInteger)section;
@end

@interface UITableView (Reuse)
/// A class must be UITableViewCell or a subclass; nil removes the registration.
- (void)registerClass:(Class)cellClass forCellReuseIdentifier:(NSString *)identifier;
- (void)registerClass:(Class)viewClass forHeaderFooterViewReuseIdentifier:(NSString *)identifier;
/// A waiting cell after -prepareForReuse, else one of the registered class, else nil.
- (UITableViewCell *)dequeueReusableCellWithIdentifier:(NSString *)identifier;
/// Like above; raises NSInternalInconsistencyException when no class is registered and none waits.
- (UITableViewCell *)dequeueReusableCellWithIdentifier:(NSString *)identifier forIndexPath:(NSIndexPath *)indexPath;
- (UITableViewHeaderFooterView *)dequeueReusableHeaderFooterViewWithIdentifier:(NSString *)identifier;
@end

/// After each update the counts of the data source have to be the former ones with the changes applied;
/// NSInternalInconsistencyException is raised when they are not, and when a change names a row that is not there.
@interface UITableView (Updates)
- (void)beginUpdates;
- (void)endUpdates;
/// `completion` is called from the main queue with YES.
- (void)performBatchUpdates:(void (^)(void))updates completion:(void (^)(BOOL finished))completion;
- (void)insertSections:(NSIndexSet *)sections withRowAnimation:(UITableViewRowAnimation)animation;
- (void)deleteSections:(NSIndexSet *)sections withRowAnimation:(UITableViewRowAnimation)animation;
- (void)reloadSections:(NSIndexSet *)sections withRowAnimation:(UITableViewRowAnimation)animation;
- (void)moveSection:(NSInteger)section toSection:(NSInteger)newSection;
- (void)insertRowsAtIndexPaths:(NSArray<NSIndexPath *> *)indexPaths withRowAnimation:(UITableViewRowAnimation)animation;
- (void)deleteRowsAtIndexPaths:(NSArray<NSIndexPath *> *)indexPaths withRowAnimation:(UITableViewRowAnimation)animation;
- (void)reloadRowsAtIndexPaths:(NSArray<NSIndexPath *> *)indexPaths withRowAnimation:(UITableViewRowAnimation)animation;
- (void)moveRowAtIndexPath:(NSIndexPath *)indexPath toIndexPath:(NSIndexPath *)newIndexPath;
@end

@interface UITableView (Selection)
/// YES at first.
@property(nonatomic) BOOL allowsSelection;
/// NO at first.
@property(nonatomic) BOOL allowsSelectionDuringEditing;
@property(nonatomic) BOOL allowsMultipleSelection;
@property(nonatomic) BOOL allowsMultipleSelectionDuringEditing;
@property(nonatomic, readonly) NSIndexPath *indexPathForSelectedRow;
/// nil when no row is selected.
@property(nonatomic, readonly) NSArray<NSIndexPath *> *indexPathsForSelectedRows;
/// Asks and tells the delegate nothing. nil deselects all rows.
- (void)selectRowAtIndexPath:(NSIndexPath *)indexPath
                    animated:(BOOL)animated
              scrollPosition:(UITableViewScrollPosition)scrollPosition;
- (void)deselectRowAtIndexPath:(NSIndexPath *)indexPath animated:(BOOL)animated;
@end

@interface UITableView (Editing)
/// YES in the editing mode and while a row stands open after a swipe.
@property(nonatomic, getter=isEditing) BOOL editing;
/// Closes a row that stands open, whatever `editing` is.
- (void)setEditing:(BOOL)editing animated:(BOOL)animated;
@end
