#import "AppearanceMarks.h"
#import "LayoutProblem.h"

#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UILabel+Sim.h>
#import <UIKit/UIViewLayout.h>

#include <objcxx/Retained.h>

#include <algorithm>

namespace sim {

struct UILabelState {
  objcxx::Retained<NSString> text;
  objcxx::Retained<NSAttributedString> attributedText;
  objcxx::Retained<UIFont> font;
  objcxx::Retained<UIColor> textColor;
  objcxx::Retained<UIFont> fontOfPlainRuns;  // As they were set, not taken from a text.
  objcxx::Retained<UIColor> colorOfPlainRuns;
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
  bool hasOwnColor = false;  // Set by somebody but the system.
  bool hasOwnHighlightedColor = false;
  bool hasOwnColorsInAttributes = false;
};

}  // namespace sim

namespace {

/// How much of a disabled label's colour is left.
constexpr CGFloat kDisabledAlpha = 0.4;

/// Highlighted, disabled or as it is.
UIColor *shownColor(const sim::UILabelState &state, UIColor *color) {
  if (state.highlighted && state.highlightedTextColor) color = state.highlightedTextColor.get();
  return state.enabled ? color : [color colorWithAlphaComponent:kDisabledAlpha];
}

}  // namespace

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
  _labelState->hasOwnColorsInAttributes = !sim::isSetBySystem(self);
  if ([text length] == 0) return;
  NSDictionary *attributes = [text attributesAtIndex:0 effectiveRange:nullptr];
  if (UIFont *font = [attributes objectForKey:NSFontAttributeName]) _labelState->font = objcxx::share(font);
  if (UIColor *color = [attributes objectForKey:NSForegroundColorAttributeName]) {
    _labelState->textColor = objcxx::share(color);
    _labelState->hasOwnColor = _labelState->hasOwnColorsInAttributes;
  }
  if (NSParagraphStyle *style = [attributes objectForKey:NSParagraphStyleAttributeName]) {
    _labelState->alignment = [style alignment];
  }
}

/// Gives the whole text an attribute, which setting the label's own property does.
- (void)sim_setAttribute:(NSAttributedStringKey)name value:(id)value {
  if (!_labelState->attributedText) return;
  const auto changed = objcxx::adopt((NSMutableAttributedString *)[_labelState->attributedText.get() mutableCopy]);
  [changed.get() addAttribute:name value:value range:NSMakeRange(0, [changed.get() length])];
  _labelState->attributedText = objcxx::adopt((NSAttributedString *)[changed.get() copy]);
}

/// The same of one value in the paragraphs' styles, which keep their others.
- (void)sim_changeParagraphs:(void (^)(NSMutableParagraphStyle *style))change {
  if (!_labelState->attributedText) return;
  const auto changed = objcxx::adopt((NSMutableAttributedString *)[_labelState->attributedText.get() mutableCopy]);
  NSMutableAttributedString *text = changed.get();
  [_labelState->attributedText.get()
      enumerateAttribute:NSParagraphStyleAttributeName
                 inRange:NSMakeRange(0, [text length])
                 options:NSAttributedStringEnumerationOptions(0)
              usingBlock:^(id value, NSRange range, BOOL *) {
                if (!value) return;  // The label's own stands in.
                const auto style = objcxx::adopt((NSMutableParagraphStyle *)[value mutableCopy]);
                change(style.get());
                [text addAttribute:NSParagraphStyleAttributeName value:style.get() range:range];
              }];
  _labelState->attributedText = objcxx::adopt((NSAttributedString *)[text copy]);
}

- (UIFont *)font {
  return _labelState->font.get();
}

- (void)setFont:(UIFont *)font {
  _labelState->font = objcxx::share(font ? font : [UIFont systemFontOfSize:[UIFont labelFontSize]]);
  _labelState->fontOfPlainRuns = _labelState->font;
  [self sim_setAttribute:NSFontAttributeName value:[self font]];
  [self invalidateIntrinsicContentSize];
}

- (UIColor *)textColor {
  return _labelState->textColor.get();
}

- (void)setTextColor:(UIColor *)color {
  _labelState->textColor = objcxx::share(color ? color : [UIColor labelColor]);
  _labelState->colorOfPlainRuns = _labelState->textColor;
  [self sim_setHasOwnColor:color && !sim::isSetBySystem(self) inAttributes:color && !sim::isSetBySystem(self)];
  [self sim_setAttribute:NSForegroundColorAttributeName value:[self textColor]];
}

- (UIColor *)highlightedTextColor {
  return _labelState->highlightedTextColor.get();
}

- (void)setHighlightedTextColor:(UIColor *)color {
  _labelState->highlightedTextColor = objcxx::share(color);
  _labelState->hasOwnHighlightedColor = !sim::isSetBySystem(self);
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
  [self sim_changeParagraphs:^(NSMutableParagraphStyle *style) {
    [style setAlignment:alignment];
  }];
}

- (NSLineBreakMode)lineBreakMode {
  return _labelState->lineBreakMode;
}

- (void)setLineBreakMode:(NSLineBreakMode)mode {
  _labelState->lineBreakMode = mode;
  [self sim_changeParagraphs:^(NSMutableParagraphStyle *style) {
    [style setLineBreakMode:mode];
  }];
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
  if (_labelState->attributedText) {
    const auto layout =
        [self sim_attributedTextScaledBy:1].layOut({.width = lines == 1 ? 0 : width, .lines = int(lines)});
    return CGSizeMake(sim::ceiledToPixel(layout.width()), sim::ceiledToPixel(layout.height()));
  }
  sim::TextBlock block;
  block.limits.lines = int(lines);
  if (lines != 1) {
    block.wrap = sim::wrapOf(_labelState->lineBreakMode);
    block.limits.width = width;
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
  if (_labelState->attributedText) {
    const auto layout = [self sim_attributedTextScaledBy:1].layOut(
        {.width = [self bounds].size.width, .lines = int(_labelState->numberOfLines)});
    if (!layout.lines().empty()) {
      baselines.firstFromTop = sim::roundedToPixel(layout.lines().front().baseline);
      baselines.lastFromBottom = sim::roundedToPixel(layout.height() - layout.lines().back().baseline);
      return YES;
    }
  }
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

@implementation UILabel (Sim)

- (UIColor *)sim_shownColor {
  return shownColor(*_labelState, _labelState->textColor.get());
}

- (BOOL)sim_hasOwnColor {
  const bool isHighlighted = _labelState->highlighted && _labelState->highlightedTextColor;
  return isHighlighted ? _labelState->hasOwnHighlightedColor : _labelState->hasOwnColor;
}

- (void)sim_setHasOwnColor:(BOOL)color inAttributes:(BOOL)attributes {
  _labelState->hasOwnColor = color;
  _labelState->hasOwnColorsInAttributes = attributes;
}

- (BOOL)sim_isAttributed {
  return [_labelState->attributedText.get() length] > 0;
}

- (sim::AttributedText)sim_attributedTextScaledBy:(CGFloat)scale {
  const auto style = objcxx::adopt([[NSMutableParagraphStyle alloc] init]);
  [style.get() setAlignment:_labelState->alignment];
  [style.get() setLineBreakMode:_labelState->lineBreakMode];
  return {_labelState->attributedText.get(),
          {.font = _labelState->fontOfPlainRuns.get(),
           .color = shownColor(*_labelState, _labelState->colorOfPlainRuns.get()),
           .paragraph = style.get(),
           .isOwnColor = bool([self sim_hasOwnColor]),
           .hasOwnColors = _labelState->hasOwnColorsInAttributes},
          sim::Shortening::ofLastLine,
          scale};
}

@end
