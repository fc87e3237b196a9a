// Whole files: what is read, what a replaced file keeps, what a failed step leaves, and what is on the disk before a
// reader can see it.
#include "base/Files.hpp"

#include "base/Descriptor.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <set>
#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

std::vector<std::string> synced;  // The names of what was synced, in order.
int syncError = 0;                // What the next calls fail with.

std::string nameOf(int descriptor) {
  std::string name(4096, '\0');
  const auto size = ::readlink(("/proc/self/fd/" + std::to_string(descriptor)).c_str(), name.data(), name.size());
  name.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return name;
}

}  // namespace

/// In place of the system's, which it calls.
extern "C" int fsync(int descriptor) {
  if (syncError != 0) {
    errno = syncError;
    return -1;
  }
  synced.push_back(nameOf(descriptor));
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

namespace {

std::span<const std::byte> bytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

class FilesTests : public ::testing::Test {
 protected:
  void SetUp() override {
    synced.clear();
    syncError = 0;
  }
  void TearDown() override { syncError = 0; }

  std::string path(const std::string& name) const { return (folder_.path() / name).string(); }
  int write(const std::string& name, std::string_view text, std::optional<mode_t> mode = {}) const {
    return sim::writeFileAtomically(path(name), bytesOf(text), mode);
  }
  std::string text(const std::string& name) const { return test::readText(path(name)); }
  mode_t modeOf(const std::string& name) const {
    struct stat status{};
    EXPECT_EQ(::lstat(path(name).c_str(), &status), 0);
    return status.st_mode & 07777;
  }
  std::set<std::string> names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) names.insert(entry.path().filename());
    return names;
  }
  static int readError(const std::string& path) {
    int error = 0;
    EXPECT_FALSE(sim::readFile(path, &error));
    return error;
  }

  test::TemporaryFolder folder_;
};

TEST_F(FilesTests, AFileIsReadWhole) {
  const std::string large(3'000'001, 'x');
  for (const std::string& content : {std::string(), std::string("a\0b", 3), large}) {
    test::writeText(path("file"), content);
    const auto read = sim::readFile(path("file"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->text(), content);
    EXPECT_EQ(read->bytes().size(), content.size());
  }
}

TEST_F(FilesTests, WhatIsNoFileSaysWhy) {
  ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(readError(path("missing")), ENOENT);
  EXPECT_EQ(readError(path("")), EISDIR);
  EXPECT_EQ(readError(path("pipe")), EINVAL) << "and nobody waits for its writer";
  EXPECT_FALSE(sim::readFile(path("missing"))) << "nobody need ask";
}

TEST_F(FilesTests, AFileIsReplacedAsAWhole) {
  EXPECT_EQ(write("file", "old"), 0);
  const sim::Descriptor reader(::open(path("file").c_str(), O_RDONLY | O_CLOEXEC));
  EXPECT_EQ(write("file", "new content"), 0);
  EXPECT_EQ(text("file"), "new content");
  char bytes[16];
  EXPECT_EQ(::read(reader.get(), bytes, sizeof bytes), 3) << "who reads the old file goes on reading it";
  EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(FilesTests, TheFileAndThenItsFolderAreOnTheDisk) {
  EXPECT_EQ(write("file", "content"), 0);
  ASSERT_THAT(synced, SizeIs(2));
  EXPECT_TRUE(synced[0].starts_with(path(".simulator-write-"))) << "before it gets its name: " << synced[0];
  EXPECT_EQ(synced[1], folder_.path().string());
}

TEST_F(FilesTests, ANameWithoutAFolderIsOfTheCurrentOne) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  EXPECT_EQ(sim::writeFileAtomically("file", bytesOf("content")), 0);
  std::filesystem::current_path(before);
  EXPECT_EQ(text("file"), "content");
  ASSERT_THAT(synced, SizeIs(2));
  EXPECT_TRUE(synced[0].starts_with(path(".simulator-write-"))) << synced[0];
  EXPECT_EQ(synced[1], folder_.path().string());
}

TEST_F(FilesTests, AFileThatDoesNotReachTheDiskIsNotWritten) {
  EXPECT_EQ(write("file", "old"), 0);
  syncError = EIO;
  EXPECT_EQ(write("file", "new"), EIO);
  EXPECT_EQ(text("file"), "old");
  EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(FilesTests, AReplacedFileKeepsItsPermissionsUnlessOthersAreGiven) {
  EXPECT_EQ(write("file", "1"), 0);
  EXPECT_EQ(modeOf("file"), 0644u);
  ASSERT_EQ(::chmod(path("file").c_str(), 0600), 0);
  EXPECT_EQ(write("file", "2"), 0);
  EXPECT_EQ(modeOf("file"), 0600u);
  EXPECT_EQ(write("file", "3", 0755), 0);
  EXPECT_EQ(modeOf("file"), 0755u);
  EXPECT_EQ(write("tool", "1", 0750), 0);
  EXPECT_EQ(modeOf("tool"), 0750u);
}

TEST_F(FilesTests, AReplacedFileKeepsItsOwner) {
  if (::geteuid() != 0) return;  // Nobody else may give files away, so that there is nothing to keep.
  EXPECT_EQ(write("file", "1"), 0);
  ASSERT_EQ(::chown(path("file").c_str(), 12, 34), 0);
  EXPECT_EQ(write("file", "2"), 0);
  struct stat status{};
  ASSERT_EQ(::stat(path("file").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 12u);
  EXPECT_EQ(status.st_gid, 34u);
}

TEST_F(FilesTests, ALinkIsItselfReplaced) {
  EXPECT_EQ(write("target", "target", 0600), 0);
  std::filesystem::create_symlink("target", path("link"));
  EXPECT_EQ(write("link", "link"), 0);
  EXPECT_EQ(text("target"), "target");
  EXPECT_EQ(text("link"), "link");
  EXPECT_EQ(modeOf("link"), 0644u) << "those of a link say nothing";
}

TEST_F(FilesTests, AFailureSaysWhyAndLeavesNothing) {
  std::filesystem::create_directory(path("folder"));
  EXPECT_EQ(write("folder", "x"), EISDIR);
  EXPECT_EQ(write("folder/", "x"), EISDIR);
  EXPECT_EQ(write("missing/file", "x"), ENOENT);
  EXPECT_EQ(sim::writeFileAtomically("", {}), ENOENT);
  EXPECT_EQ(write(std::string(300, 'n'), "x"), ENAMETOOLONG) << "which only the last step finds";
  EXPECT_THAT(names(), ElementsAre("folder"));
}

TEST_F(FilesTests, AFullDiskLeavesTheOldFile) {
  EXPECT_EQ(write("file", "old"), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  const rlimit full{1'000, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
  const int error = write("file", std::string(10'000, 'x'));
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(error, EFBIG);
  EXPECT_EQ(text("file"), "old");
  EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(FilesTests, FilesWithoutAFolderInTheirPathLieInTheCurrentOne) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  const int error = sim::writeFileAtomically("bare", bytesOf("x"));
  std::filesystem::current_path(before);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(text("bare"), "x");
}

TEST_F(FilesTests, WritingInPlaceKeepsTheFile) {
  EXPECT_EQ(write("file", "old and long", 0600), 0);
  std::filesystem::create_hard_link(path("file"), path("other"));
  EXPECT_EQ(sim::writeFileInPlace(path("file"), bytesOf("new")), 0);
  EXPECT_EQ(text("other"), "new");
  EXPECT_EQ(modeOf("file"), 0600u);
  EXPECT_EQ(sim::writeFileInPlace("/dev/full", bytesOf("new")), ENOSPC);
  EXPECT_EQ(sim::writeFileInPlace(path("missing/file"), {}), ENOENT);
}

}  // namespace
