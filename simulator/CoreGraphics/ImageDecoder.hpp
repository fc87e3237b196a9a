// Image files as sources of pixels. Plain C++. Main thread only.
#pragma once

#include <memory>
#include <vector>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// Bytes of a file, shared by whoever needs them.
using SharedBytes = std::shared_ptr<const std::vector<std::uint8_t>>;

struct DecodedImage {
  PixelSourcePtr source;
  Orientation orientation = Orientation::up;
};

/// The image in `file`. PNG, JPEG and WebP keep the file's bytes and are decoded when their pixels are first asked for;
/// the others at once. The source is null for data that is no image, cut short or of more than `maxPixels`.
DecodedImage openImage(SharedBytes file);

}  // namespace sim
