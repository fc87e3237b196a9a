// Layers in layers, and among views.
#import <UIKit/UIKit.h>
#import <UIKit/UIView+Sim.h>
#import <objcxx/Retained.h>

#import <QuartzCore/CALayer+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <array>
#include <bit>
#include <cmath>

/// Counts what a layer tells its delegate.
@interface LayerWitness : NSObject <CALayerDelegate> {
 @public
  int layouts;
  int drawings;
  int displays;
}
@end

@implementation LayerWitness

- (void)layoutSublayersOfLayer:(CALayer *)layer {
  (void)layer;
  ++layouts;
}

- (void)drawLayer:(CALayer *)layer inContext:(CGContextRef)context {
  ++drawings;
  CGContextSetRGBFillColor(context, 1, 0, 0, 1);
  CGContextFillRect(context, [layer bounds]);
}

@end

@interface GradientView : UIView {
 @public
  int layouts;
}
@end

@implementation GradientView

+ (Class)layerClass {
  return [CAGradientLayer class];
}

- (void)layoutSublayersOfLayer:(CALayer *)layer {
  [super layoutSublayersOfLayer:layer];
  ++layouts;
}

@end

@interface DrawnView : UIView {
 @public
  int drawings;
}
@end

@implementation DrawnView

- (void)drawRect:(CGRect)rect {
  ++drawings;
  [[UIColor greenColor] setFill];
  UIRectFill(CGRectMake(0, 0, rect.size.width / 2, rect.size.height));
}

@end

namespace {

class LayerTreeTests : public ObjCTest {
 protected:
  static CALayer *layer(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    CALayer *made = [CALayer layer];
    [made setFrame:CGRectMake(x, y, width, height)];
    return made;
  }

  /// Red, green, blue and alpha of a pixel of `image`, from its top left corner.
  static std::array<int, 4> pixel(CGImageRef image, size_t x, size_t y) {
    const CFDataRef data = CGDataProviderCopyData(CGImageGetDataProvider(image));
    const auto *bytes = (const std::uint8_t *)[(NSData *)data bytes] + y * CGImageGetBytesPerRow(image) + x * 4;
    const std::array<int, 4> found{bytes[0], bytes[1], bytes[2], bytes[3]};
    CFRelease(data);
    return found;
  }

  /// The layer drawn at one pixel a point.
  static UIImage *drawn(CALayer *layer) {
    UIGraphicsBeginImageContextWithOptions([layer bounds].size, NO, 1);
    [layer renderInContext:UIGraphicsGetCurrentContext()];
    UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
  }

  static std::array<int, 4> drawnPixel(CALayer *layer, size_t x, size_t y) {
    return pixel([drawn(layer) CGImage], x, y);
  }
};

using Pixel = std::array<int, 4>;

TEST_F(LayerTreeTests, ALayerIsPutBetweenTwoAboveTheFirst) {
  CALayer *whole = [CALayer layer], *low = [CALayer layer], *high = [CALayer layer], *between = [CALayer layer];
  [whole addSublayer:low];
  [whole addSublayer:high];
  [whole insertSublayer:between above:low];
  EXPECT_EQ([[whole sublayers] indexOfObject:between], 1u);
}

TEST_F(LayerTreeTests, SublayersKeepTheirOrderAndKnowTheirSuperlayer) {
  CALayer *root = [CALayer layer], *a = [CALayer layer], *b = [CALayer layer], *c = [CALayer layer];
  EXPECT_OBJC_EQ([root sublayers], nil);
  [root addSublayer:a];
  [root addSublayer:c];
  [root insertSublayer:b below:c];
  EXPECT_OBJC_EQ([root sublayers], ([NSArray arrayWithObjects:a, b, c, nil]));
  [root insertSublayer:c atIndex:0];
  [root insertSublayer:a above:b];
  EXPECT_OBJC_EQ([root sublayers], ([NSArray arrayWithObjects:c, b, a, nil]));
  EXPECT_OBJC_EQ([a superlayer], root);
  CALayer *d = [CALayer layer];
  [root replaceSublayer:b with:d];
  EXPECT_OBJC_EQ([root sublayers], ([NSArray arrayWithObjects:c, d, a, nil]));
  EXPECT_OBJC_EQ([b superlayer], nil);
  [d removeFromSuperlayer];
  EXPECT_OBJC_EQ([root sublayers], ([NSArray arrayWithObjects:c, a, nil]));
  [root setSublayers:[NSArray arrayWithObject:b]];
  EXPECT_OBJC_EQ([root sublayers], [NSArray arrayWithObject:b]);
  EXPECT_OBJC_EQ([a superlayer], nil);
  EXPECT_EQ(raisedBy([&] { [b addSublayer:root]; }), "CALayerInvalid");
}

TEST_F(LayerTreeTests, ALayerMovesFromOneSuperlayerToAnother) {
  CALayer *one = [CALayer layer], *other = [CALayer layer], *layer = [CALayer layer];
  [one addSublayer:layer];
  [other setMask:layer];
  EXPECT_OBJC_EQ([one sublayers], nil);
  EXPECT_OBJC_EQ([layer superlayer], other);
  [one addSublayer:layer];
  EXPECT_OBJC_EQ([other mask], nil);
}

TEST_F(LayerTreeTests, ASublayerOutlivesNeitherItsPlaceNorItsSuperlayer) {
  CALayer *layer = [CALayer layer];
  {
    const auto root = objcxx::adopt([[CALayer alloc] init]);
    [root.get() addSublayer:layer];
    [root.get() setMask:[CALayer layer]];
  }
  EXPECT_OBJC_EQ([layer superlayer], nil);
}

TEST_F(LayerTreeTests, SubviewsAndSublayersMix) {
  const auto view = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  const auto first = objcxx::adopt([[UIView alloc] init]), second = objcxx::adopt([[UIView alloc] init]);
  [view.get() addSubview:first.get()];
  CALayer *behind = [CALayer layer], *before = [CALayer layer];
  [[view.get() layer] insertSublayer:behind atIndex:0];
  [[view.get() layer] addSublayer:before];
  [view.get() addSubview:second.get()];
  const auto order = [&] { return [[view.get() layer] sublayers]; };
  CALayer *one = [first.get() layer], *two = [second.get() layer];
  EXPECT_OBJC_EQ(order(), ([NSArray arrayWithObjects:behind, one, before, two, nil]));
  EXPECT_OBJC_EQ([one superlayer], [view.get() layer]);
  [view.get() bringSubviewToFront:first.get()];
  EXPECT_OBJC_EQ(order(), ([NSArray arrayWithObjects:behind, before, two, one, nil]));
  [view.get() insertSubview:first.get() belowSubview:second.get()];
  EXPECT_OBJC_EQ(order(), ([NSArray arrayWithObjects:behind, before, one, two, nil]));
  [second.get() removeFromSuperview];
  EXPECT_OBJC_EQ(order(), ([NSArray arrayWithObjects:behind, before, one, nil]));
  [view.get() addSubview:second.get()];
  [view.get() exchangeSubviewAtIndex:0 withSubviewAtIndex:1];
  EXPECT_OBJC_EQ(order(), ([NSArray arrayWithObjects:behind, before, two, one, nil]));
}

TEST_F(LayerTreeTests, TheGreaterZPositionIsDrawnInFront) {
  CALayer *root = [CALayer layer], *a = [CALayer layer], *b = [CALayer layer], *c = [CALayer layer];
  for (CALayer *each in [NSArray arrayWithObjects:a, b, c, nil]) [root addSublayer:each];
  [a setZPosition:1];
  EXPECT_OBJC_EQ([root sim_sublayersInDrawingOrder], ([NSArray arrayWithObjects:b, c, a, nil]));
  EXPECT_OBJC_EQ([root sublayers], ([NSArray arrayWithObjects:a, b, c, nil]));
}

TEST_F(LayerTreeTests, FrameAndPositionFollowEachOther) {
  CALayer *box = layer(10, 20, 100, 50);
  EXPECT_OBJC_EQ(NSStringFromCGPoint([box position]), NSStringFromCGPoint(CGPointMake(60, 45)));
  [box setAnchorPoint:CGPointMake(0, 0)];
  EXPECT_OBJC_EQ(NSStringFromCGPoint([box position]), NSStringFromCGPoint(CGPointMake(60, 45))) << "the position stays";
  EXPECT_OBJC_EQ(NSStringFromCGRect([box frame]), NSStringFromCGRect(CGRectMake(60, 45, 100, 50)));
  [box setPosition:CGPointMake(1, 2)];
  [box setBounds:CGRectMake(0, 0, 10, 10)];
  EXPECT_OBJC_EQ(NSStringFromCGRect([box frame]), NSStringFromCGRect(CGRectMake(1, 2, 10, 10)));
  [box setAffineTransform:CGAffineTransformMakeScale(2, 3)];
  EXPECT_OBJC_EQ(NSStringFromCGRect([box frame]), NSStringFromCGRect(CGRectMake(1, 2, 20, 30)));
  EXPECT_EQ(raisedBy([&] { [box setPosition:CGPointMake(NAN, 0)]; }), "CALayerInvalidGeometry");
}

TEST_F(LayerTreeTests, PointsAreConvertedThroughTransforms) {
  CALayer *root = layer(0, 0, 100, 100), *box = layer(10, 10, 20, 20), *inner = layer(5, 5, 10, 10);
  [root addSublayer:box];
  [box addSublayer:inner];
  [box setAffineTransform:CGAffineTransformMakeScale(2, 2)];
  EXPECT_OBJC_EQ(NSStringFromCGPoint([inner convertPoint:CGPointZero toLayer:root]),
                 NSStringFromCGPoint(CGPointMake(10, 10)));
  EXPECT_OBJC_EQ(NSStringFromCGPoint([inner convertPoint:CGPointMake(10, 10) fromLayer:root]),
                 NSStringFromCGPoint(CGPointZero));
  EXPECT_OBJC_EQ(NSStringFromCGRect([inner convertRect:CGRectMake(0, 0, 10, 10) toLayer:root]),
                 NSStringFromCGRect(CGRectMake(10, 10, 20, 20)));
  EXPECT_OBJC_EQ([root hitTest:CGPointMake(11, 11)], inner);
  EXPECT_OBJC_EQ([root hitTest:CGPointMake(2, 2)], box);
  [box setHidden:YES];
  EXPECT_OBJC_EQ([root hitTest:CGPointMake(11, 11)], root);
  EXPECT_OBJC_EQ([root hitTest:CGPointMake(101, 11)], nil);
}

TEST_F(LayerTreeTests, AViewsLayerIsWhereItsViewIs) {
  const auto view = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(1, 2, 30, 40)]);
  CALayer *layer = [view.get() layer];
  EXPECT_OBJC_EQ(NSStringFromCGRect([layer frame]), NSStringFromCGRect(CGRectMake(1, 2, 30, 40)));
  [layer setBounds:CGRectMake(0, 0, 10, 10)];
  [layer setPosition:CGPointMake(5, 5)];
  EXPECT_OBJC_EQ(NSStringFromCGRect([view.get() frame]), NSStringFromCGRect(CGRectMake(0, 0, 10, 10)));
  [layer setAnchorPoint:CGPointMake(1, 1)];
  EXPECT_OBJC_EQ(NSStringFromCGRect([view.get() frame]), NSStringFromCGRect(CGRectMake(-5, -5, 10, 10)));
  EXPECT_OBJC_EQ(NSStringFromCGPoint([view.get() center]), NSStringFromCGPoint(CGPointMake(5, 5)));
  [layer setAffineTransform:CGAffineTransformMakeScale(2, 1)];
  EXPECT_TRUE(CGAffineTransformEqualToTransform([view.get() transform], CGAffineTransformMakeScale(2, 1)));
}

TEST_F(LayerTreeTests, AViewOfAnotherLayerClassIsLaidOutByItsLayer) {
  const auto view = objcxx::adopt([[GradientView alloc] initWithFrame:CGRectMake(0, 0, 10, 10)]);
  EXPECT_TRUE([[view.get() layer] isKindOfClass:[CAGradientLayer class]]);
  [view.get() layoutIfNeeded];
  EXPECT_EQ(view.get()->layouts, 1);
  [[view.get() layer] setBounds:CGRectMake(0, 0, 20, 10)];
  [view.get() layoutIfNeeded];
  EXPECT_EQ(view.get()->layouts, 2);
}

TEST_F(LayerTreeTests, TheDelegateLaysOutAndDraws) {
  const auto witness = objcxx::adopt([[LayerWitness alloc] init]);
  CALayer *box = layer(0, 0, 4, 4);
  [box setDelegate:witness.get()];
  [box layoutIfNeeded];
  EXPECT_EQ(witness.get()->layouts, 1);
  [box displayIfNeeded];
  EXPECT_EQ(witness.get()->drawings, 0) << "nothing asked for it";
  [box setNeedsDisplay];
  [box displayIfNeeded];
  [box displayIfNeeded];
  EXPECT_EQ(witness.get()->drawings, 1);
  EXPECT_EQ(pixel((CGImageRef)[box contents], 3, 3), (Pixel{255, 0, 0, 255}));
  [box setDelegate:nil];
}

TEST_F(LayerTreeTests, AViewDrawsItselfOnceAndWhenItIsToldTo) {
  const auto view = objcxx::adopt([[DrawnView alloc] initWithFrame:CGRectMake(0, 0, 4, 2)]);
  const CGFloat scale = [[UIScreen mainScreen] scale];
  CALayer *layer = [view.get() sim_layerIfMade];
  [layer displayIfNeeded];
  [layer displayIfNeeded];
  EXPECT_EQ(view.get()->drawings, 1);
  const auto image = (CGImageRef)[layer contents];
  EXPECT_EQ(CGImageGetWidth(image), size_t(4 * scale));
  EXPECT_EQ(pixel(image, 0, 0), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(pixel(image, size_t(3 * scale), 0), (Pixel{0, 0, 0, 0}));
  [view.get() setNeedsDisplay];
  [layer displayIfNeeded];
  EXPECT_EQ(view.get()->drawings, 2);
  [view.get() setContentMode:UIViewContentModeRedraw];
  [view.get() setFrame:CGRectMake(0, 0, 8, 2)];
  [layer displayIfNeeded];
  EXPECT_EQ(view.get()->drawings, 3);
}

TEST_F(LayerTreeTests, APlainViewHasNoContentsOfItsOwn) {
  const auto view = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 4, 2)]);
  [[view.get() layer] setNeedsDisplay];
  [[view.get() layer] displayIfNeeded];
  EXPECT_OBJC_EQ([[view.get() layer] contents], nil);
}

TEST_F(LayerTreeTests, AMaskLeavesWhatItCovers) {
  CALayer *box = layer(0, 0, 4, 4), *mask = layer(2, 0, 2, 4);
  [box setBackgroundColor:[[UIColor redColor] CGColor]];
  [mask setBackgroundColor:[[UIColor blackColor] CGColor]];
  [box setMask:mask];
  EXPECT_EQ(drawnPixel(box, 0, 0), (Pixel{0, 0, 0, 0}));
  EXPECT_EQ(drawnPixel(box, 3, 0), (Pixel{255, 0, 0, 255}));
}

TEST_F(LayerTreeTests, DrawnIntoAContextALayerShowsWhatLiesInIt) {
  CALayer *box = layer(0, 0, 8, 8), *inner = layer(4, 4, 8, 8);
  [box setBackgroundColor:[[UIColor whiteColor] CGColor]];
  [box setBorderWidth:1];
  [inner setBackgroundColor:[[UIColor blueColor] CGColor]];
  [box addSublayer:inner];
  EXPECT_EQ(drawnPixel(box, 0, 0), (Pixel{0, 0, 0, 255}));
  EXPECT_EQ(drawnPixel(box, 2, 2), (Pixel{255, 255, 255, 255}));
  EXPECT_EQ(drawnPixel(box, 5, 5), (Pixel{0, 0, 255, 255}));
  [inner setOpacity:0.5];
  EXPECT_NEAR(drawnPixel(box, 5, 5)[0], 127, 1);
  [inner setAffineTransform:CGAffineTransformMakeTranslation(-4, -4)];
  EXPECT_NEAR(drawnPixel(box, 2, 2)[0], 127, 1);
  [inner setHidden:YES];
  EXPECT_EQ(drawnPixel(box, 5, 5), (Pixel{255, 255, 255, 255}));
}

TEST_F(LayerTreeTests, ContentsLieAsTheirGravitySays) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(2, 2), YES, 1);
  const auto picture = objcxx::share(UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  CALayer *box = layer(0, 0, 8, 4);
  [box setContents:(id)[picture.get() CGImage]];
  EXPECT_EQ(drawnPixel(box, 7, 3)[3], 255) << "stretched";
  [box setContentsGravity:kCAGravityResizeAspect];
  EXPECT_EQ(drawnPixel(box, 0, 0)[3], 0);
  EXPECT_EQ(drawnPixel(box, 2, 0)[3], 255);
  [box setContentsGravity:kCAGravityBottomLeft];
  EXPECT_EQ(drawnPixel(box, 1, 1)[3], 255) << "its y axis points up";
  EXPECT_EQ(drawnPixel(box, 1, 3)[3], 0);
  [box setContentsGravity:kCAGravityCenter];
  EXPECT_EQ(drawnPixel(box, 3, 1)[3], 255);
  EXPECT_EQ(drawnPixel(box, 1, 1)[3], 0);
  [box setContents:@"no image"];
  EXPECT_EQ(drawnPixel(box, 3, 1)[3], 0);
}

TEST_F(LayerTreeTests, AViewIsDrawnWithItsTextsAndPictures) {
  const auto view = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 40, 20)]);
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 40, 20)]);
  [label.get() setText:@"\u2588\u2588\u2588\u2588"];
  [label.get() setTextColor:[UIColor redColor]];
  [view.get() addSubview:label.get()];
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(40, 20), NO, 1);
  EXPECT_TRUE([view.get() drawViewHierarchyInRect:CGRectMake(0, 0, 40, 20) afterScreenUpdates:YES]);
  const Pixel middle = pixel([UIGraphicsGetImageFromCurrentImageContext() CGImage], 10, 10);
  UIGraphicsEndImageContext();
  EXPECT_EQ(middle, (Pixel{255, 0, 0, 255}));
  EXPECT_FALSE([view.get() drawViewHierarchyInRect:CGRectMake(0, 0, 40, 20) afterScreenUpdates:YES]);
}

TEST_F(LayerTreeTests, PathsBelowTheTransformKeepItsPerspectiveAndItsOtherTurns) {
  CALayer *box = layer(0, 0, 10, 10);
  const auto valueAt = [&](NSString *path) { return [[box valueForKeyPath:path] doubleValue]; };
  const auto set = [&](NSString *path, double value) {
    [box setValue:[NSNumber numberWithDouble:value] forKeyPath:path];
  };
  const auto expectTransform = [&](const CATransform3D &expected) {
    const auto numbersOf = [](const CATransform3D &t) { return std::bit_cast<std::array<CGFloat, 16>>(t); };
    for (std::size_t at = 0; at < 16; ++at) {
      EXPECT_NEAR(numbersOf([box transform])[at], numbersOf(expected)[at], 1e-9) << at;
    }
  };
  CATransform3D perspective = CATransform3DIdentity;
  perspective.m34 = -0.002;
  [box setTransform:perspective];
  set(@"transform.rotation.z", 0.5);
  expectTransform(CATransform3DRotate(perspective, 0.5, 0, 0, 1));
  set(@"transform.rotation.x", 0.25);
  set(@"transform.translation.z", 40);
  set(@"transform.scale.y", 3);
  CATransform3D expected = CATransform3DTranslate(perspective, 0, 0, 40);
  expected = CATransform3DRotate(expected, 0.5, 0, 0, 1);
  expected = CATransform3DRotate(expected, 0.25, 1, 0, 0);
  expectTransform(CATransform3DScale(expected, 1, 3, 1));
  EXPECT_NEAR(valueAt(@"transform.rotation.z"), 0.5, 1e-9);
  EXPECT_NEAR(valueAt(@"transform.rotation.x"), 0.25, 1e-9);
  EXPECT_NEAR(valueAt(@"transform.rotation.y"), 0, 1e-9);
  EXPECT_NEAR(valueAt(@"transform.scale.y"), 3, 1e-9);

  for (NSString *path in @[ @"transform.rotation.x", @"transform.rotation.y", @"transform.rotation.z" ]) {
    for (const double angle : {-3.0, -2.0, -0.5, 1.0, 2.5, M_PI_2, M_PI}) {
      [box setTransform:perspective];
      set(path, angle);
      EXPECT_NEAR(std::abs(valueAt(path)), std::abs(angle), 1e-9) << [path UTF8String];
      if (angle != M_PI) EXPECT_NEAR(valueAt(path), angle, 1e-9) << [path UTF8String];
    }
  }

  [box setTransform:CATransform3DScale(CATransform3DMakeRotation(0.5, 0, 0, 1), 2, -3, 1)];
  EXPECT_NEAR(valueAt(@"transform.scale.y"), -3, 1e-9);
  EXPECT_NEAR(valueAt(@"transform.rotation.z"), 0.5, 1e-9);
  set(@"transform.rotation.z", 0);
  expectTransform(CATransform3DMakeScale(2, -3, 1));
  set(@"transform.scale", 0);
  expectTransform(CATransform3DMakeScale(0, 0, 0));
  set(@"transform.scale", 1);
  expectTransform(CATransform3DIdentity);
}

TEST_F(LayerTreeTests, ValuesAreFoundUnderKeysAndPaths) {
  CALayer *box = layer(0, 0, 10, 10);
  [box setValue:[NSNumber numberWithDouble:30] forKeyPath:@"position.x"];
  EXPECT_OBJC_EQ(NSStringFromCGPoint([box position]), NSStringFromCGPoint(CGPointMake(30, 5)));
  EXPECT_EQ([[box valueForKeyPath:@"bounds.size.width"] doubleValue], 10);
  [box setValue:[NSNumber numberWithDouble:2] forKeyPath:@"transform.scale"];
  [box setValue:[NSNumber numberWithDouble:M_PI_2] forKeyPath:@"transform.rotation.z"];
  EXPECT_NEAR([box affineTransform].b, 2, 1e-9);
  EXPECT_NEAR([box affineTransform].a, 0, 1e-9);
  EXPECT_NEAR([[box valueForKeyPath:@"transform.scale.x"] doubleValue], 2, 1e-9);
  [box setValue:(id)[[UIColor redColor] CGColor] forKey:@"backgroundColor"];
  EXPECT_TRUE(CGColorEqualToColor([box backgroundColor], [[UIColor redColor] CGColor]));
  [box setValue:[NSNumber numberWithDouble:0.25] forKey:@"opacity"];
  EXPECT_EQ([box opacity], 0.25f);
  [box setValue:@"kept" forKey:@"ofMyOwn"];
  EXPECT_OBJC_EQ([box valueForKey:@"ofMyOwn"], @"kept");
  EXPECT_OBJC_EQ([box valueForKey:@"unknown"], nil);
}

}  // namespace
