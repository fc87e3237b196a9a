// How a row takes its value from its specifier and sends a new one.
#import <Preferences/PSTableCell+Sim.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PreferencesLog.h>
#import <Preferences/RowLook.h>
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

- (void)sim_takeText:(NSString *)text {
  NSString *shown = [self value] ? [[self value] description] : @"";
  if ([text isEqualToString:shown]) return;
  const auto entered = objcxx::share(text);
  [self sim_cellState].value = objcxx::share((NSObject *)text);
  [self sim_sendValue:entered.get()];
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier ofClass:(Class)first orClass:(Class)second {
  id value = [specifier sim_valueOfClass:first orClass:second];
  [self sim_cellState].rawValue = objcxx::share((NSObject *)value);
  return value;
}

- (BOOL)sim_showsValue {
  return sim::traitsOf([self type]).shows != sim::ShownValue::kNone;
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  id raw = [specifier sim_value];
  [self sim_cellState].rawValue = objcxx::share((NSObject *)raw);
  if (!raw) return nil;
  const bool chooses = sim::traitsOf([self type]).shows == sim::ShownValue::kShortTitle;
  NSString *title = chooses ? [[specifier shortTitleDictionary] objectForKey:raw] : nil;
  if (!title) title = [[specifier titleDictionary] objectForKey:raw];
  if (title || (chooses && [specifier values])) return title;
  NSString *text = sim::textOf(raw);
  if (!text) [specifier sim_reportValue:raw];
  return text;
}

@end
