#import <UIKit/UIGeometry.h>

#import <objc/runtime.h>

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

bool holds(NSValue *value, const char *structure) { return std::strcmp([value objCType], structure) == 0; }

/// Has the values of a class of GNUstep's, which holds a point, a size or a rectangle, name the structure as a device
/// does.
template <typename Structure>
void nameStructure(const char *className) {
  const auto name = +[](id, SEL) -> const char * { return @encode(Structure); };
  Class values = (Class)objc_getClass(className);
  // Every implementation is stored as a function of any arguments; the way there leads over void *.
  if (values) {
    class_replaceMethod(values, @selector(objCType), reinterpret_cast<IMP>(reinterpret_cast<void *>(name)), "r*@:");
  }
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

+ (void)load {
  nameStructure<CGPoint>("GSPointValue");
  nameStructure<CGSize>("GSSizeValue");
  nameStructure<CGRect>("GSRectValue");
  nameStructure<UIEdgeInsets>("GSEdgeInsetsValue");  // Newer versions have this class too.
}

// GNUstep takes structures of the same numbers for each other, so its own are used for the way in and out.
+ (NSValue *)valueWithCGPoint:(CGPoint)point {
  return [self valueWithPoint:NSMakePoint(point.x, point.y)];
}

+ (NSValue *)valueWithCGSize:(CGSize)size {
  return [self valueWithSize:NSMakeSize(size.width, size.height)];
}

+ (NSValue *)valueWithCGRect:(CGRect)rect {
  return [self valueWithRect:NSMakeRect(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height)];
}

+ (NSValue *)valueWithUIEdgeInsets:(UIEdgeInsets)insets {
  return [self valueWithBytes:&insets objCType:@encode(UIEdgeInsets)];
}

- (CGPoint)CGPointValue {
  if (!holds(self, @encode(CGPoint))) return CGPointZero;
  const NSPoint point = [self pointValue];
  return CGPointMake(point.x, point.y);
}

- (CGSize)CGSizeValue {
  if (!holds(self, @encode(CGSize))) return CGSizeZero;
  const NSSize size = [self sizeValue];
  return CGSizeMake(size.width, size.height);
}

- (CGRect)CGRectValue {
  if (!holds(self, @encode(CGRect))) return CGRectZero;
  const NSRect rect = [self rectValue];
  return CGRectMake(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
}

- (UIEdgeInsets)UIEdgeInsetsValue {
  UIEdgeInsets insets = UIEdgeInsetsZero;
  if (holds(self, @encode(UIEdgeInsets))) [self getValue:&insets];
  return insets;
}

@end
