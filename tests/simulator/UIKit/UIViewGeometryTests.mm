#import <UIKit/UIKit.h>

#import "support/objc/ObjCTest.h"

// Pins itself to its superview's width, as cells of pages do.
@interface PinnedView : UIView
@end

@implementation PinnedView

- (CGRect)frame {
  CGRect frame = [super frame];
  if ([self superview]) frame = CGRectMake(0, 0, [[self superview] frame].size.width, 195);
  return frame;
}

- (void)setFrame:(CGRect)frame {
  (void)frame;
  [super setFrame:CGRectMake(0, 0, [[self superview] frame].size.width, 195)];
}

@end

namespace {

class UIViewGeometryTests : public ObjCTest {
 protected:
  UIView *view(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return [[[UIView alloc] initWithFrame:CGRectMake(x, y, width, height)] autorelease];
  }
};

void expectRect(CGRect actual, CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  EXPECT_DOUBLE_EQ(actual.origin.x, x);
  EXPECT_DOUBLE_EQ(actual.origin.y, y);
  EXPECT_DOUBLE_EQ(actual.size.width, width);
  EXPECT_DOUBLE_EQ(actual.size.height, height);
}

TEST_F(UIViewGeometryTests, FrameBoundsAndCenterAgree) {
  UIView *box = view(10, 20, 30, 40);
  EXPECT_EQ([box center].x, 25);
  [box setCenter:CGPointMake(100, 100)];
  expectRect([box frame], 85, 80, 30, 40);
  [box setBounds:CGRectMake(5, 6, 50, 60)];
  expectRect([box frame], 75, 70, 50, 60);
  expectRect([box bounds], 5, 6, 50, 60);
  [box setFrame:CGRectMake(0, 0, 7, 8)];
  expectRect([box bounds], 5, 6, 7, 8);
  [box setFrame:CGRectMake(10, 10, -4, -4)];
  expectRect([box frame], 6, 6, 4, 4);
}

TEST_F(UIViewGeometryTests, GeometryThatIsNotFiniteRaises) {
  UIView *box = view(1, 2, 3, 4);
  EXPECT_EQ(raisedBy([&] { [box setFrame:CGRectMake(NAN, 0, 1, 1)]; }), "CALayerInvalidGeometry");
  EXPECT_EQ(raisedBy([&] { [box setBounds:CGRectMake(0, 0, INFINITY, 1)]; }), "CALayerInvalidGeometry");
  EXPECT_EQ(raisedBy([&] { [box setCenter:CGPointMake(0, NAN)]; }), "CALayerInvalidGeometry");
  expectRect([box frame], 1, 2, 3, 4);
}

TEST_F(UIViewGeometryTests, ConvertsThroughTheTree) {
  UIView *root = view(0, 0, 400, 800);
  UIView *left = view(10, 10, 100, 100);
  UIView *right = view(200, 50, 100, 100);
  UIView *leaf = view(5, 5, 10, 10);
  [root addSubview:left];
  [root addSubview:right];
  [left addSubview:leaf];
  [left setBounds:CGRectMake(0, 3, 100, 100)];
  const CGPoint point = [leaf convertPoint:CGPointMake(1, 1) toView:right];
  EXPECT_EQ(point.x, 1 + 5 + 10 - 200);
  EXPECT_EQ(point.y, 1 + 5 - 3 + 10 - 50);
  const CGPoint back = [leaf convertPoint:point fromView:right];
  EXPECT_EQ(back.x, 1);
  EXPECT_EQ(back.y, 1);
  expectRect([leaf convertRect:[leaf bounds] toView:nil], 15, 12, 10, 10);
  expectRect([leaf convertRect:CGRectMake(15, 12, 1, 1) fromView:nil], 0, 0, 1, 1);
}

TEST_F(UIViewGeometryTests, NilIsTheWindowWhereverThatLies) {
  UIWindow *window = [[[UIWindow alloc] initWithFrame:CGRectMake(100, 200, 300, 300)] autorelease];
  UIView *box = view(10, 20, 50, 50);
  [window addSubview:box];
  const CGPoint inWindow = [box convertPoint:CGPointMake(1, 2) toView:nil];
  EXPECT_EQ(inWindow.x, 11);
  EXPECT_EQ(inWindow.y, 22);
  expectRect([box convertRect:CGRectMake(11, 22, 1, 1) fromView:nil], 1, 2, 1, 1);
  expectRect([window convertRect:CGRectMake(1, 2, 3, 4) toView:nil], 1, 2, 3, 4);
  expectRect([box convertRect:[box bounds] toView:window], 10, 20, 50, 50);
  UIWindow *other = [[[UIWindow alloc] initWithFrame:CGRectMake(0, 50, 300, 300)] autorelease];
  expectRect([box convertRect:[box bounds] toView:other], 110, 170, 50, 50);
}

struct Resizing {
  UIViewAutoresizing mask;
  CGRect expected;
};

TEST_F(UIViewGeometryTests, AutoresizesAsTheMaskSays) {
  const Resizing cases[] = {
      {UIViewAutoresizingNone, CGRectMake(10, 20, 50, 40)},
      {UIViewAutoresizingFlexibleWidth, CGRectMake(10, 20, 150, 40)},
      {UIViewAutoresizingFlexibleLeftMargin, CGRectMake(110, 20, 50, 40)},
      {UIViewAutoresizingFlexibleRightMargin, CGRectMake(10, 20, 50, 40)},
      {UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin, CGRectMake(30, 20, 50, 40)},
      {UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleRightMargin,
       CGRectMake(20, 20, 100, 40)},
      {UIViewAutoresizingFlexibleHeight, CGRectMake(10, 20, 50, 140)},
      {UIViewAutoresizingFlexibleTopMargin, CGRectMake(10, 120, 50, 40)},
      {UIViewAutoresizingFlexibleBottomMargin, CGRectMake(10, 20, 50, 40)},
  };
  for (const Resizing &expected : cases) {
    UIView *root = view(0, 0, 100, 100);
    UIView *child = view(10, 20, 50, 40);
    [child setAutoresizingMask:expected.mask];
    [root addSubview:child];
    [root setFrame:CGRectMake(0, 0, 200, 200)];
    EXPECT_TRUE(CGRectEqualToRect([child frame], expected.expected))
        << expected.mask << ": " << [NSStringFromCGRect([child frame]) UTF8String];
    [root setAutoresizesSubviews:NO];
    [root setFrame:CGRectMake(0, 0, 300, 300)];
    EXPECT_TRUE(CGRectEqualToRect([child frame], expected.expected)) << expected.mask;
  }
}

TEST_F(UIViewGeometryTests, AutoresizesFromNothingAndToNothing) {
  UIView *root = view(0, 0, 0, 0);
  UIView *child = view(0, 0, 0, 50);
  [child setAutoresizingMask:UIViewAutoresizingFlexibleWidth];
  [root addSubview:child];
  [root setFrame:CGRectMake(0, 0, 390, 100)];
  expectRect([child frame], 0, 0, 390, 50);
  [root setFrame:CGRectMake(0, 0, 10, 100)];
  expectRect([child frame], 0, 0, 10, 50);
  UIView *fixed = view(0, 0, 20, 50);
  [fixed setAutoresizingMask:UIViewAutoresizingFlexibleWidth];
  [root addSubview:fixed];
  [root setFrame:CGRectMake(0, 0, -0.0, 0)];
  EXPECT_GE([fixed frame].size.width, 0);
}

TEST_F(UIViewGeometryTests, OverriddenFramesPinAndAreNotRead) {
  UIView *root = view(0, 0, 300, 500);
  PinnedView *pinned = [[[PinnedView alloc] initWithFrame:CGRectMake(9, 9, 9, 9)] autorelease];
  expectRect([pinned frame], 9, 9, 9, 9);
  [root addSubview:pinned];
  expectRect([pinned frame], 0, 0, 300, 195);
  expectRect([pinned bounds], 0, 0, 9, 9);
  [pinned setFrame:[pinned frame]];
  expectRect([pinned bounds], 0, 0, 300, 195);
  [pinned removeFromSuperview];
  [pinned setFrame:CGRectMake(1, 1, 1, 1)];
  expectRect([pinned bounds], 0, 0, 0, 195);
}

}  // namespace
