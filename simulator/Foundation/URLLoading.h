// What an address loads: files of the device, as there is no network.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// What loading came to; autoreleased. `error` or the others are nil.
struct LoadedAddress {
  NSData *data = nil;
  NSURLResponse *response = nil;
  NSError *error = nil;
};

/// Any thread; waits for the file to be read.
LoadedAddress loadAddress(NSURLRequest *request);

}  // namespace sim
