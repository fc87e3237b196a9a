#import <UIKit/UISwipeGestureRecognizer.h>

#import <UIKit/GestureMeasures.h>
#import <UIKit/GestureState.h>

namespace sim {

struct SwipeState {
  NSUInteger touchesRequired = 1;
  UISwipeGestureRecognizerDirection direction = UISwipeGestureRecognizerDirectionRight;
  CGPoint start = CGPointZero;  ///< Of the present attempt.
};

}  // namespace sim

namespace {

/// Where a stroke by `dx`, `dy` points goes so far: nothing while it is too short.
NSUInteger directionOf(CGFloat dx, CGFloat dy) {
  NSUInteger direction = 0;
  if (std::abs(dx) >= sim::kSwipeLength && std::abs(dy) <= sim::kSwipeWidth) {
    direction |= dx > 0 ? UISwipeGestureRecognizerDirectionRight : UISwipeGestureRecognizerDirectionLeft;
  }
  if (std::abs(dy) >= sim::kSwipeLength && std::abs(dx) <= sim::kSwipeWidth) {
    direction |= dy > 0 ? UISwipeGestureRecognizerDirectionDown : UISwipeGestureRecognizerDirectionUp;
  }
  return direction;
}

}  // namespace

@implementation UISwipeGestureRecognizer

- (instancetype)initWithTarget:(id)target action:(SEL)action {
  if (!(self = [super initWithTarget:target action:action])) return nil;
  _swipeState = std::make_unique<sim::SwipeState>();
  return self;
}

- (NSUInteger)numberOfTouchesRequired {
  return _swipeState->touchesRequired;
}

- (void)setNumberOfTouchesRequired:(NSUInteger)count {
  _swipeState->touchesRequired = count;
}

- (UISwipeGestureRecognizerDirection)direction {
  return _swipeState->direction;
}

- (void)setDirection:(UISwipeGestureRecognizerDirection)direction {
  _swipeState->direction = direction;
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesBegan:touches withEvent:event];
  UITouch *touch = [touches anyObject];
  _swipeState->start = [touch locationInView:nil];
  [self sim_wakeAt:[touch timestamp] + sim::kLongestSwipe];
  if (_swipeState->touchesRequired != 1) [self setState:UIGestureRecognizerStateFailed];
}

- (void)sim_follow:(UITouch *)touch {
  const CGPoint place = [touch locationInView:nil];
  const NSUInteger direction = directionOf(place.x - _swipeState->start.x, place.y - _swipeState->start.y);
  if (direction & _swipeState->direction) {
    [self sim_wakeAt:sim::kNever];
    [self setState:UIGestureRecognizerStateEnded];
  } else if (direction != 0) {
    [self setState:UIGestureRecognizerStateFailed];  // The stroke goes elsewhere.
  }
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesMoved:touches withEvent:event];
  [self sim_follow:[touches anyObject]];
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesEnded:touches withEvent:event];
  [self sim_follow:[touches anyObject]];
  [self setState:UIGestureRecognizerStateFailed];  // Unless it was recognised just now.
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  [super touchesCancelled:touches withEvent:event];
  [self setState:UIGestureRecognizerStateFailed];
}

- (void)sim_timeCame {
  [self setState:UIGestureRecognizerStateFailed];
}

@end
