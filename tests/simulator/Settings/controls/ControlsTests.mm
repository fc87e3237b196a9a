// What all controls in rows have in common.
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

/// A switch of an app's own.
@interface OwnSwitch : UISwitch
@end

@implementation OwnSwitch
@end

namespace {

class ControlsTest : public SessionTest {};

TEST_F(ControlsTest, OnlyASliderIsDragged) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  startControl(control);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}, {"finished", false}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "Only a slider is dragged: \"finished\": false is not for this control.");
  EXPECT_FALSE([control isOn]);
}

TEST_F(ControlsTest, OnlyATextFieldHasAReturnKey) {
  UITextView *control = [[[UITextView alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  startControl(control);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "x"}, {"return", true}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "Only a text field has a return key.");
  EXPECT_OBJC_EQ([control text], @"");
  startList(@[ @[ @"a" ] ]);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "x"}, {"return", true}}, Outcome::refused);
}

TEST_F(ControlsTest, DisabledControlsAreLeftAlone) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  [control setEnabled:NO];
  ControlPage *page = startControl(control);
  EXPECT_EQ(row(0, 0)["enabled"], false);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}}, Outcome::refused);
  EXPECT_EQ(calls(page), "");
}

TEST_F(ControlsTest, ARowWithoutAControlCannotBeSet) {
  startList(@[ @[ @"a" ] ]);
  for (const bool isFinished : {true, false}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}, {"finished", isFinished}}, Outcome::refused);
    EXPECT_EQ(reply["error"], "This row has no control.");
  }
}

TEST_F(ControlsTest, AControlIsWorkedThoughARowStandsOpen) {
  const auto control = objcxx::adopt([[UISwitch alloc] init]);
  startControl(control.get());
  EXPECT_EQ(send({{"type", "swipe"}, {"id", rowId(0, 0)}}), Outcome::done);
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, Outcome::refused);
  EXPECT_EQ(row(0, 0)["swipeOpen"], true);
  EXPECT_EQ(set(rowId(0, 0), true), Outcome::done);
  EXPECT_TRUE([control.get() isOn]);
  EXPECT_EQ(row(0, 0)["swipeOpen"], false);
}

TEST_F(ControlsTest, OnlyFieldsTakeThePasteboard) {
  UISwitch *control = [[[UISwitch alloc] init] autorelease];
  startControl(control);
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"x"];
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, Outcome::refused);
}

TEST_F(ControlsTest, AControlOfAnAppsOwnIsWhatItsSuperclassIs) {
  OwnSwitch *control = [[[OwnSwitch alloc] initWithFrame:CGRectZero] autorelease];
  ASSERT_EQ(controlOf(control)["type"], "switch");
  EXPECT_EQ(set(rowId(0, 0), true), Outcome::done);
  EXPECT_TRUE([control isOn]);
}

TEST_F(ControlsTest, TheControlIsFoundBelowTheAccessoryView) {
  const auto holder = view(80, 40);
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  [holder.get() addSubview:[[[UILabel alloc] initWithFrame:CGRectZero] autorelease]];
  [holder.get() addSubview:control];
  EXPECT_EQ(controlOf(holder.get())["type"], "switch");
  EXPECT_EQ(set(rowId(0, 0), true), Outcome::done);
  EXPECT_TRUE([control isOn]);
}

TEST_F(ControlsTest, AButtonAndALabelAreNoControls) {
  EXPECT_TRUE(controlOf([UIButton buttonWithType:UIButtonTypeSystem]).is_null());
  EXPECT_TRUE(controlOf([[[UILabel alloc] initWithFrame:CGRectZero] autorelease]).is_null());
  EXPECT_TRUE(row(0, 0)["value"].is_null());
}

}  // namespace
