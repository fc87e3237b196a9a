// Ownership under ARC: weak references, blocks, associated objects.
#include <objc/runtime.h>

#include <thread>
#include <vector>

#include "objc/ArcTest.h"
#include "objc/Language.h"

@interface Dying : NSObject
@property(nonatomic, copy) void (^onDealloc)(Dying *);
@end

@implementation Dying
- (void)dealloc {
  if (_onDealloc) _onDealloc(self);
}
@end

@interface Holder : NSObject {
 @public
  __weak id _weakly;
  __unsafe_unretained id _unsafely;
  id _strongly;
}
@property(weak) id atomicallyWeak;
@end

@implementation Holder
@end

namespace {

using Block = void (^)(void);
using Answer = int (^)(void);

TEST(WeakTest, ReadsAsNilFromTheEndOfItsObject) {
  @autoreleasepool {
    __weak id weak = nil;
    Holder *holder = [Holder new];
    @autoreleasepool {
      Dying *object = [Dying new];
      weak = object;
      holder->_weakly = object;
      holder.atomicallyWeak = object;
      EXPECT_EQ(weak, object);
      EXPECT_EQ(holder.atomicallyWeak, object);
    }
    EXPECT_EQ(weak, nil);
    EXPECT_EQ(holder->_weakly, nil);
    EXPECT_EQ(holder.atomicallyWeak, nil);
  }
}

TEST(WeakTest, ReadsAsNilInDealloc) {
  @autoreleasepool {
    __block bool asked = false;
    __weak Dying *weak = nil;
    @autoreleasepool {
      Dying *object = [Dying new];
      weak = object;
      __weak Dying *again = object;
      object.onDealloc = ^(Dying *) {
        asked = true;
        EXPECT_EQ(again, nil);
      };
    }
    EXPECT_TRUE(asked);
    EXPECT_EQ(weak, nil);
  }
}

TEST(WeakTest, FoundationsObjectsToo) {
  @autoreleasepool {
    std::vector<id __weak> all;
    @autoreleasepool {
      NSArray *objects = @[
        [NSMutableString stringWithString:@"text"], [NSString stringWithFormat:@"%d of these", 12345],
        [NSMutableArray array], @[ [NSObject new] ], [@{@"key" : [NSObject new]} mutableCopy],
        [NSMutableData dataWithLength:3], [NSDate dateWithTimeIntervalSince1970:1.5],
        [NSNumber numberWithDouble:1234.5], [NSURL fileURLWithPath:@"/tmp"], [NSIndexPath indexPathWithIndex:77]
      ];
      for (id each in objects) all.push_back(each);
      for (id each : all) EXPECT_NE(each, nil);
    }
    for (size_t index = 0; index < all.size(); ++index) EXPECT_EQ(all[index], nil) << index;
  }
}

TEST(WeakTest, IsCopiedAndMoved) {
  @autoreleasepool {
    struct Link {
      __weak id object;
    };
    std::vector<Link> links;
    @autoreleasepool {
      id object = [NSObject new];
      for (int index = 0; index < 100; ++index) links.push_back({object});
      links.erase(links.begin(), links.begin() + 50);
      EXPECT_EQ(links.front().object, object);
    }
    for (const Link &link : links) EXPECT_EQ(link.object, nil);
  }
}

TEST(WeakTest, AStrongReferenceFromItKeepsTheObject) {
  @autoreleasepool {
    int deaths = 0;
    __weak id weak = nil;
    id strong = nil;
    @autoreleasepool {
      id object = [[Mortal alloc] initWithCounter:&deaths];
      weak = object;
      strong = weak;
    }
    EXPECT_EQ(deaths, 0);
    EXPECT_EQ(weak, strong);
    strong = nil;
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(weak, nil);
  }
}

TEST(WeakTest, ThreadsNeverSeeAnEndedObject) {
  for (int round = 0; round < 200; ++round) {
    @autoreleasepool {
      int deaths = 0;
      Mortal *mortal = [[Mortal alloc] initWithCounter:&deaths];
      Holder *holder = [Holder new];
      holder->_weakly = mortal;
      Runner *reader = [Runner start:^{
        for (int turn = 0; turn < 50; ++turn) {
          @autoreleasepool {
            id read = holder->_weakly;
            if (read) EXPECT_EQ([read class], [Mortal class]);
          }
        }
      }];
      if (round % 2) std::this_thread::yield();
      mortal = nil;
      [reader join];
      EXPECT_EQ(deaths, 1);
      EXPECT_EQ(holder->_weakly, nil);
    }
  }
}

TEST(BlockTest, AreObjects) {
  @autoreleasepool {
    int number = 5;
    Answer answer = ^{
      return number;
    };
    NSArray *array = @[
      answer,
      ^{
        return 6;
      }
    ];
    NSMutableDictionary *dictionary = [NSMutableDictionary dictionary];
    dictionary[@"k"] = ^{
      return number + 2;
    };
    EXPECT_EQ(((Answer)array[0])(), 5);
    EXPECT_EQ(((Answer)array[1])(), 6);
    EXPECT_EQ(((Answer)dictionary[@"k"])(), 7);
    EXPECT_TRUE([array[0] isKindOfClass:NSClassFromString(@"NSBlock")]);
    EXPECT_EQ(text(NSStringFromClass([array[1] class])), "__NSGlobalBlock__");
    EXPECT_EQ([array indexOfObject:array[1]], 1u);
    id copy = [array[0] copy];
    EXPECT_EQ(((Answer)copy)(), 5);
    EXPECT_TRUE([array[0] isEqual:copy]);
    NSSet *set = [NSSet setWithArray:array];
    EXPECT_EQ(set.count, 2u);
    EXPECT_NE([array description].length, 0u);
  }
}

TEST(BlockTest, HoldWhatTheyCaptureAsLongAsTheyLive) {
  int deaths = 0;
  @autoreleasepool {
    NSMutableArray *handlers = [NSMutableArray array];
    @autoreleasepool {
      Mortal *mortal = [[Mortal alloc] initWithCounter:&deaths];
      __weak Mortal *weak = mortal;
      [handlers addObject:^{
        return (weak != nil && mortal != nil) ? 1 : 0;
      }];
    }
    EXPECT_EQ(deaths, 0);
    EXPECT_EQ(((Answer)handlers[0])(), 1);
    [handlers removeAllObjects];
  }
  EXPECT_EQ(deaths, 1);
}

TEST(BlockTest, OfACopyPropertyEndsWithItsObject) {
  int deaths = 0;
  for (Class each : {[LanguageWithArc class], [LanguageWithoutArc class]}) {
    deaths = 0;
    @autoreleasepool {
      id<Language> object = [each new];
      Mortal *mortal = [[Mortal alloc] initWithCounter:&deaths];
      object.handler = ^{
        [mortal description];
      };
      object.handler();
    }
    EXPECT_EQ(deaths, 1) << text(NSStringFromClass(each));
  }
}

TEST(BlockTest, VariablesAreShared) {
  @autoreleasepool {
    __block NSString *shared = @"a";
    __block Block again = nil;
    __block int left = 3;
    Block add = ^{
      shared = [shared stringByAppendingString:@"b"];
      if (--left > 0) again();
    };
    again = add;
    add();
    again = nil;
    EXPECT_EQ(text(shared), "abbb");
  }
}

TEST(BlockTest, CanBeReferredToWeakly) {
  @autoreleasepool {
    __weak Answer weak = nil;
    @autoreleasepool {
      int number = 5;
      Answer answer = [^{
        return number;
      } copy];
      weak = answer;
      EXPECT_EQ(weak(), 5);
    }
    EXPECT_EQ(weak, nil);
  }
}

TEST(BlockTest, GoThroughAutoreleasePoolsAndInvocations) {
  int deaths = 0;
  @autoreleasepool {
    Mortal *mortal = [[Mortal alloc] initWithCounter:&deaths];
    Answer (^make)(void) = ^{
      Answer made = ^{
        return mortal ? 9 : 0;
      };
      return made;
    };
    EXPECT_EQ(make()(), 9);
    NSMutableArray *array = [NSMutableArray array];
    [array performSelector:@selector(addObject:) withObject:make()];
    EXPECT_EQ(((Answer)array.firstObject)(), 9);
  }
  EXPECT_EQ(deaths, 1);
}

char kKey, kOther;

TEST(AssociatedObjectTest, EndsWithItsOwner) {
  int deaths = 0;
  @autoreleasepool {
    NSObject *owner = [NSObject new];
    objc_setAssociatedObject(owner, &kKey, [[Mortal alloc] initWithCounter:&deaths], OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    objc_setAssociatedObject(owner, &kOther, [[Mortal alloc] initWithCounter:&deaths], OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ([objc_getAssociatedObject(owner, &kKey) class], [Mortal class]);
    EXPECT_NE(objc_getAssociatedObject(owner, &kKey), objc_getAssociatedObject(owner, &kOther));
    EXPECT_EQ(deaths, 0);
  }
  EXPECT_EQ(deaths, 2);
}

TEST(AssociatedObjectTest, IsReplacedAndTakenAway) {
  int deaths = 0;
  @autoreleasepool {
    NSString *owner = [NSMutableString stringWithString:@"owner"];
    @autoreleasepool {
      objc_setAssociatedObject(owner, &kKey, [[Mortal alloc] initWithCounter:&deaths], OBJC_ASSOCIATION_RETAIN);
      objc_setAssociatedObject(owner, &kKey, @"second", OBJC_ASSOCIATION_COPY);
    }
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(text(objc_getAssociatedObject(owner, &kKey)), "second");
    objc_setAssociatedObject(owner, &kKey, nil, OBJC_ASSOCIATION_ASSIGN);
    EXPECT_EQ(objc_getAssociatedObject(owner, &kKey), nil);
    NSMutableString *changing = [NSMutableString stringWithString:@"a"];
    objc_setAssociatedObject(owner, &kKey, changing, OBJC_ASSOCIATION_COPY_NONATOMIC);
    [changing appendString:@"b"];
    EXPECT_EQ(text(objc_getAssociatedObject(owner, &kKey)), "a");
    objc_setAssociatedObject(owner, &kOther, changing, OBJC_ASSOCIATION_ASSIGN);
    objc_removeAssociatedObjects(owner);
    EXPECT_EQ(objc_getAssociatedObject(owner, &kKey), nil);
    EXPECT_EQ(objc_getAssociatedObject(owner, &kOther), nil);
    EXPECT_EQ(objc_getAssociatedObject([NSObject class], &kKey), nil);
    objc_setAssociatedObject([NSObject class], &kKey, @"of a class", OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(text(objc_getAssociatedObject([NSObject class], &kKey)), "of a class");
    objc_setAssociatedObject([NSObject class], &kKey, nil, OBJC_ASSOCIATION_RETAIN);
    objc_setAssociatedObject(nil, &kKey, @"x", OBJC_ASSOCIATION_RETAIN);
    EXPECT_EQ(objc_getAssociatedObject(nil, &kKey), nil);
  }
}

TEST(AssociatedObjectTest, ABlockIsOneToo) {
  @autoreleasepool {
    NSObject *owner = [NSObject new];
    int number = 8;
    objc_setAssociatedObject(
        owner, &kKey,
        ^{
          return number;
        },
        OBJC_ASSOCIATION_COPY_NONATOMIC);
    EXPECT_EQ(((Answer)objc_getAssociatedObject(owner, &kKey))(), 8);
  }
}

TEST(BridgeTest, OwnershipIsHandedOverAndBack) {
  int deaths = 0;
  @autoreleasepool {
    void *held = nil;
    @autoreleasepool {
      held = (__bridge_retained void *)[[Mortal alloc] initWithCounter:&deaths];
    }
    EXPECT_EQ(deaths, 0);
    @autoreleasepool {
      id back = (__bridge_transfer id)held;
      EXPECT_EQ([back class], [Mortal class]);
    }
    EXPECT_EQ(deaths, 1);
  }
}

}  // namespace
