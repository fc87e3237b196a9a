#import "Settings/EventRouter.h"

#import <UIKit/UIKit.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UINavigationController+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UITableViewCell+Sim.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/BarButtons.h"
#import "Settings/ElementId.hpp"
#import "Settings/Scrolling.h"
#import "Settings/Touches.h"
#import "Settings/controls/AccessoryButton.h"
#import "Settings/controls/Controls.h"
#import "Settings/presented/Presented.h"
#import "Settings/views/Views.h"

#include <objcxx/Retained.h>

#include "base/Json.hpp"

#include <limits>
#include <optional>
#include <string_view>

namespace sim {
namespace {

// Seconds that the gestures of the kinds take where an event does not say.
constexpr double kPressDuration = 0.75;
constexpr double kPanDuration = 0.5;
constexpr double kSwipeDuration = 0.15;

CGPoint middleOf(UIView *view) { return CGPointMake(CGRectGetMidX([view bounds]), CGRectGetMidY([view bounds])); }

/// One event and the screen that it is for.
class Route {
 public:
  Route(const Json &event, UINavigationController *navigation, PageNumbers &numbers)
      : event_(event),
        navigation_(navigation),
        page_([navigation topViewController]),
        presented_(presentedOver(navigation)),
        adapter_(presentedAdapter(presented_)),
        numbers_(numbers) {}

  EventResult tap() const {
    if (!hasId()) return malformed("A \"tap\" event has an \"id\".");
    if (!hasPossiblePart()) return malformed("A \"part\" is \"accessory\", \"button\", \"copy\" or \"save\".");
    const auto id = elementId();
    if (!id) return unknown();
    if (isPresented(*id)) return adapter_->tap ? adapter_->tap(presented_, *id, part()) : unknown();
    if (id->kind == ElementKind::kView) return tapView(*id);
    if (!isOnPage(*id)) return unknown();
    switch (id->kind) {
      case ElementKind::kBack: return [navigation_ sim_tapBack] ? EventResult{} : unknown();
      case ElementKind::kButton: return tapButton(id->index);
      case ElementKind::kRow: return tapRow(*id);
      case ElementKind::kSwipe:
        return [table() sim_performSwipeActionAtIndex:id->index ofRow:pathOf(*id)] ? EventResult{} : unknown();
      default: return unknown();
    }
  }

  /// A finger drags the row aside, or back.
  EventResult swipe() const {
    if (!hasId()) return malformed("A \"swipe\" event has an \"id\".");
    if (!isFlagOrMissing("open")) return malformed("\"open\" is true or false.");
    const auto id = elementId();
    if (!id || id->kind != ElementKind::kRow || !isOnPage(*id)) return unknown();
    NSIndexPath *path = pathOf(*id);
    if (!path) return unknown();
    if (event_.value("open", true)) {
      return done([table() sim_swipeRowAtIndexPath:path], "This row has no actions.");
    }
    if ([[table() sim_swipedRow] isEqual:path]) (void)[table() sim_closeSwipedRow];
    return {};
  }

  /// A finger comes down, moves or is lifted.
  EventResult touch() const {
    const std::string *phase = textIn(event_, "phase");
    const bool isKnown =
        phase && (*phase == "began" || *phase == "moved" || *phase == "ended" || *phase == "cancelled");
    if (!isKnown) return malformed("The \"phase\" of a touch is \"began\", \"moved\", \"ended\" or \"cancelled\".");
    if (!isNumberOrMissing("time")) return malformed("A \"time\" is a number of seconds.");
    const auto time = numberIn("time");
    if (*phase == "cancelled") return cancelTouch(time);
    const auto at = pair("at");
    if (!at) return malformed("A touch is \"at\" a point, [x, y].");
    if (*phase == "moved") return moveTouch(*at, time);
    if (*phase == "ended") return endTouch(*at, time);
    if (!hasId()) return malformed("A touch that begins has an \"id\".");
    const auto view = objcxx::share(touchedView());
    return view ? beginTouch(view.get(), *at, time) : unknown();
  }

  /// All that a finger does from coming down until it is lifted.
  EventResult gesture() const {
    if (!hasId()) return malformed("A gesture has an \"id\".");
    const std::string *kind = textIn(event_, "kind");
    const double most = 60;
    for (const char *name : {"duration", "count"}) {
      if (!isNumberOrMissing(name) || numberIn(name).value_or(1) < 0 || numberIn(name).value_or(1) > most) {
        return malformed("A \"duration\", in seconds, and a \"count\" are numbers up to 60.");
      }
    }
    if (event_.contains("at") && !pair("at")) return malformed("A gesture is \"at\" a point, [x, y].");
    if (event_.contains("by") && !pair("by")) return malformed("A finger moves \"by\" points, [x, y].");
    Gesture gesture{.by = pair("by").value_or(CGPointZero)};
    if (kind && *kind == "tap") {
      gesture.count = static_cast<unsigned>(numberIn("count").value_or(1));
      gesture.by = CGPointZero;
    } else if (kind && *kind == "press") {
      (gesture.by.x != 0 || gesture.by.y != 0 ? gesture.hold : gesture.duration) =
          numberIn("duration").value_or(kPressDuration);
      if (gesture.hold > 0) gesture.duration = kPanDuration;
    } else if (kind && (*kind == "pan" || *kind == "swipe")) {
      if (!pair("by")) return malformed("A finger that moves does so \"by\" points, [x, y].");
      gesture.duration = numberIn("duration").value_or(*kind == "pan" ? kPanDuration : kSwipeDuration);
    } else {
      return malformed("The \"kind\" of a gesture is \"tap\", \"press\", \"pan\" or \"swipe\".");
    }
    if (const auto id = elementId(); id && id->kind == ElementKind::kButton) return pressButton(*id, *kind);
    const auto view = objcxx::share(touchedView());
    if (!view) return unknown();
    return performGesture(view.get(), pair("at").value_or(middleOf(view.get())), gesture);
  }

  EventResult set() const {
    if (!hasId()) return malformed("A \"set\" event has an \"id\".");
    const auto value = event_.find("value");
    if (value == event_.end()) return malformed("A \"set\" event has a \"value\".");
    if (!isFlagOrMissing("finished")) return malformed("\"finished\" is true or false.");
    if (!isFlagOrMissing("return")) return malformed("\"return\" is true or false.");
    const bool isFinished = event_.value("finished", true);
    const bool returns = event_.value("return", false);
    if (returns && !isFinished) return malformed("The return key is pressed when the text is finished.");
    const auto id = elementId();
    if (!id) return unknown();
    if (returns) {
      if (isPresented(*id)) return adapter_->enter ? adapter_->enter(presented_, *id, *value) : unknown();
      return work(*id, [&](UIView *control) { return enterIntoControl(control, *value); });
    }
    if (isPresented(*id)) return adapter_->set ? adapter_->set(presented_, *id, *value, isFinished) : unknown();
    return work(*id, [&](UIView *control) { return setControl(control, *value, isFinished); });
  }

  EventResult paste() const {
    if (!hasId()) return malformed("A \"paste\" event has an \"id\".");
    const auto id = elementId();
    if (!id) return unknown();
    if (isPresented(*id)) return adapter_->paste ? adapter_->paste(presented_, *id) : unknown();
    return work(*id, pasteIntoControl);
  }

  EventResult clear() const {
    if (!hasId()) return malformed("A \"clear\" event has an \"id\".");
    const auto id = elementId();
    if (!id) return unknown();
    if (isPresented(*id)) return adapter_->clear ? adapter_->clear(presented_, *id) : unknown();
    return work(*id, clearControl);
  }

  EventResult move() const {
    const auto from = indexPath("from");
    const auto to = indexPath("to");
    if (!from || !to) return malformed("A \"move\" event has \"from\" and \"to\", each [section, row].");
    if (presented_ || ![table() sim_hasRowAtIndexPath:from.value()]) return unknown();
    return done([table() sim_moveRowFrom:from.value() to:to.value()], "This row cannot be moved there.");
  }

  EventResult scroll() const {
    const auto to = indexPath("to");
    if (!to) return malformed("A \"scroll\" event has \"to\", [section, row].");
    if (presented_ || ![table() sim_hasRowAtIndexPath:to.value()]) return unknown();
    (void)[table() sim_closeSwipedRow];
    [table() sim_showRowInMiddle:to.value()];
    return {};
  }

  /// A finger has moved what scrolls.
  EventResult scrolled() const {
    if (event_.contains("id") && !hasId()) return malformed("An \"id\" is a text.");
    if (!isNumberOrMissing("x") || !isNumberOrMissing("y")) return malformed("\"x\" and \"y\" are numbers of points.");
    const std::string *name = textIn(event_, "phase");
    const auto phase = name ? scrollPhaseNamed(*name) : std::nullopt;
    if (event_.contains("phase") && !phase) {
      return malformed("The \"phase\" of a scroll is \"began\", \"moved\", \"lifted\", \"ended\" or \"jumped\".");
    }
    if (event_.contains("velocity") && !pair("velocity")) return malformed("A \"velocity\" is [x, y].");
    const Scroll scroll{.x = numberIn("x"),
                        .y = numberIn("y"),
                        .phase = phase.value_or(ScrollPhase::kWhole),
                        .velocity = pair("velocity").value_or(CGPointZero)};
    if (!scroll.x && !scroll.y) return malformed("A \"scrolled\" event has \"x\", \"y\" or both.");
    const auto view = objcxx::share(scrolledView());
    if (!view) return unknown();
    if (![view.get() isKindOfClass:[UIScrollView class]]) return refused("This is nothing that scrolls.");
    return scrollTo((UIScrollView *)view.get(), scroll);
  }

  EventResult scrollToTop() const {
    return presented_ ? refused("Something covers the page.") : sim::scrollToTop(page_);
  }

  EventResult pick() const {
    const std::string *path = textIn(event_, "path");
    NSString *text = path ? stringFrom(*path) : nil;
    if (!text) return malformed("A \"pick\" event has a \"path\".");
    return adapter_ && adapter_->pick ? adapter_->pick(presented_, text) : refused("No picker is presented.");
  }

  EventResult dismiss() const { return adapter_ ? adapter_->dismiss(presented_) : refused("Nothing is presented."); }

 private:
  UITableView *table() const { return tableOf(page_); }

  bool hasPossiblePart() const {
    const auto part = event_.find("part");
    return part == event_.end() || *part == "accessory" || *part == "button" || *part == "edit" || *part == "copy" ||
           *part == "save";
  }
  /// Only when it `hasPossiblePart`; empty for none.
  std::string_view part() const {
    const std::string *part = textIn(event_, "part");
    return part ? *part : std::string_view();
  }

  bool isFlagOrMissing(const char *name) const {
    const auto flag = event_.find(name);
    return flag == event_.end() || flag->is_boolean();
  }
  bool isNumberOrMissing(const char *name) const {
    const auto number = event_.find(name);
    return number == event_.end() || number->is_number();
  }
  std::optional<double> numberIn(const char *name) const {
    const auto number = event_.find(name);
    return number != event_.end() && number->is_number() ? std::optional(number->get<double>()) : std::nullopt;
  }
  /// Two numbers; nullopt for anything else.
  std::optional<CGPoint> pair(const char *name) const {
    const auto found = event_.find(name);
    if (found == event_.end() || !found->is_array() || found->size() != 2) return std::nullopt;
    if (!(*found)[0].is_number() || !(*found)[1].is_number()) return std::nullopt;
    return CGPointMake((*found)[0].get<CGFloat>(), (*found)[1].get<CGFloat>());
  }
  bool hasId() const { return textIn(event_, "id"); }
  /// Only when it `hasId`; nullopt for one that nothing can have.
  std::optional<ElementId> elementId() const { return ElementId::parse(*textIn(event_, "id")); }

  /// Whether `id` is of the page in front. Nothing on a page can be touched while something covers it.
  bool isOnPage(const ElementId &id) const { return !presented_ && numbers_.of(page_) == id.owner; }
  bool isPresented(const ElementId &id) const { return presented_ && numbers_.of(presented_) == id.owner; }

  /// Where the row that `id` is of is now; nil when it is gone.
  NSIndexPath *pathOf(const ElementId &id) const { return [table() sim_indexPathOfRowNumbered:id.row]; }

  std::optional<NSIndexPath *> indexPath(const char *name) const {
    const auto pair = event_.find(name);
    if (pair == event_.end() || !pair->is_array() || pair->size() != 2) return std::nullopt;
    for (const Json &part : *pair) {
      if (!part.is_number_unsigned() || part.get<std::uint64_t>() > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
      }
    }
    return [NSIndexPath indexPathForRow:(*pair)[1].get<NSInteger>() inSection:(*pair)[0].get<NSInteger>()];
  }

  EventResult tapButton(std::uint32_t number) const {
    for (UIBarButtonItem *button in barButtons(page_)) {
      if (numbers_.of(button) == number) return done([button sim_tap], "This button does nothing now.");
    }
    return unknown();
  }

  /// A finger stays on a bar button.
  EventResult pressButton(const ElementId &id, std::string_view gesture) const {
    if (!isOnPage(id)) return unknown();
    if (gesture != "press") return refused("A bar button takes a \"tap\" event and a \"press\".");
    for (UIBarButtonItem *button in barButtons(page_)) {
      if (numbers_.of(button) == id.index) return done([button sim_press], "This button has no menu.");
    }
    return unknown();
  }

  EventResult tapRow(const ElementId &id) const {
    NSIndexPath *path = pathOf(id);
    if (!path) return unknown();
    if (part() == "copy" || part() == "save") return refused("This row shares nothing.");
    if ([table() sim_closeSwipedRow]) return {};  // The touch is used up.
    if (part() == "edit") return done([table() sim_tapEditControlAtIndexPath:path], "This row has no such control.");
    if (part() == "accessory") {
      return done([table() sim_tapAccessoryAtIndexPath:path], "This row has no button.");
    }
    if (part() == "button") {
      return tapAccessoryButton([[table() sim_cellForControlEventsAtIndexPath:path] sim_shownAccessoryView]);
    }
    const auto cell = objcxx::share([table() sim_cellForControlEventsAtIndexPath:path]);
    // A row that refuses a tap stays as it is, as on a device.
    if (isTouchable(cell.get(), false)) {
      if ([cell.get() sim_acceptsTouches]) tapAsWhole(cell.get());
    } else {
      (void)[table() sim_tapRowAtIndexPath:path];
    }
    return {};
  }

  /// The view on the page in front; nil when it is gone, and when something covers it.
  UIView *viewOf(const ElementId &id) const { return presented_ ? nullptr : viewOnPage(page_, id.owner); }

  /// What a finger that the event speaks of comes down on.
  UIView *touchedView() const {
    const auto id = elementId();
    if (!id) return nullptr;
    if (id->kind == ElementKind::kView) return viewOf(*id);
    if (id->kind != ElementKind::kRow || !isOnPage(*id)) return nullptr;
    return [table() sim_cellForControlEventsAtIndexPath:pathOf(*id)];
  }

  /// What a finger that scrolls is on: the page's table where the event does not say.
  UIView *scrolledView() const {
    if (!event_.contains("id")) return presented_ ? nullptr : table();
    const auto id = elementId();
    return id && id->kind == ElementKind::kView ? viewOf(*id) : nullptr;
  }

  EventResult tapView(const ElementId &id) const {
    const auto view = objcxx::share(viewOf(id));
    if (!view) return unknown();
    if (isControl(view.get())) return refused("This control is set, not tapped.");
    const bool isButton = [view.get() isKindOfClass:[UIControl class]];
    if (!isButton) return performGesture(view.get(), middleOf(view.get()), Gesture{});
    if (touchabilityOf(view.get()).touched && [(UIControl *)view.get() sim_acceptsUser]) {
      tapAsWhole(view.get());
      return {};
    }
    return done([(UIControl *)view.get() sim_tapByUser], "This button is disabled.");
  }

  /// Works the control of the row or the view; `perform` says why it could not.
  template <typename Perform>
  EventResult work(const ElementId &id, Perform perform) const {
    if (id.kind == ElementKind::kView) {
      const auto view = objcxx::share(viewOf(id));
      return view ? worked(perform(view.get())) : unknown();
    }
    if (id.kind != ElementKind::kRow || !isOnPage(id)) return unknown();
    UIView *cell = [table() sim_cellForControlEventsAtIndexPath:pathOf(id)];
    if (!cell) return unknown();
    const char *problem = perform(cell);
    if (!problem) (void)[table() sim_closeSwipedRow];
    return worked(problem);
  }

  const Json &event_;
  UINavigationController *navigation_;  // Not owned, like the three below.
  UIViewController *page_;
  UIViewController *presented_;
  const PresentedAdapter *adapter_;  // Of what is presented; nullptr when nothing is.
  PageNumbers &numbers_;
};

}  // namespace

EventResult routeEvent(const Json &event, UINavigationController *navigation, PageNumbers &numbers) {
  const std::string *type = textIn(event, "type");
  if (!type) return malformed("An event is an object with a \"type\".");
  const std::string_view name = *type;
  const Route route(event, navigation, numbers);
  if (name == "tap") return route.tap();
  if (name == "swipe") return route.swipe();
  if (name == "touch") return route.touch();
  if (name == "gesture") return route.gesture();
  if (name == "set") return route.set();
  if (name == "paste") return route.paste();
  if (name == "clear") return route.clear();
  if (name == "move") return route.move();
  if (name == "scroll") return route.scroll();
  if (name == "scrolled") return route.scrolled();
  if (name == "scrollToTop") return route.scrollToTop();
  if (name == "pick") return route.pick();
  if (name == "dismiss") return route.dismiss();
  return malformed("Unknown event type.");
}

}  // namespace sim
