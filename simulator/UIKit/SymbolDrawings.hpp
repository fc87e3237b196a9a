// The drawings of symbols, as outlines and as pixels. Plain C++.
#pragma once

#include <optional>
#include <string_view>

#include "CoreGraphics/Bitmap.hpp"
#include "CoreGraphics/Path.hpp"

namespace sim {

/// An outline in a square whose sides are 56 units, the y axis pointing down.
struct SymbolDrawing {
  Path outline;
  bool evenOdd = false;
};

/// The drawing that the build found by that name; nothing for another name.
std::optional<SymbolDrawing> symbolDrawing(std::string_view name);

/// Reads an SVG path of absolute moves, lines, cubic curves and closes. What follows anything else is left out.
Path readOutline(std::string_view text);

struct SymbolLook {
  double em = 0;      ///< Pixels of the size of the font that the symbol goes with.
  double spread = 0;  ///< By how much of the em the outline grows outwards; negative: inwards.
};

/// The shape in opaque black: the drawing itself with a narrow margin. Null when it would be empty or too large.
BitmapPtr drawSymbol(const SymbolDrawing& drawing, const SymbolLook& look);

}  // namespace sim
