#import <QuartzCore/CALayer+Sim.h>
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

class CALayerTests : public ObjCTest {
 protected:
  objcxx::Retained<UIView> box_ = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 1, 1)]);
};

TEST_F(CALayerTests, SharesWithItsView) {
  UIView *box = box_.get();
  CALayer *layer = [box layer];
  EXPECT_OBJC_EQ([box layer], layer);
  EXPECT_OBJC_EQ([layer delegate], box);
  [layer setMasksToBounds:YES];
  EXPECT_TRUE([box clipsToBounds]);
  [box setClipsToBounds:NO];
  EXPECT_FALSE([layer masksToBounds]);
  [layer setOpacity:0.5];
  EXPECT_EQ([box alpha], 0.5);
  EXPECT_EQ([layer opacity], 0.5);
  [layer setBackgroundColor:[[UIColor redColor] CGColor]];
  EXPECT_OBJC_EQ([box backgroundColor], [UIColor redColor]);
  EXPECT_TRUE(CGColorEqualToColor([layer backgroundColor], [[UIColor redColor] CGColor]));
  [layer setBackgroundColor:nullptr];
  EXPECT_OBJC_EQ([box backgroundColor], nil);
  EXPECT_EQ([layer backgroundColor], nullptr);
  [box setHidden:YES];
  EXPECT_TRUE([layer isHidden]);
  [layer setHidden:NO];
  EXPECT_FALSE([box isHidden]);
}

TEST_F(CALayerTests, ALayerWithoutAViewKeepsItsLookItself) {
  const auto layer = objcxx::adopt([[CALayer alloc] init]);
  [layer.get() setDelegate:(id<CALayerDelegate>)@"no view"];
  EXPECT_FALSE([layer.get() masksToBounds]);
  EXPECT_EQ([layer.get() backgroundColor], nullptr);
  EXPECT_EQ([layer.get() opacity], 1);
  [layer.get() setMasksToBounds:YES];
  [layer.get() setBackgroundColor:[[UIColor redColor] CGColor]];
  [layer.get() setOpacity:0.5];
  [layer.get() setHidden:YES];
  EXPECT_TRUE([layer.get() masksToBounds]);
  EXPECT_TRUE(CGColorEqualToColor([layer.get() backgroundColor], [[UIColor redColor] CGColor]));
  EXPECT_EQ([layer.get() opacity], 0.5);
  EXPECT_TRUE([layer.get() isHidden]);
}

TEST_F(CALayerTests, ShadowsStartAsOnADevice) {
  CALayer *layer = [box_.get() layer];
  EXPECT_EQ([layer shadowOpacity], 0);
  EXPECT_EQ([layer shadowRadius], 3);
  EXPECT_EQ([layer shadowOffset].height, -3);
  EXPECT_EQ(CGColorGetAlpha([layer shadowColor]), 1);
  [layer setShadowColor:[[UIColor grayColor] CGColor]];
  drainPool();
  EXPECT_EQ(CGColorGetNumberOfComponents([layer shadowColor]), 2u) << "owned by the layer";
  [layer setShadowColor:nullptr];
  EXPECT_EQ([layer shadowColor], nullptr);
}

}  // namespace
