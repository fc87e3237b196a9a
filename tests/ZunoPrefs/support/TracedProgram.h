// A program that is killed at any system call that changes the disk.
#pragma once

#include <sys/types.h>

#include <vector>

namespace testing_support {

/// Runs a program under the eye of this process until it ends by itself or is killed.
class TracedProgram final {
 public:
  /// `arguments` begin with the program's path.
  explicit TracedProgram(std::vector<const char*> arguments);

  /// Lets the program run, and kills it as it enters call number `last` (from 1) of those that change the disk; 0 lets
  /// it run through. Returns how the program ended, as waitpid() tells it.
  int runUntil(int last);

 private:
  int wait() const;
  bool entersChange() const;

  pid_t process_ = -1;
};

}  // namespace testing_support

using testing_support::TracedProgram;
