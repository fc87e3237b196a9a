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
  EXPECT_TRUE(row(0, 0)["value"].is_null());
  EXPECT_TRUE(row(0, 0)["control"]["selected"].is_null());
  for (const Json &wrong : {Json(2), Json(-1), Json("three"), Json(true), Json(0.5)}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, Outcome::refused);
  }
  EXPECT_EQ(set(rowId(0, 0), 1), Outcome::done);
  EXPECT_EQ([control selectedSegmentIndex], 1);
  EXPECT_EQ(set(rowId(0, 0), "one"), Outcome::done);
  EXPECT_EQ(row(0, 0)["control"]["selected"], 0);
  EXPECT_EQ(row(0, 0)["value"], 0);
  EXPECT_EQ(row(0, 0)["control"]["titles"], Json({"one", "two"}));
}

}  // namespace
