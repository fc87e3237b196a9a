#include "UIKit/SymbolDrawings.hpp"

#include <cairo.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <memory>

#include "CoreGraphics/CairoSurface.hpp"

namespace sim {
namespace {

struct StoredDrawing {
  const char* name;
  const char* path;
  double x;
  double y;
  bool evenOdd;
};

constexpr StoredDrawing kDrawings[] = {
#include "SymbolTable.inc"
};

/// Ems of a unit: a circle's symbol is as wide as its font is high, and its drawing 47.8 units.
constexpr double kUnit = 1 / 47.8;
/// Ems beside and over a drawing: a circle's symbol of 17 points is 20 by 19.
constexpr double kMarginX = 0.085;
constexpr double kMarginY = 0.055;
/// Pixels of a side; cairo holds no more.
constexpr double kMaxSide = 32767;

class OutlineReader final {
 public:
  explicit OutlineReader(std::string_view text) : text_(text) {}

  Path read() {
    char verb = 0;
    while (skip()) {
      if (const char next = text_.front(); std::string_view("MLCZz").find(next) != std::string_view::npos) {
        verb = next;
        text_.remove_prefix(1);
        if (verb == 'Z' || verb == 'z') path_.close();
      } else if (!add(verb)) {
        break;
      } else if (verb == 'M') {
        verb = 'L';  // Further points of a move are lines.
      }
    }
    return std::move(path_);
  }

 private:
  // To the next number or letter; false at the end.
  bool skip() {
    text_.remove_prefix(std::min(text_.find_first_not_of(" ,"), text_.size()));
    return !text_.empty();
  }

  bool number(double& value) {
    if (!skip()) return false;
    const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), value);
    text_.remove_prefix(static_cast<std::size_t>(end - text_.data()));
    return error == std::errc();
  }

  bool add(char verb) {
    std::array<Point, 3> points;
    const std::size_t count = verb == 'C' ? 3 : verb == 'M' || verb == 'L' ? 1 : 0;
    for (std::size_t each = 0; each < count; ++each)
      if (!number(points[each].x) || !number(points[each].y)) return false;
    if (verb == 'M') path_.move(points[0]);
    return verb == 'M' || (verb == 'L' && path_.line(points[0])) ||
           (verb == 'C' && path_.curve(points[0], points[1], points[2]));
  }

  std::string_view text_;
  Path path_;
};

struct ContextEnd {
  void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
};

}  // namespace

Path readOutline(std::string_view text) { return OutlineReader(text).read(); }

std::optional<SymbolDrawing> symbolDrawing(std::string_view name) {
  const auto found = std::find_if(std::begin(kDrawings), std::end(kDrawings),
                                  [&](const StoredDrawing& each) { return name == each.name; });
  if (found == std::end(kDrawings)) return std::nullopt;
  SymbolDrawing drawing{readOutline(found->path), found->evenOdd};
  drawing.outline.transform({.tx = found->x, .ty = found->y});
  return drawing;
}

BitmapPtr drawSymbol(const SymbolDrawing& drawing, const SymbolLook& look) {
  const auto box = drawing.outline.outlineBox();
  if (!box) return nullptr;
  const double unit = look.em * kUnit;
  const double spread = look.spread * look.em;
  const double more = 2 * std::max(spread, 0.0);
  const double width = std::ceil(box->width * unit + more + 2 * kMarginX * look.em);
  const double height = std::ceil(box->height * unit + more + 2 * kMarginY * look.em);
  if (!(width >= 1) || !(height >= 1) || width > kMaxSide || height > kMaxSide) return nullptr;

  const SurfacePtr surface = makeSurface(static_cast<std::int64_t>(width), static_cast<std::int64_t>(height));
  if (!surface) return nullptr;
  const std::unique_ptr<cairo_t, ContextEnd> context(cairo_create(surface.get()));
  cairo_translate(context.get(), width / 2, height / 2);
  cairo_scale(context.get(), unit, unit);
  cairo_translate(context.get(), -box->left - box->width / 2, -box->top - box->height / 2);
  cairo_set_fill_rule(context.get(), drawing.evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
  cairo_set_source_rgb(context.get(), 0, 0, 0);
  drawing.outline.appendTo(context.get());
  cairo_fill_preserve(context.get());
  if (spread != 0) {
    cairo_set_operator(context.get(), spread > 0 ? CAIRO_OPERATOR_OVER : CAIRO_OPERATOR_DEST_OUT);
    cairo_set_line_join(context.get(), CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(context.get(), 2 * std::abs(spread) / unit);
    cairo_stroke(context.get());
  }
  cairo_surface_flush(surface.get());
  return bitmapOf(surface.get(), Alpha::premultiplied);
}

}  // namespace sim
