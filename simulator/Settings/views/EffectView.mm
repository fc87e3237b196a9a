// Visual effect views as they are drawn.
#import <UIKit/UIBlurEffect+Sim.h>
#import <UIKit/UIVibrancyEffect+Sim.h>

#import "Settings/JsonValues.h"
#import "Settings/views/ViewAdapter.h"

namespace sim {
namespace {

void writeBlur(JsonText &out, UIBlurEffect *effect) {
  out.beginObject();
  out.name("type").string("blur");
  writeColor(out.name("tint"), [effect sim_tint]);
  out.name("radius").number([effect sim_radius]);
  out.name("saturation").number([effect sim_saturation]);
  out.endObject();
}

void writeVibrancy(JsonText &out, UIVibrancyEffect *effect) {
  out.beginObject();
  out.name("type").string("vibrancy");
  writeColor(out.name("color"), [effect sim_color]);
  out.endObject();
}

void describe(JsonText &out, UIView *view, ImageStore &) {
  UIVisualEffect *effect = [(UIVisualEffectView *)view effect];
  out.name("effect");
  if ([effect isKindOfClass:[UIBlurEffect class]]) return writeBlur(out, (UIBlurEffect *)effect);
  if ([effect isKindOfClass:[UIVibrancyEffect class]]) return writeVibrancy(out, (UIVibrancyEffect *)effect);
  out.null();
}

}  // namespace

extern const ViewAdapter kEffectView{
    .kind = [] { return [UIVisualEffectView class]; }, .type = "effect", .describe = describe};

}  // namespace sim
