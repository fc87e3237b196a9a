#import "Settings/JsonValues.h"

#import <UIKit/UIColor+Sim.h>
#import <objcxx/Retained.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace sim {
namespace {

/// Deeper values are cut off: nobody reads them in a row.
constexpr int kDepthLimit = 16;

using HexColor = std::array<char, 10>;

HexColor hex(const RGBA &color) {
  const auto byte = [](double component) { return static_cast<unsigned>(std::lround(component * 255)) & 0xff; };
  HexColor text;
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x%02x", byte(color.red), byte(color.green), byte(color.blue),
                byte(color.alpha));
  return text;
}

/// The beginning of a text that is too long, no surrogate pair cut in two.
NSString *beginning(NSString *text) {
  const unichar last = [text characterAtIndex:kLongestText - 1];
  const bool leads = last >= 0xd800 && last < 0xdc00;
  return [text substringToIndex:leads ? kLongestText - 1 : kLongestText];
}

void writeNumber(JsonText &out, NSNumber *number) {
  if (number == [NSNumber numberWithBool:YES] || number == [NSNumber numberWithBool:NO]) {
    return out.flag([number boolValue]);
  }
  switch (*[number objCType]) {
    case 'f':
    case 'd':
      if (!std::isfinite([number doubleValue])) return out.string(std::to_string([number doubleValue]));
      return out.number([number doubleValue]);
    case 'Q':
    case 'L': return out.natural([number unsignedLongLongValue]);
    default: return out.integer([number longLongValue]);
  }
}

void writeValue(JsonText &out, id value, int depth) {
  if (!value || value == [NSNull null]) return out.null();
  if ([value isKindOfClass:[NSString class]]) return writeText(out, value);
  if ([value isKindOfClass:[NSNumber class]]) return writeNumber(out, value);
  if ([value isKindOfClass:[NSData class]]) return out.string("<" + std::to_string([value length]) + " bytes>");
  if ([value isKindOfClass:[NSDate class]]) return writeText(out, [value description]);
  if (depth < kDepthLimit && [value isKindOfClass:[NSArray class]]) {
    out.beginArray();
    for (id item in (NSArray *)value) writeValue(out, item, depth + 1);
    return out.endArray();
  }
  if (depth < kDepthLimit && [value isKindOfClass:[NSDictionary class]]) {
    out.beginObject();
    for (id key in (NSDictionary *)value) {
      writeValue(out.name(utf8([key description])), [(NSDictionary *)value objectForKey:key], depth + 1);
    }
    return out.endObject();
  }
  writeText(out, NSStringFromClass([value class]));
}

}  // namespace

void writeText(JsonText &out, NSString *text) {
  if (!text) return out.null();
  out.string([text length] > kLongestText ? utf8(beginning(text)) + "\u2026" : utf8(text));
}

void writeText(JsonText &out, std::string_view name, NSString *text) {
  const NSUInteger length = [text length];
  if (length <= kLongestText) return writeText(out.name(name), text);
  out.name(name).string(utf8(beginning(text)));
  out.name(std::string(name) + "Length").natural(length);
}

void writeValue(JsonText &out, id value) { writeValue(out, value, 0); }

void writePair(JsonText &out, double first, double second) {
  out.beginArray();
  out.number(first);
  out.number(second);
  out.endArray();
}

void writeColor(JsonText &out, UIColor *color) {
  if (!color) return out.null();
  const ColorPair pair = resolved(color);
  if (pair.light == pair.dark) return out.string(hex(pair.light).data());
  out.beginObject();
  out.name("light").string(hex(pair.light).data());
  out.name("dark").string(hex(pair.dark).data());
  out.endObject();
}

UIColor *colorFrom(const Json &value) {
  if (!value.is_string()) return nil;
  const std::string &text = value.get_ref<const std::string &>();
  if ((text.size() != 7 && text.size() != 9) || text.front() != '#') return nil;
  std::array<unsigned, 4> parts{0, 0, 0, 255};
  for (std::size_t index = 0; index * 2 + 1 < text.size(); ++index) {
    const char *const digits = text.data() + index * 2 + 1;
    const auto [end, error] = std::from_chars(digits, digits + 2, parts[index], 16);
    if (error != std::errc() || end != digits + 2) return nil;
  }
  return [UIColor colorWithRed:parts[0] / 255.0 green:parts[1] / 255.0 blue:parts[2] / 255.0 alpha:parts[3] / 255.0];
}

NSString *stringFrom(const std::string &text) {
  return objcxx::adopt([[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding])
      .autoreleased();
}

}  // namespace sim
