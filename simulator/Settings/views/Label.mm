// Labels as they are drawn.
#import <UIKit/UILabel+Sim.h>

#import "Settings/JsonValues.h"
#import "Settings/views/TextLook.h"
#import "Settings/views/ViewAdapter.h"
#import "Settings/views/Views.h"

#include <algorithm>

namespace sim {
namespace {

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

void writeTextShadow(JsonText &out, UILabel *label) {
  if (![label shadowColor]) return out.null();
  out.beginObject();
  writeColor(out.name("color"), [label shadowColor]);
  out.name("x").number([label shadowOffset].width);
  out.name("y").number([label shadowOffset].height);
  out.endObject();
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UILabel *label = (UILabel *)view;
  writeText(out.name("text"), [label text]);
  out.name("fontSize").number(shownFontSize(label));
  writeFace(out, [label font]);
  writeColor(out.name("color"), [label sim_shownColor]);
  writeTextShadow(out.name("textShadow"), label);
  out.name("alignment").string(alignmentName([label textAlignment]));
  out.name("lines").integer([label numberOfLines]);
  writeAttributedText(out.name("attributedText"), label, shownFontSize(label) / [[label font] pointSize], images);
}

}  // namespace

extern const ViewAdapter kLabel{.kind = [] { return [UILabel class]; }, .type = "label", .describe = describe};

}  // namespace sim
