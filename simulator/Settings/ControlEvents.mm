#import "Settings/ControlEvents.hpp"

#import <UIKit/UIKit.h>
#import <UIKit/UISegmentedControl+Sim.h>
#import <UIKit/UISlider+Sim.h>
#import <UIKit/UISwitch+Sim.h>
#import <UIKit/UITextField+Sim.h>
#import <UIKit/UITextView+Sim.h>

#import "Settings/ControlDescription.hpp"

#include <algorithm>
#include <limits>

namespace sim {
namespace {

constexpr const char *kUnreachable = "This control is disabled.";

const char *setSwitch(UISwitch *control, const Json &value) {
  if (!value.is_boolean()) return "A switch is set to true or false.";
  if (static_cast<bool>([control isOn]) == value.get<bool>()) return nullptr;
  return [control sim_setOnByUser:value.get<bool>()] ? nullptr : kUnreachable;
}

const char *setSlider(UISlider *control, const Json &value, bool isFinished) {
  if (!value.is_number()) return "A slider is set to a number.";
  constexpr double most = std::numeric_limits<float>::max();
  const auto number = static_cast<float>(std::clamp(value.get<double>(), -most, most));
  return [control sim_setValueByUser:number finished:isFinished] ? nullptr : kUnreachable;
}

NSInteger segmentNamed(UISegmentedControl *control, const std::string &title) {
  for (NSUInteger index = 0; index < [control numberOfSegments]; ++index) {
    if (title == utf8([control titleForSegmentAtIndex:index])) return static_cast<NSInteger>(index);
  }
  return -1;
}

const char *setSegment(UISegmentedControl *control, const Json &value) {
  NSInteger index = -1;
  if (value.is_number_unsigned()) {
    const auto wanted = value.get<std::uint64_t>();
    if (wanted < [control numberOfSegments]) index = static_cast<NSInteger>(wanted);
  } else if (value.is_string()) {
    index = segmentNamed(control, value.get_ref<const std::string &>());
  }
  if (index < 0) return "Segments are set to the number or the title of a segment.";
  if ([control selectedSegmentIndex] == index) return nullptr;
  return [control sim_selectByUser:index] ? nullptr : kUnreachable;
}

/// Both kinds answer the same messages of a person's.
bool isTextControl(UIView *control) {
  return [control isKindOfClass:[UITextField class]] || [control isKindOfClass:[UITextView class]];
}

}  // namespace

const char *setControl(UIView *view, const Json &value, bool isFinished) {
  UIView *control = findControl(view);
  if ([control isKindOfClass:[UISlider class]]) return setSlider((UISlider *)control, value, isFinished);
  if (!isFinished) return "Only a slider is dragged.";
  if ([control isKindOfClass:[UISwitch class]]) return setSwitch((UISwitch *)control, value);
  if ([control isKindOfClass:[UISegmentedControl class]]) return setSegment((UISegmentedControl *)control, value);

  if (!isTextControl(control)) return "There is nothing to set here.";
  if (!value.is_string()) return "A text field is set to a text.";
  NSString *text = stringFrom(value);
  if (!text) return "The text is not valid.";
  return [(UITextField *)control sim_enterText:text] ? nullptr : kUnreachable;
}

const char *pasteIntoControl(UIView *view) {
  UIView *control = findControl(view);
  if (!isTextControl(control)) return "Nothing can be pasted here.";
  if (![[UIPasteboard generalPasteboard] hasStrings]) return "The pasteboard is empty.";
  return [(UITextField *)control sim_pasteByUser] ? nullptr : kUnreachable;
}

}  // namespace sim
