#include <UIKit/DeviceFiles.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;
using sim::filesBelow;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DeviceFilesTest : public testing::Test {
 protected:
  DeviceFilesTest() {
    std::string pattern = (fs::temp_directory_path() / "device-files-XXXXXX").string();
    root_ = mkdtemp(pattern.data());
  }
  ~DeviceFilesTest() override {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }
  void write(const std::string& name) {
    fs::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name) << name;
  }

  fs::path root_;
};

}  // namespace

TEST_F(DeviceFilesTest, ListsAllDepthsInOrder) {
  write("b.txt");
  write("a/z.txt");
  write("a/b/c.txt");
  EXPECT_THAT(filesBelow(root_), ElementsAre("a/b/c.txt", "a/z.txt", "b.txt"));
}

TEST_F(DeviceFilesTest, LeavesOutHiddenFilesAndFolders) {
  write(".hidden");
  write(".git/config");
  write("shown");
  EXPECT_THAT(filesBelow(root_), ElementsAre("shown"));
}

TEST_F(DeviceFilesTest, KeepsToTheExtensionsWhateverTheirCase) {
  write("a.PNG");
  write("b.png");
  write("c.txt");
  write("png");
  EXPECT_THAT(filesBelow(root_, {".png"}), ElementsAre("a.PNG", "b.png"));
}

TEST_F(DeviceFilesTest, AFolderThatIsNotThereGivesNothing) {
  EXPECT_THAT(filesBelow(root_ / "missing"), IsEmpty());
  write("file");
  EXPECT_THAT(filesBelow(root_ / "file"), IsEmpty());
}

TEST_F(DeviceFilesTest, LinksOutOfTheFolderAreLeftOut) {
  write("home/inside.txt");
  write("outside.txt");
  write("home2/neighbour.txt");
  fs::create_symlink(root_ / "outside.txt", root_ / "home/out.txt");
  fs::create_symlink(root_ / "home2/neighbour.txt", root_ / "home/neighbour.txt");
  fs::create_symlink(root_, root_ / "home/up");
  fs::create_symlink(root_ / "nothing", root_ / "home/dangling.txt");
  fs::create_symlink(root_ / "home/inside.txt", root_ / "home/link.txt");
  EXPECT_THAT(filesBelow(root_ / "home"), ElementsAre("inside.txt", "link.txt"));
}
