#import <CoreGraphics/CoreGraphics.h>

#import "support/objc/ObjCTest.h"

#include <numbers>

namespace {

class CGPathTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    path_ = CGPathCreateMutable();
  }
  void TearDown() override {
    CGPathRelease(path_);
    ObjCTest::TearDown();
  }

  CGMutablePathRef path_ = nullptr;
};

TEST_F(CGPathTests, StartsEmpty) {
  EXPECT_TRUE(CGPathIsEmpty(path_));
  EXPECT_TRUE(CGRectIsNull(CGPathGetBoundingBox(path_)));
  EXPECT_TRUE(CGRectIsNull(CGPathGetPathBoundingBox(path_)));
  EXPECT_FALSE(CGPathContainsPoint(path_, nullptr, CGPointZero, false));
}

TEST_F(CGPathTests, LinesNeedACurrentPoint) {
  CGPathAddLineToPoint(path_, nullptr, 5, 5);
  CGPathAddQuadCurveToPoint(path_, nullptr, 1, 1, 2, 2);
  CGPathCloseSubpath(path_);
  EXPECT_TRUE(CGPathIsEmpty(path_));
  CGPathMoveToPoint(path_, nullptr, 1, 2);
  CGPathAddLineToPoint(path_, nullptr, 5, 5);
  EXPECT_EQ(CGPathGetCurrentPoint(path_).x, 5);
  CGPathCloseSubpath(path_);
  EXPECT_EQ(CGPathGetCurrentPoint(path_).x, 1);
}

TEST_F(CGPathTests, BoxesWithAndWithoutControlPoints) {
  CGPathMoveToPoint(path_, nullptr, 0, 0);
  CGPathAddQuadCurveToPoint(path_, nullptr, 5, 10, 10, 0);
  EXPECT_NEAR(CGPathGetPathBoundingBox(path_).size.height, 5, 0.05);
  EXPECT_GT(CGPathGetBoundingBox(path_).size.height, 6);
}

TEST_F(CGPathTests, EvenOddAndWinding) {
  CGPathAddRect(path_, nullptr, CGRectMake(0, 0, 30, 30));
  CGPathAddRect(path_, nullptr, CGRectMake(10, 10, 10, 10));
  EXPECT_TRUE(CGPathContainsPoint(path_, nullptr, CGPointMake(15, 15), false));
  EXPECT_FALSE(CGPathContainsPoint(path_, nullptr, CGPointMake(15, 15), true));
  EXPECT_TRUE(CGPathContainsPoint(path_, nullptr, CGPointMake(5, 5), true));
  const CGAffineTransform moved = CGAffineTransformMakeTranslation(100, 0);
  EXPECT_TRUE(CGPathContainsPoint(path_, &moved, CGPointMake(105, 5), true));
}

TEST_F(CGPathTests, RoundedCorners) {
  CGPathAddRoundedRect(path_, nullptr, CGRectMake(0, 0, 100, 50), 20, 10);
  EXPECT_FALSE(CGPathContainsPoint(path_, nullptr, CGPointMake(2, 1), false));
  EXPECT_TRUE(CGPathContainsPoint(path_, nullptr, CGPointMake(20, 1), false));
  EXPECT_TRUE(CGPathContainsPoint(path_, nullptr, CGPointMake(1, 10), false));
  const CGRect box = CGPathGetPathBoundingBox(path_);
  EXPECT_NEAR(box.size.width, 100, 0.01);
  EXPECT_NEAR(box.size.height, 50, 0.01);
}

TEST_F(CGPathTests, ArcsGoBothWays) {
  CGPathAddArc(path_, nullptr, 0, 0, 10, 0, std::numbers::pi / 2, false);
  EXPECT_NEAR(CGPathGetCurrentPoint(path_).y, 10, 1e-9);
  EXPECT_NEAR(CGPathGetPathBoundingBox(path_).size.width, 10, 0.05);
  const CGMutablePathRef long_way = CGPathCreateMutable();
  CGPathAddArc(long_way, nullptr, 0, 0, 10, 0, std::numbers::pi / 2, true);
  EXPECT_NEAR(CGPathGetPathBoundingBox(long_way).size.width, 20, 0.05);
  CGPathAddArc(long_way, nullptr, 0, 0, 10, 0, 1e300, false);
  CGPathAddArc(long_way, nullptr, 0, 0, 10, 0, NAN, false);
  EXPECT_NEAR(CGPathGetPathBoundingBox(long_way).size.width, 20, 0.05);
  CGPathRelease(long_way);
}

TEST_F(CGPathTests, CopiesAreIndependentAndEqual) {
  CGPathAddEllipseInRect(path_, nullptr, CGRectMake(0, 0, 10, 20));
  const CGMutablePathRef copy = CGPathCreateMutableCopy(path_);
  EXPECT_TRUE(CGPathEqualToPath(path_, copy));
  CGPathAddRect(copy, nullptr, CGRectMake(0, 0, 1, 1));
  EXPECT_FALSE(CGPathEqualToPath(path_, copy));
  CGPathAddPath(copy, nullptr, copy);
  EXPECT_FALSE(CGPathIsEmpty(copy));
  CFRelease(copy);
}

TEST_F(CGPathTests, AnArcRoundsACorner) {
  CGPathMoveToPoint(path_, nullptr, 0, 0);
  CGPathAddArcToPoint(path_, nullptr, 20, 0, 20, 20, 5);
  EXPECT_NEAR(CGPathGetCurrentPoint(path_).x, 20, 1e-9);
  EXPECT_NEAR(CGPathGetCurrentPoint(path_).y, 5, 1e-9);
  CGPathAddLineToPoint(path_, nullptr, 20, 20);
  CGPathAddLineToPoint(path_, nullptr, 0, 20);
  CGPathCloseSubpath(path_);
  EXPECT_FALSE(CGPathContainsPoint(path_, nullptr, CGPointMake(19.5, 0.5), false)) << "cut off";
  EXPECT_TRUE(CGPathContainsPoint(path_, nullptr, CGPointMake(18, 2), false));
  EXPECT_NEAR(CGPathGetPathBoundingBox(path_).size.width, 20, 1e-6);
}

TEST_F(CGPathTests, WithoutACornerThereIsALine) {
  for (const CGFloat radius : {CGFloat(0), CGFloat(-1), CGFloat(5)}) {
    const CGMutablePathRef path = CGPathCreateMutable();
    CGPathMoveToPoint(path, nullptr, 0, 0);
    CGPathAddArcToPoint(path, nullptr, 10, 0, radius > 0 ? 20 : 10, radius > 0 ? 0 : 10, radius);
    EXPECT_TRUE(CGPointEqualToPoint(CGPathGetCurrentPoint(path), CGPointMake(10, 0))) << radius;
    CGPathRelease(path);
  }
  CGPathAddArcToPoint(path_, nullptr, 1, 1, 2, 2, 3);
  EXPECT_TRUE(CGPathIsEmpty(path_)) << "no current point";
}

TEST_F(CGPathTests, ElementsAreToldInOrder) {
  const CGPoint points[] = {{1, 2}, {3, 4}};
  CGPathAddLines(path_, nullptr, points, 2);
  CGPathAddCurveToPoint(path_, nullptr, 5, 5, 6, 6, 7, 8);
  CGPathCloseSubpath(path_);
  NSMutableArray *told = [NSMutableArray array];
  CGPathApply(path_, told, [](void *info, const CGPathElement *element) {
    const CGPoint point = element->points[element->type == kCGPathElementAddCurveToPoint ? 2 : 0];
    [(NSMutableArray *)info addObject:[NSString stringWithFormat:@"%d %g", int(element->type), point.x]];
  });
  EXPECT_TRUE([[told componentsJoinedByString:@", "] isEqualToString:@"0 1, 1 3, 3 7, 4 0"])
      << [[told componentsJoinedByString:@", "] UTF8String];
}

TEST_F(CGPathTests, RelativeArcsRectanglesAndTransforms) {
  CGPathAddRelativeArc(path_, nullptr, 0, 0, 10, 0, std::numbers::pi / 2);
  EXPECT_NEAR(CGPathGetCurrentPoint(path_).y, 10, 1e-9);
  CGPathAddRelativeArc(path_, nullptr, 0, 0, 10, std::numbers::pi / 2, -std::numbers::pi / 2);
  EXPECT_NEAR(CGPathGetCurrentPoint(path_).x, 10, 1e-9);
  EXPECT_NEAR(CGPathGetPathBoundingBox(path_).size.width, 10, 0.05) << "back the short way";
  const CGRect rects[] = {CGRectMake(0, 0, 2, 2), CGRectMake(20, 20, 2, 2)};
  const CGMutablePathRef both = CGPathCreateMutable();
  CGPathAddRects(both, nullptr, rects, 2);
  const CGAffineTransform moved = CGAffineTransformMakeTranslation(100, 0);
  const CGPathRef copy = CGPathCreateCopyByTransformingPath(both, &moved);
  EXPECT_TRUE(CGRectEqualToRect(CGPathGetBoundingBox(copy), CGRectMake(100, 0, 22, 22)));
  EXPECT_EQ(CGPathCreateCopyByTransformingPath(nullptr, &moved), nullptr);
  CGPathRelease(copy);
  CGPathRelease(both);
}

TEST_F(CGPathTests, NothingIsHarmless) {
  CGPathAddRect(nullptr, nullptr, CGRectMake(0, 0, 1, 1));
  CGPathAddPath(path_, nullptr, nullptr);
  EXPECT_TRUE(CGPathIsEmpty(nullptr));
  EXPECT_TRUE(CGPathEqualToPath(nullptr, nullptr));
  EXPECT_FALSE(CGPathEqualToPath(path_, nullptr));
  EXPECT_EQ(CGPathCreateCopy(nullptr), nullptr);
}

}  // namespace
