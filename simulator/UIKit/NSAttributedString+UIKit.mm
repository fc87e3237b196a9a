#import <CoreGraphics/CGContext+Sim.h>
#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIColor+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIGraphics.h>

NSAttributedStringKey const NSFontAttributeName = @"NSFont";
NSAttributedStringKey const NSForegroundColorAttributeName = @"NSColor";
NSAttributedStringKey const NSParagraphStyleAttributeName = @"NSParagraphStyle";

@implementation NSParagraphStyle

+ (NSParagraphStyle *)defaultParagraphStyle {
  static NSParagraphStyle *const style = [[NSParagraphStyle alloc] init];
  return style;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _alignment = NSTextAlignmentNatural;
  return self;
}

@synthesize alignment = _alignment;
@synthesize lineBreakMode = _lineBreakMode;
@synthesize lineSpacing = _lineSpacing;

- (instancetype)sim_assign:(const NSParagraphStyle *)other {
  _alignment = other->_alignment;
  _lineBreakMode = other->_lineBreakMode;
  _lineSpacing = other->_lineSpacing;
  return self;
}

- (id)copyWithZone:(NSZone *)zone {
  return [[[NSParagraphStyle allocWithZone:zone] init] sim_assign:self];
}

- (id)mutableCopyWithZone:(NSZone *)zone {
  return [[[NSMutableParagraphStyle allocWithZone:zone] init] sim_assign:self];
}

- (BOOL)isEqual:(id)object {
  if (![object isKindOfClass:[NSParagraphStyle class]]) return NO;
  const NSParagraphStyle *other = object;
  return _alignment == other->_alignment && _lineBreakMode == other->_lineBreakMode &&
         _lineSpacing == other->_lineSpacing;
}

- (NSUInteger)hash {
  return NSUInteger(_alignment) << 8 | NSUInteger(_lineBreakMode);
}

@end

@implementation NSMutableParagraphStyle

@dynamic alignment, lineBreakMode, lineSpacing;

- (void)setAlignment:(NSTextAlignment)alignment {
  _alignment = alignment;
}

- (void)setLineBreakMode:(NSLineBreakMode)mode {
  _lineBreakMode = mode;
}

- (void)setLineSpacing:(CGFloat)spacing {
  _lineSpacing = spacing;
}

@end

namespace {

// The attributes, with what stands in for those that are missing.
struct Attributes {
  explicit Attributes(NSDictionary *given) {
    font = [given objectForKey:NSFontAttributeName];
    if (!font) font = [UIFont systemFontOfSize:12];
    color = [given objectForKey:NSForegroundColorAttributeName];
    if (!color) color = [UIColor blackColor];
    paragraph = [given objectForKey:NSParagraphStyleAttributeName];
    if (!paragraph) paragraph = [NSParagraphStyle defaultParagraphStyle];
  }

  sim::TextBlock wrapped(CGFloat width) const {
    const NSLineBreakMode mode = [paragraph lineBreakMode];
    sim::TextBlock block;
    block.wrap = sim::ellipsisOf(mode) == sim::TextEllipsis::none ? sim::wrapOf(mode) : sim::TextWrap::none;
    block.ellipsis = sim::ellipsisOf(mode);
    block.align = sim::alignOf([paragraph alignment]);
    block.lineSpacing = [paragraph lineSpacing];
    block.width = width;
    return block;
  }

  CGFloat height(int lines) const {
    return lines == 0 ? 0 : lines * [font lineHeight] + (lines - 1) * [paragraph lineSpacing];
  }

  UIFont *font;
  UIColor *color;
  NSParagraphStyle *paragraph;
};

void draw(NSString *string, const Attributes &attributes, const sim::TextBlock &block, CGPoint origin) {
  CGFloat red, green, blue, alpha;
  [attributes.color getRed:&red green:&green blue:&blue alpha:&alpha];
  sim::drawText(sim::cairoOf(UIGraphicsGetCurrentContext()), sim::utf8(string), sim::textStyle(attributes.font), block,
                origin.x, origin.y, [attributes.font lineHeight], { red, green, blue, alpha });
}

}  // namespace

@implementation NSString (NSExtendedStringDrawing)

- (CGSize)sizeWithAttributes:(NSDictionary *)given {
  const Attributes attributes(given);
  const auto size = sim::measureText(sim::utf8(self), sim::textStyle(attributes.font), {});
  return CGSizeMake(size.width, attributes.height(size.lines));
}

- (CGRect)boundingRectWithSize:(CGSize)size
                       options:(NSStringDrawingOptions)options
                    attributes:(NSDictionary *)given
                       context:(NSStringDrawingContext *)context {
  (void)context;
  if (!(options & NSStringDrawingUsesLineFragmentOrigin)) return {CGPointZero, [self sizeWithAttributes:given]};
  const Attributes attributes(given);
  sim::TextBlock block = attributes.wrapped(size.width);
  block.align = sim::TextAlign::left;
  auto measured = sim::measureText(sim::utf8(self), sim::textStyle(attributes.font), block);
  if ((options & NSStringDrawingTruncatesLastVisibleLine) && size.height > 0) {
    while (measured.lines > 1 && attributes.height(measured.lines) > size.height) --measured.lines;
  }
  return CGRectMake(0, 0, measured.width, attributes.height(measured.lines));
}

- (void)drawAtPoint:(CGPoint)point withAttributes:(NSDictionary *)given {
  draw(self, Attributes(given), {}, point);
}

- (void)drawInRect:(CGRect)rect withAttributes:(NSDictionary *)given {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  const Attributes attributes(given);
  CGContextSaveGState(context);
  CGContextClipToRect(context, rect);
  draw(self, attributes, attributes.wrapped(rect.size.width), rect.origin);
  CGContextRestoreGState(context);
}

@end
