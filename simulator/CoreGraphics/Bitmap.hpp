// Pixels in memory, and where they come from. Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace sim {

/// What the fourth byte of a pixel means. Where it is ignored it is 255.
enum class Alpha { ignored, straight, premultiplied };

/// Most pixels that an image may have: 100 million.
inline constexpr std::int64_t kMaxPixels = 100'000'000;

/// Whether an image of that many pixels may be made: both sides positive, the area within `maxPixels`.
constexpr bool isDrawableSize(std::int64_t width, std::int64_t height) noexcept {
  return width > 0 && height > 0 && width <= kMaxPixels && height <= kMaxPixels / width;
}

/// An image of 8-bit red, green, blue, alpha, without padding between rows. Written only by whoever makes it.
class Bitmap final {
 public:
  /// Bytes are not initialised. Null when the size is not drawable.
  static std::shared_ptr<Bitmap> make(std::int64_t width, std::int64_t height, Alpha alpha);

  int width() const noexcept { return width_; }
  int height() const noexcept { return height_; }
  Alpha alpha() const noexcept { return alpha_; }
  std::size_t bytesPerRow() const noexcept { return std::size_t(width_) * 4; }
  std::span<std::uint8_t> bytes() noexcept { return {bytes_.get(), bytesPerRow() * height_}; }
  std::span<const std::uint8_t> bytes() const noexcept { return {bytes_.get(), bytesPerRow() * height_}; }
  std::uint8_t* row(int y) noexcept { return bytes_.get() + bytesPerRow() * y; }
  const std::uint8_t* row(int y) const noexcept { return bytes_.get() + bytesPerRow() * y; }

 private:
  Bitmap(int width, int height, Alpha alpha);

  int width_;
  int height_;
  Alpha alpha_;
  std::unique_ptr<std::uint8_t[]> bytes_;
};

using BitmapPtr = std::shared_ptr<const Bitmap>;

/// Something that has a size and, on demand, pixels. Shared by images; one thread.
class PixelSource {
 public:
  virtual ~PixelSource() = default;
  virtual int width() const noexcept = 0;
  virtual int height() const noexcept = 0;
  virtual Alpha alpha() const noexcept = 0;
  /// Null when the pixels cannot be had.
  virtual BitmapPtr bitmap() const = 0;
  /// The pixels made smaller until the longer side is `longestSide` pixels at most; may be cheaper than `bitmap`.
  virtual BitmapPtr thumbnail(int longestSide) const;
  /// The bytes of the PNG file that the pixels come from; empty when they come from elsewhere.
  virtual std::span<const std::uint8_t> png() const noexcept { return {}; }
};

using PixelSourcePtr = std::shared_ptr<const PixelSource>;

/// A source of pixels that are there already.
PixelSourcePtr sourceOf(BitmapPtr bitmap);

/// The part of `bitmap` below the rectangle, which must lie within it.
BitmapPtr cropped(const Bitmap& bitmap, int x, int y, int width, int height);
/// Every colour inverted, alpha kept.
BitmapPtr inverted(const Bitmap& bitmap);
/// The same pixels with straight alpha (or with the alpha ignored, as they were).
BitmapPtr straightened(BitmapPtr bitmap);
/// The same pixels premultiplied (or with the alpha ignored, as they were).
BitmapPtr premultiplied(BitmapPtr bitmap);
/// Resampled to the size given, which must be drawable.
BitmapPtr resized(const Bitmap& bitmap, int width, int height);

/// The size whose longer side is `longestSide` at most, with the proportions kept and no side below 1.
struct PixelSize {
  int width = 0;
  int height = 0;
};
PixelSize fitted(PixelSize size, int longestSide) noexcept;

/// How stored pixels have to be turned to stand upright; the numbers are the camera's (EXIF 1 to 8).
enum class Orientation : std::uint8_t {
  up = 1,
  upMirrored = 2,
  down = 3,
  downMirrored = 4,
  leftMirrored = 5,
  right = 6,
  rightMirrored = 7,
  left = 8,
};

/// Whether width and height change places.
constexpr bool swapsSides(Orientation orientation) noexcept { return orientation >= Orientation::leftMirrored; }

/// The pixels turned upright.
BitmapPtr upright(BitmapPtr bitmap, Orientation orientation);

}  // namespace sim
