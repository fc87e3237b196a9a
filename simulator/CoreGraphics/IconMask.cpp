#include "CoreGraphics/IconMask.hpp"

#include <algorithm>

#include "CoreGraphics/CairoSurface.hpp"
#include "CoreGraphics/Path.hpp"

namespace sim {
namespace {

// Of the shorter side.
constexpr double kCornerRadius = 0.2237;

// A corner whose curvature grows from nothing and falls again, from one edge to the other: how far each point lies from
// the corner along the edge that leads to it and along the one that leads away, in radii.
struct Curve {
  Point control1, control2, end;
};
constexpr Point kCornerStart{1.528665, 0};
constexpr Curve kCorner[] = {
    {{1.088493, 0}, {0.868407, 0}, {0.631494, 0.074911}},
    {{0.372824, 0.169060}, {0.169060, 0.372824}, {0.074911, 0.631494}},
    {{0, 0.868407}, {0, 1.088493}, {0, 1.528665}},
};

Path iconOutline(double width, double height) {
  const double radius = std::min(width, height) * kCornerRadius;
  // Clockwise; each maps what is said above to a corner of the picture.
  const Transform corners[] = {
      {-radius, 0, 0, radius, width, 0},
      {0, -radius, -radius, 0, width, height},
      {radius, 0, 0, -radius, 0, height},
      {0, radius, radius, 0, 0, 0},
  };
  Path path;
  for (const Transform& place : corners) {
    if (path.empty()) path.move(place(kCornerStart));
    else path.line(place(kCornerStart));
    for (const Curve& curve : kCorner) path.curve(place(curve.control1), place(curve.control2), place(curve.end));
  }
  path.close();
  return path;
}

BitmapPtr masked(const BitmapPtr& pixels) {
  const SurfacePtr surface = pixels ? surfaceOf(*pixels) : nullptr;
  if (!surface) return nullptr;
  cairo_t* context = cairo_create(surface.get());
  iconOutline(pixels->width(), pixels->height()).appendTo(context);
  cairo_set_operator(context, CAIRO_OPERATOR_DEST_IN);
  cairo_fill(context);
  cairo_destroy(context);
  return bitmapOf(surface.get(), Alpha::premultiplied);
}

class MaskedSource final : public PixelSource {
 public:
  explicit MaskedSource(PixelSourcePtr source) : source_(std::move(source)) {}
  int width() const noexcept override { return source_->width(); }
  int height() const noexcept override { return source_->height(); }
  Alpha alpha() const noexcept override { return Alpha::premultiplied; }

  BitmapPtr bitmap() const override {
    if (!tried_) {
      tried_ = true;
      bitmap_ = masked(source_->thumbnail(0));  // Which keeps no pixels of its own.
    }
    return bitmap_;
  }

  BitmapPtr thumbnail(int longestSide) const override {
    return tried_ ? PixelSource::thumbnail(longestSide) : masked(source_->thumbnail(longestSide));
  }

 private:
  PixelSourcePtr source_;
  mutable bool tried_ = false;
  mutable BitmapPtr bitmap_;
};

}  // namespace

PixelSourcePtr maskedAsIcon(PixelSourcePtr source) {
  return source ? std::make_shared<MaskedSource>(std::move(source)) : nullptr;
}

}  // namespace sim
