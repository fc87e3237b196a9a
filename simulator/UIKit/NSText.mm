#import <Foundation/Text.h>
#import <UIKit/NSText+Sim.h>
#import <UIKit/UIScreen.h>

#include <cmath>
#include <vector>

#include "base/UTF8.hpp"

namespace sim {
namespace {

/// The text with a replacement character for each half of a surrogate pair.
std::string mendedUTF8(NSString *string) {
  std::vector<unichar> units([string length]);
  [string getCharacters:units.data() range:NSMakeRange(0, units.size())];
  std::string bytes;
  for (std::size_t at = 0; at < units.size(); ++at) {
    char32_t character = units[at];
    const bool leads = character >= 0xd800 && character < 0xdc00;
    if (leads && at + 1 < units.size() && units[at + 1] >= 0xdc00 && units[at + 1] < 0xe000) {
      character = 0x10000 + ((character - 0xd800) << 10) + (units[++at] - 0xdc00u);
    }
    if (!appendUTF8(bytes, character)) appendUTF8(bytes, 0xfffd);
  }
  return bytes;
}

}  // namespace

std::string utf8(NSString *string) {
  std::string bytes;
  return getUTF8(string, bytes) ? bytes : mendedUTF8(string);
}

std::string runText(NSString *string) {
  std::string text = utf8(string);
  for (std::size_t at = 0; (at = text.find('\0', at)) != text.npos;) text.replace(at, 1, "\uFFFD");
  return text;
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
