// How a row takes its value from its specifier and sends a new one.
#import <Preferences/PSTableCell+Sim.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PreferencesLog.h>
#import <Preferences/RowLook.hpp>
#import <UIKit/UIKit.h>

@implementation PSTableCell (Sim)

- (void)sim_showSpecifier:(PSSpecifier *)specifier {
  const auto keeper = objcxx::share(specifier);
  [self setSpecifier:specifier];
  [self refreshCellContentsWithSpecifier:specifier];
}

- (id)sim_rawValue {
  return [self sim_cellState].rawValue.get();
}

- (void)sim_setRawValue:(id)value {
  [self sim_cellState].rawValue = objcxx::share((NSObject *)value);
}

- (UIResponder *)sim_editor {
  return nil;
}

- (void)sim_sendValue:(id)value {
  const auto keeper = objcxx::share(self);  // The target may reload the page, and with it this row.
  const auto specifier = objcxx::share([self specifier]);
  const SEL action = [self cellAction];
  if (!action) return;
  id target = [self cellTarget];
  if (![target respondsToSelector:action]) {
    sim::logPreferences(@"%@: %@ does not answer the setter %@.", [specifier.get() sim_label],
                        target ? NSStringFromClass([target class]) : @"no target", NSStringFromSelector(action));
    return;
  }
  [target performSelector:action withObject:value withObject:specifier.get()];
}

- (BOOL)sim_showsValue {
  return [self type] == PSTitleValueCell || [self type] == PSLinkListCell;
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  id raw = [specifier sim_value];
  [self sim_setRawValue:raw];
  if (!raw) return nil;
  NSString *title = nil;
  if ([self type] == PSLinkListCell) title = [[specifier shortTitleDictionary] objectForKey:raw];
  if (!title) title = [[specifier titleDictionary] objectForKey:raw];
  if (title || ([self type] == PSLinkListCell && [specifier values])) return title;
  NSString *text = sim::textOf(raw);
  if (!text) [specifier sim_reportValue:raw];
  return text;
}

@end
