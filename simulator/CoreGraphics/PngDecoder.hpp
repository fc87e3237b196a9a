// PNG files to pixels. Plain C++.
#pragma once

#include <cstdint>
#include <span>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// Eight bits a component whatever the file has. Null for a file that is damaged anywhere up to its last row, or whose
/// size is not drawable.
BitmapPtr decodePng(std::span<const std::uint8_t> file);

}  // namespace sim
