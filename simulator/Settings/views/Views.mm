#import "Settings/views/Views.h"

#import "Settings/AdapterTable.h"
#import "Settings/JsonValues.h"
#import "Settings/views/Layer.h"
#import "Settings/views/ViewAdapter.h"

#include <objc/runtime.h>

namespace sim {

// Each stands in the file of its name.
extern const ViewAdapter kImageView, kLabel, kScrollView;

namespace {

/// nullptr for a view that has nothing but what every view has.
const ViewAdapter *adapterOf(UIView *view) {
  static const AdapterTable<ViewAdapter> views{&kImageView, &kLabel, &kScrollView};
  return views.of(view);
}

void writeAccessibility(JsonText &out, UIView *view) {
  writeText(out.name("accessibilityLabel"), [view accessibilityLabel]);
  writeText(out.name("accessibilityValue"), [view accessibilityValue]);
  writeText(out.name("accessibilityHint"), [view accessibilityHint]);
  writeText(out.name("accessibilityIdentifier"), [view accessibilityIdentifier]);
  out.name("isAccessibilityElement").flag([view isAccessibilityElement]);
}

}  // namespace

const char *alignmentName(NSTextAlignment alignment) {
  switch (alignment) {
    case NSTextAlignmentCenter: return "center";
    case NSTextAlignmentRight: return "right";
    case NSTextAlignmentJustified: return "justified";
    case NSTextAlignmentLeft: return "left";
    default: return "natural";
  }
}

std::string_view classNameOf(id object) { return class_getName([object class]); }

void writeFrame(JsonText &out, CGRect frame) {
  out.beginArray();
  out.number(frame.origin.x);
  out.number(frame.origin.y);
  out.number(frame.size.width);
  out.number(frame.size.height);
  out.endArray();
}

void writeView(JsonText &out, UIView *view, ImageStore &images) {
  const ViewAdapter *adapter = adapterOf(view);
  out.beginObject();
  out.name("type").string(adapter ? adapter->type : "view");
  if (adapter) adapter->describe(out, view, images);
  out.name("class").string(classNameOf(view));
  writeFrame(out.name("frame"), [view frame]);
  writeColor(out.name("backgroundColor"), [view backgroundColor]);
  writeLayer(out.name("layer"), view);
  out.name("clips").flag([view clipsToBounds]);
  out.name("hidden").flag([view isHidden]);
  out.name("alpha").number([view alpha]);
  writeAccessibility(out, view);
  out.name("views").beginArray();
  for (UIView *child in [view subviews]) writeView(out, child, images);
  out.endArray();
  out.endObject();
}

void writeOptionalView(JsonText &out, UIView *view, ImageStore &images) {
  if (!view) return out.null();
  writeView(out, view, images);
}

}  // namespace sim
