// What a tap on a row does.
#import <Preferences/PSListController+Sim.h>

#import <Preferences/CellTypes.h>
#import <Preferences/PSConfirmationSpecifier.h>
#import <Preferences/PSControlTableCell.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <Preferences/PreferencesLog.h>
#import <Preferences/RowLook.h>
#import <UIKit/UIKit.h>

using objcxx::adopt;
using objcxx::share;

namespace {

NSString *const kDefaultCancelTitle = @"Cancel";
NSString *const kDefaultOKTitle = @"OK";

/// Settings sends these to every page; a page that lacks one ends the application on a device.
bool canBePage(UIViewController *page, PSSpecifier *specifier) {
  for (NSString *name in @[ @"setRootController:", @"setParentController:", @"setSpecifier:" ]) {
    if ([page respondsToSelector:NSSelectorFromString(name)]) continue;
    sim::logPreferences(@"%@: %@ does not answer %@; a device cannot open it.", [specifier sim_label], [page class],
                        name);
    return false;
  }
  return true;
}

bool opensPage(PSSpecifier *specifier) {
  const sim::Tap tap = sim::traitsOf([specifier cellType]).tap;
  return tap == sim::Tap::kOpensPage || tap == sim::Tap::kOpensOwnPage;
}

}  // namespace

@implementation PSListController (Actions)

#pragma mark - Selectors of the specifier

- (BOOL)performButtonActionForSpecifier:(PSSpecifier *)specifier {
  const SEL action = [specifier buttonAction] ?: specifier->action;
  return action && sim::performAction([specifier target], action, specifier);
}

- (BOOL)performActionForSpecifier:(PSSpecifier *)specifier {
  return specifier->action && sim::performAction([specifier target], specifier -> action, specifier);
}

- (BOOL)performLoadActionForSpecifier:(PSSpecifier *)specifier {
  const SEL action = [specifier controllerLoadAction];
  return action && sim::performAction([specifier target], action, specifier);
}

- (BOOL)performConfirmationActionForSpecifier:(PSSpecifier *)specifier {
  const SEL action = [specifier confirmationAction];
  if (action) return sim::performAction([specifier target], action, specifier);
  return [self performButtonActionForSpecifier:specifier];
}

- (BOOL)performConfirmationCancelActionForSpecifier:(PSSpecifier *)specifier {
  const SEL action = [specifier confirmationCancelAction] ?: specifier->cancel;
  return action && sim::performAction([specifier target], action, specifier);
}

#pragma mark - Confirmation

- (void)showConfirmationViewForSpecifier:(PSConfirmationSpecifier *)specifier {
  const bool isPhone = [[UIDevice currentDevice] userInterfaceIdiom] != UIUserInterfaceIdiomPad;
  NSString *okTitle = isPhone ? ([specifier title] ?: [specifier okButton]) : [specifier okButton];
  UIAlertController *alert = [UIAlertController
      alertControllerWithTitle:isPhone ? [specifier prompt] : [specifier title]
                       message:isPhone ? nil : [specifier prompt]
                preferredStyle:isPhone ? UIAlertControllerStyleActionSheet : UIAlertControllerStyleAlert];
  [alert addAction:[UIAlertAction actionWithTitle:okTitle ?: kDefaultOKTitle
                                            style:[specifier isDestructive] ? UIAlertActionStyleDestructive
                                                                            : UIAlertActionStyleDefault
                                          handler:^(UIAlertAction *) {
                                            [self sim_confirm:specifier];
                                          }]];
  [alert addAction:[UIAlertAction actionWithTitle:[specifier cancelButton] ?: kDefaultCancelTitle
                                            style:UIAlertActionStyleCancel
                                          handler:^(UIAlertAction *) {
                                            [self performConfirmationCancelActionForSpecifier:specifier];
                                            [self reloadSpecifier:specifier];
                                          }]];
  [self presentViewController:alert animated:YES completion:nil];
}

/// A control stores what it was set to, and then acts if it has an action for that.
- (void)sim_confirm:(PSConfirmationSpecifier *)specifier {
  id cell = [self cachedCellForSpecifier:specifier];
  if (!sim::traitsOf([specifier cellType]).storesWhenConfirmed || ![cell isKindOfClass:[PSControlTableCell class]]) {
    [self performConfirmationActionForSpecifier:specifier];
    return;
  }
  [cell sim_sendValue:[cell controlValue]];
  if ([specifier confirmationAction]) [self performConfirmationActionForSpecifier:specifier];
}

#pragma mark - Pages

- (void)lazyLoadBundle:(PSSpecifier *)specifier {
  NSString *path = [specifier sim_stringForKey:PSLazilyLoadedBundleKey];
  NSBundle *bundle = path ? [NSBundle bundleWithPath:path] : nil;
  if (![bundle load]) {
    sim::logPreferences(@"%@: the bundle %@ could not be loaded.", [specifier sim_label], [path lastPathComponent]);
    return;
  }
  NSString *detail = [specifier sim_stringForKey:PSDetailControllerClassKey];
  Class named = detail ? NSClassFromString(detail) : Nil;
  Class principal = [bundle principalClass];
  const BOOL overrides = [specifier sim_flagForKey:PSBundleOverridePrincipalClassKey fallback:NO];
  Class page = overrides && named ? named : (principal ?: named);
  if (![page isSubclassOfClass:[UIViewController class]]) {
    sim::logPreferences(@"%@: the bundle %@ has no page as its principal class.", [specifier sim_label],
                        [path lastPathComponent]);
    return;
  }
  [specifier setDetailControllerClass:page];
  specifier->action = NULL;
}

- (id)sim_detailControllerForSpecifier:(PSSpecifier *)specifier {
  Class detail = [specifier detailControllerClass] ?: [PSListController class];
  auto page = adopt((UIViewController *)[[detail alloc] init]);
  if (!canBePage(page.get(), specifier)) return nil;
  PSListController *settingsPage = (PSListController *)page.get();
  [settingsPage setRootController:[self rootController] ?: [self navigationController]];
  [settingsPage setParentController:self];
  [settingsPage setSpecifier:specifier];
  return page.autoreleased();
}

- (id)controllerForSpecifier:(PSSpecifier *)specifier {
  if (specifier->action) {
    [self performActionForSpecifier:specifier];
    if (specifier->action) return nil;  // A lazily loaded bundle takes its action away and opens its page at once.
  }
  if ([specifier buttonAction]) {
    [self performButtonActionForSpecifier:specifier];
    return nil;
  }
  [self performLoadActionForSpecifier:specifier];
  return opensPage(specifier) ? [self sim_detailControllerForSpecifier:specifier] : nil;
}

@end

@implementation PSListController (SimTaps)

- (void)sim_selectSpecifier:(PSSpecifier *)specifier atIndexPath:(NSIndexPath *)indexPath {
  UITableView *table = [self table];
  const auto keeper = share(specifier);
  const sim::Tap tap = sim::traitsOf([specifier cellType]).tap;
  if (tap == sim::Tap::kPresses) {
    if ([specifier isKindOfClass:[PSConfirmationSpecifier class]]) {
      [self showConfirmationViewForSpecifier:(PSConfirmationSpecifier *)specifier];
    } else {
      [self performButtonActionForSpecifier:specifier];
    }
    [table deselectRowAtIndexPath:indexPath animated:YES];
    return;
  }

  id page = sim::acts(specifier) || opensPage(specifier) ? [self controllerForSpecifier:specifier] : nil;
  if (page) {
    // Stays selected until the person comes back.
    [self showController:page animate:YES];
    return;
  }
  if (tap == sim::Tap::kEdits) {
    [[[self cachedCellForSpecifier:specifier] sim_editor] becomeFirstResponder];
  } else if (tap == sim::Tap::kChecks) {
    PSSpecifier *group = [self sim_groupOfSpecifier:specifier];
    if ([group sim_flagForKey:PSIsRadioGroupKey fallback:NO]) [self sim_checkSpecifier:specifier inGroup:group];
  }
  [table deselectRowAtIndexPath:indexPath animated:YES];
}

- (void)sim_checkSpecifier:(PSSpecifier *)specifier inGroup:(PSSpecifier *)group {
  [group setProperty:specifier forKey:PSRadioGroupCheckedSpecifierKey];
  const NSInteger first = [self indexOfSpecifier:group];
  NSInteger section = 0;
  [self getGroup:&section row:NULL ofSpecifier:group];
  for (NSInteger row = 1; row <= [self rowsForGroup:section]; ++row) {
    PSSpecifier *each = [self specifierAtIndex:first + row];
    PSTableCell *cell = [self cachedCellForSpecifier:each];
    if ([cell isKindOfClass:[PSTableCell class]]) [cell setChecked:[self sim_isChecked:each]];
  }
  [group performSetterWithValue:[specifier propertyForKey:PSValueKey]];
}

- (BOOL)sim_isChecked:(PSSpecifier *)specifier {
  PSSpecifier *group = [self sim_groupOfSpecifier:specifier];
  if (![group sim_flagForKey:PSIsRadioGroupKey fallback:NO]) return NO;
  id checked = [group propertyForKey:PSRadioGroupCheckedSpecifierKey];
  if (checked) return checked == specifier;
  id own = [specifier propertyForKey:PSValueKey];
  return own && [own isEqual:[group sim_value]];
}

@end
