#import <UIKit/UIColor+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UITraitCollection+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

class UIColorTests : public ObjCTest {
 protected:
  void TearDown() override {
    SIMSetUserInterfaceStyle(UIUserInterfaceStyleLight);
    ObjCTest::TearDown();
  }

  UIColor *lightRedDarkBlue() {
    return [UIColor colorWithDynamicProvider:^UIColor *(UITraitCollection *traits) {
      return [traits userInterfaceStyle] == UIUserInterfaceStyleDark ? [UIColor blueColor] : [UIColor redColor];
    }];
  }
};

TEST_F(UIColorTests, ComponentsAreClamped) {
  CGFloat red, green, blue, alpha;
  EXPECT_TRUE([[UIColor colorWithRed:2 green:-1 blue:NAN alpha:0.5] getRed:&red green:&green blue:&blue alpha:&alpha]);
  EXPECT_EQ(red, 1);
  EXPECT_EQ(green, 0);
  EXPECT_EQ(blue, 0);
  EXPECT_EQ(alpha, 0.5);
  EXPECT_TRUE([[UIColor redColor] getRed:nullptr green:nullptr blue:nullptr alpha:nullptr]);
}

TEST_F(UIColorTests, GreyIsGrey) {
  CGFloat white = -1, alpha = -1;
  EXPECT_TRUE([[UIColor grayColor] getWhite:&white alpha:&alpha]);
  EXPECT_EQ(white, 0.5);
  EXPECT_EQ(CGColorGetNumberOfComponents([[UIColor grayColor] CGColor]), 2u);
  EXPECT_EQ(CGColorGetNumberOfComponents([[UIColor redColor] CGColor]), 4u);
  EXPECT_FALSE([[UIColor redColor] getWhite:&white alpha:&alpha]);
  EXPECT_EQ(white, 0.5) << "not written";
}

TEST_F(UIColorTests, HueSaturationBrightnessGoBothWays) {
  CGFloat hue, saturation, brightness, alpha;
  for (const CGFloat expected : {0.0, 1.0 / 6, 0.25, 0.5, 0.75, 0.9}) {
    UIColor *color = [UIColor colorWithHue:expected saturation:0.6 brightness:0.8 alpha:0.4];
    [color getHue:&hue saturation:&saturation brightness:&brightness alpha:&alpha];
    EXPECT_NEAR(hue, expected, 1e-9);
    EXPECT_NEAR(saturation, 0.6, 1e-9);
    EXPECT_NEAR(brightness, 0.8, 1e-9);
    EXPECT_EQ(alpha, 0.4);
  }
  EXPECT_OBJC_EQ([UIColor colorWithHue:0 saturation:1 brightness:1 alpha:1], [UIColor redColor]);
  EXPECT_OBJC_EQ([UIColor colorWithHue:1.0 / 3 saturation:1 brightness:1 alpha:1], [UIColor greenColor]);
}

TEST_F(UIColorTests, Equality) {
  EXPECT_OBJC_EQ([UIColor blackColor], [UIColor colorWithRed:0 green:0 blue:0 alpha:1]);
  EXPECT_OBJC_NE([UIColor redColor], [UIColor blueColor]);
  EXPECT_OBJC_NE([UIColor redColor], [[UIColor redColor] colorWithAlphaComponent:0.5]);
  EXPECT_OBJC_NE([UIColor systemBackgroundColor], [UIColor whiteColor]) << "white only in the light";
  EXPECT_OBJC_EQ(lightRedDarkBlue(), lightRedDarkBlue());
  EXPECT_EQ([[UIColor blackColor] hash], [[UIColor colorWithRed:0 green:0 blue:0 alpha:1] hash]);
  EXPECT_FALSE([[UIColor redColor] isEqual:@"red"]);
}

TEST_F(UIColorTests, DynamicColoursFollowTheAppearance) {
  UIColor *color = lightRedDarkBlue();
  CGFloat red;
  [color getRed:&red green:nullptr blue:nullptr alpha:nullptr];
  EXPECT_EQ(red, 1);
  SIMSetUserInterfaceStyle(UIUserInterfaceStyleDark);
  [color getRed:&red green:nullptr blue:nullptr alpha:nullptr];
  EXPECT_EQ(red, 0);
  EXPECT_EQ(CGColorGetComponents([color CGColor])[2], 1);
  UITraitCollection *light = [UITraitCollection traitCollectionWithUserInterfaceStyle:UIUserInterfaceStyleLight];
  EXPECT_OBJC_EQ([color resolvedColorWithTraitCollection:light], [UIColor redColor]);
}

TEST_F(UIColorTests, ProvidersSeeTheTraitsAsCurrent) {
  UIColor *color = [UIColor colorWithDynamicProvider:^UIColor *(UITraitCollection *traits) {
    (void)traits;
    return [[UITraitCollection currentTraitCollection] userInterfaceStyle] == UIUserInterfaceStyleDark
               ? [UIColor whiteColor]
               : [UIColor systemBackgroundColor];
  }];
  const auto pair = sim::resolved(color);
  EXPECT_EQ(pair.light, (sim::RGBA{1, 1, 1, 1}));
  EXPECT_EQ(pair.dark, (sim::RGBA{1, 1, 1, 1}));
}

TEST_F(UIColorTests, AProviderWithoutAColourIsClear) {
  UIColor *color = [UIColor colorWithDynamicProvider:^UIColor *(UITraitCollection *) {
    return nil;
  }];
  EXPECT_EQ(sim::resolved(color).light, sim::RGBA());
  EXPECT_EQ([color CGColor], nullptr);
  EXPECT_EQ(sim::resolved(nil).dark, sim::RGBA());
}

TEST_F(UIColorTests, SystemColoursArePairs) {
  const auto label = sim::resolved([UIColor labelColor]);
  EXPECT_EQ(label.light, (sim::RGBA{0, 0, 0, 1}));
  EXPECT_EQ(label.dark, (sim::RGBA{1, 1, 1, 1}));
  const auto blue = sim::resolved([UIColor systemBlueColor]);
  EXPECT_DOUBLE_EQ(blue.light.green, 122 / 255.0);
  EXPECT_DOUBLE_EQ(blue.dark.red, 10 / 255.0);
  const auto grouped = sim::resolved([UIColor systemGroupedBackgroundColor]);
  EXPECT_DOUBLE_EQ(grouped.light.blue, 247 / 255.0);
  EXPECT_EQ(grouped.dark, (sim::RGBA{0, 0, 0, 1}));
  EXPECT_DOUBLE_EQ(sim::resolved([UIColor secondaryLabelColor]).light.alpha, 0.6);
}

TEST_F(UIColorTests, AlphaOfADynamicColourStaysDynamic) {
  const auto pair = sim::resolved([lightRedDarkBlue() colorWithAlphaComponent:0.25]);
  EXPECT_EQ(pair.light, (sim::RGBA{1, 0, 0, 0.25}));
  EXPECT_EQ(pair.dark, (sim::RGBA{0, 0, 1, 0.25}));
}

TEST_F(UIColorTests, FromCoreGraphics) {
  EXPECT_OBJC_EQ([UIColor colorWithCGColor:[[UIColor grayColor] CGColor]], [UIColor grayColor]);
  EXPECT_EQ(CGColorGetNumberOfComponents([[UIColor colorWithCGColor:[[UIColor grayColor] CGColor]] CGColor]), 2u);
  EXPECT_OBJC_EQ([UIColor colorWithCGColor:nullptr], [UIColor clearColor]);
}

TEST_F(UIColorTests, ProvidersDieWithTheirColour) {
  int deaths = 0;
  {
    Lifetime *captured = [[Lifetime alloc] initWithCounter:&deaths];
    UIColor *color = [[UIColor alloc] initWithDynamicProvider:^UIColor *(UITraitCollection *) {
      (void)captured;
      return [UIColor redColor];
    }];
    [captured release];
    EXPECT_EQ(deaths, 0);
    [color release];
  }
  drainPool();
  EXPECT_EQ(deaths, 1);
}

class UITraitCollectionTests : public UIColorTests {};

TEST_F(UITraitCollectionTests, FollowTheDevice) {
  UITraitCollection *light = [UITraitCollection currentTraitCollection];
  EXPECT_EQ([light userInterfaceStyle], UIUserInterfaceStyleLight);
  EXPECT_EQ([light userInterfaceIdiom], UIUserInterfaceIdiomPhone);
  EXPECT_EQ([light horizontalSizeClass], UIUserInterfaceSizeClassCompact);
  EXPECT_EQ([light displayScale], 3);
  SIMSetUserInterfaceStyle(UIUserInterfaceStyleDark);
  UITraitCollection *dark = [[UIScreen mainScreen] traitCollection];
  EXPECT_EQ([dark userInterfaceStyle], UIUserInterfaceStyleDark);
  EXPECT_TRUE([dark hasDifferentColorAppearanceComparedToTraitCollection:light]);
  EXPECT_TRUE([dark hasDifferentColorAppearanceComparedToTraitCollection:nil]);
  EXPECT_FALSE([dark hasDifferentColorAppearanceComparedToTraitCollection:dark]);
  EXPECT_OBJC_NE(light, dark);
  SIMSetUserInterfaceStyle(UIUserInterfaceStyleUnspecified);
  EXPECT_OBJC_EQ([UITraitCollection currentTraitCollection], light);
}

TEST_F(UITraitCollectionTests, TheScopeEndsWithAnException) {
  UITraitCollection *dark = [UITraitCollection traitCollectionWithUserInterfaceStyle:UIUserInterfaceStyleDark];
  EXPECT_EQ(raisedBy([&] {
              [UITraitCollection sim_performWithTraitCollection:dark
                                                           body:^{
                                                             [NSException raise:@"Forced" format:@"forced"];
                                                           }];
            }),
            "Forced");
  EXPECT_EQ([[UITraitCollection currentTraitCollection] userInterfaceStyle], UIUserInterfaceStyleLight);
}

}  // namespace
