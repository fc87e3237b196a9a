// What an image file says of itself before its pixels are decoded. Plain C++.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

enum class ImageFormat { png, jpeg, gif, tiff, webp, heif };

struct ImageHeader {
  ImageFormat format = ImageFormat::png;
  std::int64_t width = 0;   ///< Pixels as stored.
  std::int64_t height = 0;  ///< Pixels as stored.
  Alpha alpha = Alpha::ignored;
  Orientation orientation = Orientation::up;
};

/// Reads the header and walks the file's structure, without decoding. Nothing for data that is empty, no image in one
/// of the formats above, or cut short; a cut GIF or TIFF is noticed only when it is decoded. Never reads past the end.
std::optional<ImageHeader> readImageHeader(std::span<const std::uint8_t> bytes) noexcept;

}  // namespace sim
