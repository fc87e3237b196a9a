#import "Settings/EventRouter.hpp"

#import <UIKit/UIKit.h>
#import <UIKit/SharedItem.h>
#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIAlertController+Sim.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UIColorPickerViewController+Sim.h>
#import <UIKit/UIDocumentPickerViewController+Sim.h>
#import <UIKit/UIImagePickerController+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UINavigationController+Sim.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UITableViewCell+Sim.h>
#import <UIKit/UITextField+Sim.h>

#import "Settings/BarButtons.hpp"
#import "Settings/ControlDescription.hpp"
#import "Settings/ControlEvents.hpp"
#import "Settings/ElementId.hpp"

#include <limits>
#include <optional>
#include <string_view>

namespace sim {
namespace {

EventResult malformed(std::string why) { return {400, std::move(why)}; }
EventResult unknown() { return {404, "Nothing on the screen has this id."}; }
EventResult refused(std::string why) { return {422, std::move(why)}; }
EventResult done(BOOL performed, const char *why) { return performed ? EventResult{} : refused(why); }

/// One event and the screen that it is for.
class Route {
 public:
  Route(const Json &event, UINavigationController *navigation, PageNumbers &numbers)
      : event_(event),
        navigation_(navigation),
        page_([navigation topViewController]),
        presented_(presentedOver(navigation)),
        numbers_(numbers) {}

  EventResult tap() const {
    if (!hasId()) return malformed("A \"tap\" event has an \"id\".");
    if (!hasPossiblePart()) return malformed("A \"part\" is \"accessory\", \"button\", \"copy\" or \"save\".");
    const auto id = elementId();
    if (!id) return unknown();
    if (id->kind == ElementKind::kAlertAction) return tapAlert(*id);
    if (id->kind == ElementKind::kSheetItem) {
      return isPresented(*id, [UIActivityViewController class]) ? shareItem(*id) : pickItem(*id);
    }
    if (!isOnPage(*id)) return unknown();
    switch (id->kind) {
      case ElementKind::kBack: return [navigation_ sim_tapBack] ? EventResult{} : unknown();
      case ElementKind::kButton: return tapButton(id->index);
      case ElementKind::kRow: return tapRow(*id);
      case ElementKind::kSwipe:
        return [table() sim_performSwipeActionAtIndex:id->index ofRow:path(*id)] ? EventResult{} : unknown();
      default: return unknown();
    }
  }

  /// A finger drags the row aside, or back.
  EventResult swipe() const {
    if (!hasId()) return malformed("A \"swipe\" event has an \"id\".");
    const auto open = event_.find("open");
    if (open != event_.end() && !open->is_boolean()) return malformed("\"open\" is true or false.");
    const auto id = elementId();
    if (!id || id->kind != ElementKind::kRow || !isOnPage(*id)) return unknown();
    if (![table() sim_hasRowAtIndexPath:path(*id)]) return unknown();
    if (open == event_.end() || open->get<bool>()) {
      return done([table() sim_swipeRowAtIndexPath:path(*id)], "This row has no actions.");
    }
    if ([[table() sim_swipedRow] isEqual:path(*id)]) (void)[table() sim_closeSwipedRow];
    return {};
  }

  EventResult set() const {
    const auto value = event_.find("value");
    if (hasId() && value == event_.end()) return malformed("A \"set\" event has a \"value\".");
    const auto finished = event_.find("finished");
    if (finished != event_.end() && !finished->is_boolean()) return malformed("\"finished\" is true or false.");
    const bool isFinished = finished == event_.end() || finished->get<bool>();
    const auto element = hasId() ? elementId() : std::nullopt;
    if (element && element->kind == ElementKind::kSheetColor) return pickColor(*element, *value, isFinished);
    return work("set", [&](UIView *control) { return setControl(control, *value, isFinished); });
  }

  EventResult paste() const { return work("paste", pasteIntoControl); }

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
    [table() scrollToRowAtIndexPath:to.value() atScrollPosition:UITableViewScrollPositionMiddle animated:NO];
    return {};
  }

  EventResult pick() const {
    const auto path = event_.find("path");
    NSString *text = path == event_.end() ? nil : stringFrom(*path);
    return text ? pickPath(text) : malformed("A \"pick\" event has a \"path\".");
  }

  EventResult dismiss() const {
    if ([presented_ isKindOfClass:[UIImagePickerController class]]) {
      [(UIImagePickerController *)presented_ sim_cancel];
    } else if ([presented_ isKindOfClass:[UIDocumentPickerViewController class]]) {
      [(UIDocumentPickerViewController *)presented_ sim_cancel];
    } else if ([presented_ isKindOfClass:[UIActivityViewController class]]) {
      [(UIActivityViewController *)presented_ sim_finishWithActivityType:nil completed:NO];
    } else if ([presented_ isKindOfClass:[UIColorPickerViewController class]]) {
      [(UIColorPickerViewController *)presented_ sim_close];
    } else if ([presented_ isKindOfClass:[UIAlertController class]]) {
      return dismissAlert((UIAlertController *)presented_);
    } else if (presented_) {
      [presented_ dismissViewControllerAnimated:YES completion:nil];
    } else {
      return refused("Nothing is presented.");
    }
    return {};
  }

 private:
  UITableView *table() const { return tableOf(page_); }

  bool hasPossiblePart() const {
    const auto part = event_.find("part");
    return part == event_.end() || *part == "accessory" || *part == "button" || *part == "copy" || *part == "save";
  }
  bool hasPart(const char *name) const {
    const auto part = event_.find("part");
    return part != event_.end() && *part == name;
  }

  bool hasId() const {
    const auto id = event_.find("id");
    return id != event_.end() && id->is_string();
  }
  /// Only when it `hasId`; nullopt for one that nothing can have.
  std::optional<ElementId> elementId() const {
    return ElementId::parse(event_.find("id")->get_ref<const std::string &>());
  }

  /// Whether `id` is of the page in front. Nothing on a page can be touched while something covers it.
  bool isOnPage(const ElementId &id) const { return !presented_ && numbers_.of(page_) == id.owner; }
  bool isPresented(const ElementId &id, Class kind) const {
    return [presented_ isKindOfClass:kind] && numbers_.of(presented_) == id.owner;
  }

  static NSIndexPath *path(const ElementId &id) {
    return [NSIndexPath indexPathForRow:static_cast<NSInteger>(id.row) inSection:static_cast<NSInteger>(id.section)];
  }

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

  EventResult tapButton(std::uint32_t index) const {
    NSArray *buttons = barButtons(page_);
    if (index >= [buttons count]) return unknown();
    return done([(UIBarButtonItem *)[buttons objectAtIndex:index] sim_tap], "This button does nothing now.");
  }

  EventResult tapRow(const ElementId &id) const {
    if (![table() sim_hasRowAtIndexPath:path(id)]) return unknown();
    if (hasPart("copy") || hasPart("save")) return refused("This row shares nothing.");
    if ([table() sim_closeSwipedRow]) return {};  // The touch is used up.
    if (hasPart("accessory")) {
      return done([table() sim_tapAccessoryAtIndexPath:path(id)], "This row has no button.");
    }
    if (hasPart("button")) return tapButtonOfRow(path(id));
    (void)[table() sim_tapRowAtIndexPath:path(id)];  // A row that refuses a tap stays as it is, as on a device.
    return {};
  }

  /// The button in the row's accessory view.
  EventResult tapButtonOfRow(NSIndexPath *row) const {
    UITableViewCell *cell = [table() sim_cellForControlEventsAtIndexPath:row];
    const auto button = objcxx::share(findButton([cell sim_shownAccessoryView]));
    return done([button.get() sim_tapByUser], button ? "This button is disabled." : "This row has no button.");
  }

  EventResult tapAlert(const ElementId &id) const {
    if (!isPresented(id, [UIAlertController class])) return unknown();
    UIAlertController *alert = (UIAlertController *)presented_;
    if (id.index >= [[alert actions] count]) return unknown();
    return done([alert sim_tapAction:[[alert actions] objectAtIndex:id.index]], "This action is disabled.");
  }

  /// Works the control of the row or of the alert's field that the event names; `perform` says why it could not.
  template <typename Perform>
  EventResult work(const char *type, Perform perform) const {
    if (!hasId()) return malformed("A \"" + std::string(type) + "\" event has an \"id\".");
    const auto element = elementId();
    UIView *control = element ? controlOf(*element) : nil;
    if (!control) return unknown();
    if (const char *problem = perform(control)) return refused(problem);
    if (element->kind == ElementKind::kRow) (void)[table() sim_closeSwipedRow];
    return {};
  }

  /// What holds the control of a row or is a field of an alert; nil for anything else, and while it is covered.
  UIView *controlOf(const ElementId &element) const {
    if (element.kind == ElementKind::kAlertField && isPresented(element, [UIAlertController class])) {
      NSArray *fields = [(UIAlertController *)presented_ textFields];
      return element.index < [fields count] ? [fields objectAtIndex:element.index] : nil;
    }
    if (element.kind != ElementKind::kRow || !isOnPage(element)) return nil;
    if (![table() sim_hasRowAtIndexPath:path(element)]) return nil;
    return [table() sim_cellForControlEventsAtIndexPath:path(element)];
  }

  EventResult shareItem(const ElementId &item) const {
    UIActivityViewController *sheet = (UIActivityViewController *)presented_;
    if (item.index >= [[sheet sim_activityItems] count]) return unknown();
    if (hasPart("copy")) return done([sheet sim_copyItemAtIndex:item.index], "This cannot be copied.");
    if (!hasPart("save")) return refused("A shared item is copied or saved: the \"part\" says which.");
    if (!fileNameOfSharedItem([[sheet sim_activityItems] objectAtIndex:item.index])) return refused("This is no file.");
    return done([sheet sim_finishWithActivityType:SIMActivityTypeSaveToFiles completed:YES], "This cannot be saved.");
  }

  EventResult pickItem(const ElementId &item) const {
    if (!presented_ || numbers_.of(presented_) != item.owner) return unknown();
    NSArray *paths = nil;
    if ([presented_ isKindOfClass:[UIImagePickerController class]]) {
      paths = [(UIImagePickerController *)presented_ sim_photoPaths];
    } else if ([presented_ isKindOfClass:[UIDocumentPickerViewController class]]) {
      paths = [(UIDocumentPickerViewController *)presented_ sim_filePaths];
    }
    if (item.index >= [paths count]) return unknown();
    return pickPath([paths objectAtIndex:item.index]);
  }

  EventResult pickPath(NSString *path) const {
    NSError *error = nil;
    BOOL picked = NO;
    if ([presented_ isKindOfClass:[UIImagePickerController class]]) {
      picked = [(UIImagePickerController *)presented_ sim_pickPhotoAtPath:path error:&error];
    } else if ([presented_ isKindOfClass:[UIDocumentPickerViewController class]]) {
      picked = [(UIDocumentPickerViewController *)presented_ sim_pickFileAtPath:path error:&error];
    } else {
      return refused("No picker is presented.");
    }
    if (picked) return {};
    return refused(error ? utf8([error localizedDescription]) : "This cannot be picked.");
  }

  EventResult pickColor(const ElementId &id, const Json &value, bool isFinished) const {
    if (!isPresented(id, [UIColorPickerViewController class])) return unknown();
    UIColor *color = colorFrom(value);
    if (!color) return refused("A colour is set to \"#rrggbb\" or \"#rrggbbaa\".");
    return done([(UIColorPickerViewController *)presented_ sim_selectColorByUser:color continuously:!isFinished],
                "This picker takes opaque colours only.");
  }

  EventResult dismissAlert(UIAlertController *alert) const {
    if ([alert sim_tapOutside]) return {};
    for (UIAlertAction *action in [alert actions]) {
      if ([action style] == UIAlertActionStyleCancel) {
        return done([alert sim_tapAction:action], "The cancel action is disabled.");
      }
    }
    return refused("This alert has no cancel action.");
  }

  const Json &event_;
  UINavigationController *navigation_;  // Not owned, like the two below.
  UIViewController *page_;
  UIViewController *presented_;
  PageNumbers &numbers_;
};

}  // namespace

EventResult routeEvent(const Json &event, UINavigationController *navigation, PageNumbers &numbers) {
  const auto type = event.is_object() ? event.find("type") : event.end();
  if (type == event.end() || !type->is_string()) return malformed("An event is an object with a \"type\".");
  const std::string_view name = type->get_ref<const std::string &>();
  const Route route(event, navigation, numbers);
  if (name == "tap") return route.tap();
  if (name == "swipe") return route.swipe();
  if (name == "set") return route.set();
  if (name == "paste") return route.paste();
  if (name == "move") return route.move();
  if (name == "scroll") return route.scroll();
  if (name == "pick") return route.pick();
  if (name == "dismiss") return route.dismiss();
  return malformed("Unknown event type.");
}

}  // namespace sim
