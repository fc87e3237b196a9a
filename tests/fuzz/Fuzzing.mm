#include "Fuzzing.h"

#import <Foundation/SIMDevice.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>
#include <vector>

#include "core/DevicePaths.h"

namespace fuzzing {
namespace {

namespace fs = std::filesystem;

std::string &deviceFolder() {
  static std::string folder;
  return folder;
}

void removeDeviceFolder() {
  std::error_code error;
  fs::remove_all(deviceFolder(), error);
}

/// Programs that sync every file that they write run many times as fast here.
fs::path temporaryFolder() {
  const fs::path memory = "/dev/shm";
  std::error_code error;
  return fs::is_directory(memory, error) ? memory : fs::temp_directory_path(error);
}

void makeFolder(NSString *path) {
  std::error_code error;
  fs::create_directories([path fileSystemRepresentation], error);
  require(!error, "a folder of the device can be made");
}

}  // namespace

void start() {
  SIMStartFoundation();
  @autoreleasepool {
    std::string pattern = temporaryFolder() / "fuzz-XXXXXX";
    require(mkdtemp(pattern.data()) != nullptr, "a temporary folder can be made");
    deviceFolder() = pattern;
    std::atexit(removeDeviceFolder);
    SIMSetDeviceFolder([NSString stringWithUTF8String:pattern.c_str()]);
    makeFolder(zuno::presetsFolder());
    makeFolder(zuno::preferencesFolder());
  }
}

void clearPresets() {
  std::error_code error;
  for (const auto &entry : fs::directory_iterator([zuno::presetsFolder() fileSystemRepresentation], error)) {
    fs::remove_all(entry.path(), error);
  }
}

std::string presets() {
  std::error_code error;
  std::set<std::string> names;
  for (const auto &entry : fs::directory_iterator([zuno::presetsFolder() fileSystemRepresentation], error)) {
    names.insert(entry.path().filename());
  }
  std::string result;
  for (const auto &name : names) result.append(result.empty() ? "" : ",").append(name);
  return result;
}

void write(NSString *path, std::span<const std::uint8_t> bytes) {
  std::ofstream file([path fileSystemRepresentation], std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  require(!file.fail(), "an input can be written");
}

bool holds(NSString *path, std::span<const std::uint8_t> bytes) {
  std::ifstream file([path fileSystemRepresentation], std::ios::binary);
  const std::vector<char> content{std::istreambuf_iterator<char>(file), {}};
  return file.is_open() &&
         std::equal(content.begin(), content.end(), bytes.begin(), bytes.end(),
                    [](char left, std::uint8_t right) { return static_cast<std::uint8_t>(left) == right; });
}

void require(bool condition, const char *property) {
  if (condition) return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  removeDeviceFolder();
  std::abort();
}

}  // namespace fuzzing
