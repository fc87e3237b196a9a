#include "CoreImage/GaussianBlur.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace sim {
namespace {

constexpr double kReach = 4;        // Standard deviations.
constexpr double kLeastBlocks = 5;  // Blocks in a standard deviation.

/// Four components a pixel.
struct Plane {
  int width = 0;
  int height = 0;
  std::vector<float> values;

  Plane(int columns, int rows) : width(columns), height(rows), values(std::size_t(columns) * rows * 4) {}
  float* row(int y) { return values.data() + std::size_t(y) * width * 4; }
  const float* row(int y) const { return values.data() + std::size_t(y) * width * 4; }
};

/// The averages of blocks of `block` × `block` pixels; the last ones of a row and column may be of fewer.
Plane averages(const Bitmap& bitmap, int block) {
  Plane result((bitmap.width() + block - 1) / block, (bitmap.height() + block - 1) / block);
  for (int y = 0; y < bitmap.height(); ++y) {
    const std::uint8_t* from = bitmap.row(y);
    float* to = result.row(y / block);
    for (int left = 0; left < bitmap.width(); left += block, to += 4) {
      const int right = std::min(left + block, bitmap.width());
      for (int x = left; x < right; ++x, from += 4) {
        for (int component = 0; component < 4; ++component) to[component] += float(from[component]);
      }
    }
  }
  if (block == 1) return result;
  for (int y = 0; y < result.height; ++y) {
    const int rows = std::min(block, bitmap.height() - y * block);
    float* value = result.row(y);
    for (int x = 0; x < result.width; ++x, value += 4) {
      const float area = float(rows) * float(std::min(block, bitmap.width() - x * block));
      for (int component = 0; component < 4; ++component) value[component] /= area;
    }
  }
  return result;
}

/// The weights of a pixel and of those on one side of it; with those of the other side the sum is 1.
std::vector<float> kernel(double sigma) {
  std::vector<double> weights(std::size_t(std::ceil(kReach * sigma)) + 1);
  double sum = 0;
  for (std::size_t distance = 0; distance < weights.size(); ++distance) {
    weights[distance] = std::exp(-0.5 * double(distance) * double(distance) / (sigma * sigma));
    sum += distance == 0 ? weights[distance] : 2 * weights[distance];
  }
  std::vector<float> result;
  for (const double weight : weights) result.push_back(float(weight / sum));
  return result;
}

void addWeighted(float* to, const float* from, float weight, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) to[i] += weight * from[i];
}

/// Along the rows. Beyond the edges the outermost values go on.
Plane blurredAcross(const Plane& input, const std::vector<float>& weights) {
  Plane result(input.width, input.height);
  const int reach = int(weights.size()) - 1;
  std::vector<float> padded(std::size_t(input.width + 2 * reach) * 4);
  for (int y = 0; y < input.height; ++y) {
    const float* row = input.row(y);
    std::copy(row, row + std::size_t(input.width) * 4, padded.begin() + std::ptrdiff_t(reach) * 4);
    for (int x = 0; x < reach; ++x) {
      std::copy(row, row + 4, padded.begin() + std::ptrdiff_t(x) * 4);
      const float* last = row + std::size_t(input.width - 1) * 4;
      std::copy(last, last + 4, padded.end() - std::ptrdiff_t(x + 1) * 4);
    }
    for (int offset = -reach; offset <= reach; ++offset) {
      addWeighted(result.row(y), padded.data() + std::ptrdiff_t(reach + offset) * 4,
                  weights[std::size_t(std::abs(offset))], std::size_t(input.width) * 4);
    }
  }
  return result;
}

/// Along the columns. Beyond the edges the outermost values go on.
Plane blurredDown(const Plane& input, const std::vector<float>& weights) {
  Plane result(input.width, input.height);
  const int reach = int(weights.size()) - 1;
  for (int y = 0; y < input.height; ++y) {
    for (int offset = -reach; offset <= reach; ++offset) {
      addWeighted(result.row(y), input.row(std::clamp(y + offset, 0, input.height - 1)),
                  weights[std::size_t(std::abs(offset))], std::size_t(input.width) * 4);
    }
  }
  return result;
}

/// Where a pixel lies between the middles of two neighbouring blocks.
struct Between {
  int first = 0;
  int second = 0;
  float share = 0;  ///< Of the second.
};

std::vector<Between> places(int from, int count, int block, int blocks) {
  std::vector<Between> result;
  for (int pixel = from; pixel < from + count; ++pixel) {
    const double place = (pixel + 0.5) / block - 0.5;
    const int first = int(std::floor(place));
    result.push_back({std::clamp(first, 0, blocks - 1), std::clamp(first + 1, 0, blocks - 1), float(place - first)});
  }
  return result;
}

/// The blocks as pixels again, without the outermost `margin`.
BitmapPtr enlarged(const Plane& plane, const Bitmap& like, int block, int margin) {
  const auto result = Bitmap::make(like.width() - 2 * margin, like.height() - 2 * margin, like.alpha());
  if (!result) return nullptr;
  const auto columns = places(margin, result->width(), block, plane.width);
  const auto rows = places(margin, result->height(), block, plane.height);
  std::vector<float> line(std::size_t(plane.width) * 4);
  for (int y = 0; y < result->height(); ++y) {
    const Between& at = rows[std::size_t(y)];
    const float *above = plane.row(at.first), *below = plane.row(at.second);
    for (std::size_t i = 0; i < line.size(); ++i) line[i] = above[i] + at.share * (below[i] - above[i]);
    std::uint8_t* to = result->row(y);
    for (const Between& across : columns) {
      const float* left = line.data() + std::size_t(across.first) * 4;
      const float* right = line.data() + std::size_t(across.second) * 4;
      for (int component = 0; component < 4; ++component) {
        const float value = left[component] + across.share * (right[component] - left[component]);
        *to++ = std::uint8_t(std::clamp(value + 0.5f, 0.f, 255.f));
      }
    }
  }
  return result;
}

}  // namespace

int blurReach(double sigma) noexcept { return int(std::ceil(kReach * sigma)); }

BitmapPtr blurred(const Bitmap& bitmap, double sigma, int margin) {
  const int block = std::max(1, int(sigma / kLeastBlocks));
  // Averaging and interpolating blur by themselves; their variances add up.
  const double side = block;
  const double own = block > 1 ? (side * side - 1) / 12 + side * side / 6 : 0;
  const auto weights = kernel(std::sqrt(sigma * sigma - own) / side);
  return enlarged(blurredDown(blurredAcross(averages(bitmap, block), weights), weights), bitmap, block, margin);
}

}  // namespace sim
