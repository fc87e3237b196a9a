#import "Settings/ViewDescription.hpp"

#import <QuartzCore/QuartzCore.h>
#import <UIKit/UIFont+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIView+Sim.h>

#import "Settings/ImageStore.hpp"
#import "Settings/JsonValues.hpp"

#include <objc/runtime.h>

#include <algorithm>
#include <utility>

namespace sim {
namespace {

/// How much of a disabled label's colour is left.
constexpr CGFloat kDisabledAlpha = 0.4;

/// Points: the font's size, or less where the label is to make its one line fit. Without a least factor there is no end
/// to it, as on a device.
CGFloat shownFontSize(UILabel *label) {
  const CGFloat size = [[label font] pointSize];
  const CGFloat room = [label bounds].size.width;
  if (![label adjustsFontSizeToFitWidth] || [label numberOfLines] != 1 || room <= 0) return size;
  const CGFloat width = [label sizeThatFits:CGSizeZero].width;
  const CGFloat least = std::min<CGFloat>([label minimumScaleFactor], 1);
  return width <= room ? size : size * std::clamp<CGFloat>(room / width, least, 1);
}

void writeTextShadow(JsonText &out, UILabel *label) {
  if (![label shadowColor]) return out.null();
  out.beginObject();
  writeColor(out.name("color"), [label shadowColor]);
  out.name("x").number([label shadowOffset].width);
  out.name("y").number([label shadowOffset].height);
  out.endObject();
}

void writeLabel(JsonText &out, UILabel *label) {
  out.name("type").string("label");
  writeText(out.name("text"), [label text]);
  out.name("fontSize").number(shownFontSize(label));
  out.name("fontWeight").integer(textStyle([label font]).weight);
  writeColor(out.name("color"), shownColor(label));
  writeTextShadow(out.name("textShadow"), label);
  out.name("alignment").string(alignmentName([label textAlignment]));
  out.name("lines").integer([label numberOfLines]);
}

void writeImageView(JsonText &out, UIImageView *view, ImageStore &images) {
  UIImage *image = shownImage(view);
  out.name("type").string("image");
  images.write(out.name("image"), image, [view frame].size, templateTint(image, view));
  out.name("contentMode").string(contentModeName([view contentMode]));
}

void writeScrollView(JsonText &out, UIScrollView *view) {
  out.name("type").string("scroll");
  out.name("scrolls").flag([view isScrollEnabled]);
  out.name("contentSize").beginArray();
  out.number([view contentSize].width);
  out.number([view contentSize].height);
  out.endArray();
  const UIEdgeInsets inset = [view contentInset];
  out.name("contentInset").beginArray();
  for (const CGFloat side : {inset.top, inset.left, inset.bottom, inset.right}) out.number(side);
  out.endArray();
}

void writeAccessibility(JsonText &out, UIView *view) {
  writeText(out.name("accessibilityLabel"), [view accessibilityLabel]);
  writeText(out.name("accessibilityValue"), [view accessibilityValue]);
  writeText(out.name("accessibilityHint"), [view accessibilityHint]);
  writeText(out.name("accessibilityIdentifier"), [view accessibilityIdentifier]);
  out.name("isAccessibilityElement").flag([view isAccessibilityElement]);
}

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

const char *contentModeName(UIViewContentMode mode) {
  switch (mode) {
    case UIViewContentModeScaleAspectFit: return "scaleAspectFit";
    case UIViewContentModeScaleAspectFill: return "scaleAspectFill";
    case UIViewContentModeCenter: return "center";
    default: return "scaleToFill";
  }
}

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

UIColor *shownColor(UILabel *label) {
  UIColor *color =
      [label isHighlighted] && [label highlightedTextColor] ? [label highlightedTextColor] : [label textColor];
  return !label || [label isEnabled] ? color : [color colorWithAlphaComponent:kDisabledAlpha];
}

UIImage *shownImage(UIImageView *view) {
  return [view isHighlighted] && [view highlightedImage] ? [view highlightedImage] : [view image];
}

UIColor *templateTint(UIImage *image, UIView *view) {
  const UIImageRenderingMode mode = [image renderingMode];
  if (!image || mode == UIImageRenderingModeAlwaysOriginal) return nil;
  if (mode == UIImageRenderingModeAlwaysTemplate) return [view tintColor];
  // Left to the view, an image is a template in the buttons that the system draws.
  UIView *parent = [view superview];
  const bool isInSystemButton =
      [parent isKindOfClass:[UIButton class]] && [(UIButton *)parent buttonType] != UIButtonTypeCustom;
  return isInSystemButton ? [view tintColor] : nil;
}

UIColor *templateTint(UIImage *image, UIColor *color) {
  return [image renderingMode] == UIImageRenderingModeAlwaysOriginal ? nil : color;
}

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

void writeView(JsonText &out, UIView *view, ImageStore &images) {
  out.beginObject();
  if ([view isKindOfClass:[UILabel class]]) {
    writeLabel(out, (UILabel *)view);
  } else if ([view isKindOfClass:[UIImageView class]]) {
    writeImageView(out, (UIImageView *)view, images);
  } else if ([view isKindOfClass:[UIScrollView class]]) {
    writeScrollView(out, (UIScrollView *)view);
  } else {
    out.name("type").string("view");
  }
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
