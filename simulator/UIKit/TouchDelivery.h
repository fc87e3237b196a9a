// What touched views are told of the finger, after the recognisers.
#pragma once

#import <UIKit/UIGestureRecognizer.h>
#import <UIKit/UITouch.h>
#import <UIKit/UIView.h>

#include <objcxx/Retained.h>

#include <functional>
#include <vector>

namespace sim {

objcxx::Retained<UIEvent> touchEvent(UITouch *touch);

/// The touches that views have not heard the end of. Telling a view runs code of a page, which may touch again. Main
/// thread only.
class TouchDelivery final {
 public:
  /// Whether a recogniser that is still pending has the view wait for the beginning of the touch, or for its end.
  using IsDelayed = std::function<bool(UITouch *touch, bool atItsEnd)>;

  void add(const objcxx::Retained<UITouch> &touch, const objcxx::Retained<UIView> &view);
  /// The finger is.
  void lift(UITouch *touch);
  /// Tells views what they may hear by now; `phase` is what has happened besides, if anything.
  void deliver(SEL phase, const IsDelayed &isDelayed);
  /// The views of the recogniser's touches hear that those are cancelled, and no more. `present` is the touch of the
  /// finger that is down, or nil.
  void takeFromViews(UIGestureRecognizer *recognizer, UITouch *present);
  void clear() { all_.clear(); }

 private:
  /// A view may hear of the end only when the finger is lifted and down again.
  struct One {
    objcxx::Retained<UITouch> touch;
    objcxx::Retained<UIView> view;
    bool began = false;    ///< The view has heard of the beginning.
    bool lifted = false;   ///< The finger is.
    bool dropped = false;  ///< A recogniser has taken the touch: the view hears no more of it.
    bool ended = false;    ///< The view has heard of the end.
  };
  static void send(const One &to, SEL what, UITouchPhase as);

  std::vector<One> all_;
};

}  // namespace sim
