#import "core/PreferenceFile.h"

#include <unistd.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#import "core/DevicePaths.h"
#include "core/PropertyListScan.hpp"
#include "core/PropertyListScanFile.hpp"

namespace zuno {

NSString *const kMainDomain = @"com.norvik.Zunoprefs";
NSString *const kThemeDomain = @"com.norvik.Zunoprefs.theme";

namespace {

std::size_t hashOf(std::string_view text) {
  const std::size_t hash = std::hash<std::string_view>()(text);
  return hash != 0 ? hash : 1;  // 0 is for no text.
}

/// Makes the Foundation object of a scanned value, autoreleased.
struct ObjectMaker {
  id operator()(bool value) const { return [NSNumber numberWithBool:value]; }
  id operator()(std::int64_t value) const { return [NSNumber numberWithLongLong:value]; }
  id operator()(std::uint64_t value) const { return [NSNumber numberWithUnsignedLongLong:value]; }
  id operator()(float value) const { return [NSNumber numberWithFloat:value]; }
  id operator()(double value) const { return [NSNumber numberWithDouble:value]; }
  id operator()(std::string_view text) const {
    return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
  }
  id operator()(const std::string &text) const { return (*this)(std::string_view(text)); }
};

/// Looks `key` up, which has a form in UTF-8; the result lives as long as `file`.
PropertyListScan scanFor(NSString *key, const FileBytes &file) {
  return scanPropertyList(file.bytes(), {[key UTF8String], [key lengthOfBytesUsingEncoding:NSUTF8StringEncoding]});
}

}  // namespace

PreferenceFile PreferenceFile::ofDomain(NSString *domain) {
  return PreferenceFile([NSString stringWithFormat:@"%@/%@.plist", preferencesFolder(), domain]);
}

bool PreferenceFile::exists() const { return [[NSFileManager defaultManager] fileExistsAtPath:path()]; }

NSDictionary *PreferenceFile::contents() const { return [NSDictionary dictionaryWithContentsOfFile:path()]; }

id PreferenceFile::value(NSString *key) const {
  if (![key UTF8String]) return [contents() objectForKey:key];

  const FileBytes file([path() fileSystemRepresentation]);
  const auto scan = scanFor(key, file);
  if (scan.outcome == PropertyListScan::Outcome::kAbsent) return nil;
  if (scan.outcome == PropertyListScan::Outcome::kFound) {
    if (id found = std::visit(ObjectMaker{}, scan.value)) return found;
  }
  return [contents() objectForKey:key];
}

NSDictionary *PreferenceFile::values(std::span<const std::string_view> keys) const {
  const FileBytes file([path() fileSystemRepresentation]);
  std::vector<PropertyListScan> scans(keys.size());
  scanPropertyListKeys(file.bytes(), keys, scans);
  NSMutableDictionary *found = [NSMutableDictionary dictionaryWithCapacity:keys.size()];
  NSDictionary *all = nil;  // Read when the scan has not decided.
  for (std::size_t place = 0; place < keys.size(); ++place) {
    const auto &[outcome, scanned] = scans[place];
    if (outcome == PropertyListScan::Outcome::kAbsent) continue;
    NSString *key = ObjectMaker{}(keys[place]);
    id value = outcome == PropertyListScan::Outcome::kFound ? std::visit(ObjectMaker{}, scanned) : nil;
    if (!value) value = [(all = all ?: contents()) objectForKey:key];
    if (value) [found setObject:value forKey:key];
  }
  return found;
}

bool PreferenceFile::contains(NSString *key) const {
  if ([key UTF8String]) {
    const FileBytes file([path() fileSystemRepresentation]);
    const auto outcome = scanFor(key, file).outcome;
    if (outcome != PropertyListScan::Outcome::kUndecided) return outcome == PropertyListScan::Outcome::kFound;
  }
  return [contents() objectForKey:key] != nil;
}

std::size_t PreferenceFile::fingerprint(NSString *key) const {
  const FileBytes file([path() fileSystemRepresentation]);
  const auto scan = scanFor(key, file);
  if (scan.outcome == PropertyListScan::Outcome::kAbsent) return 0;
  if (scan.outcome == PropertyListScan::Outcome::kFound) {
    if (const auto *lent = std::get_if<std::string_view>(&scan.value)) return hashOf(*lent);
    const auto *decoded = std::get_if<std::string>(&scan.value);
    return decoded ? hashOf(*decoded) : 0;
  }
  id value = [contents() objectForKey:key];
  return [value isKindOfClass:[NSString class]] ? hashOf([value UTF8String] ?: "") : 0;
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
