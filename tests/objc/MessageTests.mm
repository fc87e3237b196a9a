// Messages: arguments and results of every kind, nil, super, forwarding.
#include <objc/message.h>

#include <string>

#include "objc/ArcTest.h"
#include "objc/ours/Ours.h"

struct Large {
  double values[6];
};

struct Mixed {
  int64_t whole;
  double part;
};

@interface Messages : NSObject
@end

@interface Messages (Forwarded)
- (int)forwarded:(int)number;
- (void)unknown;
@end

static int initialised = 0;

@implementation Messages

+ (void)initialize {
  if (self == [Messages class]) ++initialised;
}

+ (int)initialised {
  return initialised;
}

- (NSString *)many:(int)a b:(long)b c:(char)c d:(int)d e:(int)e f:(int)f g:(int)g h:(NSString *)h {
  return [NSString stringWithFormat:@"%d %ld %c %d %d %d %d %@", a, b, c, d, e, f, g, h];
}

- (double)sum:(double)a b:(float)b c:(double)c d:(double)d e:(double)e f:(double)f g:(double)g h:(double)h i:(double)i {
  return a + 2 * b + 3 * c + 4 * d + 5 * e + 6 * f + 7 * g + 8 * h + 9 * i;
}

- (Large)large:(double)first {
  return {{first, first + 1, first + 2, first + 3, first + 4, first + 5}};
}

- (Mixed)mixed:(Mixed)mixed {
  return {mixed.whole * 2, mixed.part * 2};
}

- (long double)longDouble:(long double)value {
  return value * 2;
}

- (float)single {
  return 1.5F;
}

- (std::string)cxxString {
  return "a string that is longer than what fits into it without memory of its own";
}

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  if (sel_isEqual(selector, @selector(forwarded:))) return [NSMethodSignature signatureWithObjCTypes:"i@:i"];
  return [super methodSignatureForSelector:selector];
}

- (void)forwardInvocation:(NSInvocation *)invocation {
  if (!sel_isEqual([invocation selector], @selector(forwarded:))) return [super forwardInvocation:invocation];
  int number = 0;
  [invocation getArgument:&number atIndex:2];
  number *= 3;
  [invocation setReturnValue:&number];
}

@end

@interface MoreMessages : Messages
@end

@implementation MoreMessages

- (Large)large:(double)first {
  Large large = [super large:first];
  large.values[0] = -1;
  return large;
}

- (NSString *)many:(int)a b:(long)b c:(char)c d:(int)d e:(int)e f:(int)f g:(int)g h:(NSString *)h {
  // Two at once: the methods must not be mixed up.
  return [[super many:a b:b c:c d:d e:e f:f g:g h:h] stringByAppendingString:[super description] ? @"!" : @""];
}

@end

namespace {

TEST(MessageTest, ArgumentsArriveInRegistersAndOnTheStack) {
  @autoreleasepool {
    Messages *object = [Messages new];
    EXPECT_EQ(text([object many:1 b:-2 c:'c' d:4 e:5 f:6 g:7 h:@"h"]), "1 -2 c 4 5 6 7 h");
    EXPECT_EQ([object sum:1 b:2 c:3 d:4 e:5 f:6 g:7 h:8 i:9], 285);
    EXPECT_EQ(text([NSString stringWithFormat:@"%g %d %g %@ %g", 1.5, 2, 3.5, @"four", 5.5]), "1.5 2 3.5 four 5.5");
  }
}

TEST(MessageTest, ResultsOfEveryKindComeBack) {
  @autoreleasepool {
    Messages *object = [Messages new];
    EXPECT_EQ([object large:2].values[5], 7);
    const Mixed mixed = [object mixed:{21, 0.5}];
    EXPECT_EQ(mixed.whole, 42);
    EXPECT_EQ(mixed.part, 1);
    EXPECT_EQ([object longDouble:1.25L], 2.5L);
    EXPECT_EQ([object single], 1.5F);
    EXPECT_EQ([object cxxString].size(), 72u);
    EXPECT_EQ([@"abc" rangeOfString:@"c"].location, 2u);
  }
}

TEST(MessageTest, NilAnswersZero) {
  @autoreleasepool {
    Messages *object = nil;
    EXPECT_EQ([object many:1 b:2 c:'c' d:4 e:5 f:6 g:7 h:@"h"], nil);
    EXPECT_EQ([object sum:1 b:2 c:3 d:4 e:5 f:6 g:7 h:8 i:9], 0);
    EXPECT_EQ([object single], 0);
    EXPECT_EQ([object large:2].values[3], 0);
    const Mixed mixed = [object mixed:{21, 0.5}];
    EXPECT_EQ(mixed.part, 0);
    EXPECT_EQ([object longDouble:1.25L], 0);
    EXPECT_EQ([object cxxString], "");
  }
}

TEST(MessageTest, SuperIsTheSuperclass) {
  @autoreleasepool {
    MoreMessages *object = [MoreMessages new];
    EXPECT_EQ([object large:2].values[0], -1);
    EXPECT_EQ([object large:2].values[1], 3);
    EXPECT_EQ(text([object many:1 b:-2 c:'c' d:4 e:5 f:6 g:7 h:@"h"]), "1 -2 c 4 5 6 7 h!");
  }
}

TEST(MessageTest, AClassIsInitialisedOnceBeforeItsFirstMessage) {
  EXPECT_EQ([MoreMessages initialised], 1);
  EXPECT_EQ([Messages initialised], 1);
}

TEST(MessageTest, UnknownMessagesAreForwardedOrRaise) {
  @autoreleasepool {
    Messages *object = [Messages new];
    EXPECT_EQ([object forwarded:14], 42);
    NSString *name = OursCatch(^{
      [object unknown];
    });
    EXPECT_EQ(text(name), "NSInvalidArgumentException");
  }
}

TEST(MessageTest, TheFunctionIsCalledByCasts) {
  @autoreleasepool {
    auto length = reinterpret_cast<NSUInteger (*)(id, SEL)>(objc_msgSend);
    EXPECT_EQ(length(@"four", @selector(length)), 4u);
    auto large = reinterpret_cast<Large (*)(id, SEL, double)>(objc_msgSend_stret);
    EXPECT_EQ(large([Messages new], @selector(large:), 3).values[1], 4);
  }
}

}  // namespace
