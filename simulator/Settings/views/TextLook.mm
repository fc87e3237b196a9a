#import "Settings/views/TextLook.h"

#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIImage+Sim.h>
#import <UIKit/UILabel+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"

namespace sim {
namespace {

const char *lineName(NSInteger style) {
  if ((style & NSUnderlineStyleDouble) == NSUnderlineStyleDouble) return "double";
  return style & NSUnderlineStyleThick ? "thick" : "single";
}

const char *patternName(NSInteger style) {
  switch (style & 0x700) {
    case NSUnderlineStylePatternDot: return "dot";
    case NSUnderlineStylePatternDash: return "dash";
    case NSUnderlineStylePatternDashDot: return "dashDot";
    case NSUnderlineStylePatternDashDotDot: return "dashDotDot";
    default: return "solid";
  }
}

/// A line under or through the text; null for none.
void writeLine(JsonText &out, NSInteger style, UIColor *color) {
  if ((style & 0xff) == 0) return out.null();
  out.beginObject();
  out.name("style").string(lineName(style));
  out.name("pattern").string(patternName(style));
  out.name("byWord").flag(style & NSUnderlineStyleByWord);
  writeColor(out.name("color"), color);
  out.endObject();
}

void writeShadow(JsonText &out, NSShadow *shadow) {
  if (![shadow shadowColor]) return out.null();
  out.beginObject();
  writeColor(out.name("color"), [shadow shadowColor]);
  out.name("x").number([shadow shadowOffset].width);
  out.name("y").number([shadow shadowOffset].height);
  out.name("radius").number([shadow shadowBlurRadius]);
  out.endObject();
}

/// The picture of an attachment; null where it has none, and room is left.
void writeImage(JsonText &out, const TextBox &box, const RunLook &look, ImageStore &images) {
  UIImage *image = look.image.get();
  UIColor *tint = [image sim_isTemplate] ? look.color.get() : nil;
  images.write(out.name("image"), image, CGSizeMake(box.width, box.ascent + box.descent), tint);
  out.name("ascent").number(box.ascent);
  out.name("height").number(box.ascent + box.descent);
}

void writePiece(JsonText &out, const TextPiece &piece, const TextRun &run, const RunLook &look, ImageStore &images) {
  out.beginObject();
  out.name("text").string(run.box ? "" : piece.text);
  out.name("x").number(piece.x);
  out.name("width").number(piece.width);
  out.name("fontSize").number(run.style.size);
  writeFace(out, look.font.get());
  writeColor(out.name("color"), look.color.get());
  out.name("ownColor").flag(look.isOwnColor);
  writeColor(out.name("backgroundColor"), look.background.get());
  out.name("kern").number(run.kern);
  out.name("baselineOffset").number(run.baselineOffset);
  writeLine(out.name("underline"), look.underline, look.underlineColor.get());
  writeLine(out.name("strikethrough"), look.strikethrough, look.strikethroughColor.get());
  writeShadow(out.name("textShadow"), look.shadow.get());
  writeText(out.name("link"), look.link.get());
  if (run.box) writeImage(out, *run.box, look, images);
  out.endObject();
}

}  // namespace

void writeFace(JsonText &out, UIFont *font) {
  const TextStyle style = textStyle(font);
  out.name("fontWeight").integer(style.weight);
  out.name("fontFamily").string(fontFamilyOf(style.typeface));
  out.name("italic").flag(style.italic);
  out.name("tabularDigits").flag(style.tabularDigits);
}

void writeAttributedText(JsonText &out, const AttributedText &text, const TextLimits &limits, ImageStore &images) {
  const TextLayout layout = text.layOut(limits);
  out.beginObject();
  out.name("room").number(limits.width);
  out.name("width").number(layout.width());
  out.name("height").number(layout.height());
  out.name("shortened").flag(layout.isShortened());
  out.name("lines").beginArray();
  for (const TextLine &line : layout.lines()) {
    out.beginObject();
    out.name("x").number(line.x);
    out.name("width").number(line.width);
    out.name("top").number(line.top);
    out.name("height").number(line.height);
    out.name("baseline").number(line.baseline);
    out.name("wordSpacing").number(line.wordSpacing);
    out.name("pieces").beginArray();
    for (const TextPiece &piece : line.pieces) {
      writePiece(out, piece, text.runs()[piece.run], text.look(piece.run), images);
    }
    out.endArray();
    out.endObject();
  }
  out.endArray();
  out.endObject();
}

void writeAttributedText(JsonText &out, UILabel *label, CGFloat scale, ImageStore &images) {
  if (![label sim_isAttributed]) return out.null();
  const AttributedText text = [label sim_attributedTextScaledBy:scale];
  const int lines = int([label numberOfLines]);
  writeAttributedText(out, text, {.width = [label bounds].size.width, .lines = lines}, images);
}

}  // namespace sim
