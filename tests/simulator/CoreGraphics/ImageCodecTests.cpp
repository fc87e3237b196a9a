#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "CoreGraphics/ImageDecoder.hpp"
#include "CoreGraphics/ImageEncoder.hpp"
#include "CoreGraphics/PngDecoder.hpp"
#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;
using sim::Alpha;
using sim::Orientation;

sim::DecodedImage opened(const File& file) { return sim::openImage(std::make_shared<const File>(file)); }

bool isNear(const Pixel& one, const Pixel& other, int tolerance) {
  return std::abs(one.red - other.red) <= tolerance && std::abs(one.green - other.green) <= tolerance &&
         std::abs(one.blue - other.blue) <= tolerance && std::abs(one.alpha - other.alpha) <= tolerance;
}

sim::BitmapPtr colourful(int width, int height, Alpha alpha) {
  return bitmap(width, height, alpha, [&](int x, int y) -> Pixel {
    return {(x * 37) & 255, (y * 59) & 255, (x * y) & 255, alpha == Alpha::ignored ? 255 : (x * 11 + y * 7) & 255};
  });
}

bool sameBytes(const sim::Bitmap& one, const sim::Bitmap& other) {
  return one.width() == other.width() && one.height() == other.height() &&
         std::equal(one.bytes().begin(), one.bytes().end(), other.bytes().begin());
}

// A white picture of the PNG kind given.
File whitePng(int width, int height, int colourType, int depth, int interlace) {
  File file;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(
      png, &file,
      +[](png_structp self, png_bytep bytes, png_size_t count) {
        auto& target = *static_cast<File*>(png_get_io_ptr(self));
        target.insert(target.end(), bytes, bytes + count);
      },
      nullptr);
  png_set_IHDR(png, info, png_uint_32(width), png_uint_32(height), depth, colourType, interlace,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  const std::vector<png_color> palette(256, png_color{255, 255, 255});
  if (colourType == PNG_COLOR_TYPE_PALETTE) png_set_PLTE(png, info, palette.data(), 256);
  File row(std::size_t(width) * 8, 255);
  std::vector<png_bytep> rows(std::size_t(height), row.data());
  png_set_rows(png, info, rows.data());
  png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
  png_destroy_write_struct(&png, &info);
  return file;
}

TEST(ImageCodecTests, PngKeepsEveryPixel) {
  for (const Alpha alpha : {Alpha::ignored, Alpha::straight}) {
    const auto original = colourful(61, 47, alpha);
    const auto image = opened(sim::encodePng(original));
    ASSERT_TRUE(image.source);
    EXPECT_EQ(image.source->alpha(), alpha);
    ASSERT_TRUE(image.source->bitmap());
    EXPECT_TRUE(sameBytes(*image.source->bitmap(), *original));
  }
}

TEST(ImageCodecTests, PngOfPremultipliedPixelsIsStraight) {
  const auto half = bitmap(1, 1, Alpha::premultiplied, [](int, int) { return Pixel{64, 32, 0, 128}; });
  const auto image = opened(sim::encodePng(half));
  ASSERT_TRUE(image.source);
  EXPECT_EQ(at(*image.source->bitmap(), 0, 0), (Pixel{128, 64, 0, 128}));
}

TEST(ImageCodecTests, NothingIsEncodedFromNothing) {
  EXPECT_TRUE(sim::encodePng(nullptr).empty());
  EXPECT_TRUE(sim::encodeJpeg(nullptr, 1).empty());
}

TEST(ImageCodecTests, JpegLaysTransparentPixelsOverWhite) {
  const auto clear = bitmap(16, 16, Alpha::straight, [](int, int) { return Pixel{0, 0, 0, 0}; });
  const auto image = opened(sim::encodeJpeg(clear, 1));
  ASSERT_TRUE(image.source);
  EXPECT_TRUE(isNear(at(*image.source->bitmap(), 8, 8), {255, 255, 255, 255}, 2));
}

TEST(ImageCodecTests, JpegQualityIsClamped) {
  const auto picture = colourful(64, 64, Alpha::ignored);
  const std::size_t worst = sim::encodeJpeg(picture, 0).size();
  const std::size_t best = sim::encodeJpeg(picture, 1).size();
  EXPECT_GT(best, worst);
  EXPECT_EQ(sim::encodeJpeg(picture, -5).size(), worst);
  EXPECT_EQ(sim::encodeJpeg(picture, 7).size(), best);
  EXPECT_EQ(sim::encodeJpeg(picture, std::nan("")).size(), worst);
}

TEST(ImageCodecTests, DecodesEveryFormat) {
  for (const char* format : {"png", "jpeg", "webp", "tiff"}) {
    const auto image = opened(encoded(*marked(64, 32), format));
    ASSERT_TRUE(image.source) << format;
    const auto pixels = image.source->bitmap();
    ASSERT_TRUE(pixels) << format;
    EXPECT_EQ(pixels->width(), 64) << format;
    EXPECT_EQ(pixels->height(), 32) << format;
    EXPECT_TRUE(isNear(at(*pixels, 8, 24), {255, 0, 0, 255}, 30)) << format;
    EXPECT_TRUE(isNear(at(*pixels, 56, 24), {0, 0, 255, 255}, 30)) << format;
    EXPECT_TRUE(isNear(at(*pixels, 8, 2), {0, 255, 0, 255}, 60)) << format;
  }
  const auto photo = opened(heif());
  ASSERT_TRUE(photo.source);
  EXPECT_EQ(photo.source->width(), 64);
  EXPECT_EQ(photo.source->height(), 32);
  EXPECT_TRUE(isNear(at(*photo.source->bitmap(), 8, 16), {200, 30, 30, 255}, 30));
  EXPECT_TRUE(isNear(at(*photo.source->bitmap(), 56, 16), {30, 30, 200, 255}, 30));
  const auto dot = opened(gif());
  ASSERT_TRUE(dot.source);
  EXPECT_EQ(at(*dot.source->bitmap(), 0, 0), (Pixel{255, 0, 0, 255}));
}

TEST(ImageCodecTests, RefusesHeadersBeyondTheLimitWithoutAllocating) {
  EXPECT_FALSE(opened(pngHeader(100'000, 100'000)).source);
  EXPECT_FALSE(opened(pngHeader(0xFFFFFFFF, 1)).source);
  EXPECT_FALSE(opened(pngHeader(10'001, 10'000)).source);
  EXPECT_TRUE(opened(pngHeader(10'000, 10'000)).source);
}

TEST(ImageCodecTests, DamagedPixelsAreNoPixels) {
  const auto image = opened(pngHeader(5, 5));
  ASSERT_TRUE(image.source);
  EXPECT_FALSE(image.source->bitmap());
  EXPECT_FALSE(image.source->thumbnail(2));
  EXPECT_FALSE(image.source->bitmap());
}

// Grey, palettes, 16 bits and interlacing all come out as eight bits of red, green and blue.
TEST(ImageCodecTests, DecodesEveryKindOfPng) {
  for (const int colourType : {PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA, PNG_COLOR_TYPE_RGB,
                               PNG_COLOR_TYPE_RGB_ALPHA, PNG_COLOR_TYPE_PALETTE}) {
    for (const int depth : {8, 16}) {
      if (colourType == PNG_COLOR_TYPE_PALETTE && depth == 16) continue;
      for (const int interlace : {PNG_INTERLACE_NONE, PNG_INTERLACE_ADAM7}) {
        const auto image = opened(whitePng(9, 5, colourType, depth, interlace));
        ASSERT_TRUE(image.source) << colourType << ' ' << depth;
        const auto pixels = image.source->bitmap();
        ASSERT_TRUE(pixels) << colourType << ' ' << depth << ' ' << interlace;
        EXPECT_EQ(at(*pixels, 8, 4), (Pixel{255, 255, 255, 255})) << colourType << ' ' << depth << ' ' << interlace;
        EXPECT_EQ(pixels->alpha() == Alpha::straight, bool(colourType & PNG_COLOR_MASK_ALPHA)) << colourType;
      }
    }
  }
}

// A changed byte gives pixels or none; the sanitizers watch for more.
TEST(ImageCodecTests, SurvivesEveryChangedByteOfAPng) {
  for (const int colourType : {PNG_COLOR_TYPE_RGB_ALPHA, PNG_COLOR_TYPE_PALETTE}) {
    const File file = whitePng(9, 5, colourType, 8, PNG_INTERLACE_ADAM7);
    for (std::size_t i = 0; i < file.size(); ++i) {
      for (const int value : {0, 1, 127, 255}) {
        File changed = file;
        changed[i] = std::uint8_t(value);
        const auto pixels = sim::decodePng(changed);
        if (pixels) {
          EXPECT_TRUE(sim::isDrawableSize(pixels->width(), pixels->height()));
        }
      }
    }
  }
  EXPECT_FALSE(sim::decodePng({}));
}

TEST(ImageCodecTests, ACutGifOrTiffIsRefused) {
  for (File file : {gif(), encoded(*marked(64, 32), "tiff")}) {
    file.resize(file.size() / 2);
    EXPECT_FALSE(opened(file).source);
  }
  EXPECT_FALSE(sim::openImage(nullptr).source);
}

TEST(ImageCodecTests, KnowsTheBytesOfPngFilesOnly) {
  const File png = encoded(*marked(8, 8), "png");
  const auto image = opened(png);
  EXPECT_TRUE(std::equal(png.begin(), png.end(), image.source->png().begin(), image.source->png().end()));
  EXPECT_TRUE(opened(encoded(*marked(8, 8), "jpeg")).source->png().empty());
}

TEST(ImageCodecTests, ThumbnailsKeepTheProportions) {
  for (const char* format : {"png", "jpeg", "webp"}) {
    const auto image = opened(encoded(*marked(200, 100), format));
    const auto small = image.source->thumbnail(50);
    ASSERT_TRUE(small) << format;
    EXPECT_EQ(small->width(), 50) << format;
    EXPECT_EQ(small->height(), 25) << format;
    EXPECT_TRUE(isNear(at(*small, 5, 20), {255, 0, 0, 255}, 40)) << format;
    ASSERT_TRUE(image.source->bitmap());
    EXPECT_EQ(image.source->thumbnail(50)->width(), 50) << "after decoding";
    EXPECT_EQ(image.source->thumbnail(0)->width(), 200);
    EXPECT_EQ(image.source->thumbnail(5000)->width(), 200);
  }
}

TEST(BitmapTests, FitsWithoutVanishingSides) {
  const sim::PixelSize thin = sim::fitted({4000, 1}, 100);
  EXPECT_EQ(thin.width, 100);
  EXPECT_EQ(thin.height, 1);
}

TEST(BitmapTests, InvertsColoursAndKeepsAlpha) {
  const auto straight = bitmap(1, 1, Alpha::straight, [](int, int) { return Pixel{10, 200, 255, 40}; });
  EXPECT_EQ(at(*sim::inverted(*straight), 0, 0), (Pixel{245, 55, 0, 40}));
  // 0.5 alpha; premultiplied colour (0.25, 0, 0.5) is the colour (0.5, 0, 1), whose inverse is (0.5, 1, 0).
  const auto mixed = bitmap(1, 1, Alpha::premultiplied, [](int, int) { return Pixel{64, 0, 128, 128}; });
  EXPECT_EQ(at(*sim::inverted(*mixed), 0, 0), (Pixel{64, 128, 0, 128}));
}

// Each orientation turns the stored pixels so that what stood at the upper left of the scene comes there.
TEST(BitmapTests, TurnsEveryOrientationUpright) {
  // Stored: A B C
  //         D E F
  const auto stored = bitmap(3, 2, Alpha::ignored, [](int x, int y) { return Pixel{'A' + x + 3 * y, 0, 0}; });
  const auto text = [](const sim::Bitmap& turned) {
    std::string result;
    for (int y = 0; y < turned.height(); ++y) {
      for (int x = 0; x < turned.width(); ++x) result += char(at(turned, x, y).red);
      result += ' ';
    }
    return result;
  };
  const auto turned = [&](Orientation orientation) { return text(*sim::upright(stored, orientation)); };
  EXPECT_EQ(turned(Orientation::up), "ABC DEF ");
  EXPECT_EQ(turned(Orientation::upMirrored), "CBA FED ");
  EXPECT_EQ(turned(Orientation::down), "FED CBA ");
  EXPECT_EQ(turned(Orientation::downMirrored), "DEF ABC ");
  EXPECT_EQ(turned(Orientation::leftMirrored), "AD BE CF ");
  EXPECT_EQ(turned(Orientation::right), "DA EB FC ");
  EXPECT_EQ(turned(Orientation::rightMirrored), "FC EB DA ");
  EXPECT_EQ(turned(Orientation::left), "CF BE AD ");
}

TEST(BitmapTests, TurnsPicturesLargerThanATile) {
  const auto stored = colourful(150, 70, Alpha::ignored);
  const auto turned = sim::upright(stored, Orientation::right);
  for (int y = 0; y < 70; ++y) {
    for (int x = 0; x < 150; ++x) ASSERT_EQ(at(*turned, 69 - y, x), at(*stored, x, y));
  }
}

TEST(BitmapTests, MakesNoBitmapBeyondTheLimit) {
  EXPECT_FALSE(sim::Bitmap::make(0, 5, Alpha::straight));
  EXPECT_FALSE(sim::Bitmap::make(-1, 5, Alpha::straight));
  EXPECT_FALSE(sim::Bitmap::make(100'000, 100'000, Alpha::straight));
  EXPECT_FALSE(sim::Bitmap::make(INT64_MAX, INT64_MAX, Alpha::straight));
}

}  // namespace
