#include "theme/Theme.hpp"

#include <algorithm>
#include <cmath>

namespace zuno {
namespace {

/// The number that `value` is; nothing for another type, for infinity and for what is no number.
std::optional<double> finiteNumber(const ThemeValue& value) {
  const double* number = std::get_if<double>(&value);
  return number && std::isfinite(*number) ? std::optional(*number) : std::nullopt;
}

Appearance appearanceFrom(const ThemeValue& value) {
  const auto number = finiteNumber(value);
  for (const auto appearance : {Appearance::kSystem, Appearance::kLight, Appearance::kDark}) {
    if (number == static_cast<double>(appearance)) return appearance;
  }
  return kInitialAppearance;
}

}  // namespace

std::vector<std::string_view> themeKeys() {
  std::vector<std::string_view> keys{kThemeAppearance};
  for (const auto& row : kThemeSwitches) keys.push_back(row.key);
  for (const auto& row : kThemeNumbers) keys.push_back(row.key);
  for (const auto& row : kThemeColours) keys.push_back(row.key);
  return keys;
}

Theme themeFrom(const ThemeReader& read) {
  Theme theme;
  for (const auto& [key, initial, member] : kThemeSwitches) {
    const auto number = finiteNumber(read(key));
    theme.*member = number ? *number != 0 : initial;
  }
  for (const auto& [key, initial, least, most, member] : kThemeNumbers) {
    theme.*member = std::clamp(finiteNumber(read(key)).value_or(initial), least, most);
  }
  for (const auto& [key, member] : kThemeColours) {
    const ThemeValue value = read(key);
    if (const std::string* text = std::get_if<std::string>(&value)) theme.*member = parseColour(*text);
  }
  theme.appearance = appearanceFrom(read(kThemeAppearance));
  return theme;
}

Look lookOf(const Theme& theme) {
  static const Theme kSystem = themeFrom([](std::string_view) { return ThemeValue(); });
  const Theme& cards = theme.enabled && theme.useCustom ? theme : kSystem;
  return {
      .hasPicture = theme.enabled,
      .blurRadius = theme.enabled ? theme.blurRadius : 0,
      .dimming = theme.enabled ? theme.dimming : 0,
      .cornerRadius = cards.cornerRadius,
      .spacing = cards.spacing,
      .appearance = cards.appearance,
      .backgroundColour = cards.backgroundColour,
      .titleColour = cards.titleColour,
      .badgeColour = cards.badgeColour,
  };
}

}  // namespace zuno
