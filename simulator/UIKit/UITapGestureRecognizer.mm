#import <UIKit/UITapGestureRecognizer.h>

#import <UIKit/GestureMeasures.h>
#import <UIKit/GestureState.h>

namespace sim {

struct TapState {
  NSUInteger tapsRequired = 1;
  NSUInteger touchesRequired = 1;
  NSUInteger taps = 0;  ///< Of the present attempt.
  CGPoint start = CGPointZero;
};

}  // namespace sim

@implementation UITapGestureRecognizer

- (instancetype)initWithTarget:(id)target action:(SEL)action {
  if (!(self = [super initWithTarget:target action:action])) return nil;
  _tapState = std::make_unique<sim::TapState>();
  return self;
}

- (NSUInteger)numberOfTapsRequired {
  return _tapState->tapsRequired;
}

- (void)setNumberOfTapsRequired:(NSUInteger)count {
  _tapState->tapsRequired = count;
}

- (NSUInteger)numberOfTouchesRequired {
  return _tapState->touchesRequired;
}

- (void)setNumberOfTouchesRequired:(NSUInteger)count {
  _tapState->touchesRequired = count;
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesBegan:touches withEvent:event];
  UITouch *touch = [touches anyObject];
  const CGPoint place = [touch locationInView:nil];
  if (_tapState->taps == 0) _tapState->start = place;
  if (sim::distance(_tapState->start, place) > sim::kTapMovement) {
    [self setState:UIGestureRecognizerStateFailed];
    return;
  }
  [self sim_wakeAt:[touch timestamp] + sim::kLongestTap];
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesMoved:touches withEvent:event];
  if (sim::distance(_tapState->start, [[touches anyObject] locationInView:nil]) > sim::kTapMovement) {
    [self setState:UIGestureRecognizerStateFailed];
  }
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesEnded:touches withEvent:event];
  ++_tapState->taps;
  if (_tapState->touchesRequired != 1) {
    [self setState:UIGestureRecognizerStateFailed];
  } else if (_tapState->taps >= _tapState->tapsRequired) {
    [self sim_wakeAt:sim::kNever];
    [self setState:UIGestureRecognizerStateEnded];
  } else {
    [self sim_wakeAt:[[touches anyObject] timestamp] + sim::kBetweenTaps];
  }
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesCancelled:touches withEvent:event];
  [self setState:UIGestureRecognizerStateFailed];
}

- (void)sim_timeCame {
  [self setState:UIGestureRecognizerStateFailed];
}

/// The first tap of two does not take the second from who waits for both.
- (BOOL)canPreventGestureRecognizer:(UIGestureRecognizer *)other {
  const BOOL isLonger = [other isKindOfClass:[UITapGestureRecognizer class]] &&
                        [(UITapGestureRecognizer *)other numberOfTapsRequired] > _tapState -> tapsRequired;
  return !isLonger && [super canPreventGestureRecognizer:other];
}

- (void)reset {
  [super reset];
  _tapState->taps = 0;
}

@end
