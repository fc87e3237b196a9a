// Pages that note what is asked of them, and a window to show them in.
#pragma once

#import <UIKit/UIKit.h>

#include <objcxx/Retained.h>

#include <string>
#include <vector>

/// Notes "NAME loads", "NAME willAppear", "NAME didAppear animated" … in a list that all pages of a test share.
@interface RecordingController : UIViewController {
 @private
  std::vector<std::string> *_events;
  std::string _name;
  int *_deaths;
  SEL _hookAt;
  id _hookTarget;
  SEL _hookAction;
  UIViewController *_presentedOnLayout;
}
- (instancetype)initWithName:(const char *)name events:(std::vector<std::string> *)events;
/// Counts the deallocation.
- (void)countDeathIn:(int *)deaths;
/// Sends `action` to `target` (not owned), once, when the method `selector` of this page runs.
- (void)when:(SEL)selector send:(SEL)action to:(id)target;
/// Presents `controller` (not owned), once, when its views are laid out.
- (void)presentOnLayout:(UIViewController *)controller;
- (void)note:(const char *)event animated:(BOOL)animated;
@end

namespace testing_support {

/// The events joined by ", "; the list is empty afterwards.
std::string takeEvents(std::vector<std::string> &events);

/// A window that shows `root`.
inline objcxx::Retained<UIWindow> windowShowing(UIViewController *root) {
  auto window = objcxx::adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
  [window.get() setRootViewController:root];
  [window.get() makeKeyAndVisible];
  return window;
}

}  // namespace testing_support
