// The date format of XML property lists, YYYY-MM-DDThh:mm:ssZ.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// Seconds since 1 January 2001, 00:00 UTC; nothing when `text` is not such a date.
std::optional<double> secondsFromISO8601(std::string_view text);

/// Parts of a second are dropped. Nothing for a date that is not finite or lies beyond the years -9999 to 9999.
std::optional<std::string> iso8601FromSeconds(double seconds);

}  // namespace sim
