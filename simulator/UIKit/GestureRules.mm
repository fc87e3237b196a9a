#import <UIKit/GestureRules.h>

#import <UIKit/GestureState.h>
#import <UIKit/UIView+Sim.h>

#include <algorithm>

namespace sim {
namespace {

bool letsBoth(UIGestureRecognizer *asked, UIGestureRecognizer *other) {
  id<UIGestureRecognizerDelegate> delegate = [asked delegate];
  const SEL question = @selector(gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:);
  return [delegate respondsToSelector:question] && [delegate gestureRecognizer:asked
                                                       shouldRecognizeSimultaneouslyWithGestureRecognizer:other];
}

}  // namespace

bool requiresFailure(UIGestureRecognizer *one, UIGestureRecognizer *other) {
  const auto isOther = [other](const auto &each) { return each.get() == other; };
  if (std::ranges::any_of([one sim_state].required, isOther)) return true;
  if ([one shouldRequireFailureOfGestureRecognizer:other]) return true;
  if ([other shouldBeRequiredToFailByGestureRecognizer:one]) return true;
  id<UIGestureRecognizerDelegate> own = [one delegate];
  if ([own respondsToSelector:@selector(gestureRecognizer:shouldRequireFailureOfGestureRecognizer:)] &&
      [own gestureRecognizer:one shouldRequireFailureOfGestureRecognizer:other]) {
    return true;
  }
  id<UIGestureRecognizerDelegate> theirs = [other delegate];
  return [theirs respondsToSelector:@selector(gestureRecognizer:shouldBeRequiredToFailByGestureRecognizer:)] &&
         [theirs gestureRecognizer:other shouldBeRequiredToFailByGestureRecognizer:one];
}

bool prevents(UIGestureRecognizer *one, UIGestureRecognizer *other) {
  if (requiresFailure(other, one)) return true;
  if (letsBoth(one, other) || letsBoth(other, one)) return false;
  return [one canPreventGestureRecognizer:other] && [other canBePreventedByGestureRecognizer:one];
}

bool receives(UIGestureRecognizer *recognizer, UITouch *touch, UIEvent *event) {
  const GestureState &gesture = [recognizer sim_state];
  if (!gesture.enabled || isOver(gesture) || gesture.recognised || gesture.waits) return false;
  if (![gesture.touchTypes.get() containsObject:[NSNumber numberWithInteger:[touch type]]]) return false;
  if (![recognizer shouldReceiveEvent:event]) return false;
  id<UIGestureRecognizerDelegate> delegate = gesture.delegate;
  if ([delegate respondsToSelector:@selector(gestureRecognizer:shouldReceiveEvent:)] &&
      ![delegate gestureRecognizer:recognizer shouldReceiveEvent:event]) {
    return false;
  }
  return ![delegate respondsToSelector:@selector(gestureRecognizer:shouldReceiveTouch:)] ||
         [delegate gestureRecognizer:recognizer shouldReceiveTouch:touch];
}

bool mayBegin(UIGestureRecognizer *recognizer) {
  const GestureState &gesture = [recognizer sim_state];
  if ([gesture.delegate respondsToSelector:@selector(gestureRecognizerShouldBegin:)] &&
      ![gesture.delegate gestureRecognizerShouldBegin:recognizer]) {
    return false;
  }
  if (!gesture.cancelsTouches) return true;
  for (UIView *view = [gesture.touch.get() view]; view; view = [view superview]) {
    if (![view gestureRecognizerShouldBegin:recognizer]) return false;
    if (view == gesture.view) break;
  }
  return true;
}

}  // namespace sim
