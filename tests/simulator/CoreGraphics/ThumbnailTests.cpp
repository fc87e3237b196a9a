#include "CoreGraphics/Thumbnail.hpp"

#include <gtest/gtest.h>

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;
using sim::squareThumbnail;

sim::DecodedImage opened(const File& file) { return sim::openImage(std::make_shared<const File>(file)); }

/// Which component of a pixel is the strongest.
char colourAt(const sim::Bitmap& picture, int x, int y) {
  const Pixel pixel = at(picture, x, y);
  if (pixel.red > 150 && pixel.green < 100) return 'r';
  if (pixel.green > 150) return 'g';
  return pixel.blue > 150 ? 'b' : '?';
}

TEST(ThumbnailTests, IsTheMiddleSquare) {
  // 400 × 100, three parts: green, red in the middle square, green.
  const auto picture = bitmap(400, 100, sim::Alpha::ignored,
                              [](int x, int) { return x >= 150 && x < 250 ? Pixel{255, 0, 0} : Pixel{0, 255, 0}; });
  for (const char* format : {"png", "jpeg", "webp", "tiff"}) {
    const auto small = squareThumbnail(opened(encoded(*picture, format)), 20);
    ASSERT_TRUE(small) << format;
    EXPECT_EQ(small->width(), 20) << format;
    EXPECT_EQ(small->height(), 20) << format;
    for (const int place : {2, 10, 17}) {
      EXPECT_EQ(colourAt(*small, place, place), 'r') << format << ' ' << place;
    }
  }
  EXPECT_EQ(squareThumbnail(opened(heif()), 16)->width(), 16);
}

TEST(ThumbnailTests, StandsUprightForEveryOrientation) {
  const File jpeg = encoded(*marked(240, 240), "jpeg");
  for (int tag = 1; tag <= 8; ++tag) {
    const auto image = opened(withOrientation(jpeg, tag, true));
    const auto small = squareThumbnail(image, 24);
    const auto whole = sim::upright(image.source->bitmap(), image.orientation);
    ASSERT_TRUE(small);
    for (const auto& [x, y] : {std::pair{4, 4}, {20, 4}, {4, 20}, {20, 20}, {12, 2}, {2, 12}}) {
      EXPECT_EQ(colourAt(*small, x, y), colourAt(*whole, x * 10 + 5, y * 10 + 5)) << tag << " at " << x << ", " << y;
    }
  }
}

TEST(ThumbnailTests, DoesNotEnlarge) {
  const auto small = squareThumbnail(opened(encoded(*marked(30, 20), "png")), 100);
  EXPECT_EQ(small->width(), 20);
  EXPECT_EQ(small->height(), 20);
}

TEST(ThumbnailTests, OfAMillionPixelsInARow) {
  const auto strip = bitmap(1'000'000, 1, sim::Alpha::ignored, [](int, int) { return Pixel{255, 0, 0}; });
  const auto small = squareThumbnail(opened(encoded(*strip, "png")), 100);
  ASSERT_TRUE(small);
  EXPECT_EQ(small->width(), 1);
  EXPECT_EQ(at(*small, 0, 0), (Pixel{255, 0, 0}));
}

TEST(ThumbnailTests, DamageGivesNone) {
  EXPECT_FALSE(squareThumbnail({}, 10));
  EXPECT_FALSE(squareThumbnail(opened(pngHeader(500, 400)), 10));
  File cut = encoded(*marked(200, 100), "jpeg");
  cut.resize(cut.size() / 2);
  EXPECT_FALSE(squareThumbnail(opened(cut), 10));
}

// A PNG is averaged while it is decoded unless it is interlaced; nobody can tell.
TEST(ThumbnailTests, PngsComeOutAsFromTheWholePicture) {
  const auto shades = bitmap(300, 200, sim::Alpha::straight, [](int x, int y) { return Pixel{x / 2, y, 40, 55 + y}; });
  const auto image = opened(encoded(*shades, "png"));
  const auto small = image.source->thumbnail(30);
  const auto same = sim::sourceOf(shades)->thumbnail(30);
  ASSERT_TRUE(small && same);
  ASSERT_EQ(small->width(), same->width());
  ASSERT_EQ(small->height(), same->height());
  for (int y = 0; y < small->height(); ++y) {
    for (int x = 0; x < small->width(); ++x) EXPECT_EQ(at(*small, x, y), at(*same, x, y)) << x << ", " << y;
  }
}

}  // namespace
