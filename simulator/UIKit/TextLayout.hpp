// Measuring and drawing of text in the fonts that the page in the browser uses. Plain C++. One thread.
#pragma once

#include <cairo.h>

#include <string_view>

#include <CoreGraphics/RGBA.hpp>

#include "UIKit/FontFamilies.hpp"

namespace sim {

struct TextStyle {
  double size = 17;  ///< Points.
  int weight = 400;  ///< 100 to 900.
  bool italic = false;
  Typeface typeface = Typeface::system;
  bool tabularDigits = false;  ///< All digits of one width.

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

enum class TextWrap { none, word, character };
enum class TextEllipsis { none, start, middle, end };
enum class TextAlign { left, center, right, justified };

struct TextBlock {
  TextWrap wrap = TextWrap::none;
  TextEllipsis ellipsis = TextEllipsis::none;
  TextAlign align = TextAlign::left;
  double width = 0;  ///< Points to wrap or shorten to; 0 or less: no limit.
  int lines = 0;     ///< Most lines; 0: no limit.
  double lineSpacing = 0;
};

struct TextSize {
  double width = 0;  ///< Of the widest line, in points.
  int lines = 0;
};

/// The space that UTF-8 `text` takes. Bytes that are no UTF-8 count as replacement characters.
TextSize measureText(std::string_view text, const TextStyle& style, const TextBlock& block);

/// Draws with the top left corner of the first line at (x, y); lines are `lineHeight` points high.
void drawText(cairo_t* context, std::string_view text, const TextStyle& style, const TextBlock& block, double x,
              double y, double lineHeight, const RGBA& color);

}  // namespace sim
