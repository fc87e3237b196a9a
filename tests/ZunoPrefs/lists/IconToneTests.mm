// The icon tone methods, on both editors.
#import <CoreGraphics/CoreGraphics.h>
#import <CoreImage/CoreImage.h>
#import <UIKit/UIKit.h>

#import "lists/ZunoFavouritesPicker.h"
#import "lists/ZunoWidgetsPicker.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "ZunoPrefs/lists/EditorTest.h"
#include "support/objc/MethodSpy.h"

/// An image of any size in points.
@interface SizedImage : UIImage {
 @public
  CGSize size;
}
@end

/// What both editors answer.
@protocol ToneTester <NSObject>
- (BOOL)isImageDark:(UIImage *)image;
- (UIImage *)invertImage:(UIImage *)image;
@end

namespace {

struct Pixel {
  std::uint8_t red, green, blue;
};

constexpr Pixel kBlack{0, 0, 0};
constexpr Pixel kWhite{255, 255, 255};

class IconToneTest : public EditorTest, public ::testing::WithParamInterface<const char *> {
 protected:
  id<ToneTester> editor() {
    makeFolder(@"/var/jb/Library/Zuno/Widgets");
    id editor = [classNamed(GetParam()) alloc];
    return [[editor initWithIdentifier:@"com.norvik.Zunoprefs"] autorelease];
  }

  /// An image of width × height pixels at `scale`, whose first `dark` pixels are black and the others `other`.
  static UIImage *image(int width, int height, CGFloat scale, int dark, Pixel other = kWhite) {
    std::vector<std::uint8_t> bytes;
    for (int pixel = 0; pixel < width * height; ++pixel) {
      const Pixel colour = pixel < dark ? kBlack : other;
      bytes.insert(bytes.end(), {colour.red, colour.green, colour.blue, 255});
    }
    return image(width, height, scale, [NSData dataWithBytes:bytes.data() length:bytes.size()]);
  }

  /// An image that says that it has width × height pixels, over a buffer of any length.
  static UIImage *image(int width, int height, CGFloat scale, NSData *data) {
    CGDataProviderRef provider = CGDataProviderCreateWithCFData((CFDataRef)data);
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGImageRef bitmap = CGImageCreate(width, height, 8, 32, width * 4, space, kCGImageAlphaLast, provider, nullptr,
                                      false, kCGRenderingIntentDefault);
    UIImage *image = [UIImage imageWithCGImage:bitmap scale:scale orientation:UIImageOrientationUp];
    CGImageRelease(bitmap);
    CGColorSpaceRelease(space);
    CGDataProviderRelease(provider);
    return image;
  }

  /// Red, green and blue of the image's first pixel after it went through a PNG file.
  static std::vector<int> firstPixel(UIImage *image) {
    UIImage *decoded = [UIImage imageWithData:UIImagePNGRepresentation(image)];
    CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider([decoded CGImage]));
    const UInt8 *bytes = CFDataGetBytePtr(data);
    std::vector<int> pixel{bytes[0], bytes[1], bytes[2]};
    CFRelease(data);
    return pixel;
  }
};

TEST_P(IconToneTest, WhiteIsNotDark) { EXPECT_FALSE([editor() isImageDark:image(10, 10, 1, 0)]); }

TEST_P(IconToneTest, BlackIsDark) { EXPECT_TRUE([editor() isImageDark:image(10, 10, 1, 100)]); }

TEST_P(IconToneTest, FortyFivePercentDecide) {
  EXPECT_TRUE([editor() isImageDark:image(10, 10, 1, 45)]);
  EXPECT_FALSE([editor() isImageDark:image(10, 10, 1, 44)]);
}

TEST_P(IconToneTest, TheShareIsOfTheAreaInPoints) {
  EXPECT_TRUE([editor() isImageDark:image(20, 20, 2, 45)]);
  EXPECT_FALSE([editor() isImageDark:image(20, 20, 2, 44)]);
  EXPECT_TRUE([editor() isImageDark:image(30, 30, 3, 45)]);
}

TEST_P(IconToneTest, AGreyOf150IsLightAndOneOf149Dark) {
  EXPECT_FALSE([editor() isImageDark:image(10, 10, 1, 0, {150, 150, 150})]);
  EXPECT_TRUE([editor() isImageDark:image(10, 10, 1, 0, {149, 149, 149})]);
}

TEST_P(IconToneTest, TheThresholdIsTruncated) {
  EXPECT_TRUE([editor() isImageDark:image(1, 1, 1, 0)]);
  EXPECT_TRUE([editor() isImageDark:image(2, 1, 1, 0)]);
  EXPECT_FALSE([editor() isImageDark:image(2, 2, 1, 0)]);
  EXPECT_TRUE([editor() isImageDark:image(2, 2, 1, 1)]);
}

TEST_P(IconToneTest, AnImageWithoutABitmapHasNoDarkPixels) {
  CIImage *core = [CIImage imageWithCGImage:[image(10, 10, 1, 100) CGImage]];
  UIImage *withoutBitmap = [[[UIImage alloc] initWithCIImage:core] autorelease];
  ASSERT_TRUE([withoutBitmap CGImage] == nullptr);
  EXPECT_FALSE([editor() isImageDark:withoutBitmap]);
  core = [CIImage imageWithCGImage:[image(2, 2, 1, 4) CGImage]];
  EXPECT_FALSE([editor() isImageDark:[[[UIImage alloc] initWithCIImage:core] autorelease]]) << "not even one";
  EXPECT_TRUE([editor() isImageDark:[[[UIImage alloc] init] autorelease]]) << "an area of zero has a threshold of zero";
  EXPECT_TRUE([editor() isImageDark:nil]);
}

TEST_P(IconToneTest, AnEmptyBufferHasNoDarkPixels) {
  EXPECT_FALSE([editor() isImageDark:image(10, 10, 1, [NSData data])]);
  EXPECT_FALSE([editor() isImageDark:image(2, 2, 1, [NSData data])]);
  EXPECT_TRUE([editor() isImageDark:image(2, 1, 1, [NSData data])]) << "no pixel is needed";
}

TEST_P(IconToneTest, TheWholeBufferIsWalkedWhateverTheSizeSays) {
  const std::uint8_t dark[4 * 45] = {};
  EXPECT_TRUE([editor() isImageDark:image(10, 10, 1, [NSData dataWithBytes:dark length:sizeof dark])]);
  EXPECT_FALSE([editor() isImageDark:image(10, 10, 1, [NSData dataWithBytes:dark length:sizeof dark - 4])]);
  EXPECT_TRUE([editor() isImageDark:image(10, 10, 1, [NSData dataWithBytes:dark length:sizeof dark - 3])])
      << "what the last group lacks counts as zero";
}

TEST_P(IconToneTest, ABufferOfOneByteIsAGroup) {
  EXPECT_TRUE([editor() isImageDark:image(2, 2, 1, [NSData dataWithBytes:"" length:1])]);
}

TEST_P(IconToneTest, TheThresholdStaysWithinTheIntegersBounds) {
  UIImage *white = image(2, 2, 1, 0);
  const auto isDark = [&](CGFloat width, CGFloat height) {
    SizedImage *sized = [[[SizedImage alloc] initWithCGImage:[white CGImage]] autorelease];
    sized->size = CGSizeMake(width, height);
    return [editor() isImageDark:sized];
  };
  EXPECT_FALSE(isDark(1e6, 1e6)) << "an area that no integer holds";
  EXPECT_TRUE(isDark(-1e6, 1e6));
  EXPECT_TRUE(isDark(-1, 2)) << "the threshold is 0, with the sign of -0.9";
  EXPECT_TRUE(isDark(NAN, 1)) << "no number counts as 0";
}

TEST_P(IconToneTest, ABitmapThatCannotBeReadHasNoDarkPixels) {
  NSMutableData *file = [[UIImagePNGRepresentation(image(2, 2, 1, 4)) mutableCopy] autorelease];
  const NSRange pixels = [file rangeOfData:[NSData dataWithBytes:"IDAT" length:4]
                                   options:0
                                     range:NSMakeRange(0, [file length])];
  ASSERT_NE(pixels.location, static_cast<NSUInteger>(NSNotFound));
  [file resetBytesInRange:NSMakeRange(NSMaxRange(pixels), 4)];
  UIImage *damaged = [UIImage imageWithData:file];
  ASSERT_TRUE(damaged != nil) << "its start says how large it is";
  ASSERT_TRUE(CGDataProviderCopyData(CGImageGetDataProvider([damaged CGImage])) == nullptr);
  EXPECT_FALSE([editor() isImageDark:damaged]);
}

TEST_P(IconToneTest, AnImageFromABitmapHasNoInversion) {
  EXPECT_OBJC_EQ([editor() invertImage:image(2, 2, 1, 0)], nil);
  EXPECT_OBJC_EQ([editor() invertImage:nil], nil);
}

TEST_P(IconToneTest, AnImageFromAFileHasNoInversion) {
  NSString *file = write(@"/icon.png", UIImagePNGRepresentation(image(2, 2, 1, 0)));
  UIImage *icon = [UIImage imageWithContentsOfFile:file];
  ASSERT_TRUE(icon != nil);
  EXPECT_OBJC_EQ([editor() invertImage:icon], nil);
}

TEST_P(IconToneTest, AnImageFromACoreImageImageIsInverted) {
  CIImage *core = [CIImage imageWithCGImage:[image(4, 2, 2, 0, {10, 200, 255}) CGImage]];
  UIImage *inverted = [editor() invertImage:[[[UIImage alloc] initWithCIImage:core] autorelease]];
  ASSERT_TRUE(inverted != nil);
  EXPECT_EQ(firstPixel(inverted), (std::vector<int>{245, 55, 0}));
  EXPECT_EQ([inverted size].width, 4.0) << "the scale is not carried over";
  EXPECT_EQ([inverted size].height, 2.0);
  EXPECT_EQ(firstPixel([editor() invertImage:inverted]), (std::vector<int>{10, 200, 255}));
}

TEST_P(IconToneTest, TheFilterTakesItsDefaultsBeforeItsInput) {
  CIImage *core = [CIImage imageWithCGImage:[image(2, 2, 1, 0) CGImage]];
  UIImage *recipe = [[[UIImage alloc] initWithCIImage:core] autorelease];
  id subject = editor();
  std::vector<std::string> messages;
  Class filter = [[CIFilter filterWithName:@"CIColorInvert"] class];
  const MethodSpy<> defaults(filter, @selector(setDefaults), [&](id) { messages.push_back("setDefaults"); });
  const MethodSpy<CIImage *> input(filter, @selector(setInputImage:),
                                   [&](id, CIImage *given) { messages.push_back(given ? "an input" : "no input"); });
  [subject invertImage:recipe];
  [subject invertImage:image(2, 2, 1, 0)];
  EXPECT_EQ(messages, (std::vector<std::string>{"setDefaults", "an input", "setDefaults", "no input"}));
}

INSTANTIATE_TEST_SUITE_P(BothEditors, IconToneTest, ::testing::Values("ZunoFavouritesPicker", "ZunoWidgetsPicker"));

}  // namespace

@implementation SizedImage

- (CGSize)size {
  return size;
}

@end
