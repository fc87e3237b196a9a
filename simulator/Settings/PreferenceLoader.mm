#import "Settings/PreferenceLoader.h"

#import <Foundation/SIMDevice.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/Preferences.h>
#import <Preferences/PreferencesLog.h>
#import <Preferences/SpecifierLoader.h>

#include <objcxx/Retained.h>

#include <algorithm>
#include <vector>

namespace {

NSString *const kEntriesFolder = @"/var/jb/Library/PreferenceLoader/Preferences";
NSString *const kEntryKey = @"entry";
NSString *const kItemsKey = @"items";
NSString *const kListFileKey = @"pl_plist";
constexpr double kCoreFoundationVersion = 1946.102;  // Of iOS 16.

}  // namespace

/// The page of an entry without a bundle: its rows stand in the entry's own file.
@interface SIMPropertyListPage : PSListController
@end

@implementation SIMPropertyListPage

- (NSBundle *)bundle {
  NSString *file = [[self specifier] sim_stringForKey:kListFileKey];
  return file ? [NSBundle bundleWithPath:[file stringByDeletingLastPathComponent]] : nil;
}

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;
  NSString *file = [[self specifier] sim_stringForKey:kListFileKey];
  NSDictionary *list = file ? [NSDictionary dictionaryWithContentsOfFile:file] : nil;
  NSString *table = [[file lastPathComponent] stringByDeletingPathExtension];
  id title = [list objectForKey:@"title"];
  if ([title isKindOfClass:[NSString class]]) [self setTitle:title];
  _specifiers = [sim::specifiersOfPropertyList(list, table, [self bundle], self) retain];
  return _specifiers;
}

@end

namespace sim {
namespace {

/// "CoreFoundationVersion" of the filter: the first version that the entry is for, and the first that it is not for.
bool passesFilter(id filter) {
  if (![filter isKindOfClass:[NSDictionary class]]) return true;
  id bounds = [filter objectForKey:@"CoreFoundationVersion"];
  if (![bounds isKindOfClass:[NSArray class]]) return true;
  for (NSUInteger index = 0; index < [bounds count] && index < 2; ++index) {
    id bound = [bounds objectAtIndex:index];
    if (![bound respondsToSelector:@selector(doubleValue)]) continue;
    const bool passes =
        index == 0 ? kCoreFoundationVersion >= [bound doubleValue] : kCoreFoundationVersion < [bound doubleValue];
    if (!passes) return false;
  }
  return true;
}

void logDropped(NSString *file, NSString *reason) {
  logPreferences(@"The entry %@ is left out: %@.", [file lastPathComponent], reason);
}

/// The entry with what every entry has.
NSDictionary *completed(NSDictionary *entry, NSString *file) {
  NSMutableDictionary *whole = [[entry mutableCopy] autorelease];
  if (![whole objectForKey:PSTitleKey]) {
    [whole setObject:[[file lastPathComponent] stringByDeletingPathExtension] forKey:PSTitleKey];
  }
  if (![whole objectForKey:PSTableCellClassKey]) [whole setObject:@"PSLinkCell" forKey:PSTableCellClassKey];
  if (![whole objectForKey:PSBundleIsControllerKey]) [whole setObject:@1 forKey:PSBundleIsControllerKey];
  return whole;
}

PSSpecifier *specifierOfEntry(NSString *file, id target) {
  NSDictionary *list = [NSDictionary dictionaryWithContentsOfFile:file];
  if (!list) {
    logDropped(file, @"it is no dictionary or cannot be read");
    return nil;
  }
  id entry = [list objectForKey:kEntryKey];
  if (![entry isKindOfClass:[NSDictionary class]]) {
    logDropped(file, @"it has no dictionary \"entry\"");
    return nil;
  }
  if (!passesFilter([list objectForKey:@"pl_filter"]) || !passesFilter([list objectForKey:@"filter"]) ||
      !passesFilter([entry objectForKey:@"pl_filter"])) {
    logDropped(file, @"it is for another version of the system");
    return nil;
  }

  const bool hasBundle = [entry objectForKey:PSBundlePathKey] || [entry objectForKey:@"bundlePath"];
  NSString *bundlePath = hasBundle ? preferenceBundlePath(entry) : nil;
  if (hasBundle && !bundlePath) {
    logDropped(file, [NSString stringWithFormat:@"there is no bundle %@", [entry objectForKey:PSBundlePathKey]]);
    return nil;
  }
  if (!hasBundle && ![[list objectForKey:kItemsKey] isKindOfClass:[NSArray class]]) {
    logDropped(file, @"it has neither a bundle nor an array \"items\"");
    return nil;
  }

  NSBundle *bundle = [NSBundle bundleWithPath:bundlePath ?: [file stringByDeletingLastPathComponent]];
  NSString *table = [[file lastPathComponent] stringByDeletingPathExtension];
  PSSpecifier *specifier = specifierOfItem(completed(entry, file), table, bundle, target);
  if (specifier && !hasBundle) {
    [specifier setProperty:file forKey:kListFileKey];
    [specifier setDetailControllerClass:[SIMPropertyListPage class]];
  }
  return specifier;
}

/// A specifier and its place in the alphabet.
struct Entry {
  objcxx::Retained<NSString> key;
  objcxx::Retained<PSSpecifier> specifier;
};

}  // namespace

NSArray *preferenceEntries(id target) {
  NSString *folder = SIMDevicePath(kEntriesFolder);
  NSArray *names = [[[NSFileManager defaultManager] enumeratorAtPath:folder] allObjects];
  std::vector<Entry> entries;
  for (NSString *name in [names sortedArrayUsingSelector:@selector(compare:)]) {
    if (![[name pathExtension] isEqualToString:@"plist"]) continue;
    PSSpecifier *specifier = specifierOfEntry([folder stringByAppendingPathComponent:name], target);
    if (!specifier) continue;
    NSString *key = [[specifier name] stringByFoldingWithOptions:NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch
                                                          locale:nil];
    entries.push_back({objcxx::share(key), objcxx::share(specifier)});
  }
  std::stable_sort(entries.begin(), entries.end(), [](const Entry &one, const Entry &other) {
    return [one.key.get() compare:other.key.get() options:NSLiteralSearch] == NSOrderedAscending;
  });
  NSMutableArray *specifiers = [NSMutableArray arrayWithCapacity:entries.size()];
  for (const Entry &entry : entries) [specifiers addObject:entry.specifier.get()];
  return specifiers;
}

}  // namespace sim
