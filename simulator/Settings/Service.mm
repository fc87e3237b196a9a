#import "Settings/Service.h"

#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <Foundation/SIMLog.h>
#import <UIKit/UIApplication+Sim.h>
#import <UIKit/UIPasteboard+Sim.h>

#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace sim {
namespace {

void post(void *channel, wire::Report report) { send(*static_cast<wire::Channel *>(channel), std::move(report)); }

void postNotification(NSString *name, void *channel) {
  if (name) post(channel, wire::Notification{utf8(name)});
}
void postURL(NSURL *url, void *channel) {
  if (url) post(channel, wire::OpenURL{utf8([url absoluteString])});
}
void postPasteboard(NSString *string, void *channel) {
  post(channel, wire::Pasteboard{string ? std::optional(utf8(string)) : std::nullopt});
}
void postLog(NSString *line, void *channel) { post(channel, wire::Log{utf8(line)}); }

}  // namespace

// Lines may be logged on other threads than the main one. A simulator that is gone is met when reading.
void send(wire::Channel &channel, wire::Report report) {
  static std::mutex mutex;
  const wire::Message message = wire::encode(std::move(report));
  const std::lock_guard lock(mutex);
  (void)channel.send(message);
}

void reportDeviceEvents(wire::Channel &channel) {
  SIMSetDarwinPostHandler(postNotification, &channel);
  SIMSetOpenURLHandler(postURL, &channel);
  SIMSetPasteboardHandler(postPasteboard, &channel);
  SIMSetLogHandler(postLog, &channel);
}

bool Service::serve() {
  std::vector<wire::Message> messages;
  const bool open = channel_.receive(messages);
  for (wire::Message &message : messages) {
    @autoreleasepool {
      handle(wire::decodeRequest(std::move(message)));
    }
  }
  return open;
}

void Service::announce() {
  owesAnnouncement_ = false;
  if (session_.refresh()) post(&channel_, wire::Changed{session_.revision()});
}

void Service::handle(const wire::Request &request) {
  const std::uint64_t before = session_.revision();
  wire::Reply reply = session_.perform(request.call);
  owesAnnouncement_ = !wire::traitsOf(request.call).describesScreen;
  if (request.number > 0) {
    reply.request = request.number;
    return post(&channel_, std::move(reply));
  }
  if (reply.outcome != wire::Outcome::done) NSLog(@"[simulator] %s", reply.content.c_str());
  if (reply.revision != before) post(&channel_, wire::Changed{reply.revision});
}

}  // namespace sim
