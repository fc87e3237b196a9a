#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIDatePicker+Sim.h>

#import "Settings/controls/ControlAdapter.h"

#include <objcxx/Retained.h>

namespace sim {

extern const ControlAdapter kPicker;

namespace {

/// It is a picker with wheels of its own.
std::string_view type(UIView *view) { return kPicker.type(view); }

UIPickerView *wheelsOf(UIView *view) { return [(UIDatePicker *)view sim_wheels]; }

std::string_view modeName(UIDatePickerMode mode) {
  switch (mode) {
    case UIDatePickerModeTime: return "time";
    case UIDatePickerModeDate: return "date";
    case UIDatePickerModeCountDownTimer: return "countDownTimer";
    default: return "dateAndTime";
  }
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UIDatePicker *picker = (UIDatePicker *)view;
  kPicker.describe(out, wheelsOf(picker), images);
  const bool isDuration = [picker datePickerMode] == UIDatePickerModeCountDownTimer;
  out.name("mode").string(modeName([picker datePickerMode]));
  out.name("date").number(isDuration ? [picker countDownDuration] : [[picker date] timeIntervalSince1970]);
}

bool writeValue(JsonText &out, UIView *view) { return kPicker.writeValue(out, wheelsOf(view)); }

const char *set(UIView *view, const Json &value, bool isFinished) {
  if (![(UIDatePicker *)view sim_acceptsUser]) return kUnreachable;
  const auto kept = objcxx::share(view);
  return kPicker.set(wheelsOf(view), value, isFinished);
}

}  // namespace

extern const ControlAdapter kDatePicker{.kind = [] { return [UIDatePicker class]; },
                                        .type = type,
                                        .describe = describe,
                                        .writeValue = writeValue,
                                        .set = set};

}  // namespace sim
