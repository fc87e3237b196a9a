// How the host goes through the rows.
#import "UITableViewState.h"

#include <algorithm>

namespace {

// A cell takes some 60 µs to make and to describe, so that a thousand are ready before a person notices a wait.
constexpr long kMostDescribedRows = 1000;
// Points above and below the bounds in which the rows of a longer table view are described: ten screens, or the rows
// that a fast flick passes in half a second.
constexpr CGFloat kDescribedMargin = 8000;

// Stops counting at the limit: a table may have as many sections as rows.
bool isDescribedWhole(const sim::TableGeometry &geometry) {
  long count = 0;
  for (long section = 0; section < geometry.sectionCount() && count <= kMostDescribedRows; ++section) {
    count += geometry.rowCount(section);
  }
  return count <= kMostDescribedRows;
}

// How many rows of `section`, which has `count`, come before `index` in display order; all when there is no such row.
long rowsBefore(std::optional<sim::RowIndex> index, long section, long count) {
  if (!index || index->section > section) return count;
  return index->section < section ? 0 : index->row;
}

}  // namespace

@implementation UITableView (Sim)

- (void)sim_prepareForDescription {
  if (!_tableViewState->loaded) [self setNeedsLayout];
  [self layoutIfNeeded];
  [self sim_settleHeightsToDescribe];
}

/// Which rows of a long table view are described depends on their heights, and must not change by describing them.
- (void)sim_settleHeightsToDescribe {
  const auto &geometry = _tableViewState->geometry;
  if (isDescribedWhole(geometry)) return;
  for (bool settled = true; settled;) {
    settled = false;
    for (sim::RowIndex index{0, 0}; index.section < geometry.sectionCount(); ++index.section) {
      const NSRange rows = [self sim_rowsToDescribeInSection:index.section];
      for (index.row = long(rows.location); index.row < long(NSMaxRange(rows)) && geometry.contains(index);
           ++index.row) {
        if (geometry.isFinal(index)) continue;
        settled = true;
        (void)[self sim_heightOfRowAtIndexPath:sim::pathOf(index)];
      }
    }
  }
}

- (void)sim_describeRows:(NSRange)rows
               inSection:(NSInteger)section
              usingBlock:(void (^)(NSIndexPath *indexPath, UITableViewCell *cell))visitor {
  [self sim_loadIfNeeded];
  const auto &geometry = _tableViewState->geometry;
  if (section < 0) return;
  // A visitor may make the table view ask for its rows anew.
  for (long row = long(rows.location);
       section < geometry.sectionCount() && row < std::min(geometry.rowCount(section), long(NSMaxRange(rows))); ++row) {
    @autoreleasepool {
      [self sim_visitRow:{section, row} usingBlock:visitor];
    }
  }
}

- (NSRange)sim_rowsToDescribeInSection:(NSInteger)section {
  [self sim_loadIfNeeded];
  const auto &geometry = _tableViewState->geometry;
  if (section < 0 || section >= geometry.sectionCount()) return NSMakeRange(0, 0);
  const long count = geometry.rowCount(section);
  if (isDescribedWhole(geometry)) return NSMakeRange(0, NSUInteger(count));

  const CGRect bounds = [self bounds];
  const double bottom = bounds.origin.y + bounds.size.height + kDescribedMargin;
  const auto last = geometry.firstRowEndingAfter(bottom);
  const long first = rowsBefore(geometry.firstRowEndingAfter(bounds.origin.y - kDescribedMargin), section, count);
  const long end = rowsBefore(last ? geometry.next(*last) : last, section, count);
  return NSMakeRange(NSUInteger(first), NSUInteger(std::max(end - first, 0L)));
}

- (void)sim_visitRow:(sim::RowIndex)index usingBlock:(void (^)(NSIndexPath *indexPath, UITableViewCell *cell))visitor {
  auto &state = *_tableViewState;
  const auto known = state.live.find(index);
  if (known != state.live.end()) {
    const auto cell = known->second;
    [cell.get() layoutIfNeeded];
    visitor(sim::pathOf(index), cell.get());
    return;
  }
  const auto cell = objcxx::share([self sim_makeCellFor:index]);
  if ([self indexPathForCell:cell.get()]) {  // The data source gave a cell that shows in another row.
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

- (CGFloat)sim_likelyHeightOfRowAtIndexPath:(NSIndexPath *)indexPath {
  [self sim_loadIfNeeded];
  const sim::RowIndex index = sim::indexOf(indexPath);
  if (!_tableViewState->geometry.contains(index)) return 0;
  [self sim_settleHeightOf:index cell:nil];
  return _tableViewState->geometry.height(index);
}

- (CGFloat)sim_heightOfRowAtIndexPath:(NSIndexPath *)indexPath {
  auto &state = *_tableViewState;
  const CGFloat likely = [self sim_likelyHeightOfRowAtIndexPath:indexPath];
  const sim::RowIndex index = sim::indexOf(indexPath);
  if (!state.geometry.contains(index)) return 0;
  if (state.geometry.isFinal(index)) return likely;
  [self sim_visitRow:index
          usingBlock:^(NSIndexPath *, UITableViewCell *){
          }];
  return state.geometry.contains(index) ? state.geometry.height(index) : 0;
}

- (void)sim_showRowInMiddle:(NSIndexPath *)indexPath {
  [self sim_loadIfNeeded];
  const sim::RowIndex index = sim::indexOf(indexPath);
  if (!_tableViewState->geometry.contains(index)) return;
  [self sim_moveQuietlyTo:[self sim_offsetForRow:index position:UITableViewScrollPositionMiddle]];
}

- (UITableViewCell *)sim_cellForControlEventsAtIndexPath:(NSIndexPath *)indexPath {
  [self sim_prepareForDescription];
  const sim::RowIndex index = sim::indexOf(indexPath);
  // Estimated heights become final when rows are laid out, which may push the row out of the bounds again.
  constexpr int mostAttempts = 8;
  for (int attempt = 0; attempt < mostAttempts && _tableViewState->geometry.contains(index); ++attempt) {
    if (UITableViewCell *cell = [self cellForRowAtIndexPath:indexPath]) return cell;
    const auto position = attempt == 0 ? UITableViewScrollPositionNone : UITableViewScrollPositionTop;
    [self sim_moveQuietlyTo:[self sim_offsetForRow:index position:position]];
    [self setNeedsLayout];
    [self layoutIfNeeded];
  }
  return [self cellForRowAtIndexPath:indexPath];
}

@end
