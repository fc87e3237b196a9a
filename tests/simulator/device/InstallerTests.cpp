#include "device/Installer.hpp"

#include "base/Failure.hpp"
#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <map>
#include <string>

namespace {

using test::readText;
using test::writeText;

class InstallerTests : public ::testing::Test {
 protected:
  // One run of a build: the files' contents by path, and the build's name.
  int run(const std::string& edition, const std::map<std::string, std::string>& files, mode_t mode = 0644) {
    int produced = 0;
    sim::Installer installer(root(), manifest());
    for (const auto& [path, content] : files)
      installer.install({path, edition, mode, [&produced, &content] {
                           ++produced;
                           return content;
                         }});
    installer.removeObsolete();
    installer.save();
    return produced;
  }

  std::filesystem::path root() const { return folder_.path() / "device"; }
  std::filesystem::path manifest() const { return folder_.path() / "installed.json"; }
  std::string text(const std::string& path) const { return readText(root() / path); }
  bool exists(const std::string& path) const { return std::filesystem::exists(root() / path); }

  test::TemporaryFolder folder_;
};

TEST_F(InstallerTests, InstallsWithFoldersAndPermissions) {
  run("1", {{"usr/bin/tool", "code"}}, 0755);
  EXPECT_EQ(text("usr/bin/tool"), "code");
  struct stat status{};
  ASSERT_EQ(::stat((root() / "usr/bin/tool").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0755u);
}

TEST_F(InstallerTests, TheSameBuildAgainDoesNothing) {
  EXPECT_EQ(run("1", {{"a", "one"}}), 1);
  const auto before = std::filesystem::last_write_time(manifest());
  EXPECT_EQ(run("1", {{"a", "one"}}), 0);
  EXPECT_EQ(std::filesystem::last_write_time(manifest()), before);
}

TEST_F(InstallerTests, ANewBuildUpgradesWhatIsUnchanged) {
  run("1", {{"a", "one"}, {"b", "same"}});
  run("2", {{"a", "two"}, {"b", "same"}});
  EXPECT_EQ(text("a"), "two");
  EXPECT_EQ(text("b"), "same");
  run("3", {{"a", "three"}, {"b", "other"}});
  EXPECT_EQ(text("a"), "three");
  EXPECT_EQ(text("b"), "other");
}

TEST_F(InstallerTests, LeavesWhatAUserChanged) {
  run("1", {{"a", "one"}});
  writeText(root() / "a", "mine");
  run("1", {{"a", "one"}});
  EXPECT_EQ(text("a"), "mine");
  run("2", {{"a", "two"}});
  EXPECT_EQ(text("a"), "mine");
  run("3", {{"a", "three"}});
  EXPECT_EQ(text("a"), "mine");
}

TEST_F(InstallerTests, LeavesWhatAUserDeleted) {
  run("1", {{"a", "one"}, {"folder/b", "b"}});
  std::filesystem::remove_all(root() / "folder");
  std::filesystem::remove(root() / "a");
  run("1", {{"a", "one"}, {"folder/b", "b"}});
  run("2", {{"a", "two"}, {"folder/b", "c"}});
  EXPECT_FALSE(exists("a"));
  EXPECT_FALSE(exists("folder"));
}

TEST_F(InstallerTests, LeavesWhatWasThereBefore) {
  writeText(root() / "a", "mine");
  run("1", {{"a", "one"}});
  run("2", {{"a", "two"}});
  EXPECT_EQ(text("a"), "mine");
}

TEST_F(InstallerTests, TakesOverAnEqualFileThatWasThereBefore) {
  writeText(root() / "a", "one");
  run("1", {{"a", "one"}});
  run("2", {{"a", "two"}});
  EXPECT_EQ(text("a"), "two");
}

TEST_F(InstallerTests, LeavesAFolderOrALinkInPlaceOfAFile) {
  std::filesystem::create_directories(root() / "a");
  std::filesystem::create_symlink("nowhere", root() / "b");
  run("1", {{"a", "one"}, {"b", "one"}});
  EXPECT_TRUE(std::filesystem::is_directory(root() / "a"));
  EXPECT_TRUE(std::filesystem::is_symlink(root() / "b"));
}

TEST_F(InstallerTests, RemovesWhatABuildNoLongerBringsAndTheFoldersThatBecomeEmpty) {
  run("1", {{"kept", "x"}, {"old/deep/gone", "x"}, {"old/changed", "x"}});
  writeText(root() / "old/changed", "mine");
  run("2", {{"kept", "x"}});
  EXPECT_TRUE(exists("kept"));
  EXPECT_FALSE(exists("old/deep"));
  EXPECT_EQ(text("old/changed"), "mine");
  run("3", {{"kept", "x"}, {"old/deep/gone", "back"}});
  EXPECT_EQ(text("old/deep/gone"), "back");
}

TEST_F(InstallerTests, ADamagedManifestIsAnEmptyOne) {
  run("1", {{"a", "one"}});
  for (const std::string damage : {"", "{", "[]", "{\"a\":1}", "{\"a\":{\"edition\":1,\"digest\":[]}}"}) {
    writeText(manifest(), damage);
    run("2", {{"a", "two"}});
    EXPECT_EQ(text("a"), "one") << "what is not known to be the build's own is the user's";
  }
}

TEST_F(InstallerTests, AManifestCannotReachOutOfTheFolder) {
  writeText(folder_.path() / "outside", "x");
  const std::string entry = R"({"edition":"1","digest":")" + sim::contentDigest("x") + R"("})";
  writeText(manifest(),
            R"({"../outside":)" + entry + R"(,")" + (folder_.path() / "outside").string() + R"(":)" + entry + "}");
  run("1", {{"a", "one"}});
  EXPECT_EQ(readText(folder_.path() / "outside"), "x");
}

TEST_F(InstallerTests, AFolderThatCannotBeMadeIsAFailure) {
  writeText(root() / "file", "x");
  EXPECT_THROW(run("1", {{"file/below", "x"}}), sim::Failure);
  EXPECT_EQ(text("file"), "x");
}

TEST_F(InstallerTests, AContentThatCannotBeHadLeavesEverythingAsItWas) {
  run("1", {{"a", "one"}});
  sim::Installer installer(root(), manifest());
  EXPECT_THROW(installer.install({"a", "2", 0644, []() -> std::string { throw sim::Failure("No memory."); }}),
               sim::Failure);
  EXPECT_EQ(text("a"), "one");
}

TEST(ContentDigestTests, TellsContentsApart) {
  EXPECT_EQ(sim::contentDigest("").size(), 32u);
  EXPECT_EQ(sim::contentDigest("abcdefghi"), sim::contentDigest("abcdefghi"));
  EXPECT_NE(sim::contentDigest("abcdefghi"), sim::contentDigest("abcdefghj"));
  EXPECT_NE(sim::contentDigest(std::string("a\0", 2)), sim::contentDigest("a"));
  EXPECT_NE(sim::contentDigest(std::string(8, '\0')), sim::contentDigest(std::string(16, '\0')));
  EXPECT_NE(sim::contentDigest("12345678abcdefgh"), sim::contentDigest("abcdefgh12345678"));
}

}  // namespace
