// What the tests of alerts and sheets share.
#pragma once

#import "RecordingController.h"

namespace testing_support {

/// A page in a window.
struct Stage {
  std::vector<std::string> events;
  objcxx::Retained<RecordingController> page = objcxx::adopt([[RecordingController alloc] initWithName:"Page"
                                                                                                events:&events]);
  objcxx::Retained<UIWindow> window = windowShowing(page.get());

  void present(UIViewController *controller) {
    [page.get() presentViewController:controller animated:YES completion:nil];
  }
  UIViewController *presented() const { return [page.get() presentedViewController]; }
};

}  // namespace testing_support
