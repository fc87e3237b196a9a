// A switch in a row: its look, its value, setting it.
#include "simulator/Settings/SessionTest.h"

namespace {

class SwitchTest : public SessionTest {};

TEST_F(SwitchTest, aSwitchHasItsTints) {
  const auto control = objcxx::adopt([[UISwitch alloc] initWithFrame:CGRectZero]);
  EXPECT_EQ(controlOf(control.get()),
            Json({{"type", "switch"}, {"onTintColor", nullptr}, {"thumbTintColor", nullptr}}));
  [control.get() setOnTintColor:[UIColor redColor]];
  [control.get() setThumbTintColor:[UIColor greenColor]];
  EXPECT_EQ(controlOf(control.get()),
            Json({{"type", "switch"}, {"onTintColor", "#ff0000ff"}, {"thumbTintColor", "#00ff00ff"}}));
}

TEST_F(SwitchTest, SwitchesTakeTruthValues) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  ControlPage *page = startControl(control);
  EXPECT_EQ(row(0, 0)["control"]["type"], "switch");
  EXPECT_EQ(row(0, 0)["value"], false);
  for (const Json &wrong : {Json(1), Json("true"), Json(), Json::array({true}), Json::object()}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, Outcome::refused);
  }
  EXPECT_EQ(set(rowId(0, 0), true), Outcome::done);
  EXPECT_TRUE([control isOn]);
  EXPECT_EQ(row(0, 0)["value"], true);
  EXPECT_EQ(set(rowId(0, 0), true), Outcome::done);
  EXPECT_EQ(calls(page), "changed");
  EXPECT_EQ(set(rowId(0, 0), false), Outcome::done);
  EXPECT_FALSE([control isOn]);
  EXPECT_EQ(calls(page), "changed,changed");
  [control setEnabled:NO];
  session().refresh();
  EXPECT_EQ(set(rowId(0, 0), false), Outcome::done) << "it is as it should be";
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
}

}  // namespace
