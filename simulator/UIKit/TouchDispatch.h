// Who is told of a finger, and in what order: recognisers first, then the touched view.
#pragma once

#import <UIKit/TouchDelivery.h>
#import <UIKit/UIGestureRecognizer.h>
#import <UIKit/UITouch.h>
#import <UIKit/UIView.h>

#include <objcxx/Retained.h>

#include <optional>
#include <vector>

@class NSTimer;

namespace sim {

/// The one finger of the process. Main thread only.
///
/// What the code of a page raises comes through: the gesture is then forgotten as a whole, without telling anybody.
class TouchDispatch final {
 public:
  static TouchDispatch &shared();

  /// Seconds, of the clock of touches: it never runs backwards, and `skip` puts it forward.
  NSTimeInterval now() const;
  /// Puts the clock forward, as if that much time had passed: what waits for its time until then has it.
  void skip(NSTimeInterval seconds);

  bool isTouching() const { return finger_.has_value(); }
  /// When the finger last did something; 0 before.
  NSTimeInterval lastTime() const { return lastTime_; }
  /// A finger comes down on `view`, at `location` in the coordinates of the outermost view. One that is still on the
  /// screen is cancelled first. `time` is of the clock of touches, here as below: never after `now`, never before
  /// `lastTime`.
  void begin(UIView *view, CGPoint location, NSTimeInterval time);
  /// The finger goes on; nothing happens without one.
  void move(CGPoint location, NSTimeInterval time);
  void end(CGPoint location, NSTimeInterval time);
  void cancel(NSTimeInterval time);
  /// Puts the clock forward until no recogniser waits for its time.
  void wait();

  // What recognisers ask for.

  /// `recognizer` has asked for a change of its state.
  void settle(UIGestureRecognizer *recognizer);
  /// It is disabled or taken from its view.
  void withdraw(UIGestureRecognizer *recognizer);
  /// It wants to hear no more of its touch.
  void ignore(UIGestureRecognizer *recognizer);
  /// The next time that a recogniser waits for has changed.
  void setAlarm();
  /// The alarm rings.
  void ring();

 private:
  struct Finger {
    objcxx::Retained<UITouch> touch;
    std::vector<objcxx::Retained<UIGestureRecognizer>> told;
  };
  /// The last tap, for counting those in quick succession.
  struct Tap {
    UIView *view = nil;  // Not owned, only compared.
    CGPoint location = CGPointZero;
    NSTimeInterval time = 0;
    NSUInteger count = 0;
  };
  template <typename Body>
  void guarded(Body body);
  void abandon();
  void setTime(NSTimeInterval time);
  void letTimePass(NSTimeInterval until);
  NSTimeInterval firstDeadline() const;

  void liftFinger(UITouchPhase phase, SEL tells);
  void gather(UIView *view, UITouch *touch);
  void tell(SEL phase);
  bool isPending(UIGestureRecognizer *recognizer) const;

  void grantAll();
  UIGestureRecognizer *nextToGrant();
  void grant(UIGestureRecognizer *recognizer);
  bool recognise(UIGestureRecognizer *recognizer);
  void fail(UIGestureRecognizer *recognizer);
  bool mustWait(UIGestureRecognizer *recognizer) const;
  bool isPrevented(UIGestureRecognizer *recognizer) const;
  void join(UIGestureRecognizer *recognizer);
  void forgetFinished();

  void deliver(SEL phase);
  /// Grants and delivers until nobody asks for more; `phase` is what the touched view hears besides, if anything.
  void finish(SEL phase);

  std::optional<Finger> finger_;
  std::vector<objcxx::Retained<UIGestureRecognizer>> active_;  ///< Those in an attempt, the deepest view's first.
  TouchDelivery delivery_;
  Tap tap_;
  objcxx::Retained<NSTimer> alarm_;
  NSTimeInterval skipped_ = 0;
  NSTimeInterval lastTime_ = 0;
  int depth_ = 0;  // Of calls that run code of a page.
};

}  // namespace sim
