// Reads property lists in any of their formats. Whoever reads one, be it Foundation or the panel of the page, reads it
// through here, so that all take and refuse the same.
#pragma once

#include <cstddef>
#include <span>

#include "base/ValueSink.hpp"

namespace sim {

enum class PropertyListFormat { oldStyle, xml, binary };

/// Streams the property list in `document` to `sink`. Its format is told by how it begins; texts are UTF-8, or UTF-16
/// with a byte order mark. `format`, where given, is set when the document is read whole. Returns what is wrong.
Problem readPropertyList(std::span<const std::byte> document, ValueSink& sink, PropertyListFormat* format = nullptr);

}  // namespace sim
