// The revision of a screen, read from its text.
#pragma once

#include <cstdint>
#include <string_view>

namespace sim {

/// The whole number under "revision" in the JSON object `text`; 0 when there is none. Builds nothing of the rest, which
/// may be large.
std::uint64_t revisionIn(std::string_view text);

}  // namespace sim
