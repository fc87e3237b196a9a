// The bytes of files of every kind.
#include "core/PropertyListScanFile.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace zuno {
namespace {

class PropertyListScanFileTest : public ::testing::Test {
 protected:
  PropertyListScanFileTest() {
    std::string name = (std::filesystem::temp_directory_path() / "scan-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~PropertyListScanFileTest() override { std::filesystem::remove_all(folder_); }

  std::string path(const char* name = "file") const { return folder_ / name; }

  void write(const std::string& path, std::string_view content) const {
    std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
  }

  static std::string_view text(const FileBytes& file) {
    return {reinterpret_cast<const char*>(file.bytes().data()), file.bytes().size()};
  }

 private:
  std::filesystem::path folder_;
};

TEST_F(PropertyListScanFileTest, GivesTheContentOfFilesOfEverySize) {
  for (const std::size_t size : {std::size_t{1}, std::size_t{4096}, FileBytes::kMappedSize - 1, FileBytes::kMappedSize,
                                 FileBytes::kMappedSize + 1, 3 * FileBytes::kMappedSize}) {
    std::string content(size, 'x');
    content.front() = '\0';
    content.back() = '\n';
    write(path(), content);
    EXPECT_TRUE(text(FileBytes(path().c_str())) == content) << size;
  }
}

TEST_F(PropertyListScanFileTest, IsEmptyWithoutARegularFile) {
  write(path("empty"), "");
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  ASSERT_EQ(symlink("nowhere", path("broken").c_str()), 0);
  for (const auto& each : {path("empty"), path("missing"), path("broken"), path("pipe"), path("."), path("empty/below"),
                           std::string(), std::string("/dev/null")}) {
    EXPECT_TRUE(FileBytes(each.c_str()).bytes().empty()) << each;
  }
}

// Files of the kernel give their size as a page, whatever they hold.
TEST_F(PropertyListScanFileTest, AFileThatEndsEarlyHasWhatWasRead) {
  const char* const path = "/sys/kernel/mm/transparent_hugepage/enabled";
  struct stat status;
  ASSERT_EQ(stat(path, &status), 0);
  std::string content;
  std::getline(std::ifstream(path), content);
  ASSERT_GT(static_cast<std::size_t>(status.st_size), content.size());
  EXPECT_EQ(text(FileBytes(path)), content + "\n");
}

TEST_F(PropertyListScanFileTest, AFileThatCannotBeReadIsEmpty) {
  const char* const path = "/sys/class/net/lo/speed";  // It says that the loopback device has none.
  struct stat status;
  ASSERT_EQ(stat(path, &status), 0);
  ASSERT_GT(status.st_size, 0);
  EXPECT_TRUE(FileBytes(path).bytes().empty());
}

TEST_F(PropertyListScanFileTest, FollowsLinks) {
  write(path(), "content");
  ASSERT_EQ(symlink("file", path("link").c_str()), 0);
  EXPECT_EQ(text(FileBytes(path("link").c_str())), "content");
}

TEST_F(PropertyListScanFileTest, KeepsTheContentOfAFileThatIsReplaced) {
  for (const std::size_t size : {std::size_t{10}, 2 * FileBytes::kMappedSize}) {
    const std::string old(size, 'a');
    write(path(), old);
    const FileBytes file(path().c_str());
    write(path("new"), "b");
    std::filesystem::rename(path("new"), path());
    EXPECT_TRUE(text(file) == old) << size;
    EXPECT_EQ(text(FileBytes(path().c_str())), "b");
  }
}

TEST_F(PropertyListScanFileTest, LeavesNoFileOpen) {
  const auto openFiles = [] {
    int count = 0;
    for (int number = 0; number < 256; ++number) count += fcntl(number, F_GETFD) != -1;
    return count;
  };
  write(path("small"), "x");
  write(path("large"), std::string(FileBytes::kMappedSize, 'x'));
  const int before = openFiles();
  const FileBytes small(path("small").c_str()), large(path("large").c_str()), folder(path(".").c_str());
  EXPECT_EQ(openFiles(), before);
}

TEST_F(PropertyListScanFileTest, LeavesNothingMapped) {
  const auto isMapped = [&] {
    std::ifstream maps("/proc/self/maps");
    const std::string content{std::istreambuf_iterator<char>(maps), {}};
    return content.find(path("large")) != std::string::npos;
  };
  write(path("large"), std::string(FileBytes::kMappedSize, 'x'));
  {
    const FileBytes large(path("large").c_str());
    EXPECT_TRUE(isMapped());
  }
  EXPECT_FALSE(isMapped());
}

// The first number that is free may be that of the standard input.
TEST_F(PropertyListScanFileTest, ReadsAndClosesAFileWithTheNumberZero) {
  write(path(), "content");
  const int input = dup(0);
  ASSERT_GE(input, 0);
  close(0);
  EXPECT_EQ(text(FileBytes(path().c_str())), "content");
  EXPECT_EQ(fcntl(0, F_GETFD), -1);
  dup2(input, 0);
  close(input);
}

}  // namespace
}  // namespace zuno
