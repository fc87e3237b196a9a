#import <UIKit/NSText+Sim.h>
#import <UIKit/UIScreen.h>

#include <cmath>
#include <vector>

namespace sim {
namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool isHighHalf(unichar unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowHalf(unichar unit) { return unit >= 0xDC00 && unit < 0xE000; }

void append(std::string &bytes, char32_t character) {
  if (character < 0x80) {
    bytes += char(character);
    return;
  }
  const int continuations = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
  constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
  bytes += char(leads[continuations] | character >> (6 * continuations));
  for (int i = continuations - 1; i >= 0; --i) bytes += char(0x80 | (character >> (6 * i) & 0x3F));
}

}  // namespace

std::string utf8(NSString *string) {
  const NSUInteger length = [string length];
  std::vector<unichar> units(length);
  [string getCharacters:units.data() range:NSMakeRange(0, length)];
  std::string bytes;
  bytes.reserve(length);
  for (NSUInteger i = 0; i < length; ++i) {
    const bool isPair = isHighHalf(units[i]) && i + 1 < length && isLowHalf(units[i + 1]);
    if (isPair) {
      append(bytes, 0x10000 + ((units[i] - 0xD800u) << 10) + (units[i + 1] - 0xDC00u));
      ++i;
    } else {
      append(bytes, isHighHalf(units[i]) || isLowHalf(units[i]) ? replacement : units[i]);
    }
  }
  return bytes;
}

NSString *oneLine(NSString *string) {
  NSString *joined = [string stringByReplacingOccurrencesOfString:@"\r\n" withString:@" "];
  NSArray *lines = [joined componentsSeparatedByCharactersInSet:[NSCharacterSet newlineCharacterSet]];
  return lines ? [lines componentsJoinedByString:@" "] : @"";
}

double ceiledToPixel(double points) {
  const double scale = [[UIScreen mainScreen] scale];
  // What lies within a thousandth above a pixel came from rounding.
  return std::ceil(points * scale - 1e-3) / scale;
}

TextEllipsis ellipsisOf(NSLineBreakMode mode) {
  switch (mode) {
    case NSLineBreakByTruncatingHead: return TextEllipsis::start;
    case NSLineBreakByTruncatingMiddle: return TextEllipsis::middle;
    case NSLineBreakByTruncatingTail: return TextEllipsis::end;
    default: return TextEllipsis::none;
  }
}

TextWrap wrapOf(NSLineBreakMode mode) {
  return mode == NSLineBreakByCharWrapping ? TextWrap::character : TextWrap::word;
}

TextAlign alignOf(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignmentCenter: return TextAlign::center;
    case NSTextAlignmentRight: return TextAlign::right;
    case NSTextAlignmentJustified: return TextAlign::justified;
    default: return TextAlign::left;
  }
}

}  // namespace sim
