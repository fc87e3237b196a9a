#include "server/PreferenceFiles.hpp"

#include "support/plain/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <string>

namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using test::writeText;

class PreferenceFilesTests : public ::testing::Test {
 protected:
  std::filesystem::path folder() const { return root_.path() / "var/preferences"; }

  // Runs the loop until the condition holds.
  bool runUntil(const std::function<bool()>& condition) {
    bool holds = false;
    const auto end = std::chrono::steady_clock::now() + 30s;
    std::function<void()> check = [&] {
      holds = condition();
      if (holds || std::chrono::steady_clock::now() > end) return loop_.stop();
      loop_.after(5ms, check);
    };
    check();
    loop_.run();
    return holds;
  }

  bool seesChange(const std::function<void()>& change) {
    const int before = changes_;
    change();
    return runUntil([&] { return changes_ > before; });
  }

  static std::string propertyList(const std::string& value) {
    return "<plist version=\"1.0\"><dict><key>a</key><string>" + value + "</string></dict></plist>";
  }

  test::TemporaryFolder root_;
  const bool isMade_ = std::filesystem::create_directories(folder());  // Before it is watched.
  sim::EventLoop loop_;
  int changes_ = 0;
  sim::PreferenceFiles files_{loop_, root_.path(), {"/var/preferences"}, [this] { ++changes_; }};
};

TEST_F(PreferenceFilesTests, GivesTheFilesSortedByPath) {
  writeText(folder() / "b.plist", propertyList("2"));
  writeText(folder() / "a.plist", propertyList("1"));
  writeText(folder() / "a.txt", "x");
  writeText(folder() / "a.plist.tmp", "x");
  EXPECT_EQ(files_.json(), json::parse(R"([{"path":"/var/preferences/a.plist","content":{"a":"1"},"error":null},
                                           {"path":"/var/preferences/b.plist","content":{"a":"2"},"error":null}])"));
}

TEST_F(PreferenceFilesTests, SaysWhyAFileCannotBeShown) {
  writeText(folder() / "1.plist", "");
  writeText(folder() / "2.plist", "nonsense");
  std::filesystem::create_directory(folder() / "3.plist");
  std::filesystem::create_symlink("1.plist", folder() / "4.plist");
  ASSERT_EQ(::mkfifo((folder() / "5.plist").c_str(), 0600), 0);
  writeText(folder() / "6.plist", "");
  ASSERT_EQ(::truncate((folder() / "6.plist").c_str(), 65 << 20), 0);
  const json files = files_.json();
  const char* errors[] = {"The file is empty.",       "The file is no property list.",
                          "This is a folder.",        "This is no regular file.",
                          "This is no regular file.", "The file is too large to be shown."};
  ASSERT_EQ(files.size(), std::size(errors));
  for (std::size_t i = 0; i < files.size(); ++i) {
    EXPECT_EQ(files[i]["error"], errors[i]);
    EXPECT_EQ(files[i]["content"], nullptr);
  }
}

TEST_F(PreferenceFilesTests, SeesWhatAnybodyDoesToAFile) {
  const auto file = folder() / "a.plist";
  EXPECT_TRUE(seesChange([&] { writeText(file, propertyList("1")); }));
  EXPECT_EQ(files_.json()[0]["content"]["a"], "1");
  EXPECT_TRUE(seesChange([&] { writeText(file, propertyList("2")); })) << "written in place";
  EXPECT_EQ(files_.json()[0]["content"]["a"], "2");
  EXPECT_TRUE(seesChange([&] {
    writeText(folder() / "a.tmp", propertyList("3"));
    std::filesystem::rename(folder() / "a.tmp", file);
  })) << "replaced";
  EXPECT_EQ(files_.json()[0]["content"]["a"], "3");
  EXPECT_TRUE(seesChange([&] { std::filesystem::remove(file); }));
  EXPECT_EQ(files_.json(), json::array());
}

TEST_F(PreferenceFilesTests, OtherFilesAreNoNews) {
  writeText(folder() / "a.txt", "x");
  writeText(folder() / "a.plist.tmp", "x");
  EXPECT_TRUE(seesChange([&] { writeText(folder() / "a.plist", propertyList("1")); }));
  const int after = changes_;
  writeText(folder() / "b.txt", "x");
  loop_.after(100ms, [this] { loop_.stop(); });
  loop_.run();
  EXPECT_EQ(changes_, after);
}

TEST_F(PreferenceFilesTests, AFolderMayGoAndComeBack) {
  EXPECT_TRUE(seesChange([&] { std::filesystem::remove_all(folder()); }));
  EXPECT_EQ(files_.json(), json::array());
  EXPECT_TRUE(seesChange([&] { writeText(folder() / "a.plist", propertyList("1")); }));
  EXPECT_EQ(files_.json().size(), 1u);
  EXPECT_TRUE(seesChange([&] { writeText(folder() / "a.plist", propertyList("2")); })) << "it is watched again";
  EXPECT_EQ(files_.json()[0]["content"]["a"], "2");
}

TEST_F(PreferenceFilesTests, AFolderMayBeMovedAway) {
  EXPECT_TRUE(seesChange([&] { std::filesystem::rename(folder(), root_.path() / "elsewhere"); }));
  EXPECT_TRUE(seesChange([&] { writeText(folder() / "a.plist", propertyList("1")); }));
  EXPECT_EQ(files_.json().size(), 1u);
}

TEST_F(PreferenceFilesTests, AFileOfTwentyMegabytesIsReadOnce) {
  std::string data(20 << 20, 'A');
  writeText(folder() / "a.plist",
            "<plist version=\"1.0\"><dict><key>photo</key><data>" + data + "</data></dict></plist>");
  EXPECT_EQ(files_.json()[0]["content"]["photo"]["bytes"], 15 << 20);
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < 100; ++i) (void)files_.json();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
}

}  // namespace
