// A colour as four numbers. Plain C++.
#pragma once

namespace sim {

/// sRGB, straight alpha, each component between 0 and 1.
struct RGBA {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 0;

  friend bool operator==(const RGBA&, const RGBA&) = default;
};

}  // namespace sim
