#import <UIKit/UIColorPickerViewController+Sim.h>

#import "Settings/presented/PresentedAdapter.h"

namespace sim {
namespace {

void describe(JsonText &out, UIViewController *presented, std::uint32_t number, ImageStore &) {
  UIColorPickerViewController *picker = (UIColorPickerViewController *)presented;
  out.name("kind").string("color");
  writeText(out.name("title"), [picker title] ?: @"Colors");
  out.name("items").beginArray();
  out.endArray();
  out.name("color").beginObject();
  out.name("id").string(ElementId{ElementKind::kSheetColor, number}.text());
  writeColor(out.name("value"), [[picker selectedColor] resolvedColorWithTraitCollection:[picker traitCollection]]);
  out.name("supportsAlpha").flag([picker supportsAlpha]);
  out.endObject();
}

EventResult set(UIViewController *presented, const ElementId &id, const Json &value, bool isFinished) {
  if (id.kind != ElementKind::kSheetColor) return unknown();
  UIColor *color = colorFrom(value);
  if (!color) return refused("A colour is set to \"#rrggbb\" or \"#rrggbbaa\".");
  return done([(UIColorPickerViewController *)presented sim_selectColorByUser:color continuously:!isFinished],
              "This picker takes opaque colours only.");
}

EventResult dismiss(UIViewController *presented) {
  [(UIColorPickerViewController *)presented sim_close];
  return {};
}

}  // namespace

extern const PresentedAdapter kColorPicker{
    .kind = [] { return [UIColorPickerViewController class]; }, .describe = describe, .set = set, .dismiss = dismiss};

}  // namespace sim
