// A place for the Settings process in which the device's paths are paths of the system.
#pragma once

#include "server/ChildProcess.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace sim {

/// Runs a program with bubblewrap in name spaces of its own. The program sees the device folder's folders at their
/// paths on the device, the host's libraries and fonts (read-only), its own folder (read-only), processes that it
/// starts itself, no network, and nothing else. It is the user "mobile", number 501, as on a device. What it changes
/// outside the device's folders is refused or gone with it.
///
/// Works where the system lets users make name spaces, which some containers do not.
class Sandbox final {
 public:
  /// For programs in a device folder; both absolute. Writes the sandbox's list of users to `ownFolder`, which must be
  /// there. Throws Failure when it cannot.
  Sandbox(std::filesystem::path deviceFolder, const std::filesystem::path& ownFolder);

  /// Tries one, which takes some 20 ms. Returns why it does not work, as bubblewrap says it, or nothing.
  std::string problem() const;

  /// Runs `program` (absolute) with `arguments`. The descriptors that it inherits stay open. It ends with its parent.
  /// Throws Failure when there is no such program.
  ProgramCommand command(const std::filesystem::path& program, const std::vector<std::string>& arguments) const;

 private:
  std::vector<std::string> options(const std::filesystem::path& programs) const;

  std::filesystem::path deviceFolder_;
  std::filesystem::path users_;
};

}  // namespace sim
