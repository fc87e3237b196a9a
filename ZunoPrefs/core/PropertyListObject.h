// The Foundation objects of scanned values.
#pragma once

#import <Foundation/Foundation.h>

#include "core/PropertyListScan.hpp"

namespace zuno {

/// The object that Foundation would read, autoreleased; nil for a text that is no UTF-8.
id objectOf(const ScannedValue& value);

}  // namespace zuno
