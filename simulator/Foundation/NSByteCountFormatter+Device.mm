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

/// The digits before the point in threes.
NSString *grouped(NSString *number) {
  NSMutableString *text = [NSMutableString stringWithString:number];
  const NSRange point = [text rangeOfString:@"."];
  const NSUInteger first = [text hasPrefix:@"-"] ? 1 : 0;
  for (NSUInteger at = point.length > 0 ? point.location : [text length]; at > first + 3;) {
    at -= 3;
    [text insertString:@"," atIndex:at];
  }
  return text;
}

/// Of a number that is not told adaptively: with them it has three digits.
int digitsBehind(double number) { return number >= 100 ? 0 : number >= 10 ? 1 : 2; }

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
    const double units = static_cast<double>(count) / std::pow(base, unit);
    const int digits = [self isAdaptive] || unit == 0 ? kDigits[unit] : digitsBehind(std::fabs(units));
    number = [NSString stringWithFormat:@"%.*f", digits, units];
    if (![self zeroPadsFractionDigits]) number = withoutTrailingZeros(number);
    number = grouped(number);
  }
  NSMutableArray *parts = [NSMutableArray array];
  if ([self includesCount]) [parts addObject:number];
  if ([self includesUnit]) [parts addObject:unit == 0 && std::llabs(count) == 1 ? @"byte" : @(kNames[unit])];
  NSString *text = [parts componentsJoinedByString:@" "];
  const bool isExact = unit == 0 || count == 0;
  if (![self includesActualByteCount] || isExact || [parts count] < 2) return text;
  return [text stringByAppendingFormat:@" (%@ bytes)", grouped([NSString stringWithFormat:@"%lld", count])];
}

+ (NSString *)stringFromByteCount:(long long)count countStyle:(NSByteCountFormatterCountStyle)style {
  NSByteCountFormatter *formatter = [[[self alloc] init] autorelease];
  [formatter setCountStyle:style];
  [formatter setAllowedUnits:NSByteCountFormatterUseDefault];
  return [formatter stringFromByteCount:count];
}

@end
