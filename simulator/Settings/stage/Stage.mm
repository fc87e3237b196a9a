#import "Settings/stage/Stage.h"

#import <Foundation/Guarded.h>
#import <Foundation/NSBundle+Sim.h>
#import <Foundation/SIMDevice.h>
#import <dispatch/dispatch.h>

#import "Settings/JsonValues.h"
#import "Settings/stage/StageController.h"
#import "Settings/stage/WidgetPreferences.h"

#include "base/Json.hpp"

#include <algorithm>
#include <chrono>
#include <utility>

namespace sim {
namespace {

using wire::Outcome;
using Clock = std::chrono::steady_clock;

constexpr const char *kNobody = "No widget is on the stage.";

wire::Reply refusal(std::string why) { return {.outcome = Outcome::refused, .content = std::move(why)}; }

double millisecondsSince(Clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// What the stage is at after a message to the widget.
wire::Reply stateOf(id<SIMStagedWidget> widget, double milliseconds) {
  JsonText out;
  out.beginObject();
  out.name("milliseconds").number(milliseconds);
  out.name("isActivePage");
  if ([widget respondsToSelector:@selector(isActivePage)]) out.flag([widget isActivePage]);
  else out.null();
  out.endObject();
  return {.content = std::move(out).text()};
}

}  // namespace

Stage::Stage(Report report)
    : report_(std::move(report)),
      controller_(objcxx::adopt([[SIMStageController alloc] initWithNibName:nil bundle:nil])) {
  setUncaughtHandler([](NSException *exception, void *self) { static_cast<Stage *>(self)->raised(exception); }, this);
}

Stage::~Stage() { setUncaughtHandler(nullptr, nullptr); }

UIViewController *Stage::page() const { return controller_.get(); }

void Stage::report(NSString *path, std::string doing) {
  report_(wire::Entering{path ? devicePathOf(path) : std::string(), std::move(doing)});
}

void Stage::enter(std::string doing) {
  if (shown_) report([[shown_.get() bundle] bundlePath], std::move(doing));
}

void Stage::leave() { enter("running by itself, from a timer or a queue"); }

wire::Reply Stage::load(const wire::LoadWidgets &call) {
  const Json refused = parseJson(call.refused).value_or(Json());
  if (!refused.is_object()) return {.outcome = Outcome::malformed, .content = "What is refused is an object."};
  for (const auto &[path, why] : refused.items()) {
    NSString *reason = why.is_string() ? stringFrom(why.get_ref<const std::string &>()) : nil;
    if (reason) [NSBundle sim_refuseBundleAtPath:SIMDevicePath(stringFrom(path)) because:reason];
  }
  takeOff();
  widgets_.clear();
  const bool hasLoader = loadWidgets(widgets_, [this](NSString *path, const char *doing) { report(path, doing); });
  if (!hasLoader) return refusal("This device has no ZunoWidgetLoader, which loads widgets.");
  report(nil, {});
  JsonText out;
  out.beginObject();
  writeWidgets(out.name("widgets"), widgets_);
  writeSteps(out.name("steps"));
  out.endObject();
  return {.content = std::move(out).text()};
}

wire::Reply Stage::show(const wire::ShowWidget &call) {
  const auto found = std::ranges::find_if(
      widgets_, [&](const ListedWidget &each) { return each.holder && devicePathOf(each.path.get()) == call.path; });
  if (found == widgets_.end()) return refusal("The loader has loaded no widget from " + call.path + ".");
  takeOff();
  shown_ = found->holder;
  NSObject<SIMWidgetHolder> *holder = shown_.get();
  id<SIMStagedWidget> widget = [holder widget];
  if (!widget) return takeOff(), refusal("The widget's -init gave nil.");

  const auto begin = Clock::now();
  enter("-setupWithFrame:");
  const CGRect frame = [[UIScreen mainScreen] bounds];
  [widget setupWithFrame:frame];
  enter("-contentView");
  id view = [widget contentView];
  const double milliseconds = millisecondsSince(begin);
  if (!view) return takeOff(), refusal("Its contentView is nil after -setupWithFrame:.");
  if (![view isKindOfClass:[UIView class]])
    return takeOff(),
           refusal("Its contentView is no view, but of the class " + utf8(NSStringFromClass([view class])) + ".");
  [controller_.get() setTitle:[holder displayName] ?: [holder bundleIdentifier] ?: @""];
  [controller_.get() showContentView:view];
  return stateOf(widget, milliseconds);
}

wire::Reply Stage::call(const wire::CallWidget &call) {
  if (!shown_) return refusal(kNobody);
  const WidgetMethod *method = widgetMethodNamed(call.method);
  if (!method) return {.outcome = Outcome::malformed, .content = "The stage knows no method “" + call.method + "”."};
  if (call.argument.has_value() != method->takesFlag)
    return {.outcome = Outcome::malformed,
            .content = method->takesFlag ? "This method takes an \"argument\", true or false."
                                         : "This method takes no \"argument\"."};
  const auto holder = objcxx::share(shown_.get());
  id<SIMStagedWidget> widget = [holder.get() widget];
  enter("-" + call.method);
  if (!implements(widget, *method)) return refusal("The widget does not implement -" + call.method + ".");
  const auto begin = Clock::now();
  method->send(widget, call.argument.value_or(false));
  return stateOf(widget, millisecondsSince(begin));
}

wire::Reply Stage::openPreferences() {
  if (!shown_) return refusal(kNobody);
  NSObject<SIMWidgetHolder> *holder = shown_.get();
  NSString *file = [holder preferencesFile];
  if (!file) return refusal("The widget brings no Preferences.plist along.");
  UINavigationController *navigation = [controller_.get() navigationController];
  if ([[navigation topViewController] isKindOfClass:[SIMWidgetPreferencesPage class]])
    return stateOf([holder widget], 0);
  SIMWidgetPreferencesPage *page = [[[SIMWidgetPreferencesPage alloc] initWithFile:file
                                                                            bundle:[holder bundle]
                                                                             title:[holder displayName]] autorelease];
  [page setRootController:navigation];
  [navigation pushViewController:page animated:NO];
  return stateOf([holder widget], 0);
}

void Stage::raised(NSException *exception) {
  report_(wire::Raised{utf8([exception name]), utf8([exception reason])});
  // The exception has come through code that may still have the widget's objects in its hands.
  dispatch_async(dispatch_get_main_queue(), ^{
    takeOff();
  });
}

void Stage::takeOff() {
  if (!shown_) return;
  [[shown_.get() retain] autorelease];
  shown_ = {};
  UINavigationController *navigation = [controller_.get() navigationController];
  [controller_.get() dismissViewControllerAnimated:NO completion:nil];
  [navigation popToRootViewControllerAnimated:NO];
  [controller_.get() showContentView:nil];
  report(nil, {});
}

}  // namespace sim
