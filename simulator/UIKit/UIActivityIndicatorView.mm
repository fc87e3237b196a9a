#import <UIKit/UIActivityIndicatorView.h>
#import <UIKit/UIViewLayout.h>

#include <objcxx/Retained.h>

namespace sim {

struct UIActivityIndicatorViewState {
  UIActivityIndicatorViewStyle style = UIActivityIndicatorViewStyleMedium;
  bool hidesWhenStopped = true;
  bool animating = false;
  objcxx::Retained<UIColor> color;
};

}  // namespace sim

namespace {

CGSize sizeOf(UIActivityIndicatorViewStyle style) {
  const bool large = style == UIActivityIndicatorViewStyleLarge || style == UIActivityIndicatorViewStyleWhiteLarge;
  return large ? CGSizeMake(37, 37) : CGSizeMake(20, 20);
}

UIColor *colorOf(UIActivityIndicatorViewStyle style) {
  const bool white = style == UIActivityIndicatorViewStyleWhite || style == UIActivityIndicatorViewStyleWhiteLarge;
  return white ? [UIColor whiteColor] : [UIColor systemGrayColor];
}

}  // namespace

@implementation UIActivityIndicatorView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _indicatorState = std::make_unique<sim::UIActivityIndicatorViewState>();
  [self setUserInteractionEnabled:NO];
  [self setHidden:YES];
  return self;
}

- (instancetype)initWithActivityIndicatorStyle:(UIActivityIndicatorViewStyle)style {
  if (!(self = [self initWithFrame:{CGPointZero, sizeOf(style)}])) return nil;
  _indicatorState->style = style;
  return self;
}

- (CGSize)sizeThatFits:(CGSize)size {
  (void)size;
  return sizeOf(_indicatorState->style);
}

- (UILayoutPriority)sim_defaultHuggingForAxis:(UILayoutConstraintAxis)axis {
  (void)axis;
  return UILayoutPriorityDefaultHigh;
}

- (CGSize)intrinsicContentSize {
  return sizeOf(_indicatorState->style);
}

- (UIActivityIndicatorViewStyle)activityIndicatorViewStyle {
  return _indicatorState->style;
}

- (void)setActivityIndicatorViewStyle:(UIActivityIndicatorViewStyle)style {
  _indicatorState->style = style;
  [self invalidateIntrinsicContentSize];
}

- (BOOL)hidesWhenStopped {
  return _indicatorState->hidesWhenStopped;
}

- (void)setHidesWhenStopped:(BOOL)hides {
  _indicatorState->hidesWhenStopped = hides;
  [self setHidden:hides && !_indicatorState->animating];
}

- (UIColor *)color {
  return _indicatorState->color ? _indicatorState->color.get() : colorOf(_indicatorState->style);
}

- (void)setColor:(UIColor *)color {
  _indicatorState->color = objcxx::share(color);
}

- (BOOL)isAnimating {
  return _indicatorState->animating;
}

- (void)startAnimating {
  _indicatorState->animating = true;
  [self setHidden:NO];
}

- (void)stopAnimating {
  _indicatorState->animating = false;
  [self setHidden:_indicatorState->hidesWhenStopped];
}

@end
