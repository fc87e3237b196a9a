#import "Settings/Session.h"

#import <Foundation/Guarded.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIPasteboard+Sim.h>
#import <UIKit/UIWindow+Sim.h>
#import <dispatch/MainQueue+Sim.h>

#import "Settings/EventRouter.h"
#import "Settings/FileTransfer.h"
#import "Settings/stage/Stage.h"

#include "base/Json.hpp"

#include <utility>
#include <variant>

namespace sim {
namespace {

wire::Reply replyTo(const EventResult &result, std::string content = {}) {
  return {.outcome = result.outcome, .content = result.outcome == Outcome::done ? std::move(content) : result.error};
}

wire::Reply replyWith(NSData *bytes) {
  return {.content = std::string(static_cast<const char *>([bytes bytes]), [bytes length])};
}

EventResult stale() { return {Outcome::stale, "The screen has changed; this event is for another revision."}; }

wire::Reply noStage() { return replyTo(refused("Widgets are shown on the stage, which is another process.")); }

/// Tells the stage, if there is one, that code of the widget on it may run.
class OnStage final {
 public:
  explicit OnStage(Stage *stage, const char *doing) : stage_(stage) {
    if (stage_) stage_->enter(doing);
  }
  ~OnStage() {
    if (stage_) stage_->leave();
  }
  OnStage(const OnStage &) = delete;
  OnStage &operator=(const OnStage &) = delete;

 private:
  Stage *stage_;
};

}  // namespace

Session::Session(UIViewController *root, std::uint64_t firstRevision, Stage *stage)
    : stage_(stage),
      window_(objcxx::adopt([[UIWindow alloc] initWithFrame:[[UIScreen mainScreen] bounds]])),
      navigation_(objcxx::adopt([[UINavigationController alloc] initWithRootViewController:root])),
      images_(firstRevision, stage ? wire::kStagePlace : std::string_view()),
      revision_(firstRevision) {
  [[navigation_.get() navigationBar] setPrefersLargeTitles:YES];
  [window_.get() setRootViewController:navigation_.get()];
  guarded(@"opening the application", [this] { [window_.get() makeKeyAndVisible]; });
  refresh();
}

bool Session::refresh() {
  guarded(@"running the main queue", [] { SIMDrainMainQueue(); });
  JsonText now;
  images_.beginDescription();
  if (guarded(@"describing the screen", [&] { writeScreen(now, navigation_.get(), numbers_, images_); })) return false;
  // What follows the opening brace.
  const std::string_view description = std::string_view(now.text()).substr(1);
  const bool isSame = description == std::string_view(text_).substr(headLength_);
  if (!isSame && !text_.empty()) ++revision_;
  std::string text = head();
  headLength_ = text.size();
  text += description;
  text_ = std::move(text);
  if (isSame) return false;
  images_.accept();
  return true;
}

std::string Session::head() const {
  JsonText out;
  out.beginObject();
  out.name("revision").natural(revision_);
  writeContentOffset(out.name("contentOffset"), navigation_.get());
  return std::move(out).text() + ',';
}

wire::Reply Session::perform(const wire::Call &call) {
  const wire::VerbTraits &traits = wire::traitsOf(call);
  const bool answersScreen = traits.answer == wire::Answer::screen;
  // So that a row that was loaded anew meanwhile is found.
  if (traits.describesScreen && hasUnnamedRows(navigation_.get())) refresh();
  const OnStage entered(stage_, traits.verb == wire::Verb::event ? "being touched" : "being laid out or drawn");
  wire::Reply reply;
  NSString *raised = guarded(@"performing an event",
                             [&] { reply = std::visit([this](const auto &each) { return work(each); }, call); });
  if (raised && !answersScreen) reply = replyTo({Outcome::failed, "It raised " + utf8(raised) + "."});
  if (traits.describesScreen) refresh();
  trail_.didPerform(navigation_.get(), numbers_);
  if (answersScreen && reply.outcome == Outcome::done) reply.content = text_;
  reply.revision = revision_;
  return reply;
}

wire::Reply Session::work(const wire::Unreadable &) { return replyTo(malformed("Settings does not know this call.")); }

wire::Reply Session::work(const wire::Screen &) { return {}; }

wire::Reply Session::work(const wire::Event &call) {
  const Json event = parseJson(call.body).value_or(Json());
  if (const auto wanted = event.find("revision"); wanted != event.end()) {
    if (!wanted->is_number_unsigned()) return replyTo(malformed("A revision is a whole number."));
    if (*wanted != revision_) return replyTo(stale());
  }
  trail_.willPerform(event, navigation_.get(), numbers_);
  return replyTo(routeEvent(event, navigation_.get(), numbers_));
}

wire::Reply Session::work(const wire::PickFile &call) {
  if (call.revision.value_or(revision_) != revision_) return replyTo(stale());
  return replyTo(pickUploadedFile(call, navigation_.get()));
}

wire::Reply Session::work(const wire::AddPhoto &call) {
  NSString *path = nil;
  const EventResult result = addUploadedPhoto(call, &path);
  JsonText content;
  content.beginObject();
  content.name("path").string(utf8(path));
  content.endObject();
  return replyTo(result, std::move(content).text());
}

wire::Reply Session::work(const wire::Image &call) {
  NSData *png = pngOf(call.id);
  return png ? replyWith(png) : replyTo({Outcome::unknown, "There is no such picture."});
}

wire::Reply Session::work(const wire::Shared &call) {
  NSData *content = nil;
  const EventResult result = readSharedItem(call.id, navigation_.get(), numbers_, &content);
  return result.outcome == Outcome::done ? replyWith(content) : replyTo(result);
}

wire::Reply Session::work(const wire::Pasteboard &call) {
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:call.string ? stringFrom(*call.string) : nil];
  return {};
}

wire::Reply Session::work(const wire::Appearance &call) {
  setDark(call.isDark);
  return {};
}

wire::Reply Session::work(const wire::Display &call) {
  setScreen(CGSizeMake(call.width, call.height), call.scale,
            UIEdgeInsetsMake(call.top, call.left, call.bottom, call.right));
  return {};
}

wire::Reply Session::work(const wire::Place &) { return {.content = trail_.place(navigation_.get(), numbers_)}; }

wire::Reply Session::work(const wire::Reopen &call) {
  const auto perform = [this](const Json &event) {
    trail_.willPerform(event, navigation_.get(), numbers_);
    (void)routeEvent(event, navigation_.get(), numbers_);
    refresh();
    trail_.didPerform(navigation_.get(), numbers_);
  };
  const Json place = parseJson(call.place).value_or(Json());
  if (!trail_.reopen(place, navigation_.get(), numbers_, perform)) return replyTo(malformed("This is no place."));
  return {};
}
wire::Reply Session::work(const wire::LoadWidgets &call) { return stage_ ? stage_->load(call) : noStage(); }

wire::Reply Session::work(const wire::ShowWidget &call) { return stage_ ? stage_->show(call) : noStage(); }

wire::Reply Session::work(const wire::CallWidget &call) { return stage_ ? stage_->call(call) : noStage(); }

wire::Reply Session::work(const wire::OpenPreferences &) { return stage_ ? stage_->openPreferences() : noStage(); }

void Session::setDark(bool dark) {
  guarded(@"changing the appearance", [&] {
    [window_.get() sim_changeUserInterfaceStyle:dark ? UIUserInterfaceStyleDark : UIUserInterfaceStyleLight];
  });
}

void Session::setScreen(CGSize size, CGFloat scale, UIEdgeInsets safeArea) {
  guarded(@"changing the screen", [&] { [window_.get() sim_changeScreenToSize:size scale:scale safeArea:safeArea]; });
}

}  // namespace sim
