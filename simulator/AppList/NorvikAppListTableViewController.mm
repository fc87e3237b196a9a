#import <NorvikAppList/NorvikAppListTableViewController.h>

#import <NorvikAppList/NorvikAppList.h>
#import <UIKit/UIKit.h>

#import "AppList/AppSelection.h"

using objcxx::adopt;
using objcxx::share;

struct sim::AppListPageState {
  AppSelection selection;
  objcxx::Retained<NSArray> apps;
  objcxx::Retained<NSSet> installed;  // Identifiers of `apps`.
  objcxx::Retained<NSSet> chosen;     // As the file said last.
  objcxx::Retained<NSString> tapped;  // Whose identifier is shown.
  NSInteger maxEnabled = 0;
  bool showsIdentifier = false;
};

namespace {

NSString *const kTitle = @"Applications";
NSString *const kReuseIdentifier = @"Application";

}  // namespace

@implementation NorvikAppListTableViewController

- (instancetype)initWithIdentifier:(NSString *)identifier andKey:(NSString *)key {
  if (!(self = [super initWithStyle:UITableViewStyleInsetGrouped])) return nil;

  _pageState = std::make_unique<sim::AppListPageState>();
  _pageState->selection = sim::AppSelection(identifier, key);
  [self setTitle:kTitle];
  NorvikAppList *list = [[[NorvikAppList alloc] init] autorelease];
  [list getAppList:^(NSArray *apps) {
    [self sim_setApps:apps];
  }];
  return self;
}

- (NSInteger)maxEnabled {
  return _pageState->maxEnabled;
}

- (void)setMaxEnabled:(NSInteger)maxEnabled {
  _pageState->maxEnabled = maxEnabled;
  [[self tableViewIfLoaded] reloadData];
}

- (BOOL)showBundleIdentifierOnTap {
  return _pageState->showsIdentifier;
}

- (void)setShowBundleIdentifierOnTap:(BOOL)show {
  _pageState->showsIdentifier = show;
}

- (UITableView *)tableViewIfLoaded {
  return [self isViewLoaded] ? [self tableView] : nil;
}

- (void)sim_setApps:(NSArray *)apps {
  NSMutableSet *installed = [NSMutableSet setWithCapacity:[apps count]];
  for (NorvikAppRecord *app in apps) [installed addObject:[app bundleIdentifier]];
  _pageState->apps = share(apps);
  _pageState->installed = share((NSSet *)installed);
  [self sim_readSelection];
}

- (void)sim_readSelection {
  _pageState->chosen = share([NSSet setWithArray:_pageState->selection.stored()]);
  [[self tableViewIfLoaded] reloadData];
}

- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  [self sim_readSelection];
}

#pragma mark - Table

- (NSInteger)numberOfSectionsInTableView:(UITableView *)tableView {
  (void)tableView;
  return 1;
}

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  (void)tableView;
  (void)section;
  return static_cast<NSInteger>([_pageState->apps.get() count]);
}

- (NSString *)tableView:(UITableView *)tableView titleForFooterInSection:(NSInteger)section {
  (void)tableView;
  (void)section;
  if (_pageState->maxEnabled < 2) return nil;
  return [NSString stringWithFormat:@"Choose up to %ld applications.", (long)_pageState->maxEnabled];
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [tableView dequeueReusableCellWithIdentifier:kReuseIdentifier];
  if (!cell) {
    cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle
                                   reuseIdentifier:kReuseIdentifier] autorelease];
  }
  NorvikAppRecord *app = [self sim_appAtIndexPath:indexPath];
  NSString *identifier = [app bundleIdentifier];
  const bool isChosen = [_pageState->chosen.get() containsObject:identifier];
  [[cell textLabel] setText:[app displayName]];
  [[cell detailTextLabel] setText:[identifier isEqualToString:_pageState->tapped.get()] ? identifier : nil];
  [[cell imageView] setImage:[app icon]];
  [cell setAccessoryType:isChosen ? UITableViewCellAccessoryCheckmark : UITableViewCellAccessoryNone];
  return cell;
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)indexPath {
  [tableView deselectRowAtIndexPath:indexPath animated:YES];
  NSString *identifier = [[self sim_appAtIndexPath:indexPath] bundleIdentifier];
  if (_pageState->showsIdentifier) _pageState->tapped = share(identifier);
  _pageState->selection.toggle(identifier, _pageState->maxEnabled, _pageState->installed.get());
  [self sim_readSelection];
}

- (NorvikAppRecord *)sim_appAtIndexPath:(NSIndexPath *)indexPath {
  return [_pageState->apps.get() objectAtIndex:static_cast<NSUInteger>([indexPath row])];
}

@end
