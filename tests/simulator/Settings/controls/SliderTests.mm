// A slider in a row: its look, its value, setting and dragging it.
#include "simulator/Settings/SessionTest.h"

namespace {

class SliderTest : public SessionTest {};

TEST_F(SliderTest, aSliderHasItsTintsAndPictures) {
  const auto slider = objcxx::adopt([[UISlider alloc] initWithFrame:CGRectMake(0, 0, 100, 34)]);
  [slider.get() setTintColor:[UIColor redColor]];
  EXPECT_EQ(controlOf(slider.get())["minimumTrackTintColor"], "#ff0000ff");
  [slider.get() setMinimumTrackTintColor:[UIColor greenColor]];
  [slider.get() setMaximumTrackTintColor:[UIColor blueColor]];
  [slider.get() setThumbTintColor:[UIColor whiteColor]];
  [slider.get() setMinimumValueImage:picture(10)];
  [slider.get() setMaximumValueImage:[picture(20) imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate]];
  const Json described = controlOf(slider.get());
  EXPECT_EQ(described["minimumTrackTintColor"], "#00ff00ff");
  EXPECT_EQ(described["maximumTrackTintColor"], "#0000ffff");
  EXPECT_EQ(described["thumbTintColor"], "#ffffffff");
  EXPECT_EQ(described["minimumImage"]["width"], 10);
  EXPECT_TRUE(described["minimumImage"]["tint"].is_null());
  EXPECT_EQ(described["maximumImage"]["tint"], "#ff0000ff");
}

TEST_F(SliderTest, SlidersTakeNumbersWithinTheirLimits) {
  UISlider *control = [[[UISlider alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  [control setMinimumValue:-5];
  [control setMaximumValue:10];
  startControl(control);
  for (const Json &wrong : {Json("3"), Json(true), Json()}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, Outcome::refused);
  }
  EXPECT_EQ(set(rowId(0, 0), 2.5), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 2.5);
  EXPECT_EQ(set(rowId(0, 0), 1e300), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 10);
  EXPECT_EQ(set(rowId(0, 0), -1e300), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], -5);
  EXPECT_EQ(row(0, 0)["control"]["min"], -5);
  EXPECT_EQ(row(0, 0)["control"]["max"], 10);
  [control setEnabled:NO];
  session().refresh();
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", 1}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
}

TEST_F(SliderTest, ASliderIsDraggedUntilTheFingerLifts) {
  UISlider *control = [[[UISlider alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  [control setContinuous:NO];
  ControlPage *page = startControl(control);
  const auto drag = [&](double value, const Json &finished) {
    return send({{"type", "set"}, {"id", rowId(0, 0)}, {"value", value}, {"finished", finished}});
  };
  EXPECT_EQ(row(0, 0)["control"]["followed"], false);
  [control setContinuous:YES];
  session().refresh();
  EXPECT_EQ(row(0, 0)["control"]["followed"], true) << "each step is told";
  [control setContinuous:NO];
  session().refresh();
  EXPECT_EQ(drag(0.25, false), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 0.25);
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(drag(0.5, true), Outcome::done);
  EXPECT_EQ(calls(page), "changed");
  EXPECT_EQ(drag(0.75, 1), Outcome::malformed);
  EXPECT_EQ(drag(0.75, nullptr), Outcome::malformed);
  EXPECT_EQ(row(0, 0)["value"], 0.5);
  [control addTarget:page action:@selector(changed:) forControlEvents:UIControlEventTouchDragInside];
  EXPECT_EQ(drag(0.75, false), Outcome::done);
  EXPECT_EQ(row(0, 0)["control"]["followed"], true);
  EXPECT_EQ(calls(page), "changed,changed");
}

}  // namespace
