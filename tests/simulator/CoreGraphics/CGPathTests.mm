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

TEST_F(CGPathTests, NothingIsHarmless) {
  CGPathAddRect(nullptr, nullptr, CGRectMake(0, 0, 1, 1));
  CGPathAddPath(path_, nullptr, nullptr);
  EXPECT_TRUE(CGPathIsEmpty(nullptr));
  EXPECT_TRUE(CGPathEqualToPath(nullptr, nullptr));
  EXPECT_FALSE(CGPathEqualToPath(path_, nullptr));
  EXPECT_EQ(CGPathCreateCopy(nullptr), nullptr);
}

}  // namespace
