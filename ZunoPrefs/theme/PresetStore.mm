#import "theme/PresetStore.h"

#import "core/DevicePaths.h"
#import "core/PreferenceFile.h"
#import "theme/ThemeChange.h"

namespace zuno {
namespace {

NSString *const kVersionKey = @"ZunoPresetVersion";
NSString *const kExtension = @".plist";
constexpr int kVersion = 1;
constexpr NSUInteger kLongestName = 32;  // UTF-16 units.

NSFileManager *files() { return [NSFileManager defaultManager]; }

bool isWritableFolder(NSString *path) {
  BOOL isFolder = NO;
  return [files() fileExistsAtPath:path isDirectory:&isFolder] && isFolder && [files() isWritableFileAtPath:path];
}

NSString *cleaned(NSString *name) {
  NSCharacterSet *forbidden = [NSCharacterSet characterSetWithCharactersInString:@"/\\?%*|\"<>"];
  NSString *kept = [[name componentsSeparatedByCharactersInSet:forbidden] componentsJoinedByString:@""];
  return [kept stringByReplacingOccurrencesOfString:kExtension withString:@""];
}

/// Where a copy on its way into `folder` lies. A name of its own length: the longest file names leave no room for a
/// suffix.
NSString *partialCopyIn(NSString *folder) { return [folder stringByAppendingPathComponent:@".copy.partial"]; }

}  // namespace

bool copyWhole(NSString *from, NSString *to) {
  NSString *partial = partialCopyIn([to stringByDeletingLastPathComponent]);
  [files() removeItemAtPath:partial error:nullptr];
  if ([files() copyItemAtPath:from toPath:partial error:nullptr] && [files() moveItemAtPath:partial
                                                                                     toPath:to
                                                                                      error:nullptr]) {
    return true;
  }
  [files() removeItemAtPath:partial error:nullptr];
  return false;
}

NSArray *presetPaths() {
  NSString *folder = presetsFolder();
  if (![files() fileExistsAtPath:folder]) {
    [files() createDirectoryAtPath:folder withIntermediateDirectories:YES attributes:nil error:nullptr];
  }
  if (!isWritableFolder(folder)) NSLog(@"[Zuno] No preset can be saved: %@ is no folder that may be written", folder);
  // What is left of a copy that was cut off, of a preset or of the theme.
  for (NSString *place in @[ folder, preferencesFolder() ]) {
    [files() removeItemAtPath:partialCopyIn(place) error:nullptr];
  }
  NSMutableArray *paths = [NSMutableArray array];
  for (NSString *entry in [files() contentsOfDirectoryAtPath:folder error:nullptr]) {
    if ([entry hasSuffix:kExtension]) [paths addObject:[folder stringByAppendingPathComponent:entry]];
  }
  return [[paths copy] autorelease];
}

NSString *presetNameOf(NSString *path) { return [[path lastPathComponent] stringByDeletingPathExtension]; }

NSString *pathOfPreset(NSString *name) {
  return [presetsFolder() stringByAppendingPathComponent:[NSString stringWithFormat:@"%@.plist", name]];
}

bool presetExists(NSString *name) { return [files() fileExistsAtPath:pathOfPreset(name)]; }

PresetName checkPresetName(NSString *name) {
  NSString *kept = cleaned(name);
  NSString *trimmed = [kept stringByTrimmingCharactersInSet:[NSCharacterSet whitespaceCharacterSet]];
  if ([trimmed length] == 0) return {nil, @"Invalid preset name"};
  if ([kept length] > kLongestName) return {nil, @"Preset name is too long"};
  if (presetExists(kept)) return {nil, @"Preset with this name already exists"};
  return {kept, nil};
}

bool savePreset(NSString *name) {
  const auto theme = PreferenceFile::ofDomain(kThemeDomain);
  if (!theme.exists()) return false;

  NSString *path = pathOfPreset(name ?: [[NSUUID UUID] UUIDString]);
  if ([files() fileExistsAtPath:path]) [files() removeItemAtPath:path error:nullptr];
  // The plain copy is what remains of a theme file that is no dictionary.
  copyWhole(theme.path(), path);
  if (NSDictionary *contents = theme.contents()) {
    NSMutableDictionary *preset = [[contents mutableCopy] autorelease];
    [preset setObject:[NSNumber numberWithInt:kVersion] forKey:kVersionKey];
    [preset writeToFile:path atomically:YES];
  }
  return true;
}

bool applyPreset(NSString *path) {
  if (![files() fileExistsAtPath:path]) return false;

  const auto theme = PreferenceFile::ofDomain(kThemeDomain);
  if (theme.exists()) {
    NSString *backup = [NSString stringWithFormat:@"%@.bak", theme.path()];
    if ([files() fileExistsAtPath:backup]) [files() removeItemAtPath:backup error:nullptr];
    [files() moveItemAtPath:theme.path() toPath:backup error:nullptr];
  }
  copyWhole(path, theme.path());
  tellThemeChanged();
  return true;
}

void deletePreset(NSString *path) { [files() removeItemAtPath:path error:nullptr]; }

bool writePreset(NSDictionary *contents, NSString *name) {
  if (![NSPropertyListSerialization propertyList:contents isValidForFormat:NSPropertyListXMLFormat_v1_0]) return false;
  NSString *path = pathOfPreset(name);
  if ([files() fileExistsAtPath:path]) [files() removeItemAtPath:path error:nullptr];
  return [contents writeToFile:path atomically:YES];
}

}  // namespace zuno
