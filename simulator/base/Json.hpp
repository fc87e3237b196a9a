// Values of the JSON library, to and from text.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// The value as text, on one line unless `indent` says by how many spaces each level is moved in; strings that are no
/// UTF-8 are written with replacement characters.
std::string toText(const nlohmann::json& value, int indent = -1);

/// Reads one JSON value of at most 64 levels: deeper ones would exhaust the stack of whoever walks them. Nothing when
/// the text is anything else.
std::optional<nlohmann::json> parseJson(std::string_view text);

/// The text under `key`, which lives as long as `value`; nullptr when there is none, or `value` is no object.
const std::string* textIn(const nlohmann::json& value, std::string_view key);
/// The same; empty when there is none.
std::string textOrEmpty(const nlohmann::json& value, std::string_view key);

}  // namespace sim
