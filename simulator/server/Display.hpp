// The displays that the device can have.
#pragma once

#include <nlohmann/json.hpp>

#include <array>
#include <optional>
#include <string_view>

namespace sim {

/// How far corners, sensors and the status bar reach in from each edge, in points.
struct SafeArea {
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;

  bool operator==(const SafeArea&) const = default;
};

/// Width and height in points as the device is held, scale in pixels a point.
struct Display {
  std::string_view kind;
  std::string_view orientation;
  int width;
  int height;
  int scale;
  SafeArea safeArea;

  bool operator==(const Display&) const = default;

  /// {"kind","orientation","width","height","scale","safeArea":{"top","left","bottom","right"}}.
  nlohmann::json json() const;
};

/// What every device begins with.
inline constexpr Display kPhoneDisplay{"phone", "portrait", 390, 844, 3, {47, 0, 34, 0}};
inline constexpr Display kTabletDisplay{"tablet", "portrait", 820, 1180, 2, {24, 0, 20, 0}};

/// All of them: each kind upright and on its side.
inline constexpr std::array kDisplays{
    kPhoneDisplay,
    Display{"phone", "landscape", 844, 390, 3, {0, 47, 21, 47}},
    kTabletDisplay,
    Display{"tablet", "landscape", 1180, 820, 2, {24, 0, 20, 0}},
};

/// The display of this kind that is held so; nothing for an unknown one.
std::optional<Display> displayOf(std::string_view kind, std::string_view orientation);

}  // namespace sim
