#import <UIKit/TouchDispatch.h>

#import <UIKit/GestureMeasures.h>
#import <UIKit/GestureRules.h>
#import <UIKit/GestureState.h>
#import <UIKit/UITapGestureRecognizer.h>
#import <UIKit/UITouch+Sim.h>
#import <UIKit/UIView+Sim.h>

#include <algorithm>
#include <chrono>

/// Tells the dispatch that a recogniser has waited long enough.
@interface SIMTouchAlarm : NSObject
@end

@implementation SIMTouchAlarm

- (void)ring:(NSTimer *)timer {
  (void)timer;
  sim::TouchDispatch::shared().ring();
}

@end

namespace sim {
namespace {

using Recognizers = std::vector<objcxx::Retained<UIGestureRecognizer>>;

// A recogniser that goes on asking for time, or for changes, is not waited for for ever.
constexpr int kMostRounds = 1000;

bool isIn(const Recognizers &recognizers, UIGestureRecognizer *recognizer) {
  return std::ranges::any_of(recognizers, [&](const auto &each) { return each.get() == recognizer; });
}

}  // namespace

TouchDispatch &TouchDispatch::shared() {
  static TouchDispatch *dispatch = new TouchDispatch;  // Recognisers may outlive any order of destruction.
  return *dispatch;
}

#pragma mark - Time

NSTimeInterval TouchDispatch::now() const {
  const std::chrono::duration<double> running = std::chrono::steady_clock::now().time_since_epoch();
  return running.count() + skipped_;
}

void TouchDispatch::skip(NSTimeInterval seconds) { skipped_ += std::max<NSTimeInterval>(seconds, 0); }

void TouchDispatch::setTime(NSTimeInterval time) {
  time = std::max(time, lastTime_);
  letTimePass(time);
  lastTime_ = time;
}

NSTimeInterval TouchDispatch::firstDeadline() const {
  NSTimeInterval first = kNever;
  for (const auto &each : active_) first = std::min(first, [each.get() sim_state].deadline);
  return first;
}

void TouchDispatch::letTimePass(NSTimeInterval until) {
  for (int round = 0; round < kMostRounds && firstDeadline() <= until; ++round) {
    const NSTimeInterval due = firstDeadline();
    const auto found =
        std::ranges::find_if(active_, [&](const auto &each) { return [each.get() sim_state].deadline == due; });
    const auto recognizer = *found;
    lastTime_ = std::max(lastTime_, due);
    [recognizer.get() sim_state].deadline = kNever;
    [recognizer.get() sim_timeCame];
    finish(nullptr);
    if (!finger_) forgetFinished();
  }
}

void TouchDispatch::setAlarm() {
  if (depth_ > 0) return;  // It is set when all is done.
  [alarm_.get() invalidate];
  alarm_ = nullptr;
  const NSTimeInterval first = firstDeadline();
  if (first == kNever) return;
  const auto target = objcxx::adopt([[SIMTouchAlarm alloc] init]);
  alarm_ = objcxx::share([NSTimer scheduledTimerWithTimeInterval:std::max(first - now(), 0.001)
                                                          target:target.get()
                                                        selector:@selector(ring:)
                                                        userInfo:nil
                                                         repeats:NO]);
}

void TouchDispatch::ring() {
  guarded([&] { letTimePass(now()); });
  setAlarm();
}

void TouchDispatch::wait() {
  for (int round = 0; round < kMostRounds && firstDeadline() != kNever; ++round) {
    skip(firstDeadline() - now());
    ring();
  }
}

#pragma mark - The finger

template <typename Body>
void TouchDispatch::guarded(Body body) {
  ++depth_;
  @try {
    body();
  } @catch (NSException *) {
    abandon();
    @throw;
  } @finally {
    --depth_;
  }
}

void TouchDispatch::abandon() {
  const Recognizers active = std::move(active_);
  active_.clear();
  delivery_.clear();
  finger_.reset();
  for (const auto &each : active) {
    GestureState &gesture = [each.get() sim_state];
    gesture.asked.clear();
    gesture.touch = nullptr;
    gesture.waits = gesture.recognised = false;
    gesture.deadline = kNever;
    gesture.state = UIGestureRecognizerStatePossible;
  }
}

void TouchDispatch::begin(UIView *view, CGPoint location, NSTimeInterval time) {
  guarded([&] {
    const auto kept = objcxx::share(view);
    setTime(time);
    if (finger_) liftFinger(UITouchPhaseCancelled, @selector(touchesCancelled:withEvent:));
    const bool isNext =
        tap_.view == view && lastTime_ - tap_.time < kBetweenTaps && distance(tap_.location, location) < kTapMovement;
    tap_ = {view, location, lastTime_, isNext ? tap_.count + 1 : 1};
    const auto touch = objcxx::adopt([[UITouch alloc] sim_initOnView:view
                                                            location:location
                                                                time:lastTime_
                                                            tapCount:tap_.count]);
    finger_ = Finger{touch, {}};
    delivery_.add(touch, kept);
    gather(view, touch.get());
    tell(@selector(touchesBegan:withEvent:));
    finish(nullptr);
  });
  setAlarm();
}

void TouchDispatch::move(CGPoint location, NSTimeInterval time) {
  guarded([&] {
    setTime(time);
    if (!finger_) return;
    [finger_->touch.get() sim_moveTo:location time:lastTime_ phase:UITouchPhaseMoved];
    tell(@selector(touchesMoved:withEvent:));
    finish(@selector(touchesMoved:withEvent:));
  });
  setAlarm();
}

void TouchDispatch::end(CGPoint location, NSTimeInterval time) {
  guarded([&] {
    setTime(time);
    if (!finger_) return;
    [finger_->touch.get() sim_moveTo:location time:lastTime_ phase:UITouchPhaseEnded];
    tap_.time = lastTime_;
    liftFinger(UITouchPhaseEnded, @selector(touchesEnded:withEvent:));
  });
  setAlarm();
}

void TouchDispatch::cancel(NSTimeInterval time) {
  guarded([&] {
    setTime(time);
    if (finger_) liftFinger(UITouchPhaseCancelled, @selector(touchesCancelled:withEvent:));
  });
  setAlarm();
}

void TouchDispatch::liftFinger(UITouchPhase phase, SEL tells) {
  const auto touch = finger_->touch;
  [touch.get() sim_setPhase:phase];
  tell(tells);
  grantAll();
  delivery_.lift(touch.get());
  if (phase == UITouchPhaseCancelled) deliver(tells);
  finger_.reset();
  finish(nullptr);
  // Without a finger nothing goes on: what began and was not ended is cancelled.
  for (const auto &each : Recognizers(active_)) {
    const GestureState &gesture = [each.get() sim_state];
    const bool isLeft = phase == UITouchPhaseCancelled ? gesture.touch.get() == touch.get() : gesture.recognised;
    if (isLeft && !isOver(gesture)) fail(each.get());
  }
  finish(nullptr);
  forgetFinished();
  finish(nullptr);
}

/// The recognisers of the touched view and of those above it, the deepest first.
void TouchDispatch::gather(UIView *view, UITouch *touch) {
  const auto event = touchEvent(touch);
  NSMutableArray *told = [NSMutableArray array];
  for (UIView *each = view; each; each = [each superview]) {
    for (UIGestureRecognizer *recognizer in [each gestureRecognizers]) {
      if (!receives(recognizer, touch, event.get())) continue;
      [recognizer sim_state].touch = objcxx::share(touch);
      [told addObject:recognizer];
      finger_->told.push_back(objcxx::share(recognizer));
      join(recognizer);
    }
  }
  [touch sim_setGestureRecognizers:told];
}

void TouchDispatch::tell(SEL phase) {
  const auto touch = finger_->touch;
  const auto event = touchEvent(touch.get());
  for (const auto &each : Recognizers(finger_->told)) {
    const GestureState &gesture = [each.get() sim_state];
    if (isOver(gesture) || gesture.touch.get() != touch.get()) continue;
    [each.get() performSelector:phase withObject:[NSSet setWithObject:touch.get()] withObject:event.get()];
  }
}

#pragma mark - Recognisers

void TouchDispatch::settle(UIGestureRecognizer *recognizer) {
  join(recognizer);
  if (depth_ > 0) return;  // Whoever tells recognisers looks at what they ask for afterwards.
  guarded([&] {
    finish(nullptr);
    if (!finger_) forgetFinished();
  });
}

void TouchDispatch::withdraw(UIGestureRecognizer *recognizer) {
  if (!isIn(active_, recognizer)) return;
  const auto kept = objcxx::share(recognizer);
  guarded([&] {
    if (!isOver([recognizer sim_state])) fail(recognizer);
    std::erase_if(active_, [&](const auto &each) { return each.get() == recognizer; });
    [recognizer sim_forget];
    if (depth_ == 1) finish(nullptr);
  });
  setAlarm();
}

void TouchDispatch::ignore(UIGestureRecognizer *recognizer) { [recognizer sim_state].touch = nullptr; }

void TouchDispatch::join(UIGestureRecognizer *recognizer) {
  if (!isIn(active_, recognizer)) active_.push_back(objcxx::share(recognizer));
}

/// Whether it may still be recognised by what has happened until now.
bool TouchDispatch::isPending(UIGestureRecognizer *recognizer) const {
  const GestureState &gesture = [recognizer sim_state];
  if (isOver(gesture) || gesture.recognised) return false;
  const bool isTouched = finger_ && gesture.touch.get() == finger_->touch.get();
  return isTouched || gesture.waits || !gesture.asked.empty() || gesture.deadline != kNever;
}

bool TouchDispatch::mustWait(UIGestureRecognizer *recognizer) const {
  return std::ranges::any_of(Recognizers(active_), [&](const auto &each) {
    return each.get() != recognizer && isPending(each.get()) && requiresFailure(recognizer, each.get());
  });
}

bool TouchDispatch::isPrevented(UIGestureRecognizer *recognizer) const {
  return std::ranges::any_of(Recognizers(active_), [&](const auto &each) {
    return each.get() != recognizer && [each.get() sim_state].recognised && prevents(each.get(), recognizer);
  });
}

/// The one to look at next; nil when nobody asks for anything. Of taps at the same time the one with the most comes
/// first, as it is the most that the finger can have meant.
UIGestureRecognizer *TouchDispatch::nextToGrant() {
  const auto taps = [](UIGestureRecognizer *each) -> NSUInteger {
    return [each isKindOfClass:[UITapGestureRecognizer class]] ? [(UITapGestureRecognizer *)each numberOfTapsRequired]
                                                               : 0;
  };
  UIGestureRecognizer *next = nil;
  for (const auto &each : active_) {
    const GestureState &gesture = [each.get() sim_state];
    if (gesture.asked.empty() || gesture.waits) continue;
    if (!next || taps(each.get()) > taps(next)) next = each.get();
  }
  if (next) return next;
  for (const auto &each : Recognizers(active_)) {
    const GestureState &gesture = [each.get() sim_state];
    if (!gesture.waits) continue;
    const bool givesUp = gesture.asked.back() == UIGestureRecognizerStateFailed ||
                         gesture.asked.back() == UIGestureRecognizerStateCancelled;
    if (givesUp || !mustWait(each.get())) return each.get();
  }
  return nil;
}

void TouchDispatch::grantAll() {
  for (int round = 0; round < kMostRounds; ++round) {
    const auto next = objcxx::share(nextToGrant());
    if (!next) return;
    grant(next.get());
  }
}

void TouchDispatch::grant(UIGestureRecognizer *recognizer) {
  GestureState &gesture = [recognizer sim_state];
  if (!gesture.recognised && !recognise(recognizer)) return;
  std::vector<UIGestureRecognizerState> asked = std::move(gesture.asked);
  gesture.asked.clear();
  for (UIGestureRecognizerState state : asked) {
    if (!gesture.recognised) break;  // Withdrawn by an action.
    if (state == UIGestureRecognizerStateFailed) state = UIGestureRecognizerStateCancelled;
    gesture.state = state;
    [recognizer sim_sendActions];
  }
}

/// Whether it may make the changes that it asks for; else it has failed or waits.
bool TouchDispatch::recognise(UIGestureRecognizer *recognizer) {
  GestureState &gesture = [recognizer sim_state];
  const UIGestureRecognizerState last = gesture.asked.back();
  gesture.waits = false;
  gesture.state = UIGestureRecognizerStatePossible;  // For whoever is asked.
  if (last == UIGestureRecognizerStateFailed || last == UIGestureRecognizerStateCancelled || isPrevented(recognizer)) {
    fail(recognizer);
    return false;
  }
  if (mustWait(recognizer)) {
    gesture.waits = true;
    return false;
  }
  if (!mayBegin(recognizer)) {
    fail(recognizer);
    return false;
  }
  gesture.recognised = true;
  if (gesture.asked.front() == UIGestureRecognizerStateChanged) gesture.asked.front() = UIGestureRecognizerStateBegan;
  for (const auto &each : Recognizers(active_)) {
    const GestureState &other = [each.get() sim_state];
    if (each.get() == recognizer || other.recognised || isOver(other)) continue;
    if (prevents(recognizer, each.get())) fail(each.get());
  }
  if (gesture.cancelsTouches) delivery_.takeFromViews(recognizer, finger_ ? finger_->touch.get() : nil);
  return true;
}

void TouchDispatch::fail(UIGestureRecognizer *recognizer) {
  GestureState &gesture = [recognizer sim_state];
  gesture.asked.clear();
  gesture.waits = false;
  gesture.deadline = kNever;
  gesture.state = gesture.recognised ? UIGestureRecognizerStateCancelled : UIGestureRecognizerStateFailed;
  if (gesture.recognised) [recognizer sim_sendActions];
}

/// When the finger is lifted, attempts that are over are forgotten; those that are not pending are left as they are.
void TouchDispatch::forgetFinished() {
  const Recognizers active = active_;
  std::erase_if(active_, [&](const auto &each) { return !isPending(each.get()); });
  for (const auto &each : active) {
    GestureState &gesture = [each.get() sim_state];
    if (isOver(gesture)) {
      [each.get() sim_forget];
    } else if (!isPending(each.get())) {
      gesture.touch = nullptr;
    }
  }
}

#pragma mark - The touched view

void TouchDispatch::deliver(SEL phase) {
  delivery_.deliver(phase, [this](UITouch *touch, bool atItsEnd) {
    return std::ranges::any_of(active_, [&](const auto &each) {
      const GestureState &gesture = [each.get() sim_state];
      return (atItsEnd ? gesture.delaysEnded : gesture.delaysBegan) && isPending(each.get()) &&
             [[touch gestureRecognizers] containsObject:each.get()];
    });
  });
}

void TouchDispatch::finish(SEL phase) {
  grantAll();
  deliver(phase);
  for (int round = 0; round < kMostRounds && nextToGrant(); ++round) {
    grantAll();
    deliver(nullptr);
  }
}

}  // namespace sim
