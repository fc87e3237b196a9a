#include "server/Display.hpp"

namespace sim {

nlohmann::json Display::json() const {
  return {{"kind", kind}, {"width", width}, {"height", height}, {"scale", scale}};
}

std::optional<Display> displayOfKind(std::string_view kind) {
  for (const Display& display : {kPhoneDisplay, kTabletDisplay})
    if (display.kind == kind) return display;
  return std::nullopt;
}

}  // namespace sim
