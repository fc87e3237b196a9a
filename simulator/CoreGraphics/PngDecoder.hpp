// PNG files to pixels. Plain C++.
#pragma once

#include <cstdint>
#include <span>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// Eight bits a component whatever the file has. Null for a file that is damaged anywhere up to its last row, or whose
/// size is not drawable.
///
/// With a `longestSide` above 0 the pixels may come averaged in blocks, as few as leave the longer side that long; the
/// whole picture is then never in memory, unless it is interlaced.
BitmapPtr decodePng(std::span<const std::uint8_t> file, int longestSide = 0);

}  // namespace sim
