#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CoreGraphics.h>

#import "support/objc/ObjCTest.h"

#include "support/images/TestImages.hpp"

namespace {

using namespace test_images;

constexpr Pixel kClear{0, 0, 0, 0};
constexpr Pixel kRed{255, 0, 0, 255};
constexpr Pixel kBlue{0, 0, 255, 255};

class CGContextTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    context_ = sim::createImageContext(CGSizeMake(20, 20), 1, false);
  }
  void TearDown() override {
    CGContextRelease(context_);
    ObjCTest::TearDown();
  }

  Pixel pixel(int x, int y) const { return at(*sim::snapshot(context_), x, y); }

  CGContextRef context_ = nullptr;
};

TEST_F(CGContextTests, OpensInPixels) {
  const CGContextRef context = sim::createImageContext(CGSizeMake(10, 5.1), 3, true);
  const auto picture = sim::snapshot(context);
  EXPECT_EQ(picture->width(), 30);
  EXPECT_EQ(picture->height(), 16);
  EXPECT_EQ(picture->alpha(), sim::Alpha::ignored);
  EXPECT_EQ(at(*picture, 0, 0), (Pixel{0, 0, 0, 255}));
  CGContextRelease(context);
  EXPECT_EQ(sim::createImageContext(CGSizeMake(0, 5), 1, false), nullptr);
  EXPECT_EQ(sim::createImageContext(CGSizeMake(-4, 5), 1, false), nullptr);
  EXPECT_EQ(sim::createImageContext(CGSizeMake(NAN, 5), 1, false), nullptr);
  EXPECT_EQ(sim::createImageContext(CGSizeMake(1e6, 1e6), 1, false), nullptr);
}

TEST_F(CGContextTests, FillsAndStrokesInTheirOwnColours) {
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  CGContextSetRGBStrokeColor(context_, 0, 0, 1, 1);
  CGContextSetLineWidth(context_, 2);
  CGContextAddRect(context_, CGRectMake(5, 5, 10, 10));
  CGContextDrawPath(context_, kCGPathFillStroke);
  EXPECT_EQ(pixel(10, 10), kRed);
  EXPECT_EQ(pixel(5, 10), kBlue);
  EXPECT_EQ(pixel(4, 10), kBlue);
  EXPECT_EQ(pixel(2, 10), kClear);
  CGContextFillPath(context_);
  EXPECT_EQ(pixel(5, 10), kBlue) << "drawing consumed the path";
}

TEST_F(CGContextTests, SavesAndRestoresWhatDecidesDrawing) {
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  CGContextSaveGState(context_);
  CGContextSetRGBFillColor(context_, 0, 0, 1, 1);
  CGContextTranslateCTM(context_, 10, 0);
  CGContextClipToRect(context_, CGRectMake(0, 0, 5, 5));
  CGContextFillRect(context_, CGRectMake(0, 0, 10, 10));
  CGContextRestoreGState(context_);
  EXPECT_EQ(pixel(12, 2), kBlue);
  EXPECT_EQ(pixel(12, 8), kClear);
  CGContextFillRect(context_, CGRectMake(0, 0, 5, 20));
  EXPECT_EQ(pixel(2, 15), kRed);
  CGContextRestoreGState(context_);
  CGContextFillRect(context_, CGRectMake(18, 18, 2, 2));
  EXPECT_EQ(pixel(19, 19), kRed);
}

TEST_F(CGContextTests, AlphaMultiplies) {
  CGContextSetAlpha(context_, 0.5);
  CGContextSetRGBFillColor(context_, 1, 0, 0, 0.5);
  CGContextFillRect(context_, CGRectMake(0, 0, 20, 20));
  const Pixel faint = pixel(3, 3);
  EXPECT_NEAR(faint.alpha, 64, 1);
  EXPECT_NEAR(faint.red, 64, 1) << "premultiplied";
}

TEST_F(CGContextTests, BlendModesStayWithinTheirShape) {
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  CGContextFillRect(context_, CGRectMake(0, 0, 20, 20));
  CGContextClearRect(context_, CGRectMake(0, 0, 5, 5));
  EXPECT_EQ(pixel(2, 2), kClear);
  EXPECT_EQ(pixel(10, 10), kRed);
  CGContextSetBlendMode(context_, kCGBlendModeSourceIn);
  CGContextSetRGBFillColor(context_, 0, 0, 1, 1);
  CGContextFillRect(context_, CGRectMake(0, 0, 10, 10));
  EXPECT_EQ(pixel(2, 2), kClear);
  EXPECT_EQ(pixel(7, 7), kBlue);
  EXPECT_EQ(pixel(15, 15), kRed) << "untouched outside the shape";
}

TEST_F(CGContextTests, ClipsToEllipses) {
  CGContextAddEllipseInRect(context_, CGRectMake(0, 0, 20, 20));
  CGContextClip(context_);
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  CGContextFillRect(context_, CGRectMake(0, 0, 20, 20));
  EXPECT_EQ(pixel(0, 0), kClear);
  EXPECT_EQ(pixel(10, 10), kRed);
}

TEST_F(CGContextTests, DrawsImagesUpsideDown) {
  const CGImageRef image = sim::createImage(sim::sourceOf(marked(20, 20)));
  CGContextSetInterpolationQuality(context_, kCGInterpolationNone);
  CGContextDrawImage(context_, CGRectMake(0, 0, 20, 20), image);
  EXPECT_EQ(pixel(2, 18), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(pixel(2, 2), kRed);
  EXPECT_EQ(pixel(18, 2), kBlue);
  CGImageRelease(image);
}

TEST_F(CGContextTests, TransformsWithoutAnInverseAreIgnored) {
  CGContextScaleCTM(context_, 0, 1);
  CGContextScaleCTM(context_, NAN, 1);
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  CGContextFillRect(context_, CGRectMake(0, 0, 20, 20));
  EXPECT_EQ(pixel(10, 10), kRed);
}

TEST_F(CGContextTests, RectanglesLeaveTheCurrentPathAlone) {
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  CGContextMoveToPoint(context_, 0, 0);
  CGContextAddLineToPoint(context_, 10, 0);
  CGContextAddLineToPoint(context_, 10, 10);
  CGContextFillRect(context_, CGRectMake(15, 15, 5, 5));
  CGContextAddLineToPoint(context_, 0, 10);
  CGContextClosePath(context_);
  CGContextFillPath(context_);
  EXPECT_EQ(pixel(2, 8), kRed);
  EXPECT_EQ(pixel(17, 17), kRed);
}

TEST_F(CGContextTests, DashesLeaveGaps) {
  const CGFloat dashes[] = {4, 4};
  CGContextSetLineWidth(context_, 4);
  CGContextSetLineDash(context_, 0, dashes, 2);
  CGContextMoveToPoint(context_, 0, 10);
  CGContextAddLineToPoint(context_, 20, 10);
  CGContextStrokePath(context_);
  EXPECT_EQ(pixel(2, 10).alpha, 255);
  EXPECT_EQ(pixel(6, 10).alpha, 0);
}

TEST_F(CGContextTests, NoContextIsHarmless) {
  CGContextSaveGState(nullptr);
  CGContextRestoreGState(nullptr);
  CGContextSetAlpha(nullptr, 1);
  CGContextAddRect(nullptr, CGRectMake(0, 0, 1, 1));
  CGContextFillRect(nullptr, CGRectMake(0, 0, 1, 1));
  CGContextClip(nullptr);
  CGContextTranslateCTM(nullptr, 1, 1);
  CGContextDrawImage(nullptr, CGRectMake(0, 0, 1, 1), nullptr);
  EXPECT_EQ(sim::snapshot(nullptr), nullptr);
}

TEST_F(CGContextTests, LinesRectanglesAndArcs) {
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  const CGRect rects[] = {CGRectMake(0, 0, 3, 3), CGRectMake(10, 10, 3, 3)};
  CGContextFillRects(context_, rects, 2);
  EXPECT_EQ(pixel(1, 1), kRed);
  EXPECT_EQ(pixel(11, 11), kRed);
  EXPECT_EQ(pixel(6, 6), kClear);
  CGContextSetRGBStrokeColor(context_, 0, 0, 1, 1);
  CGContextSetLineWidth(context_, 2);
  const CGPoint points[] = {{0, 18}, {4, 18}, {12, 18}, {16, 18}};
  CGContextStrokeLineSegments(context_, points, 4);
  EXPECT_EQ(pixel(2, 18), kBlue);
  EXPECT_EQ(pixel(8, 18), kClear) << "not from the second to the third";
  CGContextStrokeRectWithWidth(context_, CGRectMake(5, 1, 6, 6), 4);
  EXPECT_EQ(pixel(4, 4), kBlue);
  EXPECT_TRUE(CGContextIsPathEmpty(context_));
  CGContextMoveToPoint(context_, 0, 0);
  CGContextAddArcToPoint(context_, 20, 0, 20, 20, 10);
  CGContextAddQuadCurveToPoint(context_, 20, 20, 0, 20);
  EXPECT_FALSE(CGContextIsPathEmpty(context_));
  EXPECT_TRUE(CGPointEqualToPoint(CGContextGetPathCurrentPoint(context_), CGPointMake(0, 20)));
  CGContextFillPath(context_);
  EXPECT_EQ(pixel(19, 0), kClear) << "round";
  EXPECT_EQ(pixel(14, 5), kRed);
}

TEST_F(CGContextTests, TellsItsClipAndItsTransform) {
  CGContextClipToRect(context_, CGRectMake(4, 5, 6, 7));
  EXPECT_TRUE(CGRectEqualToRect(CGContextGetClipBoundingBox(context_), CGRectMake(4, 5, 6, 7)));
  CGContextTranslateCTM(context_, 3, 4);
  const CGAffineTransform transform = CGContextGetCTM(context_);
  EXPECT_TRUE(CGAffineTransformEqualToTransform(transform, CGAffineTransformMake(1, 0, 0, -1, 3, 16)))
      << "from the bottom left, downwards";
  EXPECT_TRUE(CGAffineTransformIsIdentity(CGContextGetCTM(nullptr)));
}

TEST_F(CGContextTests, EdgesAreSharpWithoutSmoothing) {
  CGContextSetShouldAntialias(context_, false);
  CGContextSetRGBFillColor(context_, 1, 0, 0, 1);
  CGContextFillRect(context_, CGRectMake(0, 0, 5.6, 5));
  EXPECT_EQ(pixel(5, 2), kRed);
  EXPECT_EQ(pixel(6, 2), kClear);
}

}  // namespace
