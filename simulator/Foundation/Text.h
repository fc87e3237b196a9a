// NSString to UTF-8 without a copy in between.
#pragma once

#import <Foundation/Foundation.h>

#include <string>

namespace sim {

/// Puts the text into `result`; false when it holds half of a surrogate pair. nil is empty.
bool getUTF8(NSString *string, std::string &result);

}  // namespace sim
