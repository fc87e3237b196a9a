// Property lists as JSON, for looking at.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string_view>

namespace sim {

/// The property list (XML or binary) in `bytes` as JSON, or nothing when it is none or is built to exhaust whoever
/// reads it.
///
/// Strings, numbers, booleans, arrays and dictionaries become their JSON counterparts. What JSON lacks, or what is too
/// large to look at, becomes an object of one of these forms:
/// - data: {"data": base64} up to 1,024 bytes, {"data": null, "bytes": N} beyond;
/// - a date: {"date": "2001-01-01T00:00:00Z"};
/// - a string above 4,096 bytes: {"string": its beginning, "bytes": N};
/// - a number that is not finite: {"real": "nan"}, "inf" or "-inf"; a UID: {"uid": N};
/// - the items of a collection that are left out: {"omitted": N}, as its last item or under the key "…".
std::optional<nlohmann::json> propertyListJson(std::string_view bytes);

}  // namespace sim
