// The word that the theme file has changed, for what shows it. Main thread only.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// Posted on the default notification centre, without an object, after this process wrote, replaced or removed the
/// theme file.
extern NSString *const kThemeChanged;

/// Posts it.
void tellThemeChanged();

}  // namespace zuno
