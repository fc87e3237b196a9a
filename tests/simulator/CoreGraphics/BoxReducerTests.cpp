#include "CoreGraphics/BoxReducer.hpp"

#include <gtest/gtest.h>

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;
using sim::Alpha;
using sim::BoxReducer;

sim::BitmapPtr reduced(const sim::Bitmap& picture, sim::PixelSize smallest) {
  BoxReducer reducer({picture.width(), picture.height()}, smallest, picture.alpha());
  for (int y = 0; y < picture.height(); ++y) reducer.add(picture.row(y));
  return reducer.result();
}

TEST(BoxReducerTests, AveragesBlocks) {
  const auto picture = bitmap(4, 2, Alpha::ignored, [](int x, int y) { return Pixel{x * 40, y * 100, 7}; });
  const auto small = reduced(*picture, {2, 1});
  ASSERT_EQ(small->width(), 2);
  ASSERT_EQ(small->height(), 1);
  EXPECT_EQ(small->alpha(), Alpha::ignored);
  EXPECT_EQ(at(*small, 0, 0), (Pixel{20, 50, 7}));
  EXPECT_EQ(at(*small, 1, 0), (Pixel{100, 50, 7}));
}

TEST(BoxReducerTests, TheLastBlocksAveragesWhatIsThere) {
  const auto picture =
      bitmap(5, 3, Alpha::ignored, [](int x, int y) { return Pixel{x == 4 ? 200 : 0, y == 2 ? 90 : 0, 0}; });
  const auto small = reduced(*picture, {2, 1});
  ASSERT_EQ(small->width(), 3);
  ASSERT_EQ(small->height(), 1);
  EXPECT_EQ(at(*small, 2, 0), (Pixel{200, 30, 0}));
}

TEST(BoxReducerTests, TransparentPixelsGiveNoColour) {
  const auto picture =
      bitmap(2, 1, Alpha::straight, [](int x, int) { return x ? Pixel{0, 255, 0, 0} : Pixel{200, 0, 0, 255}; });
  const auto small = reduced(*picture, {1, 1});
  EXPECT_EQ(small->alpha(), Alpha::premultiplied);
  EXPECT_EQ(at(*small, 0, 0), (Pixel{100, 0, 0, 128}));
  const auto again =
      bitmap(2, 1, Alpha::premultiplied, [](int x, int) { return x ? Pixel{0, 0, 0, 0} : Pixel{200, 0, 0, 255}; });
  EXPECT_EQ(at(*reduced(*again, {1, 1}), 0, 0), (Pixel{100, 0, 0, 128}));
}

TEST(BoxReducerTests, NoSideBecomesSmallerThanWanted) {
  for (int side = 1; side <= 40; ++side) {
    for (int smallest = 1; smallest <= side; ++smallest) {
      const auto picture = bitmap(side, 1, Alpha::ignored, [](int, int) { return Pixel{9, 9, 9}; });
      const auto small = reduced(*picture, {smallest, 1});
      EXPECT_GE(small->width(), smallest);
      EXPECT_FALSE(BoxReducer::reduces({small->width(), small->height()}, {smallest, 1})) << side << " to " << smallest;
      EXPECT_EQ(at(*small, small->width() - 1, 0), (Pixel{9, 9, 9}));
    }
  }
}

TEST(BoxReducerTests, SumsOfAHundredMillionPixelsDoNotOverflow) {
  const sim::PixelSize strip{20'000, 5'000};
  BoxReducer reducer(strip, {1, 1}, Alpha::straight);
  const std::vector<std::uint8_t> row(std::size_t(strip.width) * 4, 255);
  for (int y = 0; y < strip.height; ++y) reducer.add(row.data());
  EXPECT_EQ(at(*reducer.result(), 0, 0), (Pixel{255, 255, 255, 255}));
}

// Resizing averages first.
TEST(BitmapTests, MakesPicturesSmallThatAreWiderThanASurface) {
  const auto strip =
      bitmap(100'000, 1, Alpha::ignored, [](int x, int) { return x < 50'000 ? Pixel{255, 0, 0} : Pixel{0, 0, 255}; });
  const auto small = sim::sourceOf(strip)->thumbnail(100);
  ASSERT_TRUE(small);
  EXPECT_EQ(small->width(), 100);
  EXPECT_EQ(small->height(), 1);
  EXPECT_EQ(at(*small, 10, 0), (Pixel{255, 0, 0}));
  EXPECT_EQ(at(*small, 90, 0), (Pixel{0, 0, 255}));
}

}  // namespace
