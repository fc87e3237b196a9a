#import <Foundation/Guarded.h>

#include <string>

#include "support/objc/ObjCTest.h"

namespace {

class GuardedTest : public ObjCTest {
 protected:
  void TearDown() override {
    sim::setUncaughtHandler(nullptr, nullptr);
    ObjCTest::TearDown();
  }
  static NSString *raise() {
    return sim::guarded(@"testing", [] { [NSException raise:@"TideException" format:@"no moon"]; });
  }
};

TEST_F(GuardedTest, TheHandlerHearsOfWhatIsCaughtOnce) {
  std::string heard;
  sim::setUncaughtHandler(
      [](NSException *exception, void *context) {
        *static_cast<std::string *>(context) += std::string([[exception name] UTF8String]) + ";";
      },
      &heard);
  EXPECT_EQ(std::string([raise() UTF8String]), "TideException");
  EXPECT_EQ(heard, "TideException;");
  EXPECT_EQ(sim::guarded(@"testing", [] {}), nil);
  EXPECT_EQ(heard, "TideException;");
  sim::setUncaughtHandler(nullptr, nullptr);
  EXPECT_NE(raise(), nil);
  EXPECT_EQ(heard, "TideException;");
}

}  // namespace
