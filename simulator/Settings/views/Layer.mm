#import "Settings/views/Layer.h"

#import <QuartzCore/QuartzCore.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/JsonValues.h"

#include <utility>

namespace sim {
namespace {

void writeCorners(JsonText &out, CACornerMask corners) {
  static constexpr std::pair<CACornerMask, const char *> kNames[] = {{kCALayerMinXMinYCorner, "topLeft"},
                                                                     {kCALayerMaxXMinYCorner, "topRight"},
                                                                     {kCALayerMaxXMaxYCorner, "bottomRight"},
                                                                     {kCALayerMinXMaxYCorner, "bottomLeft"}};
  out.beginArray();
  for (const auto &[corner, name] : kNames) {
    if (corners & corner) out.string(name);
  }
  out.endArray();
}

}  // namespace

void writeShadow(JsonText &out, UIView *view) {
  CALayer *layer = [view sim_layerIfMade];
  if (!layer || [layer shadowOpacity] <= 0 || ![layer shadowColor]) return out.null();
  out.beginObject();
  writeColor(out.name("color"), [UIColor colorWithCGColor:[layer shadowColor]]);
  out.name("x").number([layer shadowOffset].width);
  out.name("y").number([layer shadowOffset].height);
  out.name("opacity").number([layer shadowOpacity]);
  out.name("radius").number([layer shadowRadius]);
  out.endObject();
}

void writeLayer(JsonText &out, UIView *view) {
  CALayer *layer = [view sim_layerIfMade];
  const bool hasShadow = [layer shadowOpacity] > 0 && [layer shadowColor];
  if (!layer || ([layer cornerRadius] <= 0 && [layer borderWidth] <= 0 && !hasShadow)) return out.null();
  out.beginObject();
  out.name("cornerRadius").number([layer cornerRadius]);
  writeCorners(out.name("corners"), [layer maskedCorners]);
  out.name("borderWidth").number([layer borderWidth]);
  writeColor(out.name("borderColor"), [layer borderColor] ? [UIColor colorWithCGColor:[layer borderColor]] : nil);
  writeShadow(out.name("shadow"), view);
  out.endObject();
}

}  // namespace sim
