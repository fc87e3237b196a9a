// Keeps two simulators from using one device folder.
#pragma once

#include "base/Descriptor.hpp"

#include <filesystem>
#include <string>

namespace sim {

/// Holds the lock file of a device folder, and removes it when it goes. The system gives the lock back by itself when
/// the process dies.
class FolderLock final {
 public:
  /// Takes the lock. Throws Failure, naming the process and the address that hold it, when another simulator has it,
  /// and when the file cannot be made.
  explicit FolderLock(std::filesystem::path file);
  ~FolderLock();
  FolderLock(FolderLock&& other) noexcept = default;
  FolderLock& operator=(FolderLock&&) = delete;

  /// Writes where this simulator is reached, for whoever finds the folder locked.
  void setAddress(const std::string& address);

 private:
  void write(const std::string& holder);

  std::filesystem::path file_;
  Descriptor descriptor_;
};

}  // namespace sim
