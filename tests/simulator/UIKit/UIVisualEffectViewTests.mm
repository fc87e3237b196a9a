#import <UIKit/UIBlurEffect+Sim.h>
#import <UIKit/UIKit.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

namespace {

using UIVisualEffectViewTests = ObjCTest;

UIVisualEffectView *viewWith(UIVisualEffect *effect) {
  return [[[UIVisualEffectView alloc] initWithEffect:effect] autorelease];
}

TEST_F(UIVisualEffectViewTests, ItsContentViewIsAsLargeAsTheView) {
  UIVisualEffectView *view = viewWith([UIBlurEffect effectWithStyle:UIBlurEffectStyleRegular]);
  [view setFrame:CGRectMake(10, 20, 100, 50)];
  EXPECT_TRUE(CGRectEqualToRect([[view contentView] frame], CGRectMake(0, 0, 100, 50)));
  EXPECT_OBJC_EQ([view subviews], @[ [view contentView] ]);
}

TEST_F(UIVisualEffectViewTests, OnlyItsContentViewTakesViews) {
  UIVisualEffectView *view = viewWith(nil);
  UIView *added = [[[UIView alloc] init] autorelease];
  [view addSubview:added];
  [view insertSubview:added belowSubview:[view contentView]];
  EXPECT_OBJC_EQ([added superview], nil);
  [[view contentView] addSubview:added];
  EXPECT_OBJC_EQ([added superview], [view contentView]);
  [view bringSubviewToFront:[view contentView]];
  EXPECT_EQ([[view subviews] count], 1u);
}

TEST_F(UIVisualEffectViewTests, TheEffectCanBeChanged) {
  UIVisualEffectView *view = viewWith(nil);
  EXPECT_OBJC_EQ([view effect], nil);
  UIBlurEffect *blur = [UIBlurEffect effectWithStyle:UIBlurEffectStyleDark];
  [view setEffect:blur];
  EXPECT_OBJC_EQ([view effect], blur);
}

TEST_F(UIVisualEffectViewTests, EffectsAreEqualByTheirStyle) {
  UIBlurEffect *dark = [UIBlurEffect effectWithStyle:UIBlurEffectStyleDark];
  EXPECT_OBJC_EQ([UIBlurEffect effectWithStyle:UIBlurEffectStyleDark], dark);
  EXPECT_OBJC_NE([UIBlurEffect effectWithStyle:UIBlurEffectStyleLight], dark);
  UIVibrancyEffect *fill = [UIVibrancyEffect effectForBlurEffect:dark style:UIVibrancyEffectStyleFill];
  EXPECT_OBJC_EQ([UIVibrancyEffect effectForBlurEffect:dark style:UIVibrancyEffectStyleFill], fill);
  EXPECT_OBJC_NE([UIVibrancyEffect effectForBlurEffect:dark], fill);
  EXPECT_OBJC_NE([UIVibrancyEffect effectForBlurEffect:nil style:UIVibrancyEffectStyleFill], fill);
}

TEST_F(UIVisualEffectViewTests, AStyleThatThereIsNotIsRegular) {
  UIColor *regular = [[UIBlurEffect effectWithStyle:UIBlurEffectStyleRegular] sim_tint];
  for (const NSInteger style : {NSInteger(-1), NSInteger(3), NSInteger(99)}) {
    UIColor *tint = [[UIBlurEffect effectWithStyle:UIBlurEffectStyle(style)] sim_tint];
    for (const auto appearance : {UIUserInterfaceStyleLight, UIUserInterfaceStyleDark}) {
      UITraitCollection *traits = [UITraitCollection traitCollectionWithUserInterfaceStyle:appearance];
      EXPECT_OBJC_EQ([tint resolvedColorWithTraitCollection:traits], [regular resolvedColorWithTraitCollection:traits]);
    }
  }
}

}  // namespace
