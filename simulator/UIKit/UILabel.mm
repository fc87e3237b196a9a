#import "LayoutProblem.h"

#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UILabel.h>
#import <UIKit/UIViewLayout.h>

#include <objcxx/Retained.h>

#include <algorithm>

namespace sim {

struct UILabelState {
  objcxx::Retained<NSString> text;
  objcxx::Retained<NSAttributedString> attributedText;
  objcxx::Retained<UIFont> font;
  objcxx::Retained<UIColor> textColor;
  objcxx::Retained<UIColor> highlightedTextColor;
  objcxx::Retained<UIColor> shadowColor;
  CGSize shadowOffset = {0, -1};
  NSTextAlignment alignment = NSTextAlignmentNatural;
  NSLineBreakMode lineBreakMode = NSLineBreakByTruncatingTail;
  NSInteger numberOfLines = 1;
  CGFloat minimumScaleFactor = 0;
  CGFloat preferredMaxLayoutWidth = 0;
  bool adjustsFontSizeToFitWidth = false;
  bool highlighted = false;
  bool enabled = true;
};

}  // namespace sim

@implementation UILabel

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _labelState = std::make_unique<sim::UILabelState>();
  const sim::SystemSets system;
  [self setFont:nil];
  [self setTextColor:nil];
  [self setUserInteractionEnabled:NO];
  [self setOpaque:NO];
  return self;
}

- (NSString *)text {
  return _labelState->text.get();
}

- (void)setText:(NSString *)text {
  _labelState->text = objcxx::adopt((NSString *)[text copy]);
  _labelState->attributedText = nullptr;
  [self invalidateIntrinsicContentSize];
}

- (NSAttributedString *)attributedText {
  if (_labelState->attributedText || !_labelState->text) return _labelState->attributedText.get();
  NSDictionary *attributes =
      [NSDictionary dictionaryWithObjectsAndKeys:[self font], NSFontAttributeName, [self textColor],
                                                 NSForegroundColorAttributeName, nil];
  return [[[NSAttributedString alloc] initWithString:_labelState->text.get() attributes:attributes] autorelease];
}

- (void)setAttributedText:(NSAttributedString *)text {
  _labelState->text = objcxx::adopt((NSString *)[[text string] copy]);
  _labelState->attributedText = objcxx::adopt((NSAttributedString *)[text copy]);
  [self invalidateIntrinsicContentSize];
  if ([text length] == 0) return;
  NSDictionary *attributes = [text attributesAtIndex:0 effectiveRange:nullptr];
  if (UIFont *font = [attributes objectForKey:NSFontAttributeName]) [self setFont:font];
  if (UIColor *color = [attributes objectForKey:NSForegroundColorAttributeName]) [self setTextColor:color];
  if (NSParagraphStyle *style = [attributes objectForKey:NSParagraphStyleAttributeName]) {
    [self setTextAlignment:[style alignment]];
  }
}

- (UIFont *)font {
  return _labelState->font.get();
}

- (void)setFont:(UIFont *)font {
  _labelState->font = objcxx::share(font ? font : [UIFont systemFontOfSize:[UIFont labelFontSize]]);
  [self invalidateIntrinsicContentSize];
}

- (UIColor *)textColor {
  return _labelState->textColor.get();
}

- (void)setTextColor:(UIColor *)color {
  _labelState->textColor = objcxx::share(color ? color : [UIColor labelColor]);
}

- (UIColor *)highlightedTextColor {
  return _labelState->highlightedTextColor.get();
}

- (void)setHighlightedTextColor:(UIColor *)color {
  _labelState->highlightedTextColor = objcxx::share(color);
}

- (BOOL)isHighlighted {
  return _labelState->highlighted;
}

- (void)setHighlighted:(BOOL)highlighted {
  _labelState->highlighted = highlighted;
}

- (BOOL)isEnabled {
  return _labelState->enabled;
}

- (void)setEnabled:(BOOL)enabled {
  _labelState->enabled = enabled;
}

- (UIColor *)shadowColor {
  return _labelState->shadowColor.get();
}

- (void)setShadowColor:(UIColor *)color {
  _labelState->shadowColor = objcxx::share(color);
}

- (CGSize)shadowOffset {
  return _labelState->shadowOffset;
}

- (void)setShadowOffset:(CGSize)offset {
  _labelState->shadowOffset = offset;
}

- (NSTextAlignment)textAlignment {
  return _labelState->alignment;
}

- (void)setTextAlignment:(NSTextAlignment)alignment {
  _labelState->alignment = alignment;
}

- (NSLineBreakMode)lineBreakMode {
  return _labelState->lineBreakMode;
}

- (void)setLineBreakMode:(NSLineBreakMode)mode {
  _labelState->lineBreakMode = mode;
  [self invalidateIntrinsicContentSize];
}

- (NSInteger)numberOfLines {
  return _labelState->numberOfLines;
}

- (void)setNumberOfLines:(NSInteger)lines {
  _labelState->numberOfLines = std::max<NSInteger>(lines, 0);
  [self invalidateIntrinsicContentSize];
}

- (BOOL)adjustsFontSizeToFitWidth {
  return _labelState->adjustsFontSizeToFitWidth;
}

- (void)setAdjustsFontSizeToFitWidth:(BOOL)adjusts {
  _labelState->adjustsFontSizeToFitWidth = adjusts;
}

- (CGFloat)minimumScaleFactor {
  return _labelState->minimumScaleFactor;
}

- (void)setMinimumScaleFactor:(CGFloat)factor {
  _labelState->minimumScaleFactor = factor;
}

- (CGFloat)preferredMaxLayoutWidth {
  return _labelState->preferredMaxLayoutWidth;
}

- (void)setPreferredMaxLayoutWidth:(CGFloat)width {
  _labelState->preferredMaxLayoutWidth = width;
  [self invalidateIntrinsicContentSize];
}

// The text in whole pixels, wrapped to `width` (0 or less: not at all) in `lines` lines at most (0: no limit).
- (CGSize)sim_textSizeForWidth:(CGFloat)width lines:(NSInteger)lines {
  if ([_labelState->text.get() length] == 0) return CGSizeZero;
  sim::TextBlock block;
  block.lines = int(lines);
  if (lines != 1) {
    block.wrap = sim::wrapOf(_labelState->lineBreakMode);
    block.width = width;
  }
  const auto size = sim::measureText(sim::utf8(_labelState->text.get()), sim::textStyle([self font]), block);
  return CGSizeMake(sim::ceiledToPixel(size.width), sim::ceiledToPixel(size.lines * [[self font] lineHeight]));
}

- (CGSize)sizeThatFits:(CGSize)size {
  return [self sim_textSizeForWidth:size.width lines:_labelState->numberOfLines];
}

- (CGSize)intrinsicContentSize {
  return [self sim_textSizeForWidth:_labelState->preferredMaxLayoutWidth lines:_labelState->numberOfLines];
}

/// On several lines as constraints give it room, unless its owner has said in what width.
- (CGFloat)sim_contentHeightForWidth:(CGFloat)width {
  if (_labelState->numberOfLines == 1 || _labelState->preferredMaxLayoutWidth > 0) return -1;
  return [self sim_textSizeForWidth:width lines:_labelState->numberOfLines].height;
}

- (BOOL)sim_getBaselines:(sim::Baselines &)baselines {
  UIFont *font = [self font];
  baselines.firstFromTop = sim::roundedToPixel([font ascender]);
  baselines.lastFromBottom = sim::roundedToPixel(-[font descender]);
  return YES;
}

/// As on a device, where a label hugs its text more than other views do theirs.
- (UILayoutPriority)sim_defaultHuggingForAxis:(UILayoutConstraintAxis)axis {
  (void)axis;
  return UILayoutPriorityDefaultLow + 1;
}

- (CGRect)textRectForBounds:(CGRect)bounds limitedToNumberOfLines:(NSInteger)numberOfLines {
  const CGSize text = [self sim_textSizeForWidth:bounds.size.width lines:numberOfLines];
  const CGFloat width = std::min(text.width, bounds.size.width);
  const CGFloat height = std::min(text.height, bounds.size.height);
  CGFloat share = 0;
  if (_labelState->alignment == NSTextAlignmentCenter) share = 0.5;
  if (_labelState->alignment == NSTextAlignmentRight) share = 1;
  return CGRectMake(bounds.origin.x + (bounds.size.width - width) * share,
                    bounds.origin.y + (bounds.size.height - height) / 2, width, height);
}

@end
