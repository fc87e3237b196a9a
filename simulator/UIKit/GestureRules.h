// What recognisers, their delegates and views allow: questions that change nothing. Main thread only.
#pragma once

#import <UIKit/UIGestureRecognizer.h>
#import <UIKit/UITouch.h>

namespace sim {

/// Whether `one` has to see `other` fail before it is recognised.
bool requiresFailure(UIGestureRecognizer* one, UIGestureRecognizer* other);

/// Whether `one`, recognised, is the end of `other`.
bool prevents(UIGestureRecognizer* one, UIGestureRecognizer* other);

/// Whether it hears of a touch that begins.
bool receives(UIGestureRecognizer* recognizer, UITouch* touch, UIEvent* event);

/// Whether its delegate and the views that it would take the touch from let it begin.
bool mayBegin(UIGestureRecognizer* recognizer);

}  // namespace sim
