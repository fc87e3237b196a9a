#include "ZunoPrefs/theme/CallCounter.h"

#include <utility>

namespace testing_support {

Presentations::Presentations()
    : spy_([UIViewController class], @selector(presentViewController:animated:completion:),
           [this](id, UIViewController *controller, BOOL animated, void (^)(void)) {
             if (!seen_.empty()) seen_ += ", ";
             seen_ += [NSStringFromClass([controller class]) UTF8String];
             if ([controller isKindOfClass:[UIAlertController class]]) {
               seen_ +=
                   std::string(" with ") + [[[[(UIAlertController *)controller actions] lastObject] title] UTF8String];
             }
             if ([controller modalPresentationStyle] == UIModalPresentationOverFullScreen)
               seen_ += " on the full screen";
             if (animated) seen_ += " animated";
           }) {}

std::string Presentations::take() const { return std::exchange(seen_, {}); }

}  // namespace testing_support
