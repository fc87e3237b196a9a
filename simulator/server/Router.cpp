#include "server/Router.hpp"

#include <strings.h>

#include <array>
#include <optional>
#include <string>

namespace sim {
namespace {

constexpr std::size_t kLongestJson = 1 << 20;
constexpr std::string_view kImages = "/images/";

struct Route {
  std::string_view path;
  std::string_view method;
  std::optional<Endpoint> endpoint;  // Nothing for the event stream.
  std::size_t longestBody;
};

constexpr std::array<Route, 7> kRoutes{{
    {"/api/screen", "GET", Endpoint::screen, 0},
    {"/api/events", "POST", Endpoint::events, kLongestJson},
    {"/api/device", "GET", Endpoint::device, 0},
    {"/api/device/pasteboard", "PUT", Endpoint::pasteboard, kLongestJson},
    {"/api/device/appearance", "PUT", Endpoint::appearance, kLongestJson},
    {"/api/device/display", "PUT", Endpoint::display, kLongestJson},
    {"/api/stream", "GET", std::nullopt, 0},
}};

Response wrongMethod(std::string_view allowed) {
  Response response = errorResponse(405, "The method must be " + std::string(allowed) + ".");
  response.headers.emplace_back("Allow", allowed);
  return response;
}

bool isJson(const RequestHead& head) {
  const auto types = head.values("Content-Type");
  if (types.size() != 1) return false;
  const std::string_view type = types.front().substr(0, types.front().find_first_of("; \t"));
  constexpr std::string_view kJson = "application/json";
  return type.size() == kJson.size() && ::strncasecmp(type.data(), kJson.data(), kJson.size()) == 0;
}

// "0" is a body of no bytes; a length that is no number does not get past the HTTP library.
bool announcesBody(const RequestHead& head) {
  const auto lengths = head.values("Content-Length");
  return !head.values("Transfer-Encoding").empty() || (!lengths.empty() && lengths.front() != "0");
}

}  // namespace

std::variant<Response, ApiCall, StreamCall> Router::route(const RequestHead& head) const {
  if (const Response* file = files_.find(head.path)) {
    if (head.method != "GET" && head.method != "HEAD") return wrongMethod("GET, HEAD");
    return *file;
  }

  const Route* route = nullptr;
  for (const Route& candidate : kRoutes)
    if (candidate.path == head.path) route = &candidate;
  static constexpr Route kImageRoute{kImages, "GET", Endpoint::image, 0};
  if (route == nullptr && !imageIdentifier(head.path).empty()) route = &kImageRoute;

  if (route == nullptr) return errorResponse(404, "There is nothing at this address.");
  if (head.method != route->method) return wrongMethod(route->method);
  if (route->longestBody > 0 && !isJson(head)) return errorResponse(415, "The body must be application/json.");
  if (route->longestBody == 0 && announcesBody(head)) return errorResponse(400, "This request takes no body.");
  if (!route->endpoint) return StreamCall{};
  return ApiCall{*route->endpoint, route->longestBody};
}

std::string_view imageIdentifier(std::string_view path) {
  return path.starts_with(kImages) ? path.substr(kImages.size()) : std::string_view{};
}

}  // namespace sim
