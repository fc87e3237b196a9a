// Pictures made smaller by averaging blocks of their pixels, row by row. Plain C++.
#pragma once

#include <cstdint>
#include <vector>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// Takes the rows of a picture and keeps the averages of equal blocks, so that neither side becomes smaller than
/// wanted. The blocks at the right and bottom edge may be smaller.
class BoxReducer final {
 public:
  /// `size` is the picture's; no side of `smallest` is larger than the picture's or 0. `alpha` tells of the rows.
  BoxReducer(PixelSize size, PixelSize smallest, Alpha alpha);

  /// Whether the blocks are of more than one pixel.
  static constexpr bool reduces(PixelSize size, PixelSize smallest) noexcept {
    return size.width / smallest.width > 1 || size.height / smallest.height > 1;
  }

  /// Takes the next row, 4 bytes a pixel, from the top down; the picture's height in all.
  void add(const std::uint8_t* row);

  /// What has been taken, once every row was: premultiplied, or without alpha if the rows had none.
  BitmapPtr result() const { return bitmap_; }

 private:
  void addPixels(const std::uint8_t* row);
  void finishBlocks();

  PixelSize size_;
  PixelSize block_;
  Alpha alpha_;
  int rows_ = 0;      ///< Taken in all.
  int finished_ = 0;  ///< Rows of blocks.
  std::vector<std::uint64_t> sums_;
  std::shared_ptr<Bitmap> bitmap_;
};

}  // namespace sim
