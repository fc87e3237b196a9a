#import "Settings/views/Label.h"

#import <UIKit/UIFont+Sim.h>

#import "Settings/JsonValues.h"
#import "Settings/views/ViewAdapter.h"
#import "Settings/views/Views.h"

#include <algorithm>

namespace sim {
namespace {

/// How much of a disabled label's colour is left.
constexpr CGFloat kDisabledAlpha = 0.4;

/// Points: the font's size, or less where the label is to make its one line fit. Without a least factor there is no end
/// to it, as on a device.
CGFloat shownFontSize(UILabel *label) {
  const CGFloat size = [[label font] pointSize];
  const CGFloat room = [label bounds].size.width;
  if (![label adjustsFontSizeToFitWidth] || [label numberOfLines] != 1 || room <= 0) return size;
  const CGFloat width = [label sizeThatFits:CGSizeZero].width;
  const CGFloat least = std::min<CGFloat>([label minimumScaleFactor], 1);
  return width <= room ? size : size * std::clamp<CGFloat>(room / width, least, 1);
}

void writeFace(JsonText &out, UIFont *font) {
  const TextStyle style = textStyle(font);
  out.name("fontWeight").integer(style.weight);
  out.name("fontFamily").string(fontFamilyOf(style.typeface));
  out.name("italic").flag(style.italic);
  out.name("tabularDigits").flag(style.tabularDigits);
}

void writeTextShadow(JsonText &out, UILabel *label) {
  if (![label shadowColor]) return out.null();
  out.beginObject();
  writeColor(out.name("color"), [label shadowColor]);
  out.name("x").number([label shadowOffset].width);
  out.name("y").number([label shadowOffset].height);
  out.endObject();
}

void describe(JsonText &out, UIView *view, ImageStore &) {
  UILabel *label = (UILabel *)view;
  writeText(out.name("text"), [label text]);
  out.name("fontSize").number(shownFontSize(label));
  writeFace(out, [label font]);
  writeColor(out.name("color"), shownColor(label));
  writeTextShadow(out.name("textShadow"), label);
  out.name("alignment").string(alignmentName([label textAlignment]));
  out.name("lines").integer([label numberOfLines]);
}

}  // namespace

UIColor *shownColor(UILabel *label) {
  UIColor *color =
      [label isHighlighted] && [label highlightedTextColor] ? [label highlightedTextColor] : [label textColor];
  return !label || [label isEnabled] ? color : [color colorWithAlphaComponent:kDisabledAlpha];
}

extern const ViewAdapter kLabel{.kind = [] { return [UILabel class]; }, .type = "label", .describe = describe};

}  // namespace sim
