// The margin that UIKit keeps at the sides of a view. Plain C++.
#pragma once

namespace sim {

/// Of a view that is `width` points wide, in points: more on the widest phones and on tablets.
inline double marginForWidth(double width) { return width >= 400 ? 20 : 16; }

}  // namespace sim
