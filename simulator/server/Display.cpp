#include "server/Display.hpp"

#include <algorithm>

namespace sim {

nlohmann::json Display::json() const {
  const nlohmann::json insets{
      {"top", safeArea.top}, {"left", safeArea.left}, {"bottom", safeArea.bottom}, {"right", safeArea.right}};
  return {{"kind", kind},   {"orientation", orientation}, {"width", width}, {"height", height},
          {"scale", scale}, {"safeArea", insets}};
}

std::optional<Display> displayOf(std::string_view kind, std::string_view orientation) {
  const auto found = std::ranges::find_if(
      kDisplays, [&](const Display& each) { return each.kind == kind && each.orientation == orientation; });
  return found == kDisplays.end() ? std::nullopt : std::optional(*found);
}

}  // namespace sim
