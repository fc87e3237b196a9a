// Enumerating the attributes of a text, which GNUstep base 1.28 does not have.
#import <Foundation/Foundation.h>

namespace {

/// Calls `use` with the attributes, or the value, at each place that `rangeAt` finds, until it wants no more.
template <typename RangeAt, typename Use>
void enumerate(NSAttributedString *text, NSRange whole, NSAttributedStringEnumerationOptions options, RangeAt rangeAt,
               Use use) {
  if (NSMaxRange(whole) > [text length] || NSMaxRange(whole) < whole.location) {
    [NSException raise:NSRangeException
                format:@"%@ lies beyond the %lu characters of the text.", NSStringFromRange(whole),
                       (unsigned long)[text length]];
  }
  const bool backwards = options & NSAttributedStringEnumerationReverse;
  BOOL stop = NO;
  for (NSRange left = whole; left.length > 0 && !stop;) {
    @autoreleasepool {
      const NSUInteger at = backwards ? NSMaxRange(left) - 1 : left.location;
      NSRange range;
      const id found = rangeAt(at, range);
      range = NSIntersectionRange(range, left);
      use(found, range, &stop);
      if (!backwards) left.location += range.length;
      left.length -= range.length;
    }
  }
}

}  // namespace

@implementation NSAttributedString (Enumeration)

- (void)enumerateAttributesInRange:(NSRange)enumerationRange
                           options:(NSAttributedStringEnumerationOptions)opts
                        usingBlock:
                            (void (^)(NSDictionary<NSAttributedStringKey, id> *attrs, NSRange range, BOOL *stop))block {
  enumerate(
      self, enumerationRange, opts,
      [&](NSUInteger at, NSRange &range) -> id {
        return [self attributesAtIndex:at longestEffectiveRange:&range inRange:enumerationRange];
      },
      block);
}

- (void)enumerateAttribute:(NSAttributedStringKey)attrName
                   inRange:(NSRange)enumerationRange
                   options:(NSAttributedStringEnumerationOptions)opts
                usingBlock:(void (^)(id value, NSRange range, BOOL *stop))block {
  enumerate(
      self, enumerationRange, opts,
      [&](NSUInteger at, NSRange &range) -> id {
        return [self attribute:attrName atIndex:at longestEffectiveRange:&range inRange:enumerationRange];
      },
      block);
}

@end
