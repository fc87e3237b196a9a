// A respring that the root page asks for, with a program of the test's in place of the tool.
#include <unistd.h>

#include <filesystem>

#include "ZunoPrefs/core/RootPageTest.h"

namespace {

NSString *const kTool = @"/var/jb/usr/bin/killall";

class RespringTest : public RootPageTest {
 protected:
  void SetUp() override {
    RootPageTest::SetUp();
    makeFolder([kTool stringByDeletingLastPathComponent]);
    std::filesystem::copy_file(BUILD_FOLDER "/fixtures/programs/start_recorder", [path(kTool) UTF8String]);
  }
  void TearDown() override {
    if (has(@".started")) {
      write(file(@".release"), "");
      EXPECT_TRUE(comes(@".finished"));
    }
    RootPageTest::TearDown();
  }

  /// The file of this ending that the tool makes.
  static NSString *file(NSString *ending) { return [kTool stringByAppendingString:ending]; }
  bool has(NSString *ending) const { return exists(file(ending)); }
  bool comes(NSString *ending) const {
    for (int tries = 0; tries < 2000 && !has(ending); ++tries) usleep(10'000);
    return has(ending);
  }
};

TEST_F(RespringTest, StartsTheToolWithTheseArgumentsAndAnEmptyEnvironment) {
  [newPage() respring];
  ASSERT_TRUE(comes(@".started"));
  using namespace std::string_literals;
  EXPECT_EQ(read(file(@".arguments")), "killall\0-9\0backboardd\0"s);
  EXPECT_EQ(read(file(@".environment")), "");
}

TEST_F(RespringTest, DoesNotWaitForTheTool) {
  [newPage() respring];
  EXPECT_FALSE(has(@".finished"));
  EXPECT_TRUE(comes(@".started"));
}

TEST_F(RespringTest, AToolThatIsMissingOrCannotRunIsNotReported) {
  for (const bool isThere : {true, false}) {
    std::filesystem::remove([path(kTool) UTF8String]);
    if (isThere) write(kTool, "not executable");
    EXPECT_EQ(raisedBy([&] { [newPage() respring]; }), "");
  }
  EXPECT_TRUE(log.empty());
}

}  // namespace
