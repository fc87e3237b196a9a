#import "Settings/Session.hpp"

#import <UIKit/UIKit.h>
#import <UIKit/UIWindow+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#import "Settings/EventRouter.hpp"
#import "Settings/FileTransfer.hpp"
#import "Settings/Guarded.hpp"

#include <utility>

namespace sim {
namespace {

std::string dump(const Json &json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

Reply errorReply(const EventResult &result) { return {result.status, dump({{"error", result.error}})}; }

}  // namespace

Session::Session(UIViewController *root, std::uint64_t firstRevision)
    : window_(objcxx::adopt([[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]])),
      navigation_(objcxx::adopt([[UINavigationController alloc] initWithRootViewController:root])),
      images_(firstRevision),
      revision_(firstRevision) {
  [[navigation_.get() navigationBar] setPrefersLargeTitles:YES];
  [window_.get() setRootViewController:navigation_.get()];
  guarded("opening the application", [this] { [window_.get() makeKeyAndVisible]; });
  refresh();
}

bool Session::refresh() {
  guarded("running the main queue", [] { SIMDrainMainQueue(); });
  JsonText now;
  images_.beginDescription();
  if (guarded("describing the screen", [&] { writeScreen(now, navigation_.get(), numbers_, images_); })) return false;
  // What follows the opening brace.
  const std::string_view description = std::string_view(now.text()).substr(1);
  if (description == std::string_view(text_).substr(headLength_)) return false;
  if (!text_.empty()) ++revision_;
  std::string text = "{\"revision\":" + std::to_string(revision_) + ',';
  headLength_ = text.size();
  text += description;
  text_ = std::move(text);
  images_.accept();
  return true;
}

Reply Session::perform(const Json &event) {
  return performing(event, [&] { return routeEvent(event, navigation_.get(), numbers_); });
}

Reply Session::pickFile(const Json &request) {
  return performing(request, [&] { return pickUploadedFile(request, navigation_.get()); });
}

Reply Session::addPhoto(const Json &request) {
  NSString *path = nil;
  const EventResult result = addUploadedPhoto(request, &path);
  return result.status == 200 ? Reply{200, dump({{"path", utf8(path)}})} : errorReply(result);
}

NSData *Session::sharedContentOf(std::string_view identifier, Reply &problem) {
  NSData *content = nil;
  const EventResult result = readSharedItem(identifier, navigation_.get(), numbers_, &content);
  if (result.status != 200) problem = errorReply(result);
  return content;
}

/// Does `work`, which gives an EventResult, unless `request` is for another revision; then all that it put on the main
/// queue.
template <typename Work>
Reply Session::performing(const Json &request, Work work) {
  if (hasUnnamedRows(navigation_.get())) refresh();  // So that a row that was loaded anew meanwhile is found.
  if (const auto wanted = request.find("revision"); wanted != request.end()) {
    if (!wanted->is_number_unsigned()) return {400, dump({{"error", "A revision is a whole number."}})};
    if (*wanted != revision_) {
      return {409, dump({{"error", "The screen has changed; this event is for another revision."},
                         {"revision", revision_}})};
    }
  }
  EventResult result;
  guarded("performing an event", [&] { result = work(); });
  refresh();
  return result.status == 200 ? Reply{200, text_} : errorReply(result);
}

void Session::setDark(bool dark) {
  guarded("changing the appearance", [&] {
    [window_.get() sim_changeUserInterfaceStyle:dark ? UIUserInterfaceStyleDark : UIUserInterfaceStyleLight];
  });
}

void Session::setScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea) {
  guarded("changing the screen", [&] { [window_.get() sim_changeScreenToSize:size scale:scale safeArea:safeArea]; });
}

}  // namespace sim
