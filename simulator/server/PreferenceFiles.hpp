// The property-list files in the device's preference folders, and the news of their changes.
#pragma once

#include "base/Descriptor.hpp"
#include "server/EventLoop.hpp"

#include <sys/types.h>

#include <nlohmann/json.hpp>

#include <ctime>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace sim {

/// Main thread only.
class PreferenceFiles final {
 public:
  /// Watches the folders, given as absolute paths on the device, below `root`. A change of whatever origin calls
  /// `changed` soon after. `loop` must outlive the object. Throws Failure when the system gives no watch.
  PreferenceFiles(EventLoop& loop, std::filesystem::path root, std::vector<std::string> folders,
                  std::function<void()> changed);
  ~PreferenceFiles();
  PreferenceFiles(const PreferenceFiles&) = delete;
  PreferenceFiles& operator=(const PreferenceFiles&) = delete;

  /// [{"path", "content", "error"}] of every "*.plist", sorted by path. "path" is the path on the device; "content" is
  /// as propertyListJson gives it; one of "content" and "error" is null.
  nlohmann::json json();

 private:
  // Tells whether a file is still the one that was read.
  struct Stamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    std::timespec modified{};
    std::timespec changed{};
    bool operator==(const Stamp& other) const noexcept;
  };
  struct Entry {
    Stamp stamp;
    nlohmann::json json;
  };

  static nlohmann::json read(const std::string& path, const std::filesystem::path& file);

  void watchMissing();
  void takeEvents();

  EventLoop& loop_;
  const std::filesystem::path root_;
  const std::vector<std::string> folders_;
  const std::function<void()> changed_;
  Descriptor inotify_;
  std::map<int, std::string> watches_;  // From watch descriptor to folder.
  EventLoop::Timer retryTimer_ = 0;
  std::map<std::string, Entry> known_;  // By path on the device.
};

}  // namespace sim
