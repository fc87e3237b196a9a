// Files on their way from a client to the device. They lie in a folder of the simulator's own, under names of its own.
#pragma once

#include "base/Descriptor.hpp"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace sim {

/// One file that arrives or has arrived. It is removed with the object, unless somebody has moved it away by then. One
/// thread at a time.
class Upload final {
 public:
  Upload(std::filesystem::path path, std::string devicePath, Descriptor descriptor)
      : path_(std::move(path)), devicePath_(std::move(devicePath)), descriptor_(std::move(descriptor)) {}
  ~Upload();
  Upload(const Upload&) = delete;
  Upload& operator=(const Upload&) = delete;

  /// Writes the bytes behind those that are there. Returns 0 or the `errno` value that says why not.
  int append(std::string_view bytes);

  /// As a path on the device.
  const std::string& devicePath() const noexcept { return devicePath_; }

 private:
  std::filesystem::path path_;
  std::string devicePath_;
  Descriptor descriptor_;
};

using UploadPtr = std::shared_ptr<Upload>;

/// The folder of all uploads. One thread at a time.
class UploadFolder final {
 public:
  /// Makes the folder at `devicePath` of the device folder, whose parent exists, or empties it of what a former run
  /// left. Throws Failure when that cannot be done.
  UploadFolder(const std::filesystem::path& deviceFolder, std::string devicePath);

  /// A new, empty file, or the `errno` value that says why there is none.
  std::variant<UploadPtr, int> begin();

 private:
  std::filesystem::path folder_;
  std::string devicePath_;
  std::uint64_t lastNumber_ = 0;
};

}  // namespace sim
