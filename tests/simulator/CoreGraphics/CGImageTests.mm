#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CoreGraphics.h>

#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

#include <cstring>

namespace {

using namespace test_images;

class CGImageTests : public ObjCTest {
 protected:
  /// A 2 × 2 image over `bytes` in rows of `bytesPerRow`; released by the test.
  CGImageRef make(NSData *bytes, size_t bytesPerRow, CGBitmapInfo info) {
    const CGDataProviderRef provider = CGDataProviderCreateWithCFData((CFDataRef)bytes);
    const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    const CGImageRef image =
        CGImageCreate(2, 2, 8, 32, bytesPerRow, space, info, provider, nullptr, false, kCGRenderingIntentDefault);
    CGColorSpaceRelease(space);
    CGDataProviderRelease(provider);
    return image;
  }
};

Pixel pixelOf(CGImageRef image, int x, int y) { return at(*sim::sourceOf(image)->bitmap(), x, y); }

TEST_F(CGImageTests, GivesRedFirstBytesWithoutPadding) {
  const auto picture = bitmap(3, 2, sim::Alpha::straight, [](int x, int y) { return Pixel{x, y, 7, 200}; });
  const CGImageRef image = sim::createImage(sim::sourceOf(picture));
  EXPECT_EQ(CGImageGetWidth(image), 3u);
  EXPECT_EQ(CGImageGetHeight(image), 2u);
  EXPECT_EQ(CGImageGetBitsPerComponent(image), 8u);
  EXPECT_EQ(CGImageGetBitsPerPixel(image), 32u);
  EXPECT_EQ(CGImageGetBytesPerRow(image), 12u);
  EXPECT_EQ(CGImageGetAlphaInfo(image), kCGImageAlphaLast);
  const CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider(image));
  ASSERT_EQ(CFDataGetLength(data), 24);
  EXPECT_EQ(std::memcmp(CFDataGetBytePtr(data), picture->bytes().data(), 24), 0);
  CGImageRelease(image);
  EXPECT_EQ(CFDataGetBytePtr(data)[0], 0) << "the copy outlives the image";
  CFRelease(data);
}

TEST_F(CGImageTests, ReadsEveryLayout) {
  const std::uint8_t rows[] = {1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 9, 10, 11, 12, 13, 14, 15, 16};
  NSData *bytes = [NSData dataWithBytes:rows length:sizeof rows];
  struct Case {
    CGBitmapInfo info;
    Pixel first;
  };
  const Case cases[] = {
      {kCGImageAlphaLast, {1, 2, 3, 4}},
      {kCGImageAlphaFirst, {2, 3, 4, 1}},
      {kCGImageAlphaNoneSkipLast, {1, 2, 3, 255}},
      {kCGImageAlphaFirst | CGBitmapInfo(kCGBitmapByteOrder32Little), {3, 2, 1, 4}},
      {kCGImageAlphaLast | CGBitmapInfo(kCGBitmapByteOrder32Big), {1, 2, 3, 4}},
      {kCGImageAlphaLast | CGBitmapInfo(kCGBitmapByteOrder32Little), {4, 3, 2, 1}},
  };
  for (const Case &expected : cases) {
    const CGImageRef image = make(bytes, 10, expected.info);
    ASSERT_NE(image, nullptr) << expected.info;
    EXPECT_EQ(pixelOf(image, 0, 0), expected.first) << expected.info;
    EXPECT_EQ(CGImageGetBitmapInfo(image), expected.info);
    EXPECT_EQ(CGImageGetBytesPerRow(image), 10u);
    CGImageRelease(image);
  }
}

TEST_F(CGImageTests, ProvidesTheBytesItWasMadeFrom) {
  NSData *bytes = [NSData dataWithBytes:"abcdefghijklmnop" length:16];
  const CGImageRef image = make(bytes, 8, kCGImageAlphaLast);
  const CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider(image));
  EXPECT_TRUE([(NSData *)data isEqual:bytes]);
  CFRelease(data);
  CGImageRelease(image);
}

TEST_F(CGImageTests, RefusesWhatItDoesNotCarry) {
  NSData *bytes = [NSMutableData dataWithLength:64];
  EXPECT_EQ(make(bytes, 7, kCGImageAlphaLast), nullptr) << "rows too short";
  EXPECT_EQ(make(bytes, 8, kCGImageAlphaNone), nullptr);
  EXPECT_EQ(make(bytes, 8, kCGImageAlphaOnly), nullptr);
  const CGColorSpaceRef grey = CGColorSpaceCreateDeviceGray();
  const CGDataProviderRef provider = CGDataProviderCreateWithCFData((CFDataRef)bytes);
  EXPECT_EQ(CGImageCreate(2, 2, 8, 32, 8, grey, kCGImageAlphaLast, provider, nullptr, false, kCGRenderingIntentDefault),
            nullptr);
  EXPECT_EQ(
      CGImageCreate(2, 2, 8, 32, 8, nullptr, kCGImageAlphaLast, provider, nullptr, false, kCGRenderingIntentDefault),
      nullptr);
  const CGColorSpaceRef rgb = CGColorSpaceCreateDeviceRGB();
  EXPECT_EQ(CGImageCreate(0, 2, 8, 32, 8, rgb, kCGImageAlphaLast, provider, nullptr, false, kCGRenderingIntentDefault),
            nullptr);
  EXPECT_EQ(
      CGImageCreate(2, 2, 16, 64, 16, rgb, kCGImageAlphaLast, provider, nullptr, false, kCGRenderingIntentDefault),
      nullptr);
  EXPECT_EQ(CGImageCreate(2, 2, 8, 32, 8, rgb, kCGImageAlphaLast, nullptr, nullptr, false, kCGRenderingIntentDefault),
            nullptr);
  CGColorSpaceRelease(grey);
  CGColorSpaceRelease(rgb);
  CGDataProviderRelease(provider);
}

TEST_F(CGImageTests, TooFewBytesAreNoPixels) {
  const CGImageRef image = make([NSMutableData dataWithLength:15], 8, kCGImageAlphaLast);
  ASSERT_NE(image, nullptr);
  EXPECT_FALSE(sim::sourceOf(image)->bitmap());
  CGImageRelease(image);
}

TEST_F(CGImageTests, CutsToItsBounds) {
  const CGImageRef image = sim::createImage(sim::sourceOf(marked(8, 8)));
  const CGImageRef part = CGImageCreateWithImageInRect(image, CGRectMake(3.5, 6, 100, 100));
  ASSERT_NE(part, nullptr);
  EXPECT_EQ(CGImageGetWidth(part), 5u);
  EXPECT_EQ(CGImageGetHeight(part), 2u);
  EXPECT_EQ(pixelOf(part, 0, 0), (Pixel{255, 0, 0}));
  EXPECT_EQ(pixelOf(part, 1, 0), (Pixel{0, 0, 255}));
  EXPECT_EQ(CGImageCreateWithImageInRect(image, CGRectMake(20, 20, 5, 5)), nullptr);
  EXPECT_EQ(CGImageCreateWithImageInRect(image, CGRectZero), nullptr);
  EXPECT_EQ(CGImageCreateWithImageInRect(nullptr, CGRectMake(0, 0, 5, 5)), nullptr);
  CGImageRelease(part);
  CGImageRelease(image);
}

TEST_F(CGImageTests, NothingIsNoImage) {
  EXPECT_EQ(CGImageGetWidth(nullptr), 0u);
  EXPECT_EQ(CGImageGetDataProvider(nullptr), nullptr);
  EXPECT_EQ(CGDataProviderCopyData(nullptr), nullptr);
  EXPECT_EQ(CGDataProviderCreateWithCFData(nullptr), nullptr);
  EXPECT_EQ(sim::createImage(nullptr), nullptr);
  CGImageRelease(nullptr);
}

struct Released {
  int times = 0;
  size_t size = 0;
};

TEST_F(CGImageTests, TellsTheOwnerOfItsBytesOnce) {
  Released released;
  const char bytes[] = "abcd";
  const CGDataProviderRef provider = CGDataProviderCreateWithData(
      &released, bytes, 4, +[](void *info, const void *, size_t size) {
        static_cast<Released *>(info)->times++;
        static_cast<Released *>(info)->size = size;
      });
  const CFDataRef data = CGDataProviderCopyData(provider);
  EXPECT_EQ(std::memcmp(CFDataGetBytePtr(data), "abcd", 4), 0);
  EXPECT_EQ(released.times, 0);
  CGDataProviderRelease(provider);
  EXPECT_EQ(released.times, 1);
  EXPECT_EQ(released.size, 4u);
  CFRelease(data);
}

}  // namespace
