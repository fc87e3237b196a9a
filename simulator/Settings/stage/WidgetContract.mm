#import "Settings/stage/WidgetContract.h"

#include <algorithm>
#include <optional>
#include <string>

namespace sim {

const std::array<WidgetMethod, 6> kWidgetMethods{{
    {"viewDidAppear", false, false, [](id<SIMStagedWidget> widget, BOOL) { [widget viewDidAppear]; }},
    {"didScrollToView", false, false, [](id<SIMStagedWidget> widget, BOOL) { [widget didScrollToView]; }},
    {"setIsActivePage:", true, true, [](id<SIMStagedWidget> widget, BOOL flag) { [widget setIsActivePage:flag]; }},
    {"didScrollAwayFromView", false, false, [](id<SIMStagedWidget> widget, BOOL) { [widget didScrollAwayFromView]; }},
    {"viewDidDisappear", false, false, [](id<SIMStagedWidget> widget, BOOL) { [widget viewDidDisappear]; }},
    {"ZunoViewDidHide:", true, false, [](id<SIMStagedWidget> widget, BOOL flag) { [widget ZunoViewDidHide:flag]; }},
}};

namespace {

struct Step {
  std::string_view method;
  std::optional<bool> argument;
};

/// A page that goes is told so before it stops being the active one, as -[ZunoWidgetLoader setAllWidgetsInactive] does.
constexpr std::array<Step, 7> kSteps{{
    {"viewDidAppear", {}},
    {"didScrollToView", {}},
    {"setIsActivePage:", true},
    {"didScrollAwayFromView", {}},
    {"viewDidDisappear", {}},
    {"setIsActivePage:", false},
    {"ZunoViewDidHide:", true},
}};

}  // namespace

const WidgetMethod *widgetMethodNamed(std::string_view name) {
  const auto found = std::ranges::find(kWidgetMethods, name, &WidgetMethod::name);
  return found == kWidgetMethods.end() ? nullptr : &*found;
}

bool implements(id widget, const WidgetMethod &method) {
  const std::string name(method.name);
  return [widget respondsToSelector:NSSelectorFromString([NSString stringWithUTF8String:name.c_str()])];
}

void writeMethods(JsonText &out, id widget) {
  out.beginArray();
  for (const WidgetMethod &method : kWidgetMethods) {
    out.beginObject();
    out.name("name").string(method.name);
    out.name("takesFlag").flag(method.takesFlag);
    out.name("required").flag(method.isRequired);
    out.name("implemented").flag(implements(widget, method));
    out.endObject();
  }
  out.endArray();
}

void writeSteps(JsonText &out) {
  out.beginArray();
  for (const Step &step : kSteps) {
    out.beginObject();
    out.name("method").string(step.method);
    out.name("argument");
    if (step.argument) out.flag(*step.argument);
    else out.null();
    out.endObject();
  }
  out.endArray();
}

}  // namespace sim
