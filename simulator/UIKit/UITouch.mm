#import <UIKit/UITouch+Sim.h>
#import <UIKit/UIView.h>
#import <UIKit/UIWindow.h>

#include <objcxx/Retained.h>

namespace sim {

struct TouchState {
  objcxx::Retained<UIView> view;
  objcxx::Retained<UIWindow> window;
  objcxx::Retained<UIView> root;  ///< The outermost view, in whose coordinates the locations are.
  CGPoint location = CGPointZero;
  CGPoint previous = CGPointZero;
  NSTimeInterval time = 0;
  NSUInteger tapCount = 1;
  UITouchPhase phase = UITouchPhaseBegan;
  objcxx::Retained<NSArray> recognizers;
};

}  // namespace sim

namespace {

constexpr CGFloat kAverageForce = 1;

UIView *outermost(UIView *view) {
  while ([view superview]) view = [view superview];
  return view;
}

}  // namespace

@implementation UITouch

- (NSTimeInterval)timestamp {
  return _touchState->time;
}

- (UITouchPhase)phase {
  return _touchState->phase;
}

- (NSUInteger)tapCount {
  return _touchState->tapCount;
}

- (UITouchType)type {
  return UITouchTypeDirect;
}

- (UIWindow *)window {
  return _touchState->window.get();
}

- (UIView *)view {
  return _touchState->view.get();
}

- (NSArray *)gestureRecognizers {
  return _touchState->recognizers.get();
}

- (CGFloat)force {
  return kAverageForce;
}

- (CGFloat)maximumPossibleForce {
  return 0;
}

- (CGPoint)sim_convert:(CGPoint)location toView:(UIView *)view {
  return view ? [_touchState->root.get() convertPoint:location toView:view] : location;
}

- (CGPoint)locationInView:(UIView *)view {
  return [self sim_convert:_touchState->location toView:view];
}

- (CGPoint)previousLocationInView:(UIView *)view {
  return [self sim_convert:_touchState->previous toView:view];
}

- (CGPoint)preciseLocationInView:(UIView *)view {
  return [self locationInView:view];
}

- (CGPoint)precisePreviousLocationInView:(UIView *)view {
  return [self previousLocationInView:view];
}

@end

@implementation UITouch (Sim)

- (instancetype)sim_initOnView:(UIView *)view
                      location:(CGPoint)location
                          time:(NSTimeInterval)time
                      tapCount:(NSUInteger)tapCount {
  if (!(self = [self init])) return nil;
  _touchState = std::make_unique<sim::TouchState>();
  _touchState->view = objcxx::share(view);
  _touchState->window = objcxx::share([view window]);
  _touchState->root = objcxx::share(outermost(view));
  _touchState->location = _touchState->previous = location;
  _touchState->time = time;
  _touchState->tapCount = tapCount;
  return self;
}

- (void)sim_moveTo:(CGPoint)location time:(NSTimeInterval)time phase:(UITouchPhase)phase {
  _touchState->previous = _touchState->location;
  _touchState->location = location;
  _touchState->time = time;
  _touchState->phase = phase;
}

- (void)sim_setPhase:(UITouchPhase)phase {
  _touchState->phase = phase;
}

- (void)sim_setGestureRecognizers:(NSArray *)recognizers {
  _touchState->recognizers = objcxx::adopt((NSArray *)[recognizers copy]);
}

@end
