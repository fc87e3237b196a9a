// The named pipe through which the device's killall reaches the simulator. It stands for the daemon whose end restarts
// the user interface.
#pragma once

#include "base/Descriptor.hpp"

#include <filesystem>

namespace sim {

/// Makes the pipe, and removes it when it goes.
class ProcessPipe final {
 public:
  /// Replaces whatever an earlier run left at `file`. Throws Failure when the pipe cannot be made.
  explicit ProcessPipe(std::filesystem::path file);
  ~ProcessPipe();
  ProcessPipe(ProcessPipe&& other) noexcept = default;
  ProcessPipe& operator=(ProcessPipe&&) = delete;

  /// Readable when there are requests.
  int descriptor() const noexcept { return descriptor_.get(); }

  /// How many requests have arrived since the last call. Never waits.
  int takeRequests();

 private:
  std::filesystem::path file_;
  Descriptor descriptor_;
};

}  // namespace sim
