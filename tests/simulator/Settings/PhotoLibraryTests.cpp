// Where a photo that comes in gets its place and its name.
#include "Settings/PhotoLibrary.hpp"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <utility>

#include "support/images/TestImages.hpp"

namespace {

namespace fs = std::filesystem;
using sim::addPhoto;
using sim::photoExtension;

class PhotoLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "photos.XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
    fs::create_directory(root());
  }
  void TearDown() override { fs::remove_all(folder_); }

  fs::path root() const { return folder_ / "DCIM"; }
  fs::path write(const fs::path& file, const std::string& text = "x") const {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file;
  }
  static std::string read(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  /// Adds a file that holds `text`; its place, or "errno N".
  std::string add(const std::string& text = "photo", std::string_view extension = "JPG") const {
    const auto added = addPhoto(root(), write(folder_ / "incoming", text), extension);
    const auto* path = std::get_if<std::string>(&added);
    return path ? *path : "errno " + std::to_string(std::get<int>(added));
  }
  static sim::SharedBytes shared(std::vector<std::uint8_t> file) {
    return std::make_shared<const std::vector<std::uint8_t>>(std::move(file));
  }

  fs::path folder_;
};

TEST_F(PhotoLibraryTest, TheFirstPhotoHasTheFirstNumber) {
  EXPECT_EQ(add("photo"), "100APPLE/IMG_0001.JPG");
  EXPECT_EQ(read(root() / "100APPLE/IMG_0001.JPG"), "photo");
  EXPECT_FALSE(fs::exists(folder_ / "incoming"));
}

TEST_F(PhotoLibraryTest, NumbersGoOnAfterTheHighestWhateverTheExtension) {
  write(root() / "100APPLE/IMG_0003.PNG");
  write(root() / "100APPLE/IMG_0041.heic");
  for (const char* name :
       {"IMG_0050", "IMG_00510.JPG", "IMG_-060.JPG", "img_0070.JPG", "IMG_ 080.JPG", "Holiday 9999.JPG"})
    write(root() / "100APPLE" / name);
  EXPECT_EQ(add("a", "WEBP"), "100APPLE/IMG_0042.WEBP");
  EXPECT_EQ(add(), "100APPLE/IMG_0043.JPG");
}

TEST_F(PhotoLibraryTest, NothingIsEverReplaced) {
  write(root() / "100APPLE/IMG_0001.PNG", "old");
  fs::create_directories(root() / "100APPLE/IMG_0002.JPG");
  EXPECT_EQ(add("new"), "100APPLE/IMG_0003.JPG");
  EXPECT_EQ(read(root() / "100APPLE/IMG_0001.PNG"), "old");
}

TEST_F(PhotoLibraryTest, TheNewestFolderIsUsedAndAFullOneIsFollowedByTheNext) {
  write(root() / "100APPLE/IMG_0005.JPG");
  write(root() / "102APPLE/IMG_0002.JPG");
  write(root() / "1000APPLE/x");
  write(root() / "099APPLE/x");
  write(root() / "200OTHER/x");
  EXPECT_EQ(add(), "102APPLE/IMG_0003.JPG");
  write(root() / "102APPLE/IMG_9999.JPG");
  EXPECT_EQ(add(), "103APPLE/IMG_0001.JPG");
  write(root() / "999APPLE/IMG_9999.JPG");
  EXPECT_EQ(add(), "errno " + std::to_string(ENOSPC));
}

TEST_F(PhotoLibraryTest, AMissingLibraryIsNotMade) {
  fs::remove(root());
  EXPECT_EQ(add(), "errno " + std::to_string(ENOENT));
  EXPECT_FALSE(fs::exists(root()));
  EXPECT_TRUE(fs::exists(folder_ / "incoming"));
}

TEST_F(PhotoLibraryTest, AMissingFileIsNoPhoto) {
  EXPECT_EQ(std::get<int>(addPhoto(root(), folder_ / "nothing", "JPG")), ENOENT);
}

TEST_F(PhotoLibraryTest, AFileOfAnotherFileSystemIsCopiedWhole) {
  std::string pattern = "/dev/shm/photos.XXXXXX";
  ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
  struct stat there{};
  struct stat here{};
  ::stat(pattern.c_str(), &there);
  ::stat(folder_.c_str(), &here);
  ASSERT_NE(there.st_dev, here.st_dev) << "the test needs two file systems";
  const auto added = addPhoto(root(), write(fs::path(pattern) / "incoming", "photo"), "PNG");
  fs::remove_all(pattern);
  ASSERT_TRUE(std::holds_alternative<std::string>(added));
  EXPECT_EQ(read(root() / "100APPLE/IMG_0001.PNG"), "photo");
  EXPECT_EQ(std::distance(fs::directory_iterator(root() / "100APPLE"), fs::directory_iterator()), 1);
}

TEST_F(PhotoLibraryTest, TheExtensionFollowsTheFormat) {
  using namespace test_images;
  const std::pair<const char*, const char*> formats[] = {
      {"png", "PNG"}, {"jpeg", "JPG"}, {"webp", "WEBP"}, {"tiff", "TIFF"}};
  for (const auto& [format, extension] : formats) {
    File file = encoded(*marked(300, 200), format);
    EXPECT_EQ(photoExtension(shared(file)), extension);
    file.resize(file.size() / 2);
    EXPECT_EQ(photoExtension(shared(file)), std::nullopt) << format << ", cut short";
  }
  EXPECT_EQ(photoExtension(shared(gif())), "GIF");
  EXPECT_EQ(photoExtension(shared(heif())), "HEIC");
  EXPECT_EQ(photoExtension(shared({})), std::nullopt);
  EXPECT_EQ(photoExtension(shared(pngHeader(100'000, 100'000))), std::nullopt);
  EXPECT_EQ(photoExtension(shared(pngHeader(10, 10))), std::nullopt) << "a size and no pixels";
}

}  // namespace
