// Labels as they are drawn.
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UILabel+Sim.h>

#import "Settings/JsonValues.h"
#import "Settings/views/TextLook.h"
#import "Settings/views/ViewAdapter.h"
#import "Settings/views/Views.h"

#include <algorithm>
#include <string>

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

/// Points by which a line may be too long without anybody seeing it.
constexpr double kUnseen = 0.5;

/// What is left of a plain text that is too long for its one line; null where all of it is shown.
void writeShownText(JsonText &out, UILabel *label) {
  const TextEllipsis ellipsis = ellipsisOf([label lineBreakMode]);
  const double room = [label bounds].size.width;
  const bool isOneLine = [label numberOfLines] == 1 && ![label sim_isAttributed] && [[label text] length] > 0;
  if (!isOneLine || room <= 0 || ellipsis == TextEllipsis::none) return out.null();
  TextRun run;
  run.text = runText([label text]);
  run.style = textStyle([label font]);
  run.style.size = shownFontSize(label);
  run.paragraph = {.wrap = TextWrap::none, .ellipsis = ellipsis};
  const TextLayout layout({&run, 1}, {.width = room + kUnseen, .lines = 1});
  std::string shown;
  for (const TextPiece &piece : layout.lines().front().pieces) shown += piece.text;
  if (shown == run.text) return out.null();
  out.string(shown);
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
  writeShownText(out.name("shownText"), label);
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
