// A child process that talks over a channel.
#pragma once

#include "base/Descriptor.hpp"
#include "wire/Channel.hpp"

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace sim {

struct ProgramCommand {
  std::string program;                 ///< Absolute.
  std::vector<std::string> arguments;  ///< Without the program's name.
};

/// One running child in a process group of its own, which ends with its parent. Reaped by the destructor at the latest,
/// which kills it. Main thread only: the child ends with the thread that started it.
class ChildProcess final {
 public:
  /// Starts the program that `command` names for the number of the descriptor that is the child's end of the channel.
  /// The child's output goes to standard error. What it loads later must be complete, as on a device (LD_BIND_NOW of
  /// ld.so). Throws Failure when the program cannot be started.
  explicit ChildProcess(const std::function<ProgramCommand(int descriptor)>& command);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t identifier() const noexcept { return identifier_; }
  wire::Channel& channel() noexcept { return *channel_; }

  /// Becomes readable when the child has ended.
  int endDescriptor() const noexcept { return end_.get(); }

  /// Ends the child and what it started, reaps it, and says how it had ended: "exited with status 1", "was ended by
  /// signal 11 (Segmentation fault)". A child that had ended before keeps its own reason.
  std::string kill();

  /// Tells the child by closing the channel to it that it should end, waits so long for it, and then kills it.
  void stop(std::chrono::milliseconds patience);

 private:
  void awaitEnd() const;

  std::optional<wire::Channel> channel_;
  Descriptor end_;
  pid_t identifier_ = -1;
  bool reaped_ = false;
};

}  // namespace sim
