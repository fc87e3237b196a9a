// Selection, by code and by finger.
#import "UITableViewState.h"

#import <UIKit/UIView+Sim.h>

@implementation UITableView (Selection)

- (BOOL)allowsSelection {
  return _tableViewState->allowsSelection;
}

- (void)setAllowsSelection:(BOOL)allows {
  _tableViewState->allowsSelection = allows;
}

- (BOOL)allowsSelectionDuringEditing {
  return _tableViewState->allowsSelectionDuringEditing;
}

- (void)setAllowsSelectionDuringEditing:(BOOL)allows {
  _tableViewState->allowsSelectionDuringEditing = allows;
}

- (BOOL)allowsMultipleSelection {
  return _tableViewState->allowsMultipleSelection;
}

- (void)setAllowsMultipleSelection:(BOOL)allows {
  _tableViewState->allowsMultipleSelection = allows;
}

- (BOOL)allowsMultipleSelectionDuringEditing {
  return _tableViewState->allowsMultipleSelectionDuringEditing;
}

- (void)setAllowsMultipleSelectionDuringEditing:(BOOL)allows {
  _tableViewState->allowsMultipleSelectionDuringEditing = allows;
}

- (NSIndexPath *)indexPathForSelectedRow {
  const auto &selected = _tableViewState->selected;
  return selected.empty() ? nil : sim::pathOf(*selected.begin());
}

- (NSArray *)indexPathsForSelectedRows {
  const auto &selected = _tableViewState->selected;
  if (selected.empty()) return nil;
  NSMutableArray *paths = [NSMutableArray array];
  for (const sim::RowIndex index : selected) [paths addObject:sim::pathOf(index)];
  return paths;
}

- (BOOL)sim_selectsSeveral {
  const auto &state = *_tableViewState;
  return state.editing ? state.allowsMultipleSelectionDuringEditing : state.allowsMultipleSelection;
}

- (void)sim_setSelected:(BOOL)selected row:(sim::RowIndex)index animated:(BOOL)animated {
  auto &state = *_tableViewState;
  if (selected) {
    state.selected.insert(index);
  } else {
    state.selected.erase(index);
  }
  const auto live = state.live.find(index);
  if (live != state.live.end()) [live->second.get() setSelected:selected animated:animated];
}

- (void)selectRowAtIndexPath:(NSIndexPath *)indexPath
                    animated:(BOOL)animated
              scrollPosition:(UITableViewScrollPosition)scrollPosition {
  [self sim_loadIfNeeded];
  auto &state = *_tableViewState;
  const sim::RowIndex index = sim::indexOf(indexPath);
  if (indexPath && !state.geometry.contains(index)) return;
  if (!indexPath || ![self sim_selectsSeveral]) {
    const auto former = state.selected;
    for (const sim::RowIndex other : former) [self sim_setSelected:NO row:other animated:animated];
  }
  if (!indexPath) return;
  [self sim_setSelected:YES row:index animated:animated];
  // For this method alone, "none" means: do not scroll.
  if (scrollPosition == UITableViewScrollPositionNone) return;
  [self setContentOffset:[self sim_offsetForRow:index position:scrollPosition] animated:animated];
}

- (void)deselectRowAtIndexPath:(NSIndexPath *)indexPath animated:(BOOL)animated {
  const sim::RowIndex index = sim::indexOf(indexPath);
  if (_tableViewState->selected.contains(index)) [self sim_setSelected:NO row:index animated:animated];
}

@end

@implementation UITableView (SimSelection)

- (BOOL)sim_allowsSelectionNow {
  const auto &state = *_tableViewState;
  if (!state.editing) return state.allowsSelection || state.allowsMultipleSelection;
  return state.allowsSelectionDuringEditing || state.allowsMultipleSelectionDuringEditing;
}

- (BOOL)sim_highlightsRowAtIndexPath:(NSIndexPath *)indexPath {
  const auto &state = *_tableViewState;
  if (![self sim_allowsSelectionNow]) return NO;
  return !state.has.shouldHighlight || [state.delegate tableView:self shouldHighlightRowAtIndexPath:indexPath];
}

- (BOOL)sim_tapShowsAtIndexPath:(NSIndexPath *)indexPath cell:(UITableViewCell *)cell {
  const bool shows = [cell selectionStyle] != UITableViewCellSelectionStyleNone || _tableViewState->has.didSelect;
  return shows && [self sim_highlightsRowAtIndexPath:indexPath];
}

- (BOOL)sim_tapRowAtIndexPath:(NSIndexPath *)indexPath {
  const auto cell = objcxx::share([self sim_cellForControlEventsAtIndexPath:indexPath]);
  const auto keepAlive = objcxx::share(self);
  if (!cell || ![cell.get() sim_acceptsTouches] || ![self sim_highlightsRowAtIndexPath:indexPath]) return NO;

  auto &state = *_tableViewState;
  [cell.get() setHighlighted:YES animated:NO];
  if (state.has.didHighlight) [state.delegate tableView:self didHighlightRowAtIndexPath:indexPath];
  [cell.get() setHighlighted:NO animated:NO];
  if (state.has.didUnhighlight) [state.delegate tableView:self didUnhighlightRowAtIndexPath:indexPath];

  if ([self sim_selectsSeveral] && state.selected.contains(sim::indexOf(indexPath))) {
    return [self sim_deselectByUser:indexPath];
  }
  return [self sim_selectByUser:indexPath];
}

- (BOOL)sim_selectByUser:(NSIndexPath *)indexPath {
  auto &state = *_tableViewState;
  NSIndexPath *goal = indexPath;
  if (state.has.willSelect) goal = [state.delegate tableView:self willSelectRowAtIndexPath:indexPath];
  const sim::RowIndex index = sim::indexOf(goal);
  if (!goal || !state.geometry.contains(index)) return NO;

  if (![self sim_selectsSeveral]) {
    for (NSIndexPath *other in [self indexPathsForSelectedRows]) {
      if (![other isEqual:goal]) [self sim_deselectByUser:other];
    }
  }
  if (!state.geometry.contains(index)) return NO;  // Reloaded by the delegate.
  [self sim_setSelected:YES row:index animated:NO];
  if (state.has.didSelect) [state.delegate tableView:self didSelectRowAtIndexPath:goal];
  return YES;
}

- (BOOL)sim_deselectByUser:(NSIndexPath *)indexPath {
  auto &state = *_tableViewState;
  NSIndexPath *goal = indexPath;
  if (state.has.willDeselect) goal = [state.delegate tableView:self willDeselectRowAtIndexPath:indexPath];
  if (!goal || !state.selected.contains(sim::indexOf(goal))) return NO;

  [self sim_setSelected:NO row:sim::indexOf(goal) animated:NO];
  if (state.has.didDeselect) [state.delegate tableView:self didDeselectRowAtIndexPath:goal];
  return YES;
}

- (BOOL)sim_tapAccessoryAtIndexPath:(NSIndexPath *)indexPath {
  const auto cell = objcxx::share([self sim_cellForControlEventsAtIndexPath:indexPath]);
  auto &state = *_tableViewState;
  if (!cell || ![cell.get() sim_acceptsTouches] || !state.has.accessory) return NO;
  if ([cell.get() sim_shownAccessoryView]) return NO;  // A view of the cell's own takes its touches itself.

  const UITableViewCellAccessoryType type = [cell.get() sim_shownAccessoryType];
  if (type != UITableViewCellAccessoryDetailButton && type != UITableViewCellAccessoryDetailDisclosureButton) {
    return NO;
  }
  [state.delegate tableView:self accessoryButtonTappedForRowWithIndexPath:indexPath];
  return YES;
}

@end
