// Counts of bytes as a device tells them. GNUstep's has the thresholds and the digits otherwise.
#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#import "objc/ReplaceMethod.h"

#include <array>
#include <cmath>
#include <cstdlib>

// Replacing the method of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

namespace {

constexpr std::array<const char *, 7> kNames = {"bytes", "KB", "MB", "GB", "TB", "PB", "EB"};
/// Of a number that is told adaptively: none below a megabyte, two from a gigabyte on.
constexpr std::array<int, 7> kDigits = {0, 0, 1, 2, 2, 2, 2};

/// The number of the largest allowed unit of which there is one whole, or else of the smallest.
std::size_t unitFor(double count, double base, NSUInteger allowed) {
  std::size_t best = kNames.size();
  for (std::size_t unit = 0; unit < kNames.size(); ++unit) {
    if (!(allowed & (1UL << unit))) continue;
    if (best == kNames.size() || std::round(count) >= std::pow(base, unit)) best = unit;
  }
  return best == kNames.size() ? 0 : best;
}

using Init = id (*)(id, SEL);
Init originalInit = nullptr;

id initWithDefaults(id self, SEL selector) {
  NSByteCountFormatter *made = originalInit(self, selector);
  [made setAllowsNonnumericFormatting:YES];
  [made setIncludesCount:YES];
  [made setIncludesUnit:YES];
  [made setAdaptive:YES];
  [made setIncludesActualByteCount:NO];
  [made setZeroPadsFractionDigits:NO];
  [made setAllowedUnits:NSByteCountFormatterUseDefault];
  [made setCountStyle:NSByteCountFormatterCountStyleFile];
  return made;
}

NSString *withoutTrailingZeros(NSString *number) {
  if ([number rangeOfString:@"."].length == 0) return number;
  while ([number hasSuffix:@"0"]) number = [number substringToIndex:[number length] - 1];
  return [number hasSuffix:@"."] ? [number substringToIndex:[number length] - 1] : number;
}

}  // namespace

@implementation NSByteCountFormatter (Device)

+ (void)load {
  originalInit = sim::replaceMethod((Class)objc_getClass("NSByteCountFormatter"), @selector(init), initWithDefaults);
}

- (NSString *)stringFromByteCount:(long long)count {
  const auto style = [self countStyle];
  const bool isBinary = style == NSByteCountFormatterCountStyleMemory || style == NSByteCountFormatterCountStyleBinary;
  const double base = isBinary ? 1024 : 1000;
  const NSUInteger allowed = [self allowedUnits] == 0 ? NSByteCountFormatterUseAll : [self allowedUnits];
  const double size = std::fabs(static_cast<double>(count));
  std::size_t unit = unitFor(size, base, allowed);
  NSString *number = nil;
  if (count == 0 && [self allowsNonnumericFormatting]) {
    number = @"Zero";
    if (allowed & NSByteCountFormatterUseKB) unit = 1;
  } else {
    const int digits = [self isAdaptive] ? kDigits[unit] : (unit == 0 ? 0 : 2);
    number = [NSString stringWithFormat:@"%.*f", digits, static_cast<double>(count) / std::pow(base, unit)];
    if (![self zeroPadsFractionDigits]) number = withoutTrailingZeros(number);
  }
  NSMutableArray *parts = [NSMutableArray array];
  if ([self includesCount]) [parts addObject:number];
  if ([self includesUnit]) [parts addObject:unit == 0 && std::llabs(count) == 1 ? @"byte" : @(kNames[unit])];
  NSString *text = [parts componentsJoinedByString:@" "];
  if (![self includesActualByteCount] || unit == 0) return text;
  return [text stringByAppendingFormat:@" (%lld bytes)", count];
}

+ (NSString *)stringFromByteCount:(long long)count countStyle:(NSByteCountFormatterCountStyle)style {
  NSByteCountFormatter *formatter = [[[self alloc] init] autorelease];
  [formatter setCountStyle:style];
  [formatter setAllowedUnits:NSByteCountFormatterUseDefault];
  return [formatter stringFromByteCount:count];
}

@end
