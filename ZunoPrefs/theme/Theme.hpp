// What the theme file says about the look of the switcher: the keys with their defaults and ranges, and what a file
// with these keys makes of the switcher. Plain C++.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "theme/ColourText.hpp"

namespace zuno {

enum class Appearance { kSystem = 0, kLight = 1, kDark = 2 };

/// The settings of a theme, all within their ranges.
struct Theme {
  bool enabled = false;
  bool useCustom = false;
  double blurRadius = 0;    ///< Points of the screen: the standard deviation of the blur.
  double dimming = 0;       ///< Percent.
  double cornerRadius = 0;  ///< Points of the screen.
  double spacing = 0;       ///< Points of the screen.
  Appearance appearance = Appearance::kSystem;
  std::optional<Colour> backgroundColour;  ///< None: the system's. So for the others.
  std::optional<Colour> titleColour;
  std::optional<Colour> badgeColour;

  friend bool operator==(const Theme&, const Theme&) = default;
};

struct ThemeSwitch {
  std::string_view key;
  bool initial;
  bool Theme::* member;
};

struct ThemeNumber {
  std::string_view key;
  double initial;
  double least;
  double most;
  double Theme::* member;
};

struct ThemeColour {
  std::string_view key;
  std::optional<Colour> Theme::* member;
};

/// The table of the theme's keys. `docs/preferences.md` and the rows of the theme page say the same.
inline constexpr std::array kThemeSwitches = {
    ThemeSwitch{"enabled", false, &Theme::enabled},
    ThemeSwitch{"useCustom", false, &Theme::useCustom},
};
inline constexpr std::array kThemeNumbers = {
    ThemeNumber{"blurRadius", 12, 0, 60, &Theme::blurRadius},
    ThemeNumber{"dimming", 25, 0, 100, &Theme::dimming},
    ThemeNumber{"cornerRadius", 20, 0, 60, &Theme::cornerRadius},
    ThemeNumber{"spacing", 16, 0, 60, &Theme::spacing},
};
inline constexpr std::array kThemeColours = {
    ThemeColour{"backgroundColour", &Theme::backgroundColour},
    ThemeColour{"titleColour", &Theme::titleColour},
    ThemeColour{"badgeColour", &Theme::badgeColour},
};
inline constexpr std::string_view kThemeAppearance = "appearance";
inline constexpr Appearance kInitialAppearance = Appearance::kSystem;

/// Every key of the table.
std::vector<std::string_view> themeKeys();

/// A value of the theme file: a number (truth values are 0 and 1), a text, or something that no key takes.
using ThemeValue = std::variant<std::monostate, double, std::string>;

/// What the file holds for a key.
using ThemeReader = std::function<ThemeValue(std::string_view key)>;

/// Reads every key of the table.
///
/// What is missing, of another type or no finite number counts as the default. A number out of its range becomes the
/// nearer end of it; an appearance that there is not is the system's; a switch is on for every number but 0; a text
/// that names no colour leaves the colour to the system.
Theme themeFrom(const ThemeReader& read);

/// What the switcher looks like.
struct Look {
  bool hasPicture = false;  ///< Whether the theme's background image is shown, blurred and darkened.
  double blurRadius = 0;
  double dimming = 0;
  double cornerRadius = 0;
  double spacing = 0;
  Appearance appearance = Appearance::kSystem;
  std::optional<Colour> backgroundColour;
  std::optional<Colour> titleColour;
  std::optional<Colour> badgeColour;

  friend bool operator==(const Look&, const Look&) = default;
};

/// While a theme is off the look is the system's: no picture, and everything else as by default. While it is on, its
/// picture is shown with its blur and dimming; its cards, colours and appearance count only with "useCustom".
Look lookOf(const Theme& theme);

}  // namespace zuno
