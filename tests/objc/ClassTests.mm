// Classes: where their instance variables lie, their properties, categories and protocols.
#include <objc/runtime.h>

#include <vector>

#include "objc/ArcTest.h"
#include "objc/Language.h"
#include "objc/ours/Ours.h"

// Defined before its superclass, in another order than the file lists them.
@interface LaidOutBase : OursBase
@property(nonatomic) double height;
@end

@interface LaidOut : LaidOutBase {
 @public
  char _first;
}
@property(nonatomic, strong) NSString *title;
@property(nonatomic, copy) NSString *copied;
@property(nonatomic, weak) id owner;
@property(strong) NSArray *list;
@property(nonatomic) NSRect frame;
@property NSRange range;
- (std::vector<int> &)numbers;
@end

@interface LaidOut () {
  std::vector<int> _numbers;
  int _inExtension;
}
@end

@implementation LaidOut {
  long double _inImplementation;
}

- (instancetype)init {
  if ((self = [super init])) {
    _first = 'f';
    _inExtension = 11;
    _inImplementation = 1.5L;
    _number += 1;
  }
  return self;
}

- (std::vector<int> &)numbers {
  return _numbers;
}

- (NSString *)description {
  return
      [NSString stringWithFormat:@"%c %d %g %@", _first, _inExtension, (double)_inImplementation, [super description]];
}

- (id)copyWithZone:(NSZone *)__attribute__((unused)) zone {
  return self;
}

@end

@implementation LaidOutBase {
  short _odd;
}

- (instancetype)init {
  if ((self = [super init])) _odd = 3;
  return self;
}

- (NSString *)description {
  return [NSString stringWithFormat:@"%d %d", _odd, _number];
}

@end

@interface OursBase (InCategory)
- (NSString *)shout;
@end

@implementation OursBase (InCategory)
- (NSString *)shout {
  return [[self story] uppercaseString];
}
@end

@interface NSString (InCategory)
- (NSString *)twice;
@end

@implementation NSString (InCategory)
- (NSString *)twice {
  return [self stringByAppendingString:self];
}
@end

@protocol AdoptedByNobody <NSObject>
- (void)work;
@optional
@property(nonatomic) int level;
@end

@protocol Adopted <AdoptedByNobody>
@end

@interface Adopter : NSObject <Adopted>
@end

@implementation Adopter
@synthesize level = _level;
- (void)work {
}
@end

namespace {

TEST(ClassTest, InstanceVariablesLieBehindThoseOfTheSuperclasses) {
  @autoreleasepool {
    LaidOut *object = [LaidOut new];
    object.height = 2.5;
    object.range = NSMakeRange(3, 4);
    EXPECT_EQ(text([object description]), "f 11 1.5 3 8");
    EXPECT_EQ(object.height, 2.5);
    EXPECT_EQ([object number], 8);
    EXPECT_EQ(text([object story]), "o8");
    EXPECT_EQ(object->_first, 'f');
    EXPECT_EQ(object.range.length, 4u);
    EXPECT_GT(class_getInstanceSize([LaidOut class]), class_getInstanceSize([LaidOutBase class]));
    EXPECT_GT(class_getInstanceSize([LaidOutBase class]), class_getInstanceSize([OursBase class]));
  }
}

TEST(ClassTest, PropertiesAreSynthesised) {
  int deaths = 0;
  @autoreleasepool {
    LaidOut *object = [LaidOut new];
    NSMutableString *title = [NSMutableString stringWithString:@"a"];
    object.title = title;
    object.copied = title;
    [title appendString:@"b"];
    EXPECT_EQ(text(object.title), "ab");
    EXPECT_EQ(text(object.copied), "a");
    object.list = @[ [[Mortal alloc] initWithCounter:&deaths] ];
    [object setValue:@"by key" forKey:@"title"];
    EXPECT_EQ(text([object valueForKey:@"title"]), "by key");
    [object setValue:@4.5 forKey:@"height"];
    EXPECT_EQ(object.height, 4.5);
    object.owner = object;
    EXPECT_EQ(object.owner, object);
    EXPECT_EQ(deaths, 0);
  }
  EXPECT_EQ(deaths, 1) << "what ARC holds in instance variables ends with the object";
}

TEST(ClassTest, ObjectsOfCxxAreMadeAndEnded) {
  @autoreleasepool {
    LaidOut *object = [LaidOut new];
    for (int number = 0; number < 1000; ++number) [object numbers].push_back(number);
    EXPECT_EQ([object numbers].back(), 999);
  }
}

TEST(ClassTest, CategoriesExtendClassesOfBothKinds) {
  @autoreleasepool {
    EXPECT_EQ(text([[OursBase new] shout]), "O7");
    EXPECT_EQ(text([@"ab" twice]), "abab");
    EXPECT_EQ(text([[NSMutableString stringWithString:@"c"] twice]), "cc");
  }
}

TEST(ClassTest, ProtocolsAreKnownAlsoWhereNoClassAdoptsThem) {
  @autoreleasepool {
    EXPECT_TRUE([[Adopter new] conformsToProtocol:@protocol(AdoptedByNobody)]);
    EXPECT_TRUE([Adopter conformsToProtocol:@protocol(Adopted)]);
    EXPECT_FALSE([LaidOut conformsToProtocol:@protocol(Adopted)]);
    EXPECT_EQ(text(NSStringFromProtocol(@protocol(Language))), "Language");
    EXPECT_TRUE([LanguageWithArc conformsToProtocol:NSProtocolFromString(@"Language")]);
  }
}

TEST(ClassTest, TheSameInCWithArcAndWithout) {
  for (Class each : {[LanguageWithArc class], [LanguageWithoutArc class]}) {
    @autoreleasepool {
      id<Language> object = [each new];
      [object setExtra:5 hidden:0.25];
      object.name = [NSMutableString stringWithString:@"n"];
      __block int calls = 0;
      object.handler = ^{
        ++calls;
      };
      object.handler();
      object.flag = YES;
      EXPECT_EQ(calls, 1);
      EXPECT_TRUE(object.flag);
      EXPECT_EQ(text(object.name), "n");
      EXPECT_EQ(text([object extraAndHidden]), "5 0.25");
      NSArray *literals = [object literals];
      EXPECT_EQ([literals[1] intValue], 3);
      EXPECT_EQ(literals.count, 3u);
      EXPECT_TRUE([literals[0] isKindOfClass:[[NSNumber numberWithBool:YES] class]]);
      EXPECT_TRUE([literals[0] boolValue]);
      EXPECT_FALSE([literals[2] boolValue]);
      EXPECT_TRUE([object acceptsNil]);
    }
  }
}

}  // namespace
