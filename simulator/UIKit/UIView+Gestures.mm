// What a finger touches, and the recognisers of a view.
#import <UIKit/GestureState.h>
#import <UIKit/UIContextMenuInteraction+Sim.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

namespace {

constexpr CGFloat kLeastVisible = 0.01;

}  // namespace

@implementation UIView (UIViewTouches)

- (BOOL)isMultipleTouchEnabled {
  return _state->multipleTouchEnabled;
}

- (void)setMultipleTouchEnabled:(BOOL)enabled {
  _state->multipleTouchEnabled = enabled;
}

- (BOOL)isExclusiveTouch {
  return _state->exclusiveTouch;
}

- (void)setExclusiveTouch:(BOOL)exclusive {
  _state->exclusiveTouch = exclusive;
}

- (UIView *)hitTest:(CGPoint)point withEvent:(UIEvent *)event {
  if (_state->hidden || _state->alpha < kLeastVisible || !_state->userInteractionEnabled) return nil;
  if (![self pointInside:point withEvent:event]) return nil;
  for (UIView *subview in [[self subviews] reverseObjectEnumerator]) {
    if (UIView *hit = [subview hitTest:[subview convertPoint:point fromView:self] withEvent:event]) return hit;
  }
  return self;
}

- (BOOL)pointInside:(CGPoint)point withEvent:(UIEvent *)event {
  (void)event;
  return CGRectContainsPoint([self bounds], point);
}

@end

@implementation UIView (UIViewGestureRecognizers)

- (NSArray *)gestureRecognizers {
  const auto &recognizers = _state->gestureRecognizers;
  if (recognizers.empty()) return nil;
  NSMutableArray *all = [NSMutableArray arrayWithCapacity:recognizers.size()];
  for (const auto &each : recognizers) [all addObject:each.get()];
  return all;
}

- (void)setGestureRecognizers:(NSArray *)recognizers {
  NSArray *wanted = [[recognizers copy] autorelease];
  for (UIGestureRecognizer *each in [self gestureRecognizers]) [self removeGestureRecognizer:each];
  for (UIGestureRecognizer *each in wanted) [self addGestureRecognizer:each];
}

- (void)addGestureRecognizer:(UIGestureRecognizer *)recognizer {
  if (!recognizer || [recognizer view] == self) return;
  const auto added = objcxx::share(recognizer);
  [[recognizer view] removeGestureRecognizer:recognizer];
  [recognizer sim_setView:self];
  _state->gestureRecognizers.push_back(added);
}

- (void)removeGestureRecognizer:(UIGestureRecognizer *)recognizer {
  if (!recognizer || [recognizer view] != self) return;
  const auto kept = objcxx::share(recognizer);
  std::erase_if(_state->gestureRecognizers, [&](const auto &each) { return each.get() == recognizer; });
  [recognizer sim_setView:nil];
}

- (BOOL)gestureRecognizerShouldBegin:(UIGestureRecognizer *)recognizer {
  (void)recognizer;
  return YES;
}

@end

@implementation UIView (SimGestures)

- (void)sim_letGoOfRecognizers {
  for (const auto &each : _state->gestureRecognizers) [each.get() sim_state].view = nil;
  for (const auto &each : _state->interactions) {
    const bool isMenu = [each.get() isKindOfClass:[UIContextMenuInteraction class]];
    if (isMenu) [(UIContextMenuInteraction *)each.get() sim_letGoOfView];
  }
}

@end
