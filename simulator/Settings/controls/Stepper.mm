#import <UIKit/UIStepper+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/controls/ControlAdapter.h"
#import "Settings/views/ImageView.h"

#include <cmath>

namespace sim {
namespace {

// Presses that one event may stand for.
constexpr double kMostSteps = 1000;

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
  return [stepper sim_canStep:up] ? kUnreachable : "It goes no further.";
}

const char *set(UIView *view, const Json &value, bool isFinished) {
  const auto stepper = objcxx::share((UIStepper *)view);
  if (value == "increment") return press(stepper.get(), true, isFinished);
  if (value == "decrement") return press(stepper.get(), false, isFinished);
  if (value == "lift") {
    [stepper.get() sim_finishByUser];
    return nullptr;
  }
  if (!value.is_number()) return "A stepper is set to a number, \"increment\", \"decrement\" or \"lift\".";
  const double steps = (value.get<double>() - [stepper.get() value]) / [stepper.get() stepValue];
  const double whole = std::round(steps);
  if (std::abs(whole) > kMostSteps || std::abs(steps - whole) > 1e-6)
    return "No few presses of its buttons lead there.";
  for (double step = 0; step < std::abs(whole); ++step) {
    if (const char *problem = press(stepper.get(), whole > 0, false)) return problem;
  }
  if (isFinished) [stepper.get() sim_finishByUser];
  return nullptr;
}

}  // namespace

extern const ControlAdapter kStepper{.kind = [] { return [UIStepper class]; },
                                     .type = type,
                                     .describe = describe,
                                     .writeValue = writeValue,
                                     .set = set,
                                     .isDragged = true};

}  // namespace sim
