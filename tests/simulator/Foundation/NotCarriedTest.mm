#import <Foundation/NotCarried.h>
#import <Foundation/SIMLog.h>

#include "support/objc/ObjCTest.h"

#include <string>
#include <vector>

namespace {

class NotCarriedTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    SIMSetLogHandler(
        [](NSString *line, void *context) {
          static_cast<NotCarriedTest *>(context)->lines_.emplace_back([line UTF8String]);
        },
        this);
  }
  void TearDown() override {
    SIMSetLogHandler(nullptr, nullptr);
    ObjCTest::TearDown();
  }
  std::vector<std::string> lines_;
};

TEST_F(NotCarriedTest, saysItOnceForEachThing) {
  for (int time = 0; time < 3; ++time) {
    sim::notCarried(@"UIThing.first", @"It stays as it is.");
    sim::notCarried(@"UIThing.second", @"It stays too.");
  }
  ASSERT_EQ(lines_.size(), 2u);
  EXPECT_EQ(lines_[0], "[simulator] UIThing.first is set, which is not carried: It stays as it is.");
  EXPECT_EQ(lines_[1], "[simulator] UIThing.second is set, which is not carried: It stays too.");
}

}  // namespace
