// What a Core Image image is made of: pixels and the steps to be applied to them, computed for the part that is asked
// for. Plain C++.
#pragma once

#include <cstdint>
#include <memory>

#include "CoreGraphics/Bitmap.hpp"

namespace sim {

/// A rectangle of pixels; y counts upwards, as in Core Image.
struct PixelArea {
  std::int64_t left = 0;
  std::int64_t bottom = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;

  std::int64_t right() const noexcept { return left + width; }
  std::int64_t top() const noexcept { return bottom + height; }
  bool isEmpty() const noexcept { return width <= 0 || height <= 0; }
  friend bool operator==(const PixelArea&, const PixelArea&) = default;
};

/// Every pixel that there can be: further out than any area that can be rendered.
inline constexpr PixelArea kEverywhere{-(std::int64_t(1) << 50), -(std::int64_t(1) << 50), std::int64_t(1) << 51,
                                       std::int64_t(1) << 51};

/// What both have in common; empty when that is nothing.
PixelArea intersection(const PixelArea& one, const PixelArea& other) noexcept;

/// `area`, larger by `margin` pixels on every side; everywhere stays everywhere.
PixelArea outset(const PixelArea& area, std::int64_t margin) noexcept;

/// Immutable.
class Recipe {
 public:
  virtual ~Recipe() = default;
  /// Outside of it there is nothing but transparent pixels.
  virtual PixelArea extent() const noexcept = 0;
  /// The pixels below `area`, its top row first. Null for an area that is not drawable and for pixels that cannot be
  /// had.
  BitmapPtr render(const PixelArea& area) const;

 private:
  /// The same for an area within the extent.
  virtual BitmapPtr renderWithin(const PixelArea& area) const = 0;
};

using RecipePtr = std::shared_ptr<const Recipe>;

/// The pixels of `source`, with the origin at (0, 0). Null for null.
RecipePtr recipeOf(PixelSourcePtr source);
/// `input` with every colour inverted; alpha stays.
RecipePtr invertedRecipe(RecipePtr input);
/// What lies below `area`.
RecipePtr croppedRecipe(RecipePtr input, const PixelArea& area);
/// `input`, and around it its outermost pixels, everywhere.
RecipePtr clampedRecipe(RecipePtr input);
/// `input` under a Gaussian of `sigma` pixels (standard deviation); `input` itself when that is not above 0. It reaches
/// three times as far beyond its input.
RecipePtr blurredRecipe(RecipePtr input, double sigma);

}  // namespace sim
