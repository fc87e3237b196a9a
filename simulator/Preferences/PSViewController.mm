#import <Preferences/PSViewController.h>

#import <CoreFoundation/CoreFoundation.h>
#import <Preferences/Living.hpp>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PropertyListFile.h>
#import <UIKit/UIKit.h>

namespace {

/// The file of the row's domain; nil when the row has none.
NSString *fileOf(PSSpecifier *specifier) {
  NSString *domain = [specifier sim_stringForKey:PSDefaultsKey];
  return domain ? sim::preferenceFile(@"/var/mobile/Library/Preferences", domain) : nil;
}

id negated(id value) {
  const bool says = [value isKindOfClass:[NSNumber class]] || [value isKindOfClass:[NSString class]];
  return says ? [NSNumber numberWithBool:![value boolValue]] : value;
}

}  // namespace

@implementation PSViewController
@synthesize specifier = _specifier;

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  sim::living<PSViewController>().insert(self);
  return self;
}

- (void)dealloc {
  sim::living<PSViewController>().erase(self);
  // Parents are not owned: the page takes itself out of those that it opened.
  for (PSViewController *controller : sim::living<PSViewController>()) {
    if (controller->_parentController == self) controller->_parentController = nil;
    if (controller->_rootController == self) controller->_rootController = nil;
  }
  [PSSpecifier sim_forgetTarget:self];
  [_specifier release];
  [super dealloc];
}

- (void)setSpecifier:(PSSpecifier *)specifier {
  if (specifier != _specifier) {
    [_specifier release];
    _specifier = [specifier retain];
  }
  if (![self title] && [specifier name]) [self setTitle:[specifier name]];
}

- (id)parentController {
  return _parentController;
}

- (void)setParentController:(id)controller {
  _parentController = controller;
}

- (id)rootController {
  return _rootController;
}

- (void)setRootController:(id)controller {
  _rootController = controller;
}

- (id)readPreferenceValue:(PSSpecifier *)specifier {
  NSString *key = [specifier sim_stringForKey:PSKeyNameKey];
  NSString *file = key ? fileOf(specifier) : nil;
  id value = file ? sim::valueInFile(key, file) : nil;
  if (!value) value = [specifier propertyForKey:PSDefaultValueKey];
  if ([specifier sim_flagForKey:PSNegateValueKey fallback:NO]) value = negated(value);
  if (value) {
    [specifier setProperty:value forKey:PSValueKey];
  } else {
    [specifier removePropertyForKey:PSValueKey];
  }
  return value;
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier {
  if (!value || [value isEqual:[specifier propertyForKey:PSValueKey]]) return;
  NSString *key = [specifier sim_stringForKey:PSKeyNameKey];
  NSString *file = key ? fileOf(specifier) : nil;
  if (!file) return;
  id stored = [specifier sim_flagForKey:PSNegateValueKey fallback:NO] ? negated(value) : value;
  if (!sim::storeInFile(stored, key, file)) return;

  [specifier setProperty:value forKey:PSValueKey];
  NSString *notification = [specifier sim_stringForKey:PSValueChangedNotificationKey];
  if (!notification) return;
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), (CFStringRef)notification, NULL,
                                       NULL, true);
}

- (void)pushController:(id)controller {
  [self pushController:controller animate:YES];
}

- (void)pushController:(id)controller animate:(BOOL)animate {
  [[self navigationController] pushViewController:controller animated:animate];
}

- (void)showController:(id)controller {
  [self showController:controller animate:YES];
}

- (void)showController:(id)controller animate:(BOOL)animate {
  [self pushController:controller animate:animate];
}
@end
