// What a recogniser remembers. Included by the sources of recognisers and of the dispatch of touches only.
#pragma once

#import <UIKit/UIGestureRecognizerSubclass.h>

#include <objcxx/Retained.h>

#include <limits>
#include <vector>

namespace sim {

constexpr NSTimeInterval kNever = std::numeric_limits<NSTimeInterval>::infinity();

struct GestureTarget {
  id target = nil;  // Not owned.
  SEL action = nullptr;
};

struct GestureState {
  std::vector<GestureTarget> targets;
  id<UIGestureRecognizerDelegate> delegate = nil;  // Not owned.
  UIView *view = nil;                              // Not owned; cleared by the view.
  bool enabled = true;
  bool cancelsTouches = true;
  bool delaysBegan = false;
  bool delaysEnded = true;
  objcxx::Retained<NSArray> touchTypes;
  objcxx::Retained<NSString> name;
  std::vector<objcxx::Retained<UIGestureRecognizer>> required;  ///< Those that have to fail first.

  // The present attempt.
  UIGestureRecognizerState state = UIGestureRecognizerStatePossible;  ///< As targets see it.
  std::vector<UIGestureRecognizerState> asked;                        ///< Changes asked for and not made, in order.
  objcxx::Retained<UITouch> touch;   ///< The finger that it is told of, also after that is lifted; nothing before.
  bool waits = false;                ///< What it asked for is put off until others have failed.
  bool recognised = false;           ///< It has begun, or ended at once.
  NSTimeInterval deadline = kNever;  ///< When to call `sim_timeCame`.
};

inline bool isOver(const GestureState &gesture) {
  return gesture.state == UIGestureRecognizerStateEnded || gesture.state == UIGestureRecognizerStateCancelled ||
         gesture.state == UIGestureRecognizerStateFailed;
}

}  // namespace sim

/// Between a recogniser, its kinds and the dispatch of touches.
@interface UIGestureRecognizer (State)
- (sim::GestureState &)sim_state;
@end

@interface UIGestureRecognizer (Sim)
/// The view that it is on from now on; what it was at on the former one is cancelled.
- (void)sim_setView:(UIView *)view;
/// Calls `sim_timeCame` when the finger's clock shows `time`, unless the attempt is over by then; one time at once.
- (void)sim_wakeAt:(NSTimeInterval)time;
/// For subclasses; nothing here.
- (void)sim_timeCame;
/// Tells the targets.
- (void)sim_sendActions;
/// Ends the attempt: `reset`, and possible again.
- (void)sim_forget;
@end
