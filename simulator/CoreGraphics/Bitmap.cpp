#include "CoreGraphics/Bitmap.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "CoreGraphics/BoxReducer.hpp"
#include "CoreGraphics/CairoSurface.hpp"

namespace sim {
namespace {

class DecodedSource final : public PixelSource {
 public:
  explicit DecodedSource(BitmapPtr bitmap) : bitmap_(std::move(bitmap)) {}
  int width() const noexcept override { return bitmap_->width(); }
  int height() const noexcept override { return bitmap_->height(); }
  Alpha alpha() const noexcept override { return bitmap_->alpha(); }
  BitmapPtr bitmap() const override { return bitmap_; }

 private:
  BitmapPtr bitmap_;
};

}  // namespace

Bitmap::Bitmap(int width, int height, Alpha alpha)
    : width_(width),
      height_(height),
      alpha_(alpha),
      bytes_(std::make_unique_for_overwrite<std::uint8_t[]>(std::size_t(width) * 4 * height)) {}

std::shared_ptr<Bitmap> Bitmap::make(std::int64_t width, std::int64_t height, Alpha alpha) {
  if (!isDrawableSize(width, height)) return nullptr;
  return std::shared_ptr<Bitmap>(new Bitmap(int(width), int(height), alpha));
}

BitmapPtr PixelSource::thumbnail(int longestSide) const {
  const BitmapPtr whole = bitmap();
  if (!whole) return nullptr;
  const PixelSize size = fitted({whole->width(), whole->height()}, longestSide);
  if (size.width == whole->width() && size.height == whole->height()) return whole;
  return resized(*whole, size.width, size.height);
}

PixelSourcePtr sourceOf(BitmapPtr bitmap) {
  if (!bitmap) return nullptr;
  return std::make_shared<DecodedSource>(std::move(bitmap));
}

BitmapPtr cropped(const Bitmap& bitmap, int x, int y, int width, int height) {
  const auto result = Bitmap::make(width, height, bitmap.alpha());
  if (!result) return nullptr;
  for (int line = 0; line < height; ++line) {
    std::memcpy(result->row(line), bitmap.row(y + line) + std::size_t(x) * 4, result->bytesPerRow());
  }
  return result;
}

BitmapPtr inverted(const Bitmap& bitmap) {
  const bool premultiplied = bitmap.alpha() == Alpha::premultiplied;
  const auto result = Bitmap::make(bitmap.width(), bitmap.height(), bitmap.alpha());
  const auto from = bitmap.bytes();
  const auto to = result->bytes();
  for (std::size_t i = 0; i < from.size(); i += 4) {
    // A premultiplied component is the colour times alpha, so the inverted one is alpha less the component.
    const std::uint8_t white = premultiplied ? from[i + 3] : 255;
    for (std::size_t component = 0; component < 3; ++component) {
      to[i + component] = std::uint8_t(white - std::min(from[i + component], white));
    }
    to[i + 3] = from[i + 3];
  }
  return result;
}

BitmapPtr straightened(BitmapPtr bitmap) {
  if (!bitmap || bitmap->alpha() != Alpha::premultiplied) return bitmap;
  const auto result = Bitmap::make(bitmap->width(), bitmap->height(), Alpha::straight);
  const auto from = bitmap->bytes();
  const auto to = result->bytes();
  for (std::size_t i = 0; i < from.size(); i += 4) {
    const unsigned alpha = from[i + 3];
    for (std::size_t component = 0; component < 3; ++component) {
      const unsigned value = from[i + component];
      to[i + component] = alpha == 0 ? 0 : std::uint8_t(std::min(255u, (value * 255 + alpha / 2) / alpha));
    }
    to[i + 3] = std::uint8_t(alpha);
  }
  return result;
}

BitmapPtr premultiplied(BitmapPtr bitmap) {
  if (!bitmap || bitmap->alpha() != Alpha::straight) return bitmap;
  const auto result = Bitmap::make(bitmap->width(), bitmap->height(), Alpha::premultiplied);
  const auto from = bitmap->bytes();
  const auto to = result->bytes();
  for (std::size_t i = 0; i < from.size(); i += 4) {
    const unsigned alpha = from[i + 3];
    for (std::size_t component = 0; component < 3; ++component) {
      to[i + component] = std::uint8_t((from[i + component] * alpha + 127) / 255);
    }
    to[i + 3] = std::uint8_t(alpha);
  }
  return result;
}

BitmapPtr resized(const Bitmap& bitmap, int width, int height) {
  // Averaging is quicker than resampling, and makes sizes bearable that cairo cannot hold.
  if (const PixelSize size{bitmap.width(), bitmap.height()}; BoxReducer::reduces(size, {width, height})) {
    BoxReducer reducer(size, {width, height}, bitmap.alpha());
    for (int y = 0; y < bitmap.height(); ++y) reducer.add(bitmap.row(y));
    return resized(*reducer.result(), width, height);
  }
  const SurfacePtr target = makeSurface(width, height);
  const SurfacePtr source = surfaceOf(bitmap);
  if (!target || !source) return nullptr;
  cairo_t* context = cairo_create(target.get());
  cairo_scale(context, double(width) / bitmap.width(), double(height) / bitmap.height());
  cairo_set_source_surface(context, source.get(), 0, 0);
  cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
  cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_GOOD);
  cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
  cairo_paint(context);
  cairo_destroy(context);
  return bitmapOf(target.get(), bitmap.alpha() == Alpha::ignored ? Alpha::ignored : Alpha::premultiplied);
}

PixelSize fitted(PixelSize size, int longestSide) noexcept {
  const int longest = std::max(size.width, size.height);
  if (longestSide <= 0 || longest <= longestSide) return size;
  const double factor = double(longestSide) / longest;
  return {std::max(1, int(std::lround(size.width * factor))), std::max(1, int(std::lround(size.height * factor)))};
}

BitmapPtr upright(BitmapPtr bitmap, Orientation orientation) {
  if (!bitmap || orientation == Orientation::up) return bitmap;
  const int width = bitmap->width();
  const int height = bitmap->height();
  const bool swaps = swapsSides(orientation);
  const auto result = Bitmap::make(swaps ? height : width, swaps ? width : height, bitmap->alpha());

  // Where the stored pixel for (0, 0) lies, and how far apart two stored neighbours of one upright row and column are.
  struct Walk {
    bool fromRight, fromBottom;
  };
  const Walk walk = [&]() -> Walk {
    switch (orientation) {
      case Orientation::upMirrored: return {true, false};
      case Orientation::down: return {true, true};
      case Orientation::downMirrored: return {false, true};
      case Orientation::right: return {false, true};
      case Orientation::rightMirrored: return {true, true};
      case Orientation::left: return {true, false};
      default: return {false, false};
    }
  }();
  const std::ptrdiff_t stepX = walk.fromRight ? -4 : 4;
  const std::ptrdiff_t stepY = std::ptrdiff_t(bitmap->bytesPerRow()) * (walk.fromBottom ? -1 : 1);
  const std::uint8_t* origin = bitmap->row(walk.fromBottom ? height - 1 : 0) + (walk.fromRight ? (width - 1) * 4 : 0);
  const std::ptrdiff_t alongRow = swaps ? stepY : stepX;
  const std::ptrdiff_t alongColumn = swaps ? stepX : stepY;
  // Square tiles keep both pictures in the cache when rows become columns.
  constexpr int tile = 64;
  for (int top = 0; top < result->height(); top += tile) {
    for (int left = 0; left < result->width(); left += tile) {
      const int bottom = std::min(top + tile, result->height());
      const int right = std::min(left + tile, result->width());
      for (int y = top; y < bottom; ++y) {
        std::uint8_t* to = result->row(y) + std::size_t(left) * 4;
        for (int x = left; x < right; ++x, to += 4) {
          std::memcpy(to, origin + x * alongRow + y * alongColumn, 4);
        }
      }
    }
  }
  return result;
}

}  // namespace sim
