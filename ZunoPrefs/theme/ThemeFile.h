// The theme as the theme file holds it, and the word that the file has changed. Main thread only.
#pragma once

#import <Foundation/Foundation.h>

#include "theme/Theme.hpp"

namespace zuno {

/// Posted on the default notification centre, without an object, after this process wrote, replaced or removed the theme
/// file.
extern NSString *const kThemeChanged;

/// Posts it.
void tellThemeChanged();

/// The theme in the file; the defaults without one that can be read.
Theme storedTheme();

}  // namespace zuno
