#include "CoreGraphics/ImageHeader.hpp"

#include <gtest/gtest.h>

#include <string>

#include "CoreGraphics/ImageDecoder.hpp"
#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;
using sim::Alpha;
using sim::ImageFormat;
using sim::Orientation;
using sim::readImageHeader;

sim::BitmapPtr translucent(int width, int height) {
  return bitmap(width, height, Alpha::straight, [](int x, int) { return Pixel{x * 10, 0, 0, 128}; });
}

TEST(ImageHeaderTests, ReadsEveryFormat) {
  struct Case {
    File file;
    ImageFormat format;
    Alpha alpha;
    int width, height;
  };
  const Case cases[] = {
      {encoded(*marked(20, 12), "png"), ImageFormat::png, Alpha::ignored, 20, 12},
      {encoded(*translucent(7, 5), "png"), ImageFormat::png, Alpha::straight, 7, 5},
      {encoded(*marked(20, 12), "jpeg"), ImageFormat::jpeg, Alpha::ignored, 20, 12},
      {encoded(*marked(20, 12), "webp"), ImageFormat::webp, Alpha::ignored, 20, 12},
      {encoded(*translucent(7, 5), "webp"), ImageFormat::webp, Alpha::straight, 7, 5},
      {encoded(*marked(20, 12), "tiff"), ImageFormat::tiff, Alpha::straight, 20, 12},
      {gif(), ImageFormat::gif, Alpha::straight, 1, 1},
  };
  for (const Case& expected : cases) {
    const auto header = readImageHeader(expected.file);
    ASSERT_TRUE(header) << int(expected.format);
    EXPECT_EQ(header->format, expected.format);
    EXPECT_EQ(header->alpha, expected.alpha) << int(expected.format);
    EXPECT_EQ(header->width, expected.width) << int(expected.format);
    EXPECT_EQ(header->height, expected.height) << int(expected.format);
    EXPECT_EQ(header->orientation, Orientation::up);
  }
  const auto header = readImageHeader(heif());
  ASSERT_TRUE(header);
  EXPECT_EQ(header->format, ImageFormat::heif);
}

TEST(ImageHeaderTests, ReadsOrientationTagsInBothByteOrders) {
  const File jpeg = encoded(*marked(20, 12), "jpeg");
  for (int tag = 1; tag <= 8; ++tag) {
    for (const bool bigEndian : {false, true}) {
      const auto header = readImageHeader(withOrientation(jpeg, tag, bigEndian));
      ASSERT_TRUE(header);
      EXPECT_EQ(int(header->orientation), tag);
    }
  }
}

TEST(ImageHeaderTests, TakesAnUnknownOrientationAsUpright) {
  const File jpeg = encoded(*marked(20, 12), "jpeg");
  for (const int tag : {0, 9, 65535}) {
    const auto header = readImageHeader(withOrientation(jpeg, tag, true));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->orientation, Orientation::up);
  }
}

TEST(ImageHeaderTests, RefusesWhatIsNoImage) {
  for (const std::string text : {"", "a", "hello, world", "bplist00", "\x89PNG", "\x89PNG\r\n\x1a\n", "\xff\xd8\xff",
                                 "GIF89a", "RIFF0000WEBP", "0000ftypheic", "0000ftypmp42", "II*", "MM"}) {
    EXPECT_FALSE(readImageHeader(File(text.begin(), text.end()))) << text;
  }
}

TEST(ImageHeaderTests, RefusesSizesOfZero) {
  EXPECT_FALSE(readImageHeader(pngHeader(0, 5)));
  EXPECT_FALSE(readImageHeader(pngHeader(5, 0)));
  EXPECT_TRUE(readImageHeader(pngHeader(5, 5)));
}

// Every cut of a file is refused, and none is read past its end (which the sanitizers watch).
TEST(ImageHeaderTests, RefusesEveryCutOfAFile) {
  const File files[] = {encoded(*translucent(9, 4), "png"), encoded(*marked(20, 12), "jpeg"),
                        withOrientation(encoded(*marked(20, 12), "jpeg"), 6, false),
                        encoded(*translucent(9, 4), "webp"), heif()};
  for (const File& file : files) {
    ASSERT_TRUE(readImageHeader(file));
    for (std::size_t length = 0; length < file.size(); ++length) {
      const File cut(file.begin(), file.begin() + std::ptrdiff_t(length));
      if (!readImageHeader(cut)) continue;
      // A HEIF may be cut between two boxes.
      EXPECT_FALSE(sim::openImage(std::make_shared<const File>(cut)).source) << length << " of " << file.size();
    }
  }
}

// A changed byte gives an answer or none; the sanitizers watch for more.
TEST(ImageHeaderTests, SurvivesEveryChangedByte) {
  const File files[] = {encoded(*translucent(9, 4), "png"),
                        withOrientation(encoded(*marked(8, 8), "jpeg"), 6, false),
                        encoded(*translucent(9, 4), "webp"),
                        encoded(*marked(5, 4), "tiff"),
                        heif(),
                        gif()};
  for (const File& file : files) {
    for (std::size_t i = 0; i < file.size(); ++i) {
      for (const int value : {0, 1, 127, 128, 255}) {
        File changed = file;
        changed[i] = std::uint8_t(value);
        const auto header = readImageHeader(changed);
        if (header) {
          EXPECT_GT(header->width, 0);
          EXPECT_GT(header->height, 0);
        }
      }
    }
  }
}

}  // namespace
