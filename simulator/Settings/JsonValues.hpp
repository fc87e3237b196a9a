// Foundation values as JSON, and back.
#pragma once

#import <Foundation/Foundation.h>

#include <nlohmann/json.hpp>

#include <string>

#include "Settings/JsonText.hpp"

@class UIColor;

namespace sim {

using Json = nlohmann::json;

/// The text as UTF-8, characters of code 0 included. Half a surrogate pair becomes a replacement character. "" for nil.
std::string utf8(NSString *text);

/// The text; null for nil.
void writeText(JsonText &out, NSString *text);

/// A property-list value; null for nil. Data becomes its byte count ("<20 bytes>"), a date its description, and
/// anything else its class name, so that no value can fail to be shown.
void writeValue(JsonText &out, id value);

/// "#rrggbbaa", or {"light","dark"} for a colour that differs between the two; null for nil.
void writeColor(JsonText &out, UIColor *color);

/// The string for a JSON text, autoreleased; nil for any other value and for bytes that are no UTF-8.
NSString *stringFrom(const Json &value);

}  // namespace sim
