// Contexts over memory: how pixels lie, and what is drawn on them.
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CoreGraphics.h>

#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

#include <array>
#include <cstring>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

class CGBitmapContextTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    rgb_ = CGColorSpaceCreateDeviceRGB();
    grey_ = CGColorSpaceCreateDeviceGray();
  }
  void TearDown() override {
    CGContextRelease(context_);
    CGColorSpaceRelease(rgb_);
    CGColorSpaceRelease(grey_);
    ObjCTest::TearDown();
  }

  /// A context of 4 × 4 pixels in memory of its own.
  CGContextRef open(CGColorSpaceRef space, std::uint32_t info, size_t width = 4, size_t height = 4) {
    CGContextRelease(context_);
    context_ = CGBitmapContextCreate(nullptr, width, height, 8, 0, space, info);
    return context_;
  }
  /// The bytes of the pixel at (x, y), counted from the top left.
  Bytes bytesAt(size_t x, size_t y) const {
    const size_t each = CGBitmapContextGetBitsPerPixel(context_) / 8;
    const auto *start = static_cast<const std::uint8_t *>(CGBitmapContextGetData(context_)) +
                        CGBitmapContextGetBytesPerRow(context_) * y + x * each;
    return Bytes(start, start + each);
  }
  void fill(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha, CGRect rect = CGRectMake(0, 0, 4, 4)) {
    CGContextSetRGBFillColor(context_, red, green, blue, alpha);
    CGContextFillRect(context_, rect);
  }

  CGColorSpaceRef rgb_ = nullptr;
  CGColorSpaceRef grey_ = nullptr;
  CGContextRef context_ = nullptr;
};

TEST_F(CGBitmapContextTests, EachLayoutHasItsBytes) {
  const struct {
    std::uint32_t info;
    Bytes bytes;  // Of red 255, green 51, blue 0 at half alpha, premultiplied; over black where there is no alpha.
  } cases[] = {
      {kCGImageAlphaPremultipliedLast, {128, 26, 0, 128}},
      {kCGImageAlphaPremultipliedLast | std::uint32_t(kCGBitmapByteOrder32Big), {128, 26, 0, 128}},
      {kCGImageAlphaPremultipliedFirst, {128, 128, 26, 0}},
      {kCGImageAlphaPremultipliedFirst | std::uint32_t(kCGBitmapByteOrder32Little), {0, 26, 128, 128}},
      {kCGImageAlphaPremultipliedLast | std::uint32_t(kCGBitmapByteOrder32Little), {128, 0, 26, 128}},
      {kCGImageAlphaNoneSkipLast, {128, 26, 0, 255}},
      {kCGImageAlphaNoneSkipFirst | std::uint32_t(kCGBitmapByteOrder32Little), {0, 26, 128, 255}},
  };
  for (const auto &expected : cases) {
    ASSERT_NE(open(rgb_, expected.info), nullptr) << expected.info;
    fill(1, 0.2, 0, 0.5);
    const Bytes bytes = bytesAt(1, 1);
    ASSERT_EQ(bytes.size(), 4u);
    for (size_t at = 0; at < 4; ++at) EXPECT_NEAR(bytes[at], expected.bytes[at], 1) << expected.info << ", " << at;
    EXPECT_EQ(CGBitmapContextGetBitmapInfo(context_), expected.info);
  }
}

TEST_F(CGBitmapContextTests, GreyIsAsBrightAsTheColour) {
  open(grey_, kCGImageAlphaNone);
  fill(1, 1, 1, 1);
  EXPECT_EQ(bytesAt(0, 0), Bytes{255});
  fill(1, 0, 0, 1);
  EXPECT_NEAR(bytesAt(0, 0)[0], 54, 1);
  CGContextSetGrayFillColor(context_, 0.5, 1);
  CGContextFillRect(context_, CGRectMake(0, 0, 4, 4));
  EXPECT_NEAR(bytesAt(3, 3)[0], 128, 1);
  EXPECT_EQ(CGBitmapContextGetColorSpace(context_), grey_);
}

TEST_F(CGBitmapContextTests, AlphaAloneHasNoColour) {
  open(nullptr, kCGImageAlphaOnly);
  fill(1, 0, 0, 0.5, CGRectMake(0, 0, 2, 4));
  EXPECT_NEAR(bytesAt(0, 0)[0], 128, 1);
  EXPECT_EQ(bytesAt(3, 0), Bytes{0});
  EXPECT_EQ(CGBitmapContextGetColorSpace(context_), nullptr);
}

TEST_F(CGBitmapContextTests, TheYAxisPointsUp) {
  open(rgb_, kCGImageAlphaPremultipliedLast);
  fill(1, 0, 0, 1, CGRectMake(0, 0, 4, 1));
  EXPECT_EQ(bytesAt(0, 3), (Bytes{255, 0, 0, 255})) << "the bottom row";
  EXPECT_EQ(bytesAt(0, 0), (Bytes{0, 0, 0, 0}));
  const CGAffineTransform transform = CGContextGetCTM(context_);
  EXPECT_TRUE(CGAffineTransformIsIdentity(transform));
}

TEST_F(CGBitmapContextTests, WhatItTells) {
  open(rgb_, kCGImageAlphaPremultipliedLast, 5, 3);
  EXPECT_EQ(CGBitmapContextGetWidth(context_), 5u);
  EXPECT_EQ(CGBitmapContextGetHeight(context_), 3u);
  EXPECT_EQ(CGBitmapContextGetBitsPerComponent(context_), 8u);
  EXPECT_EQ(CGBitmapContextGetBitsPerPixel(context_), 32u);
  EXPECT_EQ(CGBitmapContextGetBytesPerRow(context_), 20u);
  EXPECT_EQ(CGBitmapContextGetAlphaInfo(context_), kCGImageAlphaPremultipliedLast);
  EXPECT_EQ(CGBitmapContextGetWidth(nullptr), 0u);
  EXPECT_EQ(CGBitmapContextGetData(nullptr), nullptr);
  EXPECT_EQ(CGBitmapContextCreateImage(nullptr), nullptr);
}

TEST_F(CGBitmapContextTests, TheCallersMemoryIsDrawnOn) {
  for (const std::uint32_t info :
       {std::uint32_t(kCGImageAlphaPremultipliedLast),
        std::uint32_t(kCGImageAlphaPremultipliedFirst | std::uint32_t(kCGBitmapByteOrder32Little))}) {
    alignas(4) std::array<std::uint8_t, 2 * 12> memory;
    memory.fill(7);
    const CGContextRef context = CGBitmapContextCreate(memory.data(), 2, 2, 8, 12, rgb_, info);
    CGContextSetRGBFillColor(context, 1, 1, 1, 1);
    CGContextFillRect(context, CGRectMake(0, 1, 1, 1));
    EXPECT_EQ(memory[0], 255);
    EXPECT_EQ(memory[3], 255);
    EXPECT_EQ(memory[4], 7) << "what was there stays";
    EXPECT_EQ(memory[8], 7) << "behind the row";
    memory[12] = 99;
    CGContextFillRect(context, CGRectMake(1, 1, 1, 1));
    EXPECT_EQ(memory[4], 255);
    EXPECT_EQ(memory[12], 99) << "what was written meanwhile stays";
    CGContextRelease(context);
    EXPECT_EQ(memory[0], 255);
  }
}

TEST_F(CGBitmapContextTests, TheMemoryIsGivenBackOnce) {
  static int released;
  released = 0;
  std::array<std::uint8_t, 16> memory{};
  const auto release = [](void *info, void *data) {
    ++released;
    EXPECT_EQ(info, &released);
    EXPECT_NE(data, nullptr);
  };
  const CGContextRef context = CGBitmapContextCreateWithData(memory.data(), 2, 2, 8, 8, rgb_,
                                                             kCGImageAlphaPremultipliedLast, release, &released);
  EXPECT_EQ(released, 0);
  CGContextRelease(context);
  EXPECT_EQ(released, 1);
}

TEST_F(CGBitmapContextTests, ItsImageIsAsItWasWhenItWasTaken) {
  open(rgb_, kCGImageAlphaPremultipliedLast);
  fill(1, 0, 0, 1);
  const CGImageRef image = CGBitmapContextCreateImage(context_);
  fill(0, 0, 1, 1);
  EXPECT_EQ(test_images::at(*sim::sourceOf(image)->bitmap(), 0, 0), (test_images::Pixel{255, 0, 0, 255}));
  EXPECT_EQ(CGImageGetBitsPerPixel(image), 32u);
  CGContextDrawImage(context_, CGRectMake(0, 0, 4, 4), image);
  EXPECT_EQ(bytesAt(2, 2), (Bytes{255, 0, 0, 255}));
  CGImageRelease(image);
  open(grey_, kCGImageAlphaNone);
  fill(1, 1, 1, 1);
  const CGImageRef greyImage = CGBitmapContextCreateImage(context_);
  EXPECT_EQ(CGImageGetBitsPerPixel(greyImage), 8u);
  EXPECT_EQ(test_images::at(*sim::sourceOf(greyImage)->bitmap(), 0, 0), (test_images::Pixel{255, 255, 255, 255}));
  CGImageRelease(greyImage);
}

TEST_F(CGBitmapContextTests, WhatIsNotCarriedIsNull) {
  std::array<std::uint8_t, 64> memory{};
  const auto make = [&](size_t width, size_t height, size_t bits, size_t row, CGColorSpaceRef space,
                        std::uint32_t info) {
    return CGBitmapContextCreate(memory.data(), width, height, bits, row, space, info);
  };
  EXPECT_EQ(make(0, 4, 8, 16, rgb_, kCGImageAlphaPremultipliedLast), nullptr);
  EXPECT_EQ(make(4, 4, 8, 15, rgb_, kCGImageAlphaPremultipliedLast), nullptr) << "rows too short";
  EXPECT_EQ(make(4, 4, 8, 0, rgb_, kCGImageAlphaPremultipliedLast), nullptr);
  EXPECT_EQ(make(2, 2, 16, 16, rgb_, kCGImageAlphaPremultipliedLast), nullptr);
  EXPECT_EQ(make(4, 4, 8, 16, rgb_, kCGImageAlphaLast), nullptr) << "straight";
  EXPECT_EQ(make(4, 4, 8, 16, rgb_, kCGImageAlphaNone), nullptr);
  EXPECT_EQ(make(4, 4, 8, 16, grey_, kCGImageAlphaPremultipliedLast), nullptr);
  EXPECT_EQ(make(4, 4, 8, 16, nullptr, kCGImageAlphaPremultipliedLast), nullptr);
  EXPECT_EQ(CGBitmapContextCreate(nullptr, SIZE_MAX, 2, 8, 0, rgb_, kCGImageAlphaPremultipliedLast), nullptr);
}

TEST_F(CGBitmapContextTests, ColourSpacesHaveNames) {
  const CGColorSpaceRef srgb = CGColorSpaceCreateWithName(kCGColorSpaceSRGB);
  EXPECT_EQ(CGColorSpaceGetModel(srgb), kCGColorSpaceModelRGB);
  CGColorSpaceRelease(srgb);
  const CGColorSpaceRef grey = CGColorSpaceCreateWithName(kCGColorSpaceGenericGrayGamma2_2);
  EXPECT_EQ(CGColorSpaceGetModel(grey), kCGColorSpaceModelMonochrome);
  CGColorSpaceRelease(grey);
  EXPECT_EQ(CGColorSpaceCreateWithName((CFStringRef) @"kCGColorSpaceOfNobody"), nullptr);
  EXPECT_EQ(CGColorSpaceCreateWithName(nullptr), nullptr);
}

}  // namespace
