// Events of the automation interface, turned into what a finger does.
#pragma once

#import <UIKit/UIKit.h>

#include "Settings/EventResult.hpp"
#import "Settings/JsonValues.h"
#import "Settings/ScreenDescription.h"

namespace sim {

/// Performs `event` on what `navigation` shows. Ids are those of the last description, in which `numbers` numbered the
/// pages. Checks the whole event first: an event that is refused has changed nothing. Main thread.
EventResult routeEvent(const Json& event, UINavigationController* navigation, PageNumbers& numbers);

}  // namespace sim
