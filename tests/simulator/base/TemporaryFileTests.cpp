#include "base/TemporaryFile.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <set>
#include <string>

#include "support/plain/TemporaryFolder.hpp"

namespace {

using sim::TemporaryFile;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class TemporaryFileTests : public ::testing::Test {
 protected:
  std::filesystem::path path(const std::string& name) const { return folder_.path() / name; }
  std::set<std::string> names(const std::string& below = "") const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path(below))) names.insert(entry.path().filename());
    return names;
  }
  void removeAbandoned() const { sim::removeAbandonedFiles(folder_.path().string()); }

  /// A writer in a process of its own, stopped in the middle of its work; its file lies in the folder `below`.
  pid_t startWriter(const std::string& below = "") const {
    int ready[2];
    EXPECT_EQ(::pipe(ready), 0);
    const pid_t writer = ::fork();
    if (writer == 0) {
      const TemporaryFile file(path(below).string());
      [[maybe_unused]] const auto told = ::write(ready[1], "!", 1);
      for (;;) ::pause();
    }
    char mark = 0;
    EXPECT_EQ(::read(ready[0], &mark, 1), 1);
    ::close(ready[0]);
    ::close(ready[1]);
    return writer;
  }
  static void kill(pid_t writer) {
    ::kill(writer, SIGKILL);
    ::waitpid(writer, nullptr, 0);
  }

  test::TemporaryFolder folder_;
};

TEST_F(TemporaryFileTests, GetsItsFinalNameOrIsRemoved) {
  {
    TemporaryFile file(folder_.path().string());
    ASSERT_EQ(file.error(), 0);
    ASSERT_EQ(::write(file.descriptor(), "text", 4), 4);
    EXPECT_EQ(file.moveTo(path("file").string()), 0);
    const TemporaryFile other(folder_.path().string());
    EXPECT_THAT(names(), SizeIs(2));
  }
  EXPECT_THAT(names(), ElementsAre("file"));
  EXPECT_EQ(test::readText(path("file")), "text");
}

TEST_F(TemporaryFileTests, AFailureSaysWhy) {
  EXPECT_EQ(TemporaryFile(path("missing").string()).error(), ENOENT);
  TemporaryFile file(folder_.path().string());
  EXPECT_EQ(file.moveTo(path("missing/file").string()), ENOENT);
}

TEST_F(TemporaryFileTests, TheFilesOfDeadWritersAreRemoved) {
  std::filesystem::create_directories(path("deep/folder"));
  kill(startWriter());
  kill(startWriter("deep/folder"));
  ASSERT_THAT(names(), SizeIs(2));
  ASSERT_THAT(names("deep/folder"), SizeIs(1));
  removeAbandoned();
  EXPECT_THAT(names(), ElementsAre("deep"));
  EXPECT_THAT(names("deep/folder"), IsEmpty());
}

TEST_F(TemporaryFileTests, TheFilesOfLivingWritersStay) {
  const pid_t writer = startWriter();
  TemporaryFile own(folder_.path().string());
  removeAbandoned();
  EXPECT_THAT(names(), SizeIs(2));
  EXPECT_EQ(own.moveTo(path("file").string()), 0);
  kill(writer);
  removeAbandoned();
  EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(TemporaryFileTests, WhatNoWriterHasMadeStays) {
  const std::set<std::string> foreign{
      ".simulator-write-",       ".simulator-write-abc",    ".simulator-write-abcdef.plist",
      ".simulator-write-abc.ef", ".simulator-write-folder", ".simulator-write-linked",
      ".write-abcdef",           "simulator-write-abcdef",  "target"};
  for (const auto& name : foreign) {
    if (name.ends_with("folder")) std::filesystem::create_directory(path(name));
    else if (name.ends_with("linked")) std::filesystem::create_symlink(path("target"), path(name));
    else test::writeText(path(name), name);
  }
  removeAbandoned();
  EXPECT_EQ(names(), foreign);
  EXPECT_EQ(test::readText(path("target")), "target");
}

TEST_F(TemporaryFileTests, LinksAreNotFollowed) {
  const test::TemporaryFolder elsewhere;
  test::writeText(elsewhere.path() / ".simulator-write-abcdef", "");
  std::filesystem::create_directory_symlink(elsewhere.path(), path("link"));
  removeAbandoned();
  EXPECT_TRUE(std::filesystem::exists(elsewhere.path() / ".simulator-write-abcdef"));
  sim::removeAbandonedFiles(path("missing").string());
}

}  // namespace
