// Life cycle of a list page and its rows. Lookup, changes, taps and the table have files of their own.
#import <Preferences/PSListController+Sim.h>

#import <Foundation/Guarded.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell.h>
#import <Preferences/PreferencesLog.h>
#import <Preferences/SpecifierLoader.h>
#import <UIKit/UIKit.h>

using objcxx::adopt;
using objcxx::share;

namespace {

/// The rows without what is no specifier, and with an empty group in front when they start with a row.
NSMutableArray *rowsFrom(id specifiers, Class page) {
  NSMutableArray *rows = [NSMutableArray array];
  if (specifiers && ![specifiers isKindOfClass:[NSArray class]]) {
    sim::logPreferences(@"-[%@ specifiers] gave no array; the page is empty.", page);
    return rows;
  }
  for (id specifier in (NSArray *)specifiers) {
    if ([specifier isKindOfClass:[PSSpecifier class]]) {
      [rows addObject:specifier];
    } else {
      sim::logPreferences(@"-[%@ specifiers] gave an object of class %@, which is left out.", page, [specifier class]);
    }
  }
  if ([rows count] > 0 && [(PSSpecifier *)[rows objectAtIndex:0] cellType] != PSGroupCell) {
    [rows insertObject:[PSSpecifier emptyGroupSpecifier] atIndex:0];
  }
  return rows;
}

}  // namespace

@implementation PSListController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _listState = std::make_unique<sim::PSListControllerState>();
  return self;
}

- (void)dealloc {
  if (_listState) {
    [self sim_unlinkAll];
    UITableView *table = _listState->table.get();
    [table setDataSource:nil];
    [table setDelegate:nil];
  }
  [_specifiers release];
  [super dealloc];
}

- (NSString *)specifierID {
  return _listState->specifierID.get();
}

- (void)setSpecifierID:(NSString *)identifier {
  _listState->specifierID = adopt((NSString *)[identifier copy]);
}

#pragma mark - View

- (UITableView *)table {
  return _listState->table.get();
}

- (UITableViewStyle)tableViewStyle {
  return UITableViewStyleInsetGrouped;
}

- (void)loadView {
  const CGRect bounds = [[UIScreen mainScreen] bounds];
  auto container = adopt([[UIView alloc] initWithFrame:bounds]);
  auto table = adopt([[UITableView alloc] initWithFrame:bounds style:[self tableViewStyle]]);
  [table.get() setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
  _listState->table = table;
  [table.get() setDataSource:self];
  [table.get() setDelegate:self];
  [container.get() addSubview:table.get()];
  [self setView:container.get()];
}

- (void)viewDidLoad {
  [super viewDidLoad];
  [self sim_prepareIfNeeded];
  [[self table] reloadData];
}

- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  NSIndexPath *visited = [[self table] indexPathForSelectedRow];
  if (!visited) return;
  [[self table] deselectRowAtIndexPath:visited animated:animated];
  [self reloadSpecifier:[self specifierAtIndexPath:visited]];
}

/// Leaving the page ends editing, and so stores what was typed.
- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  [[self table] endEditing:YES];
}

#pragma mark - Rows

- (NSBundle *)bundle {
  return [NSBundle bundleForClass:[self class]];
}

- (NSMutableArray *)specifiers {
  return _specifiers;
}

- (void)setSpecifiers:(NSArray *)specifiers {
  [self sim_unlinkAll];
  [self sim_adoptSpecifiers:rowsFrom(specifiers, [self class])];
  [[self table] reloadData];
}

- (NSMutableArray *)loadSpecifiersFromPlistName:(NSString *)name target:(id)target {
  return [self loadSpecifiersFromPlistName:name target:target bundle:[self bundle]];
}

- (NSMutableArray *)loadSpecifiersFromPlistName:(NSString *)name target:(id)target bundle:(NSBundle *)bundle {
  NSDictionary *list = sim::specifierPropertyList(name, bundle);
  if (!list) return [NSMutableArray array];
  id title = [list objectForKey:@"title"];
  if ([title isKindOfClass:[NSString class]] && [title length] > 0) {
    [self setTitle:[bundle localizedStringForKey:title value:nil table:name]];
  }
  id identifier = [list objectForKey:PSIDKey];
  if ([identifier isKindOfClass:[NSString class]]) [self setSpecifierID:identifier];
  return sim::specifiersOfPropertyList(list, name, bundle, target);
}

- (void)clearCache {
  [self sim_unlinkAll];
  [[self table] reloadData];
}

/// What makers reach as `valueForKey:@"_table"`: an instance variable on a device.
- (UITableView *)_table {
  return [self table];
}

- (void)reload {
  // Makers exchange `_specifiers` themselves, for example while a person searches, and then call this.
  _listState->isPrepared = false;
  [self sim_prepareIfNeeded];
  [[self table] reloadData];
}

- (void)reloadSpecifiers {
  NSIndexPath *selected = [[self table] indexPathForSelectedRow];
  NSString *selectedID = [[self specifierAtIndexPath:selected] identifier];
  [self sim_unlinkAll];
  // A setter may be at work on behalf of one of the former rows.
  [_listState->list.get() retain];
  [_listState->list.get() autorelease];
  [_specifiers autorelease];
  _specifiers = nil;
  _listState->isPrepared = false;
  [self sim_prepareIfNeeded];
  [[self table] reloadData];

  for (UIViewController *child in [[self navigationController] viewControllers]) {
    if (![child isKindOfClass:[PSListController class]]) continue;
    PSListController *page = (PSListController *)child;
    if ([page parentController] != self || ![page specifier]) continue;
    [page setSpecifier:[self specifierForID:[[page specifier] identifier]]];
  }
  NSIndexPath *path = selectedID ? [self indexPathForSpecifier:[self specifierForID:selectedID]] : nil;
  if (path) [[self table] selectRowAtIndexPath:path animated:NO scrollPosition:UITableViewScrollPositionNone];
}

@end

@implementation PSListController (Sim)

- (sim::PSListControllerState &)sim_listState {
  return *_listState;
}

- (void)sim_prepareIfNeeded {
  if (_listState->isPrepared) return;
  _listState->isPrepared = true;
  id made = nil;
  NSString *doing = [NSString stringWithFormat:@"asking -[%@ specifiers]", [self class]];
  sim::guarded(doing, [&] { made = [self specifiers]; });
  NSMutableArray *rows = rowsFrom(made, [self class]);
  if ([made isKindOfClass:[NSArray class]] && [rows isEqualToArray:made] && made == _specifiers) {
    [self sim_index:made];
  } else {
    [self sim_adoptSpecifiers:rows];
  }
}

- (void)sim_adoptSpecifiers:(NSArray *)specifiers {
  NSArray *former = _specifiers;
  _specifiers = [specifiers mutableCopy];
  [former autorelease];
  [self sim_index:specifiers];
}

- (void)sim_index:(NSArray *)specifiers {
  sim::assignIdentifiers(specifiers);
  auto list = adopt((NSArray *)[specifiers copy]);
  _listState->isPrepared = true;
  _listState->indexes.clear();
  std::vector<bool> isGroup;
  isGroup.reserve([list.get() count]);
  NSMutableDictionary *byIdentifier = [NSMutableDictionary dictionaryWithCapacity:[list.get() count]];
  NSInteger index = 0;
  for (PSSpecifier *specifier in list.get()) {
    isGroup.push_back([specifier cellType] == PSGroupCell);
    _listState->indexes.emplace(specifier, index++);
    if ([specifier identifier]) [byIdentifier setObject:specifier forKey:[specifier identifier]];
  }
  _listState->groups = sim::GroupIndex(isGroup);
  _listState->byIdentifier = share((NSDictionary *)byIdentifier);
  _listState->list = std::move(list);
}

- (void)sim_unlink:(PSSpecifier *)specifier {
  for (NSString *key in @[ PSTableCellKey, PSControlKey, PSHeaderViewKey, PSFooterViewKey ]) {
    // The cell may be at work further up in the call chain.
    [[[specifier propertyForKey:key] retain] autorelease];
    [specifier removePropertyForKey:key];
  }
}

- (void)sim_unlinkAll {
  for (const auto &[specifier, keeper] : _listState->linked) [self sim_unlink:specifier];
  _listState->linked.clear();
}

- (PSSpecifier *)sim_groupOfSpecifier:(PSSpecifier *)specifier {
  NSInteger group = 0;
  if (![self getGroup:&group row:NULL ofSpecifier:specifier]) return nil;
  return [self specifierAtIndex:[self indexOfGroup:group]];
}

@end
