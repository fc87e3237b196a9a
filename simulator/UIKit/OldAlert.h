// What the old alerts and action sheets share: buttons with numbers, shown by a UIAlertController.
#pragma once

#import <UIKit/UIAlertController.h>

#include <objcxx/Retained.h>

#include <vector>

namespace sim {

struct OldAlert {
  id delegate = nil;  // Not owned.
  objcxx::Retained<NSString> title;
  objcxx::Retained<NSString> message;
  std::vector<objcxx::Retained<NSString>> buttons;
  NSInteger cancel = -1;
  NSInteger destructive = -1;
  NSInteger firstOther = -1;
  NSInteger style = 0;                        ///< Of an alert's fields.
  objcxx::Retained<UIAlertController> shown;  ///< While it is visible.
  objcxx::Retained<NSArray> fields;           ///< Of an alert.

  NSInteger add(NSString *buttonTitle);
  NSString *titleAt(NSInteger index) const;
  NSInteger count() const { return NSInteger(buttons.size()); }
  /// A controller with the buttons, which call `clicked` with their index.
  UIAlertController *makeController(UIAlertControllerStyle controllerStyle, void (^clicked)(NSInteger index)) const;
};

/// Presents `controller` over whatever is in front. NO without a window.
bool presentInFront(UIAlertController *controller);

/// Sends `message` with the alert and the index of a button to a delegate that has it.
void tellDelegate(id delegate, SEL message, id alert, NSInteger index);
void tellDelegate(id delegate, SEL message, id alert);

}  // namespace sim
