#import <UIKit/UISlider+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/controls/ControlAdapter.h"
#import "Settings/views/ImageView.h"

#include <algorithm>
#include <limits>

namespace sim {
namespace {

std::string_view type(UIView *) { return "slider"; }

/// The picture at one end of the track; null for nil.
void writeEnd(JsonText &out, UIImage *image, UISlider *slider, ImageStore &images) {
  images.write(out, image, [image size], templateTint(image, slider));
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UISlider *slider = (UISlider *)view;
  out.name("min").number([slider minimumValue]);
  out.name("max").number([slider maximumValue]);
  const bool hearsSteps = [slider isContinuous] || ([slider allControlEvents] & UIControlEventTouchDragInside) != 0;
  out.name("followed").flag(hearsSteps);
  writeColor(out.name("minimumTrackTintColor"), [slider minimumTrackTintColor] ?: [slider tintColor]);
  writeColor(out.name("maximumTrackTintColor"), [slider maximumTrackTintColor]);
  writeColor(out.name("thumbTintColor"), [slider thumbTintColor]);
  writeEnd(out.name("minimumImage"), [slider minimumValueImage], slider, images);
  writeEnd(out.name("maximumImage"), [slider maximumValueImage], slider, images);
}

bool writeValue(JsonText &out, UIView *view) {
  out.name("value").number([(UISlider *)view value]);
  return true;
}

const char *set(UIView *view, const Json &value, bool isFinished) {
  if (!value.is_number()) return "A slider is set to a number.";
  constexpr double most = std::numeric_limits<float>::max();
  const auto number = static_cast<float>(std::clamp(value.get<double>(), -most, most));
  return [(UISlider *)view sim_setValueByUser:number finished:isFinished] ? nullptr : kUnreachable;
}

}  // namespace

extern const ControlAdapter kSlider{.kind = [] { return [UISlider class]; },
                                    .type = type,
                                    .describe = describe,
                                    .writeValue = writeValue,
                                    .set = set,
                                    .isDragged = true};

}  // namespace sim
