#import <UIKit/UIStepper+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/controls/ControlAdapter.h"
#import "Settings/views/ImageView.h"

#include <cmath>

namespace sim {
namespace {

// Presses that one event may stand for.
constexpr double kMostPresses = 1000;
// Of a step: what sums of steps such as 0.1 are off by.
constexpr double kNoise = 1e-6;
constexpr const char *kNoFurther = "It goes no further.";

std::string_view type(UIView *) { return "stepper"; }

void writeSymbol(JsonText &out, UIImage *image, UIView *control, ImageStore &images) {
  images.write(out, image, [image size], templateTint(image, [control tintColor]));
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UIStepper *stepper = (UIStepper *)view;
  out.name("min").number([stepper minimumValue]);
  out.name("max").number([stepper maximumValue]);
  out.name("step").number([stepper stepValue]);
  out.name("canIncrement").flag([stepper sim_canStep:YES]);
  out.name("canDecrement").flag([stepper sim_canStep:NO]);
  out.name("repeats").flag([stepper autorepeat]);
  writeSymbol(out.name("incrementImage"), [stepper incrementImageForState:[stepper state]], view, images);
  writeSymbol(out.name("decrementImage"), [stepper decrementImageForState:[stepper state]], view, images);
}

bool writeValue(JsonText &out, UIView *view) {
  out.name("value").number([(UIStepper *)view value]);
  return true;
}

const char *press(UIStepper *stepper, bool up, bool isFinished) {
  if ([stepper sim_stepByUser:up finished:isFinished]) return nullptr;
  return [stepper sim_canStep:up] ? kUnreachable : kNoFurther;
}

/// Presses one of the buttons until the value is `target`. The last step to an end may be a shorter one.
const char *pressUntil(UIStepper *stepper, double target, bool isFinished) {
  if (target < [stepper minimumValue] || target > [stepper maximumValue]) return kNoFurther;
  const bool isEnd = target == [stepper minimumValue] || target == [stepper maximumValue];
  const double steps = std::abs(target - [stepper value]) / [stepper stepValue];
  const double whole = std::round(steps);
  const bool isWhole = std::abs(steps - whole) <= kNoise;
  const double presses = isEnd && !isWhole ? std::ceil(steps) : whole;
  if (presses > kMostPresses || (!isWhole && !isEnd)) return "No few presses of its buttons lead there.";
  const bool up = target > [stepper value];
  const char *problem = nullptr;
  for (double made = 0; made < presses && !problem; ++made) problem = press(stepper, up, false);
  if (isFinished) [stepper sim_finishByUser];
  return problem;
}

const char *set(UIView *view, const Json &value, bool isFinished) {
  UIStepper *stepper = (UIStepper *)view;
  if (value == "increment") return press(stepper, true, isFinished);
  if (value == "decrement") return press(stepper, false, isFinished);
  if (value == "lift") {
    [stepper sim_finishByUser];
    return nullptr;
  }
  if (!value.is_number()) return "A stepper is set to a number, \"increment\", \"decrement\" or \"lift\".";
  return pressUntil(stepper, value.get<double>(), isFinished);
}

}  // namespace

extern const ControlAdapter kStepper{.kind = [] { return [UIStepper class]; },
                                     .type = type,
                                     .describe = describe,
                                     .writeValue = writeValue,
                                     .set = set,
                                     .isDragged = true};

}  // namespace sim
