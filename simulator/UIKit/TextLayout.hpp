// Measuring and laying out of text in the fonts that the page in the browser uses. Plain C++. One thread.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "UIKit/FontFamilies.hpp"

typedef struct _PangoGlyphItem PangoGlyphItem;
typedef struct _PangoLayout PangoLayout;

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

struct TextLimits {
  double width = 0;  ///< Points to wrap or shorten to; 0 or less: no limit.
  int lines = 0;     ///< Most lines; 0: no limit.
};

struct TextBlock {
  TextWrap wrap = TextWrap::none;
  TextLimits limits;
};

struct TextSize {
  double width = 0;  ///< Of the widest line, in points.
  int lines = 0;
};

/// The space that UTF-8 `text` takes. Bytes that are no UTF-8 count as replacement characters.
TextSize measureText(std::string_view text, const TextStyle& style, const TextBlock& block);

/// How the lines of a paragraph are made and stand. Lengths in points.
struct TextParagraph {
  TextWrap wrap = TextWrap::word;
  TextEllipsis ellipsis = TextEllipsis::none;
  TextAlign align = TextAlign::left;
  double lineSpacing = 0;         ///< Between two lines.
  double spacing = 0;             ///< Below the paragraph, when another follows.
  double spacingBefore = 0;       ///< Above it, when another precedes.
  double firstIndent = 0;         ///< Of its first line, from the left edge.
  double indent = 0;              ///< Of its other lines.
  double tailIndent = 0;          ///< The right edge: above 0 from the left, else from the right.
  double lineHeightMultiple = 0;  ///< Of the line's natural height; 0 leaves it.
  double minimumLineHeight = 0;
  double maximumLineHeight = 0;  ///< 0: no limit.
};

/// What stands in the line in place of a run's characters, in points from the baseline.
struct TextBox {
  double width = 0;
  double ascent = 0;
  double descent = 0;  ///< Positive below the baseline.
};

/// Characters that look the same.
struct TextRun {
  std::string text;  ///< UTF-8 without characters of code 0.
  TextStyle style;
  double kern = 0;            ///< Points behind each character.
  double baselineOffset = 0;  ///< Points; positive upwards.
  std::optional<TextBox> box;
  TextParagraph paragraph;  ///< Counts in the run with which a paragraph begins.
};

/// A part of a line that is of one run, as it is drawn from left to right.
struct TextPiece {
  std::string text;  ///< An ellipsis where the text is shortened.
  std::size_t run = 0;
  double x = 0;  ///< Points from the left edge of the text.
  double width = 0;
  const PangoGlyphItem* glyphs = nullptr;  ///< Owned by the layout.
};

/// Points from the top left corner of the text.
struct TextLine {
  double x = 0;
  double width = 0;
  double top = 0;
  double height = 0;
  double baseline = 0;
  double wordSpacing = 0;  ///< By which each space of a justified line is widened.
  std::vector<TextPiece> pieces;
};

/// The lines of a text of several runs.
class TextLayout final {
 public:
  TextLayout(std::span<const TextRun> runs, const TextLimits& limits);
  ~TextLayout();
  TextLayout(TextLayout&&) noexcept;
  TextLayout& operator=(TextLayout&&) noexcept;

  const std::vector<TextLine>& lines() const noexcept { return lines_; }
  /// Points: how wide the lines are with their indents, wherever they are aligned to, and how high they are together.
  double width() const noexcept { return width_; }
  double height() const noexcept { return height_; }
  /// Whether the lines leave something of the text out.
  bool isShortened() const noexcept { return isShortened_; }
  /// Fills the glyphs of a piece of this layout in the context's source, with the text's top left corner at (x, y).
  void show(cairo_t* context, const TextLine& line, const TextPiece& piece, double raised, double x, double y) const;

 private:
  struct LayoutEnd {
    void operator()(PangoLayout* layout) const noexcept;
  };
  std::vector<std::unique_ptr<PangoLayout, LayoutEnd>> paragraphs_;
  std::vector<TextLine> lines_;
  double width_ = 0;
  double height_ = 0;
  bool isShortened_ = false;

  friend class TextLayoutBuilder;
};

}  // namespace sim
