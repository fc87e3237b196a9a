// How the host goes through the rows.
#import "UITableViewState.h"

@implementation UITableView (Sim)

- (void)sim_prepareForDescription {
  if (!_tableViewState->loaded) [self setNeedsLayout];
  [self layoutIfNeeded];
}

- (void)sim_describeRowsInSection:(NSInteger)section
                       usingBlock:(void (^)(NSIndexPath *indexPath, UITableViewCell *cell))visitor {
  [self sim_loadIfNeeded];
  auto &state = *_tableViewState;
  if (section < 0) return;
  for (long row = 0; section < state.geometry.sectionCount() && row < state.geometry.rowCount(section); ++row) {
    @autoreleasepool {
      [self sim_visitRow:{section, row} usingBlock:visitor];
    }
  }
}

- (void)sim_visitRow:(sim::RowIndex)index
          usingBlock:(void (^)(NSIndexPath *indexPath, UITableViewCell *cell))visitor {
  auto &state = *_tableViewState;
  const auto known = state.live.find(index);
  if (known != state.live.end()) {
    const auto cell = known->second;
    [cell.get() layoutIfNeeded];
    visitor(sim::pathOf(index), cell.get());
    return;
  }
  const auto cell = objcxx::share([self sim_makeCellFor:index]);
  if ([cell.get() superview] == self) {  // The data source gave a cell that shows in another row.
    visitor(sim::pathOf(index), cell.get());
    return;
  }
  const auto formerGuest = state.guest;
  const sim::RowIndex formerIndex = state.guestIndex;
  state.guest = cell;
  state.guestIndex = index;
  @try {
    [self addSubview:cell.get()];
    [cell.get() layoutIfNeeded];
    visitor(sim::pathOf(index), cell.get());
  } @finally {
    state.guest = formerGuest;
    state.guestIndex = formerIndex;
    [self sim_retireCell:cell.get() at:index];
  }
}

- (CGFloat)sim_heightOfRowAtIndexPath:(NSIndexPath *)indexPath {
  [self sim_loadIfNeeded];
  auto &state = *_tableViewState;
  const sim::RowIndex index = sim::indexOf(indexPath);
  if (!state.geometry.contains(index)) return 0;
  [self sim_settleHeightOf:index cell:nil];
  if (!state.geometry.isFinal(index)) {
    [self sim_visitRow:index
            usingBlock:^(NSIndexPath *, UITableViewCell *){
            }];
  }
  return state.geometry.contains(index) ? state.geometry.height(index) : 0;
}

- (UITableViewCell *)sim_cellForControlEventsAtIndexPath:(NSIndexPath *)indexPath {
  [self sim_prepareForDescription];
  const sim::RowIndex index = sim::indexOf(indexPath);
  // Estimated heights become final when rows are laid out, which may push the row out of the bounds again.
  constexpr int mostAttempts = 8;
  for (int attempt = 0; attempt < mostAttempts && _tableViewState->geometry.contains(index); ++attempt) {
    if (UITableViewCell *cell = [self cellForRowAtIndexPath:indexPath]) return cell;
    [self sim_scrollTo:index
              position:attempt == 0 ? UITableViewScrollPositionNone : UITableViewScrollPositionTop];
    [self setNeedsLayout];
    [self layoutIfNeeded];
  }
  return [self cellForRowAtIndexPath:indexPath];
}

@end
