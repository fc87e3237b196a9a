// Segments in a row: their look, their value, choosing one.
#include "simulator/Settings/SessionTest.h"

namespace {

class SegmentedControlTest : public SessionTest {};

TEST_F(SegmentedControlTest, segmentsHaveTheirPicturesStatesAndTint) {
  const auto control = objcxx::adopt([[UISegmentedControl alloc] initWithItems:@[ @"One", picture(10), @"Three" ]]);
  [control.get() setEnabled:NO forSegmentAtIndex:2];
  [control.get() setSelectedSegmentTintColor:[UIColor redColor]];
  const Json described = controlOf(control.get());
  EXPECT_EQ(described["titles"], Json({"One", nullptr, "Three"}));
  EXPECT_TRUE(described["images"][0].is_null());
  EXPECT_EQ(described["images"][1]["width"], 10);
  EXPECT_EQ(described["images"][1]["tint"], Json({{"light", "#000000ff"}, {"dark", "#ffffffff"}}));
  EXPECT_EQ(described["enabled"], Json({true, true, false}));
  EXPECT_EQ(described["selectedTintColor"], "#ff0000ff");
}

TEST_F(SegmentedControlTest, SegmentsTakeNumbersAndTitles) {
  UISegmentedControl *control = [[[UISegmentedControl alloc] initWithItems:@[ @"one", @"two" ]] autorelease];
  startControl(control);
  ASSERT_TRUE(row(0, 0).contains("value"));
  EXPECT_TRUE(row(0, 0)["value"].is_null());
  EXPECT_TRUE(row(0, 0)["control"]["selected"].is_null());
  for (const Json &wrong : {Json(2), Json(-1), Json("three"), Json(true), Json(0.5)}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, Outcome::refused);
  }
  EXPECT_EQ(set(rowId(0, 0), 2), Outcome::refused);
  EXPECT_EQ(reply["error"], "Segments are set to the number or the title of a segment.");
  EXPECT_EQ(set(rowId(0, 0), 1), Outcome::done);
  EXPECT_EQ([control selectedSegmentIndex], 1);
  EXPECT_EQ(set(rowId(0, 0), "one"), Outcome::done);
  EXPECT_EQ(row(0, 0)["control"]["selected"], 0);
  EXPECT_EQ(row(0, 0)["value"], 0);
  EXPECT_EQ(row(0, 0)["control"]["titles"], Json({"one", "two"}));
}

TEST_F(SegmentedControlTest, WhatIsChosenAlreadyStaysSoAndNobodyIsTold) {
  UISegmentedControl *control = [[[UISegmentedControl alloc] initWithItems:@[ @"one", @"two" ]] autorelease];
  ControlPage *page = startControl(control);
  EXPECT_EQ(set(rowId(0, 0), 0), Outcome::done);
  EXPECT_EQ(set(rowId(0, 0), 0), Outcome::done);
  EXPECT_EQ(calls(page), "changed");
}

TEST_F(SegmentedControlTest, ASegmentThatIsDisabledIsNotChosen) {
  UISegmentedControl *control = [[[UISegmentedControl alloc] initWithItems:@[ @"one", @"two" ]] autorelease];
  [control setEnabled:NO forSegmentAtIndex:1];
  startControl(control);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "two"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
}

TEST_F(SegmentedControlTest, APictureHasNoTitleToBeChosenBy) {
  UISegmentedControl *control = [[[UISegmentedControl alloc] initWithItems:@[ picture(10), @"two" ]] autorelease];
  startControl(control);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", ""}}, Outcome::refused);
  EXPECT_EQ(set(rowId(0, 0), "two"), Outcome::done);
  EXPECT_EQ([control selectedSegmentIndex], 1);
}

TEST_F(SegmentedControlTest, TitlesOfOneStateAloneHaveALook) {
  UISegmentedControl *control = [[[UISegmentedControl alloc] initWithItems:@[ @"one", @"two" ]] autorelease];
  [control setTitleTextAttributes:@{NSForegroundColorAttributeName : [UIColor redColor]}
                         forState:UIControlStateDisabled];
  const Json looks = controlOf(control)["titleLooks"];
  EXPECT_TRUE(looks["normal"].is_null());
  EXPECT_TRUE(looks["selected"].is_null());
  EXPECT_EQ(looks["disabled"]["color"], "#ff0000ff");
  EXPECT_EQ(looks["disabled"]["fontSize"], 13);
  [control setTitleTextAttributes:nil forState:UIControlStateDisabled];
  [control setTitleTextAttributes:@{NSForegroundColorAttributeName : [UIColor blueColor]}
                         forState:UIControlStateNormal];
  const Json all = controlOf(control)["titleLooks"];
  for (const char *state : {"normal", "selected", "disabled"}) EXPECT_EQ(all[state]["color"], "#0000ffff") << state;
}

}  // namespace
