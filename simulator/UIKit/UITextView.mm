#import "AppearanceMarks.h"

#import <UIKit/FrameworkSupport.h>
#import <UIKit/NSAttributedString+UIKit.h>

#import <Foundation/NotCarried.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIPasteboard.h>
#import <UIKit/UITextInputState.h>
#import <UIKit/UITextView+Sim.h>
#import <UIKit/UIView+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>

NSString *const UITextViewTextDidBeginEditingNotification = @"UITextViewTextDidBeginEditingNotification";
NSString *const UITextViewTextDidChangeNotification = @"UITextViewTextDidChangeNotification";
NSString *const UITextViewTextDidEndEditingNotification = @"UITextViewTextDidEndEditingNotification";

namespace sim {

struct UITextViewState {
  objcxx::Retained<NSString> text;
  objcxx::Retained<NSAttributedString> attributedText;
  objcxx::Retained<UIFont> font;
  objcxx::Retained<UIColor> textColor;
  NSTextAlignment alignment = NSTextAlignmentNatural;
  NSRange selectedRange = {0, 0};
  UIEdgeInsets textContainerInset = {8, 0, 8, 0};
  bool editable = true;
  bool selectable = true;
  bool hasOwnColor = false;  // Set by somebody but the system.
  TextInputTraits traits;
};

}  // namespace sim

namespace {

// What the text container keeps free on either side.
constexpr CGFloat kLineFragmentPadding = 5;

void post(NSString *name, id object) { [[NSNotificationCenter defaultCenter] postNotificationName:name object:object]; }

}  // namespace

@implementation UITextView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _textState = std::make_unique<sim::UITextViewState>();
  const sim::SystemSets system;
  [self setText:nil];
  [self setFont:nil];
  [self setTextColor:nil];
  return self;
}

- (CGSize)sizeThatFits:(CGSize)size {
  const UIEdgeInsets insets = _textState->textContainerInset;
  const CGFloat margins = insets.left + insets.right + 2 * kLineFragmentPadding;
  const CGFloat room = size.width > 0 ? std::max<CGFloat>(size.width - margins, 1) : 0;
  const CGSize text = [self sim_textSizeForWidth:room];
  return CGSizeMake(sim::ceiledToPixel(text.width + margins),
                    sim::ceiledToPixel(text.height + insets.top + insets.bottom));
}

/// Of the text alone, in points; 0: not wrapped.
- (CGSize)sim_textSizeForWidth:(CGFloat)width {
  if ([self sim_isAttributed]) {
    const auto layout = [self sim_attributedText].layOut({.width = width});
    return CGSizeMake(layout.width(), layout.height());
  }
  const auto text =
      sim::measureText(sim::utf8([self text]), sim::textStyle([self font]), {sim::TextWrap::word, {.width = width}});
  return CGSizeMake(text.width, std::max(text.lines, 1) * [[self font] lineHeight]);
}

/// As large as its text, unless it scrolls.
- (CGSize)intrinsicContentSize {
  return [self isScrollEnabled] ? [super intrinsicContentSize] : [self sizeThatFits:CGSizeZero];
}

- (CGFloat)sim_contentHeightForWidth:(CGFloat)width {
  return [self isScrollEnabled] ? -1 : [self sizeThatFits:CGSizeMake(width, 0)].height;
}

- (void)setScrollEnabled:(BOOL)enabled {
  [super setScrollEnabled:enabled];
  [self invalidateIntrinsicContentSize];
}

- (NSString *)text {
  return _textState->text.get();
}

- (void)setText:(NSString *)text {
  _textState->text = objcxx::adopt((NSString *)[text ? text : @"" copy]);
  _textState->attributedText = nullptr;
  [self invalidateIntrinsicContentSize];
  _textState->selectedRange = NSMakeRange([[self text] length], 0);
}

- (NSAttributedString *)attributedText {
  if (_textState->attributedText) return _textState->attributedText.get();
  NSDictionary *attributes =
      [NSDictionary dictionaryWithObjectsAndKeys:[self font], NSFontAttributeName, [self textColor],
                                                 NSForegroundColorAttributeName, nil];
  return [[[NSAttributedString alloc] initWithString:[self text] attributes:attributes] autorelease];
}

- (void)setAttributedText:(NSAttributedString *)text {
  [self setText:[text string]];
  if ([text length] == 0) return;
  NSDictionary *attributes = [text attributesAtIndex:0 effectiveRange:nullptr];
  if (UIFont *font = [attributes objectForKey:NSFontAttributeName]) [self setFont:font];
  if (UIColor *color = [attributes objectForKey:NSForegroundColorAttributeName]) [self setTextColor:color];
  if (NSParagraphStyle *style = [attributes objectForKey:NSParagraphStyleAttributeName]) {
    [self setTextAlignment:[style alignment]];
  }
  _textState->attributedText = objcxx::adopt((NSAttributedString *)[text copy]);
  [self invalidateIntrinsicContentSize];
}

/// Gives the whole text an attribute, which setting the view's own property does.
- (void)sim_setAttribute:(NSAttributedStringKey)name value:(id)value {
  if (!_textState->attributedText) return;
  const auto changed = objcxx::adopt((NSMutableAttributedString *)[_textState->attributedText.get() mutableCopy]);
  [changed.get() addAttribute:name value:value range:NSMakeRange(0, [changed.get() length])];
  _textState->attributedText = objcxx::adopt((NSAttributedString *)[changed.get() copy]);
}

- (UIFont *)font {
  return _textState->font.get();
}

- (void)setFont:(UIFont *)font {
  _textState->font = objcxx::share(font ? font : [UIFont systemFontOfSize:12]);
  [self sim_setAttribute:NSFontAttributeName value:[self font]];
  [self invalidateIntrinsicContentSize];
}

- (UIColor *)textColor {
  return _textState->textColor.get();
}

- (void)setTextColor:(UIColor *)color {
  _textState->textColor = objcxx::share(color ? color : [UIColor labelColor]);
  _textState->hasOwnColor = color && !sim::isSetBySystem(self);
  [self sim_setAttribute:NSForegroundColorAttributeName value:[self textColor]];
}

- (NSTextAlignment)textAlignment {
  return _textState->alignment;
}

- (void)setTextAlignment:(NSTextAlignment)alignment {
  _textState->alignment = alignment;
}

- (NSRange)selectedRange {
  return _textState->selectedRange;
}

- (void)setSelectedRange:(NSRange)range {
  sim::notCarried(@"UITextView.selectedRange", @"Text that is entered replaces what is there.");
  const NSUInteger length = [[self text] length];
  const NSUInteger start = std::min(range.location, length);
  _textState->selectedRange = NSMakeRange(start, std::min(range.length, length - start));
}

- (BOOL)isEditable {
  return _textState->editable;
}

- (void)setEditable:(BOOL)editable {
  _textState->editable = editable;
}

- (BOOL)isSelectable {
  return _textState->selectable;
}

- (void)setSelectable:(BOOL)selectable {
  if (!selectable) sim::notCarried(@"UITextView.selectable", @"The text can be selected like any other.");
  _textState->selectable = selectable;
}

- (UIEdgeInsets)textContainerInset {
  return _textState->textContainerInset;
}

- (void)setTextContainerInset:(UIEdgeInsets)insets {
  _textState->textContainerInset = insets;
  [self invalidateIntrinsicContentSize];
}

- (id<UITextViewDelegate>)delegate {
  return (id<UITextViewDelegate>)[super delegate];
}

- (void)setDelegate:(id<UITextViewDelegate>)delegate {
  [super setDelegate:delegate];
}

SIM_TEXT_INPUT_TRAITS(_textState->traits)

- (BOOL)canBecomeFirstResponder {
  return [self isEditable];
}

- (BOOL)becomeFirstResponder {
  if ([self isFirstResponder]) return YES;
  if (![self canBecomeFirstResponder]) return NO;
  id<UITextViewDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(textViewShouldBeginEditing:)] &&
      ![delegate textViewShouldBeginEditing:self]) {
    return NO;
  }
  if (![super becomeFirstResponder]) return NO;
  if ([[self delegate] respondsToSelector:@selector(textViewDidBeginEditing:)]) {
    [[self delegate] textViewDidBeginEditing:self];
  }
  post(UITextViewTextDidBeginEditingNotification, self);
  return YES;
}

- (BOOL)resignFirstResponder {
  if (![self isFirstResponder]) return YES;
  id<UITextViewDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(textViewShouldEndEditing:)] && ![delegate textViewShouldEndEditing:self]) {
    return NO;
  }
  if (![super resignFirstResponder]) return NO;
  if ([[self delegate] respondsToSelector:@selector(textViewDidEndEditing:)]) {
    [[self delegate] textViewDidEndEditing:self];
  }
  post(UITextViewTextDidEndEditingNotification, self);
  return YES;
}

@end

@implementation UITextView (Sim)

- (BOOL)sim_hasOwnColor {
  return _textState->hasOwnColor;
}

- (BOOL)sim_isAttributed {
  return [_textState->attributedText.get() length] > 0;
}

- (sim::AttributedText)sim_attributedText {
  const auto style = objcxx::adopt([[NSMutableParagraphStyle alloc] init]);
  [style.get() setAlignment:_textState->alignment];
  return {_textState->attributedText.get(),
          {.paragraph = style.get(), .linkColor = [self tintColor]},
          sim::Shortening::ofLastLine};
}

- (CGFloat)sim_widthOfLines {
  const UIEdgeInsets insets = _textState->textContainerInset;
  return std::max<CGFloat>([self bounds].size.width - insets.left - insets.right - 2 * kLineFragmentPadding, 1);
}

- (BOOL)sim_enterText:(NSString *)text {
  return [self sim_replaceTextFrom:0 with:text ? text : @""];
}

- (BOOL)sim_pasteByUser {
  NSString *string = [[UIPasteboard generalPasteboard] string];
  return string && [self sim_replaceTextFrom:[[self text] length] with:string];
}

- (BOOL)sim_replaceTextFrom:(NSUInteger)start with:(NSString *)text {
  if (![self sim_acceptsTouches] || ![self isEditable]) return NO;
  const auto keepAlive = objcxx::share(self);
  if (![self becomeFirstResponder]) return NO;
  const auto before = objcxx::share([self text]);
  const NSUInteger kept = std::min(start, [before.get() length]);
  const NSRange range = NSMakeRange(kept, [before.get() length] - kept);
  id<UITextViewDelegate> delegate = [self delegate];
  const BOOL asks = [delegate respondsToSelector:@selector(textView:shouldChangeTextInRange:replacementText:)];
  if (!asks || [delegate textView:self shouldChangeTextInRange:range replacementText:text]) {
    [self setText:[before.get() stringByReplacingCharactersInRange:range withString:text]];
    if ([[self delegate] respondsToSelector:@selector(textViewDidChangeSelection:)]) {
      [[self delegate] textViewDidChangeSelection:self];
    }
    if ([[self delegate] respondsToSelector:@selector(textViewDidChange:)]) [[self delegate] textViewDidChange:self];
    post(UITextViewTextDidChangeNotification, self);
  }
  [self resignFirstResponder];
  return YES;
}

@end
