// Gradients, shapes and texts.
#import <CoreGraphics/CGPath+Sim.h>
#import <QuartzCore/CAGradientLayer+Sim.h>
#import <QuartzCore/CAShapeLayer+Sim.h>
#import <UIKit/UIKit.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

class LayerKindsTests : public ObjCTest {
 protected:
  /// Red, green, blue and alpha of the layer's pixel, drawn at one pixel a point.
  static std::array<int, 4> pixel(CALayer *layer, size_t x, size_t y) {
    UIGraphicsBeginImageContextWithOptions([layer bounds].size, NO, 1);
    [layer renderInContext:UIGraphicsGetCurrentContext()];
    const CGImageRef image = [UIGraphicsGetImageFromCurrentImageContext() CGImage];
    const CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider(image));
    const auto *bytes = (const std::uint8_t *)[(NSData *)data bytes] + y * CGImageGetBytesPerRow(image) + x * 4;
    const std::array<int, 4> found{bytes[0], bytes[1], bytes[2], bytes[3]};
    CFRelease(data);
    UIGraphicsEndImageContext();
    return found;
  }

  static CAGradientLayer *gradient(CGFloat width, CGFloat height) {
    CAGradientLayer *layer = [CAGradientLayer layer];
    [layer setFrame:CGRectMake(0, 0, width, height)];
    [layer
        setColors:[NSArray arrayWithObjects:(id)[[UIColor redColor] CGColor], (id)[[UIColor blueColor] CGColor], nil]];
    return layer;
  }
};

TEST_F(LayerKindsTests, AGradientRunsDownwardsUntilItIsToldOtherwise) {
  CAGradientLayer *layer = gradient(10, 100);
  EXPECT_GT(pixel(layer, 5, 1)[0], 245);
  EXPECT_GT(pixel(layer, 5, 98)[2], 245);
  EXPECT_NEAR(pixel(layer, 5, 50)[0], 127, 4);
  [layer setLocations:[NSArray arrayWithObjects:[NSNumber numberWithInt:0], [NSNumber numberWithDouble:0.25], nil]];
  EXPECT_EQ(pixel(layer, 5, 30)[2], 255);
  [layer setStartPoint:CGPointMake(0, 0.5)];
  [layer setEndPoint:CGPointMake(1, 0.5)];
  EXPECT_EQ(pixel(layer, 9, 1)[2], 255);
}

TEST_F(LayerKindsTests, RadialAndConicGradientsBeginAtTheirCentre) {
  CAGradientLayer *layer = gradient(100, 100);
  [layer setType:kCAGradientLayerRadial];
  [layer setStartPoint:CGPointMake(0.5, 0.5)];
  [layer setEndPoint:CGPointMake(1, 1)];
  EXPECT_GT(pixel(layer, 50, 50)[0], 245);
  EXPECT_GT(pixel(layer, 99, 50)[2], 245);
  [layer setType:kCAGradientLayerConic];
  [layer setEndPoint:CGPointMake(0.5, 0)];
  EXPECT_GT(pixel(layer, 52, 5)[0], 240) << "right of twelve o'clock it begins";
  EXPECT_GT(pixel(layer, 47, 5)[2], 240) << "left of it it ends";
  EXPECT_NEAR(pixel(layer, 50, 95)[0], 127, 6);
}

TEST_F(LayerKindsTests, PlacesOfAGradientGrow) {
  CAGradientLayer *layer = gradient(1, 1);
  [layer setLocations:[NSArray arrayWithObjects:[NSNumber numberWithDouble:0.8], [NSNumber numberWithDouble:0.2], nil]];
  const auto stops = sim::stopsOf(layer);
  EXPECT_EQ(stops[1].place, 0.8);
  [layer setColors:[NSArray arrayWithObject:(id)[[UIColor redColor] CGColor]]];
  EXPECT_TRUE(sim::stopsOf(layer).empty());
}

TEST_F(LayerKindsTests, AShapeIsFilledAndStroked) {
  CAShapeLayer *layer = [CAShapeLayer layer];
  [layer setFrame:CGRectMake(0, 0, 20, 20)];
  const CGPathRef square = CGPathCreateWithRect(CGRectMake(4, 4, 12, 12), nullptr);
  [layer setPath:square];
  CGPathRelease(square);
  EXPECT_EQ(pixel(layer, 10, 10), (std::array{0, 0, 0, 255})) << "black until set";
  EXPECT_EQ(pixel(layer, 1, 1)[3], 0);
  [layer setFillColor:nullptr];
  [layer setStrokeColor:[[UIColor redColor] CGColor]];
  [layer setLineWidth:4];
  EXPECT_EQ(pixel(layer, 4, 10), (std::array{255, 0, 0, 255}));
  EXPECT_EQ(pixel(layer, 10, 10)[3], 0);
  [layer setStrokeEnd:0.25];
  EXPECT_EQ(pixel(layer, 10, 4)[3], 255);
  EXPECT_EQ(pixel(layer, 10, 15)[3], 0);
  [layer setStrokeEnd:1];
  [layer setLineDashPattern:[NSArray arrayWithObjects:[NSNumber numberWithInt:4], [NSNumber numberWithInt:4], nil]];
  EXPECT_EQ(pixel(layer, 6, 4)[3], 255);
  EXPECT_EQ(pixel(layer, 10, 4)[3], 0);
}

TEST_F(LayerKindsTests, APartOfAPathHasItsShareOfTheLength) {
  sim::Path path;
  path.rect({0, 0, 10, 10});
  const sim::Path part = path.part(0.125, 0.5);
  EXPECT_EQ(part.svg(), "M5 0L10 0L10 10");
  EXPECT_TRUE(path.part(0.5, 0.5).empty());
  EXPECT_EQ(path.part(0, 1).svg(), "M0 0L10 0L10 10L0 10L0 0");
  sim::Path two;
  two.move({0, 0});
  two.line({10, 0});
  two.move({0, 5});
  two.line({10, 5});
  EXPECT_EQ(two.part(0.25, 0.75).svg(), "M5 0L10 0M0 5L5 5");
}

TEST_F(LayerKindsTests, ATextLayerDrawsItsText) {
  CATextLayer *layer = [CATextLayer layer];
  [layer setFrame:CGRectMake(0, 0, 60, 20)];
  [layer setFontSize:20];
  [layer setString:@"\u2588"];
  const auto inked = [&](size_t x) { return pixel(layer, x, 10)[3] > 200; };
  EXPECT_TRUE(inked(3));
  EXPECT_EQ(pixel(layer, 3, 10)[0], 255) << "white until set";
  EXPECT_FALSE(inked(56));
  [layer setFont:(CFTypeRef)[UIFont systemFontOfSize:4]];
  EXPECT_TRUE(inked(3)) << "the size is the layer's, not the font's";
  [layer setAlignmentMode:kCAAlignmentRight];
  EXPECT_TRUE(inked(56));
  EXPECT_FALSE(inked(3));
  [layer setForegroundColor:[[UIColor redColor] CGColor]];
  EXPECT_EQ(pixel(layer, 56, 10)[1], 0);
}

}  // namespace
