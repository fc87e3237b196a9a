#import <Foundation/Foundation.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

class AttributedStringTest : public ObjCTest {
 protected:
  /// "abcdef" with `key` 1 in "bc", and another attribute in "c".
  NSMutableAttributedString *text() {
    NSMutableAttributedString *made = [[[NSMutableAttributedString alloc] initWithString:@"abcdef"] autorelease];
    [made addAttribute:@"key" value:@1 range:NSMakeRange(1, 2)];
    [made addAttribute:@"other" value:@2 range:NSMakeRange(2, 1)];
    return made;
  }
};

TEST_F(AttributedStringTest, EachRangeOfOneValueIsTold) {
  NSMutableArray *told = [NSMutableArray array];
  const auto enumerate = [&](NSRange range, NSAttributedStringEnumerationOptions options) {
    [told removeAllObjects];
    [text() enumerateAttribute:@"key"
                       inRange:range
                       options:options
                    usingBlock:^(id value, NSRange found, BOOL *) {
                      [told addObject:[NSString stringWithFormat:@"%@ %@", NSStringFromRange(found), value ?: @"-"]];
                    }];
    return [told componentsJoinedByString:@"; "];
  };
  EXPECT_OBJC_EQ(enumerate(NSMakeRange(0, 6), NSAttributedStringEnumerationOptions(0)),
                 @"{location=0, length=1} -; {location=1, length=2} 1; {location=3, length=3} -");
  EXPECT_OBJC_EQ(enumerate(NSMakeRange(2, 2), NSAttributedStringEnumerationReverse),
                 @"{location=3, length=1} -; {location=2, length=1} 1");
  EXPECT_OBJC_EQ(enumerate(NSMakeRange(6, 0), NSAttributedStringEnumerationOptions(0)), @"");
}

TEST_F(AttributedStringTest, EachRangeOfTheSameAttributesIsTold) {
  __block NSUInteger count = 0;
  [text() enumerateAttributesInRange:NSMakeRange(0, 6)
                             options:NSAttributedStringEnumerationOptions(0)
                          usingBlock:^(NSDictionary<NSAttributedStringKey, id> *attributes, NSRange range, BOOL *stop) {
                            ++count;
                            if (range.location != 2) return;
                            EXPECT_EQ([attributes count], 2u);
                            *stop = YES;
                          }];
  EXPECT_EQ(count, 3u) << "it stops when it is told to";
}

TEST_F(AttributedStringTest, ARangeBeyondTheEndRaises) {
  for (const NSRange range : {NSMakeRange(4, 3), NSRange{NSNotFound, 1}, NSRange{1, NSUIntegerMax}}) {
    EXPECT_EQ(raisedBy([&] {
                [text() enumerateAttribute:@"key"
                                   inRange:range
                                   options:NSAttributedStringEnumerationOptions(0)
                                usingBlock:^(id, NSRange, BOOL *){
                                }];
              }),
              "NSRangeException");
  }
}

}  // namespace
