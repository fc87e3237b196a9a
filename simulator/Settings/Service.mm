#import "Settings/Service.hpp"

#import <CoreFoundation/CFNotificationCenter+Sim.h>
#import <Foundation/SIMLog.h>
#import <UIKit/UIApplication+Sim.h>
#import <UIKit/UIPasteboard+Sim.h>

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace sim {
namespace {

std::string textOf(const Json &object, const char *name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

double numberOf(const Json &object, const char *name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_number() ? found->get<double>() : 0;
}

/// {"top","left","bottom","right"} in points; what is missing counts as 0.
UIEdgeInsets insetsOf(const Json &object, const char *name) {
  const auto found = object.find(name);
  if (found == object.end() || !found->is_object()) return UIEdgeInsetsZero;
  return {numberOf(*found, "top"), numberOf(*found, "left"), numberOf(*found, "bottom"), numberOf(*found, "right")};
}

/// Sends on any thread: lines may be logged on others than the main one. A simulator that is gone is met when reading.
void send(wire::Channel &channel, const wire::Message &message) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  (void)channel.send(message);
}

void post(void *channel, Json header) { send(*static_cast<wire::Channel *>(channel), {std::move(header), {}}); }

/// The head of the answer to `request`.
Json replyTo(const Json &request, int status, const char *type) {
  const auto number = request.find("request");
  return {{"reply", number == request.end() ? Json() : *number}, {"status", status}, {"type", type}};
}

/// The text `string` (null for nil) under `name`.
void postText(void *channel, const char *kind, const char *name, NSString *string) {
  post(channel, {{"post", kind}, {name, string ? Json(utf8(string)) : Json()}});
}

void postNotification(NSString *name, void *channel) { postText(channel, "notification", "name", name); }
void postURL(NSURL *url, void *channel) { postText(channel, "openURL", "url", [url absoluteString]); }
void postPasteboard(NSString *string, void *channel) { postText(channel, "pasteboard", "string", string); }
void postLog(NSString *line, void *channel) { postText(channel, "log", "line", line); }

}  // namespace

void reportDeviceEvents(wire::Channel &channel) {
  SIMSetDarwinPostHandler(postNotification, &channel);
  SIMSetOpenURLHandler(postURL, &channel);
  SIMSetPasteboardHandler(postPasteboard, &channel);
  SIMSetLogHandler(postLog, &channel);
}

bool Service::serve() {
  std::vector<wire::Message> messages;
  const bool open = channel_.receive(messages);
  for (const wire::Message &message : messages) {
    @autoreleasepool {
      handle(message);
    }
  }
  return open;
}

void Service::announce() {
  owesAnnouncement_ = false;
  if (!session_.refresh()) return;
  post(&channel_, {{"post", "changed"}, {"revision", session_.revision()}});
}

void Service::handle(const wire::Message &message) {
  const Json &request = message.header;
  const std::string verb = textOf(request, "verb");
  owesAnnouncement_ = true;
  if (verb == "screen") {
    session_.refresh();
    owesAnnouncement_ = false;
    answer(request, {200, session_.screen()});
  } else if (verb == "event") {
    const auto event = request.find("event");
    Reply reply = session_.perform(event == request.end() ? Json() : *event);
    owesAnnouncement_ = reply.status != 200;
    answer(request, std::move(reply));
  } else if (verb == "pickFile") {
    answer(request, session_.pickFile(request));
  } else if (verb == "addPhoto") {
    Reply reply = session_.addPhoto(request);
    announce();  // An open picker shows the photo.
    answer(request, std::move(reply));
  } else if (verb == "shared") {
    answerShared(request);
  } else if (verb == "image") {
    answerImage(request);
  } else if (verb == "pasteboard") {
    const auto string = request.find("string");
    [[UIPasteboard generalPasteboard] sim_setStringFromOutside:string == request.end() ? nil : stringFrom(*string)];
  } else if (verb == "appearance") {
    session_.setDark(textOf(request, "style") == "dark");
    announce();
  } else if (verb == "display") {
    session_.setScreen(CGSizeMake(numberOf(request, "width"), numberOf(request, "height")), numberOf(request, "scale"),
                       insetsOf(request, "safeArea"));
    announce();
  } else if (request.contains("request")) {
    answer(request, {400, R"({"error":"Unknown request."})"});
  }
}

void Service::answer(const Json &request, Reply reply) {
  send(channel_, {replyTo(request, reply.status, "application/json"), std::move(reply.body)});
}

void Service::answerShared(const Json &request) {
  Reply problem;
  NSData *content = session_.sharedContentOf(textOf(request, "id"), problem);
  if (!content) return answer(request, std::move(problem));
  std::string bytes(static_cast<const char *>([content bytes]), [content length]);
  send(channel_, {replyTo(request, 200, "application/octet-stream"), std::move(bytes)});
}

void Service::answerImage(const Json &request) {
  NSData *png = session_.pngOf(textOf(request, "id"));
  if (!png) {
    answer(request, {404, R"({"error":"There is no such picture."})"});
    return;
  }
  std::string bytes(static_cast<const char *>([png bytes]), [png length]);
  send(channel_, {replyTo(request, 200, "image/png"), std::move(bytes)});
}

}  // namespace sim
