#import "Foundation/PreferenceDomain.h"

#import "Foundation/FileAccess.h"
#import "Foundation/PropertyListCoding.h"
#import "Foundation/SIMDevice.h"

#include <objcxx/Retained.h>

#include <sys/stat.h>

#include <array>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace sim {

NSString *const kGlobalDomain = @".GlobalPreferences";

namespace {

NSString *applicationName = @"com.apple.Preferences";

/// Stands in the names of files for this device alone.
constexpr NSString *kDeviceName = @"00000000-0000-1000-8000-0000000000A1";

/// What tells a state of a file from all others.
struct Stamp {
  dev_t device;
  ino_t number;
  off_t size;
  timespec modified, changed;

  static std::optional<Stamp> of(const std::string &file) {
    struct stat status{};
    if (::stat(file.c_str(), &status) != 0) return std::nullopt;
    return Stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
  }
  bool operator==(const Stamp &other) const {
    const auto same = [](const timespec &one, const timespec &two) {
      return one.tv_sec == two.tv_sec && one.tv_nsec == two.tv_nsec;
    };
    return device == other.device && number == other.number && size == other.size && same(modified, other.modified) &&
           same(changed, other.changed);
  }
};

struct Known {
  std::optional<Stamp> stamp;
  objcxx::Retained<NSDictionary> values;
};

/// One for all files: changes are short.
std::recursive_mutex &mutex() {
  static auto *mutex = new std::recursive_mutex;
  return *mutex;
}

/// What files held when they were last read. Under the mutex.
std::map<std::string, Known> &known() {
  static auto *known = new std::map<std::string, Known>;
  return *known;
}

BOOL write(NSDictionary *values, NSString *file) {
  known().erase(fileSystemPath(file));
  NSString *folder = [file stringByDeletingLastPathComponent];
  NSError *error = nil;
  if ([[NSFileManager defaultManager] createDirectoryAtPath:folder
                                withIntermediateDirectories:YES
                                                 attributes:nil
                                                      error:&error] &&
      writePropertyListToFile(values, file, YES, &error)) {
    return YES;
  }
  logNotStored(file, [[error userInfo] objectForKey:@"NSDebugDescription"] ?: [error localizedDescription]);
  return NO;
}

}  // namespace

NSString *applicationIdentifier() { return applicationName; }

void setApplicationIdentifier(NSString *identifier) { applicationName = [identifier copy]; }

NSString *preferenceFileOfDomain(NSString *domain, PreferencePlace place) {
  if (!SIMDeviceFolder() || [domain length] == 0) return nil;
  if ([domain isEqualToString:NSGlobalDomain]) domain = kGlobalDomain;
  if (![domain hasSuffix:@".plist"]) {
    if (place == PreferencePlace::userOnThisDevice) domain = [domain stringByAppendingFormat:@".%@", kDeviceName];
    domain = [domain stringByAppendingString:@".plist"];
  } else if (![domain isAbsolutePath]) {
    domain = [domain stringByAppendingString:@".plist"];  // The domain's own name ends so.
  }
  if ([domain isAbsolutePath]) {
    NSString *folder = [SIMDeviceFolder() stringByAppendingString:@"/"];
    return [domain hasPrefix:folder] ? domain : SIMDevicePath(domain);
  }
  if ([domain rangeOfString:@"/"].location != NSNotFound) return nil;
  static constexpr std::array kFolders = {@"/var/mobile/Library/Preferences", @"/var/mobile/Library/Preferences/ByHost",
                                          @"/var/preferences"};
  return SIMDevicePath([kFolders[static_cast<std::size_t>(place)] stringByAppendingPathComponent:domain]);
}

NSDictionary *preferencesInFile(NSString *file) {
  const std::string path = fileSystemPath(file);
  const std::lock_guard lock(mutex());
  Known &last = known()[path];
  const auto stamp = Stamp::of(path);
  if (!stamp) {
    last = {};
    return @{};
  }
  if (!(last.stamp == stamp)) last = {stamp, objcxx::share([NSDictionary dictionaryWithContentsOfFile:file])};
  return [[last.values.get() retain] autorelease];
}

BOOL changePreferencesInFile(NSString *file, NSDictionary *values, NSArray *keysToRemove) {
  const std::lock_guard lock(mutex());
  NSMutableDictionary *all = [[preferencesInFile(file) mutableCopy] autorelease];
  if (!all) {
    logNotStored(file, @"the file holds no dictionary");
    return NO;
  }
  [all removeObjectsForKeys:keysToRemove ?: @[]];
  [all addEntriesFromDictionary:values ?: @{}];
  // What is so already is not written, nor is a file made for it.
  return [all isEqual:preferencesInFile(file)] || write(all, file);
}

BOOL replacePreferencesInFile(NSString *file, NSDictionary *values) {
  const std::lock_guard lock(mutex());
  if (values) return write(values, file);
  known().erase(fileSystemPath(file));
  NSFileManager *files = [NSFileManager defaultManager];
  return ![files fileExistsAtPath:file] || [files removeItemAtPath:file error:NULL];
}

void logNotStored(NSString *file, NSString *why) {
  NSLog(@"[Foundation] The preferences in %@ were not changed: %@", [file lastPathComponent], why);
}

}  // namespace sim
