// What ends the program: one sentence for the user.
#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace sim {

/// A reason why the simulator cannot go on, as a whole sentence that is shown to the user as it stands.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;

  /// "<what>: <the system's text for error>."
  static Failure fromErrno(const std::string& what, int error) {
    return Failure(what + ": " + std::generic_category().message(error) + ".");
  }
};

}  // namespace sim
