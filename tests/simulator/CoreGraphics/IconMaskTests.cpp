#include "CoreGraphics/IconMask.hpp"

#include <gtest/gtest.h>

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;

sim::PixelSourcePtr white(int width, int height) {
  return sim::sourceOf(bitmap(width, height, sim::Alpha::ignored, [](int, int) { return Pixel{255, 255, 255}; }));
}

TEST(IconMaskTests, RoundsTheCornersAndNothingElse) {
  const auto icon = sim::maskedAsIcon(white(120, 120))->bitmap();
  ASSERT_TRUE(icon);
  EXPECT_EQ(icon->alpha(), sim::Alpha::premultiplied);
  const auto alphaAt = [&](int x, int y) { return at(*icon, x, y).alpha; };
  for (const int near : {0, 119}) {
    for (const int other : {0, 119}) EXPECT_EQ(at(*icon, near, other), (Pixel{0, 0, 0, 0}));
    for (int place = 42; place < 78; ++place) {
      EXPECT_EQ(alphaAt(near, place), 255) << "the edges are straight between the corners";
      EXPECT_EQ(alphaAt(place, near), 255);
    }
  }
  EXPECT_EQ(at(*icon, 60, 60), (Pixel{255, 255, 255, 255}));
  // On the diagonal a corner takes away (√2 − 1) of its radius of 26.8 pixels: 7.9 pixels in each direction.
  EXPECT_EQ(alphaAt(6, 6), 0);
  EXPECT_EQ(alphaAt(10, 10), 255);
}

TEST(IconMaskTests, IsTheSameAtEveryCorner) {
  const auto icon = sim::maskedAsIcon(white(87, 87))->bitmap();
  double area = 0;
  for (int y = 0; y < 87; ++y) {
    for (int x = 0; x < 87; ++x) {
      const int alpha = at(*icon, x, y).alpha;
      area += alpha / 255.0;
      // As far as the edges are smoothed alike in every direction.
      EXPECT_NEAR(alpha, at(*icon, 86 - x, y).alpha, 8);
      EXPECT_NEAR(alpha, at(*icon, x, 86 - y).alpha, 8);
      EXPECT_NEAR(alpha, at(*icon, y, x).alpha, 8);
    }
  }
  // Four circular corners would leave 1 − (4 − π) · 0.2237² = 95.7 %.
  EXPECT_NEAR(area / (87 * 87), 0.957, 0.004);
}

TEST(IconMaskTests, KeepsTheColoursAndWhatIsTransparent) {
  const auto picture =
      bitmap(60, 60, sim::Alpha::straight, [](int x, int) { return Pixel{200, 100, 0, x < 30 ? 128 : 255}; });
  const auto icon = sim::straightened(sim::maskedAsIcon(sim::sourceOf(picture))->bitmap());
  EXPECT_EQ(at(*icon, 45, 30), (Pixel{200, 100, 0, 255}));
  EXPECT_EQ(at(*icon, 15, 30).alpha, 128);
  EXPECT_NEAR(at(*icon, 15, 30).red, 200, 2);
}

TEST(IconMaskTests, SmallOnesAreMaskedToo) {
  const auto small = sim::maskedAsIcon(white(120, 120))->thumbnail(30);
  ASSERT_TRUE(small);
  EXPECT_EQ(small->width(), 30);
  EXPECT_EQ(at(*small, 0, 0).alpha, 0);
  EXPECT_EQ(at(*small, 15, 15).alpha, 255);
}

// A source whose pixels cannot be had, which counts how often it is asked.
class Broken final : public sim::PixelSource {
 public:
  int width() const noexcept override { return 9; }
  int height() const noexcept override { return 9; }
  sim::Alpha alpha() const noexcept override { return sim::Alpha::ignored; }
  sim::BitmapPtr bitmap() const override {
    ++asked;
    return nullptr;
  }
  mutable int asked = 0;
};

TEST(IconMaskTests, AsksForThePixelsLateAndOnce) {
  EXPECT_FALSE(sim::maskedAsIcon(nullptr));
  const auto broken = std::make_shared<Broken>();
  const auto icon = sim::maskedAsIcon(broken);
  EXPECT_EQ(icon->width(), 9);
  EXPECT_EQ(broken->asked, 0);
  EXPECT_FALSE(icon->bitmap());
  EXPECT_FALSE(icon->bitmap());
  EXPECT_FALSE(icon->thumbnail(3));
  EXPECT_EQ(broken->asked, 1);
}

}  // namespace
