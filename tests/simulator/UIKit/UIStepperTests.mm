#import <UIKit/UIKit.h>
#import <UIKit/UIStepper+Sim.h>
#import <UIKit/TouchDispatch.h>
#import <objcxx/Retained.h>

#include <cmath>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

@interface StepListener : NSObject {
 @public
  int heard;
}
@end

@implementation StepListener
- (void)heard:(UIStepper *)stepper {
  (void)stepper;
  ++heard;
}
@end

namespace {

class StepperTest : public testing_support::ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    stepper_ = objcxx::adopt([[UIStepper alloc] initWithFrame:CGRectMake(5, 6, 7, 8)]);
    listener_ = objcxx::adopt([[StepListener alloc] init]);
    [stepper_.get() addTarget:listener_.get() action:@selector(heard:) forControlEvents:UIControlEventValueChanged];
  }
  void TearDown() override {
    stepper_ = nullptr;
    listener_ = nullptr;
    ObjCTest::TearDown();
  }
  objcxx::Retained<UIStepper> stepper_;
  objcxx::Retained<StepListener> listener_;
};

TEST_F(StepperTest, BeginsAsADeviceHasIt) {
  UIStepper *stepper = stepper_.get();
  EXPECT_EQ([stepper value], 0);
  EXPECT_EQ([stepper minimumValue], 0);
  EXPECT_EQ([stepper maximumValue], 100);
  EXPECT_EQ([stepper stepValue], 1);
  EXPECT_TRUE([stepper isContinuous] && [stepper autorepeat] && ![stepper wraps]);
  EXPECT_TRUE(CGRectEqualToRect([stepper frame], CGRectMake(5, 6, 94, 32)));
  EXPECT_TRUE(CGSizeEqualToSize([stepper intrinsicContentSize], CGSizeMake(94, 32)));
}

TEST_F(StepperTest, KeepsItsValueBetweenTheEnds) {
  UIStepper *stepper = stepper_.get();
  [stepper setValue:200];
  EXPECT_EQ([stepper value], 100);
  [stepper setMaximumValue:50];
  EXPECT_EQ([stepper value], 50);
  [stepper setMaximumValue:80];
  [stepper setMinimumValue:60];
  EXPECT_EQ([stepper value], 60);
  [stepper setValue:NAN];
  EXPECT_EQ([stepper value], 60);
  EXPECT_EQ(listener_.get()->heard, 0);
  EXPECT_EQ(raisedBy([&] { [stepper setMinimumValue:80]; }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [stepper setMaximumValue:60]; }), "NSInvalidArgumentException");
  EXPECT_EQ(raisedBy([&] { [stepper setStepValue:0]; }), "NSInvalidArgumentException");
  EXPECT_EQ([stepper minimumValue], 60);
  EXPECT_EQ([stepper stepValue], 1);
}

TEST_F(StepperTest, StepsToTheEndsAndAround) {
  UIStepper *stepper = stepper_.get();
  [stepper setMaximumValue:5];
  [stepper setStepValue:2];
  EXPECT_FALSE([stepper sim_stepByUser:NO finished:YES]);
  for (const double expected : {2, 4, 5}) {
    EXPECT_TRUE([stepper sim_stepByUser:YES finished:YES]);
    EXPECT_EQ([stepper value], expected);
  }
  EXPECT_FALSE([stepper sim_stepByUser:YES finished:YES]);
  EXPECT_EQ(listener_.get()->heard, 3);
  [stepper setWraps:YES];
  EXPECT_TRUE([stepper sim_stepByUser:YES finished:YES]);
  EXPECT_EQ([stepper value], 0);
  EXPECT_TRUE([stepper sim_stepByUser:NO finished:YES]);
  EXPECT_EQ([stepper value], 5);
  [stepper setEnabled:NO];
  EXPECT_FALSE([stepper sim_stepByUser:NO finished:YES]);
}

TEST_F(StepperTest, TellsAtTheEndUnlessItIsContinuous) {
  UIStepper *stepper = stepper_.get();
  [stepper setContinuous:NO];
  EXPECT_TRUE([stepper sim_stepByUser:YES finished:NO]);
  EXPECT_TRUE([stepper sim_stepByUser:YES finished:NO]);
  EXPECT_EQ(listener_.get()->heard, 0);
  [stepper sim_finishByUser];
  [stepper sim_finishByUser];
  EXPECT_EQ(listener_.get()->heard, 1);
  [stepper setContinuous:YES];
  EXPECT_TRUE([stepper sim_stepByUser:YES finished:NO]);
  EXPECT_EQ(listener_.get()->heard, 2);
  [stepper sim_finishByUser];
  EXPECT_EQ(listener_.get()->heard, 2);
}

TEST_F(StepperTest, AFingerPressesTheHalfWhereItIs) {
  UIStepper *stepper = stepper_.get();
  [stepper setFrame:CGRectZero];
  [stepper setValue:10];
  auto &dispatch = sim::TouchDispatch::shared();
  const auto tap = [&](CGFloat x) {
    const CGPoint place = [stepper convertPoint:CGPointMake(x, 10) toView:nil];
    dispatch.begin(stepper, place, dispatch.now());
    dispatch.end(place, dispatch.now());
    return [stepper value];
  };
  EXPECT_EQ(tap(80), 11);
  EXPECT_EQ(tap(10), 10);
  EXPECT_EQ(tap(10), 9);
  EXPECT_EQ(tap(45), 8);
  EXPECT_EQ(tap(49), 9);
  EXPECT_EQ(listener_.get()->heard, 5);
}

TEST_F(StepperTest, HasImagesOfItsOwn) {
  UIStepper *stepper = stepper_.get();
  UIImage *image = [[[UIImage alloc] init] autorelease];
  EXPECT_EQ([stepper incrementImageForState:UIControlStateNormal], nil);
  [stepper setIncrementImage:image forState:UIControlStateNormal];
  EXPECT_EQ([stepper incrementImageForState:UIControlStateDisabled], image);
  EXPECT_EQ([stepper decrementImageForState:UIControlStateNormal], nil);
  [stepper setDecrementImage:image forState:UIControlStateDisabled];
  EXPECT_EQ([stepper decrementImageForState:UIControlStateNormal], nil);
  EXPECT_EQ([stepper decrementImageForState:UIControlStateDisabled], image);
}

}  // namespace
