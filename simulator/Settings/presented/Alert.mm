#import <UIKit/UIAlertController+Sim.h>

#import "Settings/controls/Controls.h"
#import "Settings/presented/PresentedAdapter.h"

namespace sim {
namespace {

const char *styleName(UIAlertActionStyle style) {
  switch (style) {
    case UIAlertActionStyleCancel: return "cancel";
    case UIAlertActionStyleDestructive: return "destructive";
    default: return "default";
  }
}

void writeFields(JsonText &out, UIAlertController *alert, std::uint32_t number) {
  out.beginArray();
  std::uint32_t index = 0;
  for (UITextField *field in [alert textFields]) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kAlertField, number, 0, index++}.text());
    writeText(out.name("placeholder"), [field placeholder]);
    writeText(out, "value", [field text]);
    out.name("secure").flag([field isSecureTextEntry]);
    out.name("clearButton").flag([field clearButtonMode] != UITextFieldViewModeNever);
    out.endObject();
  }
  out.endArray();
}

void writeActions(JsonText &out, UIAlertController *alert, std::uint32_t number) {
  out.beginArray();
  std::uint32_t index = 0;
  for (UIAlertAction *action in [alert actions]) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kAlertAction, number, 0, index++}.text());
    writeText(out.name("title"), [action title]);
    out.name("style").string(styleName([action style]));
    out.name("enabled").flag([action isEnabled]);
    out.name("preferred").flag(action == [alert preferredAction]);
    out.endObject();
  }
  out.endArray();
}

void describe(JsonText &out, UIViewController *presented, std::uint32_t number, ImageStore &) {
  UIAlertController *alert = (UIAlertController *)presented;
  writeText(out.name("title"), [alert title]);
  writeText(out, "message", [alert message]);
  out.name("style").string([alert preferredStyle] == UIAlertControllerStyleAlert ? "alert" : "actionSheet");
  writeFields(out.name("fields"), alert, number);
  writeActions(out.name("actions"), alert, number);
}

EventResult tap(UIViewController *presented, const ElementId &id, std::string_view) {
  UIAlertController *alert = (UIAlertController *)presented;
  if (id.kind != ElementKind::kAlertAction || id.index >= [[alert actions] count]) return unknown();
  return done([alert sim_tapAction:[[alert actions] objectAtIndex:id.index]], "This action is disabled.");
}

/// nil when `place` names none.
UITextField *fieldOf(UIViewController *presented, const ElementId &place) {
  NSArray *fields = [(UIAlertController *)presented textFields];
  if (place.kind != ElementKind::kAlertField || place.index >= [fields count]) return nil;
  return [fields objectAtIndex:place.index];
}

EventResult set(UIViewController *presented, const ElementId &id, const Json &value, bool isFinished) {
  UITextField *field = fieldOf(presented, id);
  return field ? worked(setControl(field, value, isFinished)) : unknown();
}

EventResult enter(UIViewController *presented, const ElementId &id, const Json &value) {
  UITextField *field = fieldOf(presented, id);
  return field ? worked(enterIntoControl(field, value)) : unknown();
}

EventResult paste(UIViewController *presented, const ElementId &id) {
  UITextField *field = fieldOf(presented, id);
  return field ? worked(pasteIntoControl(field)) : unknown();
}

EventResult clear(UIViewController *presented, const ElementId &id) {
  UITextField *field = fieldOf(presented, id);
  return field ? worked(clearControl(field)) : unknown();
}

EventResult dismiss(UIViewController *presented) {
  UIAlertController *alert = (UIAlertController *)presented;
  if ([alert sim_tapOutside]) return {};
  for (UIAlertAction *action in [alert actions]) {
    if ([action style] == UIAlertActionStyleCancel) {
      return done([alert sim_tapAction:action], "The cancel action is disabled.");
    }
  }
  return refused("This alert has no cancel action.");
}

}  // namespace

extern const PresentedAdapter kAlert{.kind = [] { return [UIAlertController class]; },
                                     .place = PresentedPlace::kAlert,
                                     .describe = describe,
                                     .tap = tap,
                                     .set = set,
                                     .enter = enter,
                                     .paste = paste,
                                     .clear = clear,
                                     .dismiss = dismiss};

}  // namespace sim
