#import <QuartzCore/CATextLayer.h>

#import <UIKit/AttributedText.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIFont.h>
#import <UIKit/UIGraphics.h>

#include <objcxx/Retained.h>

CATextLayerAlignmentMode const kCAAlignmentNatural = @"natural";
CATextLayerAlignmentMode const kCAAlignmentLeft = @"left";
CATextLayerAlignmentMode const kCAAlignmentRight = @"right";
CATextLayerAlignmentMode const kCAAlignmentCenter = @"center";
CATextLayerAlignmentMode const kCAAlignmentJustified = @"justified";
CATextLayerTruncationMode const kCATruncationNone = @"none";
CATextLayerTruncationMode const kCATruncationStart = @"start";
CATextLayerTruncationMode const kCATruncationEnd = @"end";
CATextLayerTruncationMode const kCATruncationMiddle = @"middle";

namespace sim {

struct CATextLayerState {
  objcxx::Retained<NSObject> string;
  objcxx::Retained<NSObject> font;
  CGFloat fontSize = 36;
  objcxx::Retained<NSObject> foregroundColor;
  bool wrapped = false;
  objcxx::Retained<NSString> truncationMode = objcxx::share((NSString *)kCATruncationNone);
  objcxx::Retained<NSString> alignmentMode = objcxx::share((NSString *)kCAAlignmentNatural);
};

}  // namespace sim

namespace {

NSTextAlignment alignmentOf(NSString *mode) {
  if ([mode isEqualToString:kCAAlignmentLeft]) return NSTextAlignmentLeft;
  if ([mode isEqualToString:kCAAlignmentRight]) return NSTextAlignmentRight;
  if ([mode isEqualToString:kCAAlignmentCenter]) return NSTextAlignmentCenter;
  return [mode isEqualToString:kCAAlignmentJustified] ? NSTextAlignmentJustified : NSTextAlignmentNatural;
}

}  // namespace

@implementation CATextLayer

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _textState = std::make_unique<sim::CATextLayerState>();
  _textState->foregroundColor = objcxx::adopt((NSObject *)CGColorCreateGenericGray(1, 1));
  [self setNeedsDisplayOnBoundsChange:YES];
  return self;
}

- (instancetype)initWithLayer:(id)layer {
  if (!(self = [super initWithLayer:layer])) return nil;
  if ([layer isKindOfClass:[CATextLayer class]]) *_textState = *((CATextLayer *)layer)->_textState;
  return self;
}

- (id)string {
  return _textState->string.get();
}

- (void)setString:(id)string {
  _textState->string = objcxx::adopt((NSObject *)[string copy]);
  [self setNeedsDisplay];
}

- (CFTypeRef)font {
  return (CFTypeRef)_textState->font.get();
}

- (void)setFont:(CFTypeRef)font {
  _textState->font = objcxx::share((NSObject *)(void *)font);
  [self setNeedsDisplay];
}

- (CGFloat)fontSize {
  return _textState->fontSize;
}

- (void)setFontSize:(CGFloat)size {
  _textState->fontSize = size;
  [self setNeedsDisplay];
}

- (CGColorRef)foregroundColor {
  return (CGColorRef)_textState->foregroundColor.get();
}

- (void)setForegroundColor:(CGColorRef)color {
  _textState->foregroundColor = objcxx::share((NSObject *)color);
  [self setNeedsDisplay];
}

- (BOOL)isWrapped {
  return _textState->wrapped;
}

- (void)setWrapped:(BOOL)wrapped {
  _textState->wrapped = wrapped;
  [self setNeedsDisplay];
}

- (CATextLayerTruncationMode)truncationMode {
  return _textState->truncationMode.get();
}

- (void)setTruncationMode:(CATextLayerTruncationMode)mode {
  _textState->truncationMode = objcxx::adopt((NSString *)[mode copy]);
  [self setNeedsDisplay];
}

- (CATextLayerAlignmentMode)alignmentMode {
  return _textState->alignmentMode.get();
}

- (void)setAlignmentMode:(CATextLayerAlignmentMode)mode {
  _textState->alignmentMode = objcxx::adopt((NSString *)[mode copy]);
  [self setNeedsDisplay];
}

- (void)setContentsScale:(CGFloat)scale {
  [super setContentsScale:scale];
  [self setNeedsDisplay];
}

- (UIFont *)sim_usedFont {
  id font = _textState->font.get();
  if ([font isKindOfClass:[UIFont class]]) return [(UIFont *)font fontWithSize:[self fontSize]];
  return [UIFont systemFontOfSize:[self fontSize]];
}

- (NSLineBreakMode)sim_lineBreakMode {
  NSString *mode = [self truncationMode];
  if ([mode isEqualToString:kCATruncationStart]) return NSLineBreakByTruncatingHead;
  if ([mode isEqualToString:kCATruncationMiddle]) return NSLineBreakByTruncatingMiddle;
  if ([mode isEqualToString:kCATruncationEnd]) return NSLineBreakByTruncatingTail;
  return [self isWrapped] ? NSLineBreakByWordWrapping : NSLineBreakByClipping;
}

- (void)drawInContext:(CGContextRef)ctx {
  id string = [self string];
  const bool isAttributed = [string isKindOfClass:[NSAttributedString class]];
  const auto plain = objcxx::adopt(isAttributed ? nil : [[NSAttributedString alloc] initWithString:string ?: @""]);
  const auto style = objcxx::adopt([[NSMutableParagraphStyle alloc] init]);
  [style.get() setAlignment:alignmentOf([self alignmentMode])];
  [style.get() setLineBreakMode:[self sim_lineBreakMode]];
  UIColor *color = [self foregroundColor] ? [UIColor colorWithCGColor:[self foregroundColor]] : nil;
  const sim::AttributedText text(isAttributed ? (NSAttributedString *)string : plain.get(),
                                 {.font = [self sim_usedFont], .color = color, .paragraph = style.get()},
                                 sim::Shortening::toOneLine);
  CGContextSaveGState(ctx);
  CGContextClipToRect(ctx, [self bounds]);
  text.draw(ctx, text.layOut({.width = [self bounds].size.width}), [self bounds].origin);
  CGContextRestoreGState(ctx);
}

@end
