// The block runtime. The sanitized build shows what these tests cannot: a use after free or a leak.
#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <memory>
#include <string>

namespace {

class BlockTest : public ObjCTest {
 protected:
  Lifetime *probe() { return [[[Lifetime alloc] initWithCounter:&deaths_] autorelease]; }
  int deaths_ = 0;
};

using Answer = NSUInteger (^)(void);

TEST_F(BlockTest, ACopyRetainsTheObjectsThatItCaptures) {
  objcxx::BlockHandle<id> handle;
  @autoreleasepool {
    Lifetime *object = probe();
    handle = objcxx::copyOf(^id {
      return object;
    });
  }
  EXPECT_EQ(deaths_, 0);
  EXPECT_OBJC_EQ([handle() class], [Lifetime class]);
  handle = {};
  EXPECT_EQ(deaths_, 1);
}

TEST_F(BlockTest, ABlockOnTheStackOwnsNothing) {
  @autoreleasepool {
    Lifetime *object = probe();
    Answer block = ^NSUInteger {
      return [object hash];
    };
    block();
  }
  EXPECT_EQ(deaths_, 1);
}

TEST_F(BlockTest, CopiesOfACopyShareIt) {
  objcxx::BlockHandle<id> first;
  @autoreleasepool {
    Lifetime *object = probe();
    first = objcxx::copyOf(^id {
      return object;
    });
  }
  auto second = first;
  EXPECT_EQ(static_cast<const void *>(first.get()), static_cast<const void *>(second.get()));
  first = {};
  EXPECT_EQ(deaths_, 0);
  second = {};
  EXPECT_EQ(deaths_, 1);
}

TEST_F(BlockTest, ABlockThatCapturesABlockCopiesIt) {
  objcxx::BlockHandle<id> outer;
  @autoreleasepool {
    Lifetime *object = probe();
    id (^inner)(void) = ^id {
      return object;
    };
    outer = objcxx::copyOf(^id {
      return inner();
    });
  }
  EXPECT_EQ(deaths_, 0);
  EXPECT_NE(outer(), nil);
  outer = {};
  EXPECT_EQ(deaths_, 1);
}

TEST_F(BlockTest, ABlockCapturedAsAnObjectIsCopiedToo) {
  objcxx::BlockHandle<NSUInteger> outer;
  @autoreleasepool {
    Lifetime *object = probe();
    Answer inner = ^NSUInteger {
      return [object isProxy] ? 0 : 7;
    };
    id disguised = (id)inner;
    outer = objcxx::copyOf(^NSUInteger {
      return ((Answer)disguised)();
    });
  }
  EXPECT_EQ(deaths_, 0);
  EXPECT_EQ(outer(), 7u);
  outer = {};
  EXPECT_EQ(deaths_, 1);
}

TEST_F(BlockTest, NilMayBeCaptured) {
  Lifetime *nothing = nil;
  Answer none = nil;
  auto handle = objcxx::copyOf(^bool {
    return nothing == nil && none == nil;
  });
  EXPECT_TRUE(handle());
}

TEST_F(BlockTest, ABlockVariableIsSharedAndOutlivesItsFrame) {
  objcxx::BlockHandle<int> count;
  objcxx::BlockHandle<void, int> set;
  {
    __block int value = 1;
    count = objcxx::copyOf(^int {
      return ++value;
    });
    set = objcxx::copyOf(^(int other) {
      value = other;
    });
    value = 10;
  }
  EXPECT_EQ(count(), 11);
  set(41);
  EXPECT_EQ(count(), 42);
  set = {};
  EXPECT_EQ(count(), 43);
}

TEST_F(BlockTest, ABlockVariableDoesNotOwnItsObject) {
  objcxx::BlockHandle<void> handle;
  @autoreleasepool {
    __block Lifetime *object = probe();
    handle = objcxx::copyOf(^{
      object = nil;
    });
  }
  EXPECT_EQ(deaths_, 1);
  handle();
}

TEST_F(BlockTest, ABlockVariableMayHoldABlock) {
  __block Answer inner = nil;
  auto outer = objcxx::copyOf(^NSUInteger {
    return inner();
  });
  NSUInteger base = 40;
  Answer copied = Block_copy(^NSUInteger {
    return base + 2;
  });
  inner = copied;
  EXPECT_EQ(outer(), 42u);
  Block_release(copied);
}

TEST_F(BlockTest, CapturedValuesOfCPlusPlusAreCopiedAndDestroyed) {
  auto shared = std::make_shared<int>(5);
  const std::string text(100, 'x');
  objcxx::BlockHandle<std::size_t> handle;
  {
    auto held = shared;
    handle = objcxx::copyOf(^std::size_t {
      return text.size() + static_cast<std::size_t>(*held);
    });
  }
  EXPECT_EQ(shared.use_count(), 2);
  EXPECT_EQ(handle(), 105u);
  handle = {};
  EXPECT_EQ(shared.use_count(), 1);
}

TEST_F(BlockTest, ABlockVariableOfCPlusPlusMovesWithTheCopy) {
  auto shared = std::make_shared<int>(5);
  objcxx::BlockHandle<long> handle;
  {
    __block std::shared_ptr<int> held = shared;
    handle = objcxx::copyOf(^long {
      return held.use_count();
    });
  }
  EXPECT_EQ(handle(), 2);
  handle = {};
  EXPECT_EQ(shared.use_count(), 1);
}

TEST_F(BlockTest, HandlesMayBeCaptured) {
  objcxx::BlockHandle<bool> handle;
  {
    const auto owned = objcxx::adopt([[Lifetime alloc] initWithCounter:&deaths_]);
    handle = objcxx::copyOf(^bool {
      return owned.get() != nil;
    });
  }
  EXPECT_EQ(deaths_, 0);
  EXPECT_TRUE(handle());
  handle = {};
  EXPECT_EQ(deaths_, 1);
}

TEST_F(BlockTest, AGlobalBlockIsItsOwnCopy) {
  Answer block = ^NSUInteger {
    return 3;
  };
  Answer copy = Block_copy(block);
  EXPECT_EQ(static_cast<const void *>(copy), static_cast<const void *>(block));
  Block_release(copy);
  EXPECT_EQ(block(), 3u);
}

TEST_F(BlockTest, NullIsAllowed) {
  EXPECT_EQ(_Block_copy(nullptr), nullptr);
  _Block_release(nullptr);
  EXPECT_FALSE(objcxx::copyOf(static_cast<Answer>(nil)));
}

TEST_F(BlockTest, FoundationTakesBlocks) {
  __block NSUInteger sum = 0;
  [@[ @1, @2, @3 ] enumerateObjectsUsingBlock:^(id object, NSUInteger, BOOL *stop) {
    sum += [object unsignedIntegerValue];
    *stop = sum >= 3;
  }];
  EXPECT_EQ(sum, 3u);
}

}  // namespace
