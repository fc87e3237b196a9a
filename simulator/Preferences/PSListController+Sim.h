// The simulator's own view of a list page, for its parts and for the host. Bundles never include this.
#pragma once

#import <Preferences/GroupIndex.hpp>
#import <Preferences/PSListController.h>

#import <objcxx/Retained.h>

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace sim {

/// What a page knows of the rows that it shows.
struct PSListControllerState {
  objcxx::Retained<UITableView> table;
  objcxx::Retained<NSString> specifierID;

  /// The rows as the table shows them: `_specifiers` as it was when it was last looked at. Starts with a group.
  objcxx::Retained<NSArray> list;
  bool isPrepared = false;
  GroupIndex groups;
  std::unordered_map<PSSpecifier *, NSInteger> indexes;
  objcxx::Retained<NSDictionary> byIdentifier;

  /// Specifiers that hold a cell or a header view, and so have to be parted from it.
  std::unordered_map<PSSpecifier *, objcxx::Retained<PSSpecifier>> linked;
  /// Rows whose cell is being made: a getter may ask for reloads meanwhile, which wait until it is done.
  int cellsInMaking = 0;
  std::vector<objcxx::Retained<PSSpecifier>> reloadsWaiting;
  int updatesOpen = 0;
  bool changedInUpdates = false;
};

}  // namespace sim

@interface PSListController (Sim)
- (sim::PSListControllerState &)sim_listState;
/// Asks `specifiers` unless the rows are known already. Never raises: a page whose rows cannot be made is empty.
- (void)sim_prepareIfNeeded;
/// Takes these rows over as the page's own.
- (void)sim_adoptSpecifiers:(NSArray *)specifiers;
/// Parts the specifier from its cell, control and header views.
- (void)sim_unlink:(PSSpecifier *)specifier;
- (void)sim_unlinkAll;
/// The group of the row; nil when the page does not hold it.
- (PSSpecifier *)sim_groupOfSpecifier:(PSSpecifier *)specifier;
@end

@interface PSListController (SimTaps)
/// What a tap on the row does; the row may be of any type.
- (void)sim_selectSpecifier:(PSSpecifier *)specifier atIndexPath:(NSIndexPath *)indexPath;
/// Marks the row as the chosen one of its radio group and stores its value.
- (void)sim_checkSpecifier:(PSSpecifier *)specifier inGroup:(PSSpecifier *)group;
/// YES when the row bears the check mark of its radio group.
- (BOOL)sim_isChecked:(PSSpecifier *)specifier;
@end
