// Reads property lists in the old text format, and strings files.
#pragma once

#include <string_view>

#include "base/ValueSink.hpp"

namespace sim {

/// Streams the property list in `document` (UTF-8, byte order mark allowed) to `sink`: `{ key = value; }`, `( a, b )`,
/// `<hex data>`, quoted and bare strings; or the entries of a dictionary without their braces, as in a strings file,
/// where an entry may stand without a value and then has its key for one. Comments are skipped. A document of nothing
/// but space and comments is an empty dictionary. Takes no more stack for deeper documents.
Problem readOldStylePropertyList(std::string_view document, ValueSink& sink);

}  // namespace sim
