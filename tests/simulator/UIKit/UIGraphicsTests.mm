#import <CoreGraphics/CGImage+Sim.h>
#import <UIKit/UIKit.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

#include <numbers>

namespace {

using namespace test_images;

constexpr Pixel kClear{0, 0, 0, 0};
constexpr Pixel kRed{255, 0, 0, 255};

sim::BitmapPtr pixelsOf(UIImage *image) { return sim::sourceOf([image CGImage])->bitmap(); }

class UIGraphicsTests : public ObjCTest {
 protected:
  void TearDown() override {
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr) << "a test left a context open";
    ObjCTest::TearDown();
  }

  /// What `draw` draws in 20 × 20 points at scale 1.
  template <typename Draw>
  sim::BitmapPtr drawing(Draw draw) {
    UIGraphicsBeginImageContextWithOptions(CGSizeMake(20, 20), NO, 1);
    [[UIColor redColor] set];
    draw();
    UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return pixelsOf(image);
  }
};

TEST_F(UIGraphicsTests, ScaleZeroIsTheScreens) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(10, 10), NO, 0);
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  EXPECT_EQ([image scale], 3);
  EXPECT_TRUE(CGSizeEqualToSize([image size], CGSizeMake(10, 10)));
  EXPECT_EQ(CGImageGetWidth([image CGImage]), 30u);
  EXPECT_EQ(CGImageGetAlphaInfo([image CGImage]), kCGImageAlphaPremultipliedLast);
}

TEST_F(UIGraphicsTests, OpaqueContextsHaveNoAlpha) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(2, 2), YES, 1);
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  EXPECT_EQ(CGImageGetAlphaInfo([image CGImage]), kCGImageAlphaNoneSkipLast);
  EXPECT_EQ(at(*pixelsOf(image), 0, 0), (Pixel{0, 0, 0, 255}));
}

TEST_F(UIGraphicsTests, ContextsNest) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(4, 4), NO, 1);
  const CGContextRef outer = UIGraphicsGetCurrentContext();
  UIGraphicsBeginImageContext(CGSizeMake(2, 2));
  EXPECT_NE(UIGraphicsGetCurrentContext(), outer);
  EXPECT_EQ(CGImageGetWidth([UIGraphicsGetImageFromCurrentImageContext() CGImage]), 2u);
  UIGraphicsEndImageContext();
  EXPECT_EQ(UIGraphicsGetCurrentContext(), outer);
  UIGraphicsPushContext(outer);
  UIGraphicsEndImageContext();
  EXPECT_EQ(UIGraphicsGetCurrentContext(), outer) << "the pushed one is popped, not ended";
  UIGraphicsPopContext();
  UIGraphicsPopContext();
  EXPECT_EQ(UIGraphicsGetCurrentContext(), outer);
  UIGraphicsEndImageContext();
}

TEST_F(UIGraphicsTests, AnImageIsAsItWasWhenItWasTaken) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(2, 2), NO, 1);
  UIImage *before = UIGraphicsGetImageFromCurrentImageContext();
  [[UIColor redColor] setFill];
  UIRectFill(CGRectMake(0, 0, 2, 2));
  UIImage *after = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  EXPECT_EQ(at(*pixelsOf(before), 0, 0), kClear);
  EXPECT_EQ(at(*pixelsOf(after), 0, 0), kRed);
}

TEST_F(UIGraphicsTests, WithoutAContextNothingHappens) {
  EXPECT_OBJC_EQ(UIGraphicsGetImageFromCurrentImageContext(), nil);
  UIGraphicsEndImageContext();
  UIGraphicsPopContext();
  UIRectFill(CGRectMake(0, 0, 1, 1));
  UIRectFrame(CGRectMake(0, 0, 1, 1));
  UIRectClip(CGRectMake(0, 0, 1, 1));
  [[UIColor redColor] set];
  [[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 1, 1)] fill];
  [[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 1, 1)] stroke];
  [[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 1, 1)] addClip];
}

TEST_F(UIGraphicsTests, ContextsWithoutAreaDrawNowhere) {
  for (const CGSize size : {CGSizeZero, CGSizeMake(-1, 5), CGSizeMake(1e7, 1e7), CGSizeMake(NAN, 1)}) {
    UIGraphicsBeginImageContextWithOptions(size, NO, 1);
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
    UIRectFill(CGRectMake(0, 0, 1, 1));
    EXPECT_OBJC_EQ(UIGraphicsGetImageFromCurrentImageContext(), nil);
    UIGraphicsEndImageContext();
  }
}

TEST_F(UIGraphicsTests, RectanglesOfAllKinds) {
  const auto framed = drawing([] { UIRectFrame(CGRectMake(2, 2, 10, 10)); });
  EXPECT_EQ(at(*framed, 2, 2), kRed);
  EXPECT_EQ(at(*framed, 11, 11), kRed);
  EXPECT_EQ(at(*framed, 5, 5), kClear);
  const auto clipped = drawing([] {
    UIRectClip(CGRectMake(0, 0, 5, 5));
    UIRectFill(CGRectMake(0, 0, 20, 20));
  });
  EXPECT_EQ(at(*clipped, 4, 4), kRed);
  EXPECT_EQ(at(*clipped, 5, 5), kClear);
}

TEST_F(UIGraphicsTests, ARoundedClipCutsTheCorners) {
  const auto picture = marked(60, 60);
  const CGImageRef pixels = sim::createImage(sim::sourceOf(picture));
  UIImage *icon = [UIImage imageWithCGImage:pixels scale:3 orientation:UIImageOrientationUp];
  CGImageRelease(pixels);
  UIGraphicsBeginImageContextWithOptions([icon size], NO, 0);
  [[UIBezierPath bezierPathWithRoundedRect:CGRectMake(0, 0, 20, 20) cornerRadius:6] addClip];
  [icon drawInRect:CGRectMake(0, 0, 20, 20)];
  UIImage *rounded = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  const auto result = pixelsOf(rounded);
  ASSERT_EQ(result->width(), 60);
  for (const int x : {0, 59}) {
    for (const int y : {0, 59}) EXPECT_EQ(at(*result, x, y), kClear) << x << ',' << y;
  }
  EXPECT_EQ(at(*result, 18, 0), (Pixel{0, 255, 0, 255})) << "where the curve ends";
  EXPECT_EQ(at(*result, 0, 30), kRed);
  EXPECT_EQ(at(*result, 59, 30), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(at(*result, 6, 6).alpha, 255) << "inside the curve";
  EXPECT_EQ(at(*result, 4, 4).alpha, 0) << "outside the curve";
}

class UIBezierPathTests : public UIGraphicsTests {};

TEST_F(UIBezierPathTests, RoundsTheCornersAskedFor) {
  UIBezierPath *path = [UIBezierPath bezierPathWithRoundedRect:CGRectMake(0, 0, 20, 20)
                                             byRoundingCorners:UIRectCornerTopLeft | UIRectCornerBottomRight
                                                   cornerRadii:CGSizeMake(8, 8)];
  const auto picture = drawing([&] { [path fill]; });
  EXPECT_EQ(at(*picture, 0, 0), kClear);
  EXPECT_EQ(at(*picture, 19, 0), kRed);
  EXPECT_EQ(at(*picture, 0, 19), kRed);
  EXPECT_EQ(at(*picture, 19, 19), kClear);
}

TEST_F(UIBezierPathTests, ARadiusBeyondHalfIsCut) {
  UIBezierPath *path = [UIBezierPath bezierPathWithRoundedRect:CGRectMake(0, 0, 20, 10) cornerRadius:1000];
  EXPECT_TRUE([path containsPoint:CGPointMake(10, 0.5)]);
  EXPECT_FALSE([path containsPoint:CGPointMake(0.5, 0.5)]);
  EXPECT_NEAR([path bounds].size.width, 20, 0.01);
  UIBezierPath *square = [UIBezierPath bezierPathWithRoundedRect:CGRectMake(0, 0, 20, 10) cornerRadius:-3];
  EXPECT_TRUE([square containsPoint:CGPointMake(0.1, 0.1)]);
}

TEST_F(UIBezierPathTests, OvalsLinesAndCurves) {
  const auto oval = drawing([] { [[UIBezierPath bezierPathWithOvalInRect:CGRectMake(0, 0, 20, 20)] fill]; });
  EXPECT_EQ(at(*oval, 10, 10), kRed);
  EXPECT_EQ(at(*oval, 1, 1), kClear);
  UIBezierPath *triangle = [UIBezierPath bezierPath];
  [triangle moveToPoint:CGPointMake(0, 0)];
  [triangle addLineToPoint:CGPointMake(20, 0)];
  [triangle addQuadCurveToPoint:CGPointMake(0, 20) controlPoint:CGPointMake(0, 0)];
  [triangle closePath];
  const auto picture = drawing([&] { [triangle fill]; });
  EXPECT_EQ(at(*picture, 2, 2), kRed);
  EXPECT_EQ(at(*picture, 15, 15), kClear);
  UIBezierPath *line = [UIBezierPath bezierPath];
  [line addLineToPoint:CGPointMake(5, 5)];
  EXPECT_TRUE([line isEmpty]) << "no current point";
}

TEST_F(UIBezierPathTests, StrokesWithItsOwnWidth) {
  UIBezierPath *line = [UIBezierPath bezierPath];
  [line moveToPoint:CGPointMake(0, 10)];
  [line addLineToPoint:CGPointMake(20, 10)];
  [line setLineWidth:6];
  const auto picture = drawing([&] { [line stroke]; });
  EXPECT_EQ(at(*picture, 10, 7), kRed);
  EXPECT_EQ(at(*picture, 10, 12), kRed);
  EXPECT_EQ(at(*picture, 10, 14), kClear);
}

TEST_F(UIBezierPathTests, EvenOddLeavesHoles) {
  UIBezierPath *ring = [UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 20, 20)];
  [ring appendPath:[UIBezierPath bezierPathWithRect:CGRectMake(5, 5, 10, 10)]];
  [ring setUsesEvenOddFillRule:YES];
  EXPECT_EQ(at(*drawing([&] { [ring fill]; }), 10, 10), kClear);
  EXPECT_EQ(at(*drawing([&] {
              [ring addClip];
              UIRectFill(CGRectMake(0, 0, 20, 20));
            }),
               10, 10),
            kClear);
  [ring setUsesEvenOddFillRule:NO];
  EXPECT_EQ(at(*drawing([&] { [ring fill]; }), 10, 10), kRed);
}

TEST_F(UIBezierPathTests, ArcsAreClockwiseAsSeen) {
  UIBezierPath *quarter = [UIBezierPath bezierPathWithArcCenter:CGPointMake(10, 10)
                                                         radius:8
                                                     startAngle:0
                                                       endAngle:std::numbers::pi / 2
                                                      clockwise:YES];
  EXPECT_NEAR([quarter currentPoint].y, 18, 1e-9);
  EXPECT_NEAR([quarter bounds].size.width, 8, 0.05);
}

TEST_F(UIBezierPathTests, CopiesAndTransforms) {
  UIBezierPath *path = [UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 4, 4)];
  UIBezierPath *copy = [[path copy] autorelease];
  [copy applyTransform:CGAffineTransformMakeTranslation(10, 0)];
  EXPECT_EQ([path bounds].origin.x, 0);
  EXPECT_EQ([copy bounds].origin.x, 10);
  EXPECT_EQ([[UIBezierPath bezierPathWithCGPath:[copy CGPath]] bounds].origin.x, 10);
  [copy removeAllPoints];
  EXPECT_TRUE([copy isEmpty]);
  EXPECT_TRUE(CGRectIsNull([copy bounds]));
}

TEST_F(UIBezierPathTests, DashesLeaveGaps) {
  UIBezierPath *line = [UIBezierPath bezierPath];
  [line moveToPoint:CGPointMake(0, 10)];
  [line addLineToPoint:CGPointMake(20, 10)];
  [line setLineWidth:4];
  const CGFloat pattern[] = {5, 3};
  [line setLineDash:pattern count:2 phase:2];
  const auto picture = drawing([&] { [[[line copy] autorelease] stroke]; });
  EXPECT_EQ(at(*picture, 1, 10), kRed);
  EXPECT_EQ(at(*picture, 4, 10), kClear) << "a dash of 5, of which 2 are gone";
  EXPECT_EQ(at(*picture, 7, 10), kRed);
  CGFloat lengths[2] = {0, 0}, phase = 0;
  NSInteger count = 0;
  [line getLineDash:lengths count:&count phase:&phase];
  EXPECT_EQ(count, 2);
  EXPECT_EQ(lengths[1], 3);
  EXPECT_EQ(phase, 2);
  [line getLineDash:nullptr count:nullptr phase:nullptr];
  [line setLineDash:nullptr count:7 phase:0];
  EXPECT_EQ(at(*drawing([&] { [line stroke]; }), 4, 10), kRed);
}

TEST_F(UIBezierPathTests, ReversedItGoesBackTheSameWay) {
  UIBezierPath *path = [UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 20, 20)];
  UIBezierPath *inner = [UIBezierPath bezierPathWithOvalInRect:CGRectMake(5, 5, 10, 10)];
  [path appendPath:inner];
  EXPECT_EQ(at(*drawing([&] { [path fill]; }), 10, 10), kRed) << "both go the same way round";
  [path removeAllPoints];
  [path appendPath:[UIBezierPath bezierPathWithRect:CGRectMake(0, 0, 20, 20)]];
  [path appendPath:[inner bezierPathByReversingPath]];
  EXPECT_EQ(at(*drawing([&] { [path fill]; }), 10, 10), kClear) << "which leaves a hole";
  UIBezierPath *open = [UIBezierPath bezierPath];
  [open moveToPoint:CGPointMake(1, 2)];
  [open addLineToPoint:CGPointMake(3, 4)];
  [open addQuadCurveToPoint:CGPointMake(9, 9) controlPoint:CGPointMake(5, 5)];
  [open setLineWidth:7];
  UIBezierPath *back = [open bezierPathByReversingPath];
  EXPECT_EQ([back currentPoint].x, 1);
  EXPECT_EQ([back lineWidth], 7);
  EXPECT_TRUE(CGRectEqualToRect([back bounds], [open bounds]));
  EXPECT_TRUE([[[UIBezierPath bezierPath] bezierPathByReversingPath] isEmpty]);
  UIBezierPath *curve = [UIBezierPath bezierPath];
  [curve moveToPoint:CGPointZero];
  [curve addCurveToPoint:CGPointMake(10, 10) controlPoint1:CGPointMake(1, 9) controlPoint2:CGPointMake(8, 2)];
  UIBezierPath *expected = [UIBezierPath bezierPath];
  [expected moveToPoint:CGPointMake(10, 10)];
  [expected addCurveToPoint:CGPointZero controlPoint1:CGPointMake(8, 2) controlPoint2:CGPointMake(1, 9)];
  EXPECT_TRUE(CGPathEqualToPath([[curve bezierPathByReversingPath] CGPath], [expected CGPath]));
  const auto triangle = [](CGPoint first, CGPoint last) {
    UIBezierPath *made = [UIBezierPath bezierPath];
    [made moveToPoint:first];
    [made addLineToPoint:CGPointMake(10, 0)];
    [made addLineToPoint:last];
    [made closePath];
    return made;
  };
  UIBezierPath *closed = [triangle(CGPointZero, CGPointMake(10, 10)) bezierPathByReversingPath];
  EXPECT_TRUE(CGPathEqualToPath([closed CGPath], [triangle(CGPointMake(10, 10), CGPointZero) CGPath]));
}

class UIGraphicsImageRendererTests : public UIGraphicsTests {};

TEST_F(UIGraphicsImageRendererTests, DrawsInABlock) {
  UIGraphicsImageRendererFormat *format = [UIGraphicsImageRendererFormat defaultFormat];
  EXPECT_EQ([format scale], 3);
  [format setScale:2];
  UIGraphicsImageRenderer *renderer = [[[UIGraphicsImageRenderer alloc] initWithSize:CGSizeMake(10, 10)
                                                                              format:format] autorelease];
  [format setScale:1];
  UIImage *image = [renderer imageWithActions:^(UIGraphicsImageRendererContext *context) {
    EXPECT_EQ([context CGContext], UIGraphicsGetCurrentContext());
    [[UIColor redColor] setFill];
    [context fillRect:CGRectMake(0, 0, 5, 10)];
  }];
  EXPECT_EQ([image scale], 2);
  EXPECT_EQ(at(*pixelsOf(image), 9, 9), kRed);
  EXPECT_EQ(at(*pixelsOf(image), 10, 10), kClear);
  NSData *png = [renderer PNGDataWithActions:nil];
  EXPECT_TRUE(CGSizeEqualToSize([[UIImage imageWithData:png] size], CGSizeMake(20, 20)));
}

TEST_F(UIGraphicsImageRendererTests, TheFormatIsACopy) {
  EXPECT_EQ([UIGraphicsImageRenderer superclass], [UIGraphicsRenderer class]);
  UIGraphicsImageRendererFormat *format = [UIGraphicsImageRendererFormat preferredFormat];
  [format setOpaque:YES];
  UIGraphicsRenderer *renderer = [[[UIGraphicsImageRenderer alloc] initWithSize:CGSizeMake(1, 1)
                                                                         format:format] autorelease];
  UIGraphicsImageRendererFormat *own = [renderer format];
  EXPECT_NE(own, format);
  EXPECT_TRUE([own isKindOfClass:[UIGraphicsImageRendererFormat class]]);
  EXPECT_EQ([own scale], 3);
  EXPECT_TRUE([own opaque]);
}

TEST_F(UIGraphicsImageRendererTests, TheContextEndsWithAnException) {
  UIGraphicsImageRenderer *renderer = [[[UIGraphicsImageRenderer alloc] initWithSize:CGSizeMake(5, 5)] autorelease];
  EXPECT_EQ(raisedBy([&] {
              [renderer imageWithActions:^(UIGraphicsImageRendererContext *) {
                [NSException raise:@"Forced" format:@"forced"];
              }];
            }),
            "Forced");
}

TEST_F(UIGraphicsImageRendererTests, NoAreaIsNoImage) {
  UIGraphicsImageRenderer *renderer = [[[UIGraphicsImageRenderer alloc] initWithSize:CGSizeZero] autorelease];
  UIImage *image = [renderer imageWithActions:^(UIGraphicsImageRendererContext *context) {
    [context fillRect:CGRectMake(0, 0, 1, 1)];
  }];
  EXPECT_OBJC_EQ(image, nil);
}

}  // namespace
