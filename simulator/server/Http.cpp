#include "server/Http.hpp"

#include <strings.h>

namespace sim {
namespace {

constexpr int kDeepestJson = 64;  // Deeper values would exhaust the stack of whoever walks them.

}  // namespace

std::vector<std::string_view> RequestHead::values(std::string_view name) const {
  std::vector<std::string_view> found;
  for (const auto& [key, value] : headers)
    if (key.size() == name.size() && ::strncasecmp(key.data(), name.data(), name.size()) == 0) found.push_back(value);
  return found;
}

std::string toText(const nlohmann::json& value) {
  return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

Response jsonResponse(int status, const nlohmann::json& body) {
  return {status, "application/json", std::make_shared<const std::string>(toText(body)), {}};
}

Response errorResponse(int status, std::string_view message) {
  return jsonResponse(status, {{"error", std::string(message)}});
}

std::optional<nlohmann::json> parseJson(std::string_view text) {
  bool tooDeep = false;
  const auto limitDepth = [&tooDeep](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
    tooDeep = tooDeep || depth >= kDeepestJson;
    return !tooDeep;
  };
  nlohmann::json value = nlohmann::json::parse(text.begin(), text.end(), limitDepth, false);
  if (tooDeep || value.is_discarded()) return std::nullopt;
  return value;
}

}  // namespace sim
