#import "core/PreferenceFile.h"

#include <unistd.h>

#import "core/DevicePaths.h"

namespace zuno {

NSString *const kMainDomain = @"com.norvik.Zunoprefs";
NSString *const kThemeDomain = @"com.norvik.Zunoprefs.theme";

PreferenceFile PreferenceFile::ofDomain(NSString *domain) {
  return PreferenceFile([NSString stringWithFormat:@"%@/%@.plist", preferencesFolder(), domain]);
}

bool PreferenceFile::exists() const { return [[NSFileManager defaultManager] fileExistsAtPath:path()]; }

NSDictionary *PreferenceFile::contents() const { return [NSDictionary dictionaryWithContentsOfFile:path()]; }

bool PreferenceFile::setValue(id value, NSString *key, Damaged damaged) const {
  if (value == nil || key == nil) {
    NSLog(@"[Zuno] Nothing written to %@: a row without a key or a value", path());
    return false;
  }
  NSDictionary *current = contents();
  if (!current && damaged == Damaged::kLeaveAlone && exists()) return false;
  NSString *aside = current ? nil : setAside();
  NSMutableDictionary *merged = [NSMutableDictionary dictionary];
  if (current) [merged addEntriesFromDictionary:current];
  [merged setObject:value forKey:key];
  const bool written = [merged writeToFile:path() atomically:YES];
  if (!written && aside) [[NSFileManager defaultManager] removeItemAtPath:aside error:nullptr];
  return written;
}

NSString *PreferenceFile::setAside() const {
  NSFileManager *files = [NSFileManager defaultManager];
  BOOL isFolder = NO;
  if (![files fileExistsAtPath:path() isDirectory:&isFolder] || isFolder) return nil;
  if ([[files attributesOfItemAtPath:path() error:nullptr] fileSize] == 0) return nil;

  NSString *aside = [path() stringByAppendingString:@".damaged"];
  for (int number = 2; [files fileExistsAtPath:aside]; ++number) {
    aside = [NSString stringWithFormat:@"%@.damaged-%d", path(), number];
  }
  // A second name for the same file: it needs no right to read it, and the atomic write replaces the first name only.
  if (::link([path() fileSystemRepresentation], [aside fileSystemRepresentation]) != 0) return nil;
  NSLog(@"[Zuno] %@ is no preference file; its content is kept as %@", path(), [aside lastPathComponent]);
  return aside;
}

}  // namespace zuno
