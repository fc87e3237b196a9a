#import "Settings/RowTraits.h"

#import <Preferences/Preferences.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UITableViewCell+Sim.h>
#import <objcxx/Retained.h>

#import "Settings/JsonValues.h"
#import "Settings/views/Views.h"

#include <memory>
#include <string>

namespace sim {
namespace {

std::shared_ptr<const void> kept(PSSpecifier *specifier) {
  return {specifier, [owned = objcxx::share(specifier)](const void *) {}};
}

void addTexts(std::string &texts, UIView *view) {
  if ([view isKindOfClass:[UILabel class]]) {
    texts += '\n';
    texts += utf8([(UILabel *)view text]);
  }
  for (UIView *child in [view subviews]) addTexts(texts, child);
}

/// A specifier has an identifier as a rule: then its row is known by nothing else.
RowTraits traitsOf(PSSpecifier *specifier) {
  NSString *identifier = [specifier identifier];
  return {kept(specifier), identifier ? "identifier " + utf8(identifier) : std::string(), {}};
}

RowTraits traitsOf(UITableViewCell *cell) {
  PSSpecifier *specifier = [cell isKindOfClass:[PSTableCell class]] ? [(PSTableCell *)cell specifier] : nil;
  RowTraits traits = specifier ? traitsOf(specifier) : RowTraits();
  if (!traits.shown.empty()) return traits;
  traits.shown = classNameOf(cell);
  NSString *label = [[cell sim_textLabelIfMade] text];
  if ([label length] > 0) traits.label = traits.shown + '\n' + utf8(label);
  addTexts(traits.shown, cell);
  return traits;
}

/// The specifier of each row of `table`, unless its data source makes cells in another way than pages of specifiers do.
PSListController *pageOfSpecifiers(UITableView *table) {
  id source = [table dataSource];
  if (![source isKindOfClass:[PSListController class]]) return nil;
  const SEL makesCell = @selector(tableView:cellForRowAtIndexPath:);
  const bool isOwn = [source methodForSelector:makesCell] != [PSListController instanceMethodForSelector:makesCell];
  return isOwn ? nil : (PSListController *)source;
}

}  // namespace

RowTraits traitsOfRow(UITableView *table, NSIndexPath *path) {
  PSSpecifier *specifier = [pageOfSpecifiers(table) specifierAtIndexPath:path];
  if ([specifier identifier]) return traitsOf(specifier);
  RowTraits traits;
  RowTraits *const found = &traits;
  [table sim_describeRows:NSMakeRange([path row], 1)
                inSection:[path section]
               usingBlock:^(NSIndexPath *, UITableViewCell *cell) {
                 *found = traitsOf(cell);
               }];
  return traits;
}

void noteRow(UITableView *table, NSIndexPath *path, UITableViewCell *cell) {
  [table sim_knowRowAtIndexPath:path by:traitsOf(cell)];
}

void noteOutline(UITableView *table, NSIndexPath *path) {
  PSSpecifier *specifier = [pageOfSpecifiers(table) specifierAtIndexPath:path];
  if (specifier) [table sim_knowRowAtIndexPath:path by:traitsOf(specifier)];
}

}  // namespace sim
