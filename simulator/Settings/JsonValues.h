// Foundation values as JSON, and back.
#pragma once

#import <Foundation/Foundation.h>
#import <UIKit/NSText+Sim.h>

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

#include "base/JsonText.hpp"

@class UIColor;

namespace sim {

using Json = nlohmann::json;

/// UTF-16 units of the longest text that a screen carries whole. People paste tens of megabytes into a field; the page
/// could not lay them out, and every event would send them back.
constexpr NSUInteger kLongestText = 65'536;

/// The text; null for nil. Of one that is too long, its beginning and an ellipsis.
void writeText(JsonText &out, NSString *text);

/// The text under `name`. Of one that is too long, its beginning, and how many UTF-16 units it has under
/// "<name>Length": who edits it has to know that it is not whole.
void writeText(JsonText &out, std::string_view name, NSString *text);

/// A property-list value; null for nil. Data becomes its byte count ("<20 bytes>"), a date its description, and
/// anything else its class name, so that no value can fail to be shown.
void writeValue(JsonText &out, id value);

/// [first, second]: a point, a size, an offset.
void writePair(JsonText &out, double first, double second);

/// "#rrggbbaa", or {"light","dark"} for a colour that differs between the two; null for nil.
void writeColor(JsonText &out, UIColor *color);

/// The colour that "#rrggbb" or "#rrggbbaa" names, in either case, autoreleased; nil for anything else.
UIColor *colorFrom(const Json &value);

/// The string, autoreleased; nil for bytes that are no UTF-8.
NSString *stringFrom(const std::string &text);

}  // namespace sim
