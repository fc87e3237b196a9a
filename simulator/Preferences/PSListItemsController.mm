#import <Preferences/PSListItemsController.h>

#import <Preferences/PSListController+Sim.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <UIKit/UIKit.h>

@implementation PSListItemsController

- (void)dealloc {
  [_lastSelectedSpecifier release];
  [super dealloc];
}

- (NSArray *)specifiers {
  if (!_specifiers) _specifiers = [[self sim_items] mutableCopy];
  return _specifiers;
}

/// An empty group and a row for each value of the row that opened the page; the current one is checked.
- (NSArray *)sim_items {
  PSSpecifier *parent = [self specifier];
  if ([parent propertyForKey:PSValuesDataSourceKey]) {
    [parent sim_loadValuesAndTitles];
  }
  _deferItemSelection = [parent sim_flagForKey:PSDeferItemSelectionKey fallback:NO];

  PSSpecifier *group = [PSSpecifier groupSpecifierWithHeader:[parent sim_stringForKey:PSStaticHeaderTextKey]
                                                      footer:[parent sim_stringForKey:PSStaticTextMessageKey]];
  [group setProperty:[NSNumber numberWithBool:YES] forKey:PSIsRadioGroupKey];
  NSMutableArray *items = [NSMutableArray arrayWithObject:group];
  id current = [parent sim_value];
  for (id value in [parent values]) {
    id title = [[parent titleDictionary] objectForKey:value] ?: value;
    NSString *text = [title isKindOfClass:[NSString class]] ? title : [title description];
    PSSpecifier *item = [PSSpecifier preferenceSpecifierNamed:text
                                                       target:self
                                                          set:NULL
                                                          get:NULL
                                                       detail:Nil
                                                         cell:PSListItemCell
                                                         edit:Nil];
    [item setIdentifier:[value isKindOfClass:[NSString class]] ? value : [value description]];
    [item setProperty:@"PSListItemCell" forKey:PSTableCellClassKey];
    [item setProperty:value forKey:PSValueKey];
    if ([value isEqual:current] && ![group propertyForKey:PSRadioGroupCheckedSpecifierKey]) {
      [group setProperty:item forKey:PSRadioGroupCheckedSpecifierKey];
    }
    [items addObject:item];
  }
  return items;
}

/// A tap moves the check mark; the value goes through the row that opened the page.
- (void)sim_checkSpecifier:(PSSpecifier *)item inGroup:(PSSpecifier *)group {
  [super sim_checkSpecifier:item inGroup:group];
  [item retain];
  [_lastSelectedSpecifier release];
  _lastSelectedSpecifier = item;
  if (!_deferItemSelection) [self sim_storeSelection];
}

- (void)sim_storeSelection {
  if (!_lastSelectedSpecifier) return;
  const auto item = objcxx::adopt(_lastSelectedSpecifier);
  _lastSelectedSpecifier = nil;
  [[self specifier] performSetterWithValue:[item.get() propertyForKey:PSValueKey]];
}

- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  [self sim_storeSelection];
  id parent = [self parentController];
  if ([parent respondsToSelector:@selector(reloadSpecifier:)]) [parent reloadSpecifier:[self specifier]];
}

@end
