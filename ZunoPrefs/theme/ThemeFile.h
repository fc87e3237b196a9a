// The theme as the theme file holds it. Main thread only.
#pragma once

#include "theme/Theme.hpp"

namespace zuno {

/// The theme in the file; the defaults without one that can be read.
Theme storedTheme();

}  // namespace zuno
