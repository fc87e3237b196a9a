#include "server/Api.hpp"

#include "base/Json.hpp"
#include "server/FileName.hpp"
#include "server/UploadFolder.hpp"

#include <charconv>
#include <string_view>

#include <utility>

namespace sim {
namespace {

// What the phone shows while there is no Settings process to ask.
nlohmann::json screenWithoutSettings(std::uint64_t revision, const std::string& reason) {
  const nlohmann::json section{{"header", "Settings could not be started"},
                               {"footer", reason},
                               {"headerView", nullptr},
                               {"footerView", nullptr},
                               {"rows", nlohmann::json::array()}};
  const nlohmann::json page{{"class", ""},
                            {"title", "Settings"},
                            {"back", nullptr},
                            {"buttons", nlohmann::json::array()},
                            {"editing", false},
                            {"style", "insetGrouped"},
                            {"sections", nlohmann::json::array({section})}};
  return {{"revision", revision},
          {"path", nlohmann::json::array({"Settings"})},
          {"page", page},
          {"alert", nullptr},
          {"sheet", nullptr}};
}

// The body as a JSON object, or null.
nlohmann::json objectIn(const Request& request) {
  auto body = parseJson(request.body);
  return body && body->is_object() ? std::move(*body) : nlohmann::json();
}

// The display that `body` asks for: what it leaves out stays as `now` has it. Nothing when it asks for none or an
// unknown one.
std::optional<Display> displayWanted(const nlohmann::json& body, const Display& now) {
  const auto kind = body.find("kind");
  const auto orientation = body.find("orientation");
  if (kind == body.end() && orientation == body.end()) return std::nullopt;
  const auto textOr = [&](auto found, std::string_view otherwise) -> std::string_view {
    if (found == body.end()) return otherwise;
    return found->is_string() ? std::string_view(found->template get_ref<const std::string&>()) : std::string_view();
  };
  return displayOf(textOr(kind, now.kind), textOr(orientation, now.orientation));
}

// Headers that go with an uploaded file.
constexpr const char* kNameHeader = "X-Sim-File-Name";
constexpr const char* kRevisionHeader = "X-Sim-Revision";

// Puts the name of the uploaded file into the message, if there is one. False when it is none that a file can have.
bool addFileName(const Request& request, nlohmann::json& message) {
  const auto names = request.head.values(kNameHeader);
  if (names.empty()) return true;
  const auto name = names.size() == 1 ? decodedFileName(names.front()) : std::nullopt;
  if (name) message["name"] = *name;
  return name.has_value();
}

// Likewise the revision of the screen that the request is for.
bool addRevision(const Request& request, nlohmann::json& message) {
  const auto revisions = request.head.values(kRevisionHeader);
  if (revisions.empty()) return true;
  const std::string_view text = revisions.front();
  std::uint64_t revision = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), revision);
  if (revisions.size() != 1 || error != std::errc() || end != text.data() + text.size()) return false;
  message["revision"] = revision;
  return true;
}

// Keeps the uploaded file until the answer is there.
Respond keeping(const std::shared_ptr<Upload>& upload, Respond respond) {
  return [upload, respond = std::move(respond)](Response response) { respond(std::move(response)); };
}

}  // namespace

void Api::handle(Endpoint endpoint, Request request, Respond respond) {
  switch (endpoint) {
    case Endpoint::screen: return screen(respond);
    case Endpoint::events: return event(request, std::move(respond));
    case Endpoint::image: return image(request, std::move(respond));
    case Endpoint::photos: return addPhoto(request, std::move(respond));
    case Endpoint::pickedFile: return pickFile(request, std::move(respond));
    case Endpoint::shared: return shared(request, std::move(respond));
    case Endpoint::device: return device(respond);
    case Endpoint::pasteboard: return pasteboard(request, respond);
    case Endpoint::pasteboardString: return pasteboardString(respond);
    case Endpoint::appearance: return appearance(request, respond);
    case Endpoint::display: return display(request, respond);
  }
}

void Api::screen(const Respond& respond) {
  if (const auto& failure = settings_.failure())
    return respond(jsonResponse(200, screenWithoutSettings(settings_.revision(), *failure)));
  settings_.request({{"verb", "screen"}}, respond);
}

void Api::event(const Request& request, Respond respond) {
  nlohmann::json event = objectIn(request);
  if (!event.is_object()) return respond(errorResponse(400, "The body is no JSON object."));
  if (!event["type"].is_string()) return respond(errorResponse(400, "The event has no \"type\"."));
  settings_.request({{"verb", "event"}, {"event", std::move(event)}}, std::move(respond));
}

void Api::image(const Request& request, Respond respond) {
  std::string identifier(identifierIn(request.head.path));
  if (const Response* known = images_.find(identifier)) return respond(*known);
  const nlohmann::json message{{"verb", "image"}, {"id", identifier}};
  settings_.request(message,
                    [this, identifier = std::move(identifier), respond = std::move(respond)](Response response) {
                      if (response.status == 200) images_.insert(identifier, response);
                      respond(std::move(response));
                    });
}

void Api::addPhoto(const Request& request, Respond respond) {
  nlohmann::json message{{"verb", "addPhoto"}, {"file", request.upload->devicePath()}};
  if (!addFileName(request, message)) return respond(errorResponse(400, "The X-Sim-File-Name names no file."));
  settings_.request(std::move(message), keeping(request.upload, std::move(respond)));
}

void Api::pickFile(const Request& request, Respond respond) {
  nlohmann::json message{{"verb", "pickFile"}, {"file", request.upload->devicePath()}};
  if (!addFileName(request, message) || !message.contains("name"))
    return respond(errorResponse(400, "The X-Sim-File-Name names no file."));
  if (!addRevision(request, message)) return respond(errorResponse(400, "The X-Sim-Revision is no whole number."));
  settings_.request(std::move(message), keeping(request.upload, std::move(respond)));
}

void Api::shared(const Request& request, Respond respond) {
  const nlohmann::json message{{"verb", "shared"}, {"id", identifierIn(request.head.path)}};
  settings_.request(message, [respond = std::move(respond)](Response response) {
    if (response.status == 200) response.headers.emplace_back("Content-Disposition", "attachment");
    respond(std::move(response));
  });
}

void Api::device(const Respond& respond) {
  nlohmann::json state = device_.json();
  state["files"] = files_.json();
  respond(jsonResponse(200, state));
}

void Api::pasteboard(const Request& request, const Respond& respond) {
  const nlohmann::json body = objectIn(request);
  const auto string = body.find("string");
  if (!body.is_object() || string == body.end() || !(string->is_string() || string->is_null()))
    return respond(errorResponse(400, "The body must be {\"string\": text or null}."));
  device_.setPasteboard(string->is_null() ? std::nullopt : std::optional(string->get<std::string>()));
  settings_.tell(pasteboardMessage(device_.pasteboard()));
  respond(jsonResponse(200, body));
}

void Api::pasteboardString(const Respond& respond) {
  nlohmann::json body{{"string", nullptr}};
  if (device_.pasteboard()) body["string"] = *device_.pasteboard();
  respond(jsonResponse(200, body));
}

void Api::appearance(const Request& request, const Respond& respond) {
  const nlohmann::json body = objectIn(request);
  const auto style = body.find("style");
  if (!body.is_object() || style == body.end() || !(*style == "light" || *style == "dark"))
    return respond(errorResponse(400, "The body must be {\"style\": \"light\" or \"dark\"}."));
  device_.setAppearance(style->get<std::string>());
  settings_.tell(appearanceMessage(*device_.appearance()));
  respond(jsonResponse(200, body));
}

void Api::display(const Request& request, const Respond& respond) {
  const auto display = displayWanted(objectIn(request), device_.display());
  if (!display)
    return respond(errorResponse(400,
                                 "The body must have \"kind\", \"phone\" or \"tablet\", or \"orientation\", "
                                 "\"portrait\" or \"landscape\", or both."));
  device_.setDisplay(*display);
  settings_.tell(displayMessage(*display));
  respond(jsonResponse(200, display->json()));
}

nlohmann::json pasteboardMessage(const std::optional<std::string>& string) {
  nlohmann::json message{{"verb", "pasteboard"}, {"string", nullptr}};
  if (string) message["string"] = *string;
  return message;
}

nlohmann::json appearanceMessage(const std::string& style) { return {{"verb", "appearance"}, {"style", style}}; }

nlohmann::json displayMessage(const Display& display) {
  nlohmann::json message = display.json();
  message["verb"] = "display";
  return message;
}

}  // namespace sim
