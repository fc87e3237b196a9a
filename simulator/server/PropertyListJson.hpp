// Property-list files as JSON, for looking at.
#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <optional>
#include <span>

namespace sim {

/// The property list (in any format) in `bytes` as JSON. It is read as Foundation reads a file: nothing when it is
/// malformed or built to exhaust whoever reads it, or when it is neither a dictionary nor an array; nor when it holds
/// more than a million values, or 128 megabytes of texts, keys and data, which the binary format fits into a small
/// file. `problem`, where given, is then the sentence that says which. What is not shown takes no memory.
///
/// Strings, numbers, booleans, arrays and dictionaries become their JSON counterparts. What JSON lacks, or what is too
/// large to look at, becomes an object of one of these forms:
/// - data: {"data": base64} up to 1,024 bytes, {"data": null, "bytes": N} beyond;
/// - a date: {"date": "2001-01-01T00:00:00Z"}, or {"date": null} beyond the years -9999 to 9999;
/// - a string above 4,096 bytes: {"string": its beginning, "bytes": N};
/// - a number that is not finite: {"real": "nan"}, "inf" or "-inf";
/// - the items of a collection that are left out: {"omitted": N}, as its last item or under the key "…".
/// Of a key above 4,096 bytes the beginning and "…" are shown, with a number in parentheses behind them where that is
/// taken already: no entry takes the place of another.
std::optional<nlohmann::json> propertyListJson(std::span<const std::byte> bytes, const char** problem = nullptr);

}  // namespace sim
