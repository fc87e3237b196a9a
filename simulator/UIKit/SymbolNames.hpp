// Which drawing shows the symbol of a name. Plain C++.
#pragma once

#include <string>
#include <string_view>

namespace sim {

/// The name of the drawing, of the icons that the build puts into `symbolDrawing`, that shows the symbol `name`: the
/// same words ("star_fill" for "star.fill"), unless the two sets call a thing differently. Whether there is such a
/// drawing is not said. Empty for what can be no symbol's name.
std::string symbolDrawingName(std::string_view name);

}  // namespace sim
