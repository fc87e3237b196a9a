// Views that are turned, stretched and moved.
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

class UIViewTransformTests : public ObjCTest {
 protected:
  static UIView *view(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return [[[UIView alloc] initWithFrame:CGRectMake(x, y, width, height)] autorelease];
  }

  static void expectRect(CGRect actual, CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    EXPECT_NEAR(actual.origin.x, x, 1e-9);
    EXPECT_NEAR(actual.origin.y, y, 1e-9);
    EXPECT_NEAR(actual.size.width, width, 1e-9);
    EXPECT_NEAR(actual.size.height, height, 1e-9);
  }
};

TEST_F(UIViewTransformTests, TheFrameIsTheBoxAroundTheTurnedView) {
  UIView *box = view(10, 20, 100, 50);
  EXPECT_TRUE(CGAffineTransformIsIdentity([box transform]));
  [box setTransform:CGAffineTransformMakeRotation(M_PI_2)];
  expectRect([box frame], 35, -5, 50, 100);
  expectRect([box bounds], 0, 0, 100, 50);
  EXPECT_EQ([box center].x, 60);
  [box setCenter:CGPointMake(0, 0)];
  expectRect([box frame], -25, -50, 50, 100);
  [box setTransform:CGAffineTransformIdentity];
  expectRect([box frame], -50, -25, 100, 50);
}

TEST_F(UIViewTransformTests, AFrameOfATurnedViewGivesItTheBoundsThatFillIt) {
  UIView *box = view(0, 0, 10, 10);
  [box setTransform:CGAffineTransformMakeRotation(M_PI_2)];
  [box setFrame:CGRectMake(10, 20, 30, 60)];
  expectRect([box frame], 10, 20, 30, 60);
  expectRect([box bounds], 0, 0, 60, 30);
  EXPECT_NEAR([box center].y, 50, 1e-9);
}

TEST_F(UIViewTransformTests, PointsAndRectanglesGoThroughTransforms) {
  UIView *root = view(0, 0, 100, 100), *box = view(20, 20, 40, 40), *inner = view(10, 0, 10, 10);
  [root addSubview:box];
  [box addSubview:inner];
  [box setTransform:CGAffineTransformMakeScale(0.5, 0.5)];
  const CGPoint point = [inner convertPoint:CGPointMake(0, 0) toView:root];
  EXPECT_NEAR(point.x, 35, 1e-9);
  EXPECT_NEAR(point.y, 30, 1e-9);
  const CGPoint back = [inner convertPoint:point fromView:root];
  EXPECT_NEAR(back.x, 0, 1e-9);
  expectRect([inner convertRect:CGRectMake(0, 0, 10, 10) toView:root], 35, 30, 5, 5);
  expectRect([root convertRect:CGRectMake(35, 30, 5, 5) toView:inner], 0, 0, 10, 10);
}

TEST_F(UIViewTransformTests, AnAnchorPointMovesTheViewAroundItsCentre) {
  UIView *box = view(0, 0, 10, 20);
  [[box layer] setAnchorPoint:CGPointMake(0, 0)];
  expectRect([box frame], 5, 10, 10, 20);
  [box setBounds:CGRectMake(0, 0, 30, 30)];
  expectRect([box frame], 5, 10, 30, 30);
  [box setTransform:CGAffineTransformMakeScale(2, 2)];
  expectRect([box frame], 5, 10, 60, 60);
}

TEST_F(UIViewTransformTests, AutoresizingChangesTheBoundsOfATurnedView) {
  UIView *root = view(0, 0, 100, 100), *box = view(0, 0, 100, 40);
  [box setAutoresizingMask:UIViewAutoresizingFlexibleWidth];
  [root addSubview:box];
  [box setTransform:CGAffineTransformMakeRotation(M_PI)];
  [root setFrame:CGRectMake(0, 0, 200, 100)];
  expectRect([box bounds], 0, 0, 200, 40);
  EXPECT_NEAR([box center].x, 100, 1e-9);
}

TEST_F(UIViewTransformTests, AMaskOfAViewIsThatOfItsLayer) {
  UIView *box = view(0, 0, 10, 10), *mask = view(0, 0, 5, 5);
  [box setMaskView:mask];
  EXPECT_OBJC_EQ([box maskView], mask);
  EXPECT_OBJC_EQ([[box layer] mask], [mask layer]);
  [box setMaskView:nil];
  EXPECT_OBJC_EQ([[box layer] mask], nil);
}

}  // namespace
