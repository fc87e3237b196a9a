// The numbers by which the host names rows.
#import "UITableViewState.h"

namespace {

/// A table view may take another's place on a page, so no two rows of the process have the same number.
std::uint32_t nextNumber = 1;

}  // namespace

@implementation UITableView (SimIdentity)

- (void)sim_knowRowAtIndexPath:(NSIndexPath *)indexPath by:(const sim::RowTraits &)traits {
  auto &state = *_tableViewState;
  const sim::RowIndex index = sim::indexOf(indexPath);
  if (state.geometry.contains(index)) state.numbers.know(index, traits);
}

- (void)sim_settleRowNumbers {
  [self sim_loadIfNeeded];
  _tableViewState->numbers.settle(nextNumber);
}

- (BOOL)sim_hasRowNumbers {
  return _tableViewState->loaded && _tableViewState->numbers.isSettled();
}

- (std::uint32_t)sim_numberOfRowAtIndexPath:(NSIndexPath *)indexPath {
  const sim::RowIndex index = sim::indexOf(indexPath);
  return _tableViewState->geometry.contains(index) ? _tableViewState->numbers.at(index) : 0;
}

- (NSIndexPath *)sim_indexPathOfRowNumbered:(std::uint32_t)number {
  [self sim_loadIfNeeded];
  const auto index = _tableViewState->numbers.find(number);
  return index ? sim::pathOf(*index) : nil;
}

@end
