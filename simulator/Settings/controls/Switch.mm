#import <UIKit/UISwitch+Sim.h>

#import "Settings/controls/ControlAdapter.h"

namespace sim {
namespace {

std::string_view type(UIView *) { return "switch"; }

void describe(JsonText &out, UIView *view, ImageStore &) {
  UISwitch *control = (UISwitch *)view;
  writeColor(out.name("onTintColor"), [control onTintColor]);
  writeColor(out.name("thumbTintColor"), [control thumbTintColor]);
}

bool writeValue(JsonText &out, UIView *view) {
  out.name("value").flag([(UISwitch *)view isOn]);
  return true;
}

const char *set(UIView *view, const Json &value, bool) {
  UISwitch *control = (UISwitch *)view;
  if (!value.is_boolean()) return "A switch is set to true or false.";
  if (static_cast<bool>([control isOn]) == value.get<bool>()) return nullptr;
  return [control sim_setOnByUser:value.get<bool>()] ? nullptr : kUnreachable;
}

}  // namespace

extern const ControlAdapter kSwitch{
    .kind = [] { return [UISwitch class]; }, .type = type, .describe = describe, .writeValue = writeValue, .set = set};

}  // namespace sim
