// Makes a stream of values of Foundation objects.
#pragma once

#import <Foundation/Foundation.h>

#include <string_view>

#include "base/ValueSink.hpp"

namespace sim {

enum class Vocabulary {
  propertyList,  // NSString, NSNumber, NSDate, NSData, NSArray, NSDictionary
  json           // NSString, NSNumber (finite), NSNull, NSArray, NSDictionary
};

enum class KeyOrder { none, sorted };

/// What `walkObject` answers for a text that is not valid Unicode.
inline constexpr std::string_view kBrokenText = "A text holds half of a surrogate pair";

/// Streams `root` and all that it holds to `sink`. Refuses nil, objects outside the vocabulary, keys that are not
/// NSString, halves of surrogate pairs, and containers that lie too deep, which those that hold themselves do. Returns
/// what is wrong.
Problem walkObject(id root, Vocabulary vocabulary, KeyOrder order, ValueSink& sink);

}  // namespace sim
