#include "UIKit/TextLayout.hpp"

#include <pango/pangocairo.h>

#include <algorithm>

namespace sim {
namespace {

constexpr std::string_view kEllipsis = "\u2026";
constexpr std::string_view kParagraphSeparator = "\u2029";

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
double points(int units) { return double(units) / PANGO_SCALE; }

PangoEllipsizeMode ellipsizeOf(TextEllipsis ellipsis) {
  switch (ellipsis) {
    case TextEllipsis::none: return PANGO_ELLIPSIZE_NONE;
    case TextEllipsis::start: return PANGO_ELLIPSIZE_START;
    case TextEllipsis::middle: return PANGO_ELLIPSIZE_MIDDLE;
    case TextEllipsis::end: return PANGO_ELLIPSIZE_END;
  }
  return PANGO_ELLIPSIZE_NONE;
}

PangoFontDescription* descriptionOf(const TextStyle& style) {
  PangoFontDescription* font = pango_font_description_new();
  pango_font_description_set_family_static(font, fontFamilyOf(style.typeface));
  pango_font_description_set_absolute_size(font, units(std::max(style.size, 0.0)));
  pango_font_description_set_weight(font, PangoWeight(style.weight));
  pango_font_description_set_style(font, style.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  return font;
}

// A layout of one paragraph with nothing said of its fonts. `lines`: 0 for no limit.
LayoutPtr plainLayout(std::string_view text, const TextParagraph& paragraph, double width, int lines) {
  LayoutPtr layout(pango_layout_new(measuringContext()));
  pango_layout_set_text(layout.get(), text.data(), int(text.size()));
  const bool limited = width > 0 && (paragraph.wrap != TextWrap::none || paragraph.ellipsis != TextEllipsis::none);
  if (limited) pango_layout_set_width(layout.get(), units(width));
  pango_layout_set_wrap(layout.get(), paragraph.wrap == TextWrap::character ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
  pango_layout_set_justify(layout.get(), limited && paragraph.align == TextAlign::justified);
  pango_layout_set_ellipsize(layout.get(), ellipsizeOf(paragraph.ellipsis));
  if (paragraph.ellipsis != TextEllipsis::none) {
    const int most = paragraph.wrap == TextWrap::none ? 1 : lines;
    pango_layout_set_height(layout.get(), most > 0 ? -most : G_MAXINT);
  }
  return layout;
}

// Equal attributes that follow each other become one, so that a text of one font is set as one.
void add(PangoAttrList* list, PangoAttribute* attribute, std::size_t start, std::size_t end) {
  attribute->start_index = guint(start);
  attribute->end_index = guint(end);
  pango_attr_list_change(list, attribute);
}

void addStyle(PangoAttrList* list, const TextStyle& style, std::size_t start, std::size_t end) {
  PangoFontDescription* font = descriptionOf(style);
  add(list, pango_attr_font_desc_new(font), start, end);
  pango_font_description_free(font);
  if (style.tabularDigits) add(list, pango_attr_font_features_new("tnum=1"), start, end);
}

void setAttributes(PangoLayout* layout, PangoAttrList* attributes) {
  pango_layout_set_attributes(layout, attributes);
  pango_attr_list_unref(attributes);
}

struct Part {
  std::size_t start = 0;
  std::size_t end = 0;   // Without what separates it from the next.
  std::size_t next = 0;  // Where the next begins.
  bool last = false;
};

/// The paragraph of `text` that begins at `start`.
Part paragraphAt(std::string_view text, std::size_t start) {
  const std::size_t plain = text.find_first_of("\r\n", start);
  const std::size_t other = text.find(kParagraphSeparator, start);
  if (plain == text.npos && other == text.npos) return {start, text.size(), text.size(), true};
  if (other < plain) return {start, other, other + kParagraphSeparator.size(), false};
  const bool isPair = text.substr(plain).starts_with("\r\n");
  return {start, plain, plain + (isPair ? 2 : 1), false};
}

// Calls `use` with each line of the layout and its logical rectangle in Pango's units; `most`: 0 for all.
template <typename Use>
int forEachLine(PangoLayout* layout, int most, Use use) {
  std::unique_ptr<PangoLayoutIter, decltype(&pango_layout_iter_free)> iterator(pango_layout_get_iter(layout),
                                                                               pango_layout_iter_free);
  int count = 0;
  do {
    if (most > 0 && count == most) break;
    PangoRectangle logical;
    pango_layout_iter_get_line_extents(iterator.get(), nullptr, &logical);
    use(pango_layout_iter_get_line_readonly(iterator.get()), logical);
    ++count;
  } while (pango_layout_iter_next_line(iterator.get()));
  return count;
}

/// How far a run reaches above and below the line's baseline.
struct Reach {
  double ascent = 0;
  double descent = 0;
};

Reach reachOf(const TextRun& run) {
  if (run.box) return {run.box->ascent + run.baselineOffset, run.box->descent - run.baselineOffset};
  const FontShares shares = sharesOf(run.style.typeface);
  return {run.style.size * shares.ascender + run.baselineOffset,
          -run.style.size * shares.descender - run.baselineOffset};
}

}  // namespace

TextSize measureText(std::string_view text, const TextStyle& style, const TextBlock& block) {
  if (text.empty()) return {};
  const std::unique_ptr<gchar, decltype(&g_free)> valid(g_utf8_make_valid(text.data(), gssize(text.size())), g_free);
  const std::string_view whole = valid.get();
  const TextParagraph paragraph{.wrap = block.wrap};
  TextSize size;
  for (Part part;;) {
    part = paragraphAt(whole, part.next);
    const int left = block.limits.lines > 0 ? block.limits.lines - size.lines : 0;
    const LayoutPtr layout =
        plainLayout(whole.substr(part.start, part.end - part.start), paragraph, block.limits.width, left);
    PangoAttrList* attributes = pango_attr_list_new();
    addStyle(attributes, style, 0, part.end - part.start);
    setAttributes(layout.get(), attributes);
    size.lines += forEachLine(layout.get(), left, [&](PangoLayoutLine*, const PangoRectangle& logical) {
      size.width = std::max(size.width, points(logical.width));
    });
    if (part.last || (block.limits.lines > 0 && size.lines >= block.limits.lines)) return size;
  }
}

/// Puts paragraph after paragraph below each other.
class TextLayoutBuilder final {
 public:
  TextLayoutBuilder(TextLayout& layout, std::span<const TextRun> runs, const TextLimits& limits)
      : layout_(layout), runs_(runs), limits_(limits) {
    for (const TextRun& run : runs) {
      text_ += run.text;
      ends_.push_back(text_.size());
    }
  }

  void build() {
    if (text_.empty()) return;
    for (Part part;;) {
      part = paragraphAt(text_, part.next);
      addParagraph(part);
      if (part.last || isFull()) break;
      y_ += runs_[runAt(part.start)].paragraph.spacing;
    }
    align();
    layout_.height_ = layout_.lines_.back().top + layout_.lines_.back().height;
  }

 private:
  bool isFull() const { return limits_.lines > 0 && int(layout_.lines_.size()) >= limits_.lines; }

  /// The run of the character at this byte; the last one at the end.
  std::size_t runAt(std::size_t byte) const {
    const auto end = std::upper_bound(ends_.begin(), ends_.end(), byte);
    return std::min(std::size_t(end - ends_.begin()), runs_.size() - 1);
  }

  /// What is left of all lines; the rest is an indent of the first line or of all others.
  static double leftOf(const TextParagraph& paragraph) { return std::min(paragraph.firstIndent, paragraph.indent); }

  double roomOf(const TextParagraph& paragraph) const {
    const double right = paragraph.tailIndent > 0 ? paragraph.tailIndent : limits_.width + paragraph.tailIndent;
    return std::max(right - leftOf(paragraph), 1.0);
  }

  LayoutPtr layOut(const Part& part, const TextParagraph& paragraph, int lines, bool cut) {
    std::string text = text_.substr(part.start, part.end - part.start);
    if (cut && paragraph.ellipsis == TextEllipsis::end) text += kEllipsis;
    LayoutPtr layout = plainLayout(text, paragraph, limits_.width > 0 ? roomOf(paragraph) : 0, lines);
    pango_layout_set_indent(layout.get(), units(paragraph.firstIndent - paragraph.indent));
    PangoAttrList* attributes = pango_attr_list_new();
    for (std::size_t at = part.start; at <= part.end;) {
      const std::size_t index = runAt(at);
      const std::size_t start = at - part.start;
      const bool isLast = ends_[index] >= part.end;
      // What is added at the end looks as what it is added to.
      const std::size_t end = isLast ? text.size() : ends_[index] - part.start;
      addRun(attributes, index, start, end);
      if (isLast) break;
      at = ends_[index];
    }
    setAttributes(layout.get(), attributes);
    return layout;
  }

  void addRun(PangoAttrList* attributes, std::size_t index, std::size_t start, std::size_t end) {
    const TextRun& run = runs_[index];
    addStyle(attributes, run.style, start, end);
    if (run.kern != 0) add(attributes, pango_attr_letter_spacing_new(units(run.kern)), start, end);
    // Runs of one font are set as one, but come in pieces of their own where their colours differ.
    add(attributes, pango_attr_foreground_new(guint16(index >> 16), guint16(index), 0), start, end);
    if (!run.box) return;
    const PangoRectangle box{0, units(-run.box->ascent), units(run.box->width),
                             units(run.box->ascent + run.box->descent)};
    add(attributes, pango_attr_shape_new(&box, &box), start, end);
  }

  void addParagraph(const Part& part) {
    const TextParagraph& paragraph = runs_[runAt(part.start)].paragraph;
    if (!layout_.lines_.empty()) y_ += paragraph.spacingBefore;
    const int left = limits_.lines > 0 ? limits_.lines - int(layout_.lines_.size()) : 0;
    LayoutPtr layout = layOut(part, paragraph, left, false);
    // Where other paragraphs do not follow any more, an ellipsis says so.
    if (!part.last && left > 0 && pango_layout_get_line_count(layout.get()) >= left) {
      layout = layOut(part, paragraph, left, true);
    }
    const int all = pango_layout_get_line_count(layout.get());
    if (pango_layout_is_ellipsized(layout.get()) || (left > 0 && (all > left || (all == left && !part.last)))) {
      layout_.isShortened_ = true;
    }
    int count = 0;
    forEachLine(layout.get(), left, [&](PangoLayoutLine* line, const PangoRectangle& logical) {
      addLine(part, paragraph, line, points(logical.x), ++count < all);
    });
    layout_.paragraphs_.emplace_back(layout.release());
  }

  void addLine(const Part& part, const TextParagraph& paragraph, PangoLayoutLine* line, double indent, bool more) {
    TextLine made;
    made.x = leftOf(paragraph) + indent;
    Reach reach;
    for (GSList* each = line->runs; each; each = each->next) {
      const auto* item = static_cast<const PangoGlyphItem*>(each->data);
      const std::size_t run = runAt(std::min(part.start + std::size_t(item->item->offset), text_.size() - 1));
      const Reach own = reachOf(runs_[run]);
      reach =
          made.pieces.empty() ? own : Reach{std::max(reach.ascent, own.ascent), std::max(reach.descent, own.descent)};
      made.pieces.push_back(
          {textOf(part, line, item), run, made.width, points(pango_glyph_string_get_width(item->glyphs)), item});
      made.width += made.pieces.back().width;
    }
    if (made.pieces.empty()) {
      reach = reachOf(runs_[runAt(std::min(part.start, text_.size() - 1))]);
    } else {
      made.width += runs_[made.pieces.back().run].kern;  // Behind the last character, too.
    }
    if (more && paragraph.align == TextAlign::justified) made.wordSpacing = widenedBy(made);
    place(made, paragraph, reach);
    layout_.width_ = std::max(layout_.width_, made.x + made.width);
    aligns_.push_back(paragraph);
    layout_.lines_.push_back(std::move(made));
  }

  /// What each space of a justified line is wider than it would be.
  double widenedBy(const TextLine& line) const {
    double natural = 0;
    std::string text;
    for (const TextPiece& piece : line.pieces) {
      const TextRun& run = runs_[piece.run];
      natural += run.box ? run.box->width : measureText(piece.text, run.style, {}).width;
      text += piece.text;
    }
    text.erase(text.find_last_not_of(' ') + 1);
    const auto spaces = std::ranges::count(text, ' ');
    return spaces > 0 ? std::max(line.width - natural, 0.0) / double(spaces) : 0;
  }

  /// Bytes of the paragraph.
  struct Shown {
    std::size_t start;
    std::size_t end;
  };

  static bool isEllipsis(const PangoGlyphItem* item) {
    return (item->item->analysis.flags & PANGO_ANALYSIS_FLAG_IS_ELLIPSIS) != 0;
  }

  /// Where the font draws the parts of a character one by one, Pango leaves out some of these: the others go with them.
  static Shown shownOf(PangoLayoutLine* line, const PangoItem* item) {
    const char* const text = pango_layout_get_text(line->layout);
    const PangoLogAttr* const places = pango_layout_get_log_attrs_readonly(line->layout, nullptr);
    const auto isTorn = [&](const char* at) { return !places[g_utf8_pointer_to_offset(text, at)].is_cursor_position; };
    const char *start = text + item->offset, *end = start + item->length;
    for (GSList* each = line->runs; each; each = each->next) {
      const auto* other = static_cast<const PangoGlyphItem*>(each->data);
      if (!isEllipsis(other) || other->item == item) continue;
      const char *const first = text + other->item->offset, *const behind = first + other->item->length;
      if (start == behind) {
        while (start < end && isTorn(start)) start = g_utf8_next_char(start);
      }
      if (end == first) {
        while (start < end && isTorn(end)) end = g_utf8_prev_char(end);
      }
    }
    return {std::size_t(start - text), std::size_t(end - text)};
  }

  std::string textOf(const Part& part, PangoLayoutLine* line, const PangoGlyphItem* item) const {
    const Shown shown = shownOf(line, item->item);
    const std::size_t start = part.start + shown.start;
    if (start >= part.end || isEllipsis(item)) return std::string(kEllipsis);
    const std::size_t end = std::min(part.start + shown.end, part.end);
    const bool holdsMore = part.start + shown.end > part.end;
    return text_.substr(start, end - start) + std::string(holdsMore ? kEllipsis : "");
  }

  /// What a line is higher than its text is above the text, as on a device.
  void place(TextLine& line, const TextParagraph& paragraph, const Reach& reach) {
    if (!layout_.lines_.empty()) y_ += lastSpacing_;
    lastSpacing_ = paragraph.lineSpacing;
    double height = reach.ascent + reach.descent;
    if (paragraph.lineHeightMultiple > 0) height *= paragraph.lineHeightMultiple;
    height = std::max(height, paragraph.minimumLineHeight);
    if (paragraph.maximumLineHeight > 0) height = std::min(height, paragraph.maximumLineHeight);
    line.top = y_;
    line.height = height;
    line.baseline = y_ + height - reach.descent;
    y_ += height;
  }

  void align() {
    const double whole = limits_.width > 0 ? limits_.width : layout_.width_;
    for (std::size_t at = 0; at < layout_.lines_.size(); ++at) {
      TextLine& line = layout_.lines_[at];
      const TextParagraph& paragraph = aligns_[at];
      const double right = paragraph.tailIndent > 0 ? paragraph.tailIndent : whole + paragraph.tailIndent;
      const double spare = std::max(right - line.x - line.width, 0.0);
      if (paragraph.align == TextAlign::center) line.x += spare / 2;
      if (paragraph.align == TextAlign::right) line.x += spare;
      for (TextPiece& piece : line.pieces) piece.x += line.x;
    }
  }

  TextLayout& layout_;
  std::span<const TextRun> runs_;
  TextLimits limits_;
  std::string text_;
  std::vector<std::size_t> ends_;      // Of the runs, in bytes of the text.
  std::vector<TextParagraph> aligns_;  // Of each line.
  double y_ = 0;
  double lastSpacing_ = 0;
};

TextLayout::TextLayout(std::span<const TextRun> runs, const TextLimits& limits) {
  TextLayoutBuilder(*this, runs, limits).build();
}

TextLayout::~TextLayout() = default;
TextLayout::TextLayout(TextLayout&&) noexcept = default;
TextLayout& TextLayout::operator=(TextLayout&&) noexcept = default;

void TextLayout::LayoutEnd::operator()(PangoLayout* layout) const noexcept { g_object_unref(layout); }

void TextLayout::show(cairo_t* context, const TextLine& line, const TextPiece& piece, double raised, double x,
                      double y) const {
  cairo_move_to(context, x + piece.x, y + line.baseline - raised);
  pango_cairo_show_glyph_string(context, piece.glyphs->item->analysis.font, piece.glyphs->glyphs);
  cairo_new_path(context);
}

}  // namespace sim
