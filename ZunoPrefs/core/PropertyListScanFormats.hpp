// The scanners behind scanPropertyList, one for each format.
#pragma once

#include <cstddef>
#include <string_view>

#include "core/PropertyListScan.hpp"

namespace zuno::detail {

/// Containers may lie this deep in one another, the root included.
inline constexpr std::size_t kMaximumDepth = 512;

/// As scanPropertyList, for documents in one format; one that is in no such format is undecided. Throw std::bad_alloc.
PropertyListScan scanXMLPropertyList(std::string_view document, std::string_view key);
PropertyListScan scanBinaryPropertyList(std::string_view document, std::string_view key);

}  // namespace zuno::detail
