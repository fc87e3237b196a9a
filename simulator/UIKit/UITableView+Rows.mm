// Counts, heights and the cells of the rows that lie in the bounds.
#include "SystemMargin.hpp"
#import "UITableViewState.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat kDefaultRowHeight = 44;

/// A height that the table view takes as it is; nothing for the automatic one and for what is no height.
bool isHeight(CGFloat height) { return std::isfinite(height) && height >= 0; }

}  // namespace

@implementation UITableView (SimRows)

#pragma mark - Counts

- (void)sim_askCounts:(std::vector<long> &)counts {
  auto &state = *_tableViewState;
  counts.clear();
  if (!state.dataSource) return;
  const NSInteger sections = state.source.sections ? [state.dataSource numberOfSectionsInTableView:self] : 1;
  for (NSInteger section = 0; section < sections; ++section) {
    counts.push_back(std::max<long>([state.dataSource tableView:self numberOfRowsInSection:section], 0));
  }
}

- (void)sim_loadIfNeeded {
  const auto &state = *_tableViewState;
  // The rows of a data source that nobody owns any more go with it.
  const bool isOrphaned = state.geometry.sectionCount() > 0 && !state.dataSource;
  if (!state.loaded || isOrphaned) [self sim_reload];
}

- (void)sim_reload {
  auto &state = *_tableViewState;
  state.loaded = true;  // Before the questions: the data source may ask for the counts in turn.
  state.laidOutWidth = [self bounds].size.width;
  state.laidOutSafeArea = [self safeAreaInsets];
  (void)[self sim_closeSwipedRow];
  [self sim_retireAllCells];
  for (sim::SectionParts &parts : state.parts) [self sim_dropParts:parts];
  state.parts.clear();
  state.selected.clear();
  state.geometry.reset({}, 0);
  state.numbers.reload({});

  std::vector<long> counts;
  [self sim_askCounts:counts];
  state.geometry.reset(counts, kDefaultRowHeight);
  state.numbers.reload(counts);
  state.parts.resize(counts.size());
  for (long section = 0; section < state.geometry.sectionCount(); ++section) [self sim_estimateSection:section];
  [self sim_updateMargins];
  [self setNeedsLayout];
}

- (void)sim_updateMargins {
  _tableViewState->geometry.setMargins([_tableViewState->tableHeaderView.get() bounds].size.height,
                                       [_tableViewState->tableFooterView.get() bounds].size.height);
}

#pragma mark - Heights

- (void)sim_estimateSection:(long)section {
  auto &state = *_tableViewState;
  [self sim_measureSection:section];
  const bool asksAll = state.has.rowHeight && !state.has.estimatedRowHeight && state.estimatedRowHeight == 0;
  CGFloat estimate = state.estimatedRowHeight;
  if (!(estimate > 0)) {
    estimate = !state.has.rowHeight && isHeight(state.rowHeight) ? state.rowHeight
               : state.learnedRowHeight > 0                      ? state.learnedRowHeight
                                                                 : kDefaultRowHeight;
  }
  // The delegate's code may reload: what it is asked about may be gone when it has answered.
  for (sim::RowIndex index{section, 0}; state.geometry.contains(index); ++index.row) {
    CGFloat height = estimate;
    if (asksAll) {
      height = [state.delegate tableView:self heightForRowAtIndexPath:sim::pathOf(index)];
    } else if (state.has.estimatedRowHeight) {
      height = [state.delegate tableView:self estimatedHeightForRowAtIndexPath:sim::pathOf(index)];
    }
    if (!state.geometry.contains(index)) return;
    state.geometry.setHeight(index, isHeight(height) ? height : estimate, asksAll && isHeight(height));
  }
}

- (void)sim_settleHeightOf:(sim::RowIndex)index cell:(UITableViewCell *)cell {
  auto &state = *_tableViewState;
  if (state.geometry.isFinal(index)) return;

  CGFloat height = state.has.rowHeight ? [state.delegate tableView:self heightForRowAtIndexPath:sim::pathOf(index)]
                                       : state.rowHeight;
  if (!isHeight(height)) {
    if (!cell) return;
    height = [cell systemLayoutSizeFittingSize:CGSizeMake([cell bounds].size.width, 0)
                 withHorizontalFittingPriority:UILayoutPriorityRequired
                       verticalFittingPriority:UILayoutPriorityFittingSizeLevel]
                 .height;
    if (height == 0) {
      NSLog(
          @"Constraints suggest a height of zero for the content view of the table view cell %@, which is taken to be "
          @"unintentional: it gets the standard height.",
          cell);
    }
    if (!isHeight(height) || height == 0) height = kDefaultRowHeight;
    [self sim_learnRowHeight:height];
  }
  if (state.geometry.contains(index)) state.geometry.setHeight(index, height, true);
}

/// Without an estimate of its owner's, a table view makes its own: rows of one table are alike as a rule, and a long
/// one would jump under the user as its rows become known.
- (void)sim_learnRowHeight:(CGFloat)height {
  auto &state = *_tableViewState;
  if (state.learnedRowHeight > 0 || state.estimatedRowHeight > 0 || state.has.estimatedRowHeight) return;
  state.learnedRowHeight = height;
  for (sim::RowIndex index{0, 0}; index.section < state.geometry.sectionCount(); ++index.section) {
    for (index.row = 0; index.row < state.geometry.rowCount(index.section); ++index.row) {
      if (!state.geometry.isFinal(index)) state.geometry.setHeight(index, height, false);
    }
  }
}

- (CGFloat)sim_margin {
  return sim::marginForWidth([self bounds].size.width);
}

- (UIEdgeInsets)sim_rowInsets {
  if (_tableViewState->style != UITableViewStyleInsetGrouped) return UIEdgeInsetsZero;
  const CGFloat margin = [self sim_margin];
  const UIEdgeInsets safeArea = [self safeAreaInsets];
  return UIEdgeInsetsMake(0, margin + safeArea.left, 0, margin + safeArea.right);
}

- (UIEdgeInsets)sim_coveredSides {
  if (_tableViewState->style == UITableViewStyleInsetGrouped) return UIEdgeInsetsZero;
  const UIEdgeInsets safeArea = [self safeAreaInsets];
  return UIEdgeInsetsMake(0, safeArea.left, 0, safeArea.right);
}

- (CGFloat)sim_rowWidth {
  const UIEdgeInsets insets = [self sim_rowInsets];
  return std::max<CGFloat>([self bounds].size.width - insets.left - insets.right, 0);
}

- (CGRect)sim_rectOf:(sim::RowIndex)index {
  const auto &geometry = _tableViewState->geometry;
  if (!geometry.contains(index)) return CGRectZero;
  return CGRectMake([self sim_rowInsets].left, geometry.rowTop(index), [self sim_rowWidth], geometry.height(index));
}

#pragma mark - Cells

- (UITableViewCell *)sim_makeCellFor:(sim::RowIndex)index {
  auto &state = *_tableViewState;
  NSIndexPath *path = sim::pathOf(index);
  UITableViewCell *cell = [state.dataSource tableView:self cellForRowAtIndexPath:path];
  if (!cell) {
    [NSException raise:NSInternalInconsistencyException
                format:@"The data source %@ gave no cell for row %ld of section %ld.", state.dataSource.get(),
                       index.row, index.section];
  }
  if (!state.geometry.contains(index)) return cell;  // Reloaded meanwhile with fewer rows.
  if (state.has.indentation) {
    [cell setIndentationLevel:[state.delegate tableView:self indentationLevelForRowAtIndexPath:path]];
  }
  [self sim_takeFromQueue:cell];
  [self sim_configureCell:cell at:index animated:NO];
  [self sim_settleHeightOf:index cell:cell];
  [cell setFrame:[self sim_rectOf:index]];
  if (state.has.willDisplay) [state.delegate tableView:self willDisplayCell:cell forRowAtIndexPath:path];
  return cell;
}

- (void)sim_configureCell:(UITableViewCell *)cell at:(sim::RowIndex)index animated:(BOOL)animated {
  auto &state = *_tableViewState;
  CGRect frame = [cell frame];
  frame.size.width = [self sim_rowWidth];
  [cell setFrame:frame];
  [self sim_setMarginsOf:cell];
  [self sim_configureEditingOfCell:cell at:index animated:animated];
  const BOOL selected = state.selected.contains(index);
  if ([cell isSelected] != selected) [cell setSelected:selected animated:NO];
}

- (void)sim_setMarginsOf:(UITableViewCell *)cell {
  [cell sim_setMargin:[self sim_margin] coveredSides:[self sim_coveredSides]];
}

// Cells in the queue stay where they are, hidden, as on a device: one that shows again has moved nowhere.
- (void)sim_putAwayCell:(UITableViewCell *)cell {
  if ([self sim_queue:cell]) {
    [cell endEditing:YES];
    [cell setHidden:YES];
  } else {
    [cell removeFromSuperview];
  }
}

- (void)sim_retireCell:(UITableViewCell *)cell at:(sim::RowIndex)index {
  auto &state = *_tableViewState;
  const auto keepAlive = objcxx::share(cell);
  [self sim_putAwayCell:cell];
  if (state.has.didEndDisplaying) {
    [state.delegate tableView:self didEndDisplayingCell:cell forRowAtIndexPath:sim::pathOf(index)];
  }
}

- (void)sim_retireAllCells {
  const auto live = std::exchange(_tableViewState->live, {});
  for (const auto &[index, cell] : live) [self sim_retireCell:cell.get() at:index];
}

#pragma mark - Layout

- (void)layoutSubviews {
  [super layoutSubviews];
  auto &state = *_tableViewState;
  if (state.layingOut) return;
  state.layingOut = true;
  @try {
    [self sim_loadIfNeeded];
    [self sim_followWidth];
    [self sim_showRows];
    [self sim_showSectionParts];
    [self sim_placeViewsBesideRows];
  } @finally {
    state.layingOut = false;
  }
}

/// Texts wrap otherwise in another width, so that no height holds any more.
- (void)sim_followWidth {
  auto &state = *_tableViewState;
  const CGFloat width = [self bounds].size.width;
  const UIEdgeInsets safeArea = [self safeAreaInsets];
  const bool sameSides = safeArea.left == state.laidOutSafeArea.left && safeArea.right == state.laidOutSafeArea.right;
  if (width == state.laidOutWidth && sameSides) return;
  state.laidOutWidth = width;
  state.laidOutSafeArea = safeArea;
  for (const auto &[at, cell] : state.live) {
    [cell.get() setFrame:[self sim_rectOf:at]];
    [self sim_setMarginsOf:cell.get()];
  }
  [self sim_setTitleInsets];
  [self sim_heightsChanged];
}

- (void)sim_layOutRows {
  [self setNeedsLayout];
  if (!_tableViewState->layingOut) [self layoutIfNeeded];
}

/// Has a cell for each row in the bounds and none for any other.
- (void)sim_showRows {
  auto &state = *_tableViewState;
  const CGRect bounds = [self bounds];
  const CGFloat top = bounds.origin.y;
  const CGFloat bottom = top + bounds.size.height;

  [self sim_retireRowsOutsideFrom:top to:bottom];
  auto index = state.geometry.firstRowEndingAfter(top);
  double y = index ? state.geometry.rowTop(*index) : 0;
  while (index && y < bottom) {
    [self sim_showRow:*index];
    if (!state.geometry.contains(*index)) break;
    const auto next = state.geometry.next(*index);
    y += state.geometry.height(*index) + (next ? state.geometry.gap(*index, *next) : 0);
    index = next;
  }
  [self sim_retireRowsOutsideFrom:top to:bottom];
  for (const auto &[at, cell] : state.live) [cell.get() setFrame:[self sim_rectOf:at]];
}

- (void)sim_showRow:(sim::RowIndex)index {
  auto &state = *_tableViewState;
  const auto known = state.live.find(index);
  if (known != state.live.end()) {
    [self sim_settleHeightOf:index cell:known->second.get()];
    return;
  }
  const auto cell = objcxx::share([self sim_makeCellFor:index]);
  if (!state.geometry.contains(index)) {
    if (![self indexPathForCell:cell.get()]) [self sim_putAwayCell:cell.get()];
    return;
  }
  // A data source that gives the same cell for two rows shows it in the later one.
  std::erase_if(state.live, [&](const auto &entry) { return entry.second.get() == cell.get(); });
  state.live[index] = cell;
  [self addSubview:cell.get()];
}

- (void)sim_retireRowsOutsideFrom:(CGFloat)top to:(CGFloat)bottom {
  auto &state = *_tableViewState;
  std::vector<sim::RowIndex> outside;
  for (const auto &[index, cell] : state.live) {
    const double rowTop = state.geometry.rowTop(index);
    if (rowTop >= bottom || rowTop + state.geometry.height(index) <= top) outside.push_back(index);
  }
  for (const sim::RowIndex index : outside) {
    const auto entry = state.live.extract(index);
    if (!entry.empty()) [self sim_retireCell:entry.mapped().get() at:index];
  }
}

- (void)sim_placeViewsBesideRows {
  auto &state = *_tableViewState;
  const CGRect bounds = [self bounds];
  [self sim_updateMargins];
  const CGFloat height = state.geometry.totalHeight();
  [self setContentSize:CGSizeMake(bounds.size.width, height)];
  [state.backgroundView.get() setFrame:bounds];
  const CGFloat headerHeight = [state.tableHeaderView.get() bounds].size.height;
  [state.tableHeaderView.get() setFrame:CGRectMake(0, 0, bounds.size.width, headerHeight)];
  const CGFloat footerHeight = [state.tableFooterView.get() bounds].size.height;
  [state.tableFooterView.get() setFrame:CGRectMake(0, height - footerHeight, bounds.size.width, footerHeight)];
}

- (CGPoint)sim_offsetForRow:(sim::RowIndex)index position:(UITableViewScrollPosition)position {
  [self sim_settleHeightOf:index cell:nil];
  [self setContentSize:CGSizeMake([self bounds].size.width, _tableViewState->geometry.totalHeight())];
  const CGRect row = [self sim_rectOf:index];
  const CGRect bounds = [self bounds];
  const UIEdgeInsets inset = [self adjustedContentInset];
  const CGFloat atTop = row.origin.y - inset.top;
  const CGFloat atBottom = CGRectGetMaxY(row) + inset.bottom - bounds.size.height;
  CGFloat y = bounds.origin.y;
  switch (position) {
    case UITableViewScrollPositionNone: y = atTop < y ? atTop : std::max(y, atBottom); break;
    case UITableViewScrollPositionTop: y = atTop; break;
    case UITableViewScrollPositionMiddle: y = (atTop + atBottom) / 2; break;
    case UITableViewScrollPositionBottom: y = atBottom; break;
  }
  return CGPointMake(bounds.origin.x, std::clamp(y, [self sim_leastOffset].y, [self sim_greatestOffset].y));
}

@end
