// Where a widget is shown alone, as a switcher would show it, and told what a switcher tells it.
#pragma once

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <functional>
#include <string>
#include <vector>

#import "Settings/stage/WidgetList.h"
#include "wire/Messages.hpp"

@class SIMStageController;

namespace sim {

/// One widget at most is on the stage; one that raises what it does not catch is taken off. Before the code of a widget
/// runs, and when it has returned, that is reported: whoever finds the process ended or hung knows whose doing it is.
/// Main thread only.
class Stage final {
 public:
  using Report = std::function<void(wire::Report report)>;

  explicit Stage(Report report);
  ~Stage();
  Stage(const Stage &) = delete;
  Stage &operator=(const Stage &) = delete;

  /// The first page of the application.
  UIViewController *page() const;

  wire::Reply load(const wire::LoadWidgets &call);
  wire::Reply show(const wire::ShowWidget &call);
  wire::Reply call(const wire::CallWidget &call);
  wire::Reply openPreferences();

  /// Anything that may run the code of the widget on the stage, from the first to the second.
  void enter(std::string doing);
  void leave();

 private:
  void report(NSString *path, std::string doing);
  void raised(NSException *exception);
  void takeOff();

  Report report_;
  objcxx::Retained<SIMStageController> controller_;
  std::vector<ListedWidget> widgets_;
  objcxx::Retained<NSObject<SIMWidgetHolder>> shown_;  // Empty when nobody is on the stage.
};

}  // namespace sim
