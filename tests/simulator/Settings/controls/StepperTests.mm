// A stepper in a row: its look, its value, pressing its buttons.
#include "simulator/Settings/SessionTest.h"

namespace {

class StepperControlTest : public SessionTest {};

TEST_F(StepperControlTest, aStepperHasItsRange) {
  const auto control = objcxx::adopt([[UIStepper alloc] initWithFrame:CGRectZero]);
  [control.get() setMaximumValue:10];
  [control.get() setStepValue:2.5];
  EXPECT_EQ(controlOf(control.get()), Json({{"type", "stepper"},
                                            {"min", 0},
                                            {"max", 10},
                                            {"step", 2.5},
                                            {"canIncrement", true},
                                            {"canDecrement", false},
                                            {"repeats", true},
                                            {"incrementImage", nullptr},
                                            {"decrementImage", nullptr}}));
  [control.get() setWraps:YES];
  [control.get() setAutorepeat:NO];
  [control.get() setIncrementImage:picture(12) forState:UIControlStateNormal];
  const Json look = controlOf(control.get());
  EXPECT_EQ(look["canDecrement"], true);
  EXPECT_EQ(look["repeats"], false);
  EXPECT_EQ(look["incrementImage"]["width"], 12);
}

TEST_F(StepperControlTest, SteppersTakePressesAndNumbersThatTheyLeadTo) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setMaximumValue:6];
  [control setStepValue:2];
  ControlPage *page = startControl(control);
  EXPECT_EQ(row(0, 0)["value"], 0);
  for (const Json &wrong : {Json(true), Json("up"), Json(1), Json(8), Json(-2), Json("decrement"), Json(1e12)}) {
    EXPECT_EQ(set(rowId(0, 0), wrong), Outcome::refused) << wrong;
  }
  [control setValue:0];
  [page->calls.get() removeAllObjects];
  EXPECT_EQ(set(rowId(0, 0), "increment"), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 2);
  EXPECT_EQ(set(rowId(0, 0), 6), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 6);
  EXPECT_EQ(set(rowId(0, 0), 4), Outcome::done);
  EXPECT_EQ(calls(page), "changed,changed,changed,changed");
  [control setEnabled:NO];
  EXPECT_EQ(set(rowId(0, 0), "increment"), Outcome::refused);
}

TEST_F(StepperControlTest, AFingerThatStaysIsToldOfAtTheEnd) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setContinuous:NO];
  ControlPage *page = startControl(control);
  const Json press{{"type", "set"}, {"id", rowId(0, 0)}, {"value", "increment"}, {"finished", false}};
  EXPECT_EQ(send(press), Outcome::done);
  EXPECT_EQ(send(press), Outcome::done);
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(set(rowId(0, 0), "lift"), Outcome::done);
  EXPECT_EQ(calls(page), "changed");
  EXPECT_EQ(row(0, 0)["value"], 2);
}

}  // namespace
