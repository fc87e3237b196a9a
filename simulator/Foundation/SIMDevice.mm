#import <Foundation/SIMDevice.h>

#include <objcxx/Retained.h>

#include <dlfcn.h>

#include <climits>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

objcxx::Retained<NSString> &deviceFolder() {
  static auto *folder = new objcxx::Retained<NSString>;  // Outlives the objects that exit handlers end.
  return *folder;
}

/// `path` with ".", ".." and empty parts resolved below the root: always starts with a slash, never ends with one.
std::string rooted(std::string_view path) {
  std::vector<std::string_view> parts;
  while (!path.empty()) {
    const auto end = std::min(path.find('/'), path.size());
    const auto part = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      parts.push_back(part);
    } else if (!parts.empty()) {
      parts.pop_back();
    }
  }
  std::string result;
  for (const auto part : parts) result.append("/").append(part);
  return result;
}

}  // namespace

void SIMSetDeviceFolder(NSString *folder) {
  if (!folder) {
    deviceFolder() = {};
    return;
  }
  NSString *absolute = [folder isAbsolutePath] ? folder
                                               : [[[NSFileManager defaultManager] currentDirectoryPath]
                                                     stringByAppendingPathComponent:folder];
  char resolved[PATH_MAX];
  const char *real = realpath([absolute fileSystemRepresentation], resolved);
  const std::string clean = real ? std::string(real) : rooted([absolute fileSystemRepresentation]);
  deviceFolder() = objcxx::adopt((NSString *)[[NSString alloc] initWithUTF8String:clean == "/" ? "" : clean.c_str()]);
}

NSString *SIMDeviceFolder(void) { return deviceFolder().get(); }

NSString *SIMDevicePath(NSString *path) {
  if (!path) [NSException raise:NSInvalidArgumentException format:@"SIMDevicePath: the path is nil"];
  NSString *folder = SIMDeviceFolder();
  if (!folder) [NSException raise:NSInternalInconsistencyException format:@"No device folder is set."];
  const char *text = [path UTF8String];
  return [folder stringByAppendingString:[NSString stringWithUTF8String:rooted(text ? text : "").c_str()]];
}

NSString *SIMDeviceCodeFile(const void *address) {
  Dl_info found{};
  if (!SIMDeviceFolder() || dladdr(address, &found) == 0 || !found.dli_fname) return nil;
  NSString *file = [NSString stringWithUTF8String:found.dli_fname];
  if ([SIMDeviceFolder() length] == 0) {
    // The device's paths are the system's, but for what the host lends.
    for (NSString *lent in @[ @"/run/", @"/usr/lib/", @"/lib/", @"/lib64/" ]) {
      if ([file hasPrefix:lent]) return nil;
    }
  }
  NSString *folder = [SIMDeviceFolder() stringByAppendingString:@"/"];
  return [file hasPrefix:folder] ? [file substringFromIndex:[folder length] - 1] : nil;
}
