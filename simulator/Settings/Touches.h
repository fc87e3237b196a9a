// A finger on the views of a page, as the automation interface shows what it can touch and moves it.
#pragma once

#import <UIKit/UIKit.h>

#include <optional>

#include "Settings/EventResult.hpp"
#import "Settings/JsonValues.h"

namespace sim {

/// What a finger on a view leads to.
struct Touchability {
  bool touched = false;  ///< Something is told of touches: a recogniser, or a view that takes them itself.
  bool dragged = false;  ///< A drag means something, so that it should not scroll the page.
};

/// Of `view` itself: its recognisers and the touch methods of its class, if that is none of the frameworks'.
Touchability touchabilityOf(UIView *view);
/// Of everything that a finger can reach at or below `view`, buttons included when they are `withButtons`.
Touchability touchabilityIn(UIView *view, bool withButtons);
/// Of what lies around `view`, up to the window.
Touchability touchabilityAround(UIView *view);
/// Whether a finger that stays on `view` may open a menu, of the view or of what lies around it.
bool hasContextMenu(UIView *view);
/// Whether touches on `view` are worth telling: at, in or around it.
bool isTouchable(UIView *view, bool withButtons);

/// Puts the finger down at `point` of `view`, in its coordinates; moves it, in the coordinates that `view` had then; or
/// lifts it. `time`, in seconds, is of any clock.
EventResult beginTouch(UIView *view, CGPoint point, std::optional<double> time);
EventResult moveTouch(CGPoint point, std::optional<double> time);
EventResult endTouch(CGPoint point, std::optional<double> time);
EventResult cancelTouch(std::optional<double> time);

/// A gesture from its beginning to its end, for which no real time passes.
struct Gesture {
  unsigned count = 1;        ///< Of taps.
  double duration = 0;       ///< Seconds that the finger stays, or that it moves by `by`.
  double hold = 0;           ///< Seconds that it stays before it moves.
  CGPoint by = CGPointZero;  ///< Points.
};
EventResult performGesture(UIView *view, CGPoint point, const Gesture &gesture);

/// A tap in the middle of `view`, which takes it whatever is in it.
void tapAsWhole(UIView *view);

}  // namespace sim
