// The displays that the device can have.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string_view>

namespace sim {

/// Width and height in points, scale in pixels a point.
struct Display {
  std::string_view kind;
  int width;
  int height;
  int scale;

  bool operator==(const Display&) const = default;

  /// {"kind","width","height","scale"}.
  nlohmann::json json() const;
};

/// What every device begins with.
inline constexpr Display kPhoneDisplay{"phone", 390, 844, 3};
inline constexpr Display kTabletDisplay{"tablet", 820, 1180, 2};

/// The display of this kind; nothing for an unknown one.
std::optional<Display> displayOfKind(std::string_view kind);

}  // namespace sim
