// The folder that stands for the device's file system.
#pragma once

#include "device/FolderLock.hpp"
#include "device/ProcessPipe.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace sim {

/// An open device folder: made when it was missing, locked against other simulators, with the pipe that killall
/// reaches. What belongs to the simulator itself lies in its hidden folder ".simulator".
class DeviceFolder final {
 public:
  /// Opens the folder and makes the device's standard folders in it. Throws Failure with a sentence for the user when
  /// it cannot be made or written, or is in use.
  explicit DeviceFolder(const std::filesystem::path& folder);

  /// Installs what a build brings along, in the order of the paths. `tree`: a folder laid out as on the device, or an
  /// empty path when there is none. Throws Failure.
  void install(const std::filesystem::path& tree);

  /// Absolute.
  const std::filesystem::path& path() const noexcept { return path_; }

  /// The hidden folder of the simulator's own files.
  std::filesystem::path ownFolder() const;
  /// The same as a path on the device.
  std::string ownDevicePath() const;

  FolderLock& lock() noexcept { return lock_; }
  ProcessPipe& backboardd() noexcept { return backboardd_; }

 private:
  std::filesystem::path path_;
  FolderLock lock_;
  ProcessPipe backboardd_;
};

/// The folders that hold preference files, as paths on the device.
const std::vector<std::string>& preferenceFolders();

}  // namespace sim
