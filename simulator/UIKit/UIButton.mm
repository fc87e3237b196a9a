#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIButtonState.h>
#import <UIKit/UILabel+Sim.h>

namespace {

// What was set for the state, else what was set for normal, else nil.
template <typename Value>
Value *valueFor(const sim::PerState<Value> &values, UIControlState state) {
  const auto own = values.find(state);
  if (own != values.end()) return own->second.get();
  const auto normal = values.find(UIControlStateNormal);
  return normal != values.end() ? normal->second.get() : nil;
}

template <typename Value>
void set(sim::PerState<Value> &values, UIControlState state, const objcxx::Retained<Value> &value) {
  if (value) values[state] = value;
  else values.erase(state);
}

constexpr CGFloat kSystemTitleSize = 15;

}  // namespace

@implementation UIButton

+ (instancetype)buttonWithType:(UIButtonType)type {
  UIButton *button = [[[self alloc] initWithFrame:CGRectZero] autorelease];
  button->_buttonState->type = type;
  return button;
}

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _buttonState = std::make_unique<sim::UIButtonState>();
  return self;
}

- (BOOL)sim_takesTaps {
  return YES;
}

- (UIButtonType)buttonType {
  return _buttonState->type;
}

- (UILabel *)titleLabel {
  if (!_buttonState->titleLabel) {
    _buttonState->titleLabel = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectZero]);
    UILabel *label = _buttonState->titleLabel.get();
    const bool isSystem = _buttonState->type == UIButtonTypeSystem;
    const sim::SystemSets system;
    [label setFont:[UIFont systemFontOfSize:isSystem ? kSystemTitleSize : [UIFont buttonFontSize]]];
    [label setLineBreakMode:NSLineBreakByTruncatingMiddle];
    [self addSubview:label];
    [self sim_showCurrent];
  }
  return _buttonState->titleLabel.get();
}

- (UIImageView *)imageView {
  if (!_buttonState->imageView) {
    _buttonState->imageView = objcxx::adopt([[UIImageView alloc] initWithImage:[self currentImage]]);
    [self addSubview:_buttonState->imageView.get()];
    [self setNeedsLayout];
  }
  return _buttonState->imageView.get();
}

- (void)sim_showBackground {
  UIImage *background = [self backgroundImageForState:[self state]];
  if (background && !_buttonState->backgroundView) {
    _buttonState->backgroundView = objcxx::adopt([[UIImageView alloc] initWithFrame:[self bounds]]);
    [self insertSubview:_buttonState->backgroundView.get() atIndex:0];
  }
  [_buttonState->backgroundView.get() setImage:background];
}

- (BOOL)sim_hasTitle {
  return [[self currentTitle] length] > 0 || [[self currentAttributedTitle] length] > 0;
}

/// Whether the title has a colour that the button was given, by its type at least: the tint that all begin with is the
/// system's.
- (BOOL)sim_hasOwnTitleColor {
  const UIControlState state = [self state];
  if (valueFor(_buttonState->titleColors, state) || _buttonState->type == UIButtonTypeCustom) return YES;
  return !(state & UIControlStateDisabled) && ![[self tintColor] isEqual:[UIColor systemBlueColor]];
}

- (void)sim_showCurrent {
  if ([self sim_hasTitle] || _buttonState->titleLabel) {
    const sim::SystemSets system;
    UILabel *label = [self titleLabel];
    [label setText:[self currentTitle]];
    [label setTextColor:[self currentTitleColor]];
    if (NSAttributedString *title = [self currentAttributedTitle]) [label setAttributedText:title];
    [label sim_setHasOwnColor:[self sim_hasOwnTitleColor] inAttributes:YES];
  }
  if ([self currentImage] || _buttonState->imageView) [[self imageView] setImage:[self currentImage]];
  [self sim_showBackground];
  [self setNeedsLayout];
  [self invalidateIntrinsicContentSize];
}

- (void)setEnabled:(BOOL)enabled {
  [super setEnabled:enabled];
  [self sim_showCurrent];
}

- (void)setSelected:(BOOL)selected {
  [super setSelected:selected];
  [self sim_showCurrent];
}

- (void)setHighlighted:(BOOL)highlighted {
  [super setHighlighted:highlighted];
  [self sim_showCurrent];
}

- (void)tintColorDidChange {
  [super tintColorDidChange];
  [self sim_showCurrent];
}

- (void)setTitle:(NSString *)title forState:(UIControlState)state {
  set(_buttonState->titles, state, objcxx::adopt((NSString *)[title copy]));
  [self sim_showCurrent];
}

- (void)setAttributedTitle:(NSAttributedString *)title forState:(UIControlState)state {
  set(_buttonState->attributedTitles, state, objcxx::adopt((NSAttributedString *)[title copy]));
  [self sim_showCurrent];
}

- (void)setTitleColor:(UIColor *)color forState:(UIControlState)state {
  set(_buttonState->titleColors, state, objcxx::share(color));
  [self sim_showCurrent];
}

- (void)setImage:(UIImage *)image forState:(UIControlState)state {
  set(_buttonState->images, state, objcxx::share(image));
  [self sim_showCurrent];
}

- (void)setBackgroundImage:(UIImage *)image forState:(UIControlState)state {
  set(_buttonState->backgroundImages, state, objcxx::share(image));
  [self sim_showCurrent];
}

- (NSString *)titleForState:(UIControlState)state {
  return valueFor(_buttonState->titles, state);
}

- (NSAttributedString *)attributedTitleForState:(UIControlState)state {
  return valueFor(_buttonState->attributedTitles, state);
}

- (UIColor *)titleColorForState:(UIControlState)state {
  if (UIColor *color = valueFor(_buttonState->titleColors, state)) return color;
  if (_buttonState->type == UIButtonTypeCustom) return [UIColor whiteColor];
  return state & UIControlStateDisabled ? [UIColor tertiaryLabelColor] : [self tintColor];
}

- (UIImage *)imageForState:(UIControlState)state {
  return valueFor(_buttonState->images, state);
}

- (UIImage *)backgroundImageForState:(UIControlState)state {
  return valueFor(_buttonState->backgroundImages, state);
}

- (NSString *)currentTitle {
  return [self titleForState:[self state]];
}

- (NSAttributedString *)currentAttributedTitle {
  return [self attributedTitleForState:[self state]];
}

- (UIColor *)currentTitleColor {
  return [self titleColorForState:[self state]];
}

- (UIImage *)currentImage {
  return [self imageForState:[self state]];
}

@end
