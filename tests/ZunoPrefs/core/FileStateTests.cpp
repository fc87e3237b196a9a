// When a file's state tells that it has changed since.
#include "core/FileState.hpp"

#include <gtest/gtest.h>

#include <chrono>

namespace zuno {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::nanoseconds kDay = std::chrono::seconds(1'700'000'000);

FileState changedAt(std::chrono::nanoseconds time) {
  return {.device = 1, .number = 2, .size = 3, .changed = time.count()};
}

/// Whether a file that had changed at `time` shows changes that come `later` and after.
bool showsChanges(std::chrono::nanoseconds time, std::chrono::nanoseconds later) {
  return showsChangesAfter(changedAt(time), std::chrono::system_clock::time_point(time + later));
}

TEST(FileState, AnotherChangeInTheSameTickDoesNotShow) {
  for (const auto time : {kDay + 1ns, kDay + 500ms, kDay + 1s - 1ns}) {
    EXPECT_FALSE(showsChanges(time, 0ns));
    EXPECT_FALSE(showsChanges(time, 10ms - 1ns));
    EXPECT_TRUE(showsChanges(time, 10ms));
    EXPECT_TRUE(showsChanges(time, 1h));
  }
}

TEST(FileState, WholeSecondsAreThoseOfAFileSystemThatKeepsNothingFiner) {
  EXPECT_FALSE(showsChanges(kDay, 10ms));
  EXPECT_FALSE(showsChanges(kDay, 1s));
  EXPECT_FALSE(showsChanges(kDay, 2010ms - 1ns));
  EXPECT_TRUE(showsChanges(kDay, 2010ms));
}

TEST(FileState, AFileFromTheFutureShowsNone) {
  EXPECT_FALSE(showsChanges(kDay + 1ns, -1ns));
  EXPECT_FALSE(showsChanges(kDay + 1ns, -24h));
}

TEST(FileState, AFileThatIsMadeLaterShows) {
  EXPECT_TRUE(showsChangesAfter(FileState(), std::chrono::system_clock::now()));
}

}  // namespace
}  // namespace zuno
