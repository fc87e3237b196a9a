#import <QuartzCore/CALayer+Sim.h>
#import <UIKit/UIResponder+Sim.h>
#import <UIKit/UIScreen.h>
#import <UIKit/UIViewLayout.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewController+Sim.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

const CGFloat UIViewNoIntrinsicMetric = -1;

namespace {

objcxx::Retained<NSString> copied(NSString *string) { return objcxx::adopt((NSString *)[string copy]); }

}  // namespace

@implementation UIView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super init])) return nil;
  static NSUInteger lastNumber = 0;
  _state = std::make_unique<sim::UIViewState>();
  _state->number = ++lastNumber;
  const CGRect standard = CGRectStandardize(frame);
  _state->origin = standard.origin;
  _state->bounds.size = standard.size;
  static const IMP kNoUpdate = [UIView instanceMethodForSelector:@selector(updateConstraints)];
  const bool updates = [self methodForSelector:@selector(updateConstraints)] != kNoUpdate;
  _state->needsUpdateConstraints = _state->treeNeedsUpdateConstraints = updates;
  return self;
}

- (instancetype)init {
  return [self initWithFrame:CGRectZero];
}

- (void)dealloc {
  if (!_state) {  // An init that failed before ours ran.
    [super dealloc];
    return;
  }
  if (_state->layout) _state->layout->letGo();
  for (const auto &subview : _state->subviews) subview.get()->_state->superview = nil;
  [self sim_letGoOfRecognizers];
  [_state->layer.get() setDelegate:nil];
  [_state->layer.get() sim_setOwner:nil];
  [super dealloc];
}

- (sim::UIViewState &)sim_state {
  return *_state;
}

- (UIResponder *)nextResponder {
  if (_state->viewController) return _state->viewController;
  return _state->superview;
}

- (NSInteger)tag {
  return _state->tag;
}

- (void)setTag:(NSInteger)tag {
  _state->tag = tag;
}

- (BOOL)isUserInteractionEnabled {
  return _state->userInteractionEnabled;
}

- (void)setUserInteractionEnabled:(BOOL)enabled {
  _state->userInteractionEnabled = enabled;
}

- (NSString *)accessibilityLabel {
  return _state->accessibilityLabel.get();
}

- (void)setAccessibilityLabel:(NSString *)label {
  _state->accessibilityLabel = copied(label);
}

- (NSString *)accessibilityHint {
  return _state->accessibilityHint.get();
}

- (void)setAccessibilityHint:(NSString *)hint {
  _state->accessibilityHint = copied(hint);
}

- (NSString *)accessibilityValue {
  return _state->accessibilityValue.get();
}

- (void)setAccessibilityValue:(NSString *)value {
  _state->accessibilityValue = copied(value);
}

- (NSString *)accessibilityIdentifier {
  return _state->accessibilityIdentifier.get();
}

- (void)setAccessibilityIdentifier:(NSString *)identifier {
  _state->accessibilityIdentifier = copied(identifier);
}

- (BOOL)isAccessibilityElement {
  return _state->isAccessibilityElement;
}

- (void)setIsAccessibilityElement:(BOOL)isElement {
  _state->isAccessibilityElement = isElement;
}

@end

@implementation UIView (UIViewRendering)

- (BOOL)clipsToBounds {
  return _state->clipsToBounds;
}

- (void)setClipsToBounds:(BOOL)clips {
  _state->clipsToBounds = clips;
}

- (UIColor *)backgroundColor {
  return _state->backgroundColor.get();
}

- (void)setBackgroundColor:(UIColor *)color {
  _state->backgroundColor = objcxx::adopt((UIColor *)[color copy]);
}

- (CGFloat)alpha {
  return _state->alpha;
}

- (void)setAlpha:(CGFloat)alpha {
  _state->alpha = std::isnan(alpha) ? 0 : std::clamp(alpha, CGFloat(0), CGFloat(1));
}

- (BOOL)isOpaque {
  return _state->opaque;
}

- (void)setOpaque:(BOOL)opaque {
  _state->opaque = opaque;
}

- (BOOL)isHidden {
  return _state->hidden;
}

- (void)setHidden:(BOOL)hidden {
  if (_state->hidden == (hidden != NO)) return;
  _state->hidden = hidden;
  [_state->superview sim_arrangementChanged];
}

- (UIViewContentMode)contentMode {
  return _state->contentMode;
}

- (void)setContentMode:(UIViewContentMode)mode {
  _state->contentMode = mode;
}

- (UIColor *)tintColor {
  for (UIView *view = self; view; view = view->_state->superview) {
    if (view->_state->tintColor) return view->_state->tintColor.get();
  }
  return [UIColor systemBlueColor];
}

- (void)setTintColor:(UIColor *)color {
  _state->tintColor = objcxx::share(color);
  [self sim_tintColorDidChange];
}

- (void)sim_tintColorDidChange {
  [self tintColorDidChange];
  for (UIView *subview in [self subviews]) {
    if (!subview->_state->tintColor) [subview sim_tintColorDidChange];
  }
}

- (void)tintColorDidChange {
}

@end

@implementation UIView (Sim)

- (void)sim_setViewController:(UIResponder *)controller {
  _state->viewController = controller;
  static const IMP kNoUpdate = [UIViewController instanceMethodForSelector:@selector(updateViewConstraints)];
  const SEL update = @selector(updateViewConstraints);
  if ([controller respondsToSelector:update] && [controller methodForSelector:update] != kNoUpdate) {
    [self setNeedsUpdateConstraints];
  }
}

- (BOOL)sim_acceptsTouches {
  constexpr CGFloat leastVisible = 0.01;
  for (UIView *view = self; view; view = view->_state->superview) {
    const sim::UIViewState &state = *view->_state;
    if (state.hidden || state.alpha < leastVisible || !state.userInteractionEnabled) return NO;
  }
  return YES;
}

- (NSUInteger)sim_number {
  return _state->number;
}

@end
