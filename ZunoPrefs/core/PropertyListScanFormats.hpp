// The scanners behind scanPropertyList, one for each format.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

#include "core/PropertyListScan.hpp"

namespace zuno::detail {

/// Containers may lie this deep in one another, the root included.
inline constexpr std::size_t kMaximumDepth = 512;

/// The keys that are looked up and, in the same order, what is found.
struct Lookups {
  std::span<const std::string_view> keys;
  std::span<PropertyListScan> results;

  void setAbsent() const {
    for (auto& result : results) result.outcome = PropertyListScan::Outcome::kAbsent;
  }
  /// The place of the first key that `matches`; the number of keys when none does.
  template <typename Matches>
  std::size_t find(Matches matches) const {
    return static_cast<std::size_t>(std::find_if(keys.begin(), keys.end(), matches) - keys.begin());
  }
  /// Marks the key at `place` as found; false when it was already.
  bool setFound(std::size_t place) const {
    constexpr auto kFound = PropertyListScan::Outcome::kFound;
    return std::exchange(results[place].outcome, kFound) != kFound;
  }
};

/// As scanPropertyList, for documents in one format. False when the results are undecided, whatever they hold then, as
/// they are for a document that is in no such format. Throw std::bad_alloc.
bool scanXMLPropertyList(std::string_view document, const Lookups& lookups);
bool scanBinaryPropertyList(std::string_view document, const Lookups& lookups);

}  // namespace zuno::detail
