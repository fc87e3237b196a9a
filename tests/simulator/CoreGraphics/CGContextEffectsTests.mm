// Shadows, masks, transparency layers and gradients.
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CoreGraphics.h>

#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

#include <algorithm>
#include <initializer_list>

namespace {

using Seen = test_images::Pixel;

class CGContextEffectsTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    context_ = sim::createImageContext(CGSizeMake(40, 40), 1, false);
    CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  }
  void TearDown() override {
    CGContextRelease(context_);
    ObjCTest::TearDown();
  }

  Seen pixel(int x, int y) const { return test_images::at(*sim::snapshot(context_), x, y); }
  CGColorRef color(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha = 1) {
    const CGColorRef made = CGColorCreateSRGB(red, green, blue, alpha);
    [(id)made autorelease];
    return made;
  }
  /// An image of one byte a pixel, grey, or a mask.
  CGImageRef greyImage(std::initializer_list<std::uint8_t> bytes, size_t width, bool isMask,
                       const CGFloat *decode = nullptr) {
    NSData *data = [NSData dataWithBytes:bytes.begin() length:bytes.size()];
    const CGDataProviderRef provider = CGDataProviderCreateWithCFData((CFDataRef)data);
    const CGColorSpaceRef space = CGColorSpaceCreateDeviceGray();
    const size_t height = bytes.size() / width;
    const CGImageRef image = isMask ? CGImageMaskCreate(width, height, 8, 8, width, provider, decode, false)
                                    : CGImageCreate(width, height, 8, 8, width, space, kCGImageAlphaNone, provider,
                                                    nullptr, false, kCGRenderingIntentDefault);
    CGColorSpaceRelease(space);
    CGDataProviderRelease(provider);
    [(id)image autorelease];
    return image;
  }
  CGGradientRef redToBlue(const CGFloat *locations = nullptr) {
    const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    const CGGradientRef made =
        CGGradientCreateWithColors(space, (CFArrayRef) @[ (id)color(1, 0, 0), (id)color(0, 0, 1) ], locations);
    CGColorSpaceRelease(space);
    [(id)made autorelease];
    return made;
  }

  CGContextRef context_ = nullptr;
};

TEST_F(CGContextEffectsTests, AShadowLiesBesideWhatIsDrawn) {
  CGContextSetShadowWithColor(context_, CGSizeMake(5, 8), 0, color(0, 0, 1, 0.5));
  CGContextFillRect(context_, CGRectMake(10, 10, 10, 10));
  EXPECT_EQ(pixel(15, 15), (Seen{255, 0, 0, 255})) << "what is drawn lies above it";
  EXPECT_EQ(pixel(22, 24), (Seen{0, 0, 128, 128})) << "to the right and below";
  EXPECT_EQ(pixel(12, 24), (Seen{0, 0, 0, 0}));
  CGContextSetShadowWithColor(context_, CGSizeMake(5, 8), 0, nullptr);
  CGContextFillRect(context_, CGRectMake(30, 10, 4, 4));
  EXPECT_EQ(pixel(37, 20), (Seen{0, 0, 0, 0}));
}

TEST_F(CGContextEffectsTests, ABlurredShadowFades) {
  CGContextSetShadow(context_, CGSizeZero, 8);
  CGContextFillRect(context_, CGRectMake(15, 15, 10, 10));
  const int near = pixel(13, 20).alpha, far = pixel(9, 20).alpha;
  EXPECT_GT(near, far);
  EXPECT_GT(far, 0);
  EXPECT_LT(near, 85) << "a third of black at most";
  EXPECT_EQ(pixel(13, 20).red, 0);
}

TEST_F(CGContextEffectsTests, AShadowIsPartOfTheState) {
  CGContextSaveGState(context_);
  CGContextSetShadowWithColor(context_, CGSizeMake(10, 0), 0, color(0, 0, 1));
  CGContextTranslateCTM(context_, 0, 20);
  CGContextScaleCTM(context_, 2, 0.5);
  CGContextFillRect(context_, CGRectMake(1, 0, 4, 8));
  EXPECT_EQ(pixel(13, 22), (Seen{0, 0, 255, 255})) << "by 10, whatever the scale";
  CGContextRestoreGState(context_);
  CGContextFillRect(context_, CGRectMake(0, 0, 4, 4));
  EXPECT_EQ(pixel(11, 1), (Seen{0, 0, 0, 0}));
}

TEST_F(CGContextEffectsTests, AShadowGoesUpInABitmapContext) {
  const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
  const CGContextRef bitmap = CGBitmapContextCreate(nullptr, 20, 20, 8, 0, space, kCGImageAlphaPremultipliedLast);
  CGContextSetShadowWithColor(bitmap, CGSizeMake(0, 8), 0, color(0, 0, 1));
  CGContextFillRect(bitmap, CGRectMake(5, 5, 5, 5));
  const auto picture = sim::snapshot(bitmap);
  EXPECT_EQ(test_images::at(*picture, 7, 4), (Seen{0, 0, 255, 255}));
  EXPECT_EQ(test_images::at(*picture, 7, 12), (Seen{0, 0, 0, 255}));
  CGContextRelease(bitmap);
  CGColorSpaceRelease(space);
}

TEST_F(CGContextEffectsTests, ATransparencyLayerIsPutDownAsAWhole) {
  CGContextSetAlpha(context_, 0.5);
  CGContextSetShadowWithColor(context_, CGSizeMake(20, 0), 0, color(0, 0, 1));
  CGContextBeginTransparencyLayer(context_, nullptr);
  CGContextFillRect(context_, CGRectMake(0, 0, 10, 10));
  CGContextFillRect(context_, CGRectMake(5, 5, 10, 10));
  EXPECT_EQ(pixel(2, 2), (Seen{0, 0, 0, 0})) << "not yet";
  CGContextSaveGState(context_);
  CGContextRestoreGState(context_);
  CGContextRestoreGState(context_);
  CGContextEndTransparencyLayer(context_);
  EXPECT_EQ(pixel(2, 2), (Seen{128, 0, 0, 128}));
  EXPECT_EQ(pixel(7, 7), (Seen{128, 0, 0, 128})) << "where both lie";
  EXPECT_EQ(pixel(27, 7).blue, pixel(22, 2).blue) << "one shadow of both";
  CGContextEndTransparencyLayer(context_);
  CGContextFillRect(context_, CGRectMake(30, 30, 2, 2));
  EXPECT_EQ(pixel(31, 31), (Seen{128, 0, 0, 128})) << "alpha is as before";
}

TEST_F(CGContextEffectsTests, AMaskCutsWhatIsDrawn) {
  CGContextSaveGState(context_);
  CGContextClipToMask(context_, CGRectMake(0, 0, 20, 20), greyImage({255, 0, 255, 0}, 2, false));
  CGContextFillRect(context_, CGRectMake(0, 0, 40, 40));
  EXPECT_EQ(pixel(3, 10), (Seen{255, 0, 0, 255})) << "bright";
  EXPECT_EQ(pixel(17, 10), (Seen{0, 0, 0, 0})) << "dark";
  EXPECT_EQ(pixel(30, 30), (Seen{0, 0, 0, 0})) << "outside of the mask";
  // A second mask cuts further.
  CGContextClipToMask(context_, CGRectMake(0, 0, 20, 20), greyImage({255, 255, 0, 0}, 2, true));
  CGContextSetRGBFillColor(context_, 0, 0, 1, 1);
  CGContextFillRect(context_, CGRectMake(0, 0, 40, 40));
  // An image context is upside down for images, as CGContextDrawImage says.
  EXPECT_EQ(pixel(3, 3), (Seen{0, 0, 255, 255}));
  EXPECT_EQ(pixel(3, 17), (Seen{255, 0, 0, 255}));
  EXPECT_EQ(pixel(17, 3), (Seen{0, 0, 0, 0})) << "the first one cuts still";
  CGContextRestoreGState(context_);
  CGContextFillRect(context_, CGRectMake(30, 30, 4, 4));
  EXPECT_EQ(pixel(31, 31), (Seen{255, 0, 0, 255})) << "the mask is part of the state";
}

TEST_F(CGContextEffectsTests, ImageMasksAreDrawnInTheFillColour) {
  const CGImageRef mask = greyImage({0, 255, 0, 255}, 2, true);
  EXPECT_TRUE(CGImageIsMask(mask));
  EXPECT_FALSE(CGImageIsMask(greyImage({0, 255}, 2, false)));
  CGContextDrawImage(context_, CGRectMake(0, 0, 20, 20), mask);
  EXPECT_EQ(pixel(3, 10), (Seen{255, 0, 0, 255}));
  EXPECT_EQ(pixel(17, 10), (Seen{0, 0, 0, 0}));
}

TEST_F(CGContextEffectsTests, AnImageIsMasked) {
  const CGImageRef red = sim::createImage(
      sim::sourceOf(test_images::bitmap(4, 1, sim::Alpha::ignored, [](int, int) { return Seen{255, 0, 0, 255}; })));
  const CGFloat inverted[] = {1, 0};
  const struct {
    CGImageRef mask;
    Seen left, right;
  } cases[] = {
      {greyImage({255, 0}, 2, false), {255, 0, 0, 255}, {0, 0, 0, 0}},
      {greyImage({255, 0}, 2, true), {0, 0, 0, 0}, {255, 0, 0, 255}},
      {greyImage({255, 0}, 2, true, inverted), {255, 0, 0, 255}, {0, 0, 0, 0}},
      {greyImage({128, 128}, 2, false), {128, 0, 0, 128}, {128, 0, 0, 128}},
  };
  for (const auto &expected : cases) {
    const CGImageRef masked = CGImageCreateWithMask(red, expected.mask);
    const auto picture = sim::sourceOf(masked)->bitmap();
    EXPECT_EQ(test_images::at(*picture, 0, 0), expected.left);
    EXPECT_EQ(test_images::at(*picture, 3, 0), expected.right);
    CGImageRelease(masked);
  }
  EXPECT_EQ(CGImageCreateWithMask(red, nullptr), nullptr);
  EXPECT_EQ(CGImageCreateWithMask(nullptr, cases[0].mask), nullptr);
  CGImageRelease(red);
}

TEST_F(CGContextEffectsTests, ALinearGradientGoesFromOnePointToTheOther) {
  CGContextDrawLinearGradient(context_, redToBlue(), CGPointMake(10, 0), CGPointMake(30, 0),
                              CGGradientDrawingOptions(0));
  EXPECT_EQ(pixel(5, 20), (Seen{0, 0, 0, 0})) << "before the start";
  EXPECT_EQ(pixel(35, 20), (Seen{0, 0, 0, 0}));
  EXPECT_GT(pixel(12, 20).red, 200);
  EXPECT_GT(pixel(28, 20).blue, 200);
  EXPECT_NEAR(pixel(20, 20).red, pixel(19, 20).blue, 8);
  CGContextDrawLinearGradient(context_, redToBlue(), CGPointMake(10, 0), CGPointMake(30, 0),
                              kCGGradientDrawsBeforeStartLocation | kCGGradientDrawsAfterEndLocation);
  EXPECT_EQ(pixel(5, 20), (Seen{255, 0, 0, 255}));
  EXPECT_EQ(pixel(35, 20), (Seen{0, 0, 255, 255}));
}

TEST_F(CGContextEffectsTests, LocationsSayWhereTheColoursAre) {
  const CGFloat early[] = {0, 0.5};
  CGContextDrawLinearGradient(context_, redToBlue(early), CGPointMake(0, 0), CGPointMake(40, 0),
                              CGGradientDrawingOptions(0));
  EXPECT_EQ(pixel(30, 30), (Seen{0, 0, 255, 255})) << "behind the last colour, within the gradient";
  CGContextClearRect(context_, CGRectMake(0, 0, 40, 40));
  const CGFloat locations[] = {0.5, 1};
  CGContextSetAlpha(context_, 0.5);
  CGContextClipToRect(context_, CGRectMake(0, 0, 40, 20));
  CGContextDrawLinearGradient(context_, redToBlue(locations), CGPointMake(0, 0), CGPointMake(40, 0),
                              CGGradientDrawingOptions(0));
  EXPECT_EQ(pixel(2, 5), (Seen{128, 0, 0, 128})) << "before the first colour, within the gradient";
  EXPECT_EQ(pixel(18, 5), (Seen{128, 0, 0, 128}));
  EXPECT_GT(pixel(38, 5).blue, 100);
  EXPECT_EQ(pixel(18, 30), (Seen{0, 0, 0, 0})) << "clipped";
}

TEST_F(CGContextEffectsTests, ARadialGradientGoesOutwards) {
  const CGColorSpaceRef grey = CGColorSpaceCreateDeviceGray();
  const CGFloat components[] = {1, 1, 0, 1};
  const CGGradientRef gradient = CGGradientCreateWithColorComponents(grey, components, nullptr, 2);
  CGContextDrawRadialGradient(context_, gradient, CGPointMake(20, 20), 0, CGPointMake(20, 20), 10,
                              CGGradientDrawingOptions(0));
  EXPECT_GT(pixel(20, 20).red, 230);
  EXPECT_LT(pixel(28, 20).red, 60);
  EXPECT_EQ(pixel(35, 20), (Seen{0, 0, 0, 0}));
  CGGradientRelease(gradient);
  EXPECT_EQ(CGGradientCreateWithColorComponents(nullptr, components, nullptr, 2), nullptr);
  EXPECT_EQ(CGGradientCreateWithColorComponents(grey, components, nullptr, 0), nullptr);
  EXPECT_EQ(CGGradientCreateWithColors(grey, (CFArrayRef) @[ @"red" ], nullptr), nullptr);
  CGColorSpaceRelease(grey);
}

TEST_F(CGContextEffectsTests, NullIsHarmless) {
  CGContextSetShadow(nullptr, CGSizeZero, 1);
  CGContextBeginTransparencyLayer(nullptr, nullptr);
  CGContextEndTransparencyLayer(nullptr);
  CGContextClipToMask(nullptr, CGRectZero, nullptr);
  CGContextClipToMask(context_, CGRectZero, nullptr);
  CGContextDrawLinearGradient(nullptr, redToBlue(), CGPointZero, CGPointZero, CGGradientDrawingOptions(0));
  CGContextDrawLinearGradient(context_, nullptr, CGPointZero, CGPointZero, CGGradientDrawingOptions(0));
  CGContextAddArcToPoint(context_, 1, 1, 2, 2, 3);
  CGContextFillRect(context_, CGRectMake(0, 0, 4, 4));
  EXPECT_EQ(pixel(1, 1), (Seen{255, 0, 0, 255}));
}

}  // namespace
