#import <CoreGraphics/CGImage+Sim.h>
#import <ImageIO/ImageIO.h>

#include <cmath>

#include "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;

class ImageSourceTests : public ObjCTest {
 protected:
  static NSData *data(const File &file) { return [NSData dataWithBytes:file.data() length:file.size()]; }

  /// The pixels of the thumbnail; null when there is none.
  static sim::BitmapPtr thumbnail(NSData *file, NSDictionary *options, size_t index = 0) {
    const CGImageSourceRef source = CGImageSourceCreateWithData((CFDataRef)file, nullptr);
    const CGImageRef image = CGImageSourceCreateThumbnailAtIndex(source, index, (CFDictionaryRef)options);
    CFRelease((CFTypeRef)source);
    const auto pixels = image ? sim::sourceOf(image)->bitmap() : nullptr;
    CGImageRelease(image);
    return pixels;
  }
  static NSDictionary *always(id side, BOOL turned = NO) {
    NSMutableDictionary *options = [NSMutableDictionary dictionary];
    [options setObject:[NSNumber numberWithBool:YES] forKey:(NSString *)kCGImageSourceCreateThumbnailFromImageAlways];
    if (side) [options setObject:side forKey:(NSString *)kCGImageSourceThumbnailMaxPixelSize];
    [options setObject:[NSNumber numberWithBool:turned] forKey:(NSString *)kCGImageSourceCreateThumbnailWithTransform];
    return options;
  }
};

TEST_F(ImageSourceTests, TheLongerSideBecomesWhatIsAskedForAndNeverMoreThanItIs) {
  NSData *png = data(encoded(*marked(200, 80), "png"));
  const auto small = thumbnail(png, always([NSNumber numberWithInt:50]));
  EXPECT_EQ(small->width(), 50);
  EXPECT_EQ(small->height(), 20);
  EXPECT_EQ(at(*small, 5, 15), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*small, 45, 15), (Pixel{0, 0, 255, 255}));
  for (id side : @[
         [NSNumber numberWithInt:1000], [NSNumber numberWithInt:0], [NSNumber numberWithInt:-50],
         [NSNumber numberWithDouble:1e30], [NSNumber numberWithDouble:static_cast<double>(NAN)], @"50"
       ]) {
    EXPECT_EQ(thumbnail(png, always(side))->width(), 200) << [[side description] UTF8String];
  }
  EXPECT_EQ(thumbnail(png, always(nil))->width(), 200);
}

TEST_F(ImageSourceTests, ACameraHeldOtherwiseCountsOnlyWhenAskedFor) {
  NSData *jpeg = data(withOrientation(encoded(*marked(64, 32), "jpeg"), 6, true));
  const auto stored = thumbnail(jpeg, always([NSNumber numberWithInt:32]));
  EXPECT_EQ(stored->width(), 32);
  EXPECT_EQ(stored->height(), 16);
  const auto turned = thumbnail(jpeg, always([NSNumber numberWithInt:32], YES));
  EXPECT_EQ(turned->width(), 16);
  EXPECT_EQ(turned->height(), 32);
  EXPECT_GT(at(*turned, 4, 4).red, 200) << "the stored left is above";
}

TEST_F(ImageSourceTests, WhatIsNoImageHasNoThumbnail) {
  NSData *png = data(encoded(*marked(20, 20), "png"));
  EXPECT_EQ(CGImageSourceCreateWithData(nullptr, nullptr), nullptr);
  EXPECT_EQ(CGImageSourceCreateThumbnailAtIndex(nullptr, 0, nullptr), nullptr);
  EXPECT_EQ(thumbnail([NSData data], always(nil)), nullptr);
  EXPECT_EQ(thumbnail([@"no image" dataUsingEncoding:NSUTF8StringEncoding], always(nil)), nullptr);
  EXPECT_EQ(thumbnail(data(pngHeader(30, 30)), always([NSNumber numberWithInt:10])), nullptr) << "no pixels";
  EXPECT_EQ(thumbnail(png, always(nil), 1), nullptr) << "one image";
  EXPECT_EQ(thumbnail(png, nil), nullptr) << "no thumbnail in the file";
}

TEST_F(ImageSourceTests, DataThatChangeLaterDoNotMatter) {
  NSMutableData *png = [NSMutableData dataWithData:data(encoded(*marked(20, 20), "png"))];
  const CGImageSourceRef source = CGImageSourceCreateWithData((CFDataRef)png, nullptr);
  [png setLength:0];
  const CGImageRef image = CGImageSourceCreateThumbnailAtIndex(source, 0, (CFDictionaryRef)always(nil));
  CFRelease((CFTypeRef)source);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(CGImageGetWidth(image), 20u);
  CGImageRelease(image);
}

}  // namespace
