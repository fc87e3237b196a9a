#import "Settings/controls/AccessoryButton.h"

#import <UIKit/UIControl+Sim.h>
#import <objcxx/Retained.h>

#import "Settings/JsonValues.h"
#import "Settings/views/Views.h"

namespace sim {
namespace {

/// At or below `view`, depth first; nil when there is none.
UIButton *findButton(UIView *view) {
  if (!view || [view isHidden]) return nil;
  if ([view isKindOfClass:[UIButton class]]) return (UIButton *)view;
  for (UIView *child in [view subviews]) {
    if (UIButton *found = findButton(child)) return found;
  }
  return nil;
}

}  // namespace

void writeAccessoryButton(JsonText &out, UIView *accessory) {
  UIButton *button = findButton(accessory);
  if (!button) return out.null();
  out.beginObject();
  out.name("close").flag([button buttonType] == UIButtonTypeClose);
  out.name("enabled").flag([button isEnabled]);
  out.name("menu").flag([button sim_showsMenu]);
  writeText(out.name("title"), [button currentTitle]);
  writeText(out.name("accessibilityLabel"), [button accessibilityLabel]);
  writeFrame(out.name("frame"), [button convertRect:[button bounds] toView:accessory]);
  out.endObject();
}

EventResult tapAccessoryButton(UIView *accessory) {
  const auto button = objcxx::share(findButton(accessory));
  return done([button.get() sim_tapByUser], button ? "This button is disabled." : "This row has no button.");
}

}  // namespace sim
