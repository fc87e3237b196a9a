// Labels as they are drawn.
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UILabel+Sim.h>

#import "Settings/JsonValues.h"
#import "Settings/views/TextLook.h"
#import "Settings/views/ViewAdapter.h"
#import "Settings/views/Views.h"

#include <algorithm>
#include <cmath>
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
/// More than any text has.
constexpr double kManyLines = 1e9;

/// How many lines of a plain text are shown; 0 for no limit. Those of which no more than a part would fit are not.
int mostLines(UILabel *label, CGFloat lineHeight) {
  const int most = int([label numberOfLines]);
  const CGFloat room = [label bounds].size.height;
  if (most == 1 || room <= 0) return most;
  // A frame may be as high as numbers go, which stands for no limit either.
  const double fitting = std::clamp<double>(std::floor((room + kUnseen) / lineHeight), 1, kManyLines);
  return most > 0 ? std::min(most, int(fitting)) : int(fitting);
}

/// What is left of a plain text that does not fit in its label, line by line; null where all of it is shown.
void writeShownText(JsonText &out, UILabel *label) {
  const double room = [label bounds].size.width;
  if ([label sim_isAttributed] || [[label text] length] == 0 || room <= 0) return out.null();
  UIFont *font = [[label font] fontWithSize:shownFontSize(label)];
  const NSLineBreakMode mode = [label lineBreakMode];
  const bool wraps =
      [label numberOfLines] != 1 || mode == NSLineBreakByWordWrapping || mode == NSLineBreakByCharWrapping;
  TextRun run;
  run.text = runText([label text]);
  run.style = textStyle(font);
  run.paragraph = {.wrap = wraps ? wrapOf(mode) : TextWrap::none, .ellipsis = ellipsisOf(mode)};
  const TextLayout layout({&run, 1}, {.width = room + kUnseen, .lines = mostLines(label, [font lineHeight])});
  if (!layout.isShortened()) return out.null();
  std::string shown;
  for (const TextLine &line : layout.lines()) {
    if (&line != &layout.lines().front()) shown += '\n';
    for (const TextPiece &piece : line.pieces) shown += piece.text;
    shown.erase(shown.find_last_not_of(' ') + 1);  // At the end of a line a space has no width.
  }
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
  out.name("ownColor").flag([label sim_hasOwnColor]);
  writeTextShadow(out.name("textShadow"), label);
  out.name("alignment").string(alignmentName([label textAlignment]));
  out.name("lines").integer([label numberOfLines]);
  writeAttributedText(out.name("attributedText"), label, shownFontSize(label) / [[label font] pointSize], images);
}

}  // namespace

extern const ViewAdapter kLabel{.kind = [] { return [UILabel class]; }, .type = "label", .describe = describe};

}  // namespace sim
