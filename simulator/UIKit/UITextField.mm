#import "AppearanceMarks.h"

#import <UIKit/FrameworkSupport.h>
#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UITextField+Sim.h>
#import <UIKit/UITextFieldState.h>

NSString *const UITextFieldTextDidBeginEditingNotification = @"UITextFieldTextDidBeginEditingNotification";
NSString *const UITextFieldTextDidEndEditingNotification = @"UITextFieldTextDidEndEditingNotification";
NSString *const UITextFieldTextDidChangeNotification = @"UITextFieldTextDidChangeNotification";

namespace {

constexpr CGFloat kBorderedHeight = 34;
constexpr CGFloat kBorderedInset = 7;

objcxx::Retained<NSString> textOrEmpty(NSString *text) { return objcxx::adopt((NSString *)[text ? text : @"" copy]); }

void post(NSString *name, id object) { [[NSNotificationCenter defaultCenter] postNotificationName:name object:object]; }

}  // namespace

@implementation UITextField

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _fieldState = std::make_unique<sim::UITextFieldState>();
  const sim::SystemSets system;
  [self setText:nil];
  [self setFont:nil];
  [self setTextColor:nil];
  return self;
}

- (CGSize)sizeThatFits:(CGSize)size {
  const CGFloat line = sim::ceiledToPixel([[self font] lineHeight]);
  return CGSizeMake(size.width, _fieldState->borderStyle == UITextBorderStyleRoundedRect ? kBorderedHeight : line);
}

- (CGSize)intrinsicContentSize {
  const auto widthOf = [self](NSString *text) {
    return [text length] == 0 ? 0.0 : sim::measureText(sim::utf8(text), sim::textStyle([self font]), {}).width;
  };
  const double width = [[self text] length] > 0 ? widthOf([self text]) : widthOf([self placeholder]);
  const CGFloat border = _fieldState->borderStyle == UITextBorderStyleNone ? 0 : 2 * kBorderedInset;
  return CGSizeMake(sim::ceiledToPixel(width) + border, [self sizeThatFits:CGSizeZero].height);
}

- (NSString *)text {
  return _fieldState->text.get();
}

- (void)setText:(NSString *)text {
  _fieldState->text = textOrEmpty(text);
  [self invalidateIntrinsicContentSize];
}

- (NSAttributedString *)attributedText {
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
}

- (UIColor *)textColor {
  return _fieldState->textColor.get();
}

- (void)setTextColor:(UIColor *)color {
  _fieldState->textColor = objcxx::share(color ? color : [UIColor labelColor]);
  _fieldState->hasOwnColor = color && !sim::isSetBySystem(self);
}

- (UIFont *)font {
  return _fieldState->font.get();
}

- (void)setFont:(UIFont *)font {
  _fieldState->font = objcxx::share(font ? font : [UIFont systemFontOfSize:[UIFont labelFontSize]]);
  [self invalidateIntrinsicContentSize];
}

- (NSTextAlignment)textAlignment {
  return _fieldState->alignment;
}

- (void)setTextAlignment:(NSTextAlignment)alignment {
  _fieldState->alignment = alignment;
}

- (UITextBorderStyle)borderStyle {
  return _fieldState->borderStyle;
}

- (void)setBorderStyle:(UITextBorderStyle)style {
  _fieldState->borderStyle = style;
  [self invalidateIntrinsicContentSize];
}

- (NSString *)placeholder {
  return _fieldState->placeholder.get();
}

- (void)setPlaceholder:(NSString *)placeholder {
  _fieldState->placeholder = objcxx::adopt((NSString *)[placeholder copy]);
  _fieldState->attributedPlaceholder = nullptr;
  [self invalidateIntrinsicContentSize];
}

- (NSAttributedString *)attributedPlaceholder {
  return _fieldState->attributedPlaceholder.get();
}

- (void)setAttributedPlaceholder:(NSAttributedString *)placeholder {
  [self setPlaceholder:[placeholder string]];
  _fieldState->attributedPlaceholder = objcxx::adopt((NSAttributedString *)[placeholder copy]);
}

- (BOOL)clearsOnBeginEditing {
  return _fieldState->clearsOnBeginEditing;
}

- (void)setClearsOnBeginEditing:(BOOL)clears {
  _fieldState->clearsOnBeginEditing = clears;
}

- (BOOL)adjustsFontSizeToFitWidth {
  return _fieldState->adjustsFontSizeToFitWidth;
}

- (void)setAdjustsFontSizeToFitWidth:(BOOL)adjusts {
  _fieldState->adjustsFontSizeToFitWidth = adjusts;
}

- (CGFloat)minimumFontSize {
  return _fieldState->minimumFontSize;
}

- (void)setMinimumFontSize:(CGFloat)size {
  _fieldState->minimumFontSize = size;
}

- (id<UITextFieldDelegate>)delegate {
  return _fieldState->delegate;
}

- (void)setDelegate:(id<UITextFieldDelegate>)delegate {
  _fieldState->delegate = delegate;
}

- (BOOL)isEditing {
  return _fieldState->editing;
}

- (UITextFieldViewMode)clearButtonMode {
  return _fieldState->clearButtonMode;
}

- (void)setClearButtonMode:(UITextFieldViewMode)mode {
  _fieldState->clearButtonMode = mode;
}

- (UIView *)leftView {
  return _fieldState->leftView.get();
}

- (void)setLeftView:(UIView *)view {
  [_fieldState->leftView.get() removeFromSuperview];
  _fieldState->leftView = objcxx::share(view);
  [self addSubview:view];
}

- (UITextFieldViewMode)leftViewMode {
  return _fieldState->leftViewMode;
}

- (void)setLeftViewMode:(UITextFieldViewMode)mode {
  _fieldState->leftViewMode = mode;
}

- (UIView *)rightView {
  return _fieldState->rightView.get();
}

- (void)setRightView:(UIView *)view {
  [_fieldState->rightView.get() removeFromSuperview];
  _fieldState->rightView = objcxx::share(view);
  [self addSubview:view];
}

- (UITextFieldViewMode)rightViewMode {
  return _fieldState->rightViewMode;
}

- (void)setRightViewMode:(UITextFieldViewMode)mode {
  _fieldState->rightViewMode = mode;
}

SIM_TEXT_INPUT_TRAITS(_fieldState->traits)

- (BOOL)canBecomeFirstResponder {
  return [self isEnabled];
}

- (BOOL)becomeFirstResponder {
  if ([self isFirstResponder]) return YES;
  if (![self canBecomeFirstResponder]) return NO;
  id<UITextFieldDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(textFieldShouldBeginEditing:)] &&
      ![delegate textFieldShouldBeginEditing:self]) {
    return NO;
  }
  if (![super becomeFirstResponder]) return NO;
  _fieldState->editing = true;
  if ([self clearsOnBeginEditing]) [self sim_clear];
  [self sendActionsForControlEvents:UIControlEventEditingDidBegin];
  if ([[self delegate] respondsToSelector:@selector(textFieldDidBeginEditing:)]) {
    [[self delegate] textFieldDidBeginEditing:self];
  }
  post(UITextFieldTextDidBeginEditingNotification, self);
  return YES;
}

- (BOOL)resignFirstResponder {
  if (![self isFirstResponder]) return YES;
  id<UITextFieldDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(textFieldShouldEndEditing:)] &&
      ![delegate textFieldShouldEndEditing:self]) {
    return NO;
  }
  if (![super resignFirstResponder]) return NO;
  _fieldState->editing = false;
  [self sendActionsForControlEvents:UIControlEventEditingDidEnd];
  if ([[self delegate] respondsToSelector:@selector(textFieldDidEndEditing:)]) {
    [[self delegate] textFieldDidEndEditing:self];
  }
  post(UITextFieldTextDidEndEditingNotification, self);
  return YES;
}

- (void)sim_changeTextTo:(NSString *)text {
  [self setText:text];
  [self sendActionsForControlEvents:UIControlEventEditingChanged];
  post(UITextFieldTextDidChangeNotification, self);
  if ([[self delegate] respondsToSelector:@selector(textFieldDidChangeSelection:)]) {
    [[self delegate] textFieldDidChangeSelection:self];
  }
}

// NO when there is nothing to clear or the delegate refuses.
- (BOOL)sim_clear {
  if ([[self text] length] == 0) return NO;
  id<UITextFieldDelegate> delegate = [self delegate];
  if ([delegate respondsToSelector:@selector(textFieldShouldClear:)] && ![delegate textFieldShouldClear:self])
    return NO;
  [self sim_changeTextTo:@""];
  return YES;
}

@end
