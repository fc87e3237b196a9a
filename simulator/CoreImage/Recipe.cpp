#include "CoreImage/Recipe.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "CoreImage/GaussianBlur.hpp"

namespace sim {
namespace {

/// Standard deviations by which a blurred image is larger than its input.
constexpr double kVisibleReach = 3;
constexpr double kLargestSigma = 5000;

/// Transparent pixels for all of `area`, which is drawable.
std::shared_ptr<Bitmap> transparent(const PixelArea& area, Alpha alpha) {
  const auto result = Bitmap::make(area.width, area.height, alpha);
  std::fill(result->bytes().begin(), result->bytes().end(), 0);
  return result;
}

/// `pixels`, which lie below `from`, among the transparent ones of `area`, which contains `from`.
BitmapPtr placed(BitmapPtr pixels, const PixelArea& from, const PixelArea& area) {
  const Alpha alpha = pixels->alpha() == Alpha::ignored ? Alpha::straight : pixels->alpha();
  const auto result = transparent(area, alpha);
  for (int line = 0; line < pixels->height(); ++line) {
    std::uint8_t* to = result->row(int(area.top() - from.top()) + line) + std::size_t(from.left - area.left) * 4;
    std::memcpy(to, pixels->row(line), pixels->bytesPerRow());
  }
  return result;
}

class Pixels final : public Recipe {
 public:
  explicit Pixels(PixelSourcePtr source) : source_(std::move(source)) {}
  PixelArea extent() const noexcept override { return {0, 0, source_->width(), source_->height()}; }

 private:
  BitmapPtr renderWithin(const PixelArea& area) const override {
    const BitmapPtr whole = source_->bitmap();
    if (!whole || area == extent()) return whole;
    const int top = int(whole->height() - area.top());
    return cropped(*whole, int(area.left), top, int(area.width), int(area.height));
  }

  PixelSourcePtr source_;
};

class Inverted final : public Recipe {
 public:
  explicit Inverted(RecipePtr input) : input_(std::move(input)) {}
  PixelArea extent() const noexcept override { return input_->extent(); }

 private:
  BitmapPtr renderWithin(const PixelArea& area) const override {
    const BitmapPtr pixels = input_->render(area);
    return pixels ? inverted(*pixels) : nullptr;
  }

  RecipePtr input_;
};

class Cropped final : public Recipe {
 public:
  Cropped(RecipePtr input, const PixelArea& area)
      : input_(std::move(input)), extent_(intersection(input_->extent(), area)) {}
  PixelArea extent() const noexcept override { return extent_; }

 private:
  BitmapPtr renderWithin(const PixelArea& area) const override { return input_->render(area); }

  RecipePtr input_;
  PixelArea extent_;
};

class Clamped final : public Recipe {
 public:
  explicit Clamped(RecipePtr input) : input_(std::move(input)) {}
  PixelArea extent() const noexcept override { return input_->extent().isEmpty() ? PixelArea() : kEverywhere; }

 private:
  BitmapPtr renderWithin(const PixelArea& area) const override {
    const PixelArea inner = input_->extent();
    // What of the input lies below the area, or nearest to it.
    const std::int64_t left = std::clamp(area.left, inner.left, inner.right() - 1);
    const std::int64_t right = std::clamp(area.right() - 1, inner.left, inner.right() - 1);
    const std::int64_t bottom = std::clamp(area.bottom, inner.bottom, inner.top() - 1);
    const std::int64_t top = std::clamp(area.top() - 1, inner.bottom, inner.top() - 1);
    const PixelArea near{left, bottom, right - left + 1, top - bottom + 1};
    const BitmapPtr pixels = input_->render(near);
    if (!pixels || near == area) return pixels;
    const auto result = Bitmap::make(area.width, area.height, pixels->alpha());
    if (!result) return nullptr;
    for (int line = 0; line < result->height(); ++line) {
      const std::int64_t y = std::clamp(area.top() - 1 - line, bottom, top);
      const std::uint8_t* from = pixels->row(int(top - y));
      std::uint8_t* to = result->row(line);
      for (int column = 0; column < result->width(); ++column, to += 4) {
        const std::int64_t x = std::clamp(area.left + column, left, right);
        std::memcpy(to, from + std::size_t(x - left) * 4, 4);
      }
    }
    return result;
  }

  RecipePtr input_;
};

class Blurred final : public Recipe {
 public:
  Blurred(RecipePtr input, double sigma) : input_(std::move(input)), sigma_(sigma) {}
  PixelArea extent() const noexcept override {
    return outset(input_->extent(), std::int64_t(std::ceil(kVisibleReach * sigma_)));
  }

 private:
  BitmapPtr renderWithin(const PixelArea& area) const override {
    const int reach = blurReach(sigma_);
    const BitmapPtr pixels = input_->render(outset(area, reach));
    return pixels ? blurred(*premultiplied(pixels), sigma_, reach) : nullptr;
  }

  RecipePtr input_;
  double sigma_;
};

}  // namespace

PixelArea intersection(const PixelArea& one, const PixelArea& other) noexcept {
  const std::int64_t left = std::max(one.left, other.left), bottom = std::max(one.bottom, other.bottom);
  const std::int64_t right = std::min(one.right(), other.right()), top = std::min(one.top(), other.top());
  return left < right && bottom < top ? PixelArea{left, bottom, right - left, top - bottom} : PixelArea();
}

PixelArea outset(const PixelArea& area, std::int64_t margin) noexcept {
  if (area.isEmpty() || area == kEverywhere) return area;
  return {area.left - margin, area.bottom - margin, area.width + 2 * margin, area.height + 2 * margin};
}

BitmapPtr Recipe::render(const PixelArea& area) const {
  if (!isDrawableSize(area.width, area.height)) return nullptr;
  const PixelArea shared = intersection(area, extent());
  if (shared.isEmpty()) return transparent(area, Alpha::straight);
  const BitmapPtr pixels = renderWithin(shared);
  return !pixels || shared == area ? pixels : placed(pixels, shared, area);
}

RecipePtr recipeOf(PixelSourcePtr source) { return source ? std::make_shared<Pixels>(std::move(source)) : nullptr; }

RecipePtr invertedRecipe(RecipePtr input) { return std::make_shared<Inverted>(std::move(input)); }

RecipePtr croppedRecipe(RecipePtr input, const PixelArea& area) {
  return std::make_shared<Cropped>(std::move(input), area);
}

RecipePtr clampedRecipe(RecipePtr input) { return std::make_shared<Clamped>(std::move(input)); }

RecipePtr blurredRecipe(RecipePtr input, double sigma) {
  if (!(sigma > 0)) return input;
  return std::make_shared<Blurred>(std::move(input), std::min(sigma, kLargestSigma));
}

}  // namespace sim
