#include "server/SettingsProcess.hpp"

#include "base/Failure.hpp"
#include "base/TemporaryFile.hpp"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace sim {
namespace {

std::string seconds(std::chrono::milliseconds time) { return std::to_string(time.count() / 1000) + " s"; }

bool isReadable(int descriptor) {
  pollfd socket{descriptor, POLLIN, 0};
  return ::poll(&socket, 1, 0) > 0;
}

int statusOf(wire::Outcome outcome) {
  switch (outcome) {
    case wire::Outcome::done: return 200;
    case wire::Outcome::malformed: return 400;
    case wire::Outcome::unknown: return 404;
    case wire::Outcome::stale: return 409;
    case wire::Outcome::refused: return 422;
    case wire::Outcome::failed: return 500;
    case wire::Outcome::diskFull: return 507;
    case wire::Outcome::garbled: return 502;
  }
  return 502;
}

// The process is our own program, but the bundles in it are anybody's: nothing that a browser would run is among these.
std::string typeOf(wire::Answer kind) {
  switch (kind) {
    case wire::Answer::screen:
    case wire::Answer::photo: return "application/json";
    case wire::Answer::picture: return "image/png";
    default: return "application/octet-stream";
  }
}

Response responseFrom(wire::Answer kind, wire::Reply reply) {
  if (reply.outcome == wire::Outcome::done)
    return {200, typeOf(kind), std::make_shared<const std::string>(std::move(reply.content)), {}};
  nlohmann::json body{{"error", std::move(reply.content)}};
  if (reply.outcome == wire::Outcome::stale) body["revision"] = reply.revision;
  return jsonResponse(statusOf(reply.outcome), body);
}

}  // namespace

SettingsProcess::SettingsProcess(EventLoop& loop, Settings settings, Listener listener)
    : loop_(loop), settings_(std::move(settings)), listener_(std::move(listener)) {}

SettingsProcess::~SettingsProcess() { stop(); }

void SettingsProcess::start() { launch(); }

// What it has sent is still heard.
void SettingsProcess::endChild() {
  loop_.cancel(restartTimer_);
  if (child_) {
    child_->kill();
    drain();
    detach();
  }
  shortLives_ = 0;
}

void SettingsProcess::end(const std::string& why) {
  endChild();
  failPending(503, why);
}

void SettingsProcess::stop() {
  loop_.cancel(restartTimer_);
  if (child_) {
    loop_.unwatch(child_->channel().descriptor());
    loop_.unwatch(child_->endDescriptor());
    child_->stop(settings_.patience.stop);
  }
  detach();
  failPending(503, "The simulator is stopping.");
}

void SettingsProcess::request(wire::Call call, Respond respond) {
  request(std::move(call), std::move(respond),
          hasAnswered_ ? settings_.patience.answer : settings_.patience.firstAnswer);
}

void SettingsProcess::request(wire::Call call, Respond respond, Milliseconds patience) {
  if (!child_) return respond(errorResponse(503, failure_.value_or(settings_.name + " is not running.")));

  const std::uint64_t number = ++lastRequest_;
  const EventLoop::Timer timeout = loop_.after(patience, [this, number, patience] {
    const auto entry = pending_.find(number);
    if (entry == pending_.end()) return;
    // The entry stays: the process still owes the answer, and is hung when it never comes.
    std::exchange(entry->second.respond,
                  nullptr)(errorResponse(504, settings_.name + " has not answered within " + seconds(patience) + "."));
  });
  if (pending_.empty()) waitingSince_ = Clock::now();
  pending_.emplace(number, Pending{wire::traitsOf(call).answer, std::move(respond), timeout});
  watchForHang();
  send({number, std::move(call)});
}

void SettingsProcess::tell(wire::Call call) {
  if (child_) send({0, std::move(call)});
}

void SettingsProcess::respring() {
  startAfresh([] {});
}

void SettingsProcess::askPlace(Respond respond) {
  request(wire::Place{}, std::move(respond), settings_.patience.place);
}

void SettingsProcess::restart(std::optional<std::string> place, Respond respond) {
  startAfresh([&] {
    if (place) request(wire::Reopen{*std::move(place)}, std::move(respond));
    else request(wire::Screen{}, std::move(respond));
  });
}

// `first` asks the fresh process before the requests that the old one leaves are asked again.
void SettingsProcess::startAfresh(const std::function<void()>& first) {
  endChild();
  auto interrupted = std::exchange(pending_, {});
  launch();
  first();
  for (auto& [number, pending] : interrupted) {
    loop_.cancel(pending.timeout);
    if (!pending.respond) continue;
    if (pending.kind == wire::Answer::screen) {
      request(wire::Screen{}, std::move(pending.respond));
    } else if (pending.kind == wire::Answer::photo) {
      pending.respond(errorResponse(503, "Settings was started afresh meanwhile. Please try again."));
    } else {
      pending.respond(errorResponse(404, "What this was about went with the respring."));
    }
  }
}

void SettingsProcess::launch() {
  ++revision_;
  launched_ = Clock::now();
  hasAnswered_ = false;
  isClosed_ = false;
  removeAbandonedFiles(settings_.deviceFolder);  // A respring ends Settings in the middle of whatever it writes.
  try {
    child_ = std::make_unique<ChildProcess>([this](int descriptor) { return command(descriptor); });
  } catch (const Failure& failure) {
    std::string reason = failure.what();
    if (reason.ends_with('.')) reason.pop_back();
    ended({"could not be started: " + reason});
    return;
  }
  failure_.reset();
  loop_.watch(child_->endDescriptor(), POLLIN, [this] { childEnded(); });
  flush();
  for (wire::Call& call : listener_.greeting()) send({0, std::move(call)});
  listener_.started();
  listener_.revisionChanged();
}

ProgramCommand SettingsProcess::command(int channel) const {
  std::vector<std::string> arguments{"--device",   settings_.sandbox ? "/" : settings_.deviceFolder,
                                     "--channel",  std::to_string(channel),
                                     "--revision", std::to_string(revision_)};
  arguments.insert(arguments.end(), settings_.arguments.begin(), settings_.arguments.end());
  if (settings_.sandbox) return settings_.sandbox->command(settings_.program, arguments);
  return {settings_.program, arguments};
}

void SettingsProcess::send(wire::Request request) {
  child_->channel().queue(wire::encode(std::move(request)));
  flush();
}

// Sends what the process takes now, and waits for the rest and for what it says.
void SettingsProcess::flush() {
  if (isClosed_) return;
  wire::Channel& channel = child_->channel();
  const bool more = channel.flush() && channel.hasQueued();
  loop_.watch(channel.descriptor(), static_cast<short>(more ? POLLIN | POLLOUT : POLLIN), [this] { channelReady(); });
}

void SettingsProcess::channelReady() {
  if (!isReadable(child_->channel().descriptor())) return flush();
  if (!receive()) channelClosed();
}

// The process is about to end, or it speaks no more of our language; without its channel it is of no use.
void SettingsProcess::channelClosed() {
  isClosed_ = true;
  loop_.unwatch(child_->channel().descriptor());
  closeTimer_ = loop_.after(settings_.patience.close, [this] {
    child_->kill();
    ended({"has left its channel and was killed"});
  });
}

void SettingsProcess::childEnded() {
  const std::string how = child_->kill();
  drain();
  ended({how});
}

// Takes what the process said before its end. Another process may hold the channel open, so this does not wait for its
// end.
void SettingsProcess::drain() {
  while (!isClosed_ && isReadable(child_->channel().descriptor()) && receive()) {
  }
}

// False when the channel has come to its end.
bool SettingsProcess::receive() {
  std::vector<wire::Message> messages;
  const bool open = child_->channel().receive(messages);
  for (wire::Message& message : messages) take(wire::decodeReport(std::move(message)));
  return open;
}

void SettingsProcess::take(wire::Report report) {
  std::visit(wire::Overloaded{
                 [this](wire::Reply& reply) { answer(std::move(reply)); },
                 [this](wire::Changed& changed) { sawRevision(changed.revision); },
                 [this](wire::Unreadable&) { listener_.logged(settings_.name + " has said what nobody understands."); },
                 [this](auto& post) { listener_.posted(std::move(post)); },
             },
             report);
}

void SettingsProcess::answer(wire::Reply reply) {
  const auto entry = pending_.find(reply.request);
  if (entry == pending_.end()) return;
  Pending pending = std::move(entry->second);
  pending_.erase(entry);
  loop_.cancel(pending.timeout);
  hasAnswered_ = true;
  waitingSince_ = Clock::now();

  sawRevision(reply.revision);
  if (pending.respond) pending.respond(responseFrom(pending.kind, std::move(reply)));
}

void SettingsProcess::sawRevision(std::uint64_t revision) {
  if (revision <= revision_) return;
  revision_ = revision;
  listener_.revisionChanged();
}

void SettingsProcess::watchForHang() {
  loop_.cancel(hangTimer_);
  const auto waited = std::chrono::floor<Milliseconds>(Clock::now() - waitingSince_);
  hangTimer_ = loop_.after(std::max(settings_.patience.hung - waited, Milliseconds{0}), [this] { checkForHang(); });
}

void SettingsProcess::checkForHang() {
  if (pending_.empty() || !child_) return;
  if (Clock::now() - waitingSince_ < settings_.patience.hung) return watchForHang();
  child_->kill();
  drain();
  ended({"has not answered for " + seconds(settings_.patience.hung) + " and was killed", true});
}

// Lets go of the process, which is killed when it still runs.
void SettingsProcess::detach() {
  if (!child_) return;
  loop_.cancel(hangTimer_);
  loop_.cancel(closeTimer_);
  loop_.unwatch(child_->channel().descriptor());
  loop_.unwatch(child_->endDescriptor());
  child_.reset();
}

void SettingsProcess::ended(const End& end) {
  const std::string how = settings_.name + " " + end.how + ".";
  const bool wasShort = Clock::now() - launched_ < settings_.patience.shortLife;
  shortLives_ = wasShort ? shortLives_ + 1 : 0;
  detach();
  if (!settings_.isStartedAgain) {
    failure_ = how;
    ++revision_;
    listener_.logged(how);
    listener_.ended(end);
    return failPending(500, how);
  }
  failPending(500, how);
  if (shortLives_ < 2) {
    listener_.logged(how + " It is started again.");
    return launch();
  }

  const int doublings = std::min(shortLives_ - 2, 16);
  const Milliseconds pause =
      std::min(settings_.patience.firstPause * (1 << doublings), settings_.patience.longestPause);
  listener_.logged(how + " It is started again in " + std::to_string(pause.count()) + " ms.");
  failure_ = how;
  ++revision_;
  listener_.revisionChanged();
  restartTimer_ = loop_.after(pause, [this] { launch(); });
}

void SettingsProcess::failPending(int status, const std::string& reason) {
  for (auto& [number, pending] : std::exchange(pending_, {})) {
    loop_.cancel(pending.timeout);
    if (pending.respond) pending.respond(errorResponse(status, reason));
  }
}

}  // namespace sim
