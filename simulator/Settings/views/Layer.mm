#import "Settings/views/Layer.h"

#import <CoreGraphics/CGColor+Sim.h>
#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/CGPath+Sim.h>
#import <QuartzCore/CAGradientLayer+Sim.h>
#import <QuartzCore/CAShapeLayer+Sim.h>
#import <QuartzCore/QuartzCore.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"
#import "Settings/views/Views.h"

#include <initializer_list>
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

void writeNumbers(JsonText &out, std::initializer_list<CGFloat> numbers) {
  out.beginArray();
  for (const CGFloat number : numbers) out.number(number);
  out.endArray();
}

void writeCGColor(JsonText &out, CGColorRef color) { writeColor(out, color ? [UIColor colorWithCGColor:color] : nil); }

bool casts(CALayer *layer) { return layer && [layer shadowOpacity] > 0 && [layer shadowColor]; }

void writeShadow(JsonText &out, CALayer *layer) {
  if (!casts(layer)) return out.null();
  out.beginObject();
  writeCGColor(out.name("color"), [layer shadowColor]);
  out.name("x").number([layer shadowOffset].width);
  out.name("y").number([layer shadowOffset].height);
  out.name("opacity").number([layer shadowOpacity]);
  out.name("radius").number([layer shadowRadius]);
  out.name("path");
  if ([layer shadowPath]) {
    out.string(pathOf([layer shadowPath]).svg());
  } else {
    out.null();
  }
  out.endObject();
}

/// How the contents lie in the layer, by the names of content modes: those of gravities point up.
const char *contentModeOf(NSString *gravity) {
  static constexpr std::pair<const char *, const char *> kModes[] = {{"resizeAspect", "scaleAspectFit"},
                                                                     {"resizeAspectFill", "scaleAspectFill"},
                                                                     {"center", "center"},
                                                                     {"top", "bottom"},
                                                                     {"bottom", "top"},
                                                                     {"left", "left"},
                                                                     {"right", "right"},
                                                                     {"topLeft", "bottomLeft"},
                                                                     {"topRight", "bottomRight"},
                                                                     {"bottomLeft", "topLeft"},
                                                                     {"bottomRight", "topRight"}};
  for (const auto &[known, mode] : kModes) {
    if ([gravity isEqualToString:[NSString stringWithUTF8String:known]]) return mode;
  }
  return "scaleToFill";
}

/// The contents as an image that keeps its number while the layer keeps its contents.
UIImage *imageOfContents(CALayer *layer) {
  if (!isImage([layer contents])) return nil;
  UIImage *image = [layer sim_madeOfContents];
  if (image && [image scale] == [layer contentsScale]) return image;
  image = [UIImage imageWithCGImage:(CGImageRef)[layer contents]
                              scale:[layer contentsScale]
                        orientation:UIImageOrientationUp];
  [layer sim_setMadeOfContents:image];
  return image;
}

void writeContents(JsonText &out, CALayer *layer, CALayer *shown, ImageStore &images) {
  UIImage *image = imageOfContents(layer);
  if (!image) return out.null();
  const char *const mode = contentModeOf([layer contentsGravity]);
  const bool isScaled = std::string_view(mode).starts_with("scale");
  out.beginObject();
  images.write(out.name("image"), image, isScaled ? [shown bounds].size : [image size]);
  out.name("contentMode").string(mode);
  out.endObject();
}

void writeGradient(JsonText &out, CALayer *layer) {
  if (![layer isKindOfClass:[CAGradientLayer class]]) return out.null();
  CAGradientLayer *gradient = (CAGradientLayer *)layer;
  const auto stops = stopsOf(gradient);
  if (stops.empty()) return out.null();
  out.beginObject();
  writeText(out.name("type"), [gradient type]);
  writeNumbers(out.name("start"), {[gradient startPoint].x, [gradient startPoint].y});
  writeNumbers(out.name("end"), {[gradient endPoint].x, [gradient endPoint].y});
  out.name("stops").beginArray();
  for (const auto &[place, color] : stops) {
    out.beginObject();
    out.name("place").number(place);
    writeColor(out.name("color"), [UIColor colorWithRed:color.red green:color.green blue:color.blue alpha:color.alpha]);
    out.endObject();
  }
  out.endArray();
  out.endObject();
}

void writeShape(JsonText &out, CALayer *layer) {
  if (![layer isKindOfClass:[CAShapeLayer class]] || ![(CAShapeLayer *)layer path]) return out.null();
  CAShapeLayer *shape = (CAShapeLayer *)layer;
  out.beginObject();
  out.name("path").string(pathOf([shape path]).svg());
  writeCGColor(out.name("fillColor"), [shape fillColor]);
  out.name("evenOdd").flag([[shape fillRule] isEqualToString:kCAFillRuleEvenOdd]);
  writeCGColor(out.name("strokeColor"), [shape strokeColor]);
  out.name("strokedPath").string([shape strokeColor] ? strokedPath(shape).svg() : "");
  out.name("lineWidth").number([shape lineWidth]);
  writeText(out.name("lineCap"), [shape lineCap]);
  writeText(out.name("lineJoin"), [shape lineJoin]);
  out.name("miterLimit").number([shape miterLimit]);
  out.name("dashes").beginArray();
  for (NSNumber *length in [shape lineDashPattern]) out.number([length doubleValue]);
  out.endArray();
  out.name("dashPhase").number([shape lineDashPhase]);
  out.endObject();
}

/// What the mask leaves of a layer, as a picture of the layer's size.
void writeMask(JsonText &out, CALayer *layer, ImageStore &images) {
  CALayer *mask = [layer mask];
  const CGRect bounds = [layer bounds];
  const CGFloat scale = [[UIScreen mainScreen] scale];
  const CGContextRef context = mask ? createImageContext(bounds.size, scale, false) : nullptr;
  if (!context) return out.null();
  CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
  CGContextConcatCTM(context, transformToParent([[mask sim_shown] sim_geometry]));
  [mask renderInContext:context];
  const CGImageRef drawn = createImage(sourceOf(snapshot(context)));
  CGContextRelease(context);
  // Made of bytes, an image has the number of one that was the same.
  NSData *file = UIImagePNGRepresentation([UIImage imageWithCGImage:drawn]);
  CGImageRelease(drawn);
  images.write(out, [UIImage imageWithData:file scale:scale], bounds.size);
}

bool addsNothing(CALayer *layer) {
  return !layer || ([layer cornerRadius] <= 0 && [layer borderWidth] <= 0 && !casts(layer) && ![layer contents] &&
                    ![layer isKindOfClass:[CAGradientLayer class]] && ![layer isKindOfClass:[CAShapeLayer class]]);
}

void writeMatrix(JsonText &out, const CATransform3D &t) {
  writeNumbers(out, {t.m11, t.m12, t.m13, t.m14, t.m21, t.m22, t.m23, t.m24, t.m31, t.m32, t.m33, t.m34, t.m41, t.m42,
                     t.m43, t.m44});
}

void writePlace(JsonText &out, const LayerGeometry &geometry, CGRect frame, bool scrolls) {
  writeFrame(out.name("frame"), frame);
  out.name("transform");
  if (CATransform3DIsIdentity(geometry.transform)) {
    out.null();
  } else {
    out.beginObject();
    writeMatrix(out.name("matrix"), geometry.transform);
    writeFrame(out.name("rect"), {geometry.origin, geometry.bounds.size});
    writeNumbers(out.name("anchor"), {geometry.anchorPoint.x, geometry.anchorPoint.y});
    out.endObject();
  }
  const CGPoint origin = geometry.bounds.origin;
  out.name("boundsOrigin");
  if (scrolls || CGPointEqualToPoint(origin, CGPointZero)) return out.null();
  writeNumbers(out, {origin.x, origin.y});
}

/// A view where the layer is that of one, else the layer.
id viewOrLayer(CALayer *layer) { return [layer sim_owner] ? (id)[layer sim_owner] : layer; }

}  // namespace

void writeShadow(JsonText &out, UIView *view) { writeShadow(out, [[view sim_layerIfMade] sim_shown]); }

void writeLayer(JsonText &out, UIView *view, ImageStore &images) { writeLayer(out, [view sim_layerIfMade], images); }

void writeLayer(JsonText &out, CALayer *layer, ImageStore &images) {
  [layer displayIfNeeded];
  if (addsNothing(layer) && ![layer mask]) return out.null();
  CALayer *shown = [layer sim_shown];
  out.beginObject();
  out.name("cornerRadius").number([shown cornerRadius]);
  writeCorners(out.name("corners"), [shown maskedCorners]);
  out.name("borderWidth").number([shown borderWidth]);
  writeCGColor(out.name("borderColor"), [shown borderColor]);
  writeShadow(out.name("shadow"), shown);
  writeContents(out.name("contents"), layer, shown, images);
  writeGradient(out.name("gradient"), shown);
  writeShape(out.name("shape"), shown);
  writeMask(out.name("mask"), layer, images);
  out.endObject();
}

void writePlace(JsonText &out, CALayer *layer) { writePlace(out, [layer sim_geometry], [layer frame], false); }

void writePlace(JsonText &out, UIView *view) {
  CALayer *layer = [view sim_layerIfMade];
  CALayer *shown = [layer sim_shown];
  if (shown != layer) return writePlace(out, shown);
  writePlace(out, [view sim_layerGeometry], [view frame], [view isKindOfClass:[UIScrollView class]]);
}

NSArray *childrenOf(UIView *view) {
  CALayer *layer = [view sim_layerIfMade];
  bool isInOrder = ![layer sim_hasOwnSublayers];
  for (UIView *child in [view subviews]) {
    if (!isInOrder) break;
    isInOrder = [[child sim_layerIfMade] zPosition] == 0;
  }
  if (isInOrder) return [view subviews];
  NSMutableArray *children = [NSMutableArray array];
  for (CALayer *each in [[view layer] sim_sublayersInDrawingOrder]) [children addObject:viewOrLayer(each)];
  return children;
}

}  // namespace sim
