// Reads property lists in the binary format.
#pragma once

#include <cstddef>
#include <span>

#include "base/ValueSink.hpp"

namespace sim {

inline constexpr std::string_view kBinaryPropertyListMagic = "bplist0";

/// Streams the property list in `document` to `sink`. Every offset and count is checked; containers that hold
/// themselves, and documents that unfold to far more than their size, are refused. Takes no more stack for deeper
/// documents.
Problem readBinaryPropertyList(std::span<const std::byte> document, ValueSink& sink);

}  // namespace sim
