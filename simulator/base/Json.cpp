#include "base/Json.hpp"

#include <nlohmann/json.hpp>

namespace sim {
namespace {

constexpr int kDeepest = 64;  // Levels.

}  // namespace

std::string toText(const nlohmann::json& value, int indent) {
  return value.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::optional<nlohmann::json> parseJson(std::string_view text) {
  bool tooDeep = false;
  const auto limitDepth = [&tooDeep](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
    tooDeep = tooDeep || depth >= kDeepest;
    return !tooDeep;
  };
  nlohmann::json value = nlohmann::json::parse(text.begin(), text.end(), limitDepth, false);
  if (tooDeep || value.is_discarded()) return std::nullopt;
  return value;
}

const std::string* textIn(const nlohmann::json& value, std::string_view key) {
  const auto found = value.find(key);
  return found == value.end() ? nullptr : found->get_ptr<const std::string*>();
}

std::string textOrEmpty(const nlohmann::json& value, std::string_view key) {
  const std::string* text = textIn(value, key);
  return text ? *text : std::string();
}

}  // namespace sim
