#import <UIKit/UIGeometry.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace {

// The numbers in "{a, {b, c}, …}", which must be `Count`, whatever the braces.
template <size_t Count>
std::optional<std::array<CGFloat, Count>> numbersIn(NSString *string) {
  const char *text = [string UTF8String];
  if (!text) return std::nullopt;
  std::array<CGFloat, Count> numbers{};
  size_t count = 0;
  while (*text) {
    if (std::strchr("{}, ", *text)) {
      ++text;
      continue;
    }
    char *end = nullptr;
    const CGFloat value = std::strtod(text, &end);
    if (end == text || count == Count) return std::nullopt;
    numbers[count++] = value;
    text = end;
  }
  if (count != Count) return std::nullopt;
  return numbers;
}

// What the value holds if that is a structure of this type, else `otherwise`.
template <typename Structure>
Structure contentOf(NSValue *value, Structure otherwise) {
  if (std::strcmp([value objCType], @encode(Structure)) == 0) [value getValue:&otherwise];
  return otherwise;
}

}  // namespace

NSString *NSStringFromCGPoint(CGPoint p) { return [NSString stringWithFormat:@"{%.17g, %.17g}", p.x, p.y]; }
NSString *NSStringFromCGSize(CGSize s) { return [NSString stringWithFormat:@"{%.17g, %.17g}", s.width, s.height]; }

NSString *NSStringFromCGRect(CGRect r) {
  return [NSString stringWithFormat:@"{%@, %@}", NSStringFromCGPoint(r.origin), NSStringFromCGSize(r.size)];
}

NSString *NSStringFromUIEdgeInsets(UIEdgeInsets i) {
  return [NSString stringWithFormat:@"{%.17g, %.17g, %.17g, %.17g}", i.top, i.left, i.bottom, i.right];
}

CGPoint CGPointFromString(NSString *string) {
  const auto n = numbersIn<2>(string);
  return n ? CGPointMake((*n)[0], (*n)[1]) : CGPointZero;
}

CGSize CGSizeFromString(NSString *string) {
  const auto n = numbersIn<2>(string);
  return n ? CGSizeMake((*n)[0], (*n)[1]) : CGSizeZero;
}

CGRect CGRectFromString(NSString *string) {
  const auto n = numbersIn<4>(string);
  return n ? CGRectMake((*n)[0], (*n)[1], (*n)[2], (*n)[3]) : CGRectZero;
}

@implementation NSValue (UIGeometryExtensions)

+ (NSValue *)valueWithCGPoint:(CGPoint)point {
  return [self valueWithBytes:&point objCType:@encode(CGPoint)];
}

+ (NSValue *)valueWithCGSize:(CGSize)size {
  return [self valueWithBytes:&size objCType:@encode(CGSize)];
}

+ (NSValue *)valueWithCGRect:(CGRect)rect {
  return [self valueWithBytes:&rect objCType:@encode(CGRect)];
}

+ (NSValue *)valueWithUIEdgeInsets:(UIEdgeInsets)insets {
  return [self valueWithBytes:&insets objCType:@encode(UIEdgeInsets)];
}

- (CGPoint)CGPointValue {
  return contentOf(self, CGPointZero);
}

- (CGSize)CGSizeValue {
  return contentOf(self, CGSizeZero);
}

- (CGRect)CGRectValue {
  return contentOf(self, CGRectZero);
}

- (UIEdgeInsets)UIEdgeInsetsValue {
  return contentOf(self, UIEdgeInsetsZero);
}

@end
