#import <UIKit/GestureState.h>
#import <UIKit/TouchDispatch.h>
#import <UIKit/UIView.h>

#include <objc/runtime.h>

#include <algorithm>
#include <string_view>

namespace {

bool isSame(const sim::GestureTarget &one, id target, SEL action) {
  return (!target || one.target == target) && (!action || sel_isEqual(one.action, action));
}

NSArray *everyTouchType() {
  return [NSArray arrayWithObjects:[NSNumber numberWithInteger:UITouchTypeDirect],
                                   [NSNumber numberWithInteger:UITouchTypeIndirect],
                                   [NSNumber numberWithInteger:UITouchTypePencil], nil];
}

}  // namespace

@implementation UIGestureRecognizer

- (instancetype)initWithTarget:(id)target action:(SEL)action {
  if (!(self = [super init])) return nil;
  _gestureState = std::make_unique<sim::GestureState>();
  _gestureState->touchTypes = objcxx::share(everyTouchType());
  if (target && action) [self addTarget:target action:action];
  return self;
}

- (instancetype)init {
  return [self initWithTarget:nil action:NULL];
}

- (sim::GestureState &)sim_state {
  return *_gestureState;
}

- (void)addTarget:(id)target action:(SEL)action {
  if (!target || !action) return;
  const bool isKnown = std::ranges::any_of(
      _gestureState->targets, [&](const sim::GestureTarget &each) { return isSame(each, target, action); });
  if (!isKnown) _gestureState->targets.push_back({target, action});
}

- (void)removeTarget:(id)target action:(SEL)action {
  std::erase_if(_gestureState->targets, [&](const sim::GestureTarget &each) { return isSame(each, target, action); });
}

- (UIGestureRecognizerState)state {
  return _gestureState->state;
}

- (id<UIGestureRecognizerDelegate>)delegate {
  return _gestureState->delegate;
}

- (void)setDelegate:(id<UIGestureRecognizerDelegate>)delegate {
  _gestureState->delegate = delegate;
}

- (BOOL)isEnabled {
  return _gestureState->enabled;
}

- (void)setEnabled:(BOOL)enabled {
  _gestureState->enabled = enabled;
  if (!enabled) sim::TouchDispatch::shared().withdraw(self);
}

- (UIView *)view {
  return _gestureState->view;
}

- (BOOL)cancelsTouchesInView {
  return _gestureState->cancelsTouches;
}

- (void)setCancelsTouchesInView:(BOOL)cancels {
  _gestureState->cancelsTouches = cancels;
}

- (BOOL)delaysTouchesBegan {
  return _gestureState->delaysBegan;
}

- (void)setDelaysTouchesBegan:(BOOL)delays {
  _gestureState->delaysBegan = delays;
}

- (BOOL)delaysTouchesEnded {
  return _gestureState->delaysEnded;
}

- (void)setDelaysTouchesEnded:(BOOL)delays {
  _gestureState->delaysEnded = delays;
}

- (NSArray *)allowedTouchTypes {
  return _gestureState->touchTypes.get();
}

- (void)setAllowedTouchTypes:(NSArray *)types {
  _gestureState->touchTypes = objcxx::adopt((NSArray *)[types copy]);
}

- (NSString *)name {
  return _gestureState->name.get();
}

- (void)setName:(NSString *)name {
  _gestureState->name = objcxx::adopt((NSString *)[name copy]);
}

- (NSString *)description {
  NSString *name = [self name] ? [NSString stringWithFormat:@" \"%@\"", [self name]] : @"";
  return [NSString stringWithFormat:@"<%@: %p%@; state = %ld; view = %@>", [self class], (void *)self, name,
                                    (long)[self state], [[self view] class]];
}

- (void)requireGestureRecognizerToFail:(UIGestureRecognizer *)other {
  if (!other || other == self) return;
  _gestureState->required.push_back(objcxx::share(other));
}

- (CGPoint)locationInView:(UIView *)view {
  return [_gestureState->touch.get() locationInView:view];
}

- (NSUInteger)numberOfTouches {
  return _gestureState->touch ? 1 : 0;
}

- (CGPoint)locationOfTouch:(NSUInteger)index inView:(UIView *)view {
  if (index >= [self numberOfTouches]) {
    [NSException raise:NSRangeException format:@"The gesture has %lu touches.", (unsigned long)[self numberOfTouches]];
  }
  return [self locationInView:view];
}

@end

@implementation UIGestureRecognizer (UIGestureRecognizerProtected)

@dynamic state;

- (void)setState:(UIGestureRecognizerState)state {
  sim::GestureState &gesture = *_gestureState;
  if (isOver(gesture) || state == UIGestureRecognizerStatePossible) return;
  const auto kept = objcxx::share(self);
  // Several changes before the targets hear of one are one change.
  const bool isRepeated = state == UIGestureRecognizerStateChanged && !gesture.asked.empty();
  if (!isRepeated) gesture.asked.push_back(state);
  if (!gesture.waits) gesture.state = state;
  sim::TouchDispatch::shared().settle(self);
}

- (void)ignoreTouch:(UITouch *)touch forEvent:(UIEvent *)event {
  (void)event;
  if (_gestureState->touch.get() == touch) sim::TouchDispatch::shared().ignore(self);
}

- (void)reset {
}

- (BOOL)canPreventGestureRecognizer:(UIGestureRecognizer *)other {
  (void)other;
  return YES;
}

- (BOOL)canBePreventedByGestureRecognizer:(UIGestureRecognizer *)other {
  (void)other;
  return YES;
}

- (BOOL)shouldRequireFailureOfGestureRecognizer:(UIGestureRecognizer *)other {
  (void)other;
  return NO;
}

- (BOOL)shouldBeRequiredToFailByGestureRecognizer:(UIGestureRecognizer *)other {
  (void)other;
  return NO;
}

- (BOOL)shouldReceiveEvent:(UIEvent *)event {
  (void)event;
  return YES;
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)touches;
  (void)event;
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)touches;
  (void)event;
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)touches;
  (void)event;
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)touches;
  (void)event;
}

@end

@implementation UIGestureRecognizer (Sim)

- (void)sim_setView:(UIView *)view {
  if (_gestureState->view == view) return;
  sim::TouchDispatch::shared().withdraw(self);
  _gestureState->view = view;
}

- (void)sim_wakeAt:(NSTimeInterval)time {
  _gestureState->deadline = time;
  sim::TouchDispatch::shared().setAlarm();
}

- (void)sim_timeCame {
}

- (void)sim_sendActions {
  const auto kept = objcxx::share(self);
  // An action may remove targets, and may be the end of a later one.
  std::vector<std::pair<objcxx::Retained<NSObject>, SEL>> calls;
  for (const sim::GestureTarget &each : _gestureState->targets) {
    calls.emplace_back(objcxx::share((NSObject *)each.target), each.action);
  }
  for (const auto &[target, action] : calls) {
    const std::string_view name = sel_getName(action);
    if (name.ends_with(':')) {
      [target.get() performSelector:action withObject:self];
    } else {
      [target.get() performSelector:action];
    }
  }
}

- (void)sim_forget {
  sim::GestureState &gesture = *_gestureState;
  gesture.asked.clear();
  gesture.waits = false;
  gesture.recognised = false;
  gesture.deadline = sim::kNever;
  [self reset];
  gesture.touch = nullptr;
  gesture.state = UIGestureRecognizerStatePossible;
}

@end
