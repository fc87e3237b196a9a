#include "server/Http.hpp"

#include "base/Json.hpp"

#include <strings.h>

namespace sim {

std::vector<std::string_view> RequestHead::values(std::string_view name) const {
  std::vector<std::string_view> found;
  for (const auto& [key, value] : headers)
    if (key.size() == name.size() && ::strncasecmp(key.data(), name.data(), name.size()) == 0) found.push_back(value);
  return found;
}

Response jsonResponse(int status, std::string body) {
  return {status, "application/json", std::make_shared<const std::string>(std::move(body)), {}};
}

Response jsonResponse(int status, const nlohmann::json& body) { return jsonResponse(status, toText(body)); }

Response errorResponse(int status, std::string_view message) {
  return jsonResponse(status, {{"error", std::string(message)}});
}

}  // namespace sim
