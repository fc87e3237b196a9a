#import "AppList/NorvikAppRecord+Sim.h"

#import <Foundation/SIMDevice.h>
#import <UIKit/FrameworkSupport.h>
#import <objcxx/Retained.h>

#include <algorithm>
#include <vector>

namespace {

constexpr CGFloat kIconSide = 29;

NSString *nonEmptyString(id value) {
  return [value isKindOfClass:[NSString class]] && [(NSString *)value length] > 0 ? value : nil;
}

/// File names of the icon as the list gives them, without folders in them.
void addIconNames(NSMutableArray *names, id files) {
  if (![files isKindOfClass:[NSArray class]]) return;
  for (id file in (NSArray *)files) {
    NSString *name = nonEmptyString(file);
    if (name && [[name lastPathComponent] isEqualToString:name]) [names addObject:name];
  }
}

NSArray *iconNames(NSDictionary *info) {
  NSMutableArray *names = [NSMutableArray array];
  id icons = [info objectForKey:@"CFBundleIcons"];
  id primary = [icons isKindOfClass:[NSDictionary class]] ? [icons objectForKey:@"CFBundlePrimaryIcon"] : nil;
  if ([primary isKindOfClass:[NSDictionary class]]) addIconNames(names, [primary objectForKey:@"CFBundleIconFiles"]);
  addIconNames(names, [info objectForKey:@"CFBundleIconFiles"]);
  [names addObject:@"AppIcon60x60"];
  return names;
}

/// The first of the icon's files that is there, the finest first.
NSString *iconFile(NSString *folder, NSArray *names) {
  NSFileManager *files = [NSFileManager defaultManager];
  for (NSString *name in names) {
    NSString *stem = [[name pathExtension] isEqualToString:@"png"] ? [name stringByDeletingPathExtension] : name;
    for (NSString *ending in @[ @"@3x.png", @"@2x.png", @".png" ]) {
      NSString *path = [folder stringByAppendingPathComponent:[stem stringByAppendingString:ending]];
      if ([files fileExistsAtPath:path]) return path;
    }
  }
  return nil;
}

/// Folders named X.app in `folder`, in order of their names.
NSArray *applicationsIn(NSString *folder) {
  NSMutableArray *paths = [NSMutableArray array];
  NSArray *names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:folder error:NULL];
  for (NSString *name in [names sortedArrayUsingSelector:@selector(compare:)]) {
    if ([[name pathExtension] isEqualToString:@"app"]) [paths addObject:[folder stringByAppendingPathComponent:name]];
  }
  return paths;
}

NSArray *applicationPaths() {
  NSMutableArray *paths = [NSMutableArray arrayWithArray:applicationsIn(SIMDevicePath(@"/Applications"))];
  NSString *containers = SIMDevicePath(@"/var/containers/Bundle/Application");
  NSArray *names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:containers error:NULL];
  for (NSString *name in [names sortedArrayUsingSelector:@selector(compare:)]) {
    [paths addObjectsFromArray:applicationsIn([containers stringByAppendingPathComponent:name])];
  }
  return paths;
}

/// An application and its place in the alphabet.
struct Entry {
  objcxx::Retained<NSString> key;
  objcxx::Retained<NorvikAppRecord> record;

  bool operator<(const Entry &other) const {
    const NSComparisonResult order = [key.get() compare:other.key.get() options:NSLiteralSearch];
    if (order != NSOrderedSame) return order == NSOrderedAscending;
    return [[record.get() bundleIdentifier] compare:[other.record.get() bundleIdentifier]] == NSOrderedAscending;
  }
};

}  // namespace

@implementation NorvikAppRecord
@synthesize displayName = _displayName;
@synthesize bundleIdentifier = _bundleIdentifier;

- (void)dealloc {
  [_displayName release];
  [_bundleIdentifier release];
  [_folder release];
  [_iconNames release];
  [_icon release];
  [super dealloc];
}

- (UIImage *)icon {
  if (_icon || !_iconNames) return _icon;
  _icon = [[self sim_iconOfSide:kIconSide] retain];
  // Whatever came of it, the files are not looked at again.
  [_iconNames release];
  _iconNames = nil;
  return _icon;
}

- (BOOL)isEqual:(id)other {
  return [other isKindOfClass:[NorvikAppRecord class]] &&
         [_bundleIdentifier isEqualToString:[(NorvikAppRecord *)other bundleIdentifier]];
}

- (NSUInteger)hash {
  return [_bundleIdentifier hash];
}

- (NSString *)description {
  return [NSString stringWithFormat:@"<%@ %p: %@ (%@)>", [self class], self, _displayName, _bundleIdentifier];
}

#pragma mark - Sim

- (NSString *)sim_folder {
  return _folder;
}

- (UIImage *)sim_iconOfSide:(CGFloat)side {
  NSString *path = iconFile(_folder, _iconNames);
  UIImage *picture = path ? [UIImage imageWithData:[NSData dataWithContentsOfFile:path]] : nil;
  return [picture sim_iconOfWidth:side];
}

+ (instancetype)sim_recordOfApplicationAtPath:(NSString *)path {
  NSString *folderName = [path lastPathComponent];
  NSDictionary *info = [NSDictionary dictionaryWithContentsOfFile:[path stringByAppendingPathComponent:@"Info.plist"]];
  if (!info) {
    NSLog(@"[NorvikAppList] %@ has no Info.plist that can be read; it is left out.", folderName);
    return nil;
  }
  NSString *identifier = nonEmptyString([info objectForKey:@"CFBundleIdentifier"]);
  if (!identifier) {
    NSLog(@"[NorvikAppList] The Info.plist of %@ names no identifier; it is left out.", folderName);
    return nil;
  }
  NorvikAppRecord *record = [[[self alloc] init] autorelease];
  record->_bundleIdentifier = [identifier copy];
  NSString *name = nonEmptyString([info objectForKey:@"CFBundleDisplayName"])
                       ?: nonEmptyString([info objectForKey:@"CFBundleName"])
                       ?: [folderName stringByDeletingPathExtension];
  record->_displayName = [name copy];
  record->_folder = [path copy];
  record->_iconNames = [iconNames(info) copy];
  return record;
}

+ (NSArray *)sim_installedApplications {
  std::vector<Entry> entries;
  NSMutableSet *taken = [NSMutableSet set];
  for (NSString *path in applicationPaths()) {
    @autoreleasepool {
      NorvikAppRecord *record = [self sim_recordOfApplicationAtPath:path];
      if (!record || [taken containsObject:[record bundleIdentifier]]) continue;
      [taken addObject:[record bundleIdentifier]];
      NSString *key =
          [[record displayName] stringByFoldingWithOptions:NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch
                                                    locale:nil];
      entries.push_back({objcxx::share(key), objcxx::share(record)});
    }
  }
  std::sort(entries.begin(), entries.end());
  NSMutableArray *records = [NSMutableArray arrayWithCapacity:entries.size()];
  for (const Entry &entry : entries) [records addObject:entry.record.get()];
  return [[records copy] autorelease];
}

@end
