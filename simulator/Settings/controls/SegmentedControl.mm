#import <UIKit/UISegmentedControl+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"
#import "Settings/controls/ControlAdapter.h"
#import "Settings/views/ImageView.h"
#import "Settings/views/TextLook.h"

namespace sim {
namespace {

std::string_view type(UIView *) { return "segmented"; }

/// The colour is null where the system's stands, and so is the whole for a state that looks as on a device.
void writeTitleLook(JsonText &out, UISegmentedControl *control, UIControlState state) {
  UIColor *color = [control sim_titleColorForState:state];
  const bool isPlain =
      ![control titleTextAttributesForState:UIControlStateNormal] && ![control titleTextAttributesForState:state];
  if (isPlain) return out.null();
  UIFont *font = [control sim_titleFontForState:state];
  out.beginObject();
  writeColor(out.name("color"), color);
  out.name("fontSize").number([font pointSize]);
  writeFace(out, font);
  out.endObject();
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  UISegmentedControl *control = (UISegmentedControl *)view;
  const NSUInteger count = [control numberOfSegments];
  out.name("titles").beginArray();
  for (NSUInteger index = 0; index < count; ++index) writeText(out, [control titleForSegmentAtIndex:index]);
  out.endArray();
  out.name("images").beginArray();
  for (NSUInteger index = 0; index < count; ++index) {
    UIImage *image = [control imageForSegmentAtIndex:index];
    images.write(out, image, [image size], templateTint(image, [UIColor labelColor]));
  }
  out.endArray();
  out.name("enabled").beginArray();
  for (NSUInteger index = 0; index < count; ++index) out.flag([control isEnabledForSegmentAtIndex:index]);
  out.endArray();
  out.name("titleLooks").beginObject();
  writeTitleLook(out.name("normal"), control, UIControlStateNormal);
  writeTitleLook(out.name("selected"), control, UIControlStateSelected);
  writeTitleLook(out.name("disabled"), control, UIControlStateDisabled);
  out.endObject();
  writeColor(out.name("selectedTintColor"), [control selectedSegmentTintColor]);
  const NSInteger selected = [control selectedSegmentIndex];
  out.name("selected");
  if (selected < 0) return out.null();
  out.integer(selected);
}

bool writeValue(JsonText &out, UIView *view) {
  const NSInteger selected = [(UISegmentedControl *)view selectedSegmentIndex];
  if (selected < 0) return false;
  out.name("value").integer(selected);
  return true;
}

NSInteger segmentNamed(UISegmentedControl *control, const std::string &title) {
  for (NSUInteger index = 0; index < [control numberOfSegments]; ++index) {
    NSString *own = [control titleForSegmentAtIndex:index];
    if (own && title == utf8(own)) return static_cast<NSInteger>(index);
  }
  return -1;
}

/// To the number or the title of a segment.
const char *set(UIView *view, const Json &value, bool) {
  UISegmentedControl *control = (UISegmentedControl *)view;
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

}  // namespace

extern const ControlAdapter kSegmentedControl{.kind = [] { return [UISegmentedControl class]; },
                                              .type = type,
                                              .describe = describe,
                                              .writeValue = writeValue,
                                              .set = set};

}  // namespace sim
