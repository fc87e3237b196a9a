#include "UIKit/TextLayout.hpp"

#include <pango/pangocairo.h>

#include <algorithm>
#include <memory>

namespace sim {
namespace {

struct ObjectEnd {
  void operator()(gpointer object) const noexcept { g_object_unref(object); }
};
using LayoutPtr = std::unique_ptr<PangoLayout, ObjectEnd>;

// Without hinting and rounding, so that widths are those of the browser's text at any zoom.
PangoContext* measuringContext() {
  static const std::unique_ptr<PangoContext, ObjectEnd> shared([] {
    PangoContext* context = pango_font_map_create_context(pango_cairo_font_map_get_default());
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    return context;
  }());
  return shared.get();
}

int units(double points) { return int(std::clamp(points, -1e6, 1e6) * PANGO_SCALE); }

PangoEllipsizeMode ellipsizeOf(TextEllipsis ellipsis) {
  switch (ellipsis) {
    case TextEllipsis::none: return PANGO_ELLIPSIZE_NONE;
    case TextEllipsis::start: return PANGO_ELLIPSIZE_START;
    case TextEllipsis::middle: return PANGO_ELLIPSIZE_MIDDLE;
    case TextEllipsis::end: return PANGO_ELLIPSIZE_END;
  }
  return PANGO_ELLIPSIZE_NONE;
}

LayoutPtr layOut(std::string_view text, const TextStyle& style, const TextBlock& block) {
  LayoutPtr layout(pango_layout_new(measuringContext()));
  PangoFontDescription* font = pango_font_description_new();
  pango_font_description_set_family_static(font, fontFamilyOf(style.typeface));
  pango_font_description_set_absolute_size(font, units(std::max(style.size, 0.0)));
  pango_font_description_set_weight(font, PangoWeight(style.weight));
  pango_font_description_set_style(font, style.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  pango_layout_set_font_description(layout.get(), font);
  pango_font_description_free(font);
  if (style.tabularDigits) {
    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_font_features_new("tnum=1"));
    pango_layout_set_attributes(layout.get(), attributes);
    pango_attr_list_unref(attributes);
  }

  gchar* valid = g_utf8_make_valid(text.data(), gssize(text.size()));
  pango_layout_set_text(layout.get(), valid, -1);
  g_free(valid);

  pango_layout_set_alignment(layout.get(), block.align == TextAlign::center  ? PANGO_ALIGN_CENTER
                                           : block.align == TextAlign::right ? PANGO_ALIGN_RIGHT
                                                                             : PANGO_ALIGN_LEFT);
  pango_layout_set_justify(layout.get(), block.align == TextAlign::justified);
  const bool limited = block.width > 0 && (block.wrap != TextWrap::none || block.ellipsis != TextEllipsis::none ||
                                           block.align != TextAlign::left);
  if (limited) pango_layout_set_width(layout.get(), units(block.width));
  pango_layout_set_wrap(layout.get(), block.wrap == TextWrap::character ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
  pango_layout_set_ellipsize(layout.get(), ellipsizeOf(block.ellipsis));
  if (block.ellipsis != TextEllipsis::none) {
    const int lines = block.wrap == TextWrap::none ? 1 : block.lines;
    pango_layout_set_height(layout.get(), lines > 0 ? -lines : G_MAXINT);
  }
  return layout;
}

// Calls `use` with each line that the block shows and with its logical rectangle in Pango's units.
template <typename Use>
int forEachLine(PangoLayout* layout, int limit, Use use) {
  std::unique_ptr<PangoLayoutIter, decltype(&pango_layout_iter_free)> iterator(pango_layout_get_iter(layout),
                                                                               pango_layout_iter_free);
  int count = 0;
  do {
    if (limit > 0 && count == limit) break;
    PangoRectangle logical;
    pango_layout_iter_get_line_extents(iterator.get(), nullptr, &logical);
    use(count, pango_layout_iter_get_line_readonly(iterator.get()), logical);
    ++count;
  } while (pango_layout_iter_next_line(iterator.get()));
  return count;
}

}  // namespace

TextSize measureText(std::string_view text, const TextStyle& style, const TextBlock& block) {
  if (text.empty()) return {};
  const LayoutPtr layout = layOut(text, style, block);
  int widest = 0;
  const int lines = forEachLine(layout.get(), block.lines, [&](int, PangoLayoutLine*, const PangoRectangle& logical) {
    widest = std::max(widest, logical.width);
  });
  return {double(widest) / PANGO_SCALE, lines};
}

void drawText(cairo_t* context, std::string_view text, const TextStyle& style, const TextBlock& block, double x,
              double y, double lineHeight, const RGBA& color) {
  if (!context || text.empty()) return;
  const LayoutPtr layout = layOut(text, style, block);
  cairo_save(context);
  cairo_set_operator(context, CAIRO_OPERATOR_OVER);
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
  forEachLine(layout.get(), block.lines, [&](int index, PangoLayoutLine* line, const PangoRectangle& logical) {
    // The logical rectangle of a line reaches from its ascent to its descent.
    PangoRectangle own;
    pango_layout_line_get_extents(line, nullptr, &own);
    const double ascent = -double(own.y) / PANGO_SCALE;
    const double top = y + index * (lineHeight + block.lineSpacing);
    const double baseline = top + (lineHeight - double(own.height) / PANGO_SCALE) / 2 + ascent;
    cairo_move_to(context, x + double(logical.x) / PANGO_SCALE, baseline);
    pango_cairo_show_layout_line(context, line);
  });
  cairo_new_path(context);
  cairo_restore(context);
}

}  // namespace sim
