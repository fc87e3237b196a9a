// Finds the settings bundles of the device folder by their entry property lists.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// A specifier for each entry below the device's folder of entries, ordered by label; a bundle is loaded only when its
/// row is tapped (see `-[PSListController lazyLoadBundle:]`). An entry that is broken, that is not meant for this
/// version of the system or whose bundle is not there is left out with a log line. Main thread.
NSArray *preferenceEntries(id target);

}  // namespace sim
