#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/ImageEncoder.hpp>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIImage+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIScreen+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

#include <string_view>

namespace {

using namespace test_images;

class UIImageTests : public DeviceTest {
 protected:
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    DeviceTest::TearDown();
  }

  NSData *data(const File &file) { return [NSData dataWithBytes:file.data() length:file.size()]; }
  NSString *save(NSString *path, const File &file) { return write(path, data(file)); }
  File png(int width, int height) { return encoded(*marked(width, height), "png"); }

  UIImage *image(const sim::BitmapPtr &bitmap, CGFloat scale = 1,
                 UIImageOrientation orientation = UIImageOrientationUp) {
    const CGImageRef pixels = sim::createImage(sim::sourceOf(bitmap));
    UIImage *result = [UIImage imageWithCGImage:pixels scale:scale orientation:orientation];
    CGImageRelease(pixels);
    return result;
  }

  sim::BitmapPtr pixelsOf(NSData *file) { return sim::sourceOf([[UIImage imageWithData:file] CGImage])->bitmap(); }

  sim::BitmapPtr drawn(UIImage *image, CGRect rect, CGSize size) {
    UIGraphicsBeginImageContextWithOptions(size, NO, 1);
    [image drawInRect:rect];
    UIImage *result = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return sim::sourceOf([result CGImage])->bitmap();
  }
};

TEST_F(UIImageTests, ReadsFilesAndData) {
  UIImage *fromFile = [UIImage imageWithContentsOfFile:save(@"/var/a.png", png(30, 20))];
  EXPECT_TRUE(CGSizeEqualToSize([fromFile size], CGSizeMake(30, 20)));
  EXPECT_EQ([fromFile scale], 1);
  EXPECT_EQ([fromFile imageOrientation], UIImageOrientationUp);
  UIImage *fromData = [UIImage imageWithData:data(png(30, 20)) scale:2];
  EXPECT_TRUE(CGSizeEqualToSize([fromData size], CGSizeMake(15, 10)));
  EXPECT_EQ(CGImageGetWidth([fromData CGImage]), 30u);
}

TEST_F(UIImageTests, WhatIsNoImageIsNil) {
  File cut = png(30, 20);
  cut.resize(cut.size() / 2);
  File cutPhoto = encoded(*marked(64, 64), "jpeg");
  cutPhoto.resize(cutPhoto.size() - 10);
  const std::string_view text = "no image at all";
  for (const File &bad :
       {cut, cutPhoto, File(), File(text.begin(), text.end()), pngHeader(0, 0), pngHeader(100'000, 100'000)}) {
    EXPECT_OBJC_EQ([UIImage imageWithData:data(bad)], nil);
    EXPECT_OBJC_EQ([UIImage imageWithContentsOfFile:save(@"/var/bad.png", bad)], nil);
  }
  EXPECT_OBJC_EQ([UIImage imageWithData:nil], nil);
  EXPECT_OBJC_EQ([UIImage imageWithContentsOfFile:nil], nil);
  EXPECT_OBJC_EQ([UIImage imageWithContentsOfFile:@""], nil);
  EXPECT_OBJC_EQ([UIImage imageWithContentsOfFile:path(@"/var/missing.png")], nil);
  EXPECT_OBJC_EQ([UIImage imageWithContentsOfFile:makeFolder(@"/var/folder.png")], nil);
  EXPECT_OBJC_EQ([UIImage imageWithCGImage:nullptr], nil);
}

TEST_F(UIImageTests, DamageFoundLateHurtsNobody) {
  UIImage *damaged = [UIImage imageWithData:data(pngHeader(40, 40))];
  EXPECT_TRUE(CGSizeEqualToSize([damaged size], CGSizeMake(40, 40)));
  EXPECT_OBJC_EQ(UIImagePNGRepresentation(damaged), nil);
  EXPECT_OBJC_EQ(UIImageJPEGRepresentation(damaged, 1), nil);
  EXPECT_OBJC_EQ([damaged sim_PNGDataWithLongestSide:10], nil);
  EXPECT_EQ(CGDataProviderCopyData(CGImageGetDataProvider([damaged CGImage])), nullptr);
  EXPECT_EQ(at(*drawn(damaged, CGRectMake(0, 0, 4, 4), CGSizeMake(4, 4)), 1, 1), (Pixel{0, 0, 0, 0}));
}

TEST_F(UIImageTests, PicksTheFileForTheScreen) {
  NSString *plain = save(@"/var/icon.png", png(10, 10));
  EXPECT_EQ([[UIImage imageWithContentsOfFile:plain] scale], 1);
  save(@"/var/icon@2x.png", png(20, 20));
  EXPECT_EQ([[UIImage imageWithContentsOfFile:plain] scale], 2);
  save(@"/var/icon@3x.png", png(30, 30));
  UIImage *sharp = [UIImage imageWithContentsOfFile:plain];
  EXPECT_EQ([sharp scale], 3);
  EXPECT_TRUE(CGSizeEqualToSize([sharp size], CGSizeMake(10, 10)));
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  EXPECT_EQ([[UIImage imageWithContentsOfFile:plain] scale], 2);
  EXPECT_EQ([[UIImage imageWithContentsOfFile:path(@"/var/icon@3x.png")] scale], 3) << "as it stands";
  save(@"/var/lone@2x.png", png(20, 20));
  EXPECT_EQ([[UIImage imageWithContentsOfFile:path(@"/var/lone.png")] scale], 2) << "though the plain file is missing";
}

TEST_F(UIImageTests, FindsNamesInBundles) {
  save(@"/b.bundle/icon@2x.png", png(20, 20));
  save(@"/b.bundle/icon@3x.png", png(30, 30));
  save(@"/b.bundle/photo.jpg", encoded(*marked(16, 16), "jpeg"));
  write(@"/b.bundle/Info.plist", "{CFBundleIdentifier = b;}");
  NSBundle *bundle = [NSBundle bundleWithPath:path(@"/b.bundle")];
  const auto named = [&](NSString *name) {
    return [UIImage imageNamed:name inBundle:bundle compatibleWithTraitCollection:nil];
  };
  EXPECT_EQ([named(@"icon") scale], 3);
  EXPECT_EQ([named(@"icon.png") scale], 3);
  EXPECT_EQ([named(@"icon@2x") scale], 2);
  EXPECT_TRUE(CGSizeEqualToSize([named(@"photo.jpg") size], CGSizeMake(16, 16)));
  EXPECT_OBJC_EQ(named(@"missing"), nil);
  EXPECT_OBJC_EQ(named(nil), nil);
  EXPECT_OBJC_EQ([UIImage imageNamed:@"no such image"], nil);
}

TEST_F(UIImageTests, OrientationTagsTurnTheImageNotItsPixels) {
  const File photo = withOrientation(encoded(*marked(40, 20), "jpeg"), 6, false);
  UIImage *image = [UIImage imageWithData:data(photo)];
  EXPECT_EQ([image imageOrientation], UIImageOrientationRight);
  EXPECT_TRUE(CGSizeEqualToSize([image size], CGSizeMake(20, 40)));
  EXPECT_EQ(CGImageGetWidth([image CGImage]), 40u);
  const UIImageOrientation expected[] = {UIImageOrientationUp,
                                         UIImageOrientationUpMirrored,
                                         UIImageOrientationDown,
                                         UIImageOrientationDownMirrored,
                                         UIImageOrientationLeftMirrored,
                                         UIImageOrientationRight,
                                         UIImageOrientationRightMirrored,
                                         UIImageOrientationLeft};
  for (int tag = 1; tag <= 8; ++tag) {
    UIImage *tagged = [UIImage imageWithData:data(withOrientation(encoded(*marked(8, 8), "jpeg"), tag, true))];
    EXPECT_EQ([tagged imageOrientation], expected[tag - 1]) << tag;
  }
}

TEST_F(UIImageTests, APngForgetsTheOrientation) {
  UIImage *turned = [UIImage imageWithData:data(withOrientation(encoded(*marked(40, 20), "jpeg"), 6, false))];
  UIImage *again = [UIImage imageWithData:UIImagePNGRepresentation(turned)];
  EXPECT_EQ([again imageOrientation], UIImageOrientationUp);
  EXPECT_TRUE(CGSizeEqualToSize([again size], CGSizeMake(40, 20))) << "the pixels as they are stored";
  EXPECT_GT(at(*pixelsOf(UIImagePNGRepresentation(turned)), 20, 1).green, 150);
}

TEST_F(UIImageTests, IsDrawnAndShownUpright) {
  // Green along the top of the stored pixels, which lies at the right when the picture stands upright.
  UIImage *turned = image(marked(40, 20), 1, UIImageOrientationRight);
  const auto upright = pixelsOf([turned sim_encodedPNGWithLongestSide:0]);
  EXPECT_EQ(upright->width(), 20);
  EXPECT_EQ(upright->height(), 40);
  EXPECT_EQ(at(*upright, 18, 20), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(at(*upright, 2, 2), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*upright, 2, 38), (Pixel{0, 0, 255, 255}));
  const auto picture = drawn(turned, CGRectMake(0, 0, 20, 40), CGSizeMake(20, 40));
  EXPECT_EQ(at(*picture, 18, 20), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(at(*picture, 2, 38), (Pixel{0, 0, 255, 255}));
  EXPECT_TRUE(
      CGSizeEqualToSize([[UIImage imageWithData:UIImageJPEGRepresentation(turned, 0.9)] size], CGSizeMake(20, 40)));
}

TEST_F(UIImageTests, PngKeepsPixelsAndForgetsScale) {
  const auto original =
      bitmap(5, 4, sim::Alpha::straight, [](int x, int y) { return Pixel{x * 50, y * 60, 9, 255 - x * 40}; });
  UIImage *again = [UIImage imageWithData:UIImagePNGRepresentation(image(original, 3))];
  EXPECT_EQ([again scale], 1);
  const auto pixels = sim::sourceOf([again CGImage])->bitmap();
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 5; ++x) EXPECT_EQ(at(*pixels, x, y), at(*original, x, y));
  }
}

TEST_F(UIImageTests, NothingHasNoRepresentation) {
  EXPECT_OBJC_EQ(UIImagePNGRepresentation(nil), nil);
  UIImage *empty = [[[UIImage alloc] init] autorelease];
  EXPECT_TRUE(CGSizeEqualToSize([empty size], CGSizeZero));
  EXPECT_OBJC_EQ(UIImagePNGRepresentation(empty), nil);
  EXPECT_OBJC_EQ(UIImageJPEGRepresentation(empty, 1), nil);
  EXPECT_EQ([empty CGImage], nullptr);
  [empty drawInRect:CGRectMake(0, 0, 5, 5)];
}

TEST_F(UIImageTests, ScalesWhenDrawn) {
  const auto picture = drawn(image(marked(40, 40)), CGRectMake(5, 5, 10, 10), CGSizeMake(20, 20));
  EXPECT_EQ(at(*picture, 7, 13), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*picture, 13, 13), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(at(*picture, 3, 10), (Pixel{0, 0, 0, 0}));
  EXPECT_EQ(at(*picture, 5, 10).alpha, 255) << "sharp at the edge";
  EXPECT_EQ(at(*picture, 15, 10).alpha, 0);
}

TEST_F(UIImageTests, DrawsWithAlphaAndTint) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(4, 4), NO, 1);
  [image(marked(4, 4)) drawInRect:CGRectMake(0, 0, 4, 4) blendMode:kCGBlendModeNormal alpha:0.5];
  UIImage *faint = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  EXPECT_NEAR(at(*sim::sourceOf([faint CGImage])->bitmap(), 0, 3).alpha, 128, 1);

  const auto shape = bitmap(4, 4, sim::Alpha::straight, [](int x, int) { return Pixel{9, 9, 9, x < 2 ? 255 : 0}; });
  UIImage *tinted = [image(shape) imageWithTintColor:[UIColor redColor]];
  EXPECT_EQ(at(*drawn(tinted, CGRectMake(0, 0, 4, 4), CGSizeMake(4, 4)), 0, 0), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*pixelsOf([tinted sim_PNGDataWithLongestSide:0]), 3, 0).alpha, 0);
  EXPECT_EQ(at(*pixelsOf([tinted sim_PNGDataWithLongestSide:0]), 0, 0), (Pixel{255, 0, 0, 255}));
}

TEST_F(UIImageTests, TheBrowserGetsTheFilesOwnBytes) {
  const File file = png(30, 20);
  UIImage *image = [UIImage imageWithData:data(file)];
  EXPECT_OBJC_EQ([image sim_PNGDataWithLongestSide:0], data(file));
  EXPECT_OBJC_EQ([image sim_PNGDataWithLongestSide:30], data(file));
  EXPECT_OBJC_NE([image sim_encodedPNGWithLongestSide:0], data(file));
  EXPECT_EQ(pixelsOf([image sim_encodedPNGWithLongestSide:15])->width(), 15);
  const auto small = pixelsOf([image sim_PNGDataWithLongestSide:15]);
  EXPECT_EQ(small->width(), 15);
  EXPECT_EQ(small->height(), 10);
}

TEST_F(UIImageTests, TheBrowserGetsPhotosUpright) {
  UIImage *photo = [UIImage imageWithData:data(withOrientation(encoded(*marked(200, 100), "jpeg"), 6, false))];
  EXPECT_TRUE(CGSizeEqualToSize([photo sim_pixelSize], CGSizeMake(100, 200)));
  const auto small = pixelsOf([photo sim_PNGDataWithLongestSide:50]);
  EXPECT_EQ(small->width(), 25);
  EXPECT_EQ(small->height(), 50);
}

TEST_F(UIImageTests, ThumbnailsAreMadeOfFiles) {
  const auto thumbnail = [&](NSString *file, NSUInteger side) {
    return [UIImage sim_PNGThumbnailOfFile:file side:side];
  };
  // Stored with green along the top, which lies at the right when the picture stands upright.
  NSString *photo = save(@"/var/photo.jpg", withOrientation(encoded(*marked(400, 200), "jpeg"), 6, false));
  const auto small = pixelsOf(thumbnail(photo, 40));
  EXPECT_EQ(small->width(), 40);
  EXPECT_EQ(small->height(), 40);
  EXPECT_GT(at(*small, 37, 20).green, 150);
  EXPECT_GT(at(*small, 10, 5).red, 150);
  EXPECT_GT(at(*small, 10, 35).blue, 150);
  EXPECT_EQ(pixelsOf(thumbnail(photo, 0))->width(), 1);
  EXPECT_OBJC_EQ(thumbnail(path(@"/var/missing.jpg"), 40), nil);
  EXPECT_OBJC_EQ(thumbnail(nil, 40), nil);
  EXPECT_OBJC_EQ(thumbnail(save(@"/var/damaged.png", pngHeader(40, 40)), 40), nil);
}

TEST_F(UIImageTests, IconsAreMaskedAtTheGivenWidth) {
  UIImage *icon = [[UIImage imageWithData:data(png(120, 120))] sim_iconOfWidth:29];
  EXPECT_NEAR([icon size].width, 29, 0.001);
  EXPECT_NEAR([icon size].height, 29, 0.001);
  EXPECT_EQ(CGImageGetWidth([icon CGImage]), 120u);
  EXPECT_EQ(CGImageGetAlphaInfo([icon CGImage]), kCGImageAlphaPremultipliedLast);
  const auto pixels = pixelsOf([icon sim_PNGDataWithLongestSide:0]);
  EXPECT_EQ(at(*pixels, 0, 0).alpha, 0);
  EXPECT_EQ(at(*pixels, 30, 100), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(at(*pixels, 90, 100), (Pixel{0, 0, 255, 255}));
  EXPECT_OBJC_EQ([icon sim_iconOfWidth:0], nil);
  EXPECT_OBJC_EQ([[[[UIImage alloc] init] autorelease] sim_iconOfWidth:29], nil);
  UIImage *damaged = [[UIImage imageWithData:data(pngHeader(40, 40))] sim_iconOfWidth:29];
  EXPECT_OBJC_EQ([damaged sim_PNGDataWithLongestSide:0], nil);
}

TEST_F(UIImageTests, KeepsTheBytesThatItWasMadeFrom) {
  NSMutableData *bytes = [NSMutableData dataWithData:data(png(30, 20))];
  UIImage *image = [UIImage imageWithData:bytes];
  [bytes resetBytesInRange:NSMakeRange(0, [bytes length])];
  EXPECT_EQ(at(*pixelsOf(UIImagePNGRepresentation(image)), 2, 19), (Pixel{255, 0, 0, 255}));
  @autoreleasepool {
    NSData *file = data(png(8, 8));
    const NSUInteger held = [file retainCount];
    UIImage *other = [[UIImage alloc] initWithData:file];
    EXPECT_EQ([file retainCount], held + 1) << "no second copy of a file of many megabytes";
    [other release];
    EXPECT_EQ([file retainCount], held);
  }
}

TEST_F(UIImageTests, NumbersAreUnique) {
  UIImage *one = image(marked(4, 4));
  UIImage *other = [one imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate];
  EXPECT_NE([one sim_number], [other sim_number]);
  EXPECT_EQ([other renderingMode], UIImageRenderingModeAlwaysTemplate);
  EXPECT_EQ([other CGImage], [one CGImage]);
}

TEST_F(UIImageTests, ImagesOfTheSameBytesHaveTheSameNumber) {
  NSData *red = UIImagePNGRepresentation(image(marked(4, 4)));
  NSData *other = UIImagePNGRepresentation(image(marked(5, 4)));
  UIImage *one = [UIImage imageWithData:red];
  EXPECT_EQ([[UIImage imageWithData:[NSData dataWithData:red]] sim_number], [one sim_number]);
  EXPECT_NE([[UIImage imageWithData:other] sim_number], [one sim_number]);
  EXPECT_NE([[UIImage imageWithData:red scale:2] sim_number], [one sim_number]) << "it is drawn in another size";
  EXPECT_NE([[one imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate] sim_number], [one sim_number]);
}

TEST_F(UIImageTests, BadScalesCountAsOne) {
  EXPECT_EQ([image(marked(4, 4), 0) scale], 1);
  EXPECT_EQ([image(marked(4, 4), -2) scale], 1);
  EXPECT_EQ([image(marked(4, 4), NAN) scale], 1);
}

class UIImageViewTests : public UIImageTests {};

TEST_F(UIImageViewTests, TakesTheImagesSize) {
  UIImageView *view = [[[UIImageView alloc] initWithImage:image(marked(30, 20), 2)] autorelease];
  EXPECT_TRUE(CGRectEqualToRect([view frame], CGRectMake(0, 0, 15, 10)));
  EXPECT_FALSE([view isUserInteractionEnabled]);
  [view setImage:image(marked(100, 100))];
  EXPECT_EQ([view frame].size.width, 15);
  [view sizeToFit];
  EXPECT_EQ([view frame].size.width, 100);
  [view setImage:nil];
  [view sizeToFit];
  EXPECT_EQ([view frame].size.width, 100);
  EXPECT_EQ([view intrinsicContentSize].width, UIViewNoIntrinsicMetric);
}

TEST_F(UIImageViewTests, ReleasesItsImage) {
  UIImageView *view = [[UIImageView alloc] init];
  UIImage *shown = [image(marked(4, 4)) retain];
  [view setImage:shown];
  const NSUInteger held = [shown retainCount];
  [view release];
  EXPECT_EQ([shown retainCount], held - 1);
  [shown release];
}

}  // namespace
