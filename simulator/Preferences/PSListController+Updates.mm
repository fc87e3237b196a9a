// Changes of the rows of a page.
#import <Preferences/PSListController+Sim.h>

#import <Preferences/PSTableCell.h>
#import <Preferences/PSTableCell+Sim.h>
#import <Preferences/PreferencesLog.h>
#import <UIKit/UIKit.h>

#import <dispatch/dispatch.h>

using objcxx::share;

namespace {

bool holdsGroup(NSArray *specifiers) {
  for (PSSpecifier *specifier in specifiers) {
    if ([specifier cellType] == PSGroupCell) return true;
  }
  return false;
}

NSArray *pathsOfRange(PSListController *page, NSRange range) {
  NSMutableArray *paths = [NSMutableArray arrayWithCapacity:range.length];
  for (NSUInteger index = range.location; index < NSMaxRange(range); ++index) {
    [paths addObject:[page indexPathForIndex:static_cast<NSInteger>(index)]];
  }
  return paths;
}

UITableViewRowAnimation animationFor(BOOL animated) {
  return animated ? UITableViewRowAnimationFade : UITableViewRowAnimationNone;
}

}  // namespace

@implementation PSListController (Updates)

#pragma mark - One row

- (void)reloadSpecifier:(PSSpecifier *)specifier {
  [self reloadSpecifier:specifier animated:NO];
}

- (void)reloadSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated {
  sim::PSListControllerState &state = [self sim_listState];
  NSInteger group = 0;
  if (!state.table || ![self getGroup:&group row:NULL ofSpecifier:specifier]) return;
  if ([specifier cellType] == PSGroupCell) {
    if (state.cellsInMaking > 0) return [self sim_reloadLater:specifier];
    [state.table.get() reloadSections:[NSIndexSet indexSetWithIndex:static_cast<NSUInteger>(group)]
                     withRowAnimation:animationFor(animated)];
    return;
  }

  PSTableCell *cell = [self cachedCellForSpecifier:specifier];
  if (!cell) return;  // It is made afresh when it comes on screen.
  if ([cell isKindOfClass:[PSTableCell class]] && [cell canReload] && [cell type] == [specifier cellType]) {
    [cell reloadWithSpecifier:specifier animated:animated];
    return;
  }
  if (state.cellsInMaking > 0) return [self sim_reloadLater:specifier];
  [state.table.get() reloadRowsAtIndexPaths:@[ [self indexPathForSpecifier:specifier] ]
                           withRowAnimation:animationFor(animated)];
}

/// A getter that asks for a reload runs while the table is asking for cells, and a table must not change then.
- (void)sim_reloadLater:(PSSpecifier *)specifier {
  sim::PSListControllerState &state = [self sim_listState];
  state.reloadsWaiting.push_back(share(specifier));
  if (state.reloadsWaiting.size() > 1) return;
  dispatch_async(dispatch_get_main_queue(), ^{
    auto waiting = std::move([self sim_listState].reloadsWaiting);
    [self sim_listState].reloadsWaiting.clear();
    for (const auto &each : waiting) [self reloadSpecifier:each.get()];
  });
}

- (void)reloadSpecifierID:(NSString *)identifier {
  [self reloadSpecifierID:identifier animated:NO];
}

- (void)reloadSpecifierID:(NSString *)identifier animated:(BOOL)animated {
  [self reloadSpecifier:[self specifierForID:identifier] animated:animated];
}

- (void)reloadSpecifierAtIndex:(NSInteger)index {
  [self reloadSpecifierAtIndex:index animated:NO];
}

- (void)reloadSpecifierAtIndex:(NSInteger)index animated:(BOOL)animated {
  [self reloadSpecifier:[self specifierAtIndex:index] animated:animated];
}

#pragma mark - The one change behind all that follow

/// Puts `specifiers` in the place of the rows in `range`.
- (void)sim_replaceRange:(NSRange)range withSpecifiers:(NSArray *)specifiers animated:(BOOL)animated {
  [self sim_prepareIfNeeded];
  sim::PSListControllerState &state = [self sim_listState];
  NSArray *list = state.list.get();
  for (id specifier in specifiers) {
    if (![specifier isKindOfClass:[PSSpecifier class]]) {
      [NSException raise:NSInvalidArgumentException format:@"%@ is no specifier", specifier];
    }
  }
  if (NSMaxRange(range) > [list count]) {
    [NSException raise:NSRangeException
                format:@"rows %@ of a page of %lu", NSStringFromRange(range), (unsigned long)[list count]];
  }

  NSArray *removed = [list subarrayWithRange:range];
  const bool startsWithGroup =
      [specifiers count] > 0 && [(PSSpecifier *)[specifiers objectAtIndex:0] cellType] == PSGroupCell;
  const bool onlyRows = range.location > 0 && !holdsGroup(removed) && !holdsGroup(specifiers);
  const bool inPlace = onlyRows && state.table && state.updatesOpen == 0;
  NSArray *removedPaths = inPlace ? pathsOfRange(self, range) : nil;

  NSMutableArray *changed = [[list mutableCopy] autorelease];
  [changed replaceObjectsInRange:range withObjectsFromArray:specifiers];
  if (range.location == 0 && !startsWithGroup && [changed count] > 0 &&
      [(PSSpecifier *)[changed objectAtIndex:0] cellType] != PSGroupCell) {
    [changed insertObject:[PSSpecifier emptyGroupSpecifier] atIndex:0];
  }
  [[removed retain] autorelease];
  [self sim_adoptSpecifiers:changed];
  for (PSSpecifier *specifier in removed) {
    if (state.indexes.count(specifier) > 0) continue;  // It has been put back in at once.
    [self sim_unlink:specifier];
    state.linked.erase(specifier);
  }

  if (state.updatesOpen > 0) {
    state.changedInUpdates = true;
  } else if (inPlace) {
    UITableView *table = state.table.get();
    [table beginUpdates];
    [table deleteRowsAtIndexPaths:removedPaths withRowAnimation:animationFor(animated)];
    [table insertRowsAtIndexPaths:pathsOfRange(self, NSMakeRange(range.location, [specifiers count]))
                 withRowAnimation:animationFor(animated)];
    [table endUpdates];
  } else {
    [state.table.get() reloadData];
  }
}

- (NSUInteger)sim_indexAfterSpecifier:(PSSpecifier *)specifier {
  const NSInteger index = [self indexOfSpecifier:specifier];
  if (index == NSNotFound) {
    sim::logPreferences(@"%@ is not on the page; the rows to follow it are left out.", specifier);
    return NSNotFound;
  }
  return static_cast<NSUInteger>(index) + 1;
}

- (void)beginUpdates {
  [self sim_prepareIfNeeded];
  ++[self sim_listState].updatesOpen;
}

- (void)endUpdates {
  sim::PSListControllerState &state = [self sim_listState];
  if (state.updatesOpen == 0 || --state.updatesOpen > 0 || !state.changedInUpdates) return;
  state.changedInUpdates = false;
  [state.table.get() reloadData];
}

#pragma mark - Adding

- (void)addSpecifier:(PSSpecifier *)specifier {
  [self addSpecifier:specifier animated:NO];
}

- (void)addSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated {
  [self addSpecifiersFromArray:@[ specifier ] animated:animated];
}

- (void)addSpecifiersFromArray:(NSArray *)specifiers {
  [self addSpecifiersFromArray:specifiers animated:NO];
}

- (void)addSpecifiersFromArray:(NSArray *)specifiers animated:(BOOL)animated {
  [self sim_prepareIfNeeded];
  [self insertContiguousSpecifiers:specifiers
                           atIndex:static_cast<NSInteger>([[self sim_listState].list.get() count])
                          animated:animated];
}

- (void)insertSpecifier:(PSSpecifier *)specifier atIndex:(NSInteger)index {
  [self insertSpecifier:specifier atIndex:index animated:NO];
}

- (void)insertSpecifier:(PSSpecifier *)specifier atIndex:(NSInteger)index animated:(BOOL)animated {
  [self insertContiguousSpecifiers:@[ specifier ] atIndex:index animated:animated];
}

- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifier:(PSSpecifier *)other {
  [self insertSpecifier:specifier afterSpecifier:other animated:NO];
}

- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifier:(PSSpecifier *)other animated:(BOOL)animated {
  [self insertContiguousSpecifiers:@[ specifier ] afterSpecifier:other animated:animated];
}

- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifierID:(NSString *)identifier {
  [self insertSpecifier:specifier afterSpecifierID:identifier animated:NO];
}

- (void)insertSpecifier:(PSSpecifier *)specifier afterSpecifierID:(NSString *)identifier animated:(BOOL)animated {
  [self insertContiguousSpecifiers:@[ specifier ] afterSpecifierID:identifier animated:animated];
}

- (void)insertSpecifier:(PSSpecifier *)specifier atEndOfGroup:(NSInteger)group {
  [self insertSpecifier:specifier atEndOfGroup:group animated:NO];
}

- (void)insertSpecifier:(PSSpecifier *)specifier atEndOfGroup:(NSInteger)group animated:(BOOL)animated {
  [self insertContiguousSpecifiers:@[ specifier ] atEndOfGroup:group animated:animated];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers atEndOfGroup:(NSInteger)group {
  [self insertContiguousSpecifiers:specifiers atEndOfGroup:group animated:NO];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers atEndOfGroup:(NSInteger)group animated:(BOOL)animated {
  const NSInteger start = [self indexOfGroup:group];
  if (start == NSNotFound) {
    [NSException raise:NSRangeException format:@"group %ld of %ld", (long)group, (long)[self numberOfGroups]];
  }
  [self insertContiguousSpecifiers:specifiers atIndex:start + 1 + [self rowsForGroup:group] animated:animated];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers atIndex:(NSInteger)index {
  [self insertContiguousSpecifiers:specifiers atIndex:index animated:NO];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers atIndex:(NSInteger)index animated:(BOOL)animated {
  [self sim_replaceRange:NSMakeRange(static_cast<NSUInteger>(index), 0) withSpecifiers:specifiers animated:animated];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers afterSpecifier:(PSSpecifier *)other {
  [self insertContiguousSpecifiers:specifiers afterSpecifier:other animated:NO];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers afterSpecifier:(PSSpecifier *)other animated:(BOOL)animated {
  const NSUInteger index = [self sim_indexAfterSpecifier:other];
  if (index == NSNotFound) return;
  [self sim_replaceRange:NSMakeRange(index, 0) withSpecifiers:specifiers animated:animated];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers afterSpecifierID:(NSString *)identifier {
  [self insertContiguousSpecifiers:specifiers afterSpecifierID:identifier animated:NO];
}

- (void)insertContiguousSpecifiers:(NSArray *)specifiers
                  afterSpecifierID:(NSString *)identifier
                          animated:(BOOL)animated {
  [self insertContiguousSpecifiers:specifiers afterSpecifier:[self specifierForID:identifier] animated:animated];
}

#pragma mark - Removing

- (void)removeSpecifier:(PSSpecifier *)specifier {
  [self removeSpecifier:specifier animated:NO];
}

- (void)removeSpecifier:(PSSpecifier *)specifier animated:(BOOL)animated {
  const NSInteger index = [self indexOfSpecifier:specifier];
  if (index != NSNotFound) [self removeSpecifierAtIndex:index animated:animated];
}

- (void)removeSpecifierID:(NSString *)identifier {
  [self removeSpecifierID:identifier animated:NO];
}

- (void)removeSpecifierID:(NSString *)identifier animated:(BOOL)animated {
  [self removeSpecifier:[self specifierForID:identifier] animated:animated];
}

- (void)removeSpecifierAtIndex:(NSInteger)index {
  [self removeSpecifierAtIndex:index animated:NO];
}

- (void)removeSpecifierAtIndex:(NSInteger)index animated:(BOOL)animated {
  [self sim_replaceRange:NSMakeRange(static_cast<NSUInteger>(index), 1) withSpecifiers:@[] animated:animated];
}

- (void)removeLastSpecifier {
  [self removeLastSpecifierAnimated:NO];
}

- (void)removeLastSpecifierAnimated:(BOOL)animated {
  [self sim_prepareIfNeeded];
  const NSUInteger count = [[self sim_listState].list.get() count];
  if (count > 0) [self removeSpecifierAtIndex:static_cast<NSInteger>(count) - 1 animated:animated];
}

- (void)removeContiguousSpecifiers:(NSArray *)specifiers {
  [self removeContiguousSpecifiers:specifiers animated:NO];
}

- (void)removeContiguousSpecifiers:(NSArray *)specifiers animated:(BOOL)animated {
  [self replaceContiguousSpecifiers:specifiers withSpecifiers:@[] animated:animated];
}

- (void)replaceContiguousSpecifiers:(NSArray *)specifiers withSpecifiers:(NSArray *)replacements {
  [self replaceContiguousSpecifiers:specifiers withSpecifiers:replacements animated:NO];
}

- (void)replaceContiguousSpecifiers:(NSArray *)specifiers
                     withSpecifiers:(NSArray *)replacements
                           animated:(BOOL)animated {
  if ([specifiers count] == 0) return;
  const NSInteger first = [self indexOfSpecifier:[specifiers objectAtIndex:0]];
  NSArray *list = [self sim_listState].list.get();
  const NSRange range = NSMakeRange(static_cast<NSUInteger>(first), [specifiers count]);
  if (first == NSNotFound || NSMaxRange(range) > [list count] ||
      ![[list subarrayWithRange:range] isEqualToArray:specifiers]) {
    sim::logPreferences(@"Rows that do not stand next to each other on the page are not removed.");
    return;
  }
  [self sim_replaceRange:range withSpecifiers:replacements animated:animated];
}

- (void)updateSpecifiers:(NSArray *)specifiers withSpecifiers:(NSArray *)replacements {
  [self replaceContiguousSpecifiers:specifiers withSpecifiers:replacements];
}

@end
