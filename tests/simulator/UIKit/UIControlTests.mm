#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UISegmentedControl+Sim.h>
#import <UIKit/UISlider+Sim.h>
#import <UIKit/UISwitch+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <cmath>
#include <string>
#include <utility>

// Writes down which actions reach it.
@interface ActionTarget : UIView {
 @public
  std::string _log;
}
@end

@implementation ActionTarget

- (void)none {
  _log += "none ";
}

- (void)one:(id)sender {
  _log += [sender isKindOfClass:[UIControl class]] ? "one " : "wrong ";
}

- (void)two:(id)sender event:(UIEvent *)event {
  _log += [sender isKindOfClass:[UIControl class]] && !event ? "two " : "wrong ";
}

- (void)strip:(UIControl *)sender {
  _log += "strip ";
  [sender removeTarget:nil action:nullptr forControlEvents:UIControlEventAllEvents];
  [sender removeFromSuperview];
}

@end

namespace {

class UIControlTests : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    target_ = [[ActionTarget alloc] init];
  }
  void TearDown() override {
    [target_ release];
    ObjCTest::TearDown();
  }

  template <typename Control>
  Control *make() {
    return [[[Control alloc] initWithFrame:CGRectZero] autorelease];
  }

  std::string taken() { return std::exchange(target_->_log, {}); }

  ActionTarget *target_ = nil;
};

TEST_F(UIControlTests, SendsActionsOfEveryForm) {
  UIControl *control = make<UIControl>();
  [control addTarget:target_ action:@selector(none) forControlEvents:UIControlEventValueChanged];
  [control addTarget:target_ action:@selector(one:) forControlEvents:UIControlEventValueChanged];
  [control addTarget:target_ action:@selector(two:event:) forControlEvents:UIControlEventTouchDown];
  [control sendActionsForControlEvents:UIControlEventValueChanged];
  EXPECT_EQ(taken(), "none one ");
  [control sendActionsForControlEvents:UIControlEventTouchDown | UIControlEventValueChanged];
  EXPECT_EQ(taken(), "none one two ");
  [control sendActionsForControlEvents:UIControlEventTouchUpInside];
  EXPECT_EQ(taken(), "");
}

TEST_F(UIControlTests, TheSamePairIsAddedOnce) {
  UIControl *control = make<UIControl>();
  [control addTarget:target_ action:@selector(none) forControlEvents:UIControlEventTouchDown];
  [control addTarget:target_ action:@selector(none) forControlEvents:UIControlEventValueChanged];
  [control sendActionsForControlEvents:UIControlEventAllEvents];
  EXPECT_EQ(taken(), "none ");
  EXPECT_EQ([control allControlEvents], UIControlEventTouchDown | UIControlEventValueChanged);
  EXPECT_EQ(raisedBy([&] { [control addTarget:target_ action:nullptr forControlEvents:UIControlEventTouchDown]; }),
            "NSInvalidArgumentException");
}

TEST_F(UIControlTests, RemovesByTargetActionAndEvent) {
  UIControl *control = make<UIControl>();
  const UIControlEvents both = UIControlEventTouchDown | UIControlEventValueChanged;
  [control addTarget:target_ action:@selector(none) forControlEvents:both];
  [control addTarget:target_ action:@selector(one:) forControlEvents:both];
  [control removeTarget:target_ action:@selector(none) forControlEvents:UIControlEventTouchDown];
  [control sendActionsForControlEvents:UIControlEventTouchDown];
  EXPECT_EQ(taken(), "one ");
  EXPECT_OBJC_EQ([control actionsForTarget:target_ forControlEvent:UIControlEventValueChanged],
                 (@[ @"none", @"one:" ]));
  EXPECT_OBJC_EQ([control allTargets], [NSSet setWithObject:target_]);
  [control removeTarget:target_ action:nullptr forControlEvents:UIControlEventAllEvents];
  EXPECT_EQ([[control allTargets] count], 0u);
  EXPECT_OBJC_EQ([control actionsForTarget:target_ forControlEvent:UIControlEventValueChanged], nil);
}

TEST_F(UIControlTests, TargetsAreNotOwned) {
  UIControl *control = make<UIControl>();
  const NSUInteger before = [target_ retainCount];
  [control addTarget:target_ action:@selector(none) forControlEvents:UIControlEventTouchDown];
  [control sendActionsForControlEvents:UIControlEventTouchDown];
  EXPECT_EQ([target_ retainCount], before);
}

TEST_F(UIControlTests, NilTargetsLookUpTheResponderChain) {
  UIControl *control = make<UIControl>();
  UIView *between = make<UIView>();
  [target_ addSubview:between];
  [between addSubview:control];
  [control addTarget:nil action:@selector(one:) forControlEvents:UIControlEventTouchDown];
  [control sendActionsForControlEvents:UIControlEventTouchDown];
  EXPECT_EQ(taken(), "one ");
  [between removeFromSuperview];
  [control sendActionsForControlEvents:UIControlEventTouchDown];
  EXPECT_EQ(taken(), "");
}

TEST_F(UIControlTests, AnActionThatIsNotAnsweredRaises) {
  UIControl *control = make<UIControl>();
  [control addTarget:target_ action:NSSelectorFromString(@"unheardOf:") forControlEvents:UIControlEventTouchDown];
  EXPECT_EQ(raisedBy([&] { [control sendActionsForControlEvents:UIControlEventTouchDown]; }),
            "NSInvalidArgumentException");
}

TEST_F(UIControlTests, AnActionMayEndTheControl) {
  UIControl *control = [[UIControl alloc] init];
  [target_ addSubview:control];
  [control addTarget:target_ action:@selector(strip:) forControlEvents:UIControlEventTouchUpInside];
  [control addTarget:target_ action:@selector(none) forControlEvents:UIControlEventTouchUpInside];
  [control release];
  EXPECT_TRUE([control sim_tapByUser]);
  EXPECT_EQ(taken(), "strip none ");
  EXPECT_EQ([[target_ subviews] count], 0u);
}

TEST_F(UIControlTests, TapsNeedAControlThatCanBeReached) {
  UIControl *control = make<UIControl>();
  [control addTarget:target_ action:@selector(none) forControlEvents:UIControlEventTouchUpInside];
  [control setEnabled:NO];
  EXPECT_FALSE([control sim_tapByUser]);
  EXPECT_EQ([control state], UIControlStateDisabled);
  [control setEnabled:YES];
  [control setHidden:YES];
  EXPECT_FALSE([control sim_tapByUser]);
  [control setHidden:NO];
  EXPECT_TRUE([control sim_tapByUser]);
  EXPECT_EQ(taken(), "none ");
  EXPECT_FALSE([control isHighlighted]);
}

class UISwitchTests : public UIControlTests {};

TEST_F(UISwitchTests, HasOneSize) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectMake(5, 6, 1, 1)] autorelease];
  EXPECT_TRUE(CGRectEqualToRect([control frame], CGRectMake(5, 6, 51, 31)));
  [control setFrame:CGRectMake(0, 0, 500, 500)];
  EXPECT_EQ([control frame].size.width, 51);
  [control setBounds:CGRectMake(0, 0, 500, 500)];
  EXPECT_EQ([control bounds].size.height, 31);
}

TEST_F(UISwitchTests, OnlyThePersonSendsActions) {
  UISwitch *control = make<UISwitch>();
  [control addTarget:target_ action:@selector(one:) forControlEvents:UIControlEventValueChanged];
  [control setOn:YES];
  [control setOn:NO animated:YES];
  EXPECT_EQ(taken(), "");
  EXPECT_TRUE([control sim_setOnByUser:YES]);
  EXPECT_TRUE([control isOn]);
  EXPECT_EQ(taken(), "one ");
  EXPECT_FALSE([control sim_setOnByUser:YES]);
  [control setEnabled:NO];
  EXPECT_FALSE([control sim_setOnByUser:NO]);
  EXPECT_TRUE([control isOn]);
  EXPECT_EQ(taken(), "");
}

class UISliderTests : public UIControlTests {};

TEST_F(UISliderTests, KeepsWithinItsRange) {
  UISlider *slider = make<UISlider>();
  EXPECT_EQ([slider minimumValue], 0);
  EXPECT_EQ([slider maximumValue], 1);
  [slider setValue:7];
  EXPECT_EQ([slider value], 1);
  [slider setMaximumValue:100];
  [slider setValue:70];
  [slider setMaximumValue:50];
  EXPECT_EQ([slider value], 50);
  [slider setMinimumValue:60];
  EXPECT_EQ([slider maximumValue], 60);
  EXPECT_EQ([slider value], 60);
  [slider setMaximumValue:-5];
  EXPECT_EQ([slider minimumValue], -5);
  [slider setValue:NAN];
  EXPECT_EQ([slider value], -5);
  [slider setMinimumValue:NAN];
  [slider setMaximumValue:NAN];
  EXPECT_EQ([slider maximumValue], -5);
}

TEST_F(UISliderTests, ReportsDragsAsItShould) {
  UISlider *slider = make<UISlider>();
  [slider addTarget:target_ action:@selector(one:) forControlEvents:UIControlEventValueChanged];
  EXPECT_TRUE([slider sim_setValueByUser:0.25f finished:NO]);
  EXPECT_EQ(taken(), "one ");
  [slider setContinuous:NO];
  EXPECT_TRUE([slider sim_setValueByUser:0.5f finished:NO]);
  EXPECT_EQ(taken(), "");
  EXPECT_TRUE([slider sim_setValueByUser:9 finished:YES]);
  EXPECT_EQ(taken(), "one ");
  EXPECT_EQ([slider value], 1);
  EXPECT_FALSE([slider sim_setValueByUser:NAN finished:YES]);
  [slider setEnabled:NO];
  EXPECT_FALSE([slider sim_setValueByUser:0 finished:YES]);
  EXPECT_EQ([slider value], 1);
  EXPECT_EQ(taken(), "");
}

TEST_F(UISliderTests, TellsOfTheStepsOfADragWithItsNewValue) {
  UISlider *slider = make<UISlider>();
  [slider setContinuous:NO];
  [slider addTarget:target_ action:@selector(one:) forControlEvents:UIControlEventTouchDragInside];
  EXPECT_TRUE([slider sim_setValueByUser:0.25f finished:NO]);
  EXPECT_EQ(taken(), "one ");
  EXPECT_EQ([slider value], 0.25f);
  EXPECT_TRUE([slider sim_setValueByUser:0.5f finished:YES]);
  EXPECT_EQ(taken(), "") << "the end is no step";
}

class UISegmentedControlTests : public UIControlTests {
 protected:
  UISegmentedControl *letters() {
    return [[[UISegmentedControl alloc] initWithItems:@[ @"a", @"b", @"c" ]] autorelease];
  }
};

TEST_F(UISegmentedControlTests, StartsWithoutSelection) {
  EXPECT_EQ([letters() numberOfSegments], 3u);
  EXPECT_EQ([letters() selectedSegmentIndex], UISegmentedControlNoSegment);
  EXPECT_OBJC_EQ([letters() titleForSegmentAtIndex:1], @"b");
  EXPECT_OBJC_EQ([letters() titleForSegmentAtIndex:9], @"c");
  EXPECT_OBJC_EQ([make<UISegmentedControl>() titleForSegmentAtIndex:0], nil);
  EXPECT_EQ(raisedBy([&] { (void)[[UISegmentedControl alloc] initWithItems:@[ @"a", @5 ]]; }),
            "NSInvalidArgumentException");
}

TEST_F(UISegmentedControlTests, SelectionFollowsItsSegment) {
  UISegmentedControl *control = letters();
  [control setSelectedSegmentIndex:1];
  [control insertSegmentWithTitle:@"z" atIndex:0 animated:NO];
  EXPECT_EQ([control selectedSegmentIndex], 2);
  [control removeSegmentAtIndex:0 animated:NO];
  EXPECT_EQ([control selectedSegmentIndex], 1);
  [control removeSegmentAtIndex:1 animated:NO];
  EXPECT_EQ([control selectedSegmentIndex], UISegmentedControlNoSegment);
  EXPECT_EQ(raisedBy([&] { [control setSelectedSegmentIndex:2]; }), "NSRangeException");
  [control setSelectedSegmentIndex:-7];
  EXPECT_EQ([control selectedSegmentIndex], UISegmentedControlNoSegment);
  [control removeAllSegments];
  [control removeSegmentAtIndex:0 animated:NO];
  EXPECT_EQ([control numberOfSegments], 0u);
}

TEST_F(UISegmentedControlTests, ThePersonSelects) {
  UISegmentedControl *control = letters();
  [control addTarget:target_ action:@selector(one:) forControlEvents:UIControlEventValueChanged];
  EXPECT_TRUE([control sim_selectByUser:2]);
  EXPECT_EQ([control selectedSegmentIndex], 2);
  EXPECT_EQ(taken(), "one ");
  EXPECT_FALSE([control sim_selectByUser:2]) << "selected already";
  EXPECT_FALSE([control sim_selectByUser:3]);
  EXPECT_FALSE([control sim_selectByUser:-1]);
  [control setEnabled:NO forSegmentAtIndex:0];
  EXPECT_FALSE([control sim_selectByUser:0]);
  EXPECT_EQ(taken(), "");
  [control setMomentary:YES];
  EXPECT_TRUE([control sim_selectByUser:2]);
  EXPECT_EQ([control selectedSegmentIndex], UISegmentedControlNoSegment);
}

class UIButtonTests : public UIControlTests {};

TEST_F(UIButtonTests, TitlesPerState) {
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  [button setTitle:@"Go" forState:UIControlStateNormal];
  [button setTitle:@"No" forState:UIControlStateDisabled];
  EXPECT_OBJC_EQ([button currentTitle], @"Go");
  EXPECT_OBJC_EQ([button titleForState:UIControlStateHighlighted], @"Go");
  EXPECT_OBJC_EQ([[button titleLabel] text], @"Go");
  EXPECT_OBJC_EQ([[button titleLabel] textColor], [UIColor systemBlueColor]);
  [button setEnabled:NO];
  EXPECT_OBJC_EQ([[button titleLabel] text], @"No");
  [button setTitle:nil forState:UIControlStateDisabled];
  EXPECT_OBJC_EQ([button currentTitle], @"Go");
}

TEST_F(UIButtonTests, LaysItsTitleOutInTheMiddle) {
  UIButton *button = [UIButton buttonWithType:UIButtonTypeCustom];
  [button setTitle:@"Middle" forState:UIControlStateNormal];
  [button setFrame:CGRectMake(0, 0, 200, 40)];
  [button layoutIfNeeded];
  const CGRect title = [[button titleLabel] frame];
  EXPECT_NEAR(CGRectGetMidX(title), 100, 1e-9);
  EXPECT_NEAR(CGRectGetMidY(title), 20, 1e-9);
  [button setContentHorizontalAlignment:UIControlContentHorizontalAlignmentLeft];
  [button setNeedsLayout];
  [button layoutIfNeeded];
  EXPECT_EQ([[button titleLabel] frame].origin.x, 0);
  [button sizeToFit];
  EXPECT_NEAR([button frame].size.width, title.size.width, 1e-9);
}

TEST_F(UIButtonTests, ASystemButtonTakesTheTint) {
  UIView *root = make<UIView>();
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  [root addSubview:button];
  [button setTitle:@"x" forState:UIControlStateNormal];
  [root setTintColor:[UIColor redColor]];
  EXPECT_OBJC_EQ([[button titleLabel] textColor], [UIColor redColor]);
}

class UIActivityIndicatorViewTests : public UIControlTests {};

TEST_F(UIActivityIndicatorViewTests, HidesWhenStopped) {
  UIActivityIndicatorView *spinner =
      [[[UIActivityIndicatorView alloc] initWithActivityIndicatorStyle:UIActivityIndicatorViewStyleLarge] autorelease];
  EXPECT_EQ([spinner frame].size.width, 37);
  EXPECT_TRUE([spinner isHidden]);
  [spinner startAnimating];
  EXPECT_TRUE([spinner isAnimating]);
  EXPECT_FALSE([spinner isHidden]);
  [spinner setHidesWhenStopped:NO];
  [spinner stopAnimating];
  EXPECT_FALSE([spinner isHidden]);
  [spinner setHidesWhenStopped:YES];
  EXPECT_TRUE([spinner isHidden]);
}

}  // namespace
