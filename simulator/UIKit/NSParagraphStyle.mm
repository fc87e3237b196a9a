#import <UIKit/NSParagraphStyle.h>

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
@synthesize paragraphSpacing = _paragraphSpacing;
@synthesize paragraphSpacingBefore = _paragraphSpacingBefore;
@synthesize firstLineHeadIndent = _firstLineHeadIndent;
@synthesize headIndent = _headIndent;
@synthesize tailIndent = _tailIndent;
@synthesize minimumLineHeight = _minimumLineHeight;
@synthesize maximumLineHeight = _maximumLineHeight;
@synthesize lineHeightMultiple = _lineHeightMultiple;

- (void)sim_assign:(const NSParagraphStyle *)other {
  _alignment = other->_alignment;
  _lineBreakMode = other->_lineBreakMode;
  _lineSpacing = other->_lineSpacing;
  _paragraphSpacing = other->_paragraphSpacing;
  _paragraphSpacingBefore = other->_paragraphSpacingBefore;
  _firstLineHeadIndent = other->_firstLineHeadIndent;
  _headIndent = other->_headIndent;
  _tailIndent = other->_tailIndent;
  _minimumLineHeight = other->_minimumLineHeight;
  _maximumLineHeight = other->_maximumLineHeight;
  _lineHeightMultiple = other->_lineHeightMultiple;
}

- (id)copyWithZone:(NSZone *)zone {
  NSParagraphStyle *copy = [[NSParagraphStyle allocWithZone:zone] init];
  [copy sim_assign:self];
  return copy;
}

- (id)mutableCopyWithZone:(NSZone *)zone {
  NSMutableParagraphStyle *copy = [[NSMutableParagraphStyle allocWithZone:zone] init];
  [copy sim_assign:self];
  return copy;
}

- (BOOL)isEqual:(id)object {
  if (![object isKindOfClass:[NSParagraphStyle class]]) return NO;
  const NSParagraphStyle *other = object;
  return _alignment == other->_alignment && _lineBreakMode == other->_lineBreakMode &&
         _lineSpacing == other->_lineSpacing && _paragraphSpacing == other->_paragraphSpacing &&
         _paragraphSpacingBefore == other->_paragraphSpacingBefore &&
         _firstLineHeadIndent == other->_firstLineHeadIndent && _headIndent == other->_headIndent &&
         _tailIndent == other->_tailIndent && _minimumLineHeight == other->_minimumLineHeight &&
         _maximumLineHeight == other->_maximumLineHeight && _lineHeightMultiple == other->_lineHeightMultiple;
}

- (NSUInteger)hash {
  return NSUInteger(_alignment) << 8 | NSUInteger(_lineBreakMode);
}

@end

@implementation NSMutableParagraphStyle

@dynamic alignment, lineBreakMode, lineSpacing, paragraphSpacing, paragraphSpacingBefore, firstLineHeadIndent;
@dynamic headIndent, tailIndent, minimumLineHeight, maximumLineHeight, lineHeightMultiple;

- (void)setAlignment:(NSTextAlignment)alignment {
  _alignment = alignment;
}

- (void)setLineBreakMode:(NSLineBreakMode)mode {
  _lineBreakMode = mode;
}

- (void)setLineSpacing:(CGFloat)spacing {
  _lineSpacing = spacing;
}

- (void)setParagraphSpacing:(CGFloat)spacing {
  _paragraphSpacing = spacing;
}

- (void)setParagraphSpacingBefore:(CGFloat)spacing {
  _paragraphSpacingBefore = spacing;
}

- (void)setFirstLineHeadIndent:(CGFloat)indent {
  _firstLineHeadIndent = indent;
}

- (void)setHeadIndent:(CGFloat)indent {
  _headIndent = indent;
}

- (void)setTailIndent:(CGFloat)indent {
  _tailIndent = indent;
}

- (void)setMinimumLineHeight:(CGFloat)height {
  _minimumLineHeight = height;
}

- (void)setMaximumLineHeight:(CGFloat)height {
  _maximumLineHeight = height;
}

- (void)setLineHeightMultiple:(CGFloat)multiple {
  _lineHeightMultiple = multiple;
}

- (void)setParagraphStyle:(NSParagraphStyle *)style {
  if (!style) return;
  [self setAlignment:[style alignment]];
  [self setLineBreakMode:[style lineBreakMode]];
  [self setLineSpacing:[style lineSpacing]];
  [self setParagraphSpacing:[style paragraphSpacing]];
  [self setParagraphSpacingBefore:[style paragraphSpacingBefore]];
  [self setFirstLineHeadIndent:[style firstLineHeadIndent]];
  [self setHeadIndent:[style headIndent]];
  [self setTailIndent:[style tailIndent]];
  [self setMinimumLineHeight:[style minimumLineHeight]];
  [self setMaximumLineHeight:[style maximumLineHeight]];
  [self setLineHeightMultiple:[style lineHeightMultiple]];
}

@end
