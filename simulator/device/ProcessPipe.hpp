// The named pipe through which the device's killall reaches the simulator. It stands for the daemon whose end restarts
// the user interface.
#pragma once

#include "base/Descriptor.hpp"

#include <filesystem>

namespace sim {

/// How many processes were asked to end.
struct KillRequests {
  int userInterface = 0;
  int settings = 0;
  friend bool operator==(const KillRequests&, const KillRequests&) = default;
};

/// Makes the pipe, and removes it when it goes. A request is a line: empty for the user interface, `kKillSettings` for
/// Settings.
class ProcessPipe final {
 public:
  /// Replaces whatever an earlier run left at `file`. Throws Failure when the pipe cannot be made.
  explicit ProcessPipe(std::filesystem::path file);
  ~ProcessPipe();
  ProcessPipe(ProcessPipe&& other) noexcept = default;
  ProcessPipe& operator=(ProcessPipe&&) = delete;

  /// Readable when there are requests.
  int descriptor() const noexcept { return descriptor_.get(); }

  static constexpr char kKillSettings = 'P';

  /// What has arrived since the last call. Never waits.
  KillRequests takeRequests();

 private:
  std::filesystem::path file_;
  Descriptor descriptor_;
};

}  // namespace sim
