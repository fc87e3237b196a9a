// What `@available` and `__builtin_available` ask in makers' code.
#include <charconv>
#include <string_view>

#include "makers.h"
#include "SystemVersion.hpp"

namespace sim {
namespace {

constexpr std::string_view kSpace = " \t\n";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

/// The number that `version` begins with, which is taken off it with the dot or the underscore behind it; 0 without
/// one.
int takeNumber(std::string_view &version) {
  int number = 0;
  const char *end = std::from_chars(version.data(), version.data() + version.size(), number).ptr;
  version.remove_prefix(static_cast<std::size_t>(end - version.data()));
  if (!version.empty()) version.remove_prefix(1);
  return number;
}

bool isReached(std::string_view wanted) {
  std::string_view ours = kSystemVersion;
  while (!wanted.empty()) {
    const int now = takeNumber(ours);
    const int least = takeNumber(wanted);
    if (now != least) return now > least;
  }
  return true;
}

}  // namespace
}  // namespace sim

bool sim_isAvailable(const char *versions) {
  std::string_view rest = versions;
  while (!rest.empty()) {
    const auto comma = rest.find(',');
    const std::string_view each = sim::trimmed(rest.substr(0, comma));
    rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
    const auto space = each.find_first_of(sim::kSpace);
    const std::string_view platform = each.substr(0, space);
    if (platform != "iOS" && platform != "iOSApplicationExtension") continue;
    return space == std::string_view::npos || sim::isReached(sim::trimmed(each.substr(space)));
  }
  return true;
}
