// A web page: shown by the name of its host, and closed as a person closes it.
#import <SafariServices/SafariServices.h>

#import "Settings/presented/PresentedAdapter.h"

namespace sim {
namespace {

void describe(JsonText &out, UIViewController *presented, std::uint32_t, ImageStore &) {
  out.name("kind").string("page");
  writeText(out.name("title"), [presented title]);
  out.name("items").beginArray();
  out.endArray();
}

EventResult dismiss(UIViewController *presented) {
  id<SFSafariViewControllerDelegate> delegate = [(SFSafariViewController *)presented delegate];
  if ([delegate respondsToSelector:@selector(safariViewControllerDidFinish:)]) {
    [delegate safariViewControllerDidFinish:(SFSafariViewController *)presented];
  }
  [presented dismissViewControllerAnimated:YES completion:nil];
  return {};
}

}  // namespace

extern const PresentedAdapter kSafari{
    .kind = [] { return [SFSafariViewController class]; }, .describe = describe, .dismiss = dismiss};

}  // namespace sim
