#import "theme/ThemeColour.h"

namespace zuno {
namespace {

/// Characters of the longest text that names a colour. A damaged file may hold one of megabytes.
constexpr NSUInteger kLongest = 8;

}  // namespace

std::optional<Colour> storedColour(id value) {
  if (![value isKindOfClass:[NSString class]] || [value length] > kLongest) return std::nullopt;
  NSData *text = [value dataUsingEncoding:NSASCIIStringEncoding];
  return text ? parseColour({static_cast<const char *>([text bytes]), [text length]}) : std::nullopt;
}

bool isSystemColour(id value) { return !value || ([value isKindOfClass:[NSString class]] && [value length] == 0); }

UIColor *screenColour(const Colour &colour) {
  return [UIColor colorWithRed:colour.red green:colour.green blue:colour.blue alpha:colour.alpha];
}

std::optional<Colour> pickedColour(UIColor *colour) {
  CGFloat red = 0, green = 0, blue = 0, alpha = 0;
  if (![colour getRed:&red green:&green blue:&blue alpha:&alpha]) return std::nullopt;
  return Colour{red, green, blue, alpha};
}

NSString *storedText(const Colour &colour) { return [NSString stringWithUTF8String:colourText(colour).c_str()]; }

}  // namespace zuno
