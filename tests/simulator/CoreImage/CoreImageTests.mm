#import <CoreGraphics/CGImage+Sim.h>
#import <CoreImage/CIImage+Sim.h>
#import <CoreImage/CoreImage.h>
#import <UIKit/UIKit.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;

class CoreImageTests : public ObjCTest {
 protected:
  CIImage *recipe(const sim::BitmapPtr &bitmap) {
    const CGImageRef image = sim::createImage(sim::sourceOf(bitmap));
    CIImage *result = [CIImage imageWithCGImage:image];
    CGImageRelease(image);
    return result;
  }

  CIImage *inverted(CIImage *image) {
    CIFilter *filter = [CIFilter filterWithName:@"CIColorInvert"];
    [filter setDefaults];
    [filter setValue:image forKey:@"inputImage"];
    return [filter outputImage];
  }
};

TEST_F(CoreImageTests, UnknownFiltersAreNil) {
  EXPECT_OBJC_EQ([CIFilter filterWithName:@"CINoSuchFilter"], nil);
  EXPECT_OBJC_EQ([CIFilter filterWithName:nil], nil);
  EXPECT_OBJC_EQ([[CIFilter filterWithName:@"CIColorInvert"] name], @"CIColorInvert");
}

TEST_F(CoreImageTests, AFilterCanBeRenamed) {
  CIFilter *filter = [CIFilter filterWithName:@"CIColorInvert"];
  NSMutableString *name = [NSMutableString stringWithString:@"Mine"];
  [filter setName:name];
  [name setString:@"Other"];
  EXPECT_OBJC_EQ([filter name], @"Mine");
  EXPECT_OBJC_EQ([[[filter copy] autorelease] name], @"Mine");
}

TEST_F(CoreImageTests, WithoutInputThereIsNoOutput) {
  EXPECT_OBJC_EQ([[CIFilter filterWithName:@"CIColorInvert"] outputImage], nil);
  EXPECT_OBJC_EQ(inverted(nil), nil);
}

TEST_F(CoreImageTests, UnknownKeysRaise) {
  CIFilter *filter = [CIFilter filterWithName:@"CIColorInvert"];
  for (NSString *key in @[ @"inputRadius", @"_inputImage" ]) {
    EXPECT_EQ(raisedBy([&] { [filter setValue:@"x" forKey:key]; }), "NSUnknownKeyException") << [key UTF8String];
  }
}

TEST_F(CoreImageTests, InvertsWhenRendered) {
  CIImage *result =
      inverted(recipe(bitmap(2, 1, sim::Alpha::straight, [](int x, int) { return Pixel{10, 20, 255, x ? 90 : 255}; })));
  EXPECT_TRUE(CGRectEqualToRect([result extent], CGRectMake(0, 0, 2, 1)));
  const auto pixels = sim::render(result);
  EXPECT_EQ(at(*pixels, 0, 0), (Pixel{245, 235, 0, 255}));
  EXPECT_EQ(at(*pixels, 1, 0), (Pixel{245, 235, 0, 90}));
}

TEST_F(CoreImageTests, InvertingTwiceGivesTheFirstPixels) {
  CIImage *original = recipe(marked(4, 4));
  EXPECT_EQ(at(*sim::render(inverted(inverted(original))), 0, 3), (Pixel{255, 0, 0, 255}));
}

TEST_F(CoreImageTests, ContextsCutAndCountRowsFromBelow) {
  CIImage *image = recipe(marked(8, 8));
  const CGImageRef part = [[CIContext context] createCGImage:image fromRect:CGRectMake(-2, 6, 4, 4)];
  ASSERT_NE(part, nullptr);
  const auto pixels = sim::sourceOf(part)->bitmap();
  EXPECT_EQ(pixels->width(), 4);
  EXPECT_EQ(pixels->height(), 4);
  EXPECT_EQ(at(*pixels, 0, 3), (Pixel{0, 0, 0, 0})) << "left of the image";
  EXPECT_EQ(at(*pixels, 2, 3), (Pixel{0, 255, 0, 255})) << "the top rows";
  EXPECT_EQ(at(*pixels, 2, 0), (Pixel{0, 0, 0, 0})) << "above the image";
  CGImageRelease(part);
  EXPECT_EQ([[CIContext context] createCGImage:image fromRect:CGRectZero], nullptr);
  EXPECT_EQ([[CIContext context] createCGImage:image fromRect:CGRectInfinite], nullptr);
  EXPECT_EQ([[CIContext context] createCGImage:nil fromRect:CGRectMake(0, 0, 1, 1)], nullptr);
}

TEST_F(CoreImageTests, ImagesWithoutPixelsAreNil) {
  EXPECT_OBJC_EQ([CIImage imageWithCGImage:nullptr], nil);
  EXPECT_OBJC_EQ([CIImage imageWithData:[NSData data]], nil);
  EXPECT_OBJC_EQ([[[CIImage alloc] initWithImage:nil] autorelease], nil);
  EXPECT_OBJC_EQ([[[CIImage alloc] initWithImage:[[[UIImage alloc] init] autorelease]] autorelease], nil);
}

TEST_F(CoreImageTests, AnImageOfARecipeIsInvertedWhenDrawnAndEncoded) {
  UIImage *image = [[[UIImage alloc] initWithCIImage:inverted(recipe(marked(8, 4)))] autorelease];
  EXPECT_EQ([image CGImage], nullptr);
  EXPECT_OBJC_NE([image CIImage], nil);
  EXPECT_TRUE(CGSizeEqualToSize([image size], CGSizeMake(8, 4)));
  EXPECT_EQ([image scale], 1);

  UIImage *encoded = [UIImage imageWithData:UIImagePNGRepresentation(image)];
  EXPECT_EQ(at(*sim::sourceOf([encoded CGImage])->bitmap(), 0, 3), (Pixel{0, 255, 255, 255}));

  UIGraphicsBeginImageContextWithOptions(CGSizeMake(8, 4), NO, 1);
  [image drawInRect:CGRectMake(0, 0, 8, 4)];
  UIImage *drawn = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  EXPECT_EQ(at(*sim::sourceOf([drawn CGImage])->bitmap(), 0, 3), (Pixel{0, 255, 255, 255}));
  EXPECT_EQ(at(*sim::sourceOf([drawn CGImage])->bitmap(), 7, 3), (Pixel{255, 255, 0, 255}));
}

TEST_F(CoreImageTests, ARecipeOfARecipeStaysInverted) {
  UIImage *image = [UIImage imageWithCIImage:inverted(recipe(marked(4, 4)))];
  CIImage *again = [[[CIImage alloc] initWithImage:image] autorelease];
  EXPECT_EQ(at(*sim::render(again), 0, 3), (Pixel{0, 255, 255, 255}));
  EXPECT_EQ(at(*sim::render(inverted([image CIImage])), 0, 3), (Pixel{255, 0, 0, 255}));
}

TEST_F(CoreImageTests, BitmapsHaveNoRecipe) {
  const CGImageRef bitmapImage = sim::createImage(sim::sourceOf(marked(4, 4)));
  UIImage *image = [UIImage imageWithCGImage:bitmapImage];
  CGImageRelease(bitmapImage);
  EXPECT_OBJC_EQ([image CIImage], nil);
  EXPECT_OBJC_EQ([UIImage imageWithCIImage:nil], nil);
}

}  // namespace
