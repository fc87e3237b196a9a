// The blur against a Gaussian that is computed here by its definition, in double precision.
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreImage/CIImage+Sim.h>
#import <CoreImage/CoreImage.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;

/// Of 255: half for rounding, the rest for the blocks of a large radius.
constexpr double kTolerance = 1.25;

std::vector<double> weights(double sigma) {
  const int reach = int(std::ceil(5 * sigma));
  std::vector<double> result;
  double sum = 0;
  for (int offset = -reach; offset <= reach; ++offset) {
    result.push_back(std::exp(-offset * offset / (2 * sigma * sigma)));
    sum += result.back();
  }
  for (double &weight : result) weight /= sum;
  return result;
}

/// `values`, `width` a row, under a Gaussian; the outermost ones go on.
std::vector<double> gaussian(const std::vector<double> &values, int width, int height, double sigma) {
  const auto weight = weights(sigma);
  const int reach = int(weight.size() / 2);
  std::vector<double> across(values.size()), result(values.size());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int offset = -reach; offset <= reach; ++offset) {
        across[std::size_t(y * width + x)] +=
            weight[std::size_t(offset + reach)] * values[std::size_t(y * width + std::clamp(x + offset, 0, width - 1))];
      }
    }
  }
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int offset = -reach; offset <= reach; ++offset) {
        result[std::size_t(y * width + x)] += weight[std::size_t(offset + reach)] *
                                              across[std::size_t(std::clamp(y + offset, 0, height - 1) * width + x)];
      }
    }
  }
  return result;
}

/// Edges, lines, dots and noise.
Pixel busy(int x, int y) {
  const unsigned noise = unsigned(x * 7919 + y * 104729) * 2654435761u >> 24;
  return {x < 40 ? 255 : 0, y % 16 == 0 ? 255 : 0, int(noise), 255};
}

double part(const Pixel &pixel, int component) {
  return component == 0 ? pixel.red : component == 1 ? pixel.green : component == 2 ? pixel.blue : pixel.alpha;
}

class GaussianBlurTests : public ObjCTest {
 protected:
  static CIImage *recipe(const sim::BitmapPtr &bitmap) {
    const CGImageRef image = sim::createImage(sim::sourceOf(bitmap));
    CIImage *result = [CIImage imageWithCGImage:image];
    CGImageRelease(image);
    return result;
  }
  static CIImage *blurred(CIImage *image, id radius) {
    CIFilter *filter = [CIFilter filterWithName:@"CIGaussianBlur"];
    [filter setValue:image forKey:kCIInputImageKey];
    if (radius) [filter setValue:radius forKey:kCIInputRadiusKey];
    return [filter outputImage];
  }
  static CIImage *blurredBy(CIImage *image, double radius) {
    return blurred(image, [NSNumber numberWithDouble:radius]);
  }
  static sim::BitmapPtr drawn(CIImage *image, CGRect rect) {
    const CGImageRef result = [[CIContext context] createCGImage:image fromRect:rect];
    const auto pixels = result ? sim::sourceOf(result)->bitmap() : nullptr;
    CGImageRelease(result);
    return pixels;
  }
};

TEST_F(GaussianBlurTests, AClampedImageIsNearTheExactGaussian) {
  constexpr int kWidth = 101, kHeight = 67;
  const auto original = bitmap(kWidth, kHeight, sim::Alpha::ignored, busy);
  CIImage *image = recipe(original);
  for (const double sigma : {0.4, 1.0, 3.3, 9.9, 10.1, 12.5, 25.0, 54.0}) {
    const auto pixels = drawn(blurredBy([image imageByClampingToExtent], sigma), [image extent]);
    ASSERT_EQ(pixels->width(), kWidth);
    ASSERT_EQ(pixels->height(), kHeight);
    for (int component = 0; component < 4; ++component) {
      std::vector<double> values;
      for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) values.push_back(part(at(*original, x, y), component));
      }
      const auto exact = gaussian(values, kWidth, kHeight, sigma);
      double worst = 0;
      for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
          worst = std::max(worst, std::abs(part(at(*pixels, x, y), component) - exact[std::size_t(y * kWidth + x)]));
        }
      }
      EXPECT_LE(worst, kTolerance) << "sigma " << sigma << ", component " << component;
    }
  }
}

TEST_F(GaussianBlurTests, WithoutClampingTheEdgesFadeIntoNothing) {
  CIImage *image = recipe(bitmap(60, 60, sim::Alpha::ignored, [](int, int) { return Pixel{200, 100, 50, 255}; }));
  CIImage *result = blurredBy(image, 4);
  EXPECT_TRUE(CGRectEqualToRect([result extent], CGRectMake(-12, -12, 84, 84)));
  const auto pixels = drawn(result, [result extent]);
  EXPECT_EQ(at(*pixels, 42, 42), (Pixel{200, 100, 50, 255})) << "the middle";
  // On the edge half of the Gaussian falls beyond it.
  EXPECT_NEAR(at(*pixels, 12, 42).alpha, 255 * 0.5497, 1);
  EXPECT_NEAR(at(*pixels, 12, 42).red, 200 * 0.5497, 1) << "premultiplied";
  EXPECT_LE(at(*pixels, 0, 42).alpha, 2);
  EXPECT_TRUE(CGRectIsNull([blurredBy([image imageByCroppingToRect:CGRectZero], 4) extent])) << "nothing does not grow";
}

TEST_F(GaussianBlurTests, TransparentPixelsTakeNoPart) {
  const auto half = bitmap(64, 64, sim::Alpha::straight,
                           [](int x, int) { return x < 32 ? Pixel{255, 0, 0, 255} : Pixel{0, 255, 0, 0}; });
  const auto pixels = drawn(blurredBy([recipe(half) imageByClampingToExtent], 5), CGRectMake(0, 0, 64, 64));
  for (int x = 0; x < 64; ++x) {
    EXPECT_EQ(at(*pixels, x, 30).green, 0) << x;
    EXPECT_EQ(at(*pixels, x, 30).red, at(*pixels, x, 30).alpha) << x;
  }
}

TEST_F(GaussianBlurTests, TheRadiusIsTenUntilSetAndNothingBelowZeroBlurs) {
  CIImage *image = recipe(bitmap(40, 40, sim::Alpha::ignored, busy));
  EXPECT_OBJC_EQ([[CIFilter filterWithName:@"CIGaussianBlur"] valueForKey:kCIInputRadiusKey],
                 [NSNumber numberWithInt:10]);
  const CGRect all = CGRectMake(0, 0, 40, 40);
  CIImage *clamped = [image imageByClampingToExtent];
  EXPECT_TRUE(
      std::ranges::equal(drawn(blurred(clamped, nil), all)->bytes(), drawn(blurredBy(clamped, 10), all)->bytes()));
  for (const double radius : {0.0, -3.0, static_cast<double>(NAN)}) {
    EXPECT_TRUE(std::ranges::equal(drawn(blurredBy(image, radius), all)->bytes(), drawn(image, all)->bytes()))
        << radius;
  }
  CIFilter *filter = [CIFilter filterWithName:@"CIGaussianBlur"];
  [filter setValue:[NSNumber numberWithInt:3] forKey:kCIInputRadiusKey];
  EXPECT_OBJC_EQ([[[filter copy] autorelease] valueForKey:kCIInputRadiusKey], [NSNumber numberWithInt:3]);
  [filter setValue:image forKey:kCIInputImageKey];
  EXPECT_OBJC_EQ([[[filter copy] autorelease] valueForKey:kCIInputImageKey], image);
  EXPECT_OBJC_EQ([[[filter copy] autorelease] name], @"CIGaussianBlur");
  [filter setValue:nil forKey:kCIInputImageKey];
  [filter setDefaults];
  EXPECT_OBJC_EQ([filter valueForKey:kCIInputRadiusKey], [NSNumber numberWithInt:10]);
  EXPECT_OBJC_EQ([filter inputKeys], (@[ @"inputImage", @"inputRadius" ]));
  EXPECT_OBJC_EQ([filter outputKeys], @[ @"outputImage" ]);
  EXPECT_OBJC_EQ([filter outputImage], nil);
}

TEST_F(GaussianBlurTests, ClampingRepeatsTheOutermostPixels) {
  CIImage *image = [recipe(marked(8, 8)) imageByClampingToExtent];
  EXPECT_TRUE(CGRectEqualToRect([image extent], CGRectInfinite));
  EXPECT_EQ(sim::render(image), nullptr) << "without end";
  const auto pixels = drawn(image, CGRectMake(-3, -3, 14, 14));
  EXPECT_EQ(at(*pixels, 0, 13), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*pixels, 13, 13), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(at(*pixels, 0, 0), (Pixel{0, 255, 0, 255})) << "the top row goes on upwards";
  const auto away = drawn(image, CGRectMake(1000, -500, 2, 2));
  EXPECT_EQ(at(*away, 1, 1), (Pixel{0, 0, 255, 255}));
  CIImage *nothing = [[image imageByCroppingToRect:CGRectZero] imageByClampingToExtent];
  EXPECT_TRUE(CGRectIsNull([nothing extent]));
  EXPECT_EQ(at(*drawn(nothing, CGRectMake(0, 0, 2, 2)), 1, 1), (Pixel{0, 0, 0, 0}));
}

TEST_F(GaussianBlurTests, CroppingCutsAndKeepsPlaces) {
  CIImage *image = [recipe(marked(8, 8)) imageByCroppingToRect:CGRectMake(2.5, 6.2, 100, 100)];
  EXPECT_TRUE(CGRectEqualToRect([image extent], CGRectMake(2, 6, 6, 2)));
  const auto pixels = drawn(image, CGRectMake(0, 0, 8, 8));
  EXPECT_EQ(at(*pixels, 1, 0), (Pixel{0, 0, 0, 0}));
  EXPECT_EQ(at(*pixels, 2, 0), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(at(*pixels, 2, 2), (Pixel{0, 0, 0, 0}));
  for (const CGRect away : {CGRectMake(50, 50, 2, 2), CGRectMake(50, 6, 2, 2), CGRectMake(2, 50, 2, 2)}) {
    EXPECT_TRUE(CGRectIsNull([[image imageByCroppingToRect:away] extent]));
  }
  EXPECT_EQ(drawn([image imageByCroppingToRect:CGRectZero], CGRectMake(2, 6, 1, 1))->bytes()[3], 0);
}

TEST_F(GaussianBlurTests, WhatLiesBesideAnOpaqueImageIsTransparent) {
  const auto pixels = drawn(recipe(marked(8, 8)), CGRectMake(-2, -1, 12, 12));
  EXPECT_NE(pixels->alpha(), sim::Alpha::ignored);
  EXPECT_EQ(at(*pixels, 0, 0), (Pixel{0, 0, 0, 0}));
  EXPECT_EQ(at(*pixels, 2, 3), (Pixel{0, 255, 0, 255})) << "the upper left";
  EXPECT_EQ(at(*pixels, 9, 10), (Pixel{0, 0, 255, 255})) << "the lower right";
  EXPECT_EQ(at(*pixels, 9, 11), (Pixel{0, 0, 0, 0}));
  EXPECT_EQ(at(*pixels, 10, 10), (Pixel{0, 0, 0, 0}));
}

TEST_F(GaussianBlurTests, StepsFollowOneAnother) {
  CIImage *image = recipe(
      bitmap(64, 64, sim::Alpha::ignored, [](int x, int) { return x < 32 ? Pixel{0, 0, 0} : Pixel{255, 255, 255}; }));
  CIFilter *invert = [CIFilter filterWithName:@"CIColorInvert"];
  [invert setValue:[blurredBy([image imageByClampingToExtent], 6) imageByCroppingToRect:[image extent]]
            forKey:kCIInputImageKey];
  const auto pixels = sim::render([invert outputImage]);
  ASSERT_EQ(pixels->width(), 64);
  EXPECT_EQ(at(*pixels, 0, 5).red, 255);
  EXPECT_EQ(at(*pixels, 63, 5).red, 0);
  EXPECT_NEAR(at(*pixels, 31, 5).red + at(*pixels, 32, 5).red, 255, 1);
}

}  // namespace
