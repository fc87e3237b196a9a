// Image files as sources of pixels. Plain C++. Main thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// Bytes of a file, shared by whoever needs them; or none.
class SharedBytes final {
 public:
  SharedBytes(std::nullptr_t = nullptr) noexcept {}
  SharedBytes(std::shared_ptr<const std::vector<std::uint8_t>> bytes) noexcept {
    if (bytes) bytes_ = *bytes;
    owner_ = std::move(bytes);
  }
  /// `bytes` stay where they are while `owner` lives.
  SharedBytes(std::shared_ptr<const void> owner, std::span<const std::uint8_t> bytes) noexcept
      : owner_(std::move(owner)), bytes_(bytes) {}

  explicit operator bool() const noexcept { return owner_ != nullptr; }
  std::span<const std::uint8_t> operator*() const noexcept { return bytes_; }

 private:
  std::shared_ptr<const void> owner_;
  std::span<const std::uint8_t> bytes_;
};

struct DecodedImage {
  PixelSourcePtr source;
  Orientation orientation = Orientation::up;
};

/// The image in `file`. PNG, JPEG and WebP keep the file's bytes and are decoded when their pixels are first asked for;
/// the others at once. The source is null for data that is no image, cut short or of more than `maxPixels`.
DecodedImage openImage(SharedBytes file);

}  // namespace sim
