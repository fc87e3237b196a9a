#import "Settings/SettingsRootController.h"

#import <Preferences/Preferences.h>
#import <Preferences/PreferencesLog.h>

#import "Settings/PreferenceLoader.h"

/// Stands in for the page of a bundle that cannot be loaded.
@interface SIMBundleErrorPage : PSListController
@end

@implementation SIMBundleErrorPage

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  NSString *text =
      [NSString stringWithFormat:@"There was an error loading the preference bundle for %@.", [[self specifier] name]];
  PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:text
                                                    target:self
                                                       set:NULL
                                                       get:NULL
                                                    detail:Nil
                                                      cell:PSStaticTextCell
                                                      edit:Nil];
  [row setProperty:@"PSStaticTextCell" forKey:PSTableCellClassKey];
  _specifiers = [[NSMutableArray alloc] initWithObjects:[PSSpecifier emptyGroupSpecifier], row, nil];
  return _specifiers;
}

@end

@implementation SettingsRootController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  [self setTitle:@"Settings"];
  return self;
}

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  NSArray *entries = sim::preferenceEntries(self);
  NSString *note = [entries count] == 0 ? @"No settings bundle is installed." : nil;
  PSSpecifier *group = [PSSpecifier groupSpecifierWithHeader:nil footer:note];
  _specifiers = [[@[ group ] arrayByAddingObjectsFromArray:entries] mutableCopy];
  return _specifiers;
}

/// A bundle that cannot be loaded is tried again at the next tap.
- (void)lazyLoadBundle:(PSSpecifier *)specifier {
  @try {
    [super lazyLoadBundle:specifier];
  } @catch (NSException *exception) {
    sim::logPreferences(@"Loading the bundle of \"%@\" raised %@: %@", [specifier name], [exception name],
                        [exception reason]);
  }
  if (specifier->action) [self showController:[self sim_errorPageForSpecifier:specifier] animate:YES];
}

- (id)sim_errorPageForSpecifier:(PSSpecifier *)specifier {
  SIMBundleErrorPage *page = [[[SIMBundleErrorPage alloc] init] autorelease];
  [page setRootController:[self navigationController]];
  [page setParentController:self];
  [page setSpecifier:specifier];
  return page;
}

@end
