#import <CoreGraphics/CoreGraphics.h>

#import "support/objc/ObjCTest.h"

#include <numbers>

namespace {

class CGGeometryTests : public ObjCTest {};

void expectRect(CGRect actual, CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  EXPECT_DOUBLE_EQ(actual.origin.x, x);
  EXPECT_DOUBLE_EQ(actual.origin.y, y);
  EXPECT_DOUBLE_EQ(actual.size.width, width);
  EXPECT_DOUBLE_EQ(actual.size.height, height);
}

TEST_F(CGGeometryTests, EdgesOfARectangleWithNegativeSizes) {
  const CGRect rect = CGRectMake(10, 20, -4, -6);
  EXPECT_EQ(CGRectGetMinX(rect), 6);
  EXPECT_EQ(CGRectGetMaxX(rect), 10);
  EXPECT_EQ(CGRectGetMidX(rect), 8);
  EXPECT_EQ(CGRectGetMinY(rect), 14);
  EXPECT_EQ(CGRectGetMaxY(rect), 20);
  EXPECT_EQ(CGRectGetMidY(rect), 17);
  EXPECT_EQ(CGRectGetWidth(rect), 4);
  EXPECT_EQ(CGRectGetHeight(rect), 6);
  expectRect(CGRectStandardize(rect), 6, 14, 4, 6);
  EXPECT_TRUE(CGRectEqualToRect(rect, CGRectMake(6, 14, 4, 6)));
}

TEST_F(CGGeometryTests, TheNullRectangle) {
  EXPECT_TRUE(CGRectIsNull(CGRectNull));
  EXPECT_TRUE(CGRectIsEmpty(CGRectNull));
  EXPECT_TRUE(CGRectIsNull(CGRectIntersection(CGRectMake(0, 0, 1, 1), CGRectMake(5, 5, 1, 1))));
  EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectMake(0, 0, 4, 4), 3, 0)));
  expectRect(CGRectUnion(CGRectNull, CGRectMake(1, 2, 3, 4)), 1, 2, 3, 4);
  EXPECT_FALSE(CGRectContainsPoint(CGRectNull, CGPointZero));
  EXPECT_TRUE(CGRectIsInfinite(CGRectInfinite));
  EXPECT_FALSE(CGRectIsInfinite(CGRectZero));
}

TEST_F(CGGeometryTests, SetOperations) {
  expectRect(CGRectUnion(CGRectMake(0, 0, 2, 2), CGRectMake(5, 1, 1, 4)), 0, 0, 6, 5);
  expectRect(CGRectIntersection(CGRectMake(0, 0, 10, 10), CGRectMake(5, -5, 10, 10)), 5, 0, 5, 5);
  EXPECT_TRUE(CGRectIntersectsRect(CGRectMake(0, 0, 10, 10), CGRectMake(9, 9, 5, 5)));
  EXPECT_FALSE(CGRectIntersectsRect(CGRectMake(0, 0, 10, 10), CGRectMake(10, 0, 5, 5)));
  EXPECT_TRUE(CGRectContainsPoint(CGRectMake(0, 0, 10, 10), CGPointMake(0, 9.9)));
  EXPECT_FALSE(CGRectContainsPoint(CGRectMake(0, 0, 10, 10), CGPointMake(10, 5)));
  EXPECT_TRUE(CGRectContainsRect(CGRectMake(0, 0, 10, 10), CGRectMake(2, 2, 8, 8)));
  EXPECT_FALSE(CGRectContainsRect(CGRectMake(0, 0, 10, 10), CGRectMake(2, 2, 9, 8)));
  expectRect(CGRectIntegral(CGRectMake(0.5, -0.5, 1, 1)), 0, -1, 2, 2);
}

TEST_F(CGGeometryTests, DividesFromEveryEdge) {
  CGRect slice, rest;
  const CGRect rect = CGRectMake(0, 0, 100, 50);
  CGRectDivide(rect, &slice, &rest, 30, CGRectMinXEdge);
  expectRect(slice, 0, 0, 30, 50);
  expectRect(rest, 30, 0, 70, 50);
  CGRectDivide(rect, &slice, &rest, 30, CGRectMaxXEdge);
  expectRect(slice, 70, 0, 30, 50);
  expectRect(rest, 0, 0, 70, 50);
  CGRectDivide(rect, &slice, &rest, 80, CGRectMaxYEdge);
  expectRect(slice, 0, 0, 100, 50);
  expectRect(rest, 0, 0, 100, 0);
}

TEST_F(CGGeometryTests, Transforms) {
  const CGAffineTransform moved = CGAffineTransformScale(CGAffineTransformMakeTranslation(10, 20), 2, 3);
  const CGPoint point = CGPointApplyAffineTransform(CGPointMake(1, 1), moved);
  EXPECT_EQ(point.x, 12);
  EXPECT_EQ(point.y, 23);
  const CGPoint back = CGPointApplyAffineTransform(point, CGAffineTransformInvert(moved));
  EXPECT_NEAR(back.x, 1, 1e-12);
  EXPECT_NEAR(back.y, 1, 1e-12);
  const CGPoint turned =
      CGPointApplyAffineTransform(CGPointMake(1, 0), CGAffineTransformMakeRotation(std::numbers::pi / 2));
  EXPECT_NEAR(turned.x, 0, 1e-12);
  EXPECT_NEAR(turned.y, 1, 1e-12);
  const CGAffineTransform flat = CGAffineTransformMakeScale(0, 1);
  EXPECT_TRUE(CGAffineTransformEqualToTransform(CGAffineTransformInvert(flat), flat));
  expectRect(CGRectApplyAffineTransform(CGRectMake(1, 1, 2, 2), CGAffineTransformMakeScale(-1, 1)), -3, 1, 2, 2);
  const CGAffineTransform doubled = CGAffineTransformMakeScale(2, 2);
  EXPECT_TRUE(CGAffineTransformIsIdentity(CGAffineTransformConcat(doubled, CGAffineTransformInvert(doubled))));
}

}  // namespace
