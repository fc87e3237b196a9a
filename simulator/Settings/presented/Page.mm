// A page that is presented over the others: any controller of no kind of its own.
#import "Settings/presented/PresentedAdapter.h"

namespace sim {
namespace {

/// What stands above it: a navigation controller shows the title of its page.
NSString *titleOf(UIViewController *presented) {
  const bool isNavigation = [presented isKindOfClass:[UINavigationController class]];
  UIViewController *page = isNavigation ? [(UINavigationController *)presented topViewController] : presented;
  return [[page navigationItem] title] ?: [presented title];
}

void describe(JsonText &out, UIViewController *presented, std::uint32_t, ImageStore &) {
  out.name("kind").string("page");
  writeText(out.name("title"), titleOf(presented) ?: NSStringFromClass([presented class]));
  out.name("items").beginArray();
  out.endArray();
}

EventResult dismiss(UIViewController *presented) {
  [presented dismissViewControllerAnimated:YES completion:nil];
  return {};
}

}  // namespace

extern const PresentedAdapter kPage{
    .kind = [] { return [UIViewController class]; }, .describe = describe, .dismiss = dismiss};

}  // namespace sim
