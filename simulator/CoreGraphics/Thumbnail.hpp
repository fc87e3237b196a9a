// Small square pictures of large ones. Plain C++.
#pragma once

#include "CoreGraphics/ImageDecoder.hpp"

namespace sim {

/// The middle square of `image`, upright, at most `side` pixels (above 0) wide and high; smaller where the image is.
/// Null for an image whose pixels cannot be had. What is decoded is not kept.
BitmapPtr squareThumbnail(const DecodedImage& image, int side);

}  // namespace sim
