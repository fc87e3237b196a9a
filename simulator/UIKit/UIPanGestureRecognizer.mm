#import <UIKit/UIPanGestureRecognizer.h>

#import <UIKit/GestureMeasures.h>
#import <UIKit/GestureState.h>
#import <UIKit/UIView.h>

#include <deque>

namespace sim {

struct PanState {
  NSUInteger least = 1;
  NSUInteger most = NSUIntegerMax;

  struct Sample {
    CGPoint place;
    NSTimeInterval time;
  };
  // The present attempt; places are in the coordinates of the outermost view.
  CGPoint start = CGPointZero;
  CGPoint origin = CGPointZero;  ///< From where the translation counts.
  CGPoint place = CGPointZero;
  std::deque<Sample> samples;  ///< The latest ones, oldest first.
  bool began = false;
};

}  // namespace sim

namespace {

CGPoint intoView(CGPoint place, UIView *view) { return view ? [view convertPoint:place fromView:nil] : place; }

}  // namespace

@implementation UIPanGestureRecognizer

- (instancetype)initWithTarget:(id)target action:(SEL)action {
  if (!(self = [super initWithTarget:target action:action])) return nil;
  _panState = std::make_unique<sim::PanState>();
  return self;
}

- (NSUInteger)minimumNumberOfTouches {
  return _panState->least;
}

- (void)setMinimumNumberOfTouches:(NSUInteger)count {
  _panState->least = count;
}

- (NSUInteger)maximumNumberOfTouches {
  return _panState->most;
}

- (void)setMaximumNumberOfTouches:(NSUInteger)count {
  _panState->most = count;
}

- (CGPoint)translationInView:(UIView *)view {
  const CGPoint from = intoView(_panState->origin, view);
  const CGPoint to = intoView(_panState->place, view);
  return CGPointMake(to.x - from.x, to.y - from.y);
}

- (void)setTranslation:(CGPoint)translation inView:(UIView *)view {
  const CGPoint to = intoView(_panState->place, view);
  const CGPoint from = CGPointMake(to.x - translation.x, to.y - translation.y);
  _panState->origin = view ? [view convertPoint:from toView:nil] : from;
}

- (CGPoint)velocityInView:(UIView *)view {
  const auto &samples = _panState->samples;
  if (samples.size() < 2) return CGPointZero;
  const NSTimeInterval time = samples.back().time - samples.front().time;
  if (!(time > 0)) return CGPointZero;
  const CGPoint from = intoView(samples.front().place, view);
  const CGPoint to = intoView(samples.back().place, view);
  return CGPointMake((to.x - from.x) / time, (to.y - from.y) / time);
}

- (void)sim_follow:(UITouch *)touch {
  _panState->place = [touch locationInView:nil];
  auto &samples = _panState->samples;
  samples.push_back({_panState->place, [touch timestamp]});
  while (samples.front().time < [touch timestamp] - sim::kVelocitySpan) samples.pop_front();
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesBegan:touches withEvent:event];
  UITouch *touch = [touches anyObject];
  _panState->samples.clear();
  _panState->start = _panState->origin = [touch locationInView:nil];
  _panState->began = false;
  [self sim_follow:touch];
  if (_panState->least > 1 || _panState->most < 1) [self setState:UIGestureRecognizerStateFailed];
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesMoved:touches withEvent:event];
  [self sim_follow:[touches anyObject]];
  if (_panState->began) {
    [self setState:UIGestureRecognizerStateChanged];
  } else if (sim::distance(_panState->start, _panState->place) >= sim::kDragBegins) {
    _panState->began = true;
    [self setState:UIGestureRecognizerStateBegan];
  }
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesEnded:touches withEvent:event];
  [self sim_follow:[touches anyObject]];
  [self setState:_panState->began ? UIGestureRecognizerStateEnded : UIGestureRecognizerStateFailed];
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesCancelled:touches withEvent:event];
  [self setState:_panState->began ? UIGestureRecognizerStateCancelled : UIGestureRecognizerStateFailed];
}

- (void)reset {
  [super reset];
  _panState->began = false;
}

@end
