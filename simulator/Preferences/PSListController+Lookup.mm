// Where the rows of a page are.
#import <Preferences/PSListController+Sim.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell.h>
#import <UIKit/UIKit.h>

namespace {

std::size_t positionFrom(NSInteger number) {
  return number < 0 ? static_cast<std::size_t>(-1) : static_cast<std::size_t>(number);
}

NSInteger numberFrom(std::optional<std::size_t> position) {
  return position ? static_cast<NSInteger>(*position) : NSNotFound;
}

}  // namespace

@implementation PSListController (Lookup)

- (const sim::PSListControllerState &)sim_preparedState {
  [self sim_prepareIfNeeded];
  return [self sim_listState];
}

- (PSSpecifier *)specifierForID:(NSString *)identifier {
  return identifier ? [[self sim_preparedState].byIdentifier.get() objectForKey:identifier] : nil;
}

- (NSArray *)specifiersForIDs:(NSArray *)identifiers {
  NSMutableArray *found = [NSMutableArray array];
  for (NSString *identifier in identifiers) {
    if (PSSpecifier *specifier = [self specifierForID:identifier]) [found addObject:specifier];
  }
  return found;
}

- (PSSpecifier *)specifierAtIndex:(NSInteger)index {
  NSArray *list = [self sim_preparedState].list.get();
  return positionFrom(index) < [list count] ? [list objectAtIndex:static_cast<NSUInteger>(index)] : nil;
}

- (PSSpecifier *)specifierAtIndexPath:(NSIndexPath *)indexPath {
  return indexPath ? [self specifierAtIndex:[self indexForIndexPath:indexPath]] : nil;
}

- (BOOL)containsSpecifier:(PSSpecifier *)specifier {
  return [self indexOfSpecifier:specifier] != NSNotFound;
}

- (NSInteger)indexOfSpecifier:(PSSpecifier *)specifier {
  const auto &indexes = [self sim_preparedState].indexes;
  const auto found = indexes.find(specifier);
  return found == indexes.end() ? NSNotFound : found->second;
}

- (NSInteger)indexOfSpecifierID:(NSString *)identifier {
  return [self indexOfSpecifier:[self specifierForID:identifier]];
}

- (NSIndexPath *)indexPathForSpecifier:(PSSpecifier *)specifier {
  return [self indexPathForIndex:[self indexOfSpecifier:specifier]];
}

- (NSIndexPath *)indexPathForIndex:(NSInteger)index {
  const auto place = [self sim_preparedState].groups.placeOf(positionFrom(index));
  if (!place || !place->row) return nil;
  return [NSIndexPath indexPathForRow:static_cast<NSInteger>(*place->row)
                            inSection:static_cast<NSInteger>(place->group)];
}

- (NSInteger)indexForIndexPath:(NSIndexPath *)indexPath {
  return [self indexForRow:[indexPath row] inGroup:[indexPath section]];
}

- (NSInteger)indexForRow:(NSInteger)row inGroup:(NSInteger)group {
  return numberFrom([self sim_preparedState].groups.indexOf(positionFrom(group), positionFrom(row)));
}

- (NSInteger)numberOfGroups {
  return static_cast<NSInteger>([self sim_preparedState].groups.groups());
}

- (NSInteger)rowsForGroup:(NSInteger)group {
  return static_cast<NSInteger>([self sim_preparedState].groups.rowsIn(positionFrom(group)));
}

- (NSInteger)indexOfGroup:(NSInteger)group {
  return numberFrom([self sim_preparedState].groups.indexOfGroup(positionFrom(group)));
}

- (BOOL)getGroup:(NSInteger *)group row:(NSInteger *)row ofSpecifier:(PSSpecifier *)specifier {
  return [self getGroup:group row:row ofSpecifierAtIndex:[self indexOfSpecifier:specifier]];
}

- (BOOL)getGroup:(NSInteger *)group row:(NSInteger *)row ofSpecifierID:(NSString *)identifier {
  return [self getGroup:group row:row ofSpecifierAtIndex:[self indexOfSpecifierID:identifier]];
}

- (BOOL)getGroup:(NSInteger *)group row:(NSInteger *)row ofSpecifierAtIndex:(NSInteger)index {
  const auto place = [self sim_preparedState].groups.placeOf(positionFrom(index));
  if (!place) return NO;
  if (group) *group = static_cast<NSInteger>(place->group);
  if (row) *row = numberFrom(place->row);
  return YES;
}

- (NSArray *)specifiersInGroup:(NSInteger)group {
  const NSInteger first = [self indexOfGroup:group];
  if (first == NSNotFound) return [NSArray array];
  const NSRange range =
      NSMakeRange(static_cast<NSUInteger>(first), static_cast<NSUInteger>([self rowsForGroup:group]) + 1);
  return [[self sim_listState].list.get() subarrayWithRange:range];
}

- (PSTableCell *)cachedCellForSpecifier:(PSSpecifier *)specifier {
  NSIndexPath *path = [self indexPathForSpecifier:specifier];
  return path ? (PSTableCell *)[[self table] cellForRowAtIndexPath:path] : nil;
}

- (PSTableCell *)cachedCellForSpecifierID:(NSString *)identifier {
  return [self cachedCellForSpecifier:[self specifierForID:identifier]];
}

@end
