// The page as data source and delegate of its table.
#import <Preferences/PSListController+Sim.h>

#import <Preferences/CellTypes.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <Preferences/PreferencesLog.h>
#import <Preferences/PreferencesTableCustomView.h>
#import <Preferences/RowLook.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIKit.h>

using objcxx::adopt;
using objcxx::share;

namespace {

/// Where a group's own view is named and kept.
struct HeaderKeys {
  NSString *className;
  NSString *view;
};

const HeaderKeys &headerKeys() {
  static const HeaderKeys keys{PSHeaderCellClassGroupKey, PSHeaderViewKey};
  return keys;
}

const HeaderKeys &footerKeys() {
  static const HeaderKeys keys{PSFooterCellClassGroupKey, PSFooterViewKey};
  return keys;
}

/// A cell on its way into the table. Ends with the scope, also when the cell's code raises: the row is then as if it
/// had never had that cell.
class CellInMaking final {
 public:
  /// The page outlives the scope; the specifier is owned.
  CellInMaking(PSListController *page, PSSpecifier *specifier) : page_(page), specifier_(share(specifier)) {
    ++[page_ sim_listState].cellsInMaking;
  }
  CellInMaking(const CellInMaking &) = delete;
  CellInMaking &operator=(const CellInMaking &) = delete;
  ~CellInMaking() {
    --[page_ sim_listState].cellsInMaking;
    if (!isDone_) [page_ sim_unlink:specifier_.get()];
  }

  PSSpecifier *specifier() const { return specifier_.get(); }
  UITableViewCell *done(UITableViewCell *cell) {
    isDone_ = true;
    return cell;
  }

 private:
  PSListController *page_;
  objcxx::Retained<PSSpecifier> specifier_;
  bool isDone_ = false;
};

/// A new header or footer view; nil with a log line when the name is that of no such class.
UIView *makeHeaderView(PSSpecifier *group, NSString *key) {
  NSString *name = [group sim_stringForKey:key];
  if (!name) return nil;
  Class viewClass = NSClassFromString(name);
  if (![viewClass isSubclassOfClass:[UIView class]] ||
      ![viewClass instancesRespondToSelector:@selector(initWithSpecifier:)]) {
    if ([group sim_isFirst:SIMSpecifierFaultView]) {
      sim::logPreferences(@"%@: \"%@\" names no view that answers initWithSpecifier: %@.", [group sim_label], key,
                          name);
    }
    return nil;
  }
  id<PreferencesTableCustomView> view = [viewClass alloc];
  return [(UIView *)[view initWithSpecifier:group] autorelease];
}

CGFloat heightOfHeaderView(UIView *view, UITableView *table) {
  const CGFloat width = [table sim_rowWidth];
  id<PreferencesTableCustomView> custom = (id<PreferencesTableCustomView>)view;
  if ([view respondsToSelector:@selector(preferredHeightForWidth:inTableView:)]) {
    return [custom preferredHeightForWidth:width inTableView:table];
  }
  if ([view respondsToSelector:@selector(preferredHeightForWidth:)]) return [custom preferredHeightForWidth:width];
  return UITableViewAutomaticDimension;
}

}  // namespace

@implementation PSListController (Table)

- (NSInteger)numberOfSectionsInTableView:(UITableView *)tableView {
  (void)tableView;
  return [self numberOfGroups];
}

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  (void)tableView;
  return [self rowsForGroup:section];
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  CellInMaking making(self, [self specifierAtIndexPath:indexPath]);
  PSSpecifier *specifier = making.specifier();
  UITableViewCell *cell = [self sim_cellForSpecifier:specifier inTable:tableView];
  [specifier setProperty:cell forKey:PSTableCellKey];
  [self sim_listState].linked.emplace(specifier, share(specifier));
  if ([cell isKindOfClass:[PSTableCell class]]) {
    PSTableCell *row = (PSTableCell *)cell;
    [row sim_showSpecifier:specifier];
    if (sim::traitsOf([specifier cellType]).tap == sim::Tap::kChecks) [row setChecked:[self sim_isChecked:specifier]];
  } else {
    [[cell textLabel] setText:[specifier name]];
  }
  return making.done(cell);
}

- (UITableViewCell *)sim_cellForSpecifier:(PSSpecifier *)specifier inTable:(UITableView *)tableView {
  Class cellClass = [PSTableCell cellClassForSpecifier:specifier];
  NSString *identifier = [PSTableCell reuseIdentifierForSpecifier:specifier];
  UITableViewCell *waiting = [tableView dequeueReusableCellWithIdentifier:identifier];
  if (waiting && [waiting class] == cellClass) return waiting;
  if (![cellClass isSubclassOfClass:[PSTableCell class]]) {
    return [[[cellClass alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:identifier] autorelease];
  }
  return [[[cellClass alloc] initWithStyle:[cellClass cellStyle] reuseIdentifier:identifier
                                 specifier:specifier] autorelease];
}

- (NSString *)tableView:(UITableView *)tableView titleForHeaderInSection:(NSInteger)section {
  (void)tableView;
  NSString *title = [[self sim_groupAtSection:section] name];
  return [title length] > 0 ? title : nil;
}

- (NSString *)tableView:(UITableView *)tableView titleForFooterInSection:(NSInteger)section {
  (void)tableView;
  NSString *text = [[self sim_groupAtSection:section] sim_stringForKey:PSFooterTextGroupKey];
  return [text length] > 0 ? text : nil;
}

- (PSSpecifier *)sim_groupAtSection:(NSInteger)section {
  return [self specifierAtIndex:[self indexOfGroup:section]];
}

#pragma mark - Delegate

/// Made once for each group and kept in its properties.
- (UIView *)sim_viewOfGroup:(PSSpecifier *)group keys:(const HeaderKeys &)keys {
  if (![group propertyForKey:keys.className]) return nil;
  id view = [group propertyForKey:keys.view];
  if ([view isKindOfClass:[UIView class]]) return view;
  view = makeHeaderView(group, keys.className);
  if (!view) return nil;
  [group setProperty:view forKey:keys.view];
  [self sim_listState].linked.emplace(group, share(group));
  return view;
}

- (UIView *)tableView:(UITableView *)tableView viewForHeaderInSection:(NSInteger)section {
  (void)tableView;
  return [self sim_viewOfGroup:[self sim_groupAtSection:section] keys:headerKeys()];
}

- (UIView *)tableView:(UITableView *)tableView viewForFooterInSection:(NSInteger)section {
  PSSpecifier *group = [self sim_groupAtSection:section];
  const bool isAligned = [group propertyForKey:PSFooterAlignmentGroupKey] && [self tableView:tableView
                                                                                 titleForFooterInSection:section];
  if (isAligned && ![group propertyForKey:PSFooterCellClassGroupKey]) {
    [group setProperty:@"SIMAlignedFooterView" forKey:PSFooterCellClassGroupKey];
  }
  return [self sim_viewOfGroup:group keys:footerKeys()];
}

- (CGFloat)tableView:(UITableView *)tableView heightForHeaderInSection:(NSInteger)section {
  UIView *view = [self tableView:tableView viewForHeaderInSection:section];
  return view ? heightOfHeaderView(view, tableView) : UITableViewAutomaticDimension;
}

- (CGFloat)tableView:(UITableView *)tableView heightForFooterInSection:(NSInteger)section {
  UIView *view = [self tableView:tableView viewForFooterInSection:section];
  return view ? heightOfHeaderView(view, tableView) : UITableViewAutomaticDimension;
}

- (CGFloat)tableView:(UITableView *)tableView heightForRowAtIndexPath:(NSIndexPath *)indexPath {
  (void)tableView;
  PSSpecifier *specifier = [self specifierAtIndexPath:indexPath];
  id height = [specifier propertyForKey:PSTableCellHeightKey];
  const bool isNumber = [height isKindOfClass:[NSNumber class]] || [height isKindOfClass:[NSString class]];
  if (isNumber && [height doubleValue] > 0) return [height doubleValue];
  if (height && [specifier sim_isFirst:SIMSpecifierFaultHeight]) {
    sim::logPreferences(@"%@: \"%@\" is no height: %@.", [specifier sim_label], PSTableCellHeightKey, height);
  }
  return sim::traitsOf([specifier cellType]).height;
}

- (BOOL)tableView:(UITableView *)tableView shouldHighlightRowAtIndexPath:(NSIndexPath *)indexPath {
  (void)tableView;
  return sim::takesTaps([self specifierAtIndexPath:indexPath]);
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)indexPath {
  (void)tableView;
  [self sim_selectSpecifier:[self specifierAtIndexPath:indexPath] atIndexPath:indexPath];
}

- (void)tableView:(UITableView *)tableView
    didEndDisplayingCell:(UITableViewCell *)cell
       forRowAtIndexPath:(NSIndexPath *)indexPath {
  (void)tableView;
  PSSpecifier *specifier = [self specifierAtIndexPath:indexPath];
  if ([specifier propertyForKey:PSTableCellKey] == cell) [specifier removePropertyForKey:PSTableCellKey];
}

@end
