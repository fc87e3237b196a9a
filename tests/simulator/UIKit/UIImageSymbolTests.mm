// Symbols by name, their sizes and weights, and how views show them.
#import <CoreGraphics/CGImage+Sim.h>
#import <UIKit/UIImage+Sim.h>
#import <UIKit/UIImageView+Sim.h>
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>
#import <UIKit/UIScreen+Sim.h>
#import <objcxx/Retained.h>

#include <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;

class UIImageSymbolTests : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
  }
  void TearDown() override {
    SIMSetMainScreen(CGSizeMake(390, 844), 3);
    DeviceTest::TearDown();
  }

  UIImage *circle(UIImageConfiguration *configuration = nil) {
    return [UIImage systemImageNamed:@"circle.fill" withConfiguration:configuration];
  }
  CGFloat widthOf(UIImageConfiguration *configuration) { return [circle(configuration) size].width; }
  UIImageSymbolConfiguration *points(CGFloat size) {
    return [UIImageSymbolConfiguration configurationWithPointSize:size];
  }
  /// The pixel in the middle.
  Pixel middle(UIImage *image) {
    UIGraphicsBeginImageContextWithOptions([image size], NO, 1);
    [image drawAtPoint:CGPointZero];
    UIImage *drawn = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    const auto bitmap = sim::sourceOf([drawn CGImage])->bitmap();
    return at(*bitmap, bitmap->width() / 2, bitmap->height() / 2);
  }
};

TEST_F(UIImageSymbolTests, AreFoundByName) {
  UIImage *star = [UIImage systemImageNamed:@"star.fill"];
  EXPECT_OBJC_NE(star, nil);
  EXPECT_TRUE([star isSymbolImage]);
  EXPECT_EQ([star renderingMode], UIImageRenderingModeAutomatic);
  EXPECT_OBJC_NE([UIImage systemImageNamed:@"square.and.arrow.up"], nil);
  for (NSString *name in @[ @"", @"no.such.symbol", @"star_fill", @"search", @"Star.fill", @"star..fill", @"☃" ])
    EXPECT_OBJC_EQ([UIImage systemImageNamed:name], nil);
  EXPECT_OBJC_EQ([UIImage systemImageNamed:nil], nil);
}

TEST_F(UIImageSymbolTests, OtherImagesAreNoSymbols) {
  UIImage *plain = [UIImage imageWithCGImage:[circle() CGImage]];
  EXPECT_FALSE([plain isSymbolImage]);
  EXPECT_OBJC_EQ([plain symbolConfiguration], nil);
  EXPECT_OBJC_EQ([plain configuration], nil);
  EXPECT_OBJC_EQ([plain imageByApplyingSymbolConfiguration:points(40)], plain);
  UIImage *configured = [plain imageWithConfiguration:points(40)];
  EXPECT_OBJC_EQ([configured configuration], points(40));
  EXPECT_OBJC_EQ([configured symbolConfiguration], nil);
  EXPECT_TRUE(CGSizeEqualToSize([configured size], [plain size]));
}

TEST_F(UIImageSymbolTests, AreAsLargeAsBodyTextAndSharpOnTheScreen) {
  UIImage *image = circle();
  EXPECT_EQ([image scale], 3);
  EXPECT_NEAR([image size].width, 20, 0.5);
  EXPECT_NEAR([image size].height, 19, 0.5);
  EXPECT_EQ([image sim_pixelSize].width, [image size].width * 3);
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  EXPECT_EQ([circle() scale], 2);
  EXPECT_NEAR([circle() size].width, 20, 0.5);
}

TEST_F(UIImageSymbolTests, FollowTheirConfiguration) {
  EXPECT_NEAR(widthOf(points(34)), 2 * widthOf(nil), 0.7);
  EXPECT_EQ(widthOf(points(17)), widthOf(nil));
  for (CGFloat bad : {0.0, -5.0, CGFloat(NAN), CGFloat(INFINITY)}) EXPECT_EQ(widthOf(points(bad)), widthOf(nil));
  EXPECT_OBJC_EQ(circle(points(1e7)), nil);

  const auto scaled = [&](UIImageSymbolScale scale) {
    return widthOf([UIImageSymbolConfiguration configurationWithScale:scale]);
  };
  EXPECT_EQ(scaled(UIImageSymbolScaleMedium), widthOf(nil));
  EXPECT_EQ(scaled(UIImageSymbolScaleDefault), widthOf(nil));
  EXPECT_LT(scaled(UIImageSymbolScaleSmall), 0.9 * widthOf(nil));
  EXPECT_GT(scaled(UIImageSymbolScaleLarge), 1.2 * widthOf(nil));

  EXPECT_EQ(widthOf([UIImageSymbolConfiguration configurationWithTextStyle:UIFontTextStyleTitle1]),
            widthOf(points(28)));
  EXPECT_EQ(widthOf([UIImageSymbolConfiguration configurationWithFont:[UIFont systemFontOfSize:28]]),
            widthOf(points(28)));
  EXPECT_EQ(widthOf([UIImageSymbolConfiguration configurationWithTextStyle:UIFontTextStyleBody
                                                                     scale:UIImageSymbolScaleLarge]),
            scaled(UIImageSymbolScaleLarge));
  EXPECT_EQ(widthOf([UIImageSymbolConfiguration configurationWithTextStyle:UIFontTextStyleHeadline]),
            widthOf([UIImageSymbolConfiguration configurationWithWeight:UIImageSymbolWeightSemibold]));
  CGFloat last = 0;
  for (NSInteger weight = UIImageSymbolWeightRegular; weight <= UIImageSymbolWeightBlack; ++weight) {
    const CGFloat width = widthOf([UIImageSymbolConfiguration configurationWithPointSize:200
                                                                                  weight:UIImageSymbolWeight(weight)]);
    EXPECT_GT(width, last) << weight;
    last = width;
  }
}

TEST_F(UIImageSymbolTests, ConfigurationsAreLaidOverEachOther) {
  UIImageSymbolConfiguration *all = [UIImageSymbolConfiguration configurationWithPointSize:30
                                                                                    weight:UIImageSymbolWeightBold
                                                                                     scale:UIImageSymbolScaleLarge];
  EXPECT_OBJC_EQ([all configurationByApplyingConfiguration:[UIImageSymbolConfiguration unspecifiedConfiguration]], all);
  EXPECT_OBJC_EQ([all configurationByApplyingConfiguration:nil], all);
  EXPECT_OBJC_EQ([[UIImageSymbolConfiguration unspecifiedConfiguration] configurationByApplyingConfiguration:all], all);
  EXPECT_OBJC_EQ([points(20) configurationByApplyingConfiguration:points(30)], points(30));
  EXPECT_OBJC_EQ([[points(30) configurationByApplyingConfiguration:[UIImageSymbolConfiguration
                                                                       configurationWithWeight:UIImageSymbolWeightBold]]
                     configurationByApplyingConfiguration:[UIImageSymbolConfiguration
                                                              configurationWithScale:UIImageSymbolScaleLarge]],
                 all);
  UIImageSymbolConfiguration *style = [UIImageSymbolConfiguration configurationWithTextStyle:UIFontTextStyleTitle1];
  EXPECT_OBJC_EQ([style configurationByApplyingConfiguration:points(12)], points(12));
  EXPECT_OBJC_EQ([points(12) configurationByApplyingConfiguration:style], style);

  EXPECT_OBJC_EQ([[all configurationWithoutScale] configurationWithoutPointSizeAndWeight],
                 [UIImageSymbolConfiguration unspecifiedConfiguration]);
  EXPECT_OBJC_EQ([[all configurationWithoutWeight] configurationWithoutScale], points(30));
  EXPECT_OBJC_EQ([style configurationWithoutTextStyle], [UIImageSymbolConfiguration unspecifiedConfiguration]);
  EXPECT_TRUE([points(12) isEqualToConfiguration:points(12)]);
  EXPECT_FALSE([points(12) isEqualToConfiguration:points(13)]);
  EXPECT_FALSE([points(12) isEqualToConfiguration:nil]);
  EXPECT_OBJC_NE(all, [all configurationWithoutWeight]);
  EXPECT_OBJC_NE(all, [all configurationWithoutScale]);
  EXPECT_OBJC_NE(style, [UIImageSymbolConfiguration unspecifiedConfiguration]);
}

TEST_F(UIImageSymbolTests, TraitsAreKeptAndDecideTheScale) {
  UITraitCollection *traits = [UITraitCollection currentTraitCollection];
  EXPECT_EQ([traits displayScale], 3);
  SIMSetMainScreen(CGSizeMake(820, 1180), 2);
  UIImageConfiguration *sharp = [points(20) configurationWithTraitCollection:traits];
  EXPECT_OBJC_EQ([sharp traitCollection], traits);
  EXPECT_OBJC_NE(sharp, points(20));
  EXPECT_EQ([circle(sharp) scale], 3);
  EXPECT_EQ([circle(points(20)) scale], 2);
  UIImage *compatible = [UIImage systemImageNamed:@"circle" compatibleWithTraitCollection:traits];
  EXPECT_EQ([compatible scale], 3);
  EXPECT_TRUE([[compatible configuration] isKindOfClass:[UIImageSymbolConfiguration class]]);
  EXPECT_EQ([[circle(points(20)) imageWithConfiguration:[compatible configuration]] scale], 3);
}

TEST_F(UIImageSymbolTests, AnImageCanBeConfiguredAnew) {
  UIImage *image = [circle(points(20)) imageWithTintColor:[UIColor redColor]
                                            renderingMode:UIImageRenderingModeAlwaysOriginal];
  UIImage *larger = [image imageByApplyingSymbolConfiguration:points(40)];
  EXPECT_EQ([larger size].width, widthOf(points(40)));
  EXPECT_EQ([larger renderingMode], UIImageRenderingModeAlwaysOriginal);
  EXPECT_EQ(middle(larger), (Pixel{255, 0, 0, 255})) << "what else it has stays";
  UIImageSymbolConfiguration *bold = [UIImageSymbolConfiguration configurationWithWeight:UIImageSymbolWeightBold];
  EXPECT_GT([[circle(points(40)) imageByApplyingSymbolConfiguration:bold] size].width, widthOf(points(40)));
  EXPECT_EQ([[circle(points(40)) imageWithConfiguration:bold] size].width, widthOf(bold)) << "in place of the size";
  EXPECT_OBJC_EQ([[circle(points(40)) imageByApplyingSymbolConfiguration:bold] symbolConfiguration],
                 [points(40) configurationByApplyingConfiguration:bold]);
}

TEST_F(UIImageSymbolTests, AreBlackUntilTheyAreTinted) {
  EXPECT_EQ(middle(circle()), (Pixel{0, 0, 0, 255}));
  EXPECT_EQ(middle([circle() imageWithTintColor:[UIColor redColor]]), (Pixel{255, 0, 0, 255}));
}

TEST_F(UIImageSymbolTests, AreTemplatesUnlessTheyAreToBeOriginal) {
  EXPECT_TRUE([circle() sim_isTemplate]);
  EXPECT_TRUE([[circle() imageWithTintColor:[UIColor redColor]] sim_isTemplate]);
  EXPECT_FALSE([[circle() imageWithRenderingMode:UIImageRenderingModeAlwaysOriginal] sim_isTemplate]);
  UIImage *plain = [UIImage imageWithCGImage:[circle() CGImage]];
  EXPECT_FALSE([plain sim_isTemplate]);
  EXPECT_TRUE([[plain imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate] sim_isTemplate]);
}

TEST_F(UIImageSymbolTests, OnePictureIsOneToTheBrowser) {
  EXPECT_EQ([circle() sim_number], [circle(points(17)) sim_number]);
  EXPECT_NE([circle() sim_number], [circle(points(18)) sim_number]);
  EXPECT_NE([circle() sim_number], [[UIImage systemImageNamed:@"circle"] sim_number]);
  EXPECT_NE([circle() sim_number], [[circle() imageWithTintColor:[UIColor redColor]] sim_number]);
}

TEST_F(UIImageSymbolTests, AnImageViewSaysWhatAnImageLeavesOpen) {
  const auto view = objcxx::adopt([[UIImageView alloc] initWithImage:circle()]);
  EXPECT_EQ([view.get() intrinsicContentSize].width, widthOf(nil));
  [view.get() setPreferredSymbolConfiguration:points(40)];
  EXPECT_OBJC_EQ([view.get() preferredSymbolConfiguration], points(40));
  EXPECT_EQ([view.get() intrinsicContentSize].width, widthOf(points(40)));
  EXPECT_EQ([view.get() sizeThatFits:CGSizeZero].width, widthOf(points(40)));
  EXPECT_EQ([[view.get() image] size].width, widthOf(nil)) << "the image stays as it is";
  EXPECT_EQ([[view.get() sim_shownImage] size].width, widthOf(points(40)));
  [view.get() setImage:circle(points(25))];
  EXPECT_EQ([[view.get() sim_shownImage] size].width, widthOf(points(25)));
  [view.get() setHighlightedImage:circle()];
  [view.get() setHighlighted:YES];
  EXPECT_EQ([[view.get() sim_shownImage] size].width, widthOf(points(40)));
}

TEST_F(UIImageSymbolTests, WeightsAndFontWeightsAreEachOthers) {
  EXPECT_EQ(UIFontWeightForImageSymbolWeight(UIImageSymbolWeightBold), UIFontWeightBold);
  EXPECT_EQ(UIFontWeightForImageSymbolWeight(UIImageSymbolWeightUnspecified), UIFontWeightRegular);
  EXPECT_EQ(UIImageSymbolWeightForFontWeight(UIFontWeightUltraLight), UIImageSymbolWeightUltraLight);
  EXPECT_EQ(UIImageSymbolWeightForFontWeight(UIFontWeightBlack + 1), UIImageSymbolWeightBlack);
  EXPECT_EQ(UIImageSymbolWeightForFontWeight(UIFontWeightMedium + 0.01), UIImageSymbolWeightMedium);
}

}  // namespace
