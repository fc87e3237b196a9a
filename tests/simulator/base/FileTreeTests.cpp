// Copying, moving, removing and making of files and folders, with what stands in the way.
#include "base/FileTree.hpp"

#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <string>

namespace {

class FileTreeTests : public ::testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder_.path() / name).string(); }
  bool exists(const std::string& name) const { return std::filesystem::exists(path(name)); }
  void makeTree() const {
    test::writeText(path("tree/deep/file"), "content");
    ::chmod(path("tree/deep/file").c_str(), 0600);
    ::chmod(path("tree/deep").c_str(), 0750);
    std::filesystem::last_write_time(path("tree/deep/file"), kTime);
    std::filesystem::create_symlink("deep/file", path("tree/link"));
  }
  void expectTree(const std::string& name) const {
    const auto mode = [&](const std::string& part) {
      return std::filesystem::status(path(name + part)).permissions() & std::filesystem::perms::all;
    };
    EXPECT_EQ(test::readText(path(name + "/deep/file")), "content");
    EXPECT_EQ(mode("/deep/file"), std::filesystem::perms{0600});
    EXPECT_EQ(mode("/deep"), std::filesystem::perms{0750});
    EXPECT_EQ(std::filesystem::last_write_time(path(name + "/deep/file")), kTime);
    EXPECT_EQ(std::filesystem::read_symlink(path(name + "/link")), "deep/file");
  }

  static constexpr std::filesystem::file_time_type kTime{std::chrono::seconds(1'000)};
  test::TemporaryFolder folder_;
};

TEST_F(FileTreeTests, ACopyIsWholeAndTheOriginalStays) {
  makeTree();
  EXPECT_EQ(sim::copyItem(path("tree"), path("copy")), 0);
  expectTree("copy");
  expectTree("tree");
}

TEST_F(FileTreeTests, ALargeFileIsCopiedWhole) {
  std::string large;
  while (large.size() < 1'000'000) large += std::to_string(large.size());
  test::writeText(path("large"), large);
  EXPECT_EQ(sim::copyItem(path("large"), path("copy")), 0);
  EXPECT_EQ(test::readText(path("copy")), large);
}

TEST_F(FileTreeTests, ACopyThatFailsLeavesNothing) {
  makeTree();
  ASSERT_EQ(::mkfifo(path("tree/pipe").c_str(), 0600), 0);
  EXPECT_EQ(sim::copyItem(path("tree"), path("copy")), EINVAL) << "a pipe has no content";
  EXPECT_FALSE(exists("copy"));
  EXPECT_EQ(sim::copyItem(path("missing"), path("copy")), ENOENT);
}

TEST_F(FileTreeTests, WhatStandsInTheWayStays) {
  makeTree();
  test::writeText(path("other"), "other");
  EXPECT_EQ(sim::copyItem(path("tree"), path("other")), EEXIST);
  EXPECT_EQ(sim::moveItem(path("tree"), path("other")), EEXIST);
  EXPECT_EQ(test::readText(path("other")), "other");
  std::filesystem::create_symlink("nowhere", path("dangling"));
  EXPECT_EQ(sim::moveItem(path("tree"), path("dangling")), EEXIST) << "a link that leads nowhere stands there too";
  expectTree("tree");
}

TEST_F(FileTreeTests, AMoveTakesEverythingAlong) {
  makeTree();
  EXPECT_EQ(sim::moveItem(path("tree"), path("moved")), 0);
  expectTree("moved");
  EXPECT_FALSE(exists("tree"));
  EXPECT_EQ(sim::moveItem(path("missing"), path("there")), ENOENT);
}

TEST_F(FileTreeTests, ARemovalTakesEverythingBelow) {
  makeTree();
  EXPECT_EQ(sim::removeItem(path("tree/link")), 0);
  EXPECT_TRUE(exists("tree/deep/file")) << "a link goes alone";
  EXPECT_EQ(sim::removeItem(path("tree")), 0);
  EXPECT_FALSE(exists("tree"));
  EXPECT_EQ(sim::removeItem(path("tree")), ENOENT);
}

TEST_F(FileTreeTests, AFolderIsMadeWithItsParentsOrAlone) {
  EXPECT_EQ(sim::makeFolder(path("a/b/c"), true), 0);
  EXPECT_TRUE(std::filesystem::is_directory(path("a/b/c")));
  EXPECT_EQ(sim::makeFolder(path("a/b/c"), true), 0) << "one that is there already will do";
  EXPECT_EQ(sim::makeFolder(path("a/b/c"), false), EEXIST);
  EXPECT_EQ(sim::makeFolder(path("x/y"), false), ENOENT);
  EXPECT_EQ(sim::makeFolder(path("x"), false), 0);
  test::writeText(path("file"), "");
  EXPECT_EQ(sim::makeFolder(path("file"), true), ENOTDIR);
  EXPECT_EQ(sim::makeFolder(path("file"), false), EEXIST);
  EXPECT_EQ(sim::makeFolder(path("file/below"), true), ENOTDIR);
  std::filesystem::create_symlink("nowhere", path("dangling"));
  EXPECT_EQ(sim::makeFolder(path("dangling"), true), ENOTDIR);
  EXPECT_EQ(sim::makeFolder("", true), ENOENT);
}

}  // namespace
