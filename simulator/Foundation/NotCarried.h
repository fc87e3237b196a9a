// What a bundle sets that a device would show and the simulator does not: said once, in the device log.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// Logs one line, headed "[simulator] ", the first time that `what` ("UIWindow.windowLevel") is given in this process.
/// `instead` is a sentence on what happens here. Call it from the setter, for values that look otherwise on a device.
/// Any thread.
void notCarried(NSString *what, NSString *instead);

}  // namespace sim
