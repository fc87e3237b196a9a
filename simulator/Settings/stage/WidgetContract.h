// What a switcher may say to a widget, and in which order.
#pragma once

#import <Foundation/Foundation.h>
#import <UIKit/UIKit.h>

#include <array>
#include <string_view>

#include "base/JsonText.hpp"

/// A widget as the stage sees it: docs/widgets.md has the contract. The bundle that loads widgets has its protocol.
@protocol SIMStagedWidget <NSObject>
- (void)setupWithFrame:(CGRect)frame;
- (id)contentView;
@property(nonatomic) BOOL isActivePage;
@optional
- (void)viewDidAppear;
- (void)viewDidDisappear;
- (void)didScrollToView;
- (void)didScrollAwayFromView;
- (void)ZunoViewDidHide:(BOOL)hidden;
@end

namespace sim {

/// A message that a maker can send a widget on the stage.
struct WidgetMethod {
  std::string_view name;  ///< Its selector.
  bool takesFlag;
  bool isRequired;
  void (*send)(id<SIMStagedWidget> widget, BOOL flag);
};

extern const std::array<WidgetMethod, 6> kWidgetMethods;

/// nullptr for any other name.
const WidgetMethod *widgetMethodNamed(std::string_view name);

/// Whether the widget has the method.
bool implements(id widget, const WidgetMethod &method);

/// Writes the methods, and whether the widget, which may be nil, has them.
void writeMethods(JsonText &out, id widget);

/// Writes what a switcher sends a page that it shows, from its coming to its going: [{"method","argument"}].
void writeSteps(JsonText &out);

}  // namespace sim
