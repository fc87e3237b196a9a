// A stepper in a row: its look, its value, pressing its buttons.
#include "simulator/Settings/SessionTest.h"

namespace {

class StepperControlTest : public SessionTest {};

TEST_F(StepperControlTest, aStepperHasItsRange) {
  const auto control = objcxx::adopt([[UIStepper alloc] initWithFrame:CGRectZero]);
  [control.get() setMinimumValue:-10];
  [control.get() setMaximumValue:10];
  [control.get() setStepValue:2.5];
  [control.get() setValue:-10];
  EXPECT_EQ(controlOf(control.get()), Json({{"type", "stepper"},
                                            {"min", -10},
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
  EXPECT_TRUE(look["decrementImage"].is_null());
}

TEST_F(StepperControlTest, SteppersTakePressesAndNumbersThatTheyLeadTo) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setMaximumValue:6];
  [control setStepValue:2];
  ControlPage *page = startControl(control);
  EXPECT_EQ(row(0, 0)["value"], 0);
  for (const Json &wrong : {Json(true), Json("up"), Json(1), Json(8), Json(-2), Json("decrement"), Json(1e12)}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, Outcome::refused);
  }
  EXPECT_EQ(set(rowId(0, 0), "decrement"), Outcome::refused);
  EXPECT_EQ(reply["error"], "It goes no further.");
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(set(rowId(0, 0), "increment"), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 2);
  EXPECT_EQ(set(rowId(0, 0), 6), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 6);
  EXPECT_EQ(set(rowId(0, 0), 4), Outcome::done);
  EXPECT_EQ(calls(page), "changed,changed,changed,changed");
  [control setEnabled:NO];
  EXPECT_EQ(set(rowId(0, 0), "increment"), Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
  EXPECT_EQ(set(rowId(0, 0), 6), Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
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
  EXPECT_EQ(send({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "decrement"}, {"finished", false}}), Outcome::done);
  EXPECT_EQ(send({{"type", "set"}, {"id", rowId(0, 0)}, {"value", 5}, {"finished", false}}), Outcome::done);
  EXPECT_EQ(calls(page), "changed") << "the finger stays";
  EXPECT_EQ(set(rowId(0, 0), 9), Outcome::done);
  EXPECT_EQ(calls(page), "changed,changed") << "of all the presses at once, when the finger lifts";
}

TEST_F(StepperControlTest, TheEndsAreReachedByAShorterLastStep) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setMaximumValue:7];
  [control setStepValue:3];
  ControlPage *page = startControl(control);
  EXPECT_EQ(set(rowId(0, 0), 7), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 7);
  EXPECT_EQ(calls(page), "changed,changed,changed");
  EXPECT_EQ(set(rowId(0, 0), 0), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 0);
}

TEST_F(StepperControlTest, ANumberBeyondTheEndsIsNoneThatGoingRoundLeadsTo) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setMaximumValue:6];
  [control setWraps:YES];
  ControlPage *page = startControl(control);
  for (const int beyond : {-1, 8}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", beyond}}, Outcome::refused);
    EXPECT_EQ(reply["error"], "It goes no further.");
  }
  EXPECT_EQ(calls(page), "");
  EXPECT_EQ(set(rowId(0, 0), "decrement"), Outcome::done);
  EXPECT_EQ(row(0, 0)["value"], 6) << "the button goes round";
}

TEST_F(StepperControlTest, StepsThatNoNumberHasExactlyAreCountedAllTheSame) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setMaximumValue:1];
  [control setStepValue:0.1];
  ControlPage *page = startControl(control);
  EXPECT_EQ(set(rowId(0, 0), 0.3), Outcome::done);
  EXPECT_EQ(calls(page), "changed,changed,changed");
  EXPECT_EQ(set(rowId(0, 0), 0.7), Outcome::done);
  EXPECT_NEAR([control value], 0.7, 1e-9);
  [control setValue:0.1 + 0.1 + 0.1];
  EXPECT_EQ(set(rowId(0, 0), 0.1), Outcome::done);
  EXPECT_NEAR([control value], 0.1, 1e-9);
}

TEST_F(StepperControlTest, AThousandPressesAreTheMostThatOneEventStandsFor) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setMaximumValue:5000];
  startControl(control);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", 1001}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "No few presses of its buttons lead there.");
  EXPECT_EQ(set(rowId(0, 0), 1000), Outcome::done);
  EXPECT_EQ([control value], 1000);
}

TEST_F(StepperControlTest, PicturesOnTheButtonsAreTintedAndThoseOfTheState) {
  UIStepper *control = [[[UIStepper alloc] initWithFrame:CGRectZero] autorelease];
  [control setTintColor:[UIColor redColor]];
  [control setIncrementImage:picture(12) forState:UIControlStateNormal];
  [control setIncrementImage:picture(14) forState:UIControlStateDisabled];
  [control setDecrementImage:[picture(16) imageWithRenderingMode:UIImageRenderingModeAlwaysOriginal]
                    forState:UIControlStateNormal];
  const Json look = controlOf(control);
  EXPECT_EQ(look["incrementImage"]["width"], 12);
  EXPECT_EQ(look["incrementImage"]["tint"], "#ff0000ff");
  EXPECT_EQ(look["decrementImage"]["width"], 16);
  EXPECT_TRUE(look["decrementImage"]["tint"].is_null());
  [control setEnabled:NO];
  EXPECT_EQ(controlOf(control)["incrementImage"]["width"], 14);
}

}  // namespace
