#include "CoreGraphics/BoxReducer.hpp"

#include <algorithm>

namespace sim {
namespace {

constexpr int blocksIn(int side, int block) noexcept { return (side + block - 1) / block; }

}  // namespace

BoxReducer::BoxReducer(PixelSize size, PixelSize smallest, Alpha alpha)
    : size_(size),
      block_{size.width / smallest.width, size.height / smallest.height},
      alpha_(alpha),
      bitmap_(Bitmap::make(blocksIn(size.width, block_.width), blocksIn(size.height, block_.height),
                           alpha == Alpha::ignored ? Alpha::ignored : Alpha::premultiplied)) {
  sums_.resize(bitmap_->bytesPerRow());
}

void BoxReducer::add(const std::uint8_t* row) {
  addPixels(row);
  ++rows_;
  if (rows_ % block_.height == 0 || rows_ == size_.height) finishBlocks();
}

void BoxReducer::addPixels(const std::uint8_t* row) {
  const std::uint8_t* const end = row + std::size_t(size_.width) * 4;
  const std::size_t blockBytes = std::size_t(block_.width) * 4;
  for (std::uint64_t* sum = sums_.data(); row != end; sum += 4) {
    const std::uint8_t* const blockEnd = row + std::min(blockBytes, std::size_t(end - row));
    std::uint64_t red = 0, green = 0, blue = 0, alpha = 0;
    for (; row != blockEnd; row += 4) {
      const unsigned weight = alpha_ == Alpha::straight ? row[3] : 1;
      red += row[0] * weight;
      green += row[1] * weight;
      blue += row[2] * weight;
      alpha += row[3];
    }
    sum[0] += red;
    sum[1] += green;
    sum[2] += blue;
    sum[3] += alpha;
  }
}

void BoxReducer::finishBlocks() {
  const int height = rows_ - finished_ * block_.height;
  const std::uint64_t weight = alpha_ == Alpha::straight ? 255 : 1;
  std::uint8_t* to = bitmap_->row(finished_++);
  for (int x = 0; x < bitmap_->width(); ++x, to += 4) {
    const std::uint64_t* sum = sums_.data() + std::size_t(x) * 4;
    const std::uint64_t area = std::uint64_t(std::min(block_.width, size_.width - x * block_.width)) * height;
    const std::uint64_t whole = area * weight;
    for (int component = 0; component < 3; ++component)
      to[component] = std::uint8_t((sum[component] + whole / 2) / whole);
    to[3] = alpha_ == Alpha::ignored ? 255 : std::uint8_t((sum[3] + area / 2) / area);
  }
  std::fill(sums_.begin(), sums_.end(), 0);
}

}  // namespace sim
