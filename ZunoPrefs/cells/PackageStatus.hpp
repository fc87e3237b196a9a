// Reading the status record of a package. Plain C++.
#pragma once

#include <optional>
#include <string_view>

namespace zuno {

/// The value of the field `name` in `record`, whose lines are "<field>: <value>". Only the first ": " of a line splits
/// it; lines without one are passed over; of several lines with the same field the last counts. nullopt when there is
/// none.
std::optional<std::string_view> statusField(std::string_view record, std::string_view name) noexcept;

}  // namespace zuno
