#import <UIKit/UILongPressGestureRecognizer.h>

#import <UIKit/GestureMeasures.h>
#import <UIKit/GestureState.h>

namespace sim {

struct PressState {
  NSUInteger tapsRequired = 0;
  NSUInteger touchesRequired = 1;
  NSTimeInterval duration = 0.5;
  CGFloat movement = 10;

  // The present attempt.
  NSUInteger taps = 0;
  CGPoint start = CGPointZero;
  bool isDown = false;
  bool began = false;
};

}  // namespace sim

@implementation UILongPressGestureRecognizer

- (instancetype)initWithTarget:(id)target action:(SEL)action {
  if (!(self = [super initWithTarget:target action:action])) return nil;
  _pressState = std::make_unique<sim::PressState>();
  return self;
}

- (NSUInteger)numberOfTapsRequired {
  return _pressState->tapsRequired;
}

- (void)setNumberOfTapsRequired:(NSUInteger)count {
  _pressState->tapsRequired = count;
}

- (NSUInteger)numberOfTouchesRequired {
  return _pressState->touchesRequired;
}

- (void)setNumberOfTouchesRequired:(NSUInteger)count {
  _pressState->touchesRequired = count;
}

- (NSTimeInterval)minimumPressDuration {
  return _pressState->duration;
}

- (void)setMinimumPressDuration:(NSTimeInterval)duration {
  _pressState->duration = duration;
}

- (CGFloat)allowableMovement {
  return _pressState->movement;
}

- (void)setAllowableMovement:(CGFloat)movement {
  _pressState->movement = movement;
}

- (void)sim_begin {
  _pressState->began = true;
  [self setState:UIGestureRecognizerStateBegan];
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesBegan:touches withEvent:event];
  UITouch *touch = [touches anyObject];
  _pressState->start = [touch locationInView:nil];
  _pressState->isDown = true;
  if (_pressState->touchesRequired != 1) {
    [self setState:UIGestureRecognizerStateFailed];
  } else if (_pressState->taps < _pressState->tapsRequired) {
    [self sim_wakeAt:[touch timestamp] + sim::kLongestTap];
  } else if (_pressState->duration > 0) {
    [self sim_wakeAt:[touch timestamp] + _pressState->duration];
  } else {
    [self sim_begin];
  }
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesMoved:touches withEvent:event];
  if (_pressState->began) {
    [self setState:UIGestureRecognizerStateChanged];
  } else if (sim::distance(_pressState->start, [[touches anyObject] locationInView:nil]) > _pressState->movement) {
    [self setState:UIGestureRecognizerStateFailed];
  }
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesEnded:touches withEvent:event];
  _pressState->isDown = false;
  if (_pressState->began) {
    [self setState:UIGestureRecognizerStateEnded];
  } else if (_pressState->taps < _pressState->tapsRequired) {
    ++_pressState->taps;
    [self sim_wakeAt:[[touches anyObject] timestamp] + sim::kBetweenTaps];
  } else {
    [self setState:UIGestureRecognizerStateFailed];
  }
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesCancelled:touches withEvent:event];
  [self setState:_pressState->began ? UIGestureRecognizerStateCancelled : UIGestureRecognizerStateFailed];
}

- (void)sim_timeCame {
  if (_pressState->isDown && _pressState->taps >= _pressState->tapsRequired) {
    [self sim_begin];
  } else {
    [self setState:UIGestureRecognizerStateFailed];
  }
}

- (void)reset {
  [super reset];
  _pressState->taps = 0;
  _pressState->isDown = _pressState->began = false;
}

@end
