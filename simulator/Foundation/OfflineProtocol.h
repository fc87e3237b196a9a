// The device has no network.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// NSURLErrorNotConnectedToInternet for an address of the network; another error of NSURLErrorDomain for what is no
/// address that could be loaded. Autoreleased.
NSError *offlineError(NSURL *url);
NSError *urlError(NSInteger code, NSString *description, NSURL *url);

/// Has what Foundation would load from a network, such as connections, fail so. SIMStartFoundation does this.
void goOffline();

}  // namespace sim
