#import "Settings/stage/WidgetPreferences.h"

#import <Preferences/Preferences.h>
#import <Preferences/SpecifierLoader.h>

@implementation SIMWidgetPreferencesPage

- (instancetype)initWithFile:(NSString *)file bundle:(NSBundle *)bundle title:(NSString *)title {
  if (!(self = [super initWithNibName:nil bundle:nil])) return nil;

  _file = [file copy];
  _widgetBundle = [bundle retain];
  [self setTitle:title];
  return self;
}

- (void)dealloc {
  [_file release];
  [_widgetBundle release];
  [super dealloc];
}

- (NSBundle *)bundle {
  return _widgetBundle;
}

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  NSDictionary *list = [NSDictionary dictionaryWithContentsOfFile:_file];
  id title = [list objectForKey:@"title"];
  if ([title isKindOfClass:[NSString class]]) [self setTitle:title];
  NSString *table = [[_file lastPathComponent] stringByDeletingPathExtension];
  if (list) _specifiers = [sim::specifiersOfPropertyList(list, table, _widgetBundle, self) retain];
  if ([_specifiers count] == 0) {
    [_specifiers release];
    NSString *note = list ? @"Preferences.plist has no rows." : @"Preferences.plist is no property list.";
    _specifiers = [[NSMutableArray alloc] initWithObjects:[PSSpecifier groupSpecifierWithHeader:nil footer:note], nil];
  }
  NSString *domain = [_widgetBundle bundleIdentifier];
  for (PSSpecifier *specifier in _specifiers) {
    if (![specifier propertyForKey:PSDefaultsKey]) [specifier setProperty:domain forKey:PSDefaultsKey];
  }
  return _specifiers;
}

@end
