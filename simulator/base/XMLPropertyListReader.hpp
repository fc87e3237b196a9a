// Reads property lists in the XML format.
#pragma once

#include <string_view>

#include "base/ValueSink.hpp"

namespace sim {

/// Streams the property list in `document` (UTF-8, byte order mark allowed) to `sink`, as strictly as a device: every
/// key has a value, numbers and dates are whole, and nothing but comments follows the list. Texts without entities are
/// lent straight from `document`. Takes no more stack for deeper documents. Returns what is wrong, with its line.
Problem readXMLPropertyList(std::string_view document, ValueSink& sink);

}  // namespace sim
