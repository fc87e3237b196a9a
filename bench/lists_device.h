// Device folders full of apps or widgets, and the settings bundle in them: shared by the benchmarks of its pages.
#pragma once

#import <Foundation/Foundation.h>

#include <filesystem>
#include <string>

namespace bench {

/// Ends the program with `what` unless `condition` holds: nothing that follows would measure what it says.
void require(bool condition, const std::string &what);

/// The class of the settings bundle, which is loaded as Settings loads it. Ends the program when it is not there.
Class bundleClass(NSString *name);

/// A device folder in the temporary folder, set for the process while it exists, and removed with it. One at a time.
class DeviceFolder final {
 public:
  DeviceFolder();
  ~DeviceFolder();
  DeviceFolder(const DeviceFolder &) = delete;
  DeviceFolder &operator=(const DeviceFolder &) = delete;

  /// Lays out `count` apps "bench.app.<n>", each an Info.plist and a link to one shared icon. Returns their
  /// identifiers, autoreleased.
  NSArray *addApps(int count);

  /// Lays out `count` widget bundles "bench.widget.<n>" around links to the code of the class `className` at `code`.
  void addWidgets(int count, const std::filesystem::path &code, NSString *className);

  /// Writes the preference file of the bundle with `value` under `key` and nothing else; nil removes the file.
  void setPreference(NSString *key, id value);

 private:
  std::filesystem::path root_;
};

/// The preference domain of the bundle.
extern NSString *const kDomain;

}  // namespace bench
