#include "server/Api.hpp"

#include "base/Failure.hpp"
#include "base/Json.hpp"
#include "server/FileName.hpp"
#include "server/UploadFolder.hpp"
#include "wire/NoticePage.hpp"

#include <charconv>
#include <string_view>
#include <type_traits>
#include <utility>

namespace sim {
namespace {

// The body as a JSON object, or null.
nlohmann::json objectIn(const Request& request) {
  auto body = parseJson(request.body);
  return body && body->is_object() ? std::move(*body) : nlohmann::json();
}

// The display that `body` asks for: what it leaves out stays as `now` has it. Nothing when it asks for none or an
// unknown one.
std::optional<Display> displayWanted(const nlohmann::json& body, const Display& now) {
  if (!body.contains("kind") && !body.contains("orientation")) return std::nullopt;
  const auto textOr = [&](const char* key, std::string_view otherwise) -> std::string_view {
    if (!body.contains(key)) return otherwise;
    const std::string* text = textIn(body, key);
    return text ? *text : std::string_view();
  };
  return displayOf(textOr("kind", now.kind), textOr("orientation", now.orientation));
}

// Headers that go with an uploaded file.
constexpr const char* kNameHeader = "X-Sim-File-Name";
constexpr const char* kRevisionHeader = "X-Sim-Revision";

// Stores the name of the uploaded file, if there is one. False when it is none that a file can have.
bool readFileName(const Request& request, std::optional<std::string>& name) {
  const auto names = request.head.values(kNameHeader);
  if (names.empty()) return true;
  name = names.size() == 1 ? decodedFileName(names.front()) : std::nullopt;
  return name.has_value();
}

// Likewise the revision of the screen that the request is for.
bool readRevision(const Request& request, std::optional<std::uint64_t>& revision) {
  const auto revisions = request.head.values(kRevisionHeader);
  if (revisions.empty()) return true;
  const std::string_view text = revisions.front();
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), revision.emplace());
  return revisions.size() == 1 && error == std::errc() && end == text.data() + text.size();
}

// Keeps the uploaded file until the answer is there.
Respond keeping(const std::shared_ptr<Upload>& upload, Respond respond) {
  return [upload, respond = std::move(respond)](Response response) { respond(std::move(response)); };
}

// A member of `object` that is a `Value` or null; false when it is something else.
template <typename Value>
bool readOptional(const nlohmann::json& object, const char* name, std::optional<Value>& value) {
  const auto found = object.find(name);
  if (found == object.end() || found->is_null()) return true;
  if constexpr (std::is_same_v<Value, std::string>) {
    if (!found->is_string()) return false;
  } else {
    if (!found->is_number_unsigned()) return false;
  }
  value = found->template get<Value>();
  return true;
}

// Nothing when `body` tells of no build.
std::optional<Build> buildIn(const nlohmann::json& body) {
  std::optional<std::string> name;
  Build build;
  if (!body.is_object() || !readOptional(body, "name", name) || !name) return std::nullopt;
  build.name = *std::move(name);
  if (!readOptional(body, "sentence", build.sentence)) return std::nullopt;
  const auto errors = body.find("errors");
  if (errors == body.end()) return build;
  if (!errors->is_array()) return std::nullopt;
  for (const nlohmann::json& each : *errors) {
    Build::Error& error = build.errors.emplace_back();
    std::optional<std::string> message;
    if (!each.is_object() || !readOptional(each, "file", error.file) || !readOptional(each, "line", error.line) ||
        !readOptional(each, "column", error.column) || !readOptional(each, "message", message) || !message)
      return std::nullopt;
    error.message = *std::move(message);
  }
  return build;
}

}  // namespace

void Api::handle(Endpoint endpoint, Request request, Respond respond) {
  switch (endpoint) {
    case Endpoint::screen: return screen(respond);
    case Endpoint::events: return event(&settings_, std::move(request), std::move(respond));
    case Endpoint::stage: return stage(request, std::move(respond));
    case Endpoint::stageScreen: return ask(stage_.process(), wire::Screen{}, std::move(respond));
    case Endpoint::stageEvents: return event(stage_.process(), std::move(request), std::move(respond));
    case Endpoint::stagePickedFile: return pickFile(stage_.process(), request, std::move(respond));
    case Endpoint::image: return image(request, std::move(respond));
    case Endpoint::photos: return addPhoto(request, std::move(respond));
    case Endpoint::pickedFile: return pickFile(&settings_, request, std::move(respond));
    case Endpoint::shared: return shared(request, std::move(respond));
    case Endpoint::device: return device(respond);
    case Endpoint::pasteboard: return pasteboard(request, respond);
    case Endpoint::pasteboardString: return pasteboardString(respond);
    case Endpoint::appearance: return appearance(request, respond);
    case Endpoint::display: return display(request, respond);
    case Endpoint::builds: return builds(request, respond);
    case Endpoint::reload: return reload(std::move(respond));
  }
}

void Api::screen(const Respond& respond) {
  const auto& failure = settings_.failure();
  if (!failure) return settings_.request(wire::Screen{}, respond);
  respond(jsonResponse(200, wire::noticeScreen(settings_.revision(), "Settings could not be started", *failure)));
}

void Api::stage(const Request& request, Respond respond) {
  stage_.perform(parseJson(request.body).value_or(nlohmann::json()), std::move(respond));
}

void Api::event(SettingsProcess* process, Request request, Respond respond) {
  isPlaceCurrent_ = false;
  ask(process, wire::Event{std::move(request.body)}, std::move(respond));
}

// `process` is nullptr for the stage when nothing is on it.
void Api::ask(SettingsProcess* process, wire::Call call, Respond respond) {
  if (process == nullptr) return respond(errorResponse(404, "No widget is on the stage."));
  process->request(std::move(call), std::move(respond));
}

void Api::tell(const wire::Call& call) {
  settings_.tell(call);
  stage_.tell(call);
}

// Whose picture or shared item has this identifier.
SettingsProcess* Api::processOf(std::string_view identifier) {
  return identifier.starts_with(wire::kStagePlace) ? stage_.process() : &settings_;
}

void Api::image(const Request& request, Respond respond) {
  std::string identifier(identifierIn(request.head.path));
  if (const Response* known = images_.find(identifier)) return respond(*known);
  ask(processOf(identifier), wire::Image{identifier},
      [this, identifier, respond = std::move(respond)](Response response) {
        if (response.status == 200) images_.insert(identifier, response);
        respond(std::move(response));
      });
}

void Api::addPhoto(const Request& request, Respond respond) {
  wire::AddPhoto call{request.upload->devicePath(), {}};
  if (!readFileName(request, call.name)) return respond(errorResponse(400, "The X-Sim-File-Name names no file."));
  settings_.request(std::move(call), keeping(request.upload, std::move(respond)));
}

void Api::pickFile(SettingsProcess* process, const Request& request, Respond respond) {
  wire::PickFile call{request.upload->devicePath(), {}, {}};
  std::optional<std::string> name;
  if (!readFileName(request, name) || !name) return respond(errorResponse(400, "The X-Sim-File-Name names no file."));
  call.name = *std::move(name);
  if (!readRevision(request, call.revision))
    return respond(errorResponse(400, "The X-Sim-Revision is no whole number."));
  isPlaceCurrent_ = false;
  ask(process, std::move(call), keeping(request.upload, std::move(respond)));
}

void Api::shared(const Request& request, Respond respond) {
  std::string identifier(identifierIn(request.head.path));
  SettingsProcess* process = processOf(identifier);
  if (process != &settings_) identifier.erase(0, wire::kStagePlace.size());
  ask(process, wire::Shared{std::move(identifier)}, [respond = std::move(respond)](Response response) {
    if (response.status == 200) response.headers.emplace_back("Content-Disposition", "attachment");
    respond(std::move(response));
  });
}

void Api::device(const Respond& respond) {
  nlohmann::json state = device_.json();
  state["files"] = files_.json();
  state["stage"] = stage_.json();
  respond(jsonResponse(200, state));
}

void Api::pasteboard(const Request& request, const Respond& respond) {
  const nlohmann::json body = objectIn(request);
  const auto string = body.find("string");
  if (!body.is_object() || string == body.end() || !(string->is_string() || string->is_null()))
    return respond(errorResponse(400, "The body must be {\"string\": text or null}."));
  device_.setPasteboard(string->is_null() ? std::nullopt : std::optional(string->get<std::string>()));
  tell(wire::Pasteboard{device_.pasteboard()});
  respond(jsonResponse(200, body));
}

void Api::pasteboardString(const Respond& respond) {
  nlohmann::json body{{"string", nullptr}};
  if (device_.pasteboard()) body["string"] = *device_.pasteboard();
  respond(jsonResponse(200, body));
}

void Api::appearance(const Request& request, const Respond& respond) {
  const nlohmann::json body = objectIn(request);
  const std::string* style = textIn(body, "style");
  if (!style || !(*style == "light" || *style == "dark"))
    return respond(errorResponse(400, "The body must be {\"style\": \"light\" or \"dark\"}."));
  device_.setAppearance(*style);
  tell(appearanceCall(*device_.appearance()));
  respond(jsonResponse(200, body));
}

void Api::display(const Request& request, const Respond& respond) {
  const auto display = displayWanted(objectIn(request), device_.display());
  if (!display)
    return respond(errorResponse(400,
                                 "The body must have \"kind\", \"phone\" or \"tablet\", or \"orientation\", "
                                 "\"portrait\" or \"landscape\", or both."));
  device_.setDisplay(*display);
  tell(displayCall(*display));
  respond(jsonResponse(200, display->json()));
}

void Api::builds(const Request& request, const Respond& respond) {
  const nlohmann::json body = objectIn(request);
  auto build = buildIn(body);
  if (!build)
    return respond(errorResponse(400,
                                 "The body must have a \"name\", a \"sentence\" or null, and \"errors\", a list of "
                                 "{\"file\", \"line\", \"column\", \"message\"}."));
  device_.setBuild(*std::move(build));
  respond(jsonResponse(200, body));
}

// Where a page's code is at fault, Settings may not be able to say where it is, or not get there again; then the place
// before that counts until somebody touches the device.
void Api::reload(Respond respond) {
  try {
    install_();
  } catch (const Failure& failure) {
    return respond(errorResponse(500, failure.what()));
  }
  stage_.reload();
  if (isPlaceCurrent_) return settings_.restart(place_, std::move(respond));
  settings_.askPlace([this, respond = std::move(respond)](Response answer) {
    if (answer.status == 200) place_ = *answer.body;
    isPlaceCurrent_ = true;
    settings_.restart(place_, respond);
  });
}

wire::Appearance appearanceCall(std::string_view style) { return {style == "dark"}; }

wire::Display displayCall(const Display& display) {
  const SafeArea& covered = display.safeArea;
  return {display.width, display.height, display.scale, covered.top, covered.left, covered.bottom, covered.right};
}

}  // namespace sim
