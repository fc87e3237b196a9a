// Image files out of pixels. Plain C++.
#pragma once

#include <cstdint>
#include <vector>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// A PNG file: RGB when the alpha is ignored, else RGBA. Empty when memory runs out.
///
/// The fastest settings of libpng that keep photographs small: a twelve-megapixel photograph takes about a sixteenth of
/// the time of the library's defaults and two per cent more bytes.
std::vector<std::uint8_t> encodePng(const BitmapPtr& bitmap);

/// A JPEG file; `quality` from 0 to 1. Transparent pixels are laid over white. Empty on failure.
std::vector<std::uint8_t> encodeJpeg(const BitmapPtr& bitmap, double quality);

}  // namespace sim
