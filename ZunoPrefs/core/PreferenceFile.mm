#import "core/PreferenceFile.h"

#include <unistd.h>

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#import "core/DevicePaths.h"
#include "core/PropertyListScan.hpp"
#include "core/PropertyListScanFile.hpp"
#import "core/PreferenceScan.h"
#import "core/PropertyListObject.h"

namespace zuno {

NSString *const kMainDomain = @"com.norvik.Zunoprefs";
NSString *const kThemeDomain = @"com.norvik.Zunoprefs.theme";

namespace {

std::size_t hashOf(std::string_view text) {
  const std::size_t hash = std::hash<std::string_view>()(text);
  return hash != 0 ? hash : 1;  // 0 is for no text.
}

std::string_view utf8(NSString *key) {
  return {[key UTF8String], [key lengthOfBytesUsingEncoding:NSUTF8StringEncoding]};
}

/// Looks `key` up, which has a form in UTF-8; the result lives as long as `file`.
PropertyListScan scanFor(NSString *key, const FileBytes &file) { return scanPropertyList(file.bytes(), utf8(key)); }

/// Of the file that was asked last: the rows of a page ask one file.
PreferenceScan &lastScan() {
  static PreferenceScan &recent = *new PreferenceScan;
  return recent;
}

}  // namespace

PreferenceFile PreferenceFile::ofDomain(NSString *domain) {
  return PreferenceFile([NSString stringWithFormat:@"%@/%@.plist", preferencesFolder(), domain]);
}

bool PreferenceFile::exists() const { return [[NSFileManager defaultManager] fileExistsAtPath:path()]; }

NSDictionary *PreferenceFile::contents() const { return [NSDictionary dictionaryWithContentsOfFile:path()]; }

id PreferenceFile::value(NSString *key) const {
  if (![key UTF8String]) return [contents() objectForKey:key];

  const auto &recent = lastScan().find([path() fileSystemRepresentation], utf8(key));
  if (recent.kind == PreferenceScan::Entry::Kind::kAbsent) return nil;
  if (recent.kind == PreferenceScan::Entry::Kind::kFound) return objcxx::share(recent.value.get()).autoreleased();

  const FileBytes file([path() fileSystemRepresentation]);
  const auto scan = scanFor(key, file);
  if (scan.outcome == PropertyListScan::Outcome::kAbsent) return nil;
  if (scan.outcome == PropertyListScan::Outcome::kFound) {
    if (id found = objectOf(scan.value)) return found;
  }
  return [contents() objectForKey:key];
}

NSDictionary *PreferenceFile::values(std::span<const std::string_view> keys) const {
  const char *file = [path() fileSystemRepresentation];
  lastScan().expect(file, keys);
  NSMutableDictionary *found = [NSMutableDictionary dictionaryWithCapacity:keys.size()];
  NSDictionary *all = nil;  // Read when the scan has not decided.
  for (const std::string_view each : keys) {
    const auto &recent = lastScan().find(file, each);
    if (recent.kind == PreferenceScan::Entry::Kind::kAbsent) continue;
    NSString *key = objectOf(each);
    id value = recent.value.get() ?: [(all = all ?: contents()) objectForKey:key];
    if (value) [found setObject:value forKey:key];
  }
  return found;
}

bool PreferenceFile::contains(NSString *key) const {
  if ([key UTF8String]) {
    const auto kind = lastScan().find([path() fileSystemRepresentation], utf8(key)).kind;
    if (kind != PreferenceScan::Entry::Kind::kUndecided) return kind != PreferenceScan::Entry::Kind::kAbsent;
    const FileBytes file([path() fileSystemRepresentation]);
    const auto outcome = scanFor(key, file).outcome;
    if (outcome != PropertyListScan::Outcome::kUndecided) return outcome == PropertyListScan::Outcome::kFound;
  }
  return [contents() objectForKey:key] != nil;
}

void PreferenceFile::withText(NSString *key, const std::function<void(std::string_view)> &use) const {
  const FileBytes file([path() fileSystemRepresentation]);
  const auto scan = scanFor(key, file);
  if (scan.outcome == PropertyListScan::Outcome::kAbsent) return;
  if (scan.outcome == PropertyListScan::Outcome::kFound) {
    if (const auto *lent = std::get_if<std::string_view>(&scan.value)) use(*lent);
    if (const auto *decoded = std::get_if<std::string>(&scan.value)) use(*decoded);
    return;
  }
  id value = [contents() objectForKey:key];
  if ([value isKindOfClass:[NSString class]]) use(utf8(value));
}

std::size_t PreferenceFile::fingerprint(NSString *key) const {
  std::size_t hash = 0;
  withText(key, [&](std::string_view text) { hash = hashOf(text); });
  return hash;
}

void PreferenceFile::setValue(id value, NSString *key, Damaged damaged) const {
  if (value == nil || key == nil) {
    NSLog(@"[Zuno] Nothing written to %@: a row without a key or a value", path());
    return;
  }
  NSDictionary *current = contents();
  if (!current && damaged == Damaged::kLeaveAlone && exists()) return;
  NSString *aside = current ? nil : setAside();
  NSMutableDictionary *merged = [NSMutableDictionary dictionary];
  if (current) [merged addEntriesFromDictionary:current];
  [merged setObject:value forKey:key];
  if ([merged writeToFile:path() atomically:YES]) return;
  if (aside) [[NSFileManager defaultManager] removeItemAtPath:aside error:nullptr];
}

void PreferenceFile::removeValue(NSString *key) const {
  NSMutableDictionary *left = [[contents() mutableCopy] autorelease];
  if (![left objectForKey:key]) return;
  [left removeObjectForKey:key];
  [left writeToFile:path() atomically:YES];
}

NSString *PreferenceFile::setAside() const {
  NSFileManager *files = [NSFileManager defaultManager];
  if (!exists() || [[files attributesOfItemAtPath:path() error:nullptr] fileSize] == 0) return nil;

  NSString *aside = [path() stringByAppendingString:@".damaged"];
  for (int number = 2; [files fileExistsAtPath:aside]; ++number) {
    aside = [NSString stringWithFormat:@"%@.damaged-%d", path(), number];
  }
  // A second name for the same file: it needs no right to read it, and the atomic write replaces the first name only.
  // A folder gets none.
  if (::link([path() fileSystemRepresentation], [aside fileSystemRepresentation]) != 0) return nil;
  NSLog(@"[Zuno] %@ is no preference file; its content is kept as %@", path(), [aside lastPathComponent]);
  return aside;
}

}  // namespace zuno
