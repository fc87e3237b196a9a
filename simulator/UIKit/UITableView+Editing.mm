// The editing mode: which rows can be edited and moved, and the drag of a row.
#import "UITableViewState.h"

#import <UIKit/UIView+Sim.h>

@implementation UITableView (Editing)

- (BOOL)isEditing {
  return _tableViewState->editing || _tableViewState->swiped;
}

- (void)setEditing:(BOOL)editing {
  [self setEditing:editing animated:NO];
}

- (void)setEditing:(BOOL)editing animated:(BOOL)animated {
  (void)[self sim_closeSwipedRow];
  if (_tableViewState->editing == (editing ? YES : NO)) return;
  _tableViewState->editing = editing ? YES : NO;
  const auto live = _tableViewState->live;
  for (const auto &[index, cell] : live) [self sim_configureEditingOfCell:cell.get() at:index animated:animated];
  [self setNeedsLayout];
}

@end

@implementation UITableView (SimEditingMode)

- (BOOL)sim_isInEditingMode {
  return _tableViewState->editing;
}

- (BOOL)sim_hasRowAtIndexPath:(NSIndexPath *)indexPath {
  [self sim_loadIfNeeded];
  return _tableViewState->geometry.contains(sim::indexOf(indexPath));
}

- (BOOL)sim_canEditRowAtIndexPath:(NSIndexPath *)indexPath {
  auto &state = *_tableViewState;
  if (![self sim_hasRowAtIndexPath:indexPath]) return NO;
  return !state.source.canEdit || [state.dataSource tableView:self canEditRowAtIndexPath:indexPath];
}

- (UITableViewCellEditingStyle)sim_editingStyleAtIndexPath:(NSIndexPath *)indexPath {
  auto &state = *_tableViewState;
  if (![self sim_canEditRowAtIndexPath:indexPath]) return UITableViewCellEditingStyleNone;
  return state.has.editingStyle ? [state.delegate tableView:self editingStyleForRowAtIndexPath:indexPath]
                                : UITableViewCellEditingStyleDelete;
}

/// YES when the row would show a reorder handle in the editing mode.
- (BOOL)sim_isMovable:(NSIndexPath *)indexPath {
  auto &state = *_tableViewState;
  if (!state.source.move || ![self sim_canEditRowAtIndexPath:indexPath]) return NO;
  return !state.source.canMove || [state.dataSource tableView:self canMoveRowAtIndexPath:indexPath];
}

- (BOOL)sim_canMoveRowAtIndexPath:(NSIndexPath *)indexPath {
  return _tableViewState->editing && [self sim_isMovable:indexPath];
}

- (BOOL)sim_moveRowFrom:(NSIndexPath *)from to:(NSIndexPath *)to {
  if (![self sim_canMoveRowAtIndexPath:from]) return NO;
  auto &state = *_tableViewState;
  const sim::RowIndex origin = sim::indexOf(from);
  sim::RowIndex goal = sim::indexOf(to);
  if (![self sim_acceptsMoveFrom:origin to:goal]) return NO;

  const auto keepAlive = objcxx::share(self);
  if (state.has.target) {
    to = [state.delegate tableView:self targetIndexPathForMoveFromRowAtIndexPath:from toProposedIndexPath:to];
    const bool sentBack = goal != origin && sim::indexOf(to) == origin;
    goal = sim::indexOf(to);
    if (sentBack || ![self sim_acceptsMoveFrom:origin to:goal]) return NO;
  }
  if (goal == origin) return YES;  // Let go where it was taken: nothing is told.

  // The row is where the finger left it before the data source is told, as on a device.
  std::vector<long> counts = state.geometry.counts();
  sim::TableUpdate update;
  update.moveRow(origin, goal);
  const std::vector<long> before = counts;
  --counts[origin.section];
  ++counts[goal.section];
  [self sim_applyOutcome:update.resolve(before, counts) counts:counts];
  bool told = false;
  @try {
    [state.dataSource tableView:self moveRowAtIndexPath:from toIndexPath:to];
    told = true;
  } @finally {
    if (!told) state.loaded = false;  // It raised: what shows next is what it has.
    [self setNeedsLayout];
  }
  return YES;
}

/// Whether the goal of a drag is there once the row has been taken out.
- (BOOL)sim_acceptsMoveFrom:(sim::RowIndex)origin to:(sim::RowIndex)goal {
  const auto &geometry = _tableViewState->geometry;
  if (!geometry.contains(origin) || goal.section < 0 || goal.section >= geometry.sectionCount()) return NO;
  const long rows = geometry.rowCount(goal.section) + (goal.section == origin.section ? 0 : 1);
  return goal.row >= 0 && goal.row < rows;
}

- (BOOL)sim_commit:(UITableViewCellEditingStyle)style atIndexPath:(NSIndexPath *)indexPath {
  auto &state = *_tableViewState;
  if (!state.source.commit || [self sim_editingStyleAtIndexPath:indexPath] != style) return NO;
  const auto keepAlive = objcxx::share(self);
  [state.dataSource tableView:self commitEditingStyle:style forRowAtIndexPath:indexPath];
  return YES;
}

- (UITableViewCellEditingStyle)sim_editControlAtIndexPath:(NSIndexPath *)indexPath {
  return _tableViewState->editing ? [self sim_editingStyleAtIndexPath:indexPath] : UITableViewCellEditingStyleNone;
}

- (BOOL)sim_commitDeleteAtIndexPath:(NSIndexPath *)indexPath {
  return [self sim_commit:UITableViewCellEditingStyleDelete atIndexPath:indexPath];
}

- (BOOL)sim_commitInsertAtIndexPath:(NSIndexPath *)indexPath {
  return [self sim_commit:UITableViewCellEditingStyleInsert atIndexPath:indexPath];
}

@end

@implementation UITableView (SimEditing)

- (void)sim_configureEditingOfCell:(UITableViewCell *)cell at:(sim::RowIndex)index animated:(BOOL)animated {
  auto &state = *_tableViewState;
  BOOL editing = NO;
  if (state.editing) {
    NSIndexPath *path = sim::pathOf(index);
    editing = [self sim_canEditRowAtIndexPath:path];
    [cell sim_setEditingStyle:[self sim_editingStyleAtIndexPath:path]];
    [cell setShowsReorderControl:[self sim_isMovable:path]];
    [cell setShouldIndentWhileEditing:!state.has.indents || [state.delegate tableView:self
                                                                shouldIndentWhileEditingRowAtIndexPath:path]];
  }
  if ([cell isEditing] != editing) [cell setEditing:editing animated:animated];
}

@end
