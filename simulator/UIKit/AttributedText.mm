#import <CoreGraphics/CGContext+Sim.h>
#import <UIKit/AttributedText.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/NSTextAttachment.h>
#import <UIKit/UIColor+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIGraphics.h>
#import <UIKit/UIImage+Sim.h>

#include <algorithm>

namespace sim {
namespace {

constexpr CGFloat kDefaultFontSize = 12;

/// Parts of the font's size by which an underline lies below the baseline and is thick.
constexpr CGFloat kUnderlinePlace = 0.11;
constexpr CGFloat kLineThickness = 0.065;

double numberOf(NSDictionary *attributes, NSAttributedStringKey key) {
  id value = [attributes objectForKey:key];
  return [value isKindOfClass:[NSNumber class]] ? [value doubleValue] : 0;
}

/// The attribute, when it is of that class.
template <typename Value>
Value *valueOf(NSDictionary *attributes, NSAttributedStringKey key) {
  id value = [attributes objectForKey:key];
  return [value isKindOfClass:[Value class]] ? value : nil;
}

TextParagraph paragraphOf(NSParagraphStyle *style, Shortening shortening) {
  const NSLineBreakMode mode = [style lineBreakMode];
  TextParagraph paragraph;
  paragraph.ellipsis = ellipsisOf(mode);
  const bool isOneLine = paragraph.ellipsis != TextEllipsis::none && shortening == Shortening::toOneLine;
  paragraph.wrap = isOneLine ? TextWrap::none : wrapOf(mode);
  paragraph.align = alignOf([style alignment]);
  paragraph.lineSpacing = [style lineSpacing];
  paragraph.spacing = [style paragraphSpacing];
  paragraph.spacingBefore = [style paragraphSpacingBefore];
  paragraph.firstIndent = [style firstLineHeadIndent];
  paragraph.indent = [style headIndent];
  paragraph.tailIndent = [style tailIndent];
  paragraph.lineHeightMultiple = [style lineHeightMultiple];
  paragraph.minimumLineHeight = [style minimumLineHeight];
  paragraph.maximumLineHeight = [style maximumLineHeight];
  return paragraph;
}

/// A symbol that has no size of its own is drawn as large as the text.
UIImage *shownImage(NSTextAttachment *attachment, UIFont *font) {
  UIImage *image = [attachment image];
  if (![image isSymbolImage] || !CGRectIsEmpty([attachment bounds])) return image;
  return [image sim_imageWithPreferredSymbolConfiguration:[UIImageSymbolConfiguration configurationWithFont:font]];
}

TextBox boxOf(NSTextAttachment *attachment, UIImage *image, UIFont *font, double scale) {
  const CGRect bounds = [attachment bounds];
  if (!CGRectIsEmpty(bounds)) {
    const CGFloat bottom = bounds.origin.y * scale;
    return {bounds.size.width * scale, bottom + bounds.size.height * scale, -bottom};
  }
  const CGSize size = [image size];
  if (![image isSymbolImage]) return {size.width * scale, size.height * scale, 0};
  const CGFloat middle = [font capHeight] / 2;
  return {size.width, middle + size.height / 2, size.height / 2 - middle};
}

RGBA rgbaOf(UIColor *color) {
  CGFloat red = 0, green = 0, blue = 0, alpha = 0;
  [color getRed:&red green:&green blue:&blue alpha:&alpha];
  return {red, green, blue, alpha};
}

/// Draws into cairo, with the context's own state kept.
class RunPainter {
 public:
  RunPainter(CGContextRef context, const TextLayout &layout, const TextLine &line, const TextPiece &piece,
             const TextRun &run, const RunLook &look, CGPoint origin)
      : context_(context),
        layout_(layout),
        line_(line),
        piece_(piece),
        run_(run),
        look_(look),
        origin_(origin),
        baseline_(origin.y + line.baseline - run.baselineOffset) {}

  void drawBackground() {
    if (!look_.background) return;
    const FontShares shares = sharesOf(run_.style.typeface);
    fill(look_.background.get(), CGRectMake(left(), baseline_ - run_.style.size * shares.ascender, piece_.width,
                                            run_.style.size * (shares.ascender - shares.descender)));
  }

  void drawText() {
    if (run_.box) return drawImage();
    CGContextSaveGState(context_);
    if (NSShadow *shadow = look_.shadow.get()) {
      CGContextSetShadowWithColor(context_, [shadow shadowOffset], [shadow shadowBlurRadius],
                                  [(UIColor *)[shadow shadowColor] CGColor]);
    }
    show(look_.color.get());
    CGContextRestoreGState(context_);
    const CGFloat size = run_.style.size;
    drawLine(look_.underline, look_.underlineColor.get(), baseline_ + size * kUnderlinePlace);
    drawLine(look_.strikethrough, look_.strikethroughColor.get(),
             baseline_ - size * sharesOf(run_.style.typeface).xHeight / 2);
  }

 private:
  CGFloat left() const { return origin_.x + piece_.x; }

  void fill(UIColor *color, CGRect rect) {
    CGContextSaveGState(context_);
    CGContextSetFillColorWithColor(context_, [color CGColor]);
    CGContextFillRect(context_, rect);
    CGContextRestoreGState(context_);
  }

  void show(UIColor *color) {
    const RGBA rgba = rgbaOf(color);
    paintOn(context_, [&](cairo_t *cairo) {
      cairo_save(cairo);
      cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
      cairo_set_source_rgba(cairo, rgba.red, rgba.green, rgba.blue, rgba.alpha);
      layout_.show(cairo, line_, piece_, run_.baselineOffset, origin_.x, origin_.y);
      cairo_restore(cairo);
    });
  }

  void drawLine(NSInteger style, UIColor *color, CGFloat middle) {
    if ((style & 0xff) == 0) return;
    const bool isDouble = (style & NSUnderlineStyleDouble) == NSUnderlineStyleDouble;
    const bool isThick = !isDouble && (style & NSUnderlineStyleThick);
    const CGFloat thickness = run_.style.size * kLineThickness * (isThick ? 2 : 1);
    CGContextSaveGState(context_);
    CGContextSetStrokeColorWithColor(context_, [(color ?: look_.color.get()) CGColor]);
    CGContextSetLineWidth(context_, thickness);
    setPattern(style & 0x700, thickness);
    for (CGFloat y : {middle, middle + 2 * thickness}) {
      CGContextBeginPath(context_);
      CGContextMoveToPoint(context_, left(), y);
      CGContextAddLineToPoint(context_, left() + piece_.width, y);
      CGContextStrokePath(context_);
      if (!isDouble) break;
    }
    CGContextRestoreGState(context_);
  }

  void setPattern(NSInteger pattern, CGFloat thickness) {
    const CGFloat dot = thickness, dash = 4 * thickness, gap = 2 * thickness;
    const CGFloat all[] = {dash, gap, dot, gap, dot, gap};
    if (pattern == NSUnderlineStylePatternDash) CGContextSetLineDash(context_, 0, all, 2);
    if (pattern == NSUnderlineStylePatternDot) CGContextSetLineDash(context_, 0, all + 2, 2);
    if (pattern == NSUnderlineStylePatternDashDot) CGContextSetLineDash(context_, 0, all, 4);
    if (pattern == NSUnderlineStylePatternDashDotDot) CGContextSetLineDash(context_, 0, all, 6);
  }

  void drawImage() {
    UIImage *image = look_.image.get();
    if ([image sim_isTemplate]) {
      image = [image imageWithTintColor:look_.color.get() renderingMode:UIImageRenderingModeAlwaysOriginal];
    }
    UIGraphicsPushContext(context_);
    [image drawInRect:CGRectMake(left(), baseline_ - run_.box->ascent, run_.box->width,
                                 run_.box->ascent + run_.box->descent)];
    UIGraphicsPopContext();
  }

  CGContextRef context_;
  const TextLayout &layout_;
  const TextLine &line_;
  const TextPiece &piece_;
  const TextRun &run_;
  const RunLook &look_;
  CGPoint origin_;
  CGFloat baseline_;
};

}  // namespace

AttributedText::AttributedText(NSAttributedString *text, const TextDefaults &defaults, Shortening shortening,
                               double scale) {
  for (NSUInteger at = 0; at < [text length];) {
    NSRange range;
    NSDictionary *attributes = [text attributesAtIndex:at effectiveRange:&range];
    addRun([[text string] substringWithRange:range], attributes, defaults, shortening, scale);
    at = NSMaxRange(range);
  }
}

void AttributedText::addRun(NSString *text, NSDictionary *attributes, const TextDefaults &defaults,
                            Shortening shortening, double scale) {
  UIFont *font = valueOf<UIFont>(attributes, NSFontAttributeName) ?: defaults.font;
  if (!font) font = [UIFont systemFontOfSize:kDefaultFontSize];
  if (scale != 1) font = [font fontWithSize:[font pointSize] * scale];
  NSParagraphStyle *style = valueOf<NSParagraphStyle>(attributes, NSParagraphStyleAttributeName);
  TextRun run;
  run.text = runText(text);
  run.style = textStyle(font);
  run.kern = numberOf(attributes, NSKernAttributeName) * scale;
  run.baselineOffset = numberOf(attributes, NSBaselineOffsetAttributeName) * scale;
  run.paragraph = paragraphOf(style ?: defaults.paragraph ?: [NSParagraphStyle defaultParagraphStyle], shortening);
  RunLook look;
  look.font = objcxx::share(font);
  UIColor *color = valueOf<UIColor>(attributes, NSForegroundColorAttributeName);
  look.color = objcxx::share(color ?: defaults.color ?: [UIColor blackColor]);
  look.isOwnColor = color ? defaults.hasOwnColors : defaults.isOwnColor;
  look.background = objcxx::share(valueOf<UIColor>(attributes, NSBackgroundColorAttributeName));
  look.underline = NSInteger(numberOf(attributes, NSUnderlineStyleAttributeName));
  look.underlineColor = objcxx::share(valueOf<UIColor>(attributes, NSUnderlineColorAttributeName));
  look.strikethrough = NSInteger(numberOf(attributes, NSStrikethroughStyleAttributeName));
  look.strikethroughColor = objcxx::share(valueOf<UIColor>(attributes, NSStrikethroughColorAttributeName));
  look.shadow = objcxx::adopt((NSShadow *)[valueOf<NSShadow>(attributes, NSShadowAttributeName) copy]);
  id link = [attributes objectForKey:NSLinkAttributeName];
  NSString *address = [link isKindOfClass:[NSURL class]] ? [link absoluteString] : link;
  if ([address isKindOfClass:[NSString class]]) {
    look.link = objcxx::share(address);
    look.color = objcxx::share(defaults.linkColor ?: [UIColor linkColor]);
    look.isOwnColor = false;
    if (!defaults.linkColor && !look.underline) look.underline = NSUnderlineStyleSingle;
  }
  const unichar attached = NSAttachmentCharacter;
  NSTextAttachment *attachment = valueOf<NSTextAttachment>(attributes, NSAttachmentAttributeName);
  if (attachment && [text isEqualToString:[NSString stringWithCharacters:&attached length:1]]) {
    look.image = objcxx::share(shownImage(attachment, font));
    run.box = boxOf(attachment, look.image.get(), font, scale);
  }
  runs_.push_back(std::move(run));
  looks_.push_back(std::move(look));
}

void AttributedText::draw(CGContextRef context, const TextLayout &layout, CGPoint origin) const {
  if (!context) return;
  for (const bool isBackground : {true, false}) {
    for (const TextLine &line : layout.lines()) {
      for (const TextPiece &piece : line.pieces) {
        RunPainter painter(context, layout, line, piece, runs_[piece.run], looks_[piece.run], origin);
        isBackground ? painter.drawBackground() : painter.drawText();
      }
    }
  }
}

}  // namespace sim
