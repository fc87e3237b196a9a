#import "core/RowSummaries.h"

#import <NorvikAppList/NorvikAppList.h>
#import <Preferences/PSSpecifier.h>

#import "core/KRBPreferenceManager.h"
#import "core/PreferenceRow.h"
#import "widgets/WidgetNames.h"

namespace zuno {
namespace {

NSString *const kNames = @"names";

bool isText(id object) { return [object isKindOfClass:[NSString class]]; }

/// The identifiers that a stored value chooses; one text stands for a list of one.
NSArray *identifiersIn(id stored) {
  if (isText(stored)) return @[ stored ];
  NSMutableArray *identifiers = [NSMutableArray array];
  if (![stored isKindOfClass:[NSArray class]]) return identifiers;
  for (id identifier in (NSArray *)stored) {
    if (isText(identifier)) [identifiers addObject:identifier];
  }
  return identifiers;
}

/// The names of those that are installed, as the pages that choose them show it.
NSArray *namesIn(NSArray *identifiers, NSDictionary *installed) {
  NSMutableArray *names = [NSMutableArray array];
  for (NSString *identifier in identifiers) {
    if (NSString *name = [installed objectForKey:identifier]) [names addObject:name];
  }
  return names;
}

}  // namespace

NSDictionary *namesOfApps(NSArray *apps) {
  NSMutableDictionary *names = [NSMutableDictionary dictionaryWithCapacity:[apps count]];
  for (NorvikAppRecord *app in apps) {
    if (isText([app bundleIdentifier]) && isText([app displayName])) {
      [names setObject:[app displayName] forKey:[app bundleIdentifier]];
    }
  }
  return names;
}

NSArray *summariseRows(NSArray *rows, NSDictionary *appNames) {
  NSMutableArray *changed = [NSMutableArray array];
  for (PSSpecifier *row in rows) {
    NSString *key = rowText(row, @"summaryKey");
    if (!key) continue;
    NSArray *identifiers = identifiersIn([KRBPreferenceManager getPrefForKey:key]);
    NSDictionary *installed = [rowText(row, @"summaryOf") isEqualToString:@"widgets"] ? namesOfWidgets() : appNames;
    if (!installed && [identifiers count] > 0) continue;
    NSArray *names = namesIn(identifiers, installed);
    if ([names isEqual:[row propertyForKey:kNames]]) continue;
    [row setProperty:names forKey:kNames];
    [changed addObject:row];
  }
  return changed;
}

}  // namespace zuno
