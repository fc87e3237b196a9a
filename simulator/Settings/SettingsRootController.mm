#import "Settings/SettingsRootController.h"

#import <Foundation/Guarded.h>
#import <Preferences/Preferences.h>

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

- (void)sim_loadBundle:(PSSpecifier *)specifier {
  [super lazyLoadBundle:specifier];  // The compiler cannot send this from within a lambda.
}

/// A bundle that cannot be loaded is tried again at the next tap.
- (void)lazyLoadBundle:(PSSpecifier *)specifier {
  NSString *doing = [NSString stringWithFormat:@"loading the bundle of \"%@\"", [specifier name]];
  sim::guarded(doing, [&] { [self sim_loadBundle:specifier]; });
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
