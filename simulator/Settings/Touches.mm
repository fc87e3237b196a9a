#import "Settings/Touches.h"

#import <UIKit/TouchDispatch.h>
#import <UIKit/UIContextMenuInteraction+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/ScreenDescription.h"
#import "Settings/controls/Controls.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace sim {
namespace {

// Of a gesture that is done as a whole: steps of a drag, and the seconds that a finger stays in a tap and between two.
constexpr int kSteps = 10;
constexpr double kTapDuration = 0.05;
constexpr double kTapPause = 0.1;
// Seconds that an event may have been on its way: one that seems to be older is timed by another clock.
constexpr double kLongestWay = 2;

/// Where the finger's points and times come from: of the event that put it down.
struct Origin {
  CGPoint offset = CGPointZero;  ///< From the touched view's coordinates to those of the outermost view.
  double time = 0;               ///< What to add for the time of the dispatch.
};
Origin origin;

bool isOwn(Class kind, SEL method) {
  const IMP code = [kind instanceMethodForSelector:method];
  const std::array<Class, 3> known{[UIResponder class], [UIControl class], [UITableView class]};
  return std::ranges::none_of(known, [&](Class each) {
    return [each instancesRespondToSelector:method] && [each instanceMethodForSelector:method] == code;
  });
}

Touchability ofClass(Class kind) {
  static std::unordered_map<Class, Touchability> *all = new std::unordered_map<Class, Touchability>;
  const auto [entry, isNew] = all->try_emplace(kind);
  if (isNew) {
    const bool follows = isOwn(kind, @selector(touchesMoved:withEvent:));
    const bool isControl = [kind isSubclassOfClass:[UIControl class]];
    const bool tracks = isControl && isOwn(kind, @selector(continueTrackingWithTouch:withEvent:));
    const bool begins = isControl && isOwn(kind, @selector(beginTrackingWithTouch:withEvent:));
    entry->second.dragged = follows || tracks;
    entry->second.touched = follows || tracks || begins || isOwn(kind, @selector(touchesBegan:withEvent:)) ||
                            isOwn(kind, @selector(touchesEnded:withEvent:));
  }
  return entry->second;
}

void add(Touchability &all, Touchability one) {
  all.touched |= one.touched;
  all.dragged |= one.dragged;
}

double seconds(std::optional<double> time) {
  const TouchDispatch &dispatch = TouchDispatch::shared();
  return time ? std::clamp(*time + origin.time, dispatch.lastTime(), std::max(dispatch.lastTime(), dispatch.now()))
              : dispatch.now();
}

CGPoint moved(CGPoint point) { return CGPointMake(point.x + origin.offset.x, point.y + origin.offset.y); }

EventResult noFinger() { return refused("No finger is on the screen."); }

/// The deepest view at `point`; beside the rows of a table, whose place on the screen is another, the table itself.
UIView *hitIn(UIView *view, CGPoint point) {
  if (![view sim_acceptsTouches]) return nil;
  if ([view isKindOfClass:[UITableView class]]) return view;
  return [view hitTest:point withEvent:nil];
}

}  // namespace

Touchability touchabilityOf(UIView *view) {
  Touchability own = ofClass([view class]);
  for (UIGestureRecognizer *each in [view gestureRecognizers]) {
    if (![each isEnabled]) continue;
    own.touched = true;
    own.dragged |=
        [each isKindOfClass:[UIPanGestureRecognizer class]] || [each isKindOfClass:[UISwipeGestureRecognizer class]];
  }
  return own;
}

Touchability touchabilityIn(UIView *view, bool withButtons) {
  Touchability all;
  if (!view || [view isHidden] || ![view isUserInteractionEnabled]) return all;
  add(all, touchabilityOf(view));
  const bool isButton = withButtons && [view isKindOfClass:[UIControl class]] && !isControl(view);
  if (isButton && [(UIControl *)view sim_hearsOfTaps]) all.touched = true;
  for (UIView *child in [view subviews]) add(all, touchabilityIn(child, withButtons));
  return all;
}

Touchability touchabilityAround(UIView *view) {
  Touchability all;
  for (UIView *each = [view superview]; each; each = [each superview]) add(all, touchabilityOf(each));
  return all;
}

bool hasContextMenu(UIView *view) {
  for (UIView *each = view; each; each = [each superview]) {
    for (id interaction in [each interactions]) {
      const bool isMenu = [interaction isKindOfClass:[UIContextMenuInteraction class]];
      if (isMenu && [(UIContextMenuInteraction *)interaction sim_opensByPress]) return true;
    }
  }
  return false;
}

bool isTouchable(UIView *view, bool withButtons) {
  return touchabilityIn(view, withButtons).touched || touchabilityAround(view).touched;
}

EventResult beginTouch(UIView *view, CGPoint point, std::optional<double> time) {
  const auto hit = objcxx::share(hitIn(view, point));
  if (!hit) return refused("Nothing can be touched there.");
  TouchDispatch &dispatch = TouchDispatch::shared();
  // The points of a table are those of its part on the screen.
  const CGPoint scrolled = [view isKindOfClass:[UITableView class]] ? [view bounds].origin : CGPointZero;
  const CGPoint place = [view convertPoint:CGPointMake(point.x + scrolled.x, point.y + scrolled.y) toView:nil];
  origin.offset = CGPointMake(place.x - point.x, place.y - point.y);
  // Two touches that the same clock timed are as far apart as it says; another clock's time is the present.
  if (time) {
    const double known = *time + origin.time;
    const bool isPresent = known <= dispatch.now() && known > dispatch.now() - kLongestWay;
    if (!isPresent || known < dispatch.lastTime()) origin.time = dispatch.now() - *time;
  }
  dispatch.begin(hit.get(), place, seconds(time));
  return {};
}

EventResult moveTouch(CGPoint point, std::optional<double> time) {
  TouchDispatch &dispatch = TouchDispatch::shared();
  if (!dispatch.isTouching()) return noFinger();
  dispatch.move(moved(point), seconds(time));
  return {};
}

EventResult endTouch(CGPoint point, std::optional<double> time) {
  TouchDispatch &dispatch = TouchDispatch::shared();
  if (!dispatch.isTouching()) return noFinger();
  dispatch.end(moved(point), seconds(time));
  return {};
}

EventResult cancelTouch(std::optional<double> time) {
  TouchDispatch &dispatch = TouchDispatch::shared();
  if (!dispatch.isTouching()) return noFinger();
  dispatch.cancel(seconds(time));
  return {};
}

EventResult performGesture(UIView *view, CGPoint point, const Gesture &gesture) {
  const auto kept = objcxx::share(view);
  TouchDispatch &dispatch = TouchDispatch::shared();
  const bool moves = gesture.by.x != 0 || gesture.by.y != 0;
  const auto pass = [&](double time) {
    dispatch.skip(time);
    dispatch.ring();
  };
  for (unsigned tap = 0; tap < gesture.count; ++tap) {
    if (tap > 0) pass(kTapPause);
    const EventResult begun = beginTouch(view, point, std::nullopt);
    if (begun.outcome != Outcome::done) return begun;
    if (gesture.hold > 0) pass(gesture.hold);
    CGPoint place = point;
    for (int step = 1; moves && step <= kSteps; ++step) {
      pass(gesture.duration / kSteps);
      place = CGPointMake(point.x + gesture.by.x * step / kSteps, point.y + gesture.by.y * step / kSteps);
      (void)moveTouch(place, std::nullopt);
    }
    if (!moves) pass(gesture.duration > 0 ? gesture.duration : kTapDuration);
    (void)endTouch(place, std::nullopt);
  }
  dispatch.wait();
  return {};
}

void tapAsWhole(UIView *view) {
  const auto kept = objcxx::share(view);
  TouchDispatch &dispatch = TouchDispatch::shared();
  const CGRect bounds = [view bounds];
  const CGPoint place = [view convertPoint:CGPointMake(CGRectGetMidX(bounds), CGRectGetMidY(bounds)) toView:nil];
  dispatch.begin(view, place, dispatch.now());
  dispatch.skip(kTapDuration);
  dispatch.end(place, dispatch.now());
  dispatch.wait();
}

}  // namespace sim
