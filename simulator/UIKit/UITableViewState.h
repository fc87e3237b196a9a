// The state of a table view, shared by the files that implement it.
#pragma once

#include "RowNumbers.hpp"
#include "TableGeometry.hpp"
#include "TableUpdate.hpp"

#import <UIKit/FrameworkSupport.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UITableViewCell+Sim.h>
#import <UIKit/UITableViewHeaderFooterView+Sim.h>
#import <objc/Weak.h>
#include <objcxx/Retained.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace sim {

/// Which optional methods the data source has.
struct DataSourceAnswers {
  bool sections, headerTitle, footerTitle, canEdit, canMove, commit, move;
};

/// Which optional methods the delegate has.
struct DelegateAnswers {
  bool willDisplay, didEndDisplaying, willDisplayHeader, willDisplayFooter;
  bool rowHeight, estimatedRowHeight, headerHeight, footerHeight, headerView, footerView, indentation;
  bool accessory, shouldHighlight, didHighlight, didUnhighlight, willSelect, willDeselect, didSelect, didDeselect;
  bool editingStyle, deleteTitle, editActions, leadingSwipe, trailingSwipe, indents, willEdit, didEdit, target;
};

/// The header or the footer of a section.
struct SectionPart {
  objcxx::Retained<NSString> title;
  objcxx::Retained<UIView> view;
  bool hasTitle = false;  // Whether the data source was asked.
  bool hasView = false;   // Whether the delegate was asked.
  bool isDelegates = false;
  CGFloat paddingAbove = 0;  // Of a header, as part of its height.
};

struct SectionParts {
  SectionPart header;
  SectionPart footer;
};

/// Views that wait to be used again, and the classes to make new ones of, by identifier.
template <typename View>
struct ReuseQueue {
  std::unordered_map<std::string, std::vector<objcxx::Retained<View>>> waiting;
  std::unordered_map<std::string, Class> classes;
};

struct TableViewState {
  UITableViewStyle style = UITableViewStylePlain;
  Weak<id<UITableViewDataSource>> dataSource;
  Weak<id<UITableViewDelegate>> delegate;
  objcxx::Retained<UIContextMenuInteraction> contextMenu;
  DataSourceAnswers source{};
  DelegateAnswers has{};

  CGFloat rowHeight = UITableViewAutomaticDimension;
  CGFloat estimatedRowHeight = UITableViewAutomaticDimension;
  CGFloat learnedRowHeight = 0;  // Of the first row that a cell gave a height; 0 before.
  CGFloat headerHeight = UITableViewAutomaticDimension;
  CGFloat footerHeight = UITableViewAutomaticDimension;
  CGFloat headerTopPadding = UITableViewAutomaticDimension;
  UITableViewCellSeparatorStyle separatorStyle = UITableViewCellSeparatorStyleSingleLine;
  std::optional<UIEdgeInsets> separatorInset;  ///< Nothing until set.
  objcxx::Retained<UIColor> separatorColor;
  objcxx::Retained<UIView> backgroundView;
  objcxx::Retained<UIView> tableHeaderView;
  objcxx::Retained<UIView> tableFooterView;

  bool loaded = false;       // Whether `geometry` holds the counts of the data source.
  CGFloat laidOutWidth = 0;  // What the heights were measured for; so is the next one.
  UIEdgeInsets laidOutSafeArea = UIEdgeInsetsZero;
  bool layingOut = false;
  TableGeometry geometry;
  RowNumbers numbers;  // Of the rows of `geometry`.
  std::vector<SectionParts> parts;
  std::map<RowIndex, objcxx::Retained<UITableViewCell>> live;
  RowIndex guestIndex;                      // The row of `guest`.
  objcxx::Retained<UITableViewCell> guest;  // Outside the bounds, on show for a description.
  ReuseQueue<UITableViewCell> cells;
  ReuseQueue<UITableViewHeaderFooterView> headersAndFooters;

  int updateDepth = 0;
  TableUpdate update;

  CGPoint touchPlace = CGPointZero;  // Where the finger came down, in the outermost view.
  bool touchSelects = false;         // Whether the row under it is selected when it is lifted.
  std::set<RowIndex> selected;
  BOOL allowsSelection = YES;
  BOOL allowsSelectionDuringEditing = NO;
  BOOL allowsMultipleSelection = NO;
  BOOL allowsMultipleSelectionDuringEditing = NO;
  BOOL editing = NO;
  std::optional<RowIndex> swiped;  // The row whose actions show.
  unsigned long swipes = 0;        // How many rows have been swiped open.
};

inline NSIndexPath *pathOf(RowIndex index) { return [NSIndexPath indexPathForRow:index.row inSection:index.section]; }

/// The row that a path names; a row that no table view has when the path is nil or not of two indexes.
inline RowIndex indexOf(NSIndexPath *path) {
  if ([path length] != 2) return {-1, -1};
  return {[path section], [path row]};
}

}  // namespace sim

@interface UITableView (SimRows)
/// Asks for the counts when that is due.
- (void)sim_loadIfNeeded;
/// Throws everything away that came from the data source, and asks for the counts.
- (void)sim_reload;
- (void)sim_updateMargins;
/// The numbers of rows that the data source gives now.
- (void)sim_askCounts:(std::vector<long> &)counts;
- (void)sim_estimateSection:(long)section;
/// Makes the height of the row final. The cell is asked for when only it knows.
- (void)sim_settleHeightOf:(sim::RowIndex)index cell:(UITableViewCell *)cell;
/// A cell for the row from the data source, ready to be shown; not yet among the subviews.
- (UITableViewCell *)sim_makeCellFor:(sim::RowIndex)index;
/// Sets what the table view decides about the cell: frame, editing, selection.
- (void)sim_configureCell:(UITableViewCell *)cell at:(sim::RowIndex)index animated:(BOOL)animated;
/// Takes a cell off the screen and into the reuse queue.
- (void)sim_retireCell:(UITableViewCell *)cell at:(sim::RowIndex)index;
- (void)sim_retireAllCells;
/// Lays the rows out now, or once more after the layout that is under way.
- (void)sim_layOutRows;
/// Where the content has to be for the row, which is there, to show at that place beside what bars cover.
- (CGPoint)sim_offsetForRow:(sim::RowIndex)index position:(UITableViewScrollPosition)position;
- (CGRect)sim_rectOf:(sim::RowIndex)index;
/// The distance of texts from what can be seen of rows, headers and footers.
- (CGFloat)sim_margin;
/// The distance of rows, headers and footers from the left and right edge of the table view.
- (UIEdgeInsets)sim_rowInsets;
/// How far the safe area's edges reach into rows, headers and footers from left and right.
- (UIEdgeInsets)sim_coveredSides;
@end

@interface UITableView (SimReuse)
/// Puts a cell that leaves the screen into the queue. NO when it cannot be used again or enough are waiting.
- (BOOL)sim_queue:(UITableViewCell *)cell;
/// For a data source that keeps cells of its own and gives one that waits.
- (void)sim_takeFromQueue:(UITableViewCell *)cell;
@end

@interface UITableView (SimContextMenus)
/// The delegate is another one: it has menus of rows, or has none.
- (void)sim_updateContextMenu;
@end

@interface UITableView (SimHeights)
/// All heights follow from the delegate, the titles and the cells once more.
- (void)sim_heightsChanged;
@end

@interface UITableView (SimUpdates)
/// Follows an update: live cells, heights, selection and section views move along with their rows.
- (void)sim_applyOutcome:(const sim::TableUpdate::Outcome &)outcome counts:(const std::vector<long> &)counts;
@end

@interface UITableView (SimSections)
/// Sets the heights of the section's header and footer.
- (void)sim_measureSection:(long)section;
/// Keeps the titles of all sections off the edges as far as the width asks for.
- (void)sim_setTitleInsets;
/// Puts the headers and footers that lie in the bounds on the screen.
- (void)sim_showSectionParts;
- (void)sim_dropParts:(sim::SectionParts &)parts;
@end

@interface UITableView (SimEditing)
- (void)sim_configureEditingOfCell:(UITableViewCell *)cell at:(sim::RowIndex)index animated:(BOOL)animated;
@end
