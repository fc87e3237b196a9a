#import <UIKit/TouchDelivery.h>

#import <UIKit/UITouch+Sim.h>

namespace sim {

objcxx::Retained<UIEvent> touchEvent(UITouch *touch) {
  return objcxx::adopt([[UIEvent alloc] sim_initWithTouch:touch]);
}

void TouchDelivery::add(const objcxx::Retained<UITouch> &touch, const objcxx::Retained<UIView> &view) {
  all_.push_back({touch, view});
}

void TouchDelivery::lift(UITouch *touch) {
  for (One &each : all_) {
    if (each.touch.get() == touch) each.lifted = true;
  }
}

/// The touch has the phase of what is told, as long as it is told.
void TouchDelivery::send(const One &to, SEL what, UITouchPhase as) {
  const One kept = to;
  UITouch *touch = kept.touch.get();
  const UITouchPhase was = [touch phase];
  [touch sim_setPhase:as];
  [kept.view.get() performSelector:what withObject:[NSSet setWithObject:touch] withObject:touchEvent(touch).get()];
  [touch sim_setPhase:was];
}

void TouchDelivery::deliver(SEL phase, const IsDelayed &isDelayed) {
  const bool isCancelled = phase && sel_isEqual(phase, @selector(touchesCancelled:withEvent:));
  // By number: what is told may add others.
  for (std::size_t index = 0; index < all_.size(); ++index) {
    if (all_[index].dropped || all_[index].ended) continue;
    if (isCancelled) {
      all_[index].dropped = true;
      if (all_[index].began) send(all_[index], phase, UITouchPhaseCancelled);
      continue;
    }
    const bool wasBegun = all_[index].began;
    if (!wasBegun) {
      if (isDelayed(all_[index].touch.get(), false)) continue;
      all_[index].began = true;
      send(all_[index], @selector(touchesBegan:withEvent:), UITouchPhaseBegan);
    } else if (phase && !all_[index].lifted) {
      send(all_[index], phase, UITouchPhaseMoved);
    }
    const One &now = all_[index];
    if (now.dropped || !now.lifted || isDelayed(now.touch.get(), true)) continue;
    all_[index].ended = true;
    send(all_[index], @selector(touchesEnded:withEvent:), UITouchPhaseEnded);
  }
  std::erase_if(all_, [](const One &each) { return each.dropped || each.ended; });
}

void TouchDelivery::takeFromViews(UIGestureRecognizer *recognizer, UITouch *present) {
  for (std::size_t index = 0; index < all_.size(); ++index) {
    One &each = all_[index];
    if (each.dropped || each.ended || ![[each.touch.get() gestureRecognizers] containsObject:recognizer]) continue;
    each.dropped = true;
    if (!each.began) continue;
    const auto kept = each;
    UITouch *touch = kept.touch.get();
    [touch sim_setPhase:UITouchPhaseCancelled];
    [kept.view.get() touchesCancelled:[NSSet setWithObject:touch] withEvent:touchEvent(touch).get()];
    if (present == touch) [touch sim_setPhase:UITouchPhaseMoved];
  }
}

}  // namespace sim
