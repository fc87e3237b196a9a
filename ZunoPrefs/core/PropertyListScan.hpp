// Finds the value of one key in a property list without building the rest of it. Used by the preference file, which is
// read again for every row of a page and may hold a photo of many megabytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace zuno {

/// A value as Foundation would read it. Texts are UTF-8: a `std::string_view` lies in the scanned document and lives as
/// long as that does; a `std::string` had to be decoded. A number beyond the range of `std::int64_t` is a
/// `std::uint64_t`; only a binary property list holds a `float`.
using ScannedValue = std::variant<bool, std::int64_t, std::uint64_t, float, double, std::string_view, std::string>;

struct PropertyListScan {
  enum class Outcome {
    kUndecided,  ///< Only a full parse can tell: read the document with Foundation.
    kAbsent,     ///< A sound property list whose root dictionary lacks the key.
    kFound,      ///< A sound property list; `value` is what its root dictionary holds for the key.
  };

  Outcome outcome = Outcome::kUndecided;
  ScannedValue value;  ///< Meaningful only when the outcome is kFound.
};

/// Looks up `key` (UTF-8, without a terminating zero) in the root dictionary of `document`.
///
/// Checks the structure of the whole document on the way, so that kAbsent and kFound are given only for documents that
/// Foundation reads, with the value that it reads. All else is undecided: what is malformed, what is no dictionary,
/// values that are arrays or dictionaries, keys that occur twice, and whatever is rare in preference files (dates,
/// data, comments, CDATA sections, numeric character references, byte order marks, other encodings, the old text
/// format, containers more than 512 deep).
///
/// Needs no more stack for deeper documents. Never throws; without memory the outcome is undecided. Any thread.
PropertyListScan scanPropertyList(std::span<const std::byte> document, std::string_view key) noexcept;

/// As above for several keys, which differ, in one pass: `results` holds as many, in the same order. They are undecided
/// all or not at all.
void scanPropertyListKeys(std::span<const std::byte> document, std::span<const std::string_view> keys,
                          std::span<PropertyListScan> results) noexcept;

}  // namespace zuno
