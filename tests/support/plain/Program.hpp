// Running other programs.
#pragma once

#include "base/Descriptor.hpp"

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace test {

struct ProgramResult {
  int status = -1;     // The exit status; minus the signal's number when a signal ended the program.
  std::string output;  // What it wrote to standard output.
  std::string errors;  // What it wrote to standard error.
};

/// A program under way. It is killed when the object goes.
class RunningProgram final {
 public:
  /// `arguments` without the program's name. `user`: the numeric user that runs it; 0 leaves it the present one.
  RunningProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments, uid_t user = 0);
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  pid_t identifier() const noexcept { return identifier_; }

  /// Waits for a whole line on standard output, and gives it without its end; what came before the end of the output
  /// when there is none.
  std::string readLine();

  void signal(int number);

  /// Waits for the end.
  ProgramResult wait();

 private:
  sim::Descriptor output_;
  sim::Descriptor errors_;
  pid_t identifier_ = -1;
  bool isEnded_ = false;
  std::string read_;
};

/// Runs the program to its end.
ProgramResult run(const std::filesystem::path& program, const std::vector<std::string>& arguments, uid_t user = 0);

/// Runs the program under the name that it sees as its own, with a null environment, as posix_spawn allows.
ProgramResult runWithoutEnvironment(const std::filesystem::path& program, const std::string& name,
                                    const std::vector<std::string>& arguments);

}  // namespace test
