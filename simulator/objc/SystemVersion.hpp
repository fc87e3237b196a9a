// Which system the simulator is.
#pragma once

namespace sim {

/// What UIDevice says, and what `@available` is answered by.
inline constexpr const char* kSystemVersion = "16.5";

}  // namespace sim
