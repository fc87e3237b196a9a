#include "server/Router.hpp"

#include <strings.h>

#include <array>
#include <optional>
#include <string>

namespace sim {
namespace {

constexpr std::size_t kLongestJson = 1 << 20;
constexpr std::size_t kLongestText = 72 << 20;  // A text of 64 MiB, and the JSON around it.
constexpr std::size_t kLongestFile = 100 << 20;

struct Route {
  std::string_view path;
  std::string_view method;
  std::optional<Endpoint> endpoint;  // Nothing for the event stream.
  BodyKind body = BodyKind::none;
  std::size_t longestBody = 0;
};

constexpr std::array<Route, 16> kRoutes{{
    {"/api/screen", "GET", Endpoint::screen},
    {"/api/events", "POST", Endpoint::events, BodyKind::json, kLongestText},
    {"/api/device", "GET", Endpoint::device},
    {"/api/device/pasteboard", "PUT", Endpoint::pasteboard, BodyKind::json, kLongestText},
    {"/api/device/pasteboard/string", "GET", Endpoint::pasteboardString},
    {"/api/device/appearance", "PUT", Endpoint::appearance, BodyKind::json, kLongestJson},
    {"/api/device/display", "PUT", Endpoint::display, BodyKind::json, kLongestJson},
    {"/api/photos", "PUT", Endpoint::photos, BodyKind::file, kLongestFile},
    {"/api/picked-file", "PUT", Endpoint::pickedFile, BodyKind::file, kLongestFile},
    {"/api/builds", "PUT", Endpoint::builds, BodyKind::json, kLongestJson},
    {"/api/reload", "POST", Endpoint::reload, BodyKind::json, kLongestJson},
    {"/api/stage", "POST", Endpoint::stage, BodyKind::json, kLongestJson},
    {"/api/stage/screen", "GET", Endpoint::stageScreen},
    {"/api/stage/events", "POST", Endpoint::stageEvents, BodyKind::json, kLongestText},
    {"/api/stage/picked-file", "PUT", Endpoint::stagePickedFile, BodyKind::file, kLongestFile},
    {"/api/stream", "GET", std::nullopt},
}};

// Routes whose path goes on with an identifier.
constexpr std::array<Route, 2> kFolders{{
    {"/images/", "GET", Endpoint::image},
    {"/shared/", "GET", Endpoint::shared},
}};

Response wrongMethod(std::string_view allowed) {
  Response response = errorResponse(405, "The method must be " + std::string(allowed) + ".");
  response.headers.emplace_back("Allow", allowed);
  return response;
}

bool beginsWith(std::string_view text, std::string_view beginning) {
  return text.size() >= beginning.size() && ::strncasecmp(text.data(), beginning.data(), beginning.size()) == 0;
}

// The refusal of a body of another type than the call takes.
std::optional<Response> typeRefusal(const RequestHead& head, BodyKind body) {
  const auto types = head.values("Content-Type");
  const std::string_view whole = types.size() == 1 ? types.front() : std::string_view{};
  const std::string_view type = whole.substr(0, whole.find_first_of("; \t"));
  const auto is = [type](std::string_view name) { return type.size() == name.size() && beginsWith(type, name); };
  if (body == BodyKind::json && !is("application/json"))
    return errorResponse(415, "The body must be application/json.");
  if (body == BodyKind::file && !is("application/octet-stream") && !beginsWith(type, "image/"))
    return errorResponse(415, "The body must be application/octet-stream or a picture.");
  return std::nullopt;
}

// "0" is a body of no bytes; a length that is no number does not get past the HTTP library.
bool announcesBody(const RequestHead& head) {
  const auto lengths = head.values("Content-Length");
  return !head.values("Transfer-Encoding").empty() || (!lengths.empty() && lengths.front() != "0");
}

const Route* routeOf(std::string_view path) {
  for (const Route& route : kRoutes)
    if (route.path == path) return &route;
  for (const Route& folder : kFolders)
    if (path.starts_with(folder.path) && path.size() > folder.path.size()) return &folder;
  return nullptr;
}

}  // namespace

std::variant<Response, ApiCall, StreamCall> Router::route(const RequestHead& head) const {
  if (const Response* file = files_.find(head.path)) {
    if (head.method != "GET" && head.method != "HEAD") return wrongMethod("GET, HEAD");
    return *file;
  }

  const Route* route = routeOf(head.path);
  if (route == nullptr) return errorResponse(404, "There is nothing at this address.");
  if (head.method != route->method) return wrongMethod(route->method);
  if (auto refused = typeRefusal(head, route->body)) return *std::move(refused);
  if (route->body == BodyKind::none && announcesBody(head)) return errorResponse(400, "This request takes no body.");
  if (!route->endpoint) return StreamCall{};
  return ApiCall{*route->endpoint, route->body, route->longestBody};
}

std::string_view identifierIn(std::string_view path) {
  for (const Route& folder : kFolders)
    if (path.starts_with(folder.path)) return path.substr(folder.path.size());
  return {};
}

}  // namespace sim
