// Insertions, deletions, moves and reloads of single rows and sections.
#import "UITableViewState.h"

#import <dispatch/dispatch.h>
#include <objcxx/BlockHandle.h>

@implementation UITableView (Updates)

- (void)beginUpdates {
  [self sim_loadIfNeeded];
  ++_tableViewState->updateDepth;
}

- (void)endUpdates {
  auto &state = *_tableViewState;
  if (state.updateDepth == 0) {
    [NSException raise:NSInternalInconsistencyException format:@"-endUpdates without -beginUpdates on %@.", self];
  }
  if (--state.updateDepth > 0) return;

  const sim::TableUpdate update = std::exchange(state.update, {});
  std::vector<long> counts;
  [self sim_askCounts:counts];
  const auto outcome = update.resolve(state.geometry.counts(), counts);
  if (!outcome.error.empty()) {
    state.loaded = false;  // What shows next is what the data source has.
    [NSException raise:NSInternalInconsistencyException
                format:@"Invalid update of %@: %s.", [self class], outcome.error.c_str()];
  }
  [self sim_applyOutcome:outcome counts:counts];
  [self sim_layOutRows];
}

- (void)performBatchUpdates:(void (^)(void))updates completion:(void (^)(BOOL finished))completion {
  [self beginUpdates];
  if (updates) updates();
  [self endUpdates];
  if (!completion) return;
  const auto handler = objcxx::copyOf(completion);
  dispatch_async(dispatch_get_main_queue(), ^{
    handler(YES);
  });
}

#pragma mark - Sections

- (void)insertSections:(NSIndexSet *)sections withRowAnimation:(UITableViewRowAnimation)animation {
  [self beginUpdates];
  for (NSUInteger at = [sections firstIndex]; at != NSNotFound; at = [sections indexGreaterThanIndex:at]) {
    _tableViewState->update.insertSection(static_cast<long>(at));
  }
  [self endUpdates];
}

- (void)deleteSections:(NSIndexSet *)sections withRowAnimation:(UITableViewRowAnimation)animation {
  [self beginUpdates];
  for (NSUInteger at = [sections firstIndex]; at != NSNotFound; at = [sections indexGreaterThanIndex:at]) {
    _tableViewState->update.deleteSection(static_cast<long>(at));
  }
  [self endUpdates];
}

- (void)reloadSections:(NSIndexSet *)sections withRowAnimation:(UITableViewRowAnimation)animation {
  [self beginUpdates];
  for (NSUInteger at = [sections firstIndex]; at != NSNotFound; at = [sections indexGreaterThanIndex:at]) {
    _tableViewState->update.reloadSection(static_cast<long>(at));
  }
  [self endUpdates];
}

- (void)moveSection:(NSInteger)section toSection:(NSInteger)newSection {
  [self beginUpdates];
  _tableViewState->update.moveSection(section, newSection);
  [self endUpdates];
}

#pragma mark - Rows

- (void)insertRowsAtIndexPaths:(NSArray *)indexPaths withRowAnimation:(UITableViewRowAnimation)animation {
  [self beginUpdates];
  for (NSIndexPath *path in indexPaths) _tableViewState->update.insertRow(sim::indexOf(path));
  [self endUpdates];
}

- (void)deleteRowsAtIndexPaths:(NSArray *)indexPaths withRowAnimation:(UITableViewRowAnimation)animation {
  [self beginUpdates];
  for (NSIndexPath *path in indexPaths) _tableViewState->update.deleteRow(sim::indexOf(path));
  [self endUpdates];
}

- (void)reloadRowsAtIndexPaths:(NSArray *)indexPaths withRowAnimation:(UITableViewRowAnimation)animation {
  [self beginUpdates];
  for (NSIndexPath *path in indexPaths) _tableViewState->update.reloadRow(sim::indexOf(path));
  [self endUpdates];
}

- (void)moveRowAtIndexPath:(NSIndexPath *)indexPath toIndexPath:(NSIndexPath *)newIndexPath {
  [self beginUpdates];
  _tableViewState->update.moveRow(sim::indexOf(indexPath), sim::indexOf(newIndexPath));
  [self endUpdates];
}

@end

@implementation UITableView (SimUpdates)

/// An open row moves along; one that goes or is loaded anew closes.
- (void)sim_moveSwipedRow:(const sim::TableUpdate::Outcome &)outcome {
  auto &state = *_tableViewState;
  if (!state.swiped) return;
  const auto &fate = outcome.rows[state.swiped->section][state.swiped->row];
  if (fate.index && !fate.reloaded) {
    state.swiped = *fate.index;
  } else {
    (void)[self sim_closeSwipedRow];
  }
}

- (void)sim_applyOutcome:(const sim::TableUpdate::Outcome &)outcome counts:(const std::vector<long> &)counts {
  auto &state = *_tableViewState;
  [self sim_moveSwipedRow:outcome];
  const sim::TableGeometry former = state.geometry;
  state.geometry.reset(counts, 0);
  state.numbers.follow(outcome, counts);

  auto formerParts = std::exchange(state.parts, std::vector<sim::SectionParts>(counts.size()));
  for (std::size_t section = 0; section < formerParts.size(); ++section) {
    if (const auto to = outcome.sections[section]) {
      state.parts[*to] = std::move(formerParts[section]);
    } else {
      [self sim_dropParts:formerParts[section]];
    }
  }
  const auto formerLive = std::exchange(state.live, {});
  const auto formerSelected = std::exchange(state.selected, {});
  for (long section = 0; section < state.geometry.sectionCount(); ++section) [self sim_estimateSection:section];
  for (long section = 0; section < former.sectionCount(); ++section) {
    for (long row = 0; row < former.rowCount(section); ++row) {
      const auto &fate = outcome.rows[section][row];
      const sim::RowIndex from{section, row};
      if (!fate.index || fate.reloaded) continue;
      if (former.isFinal(from)) state.geometry.setHeight(*fate.index, former.height(from), true);
      if (formerSelected.contains(from)) state.selected.insert(*fate.index);
    }
  }
  for (const auto &[from, cell] : formerLive) {
    const auto &fate = outcome.rows[from.section][from.row];
    if (fate.index && !fate.reloaded) {
      state.live[*fate.index] = cell;
    } else {
      [self sim_retireCell:cell.get() at:from];
    }
  }
}

@end
