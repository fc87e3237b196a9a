#import <UIKit/UITouch+Sim.h>

#include <objcxx/Retained.h>

namespace sim {

struct EventState {
  objcxx::Retained<UITouch> touch;
};

}  // namespace sim

@implementation UIEvent

- (UIEventType)type {
  return UIEventTypeTouches;
}

- (UIEventSubtype)subtype {
  return UIEventSubtypeNone;
}

- (UITouch *)sim_touch {
  return _eventState ? _eventState->touch.get() : nil;
}

- (NSSet *)sim_touchIf:(BOOL)isMeant {
  return isMeant && [self sim_touch] ? [NSSet setWithObject:[self sim_touch]] : [NSSet set];
}

- (NSTimeInterval)timestamp {
  return [[self sim_touch] timestamp];
}

- (NSSet *)allTouches {
  return [self sim_touchIf:YES];
}

- (NSSet *)touchesForWindow:(UIWindow *)window {
  return [self sim_touchIf:[[self sim_touch] window] == window];
}

- (NSSet *)touchesForView:(UIView *)view {
  return [self sim_touchIf:[[self sim_touch] view] == view];
}

- (NSSet *)touchesForGestureRecognizer:(UIGestureRecognizer *)recognizer {
  return [self sim_touchIf:[[[self sim_touch] gestureRecognizers] containsObject:recognizer]];
}

- (NSArray *)coalescedTouchesForTouch:(UITouch *)touch {
  return touch ? [NSArray arrayWithObject:touch] : [NSArray array];
}

- (NSArray *)predictedTouchesForTouch:(UITouch *)touch {
  (void)touch;
  return [NSArray array];
}

@end

@implementation UIEvent (Sim)

- (instancetype)sim_initWithTouch:(UITouch *)touch {
  if (!(self = [self init])) return nil;
  _eventState = std::make_unique<sim::EventState>();
  _eventState->touch = objcxx::share(touch);
  return self;
}

@end
