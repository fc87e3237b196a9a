// Reads JSON.
#pragma once

#include <string_view>

#include "base/ValueSink.hpp"

namespace sim {

/// Streams the JSON text `document` (UTF-8) to `sink`. Strict: no comments, no trailing commas, nothing behind the
/// value, no halves of surrogate pairs. Integers keep 64 bits, signed or unsigned; larger ones become real numbers.
/// Takes no more stack for deeper documents. Returns what is wrong.
Problem readJSON(std::string_view document, ValueSink& sink);

}  // namespace sim
