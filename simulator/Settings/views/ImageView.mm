#import "Settings/views/ImageView.h"

#import <UIKit/UIImage+Sim.h>
#import <UIKit/UIImageView+Sim.h>

#import "Settings/ImageStore.h"
#import "Settings/views/ViewAdapter.h"

namespace sim {

const char *contentModeName(UIViewContentMode mode) {
  switch (mode) {
    case UIViewContentModeScaleAspectFit: return "scaleAspectFit";
    case UIViewContentModeScaleAspectFill: return "scaleAspectFill";
    case UIViewContentModeCenter: return "center";
    case UIViewContentModeTop: return "top";
    case UIViewContentModeBottom: return "bottom";
    case UIViewContentModeLeft: return "left";
    case UIViewContentModeRight: return "right";
    case UIViewContentModeTopLeft: return "topLeft";
    case UIViewContentModeTopRight: return "topRight";
    case UIViewContentModeBottomLeft: return "bottomLeft";
    case UIViewContentModeBottomRight: return "bottomRight";
    case UIViewContentModeScaleToFill:
    case UIViewContentModeRedraw: break;  // Image views draw nothing anew.
  }
  return "scaleToFill";
}

namespace {

/// Points: how large the picture is drawn in a view of `room` at most.
CGSize drawnSize(UIImage *image, UIViewContentMode mode, CGSize room) {
  switch (mode) {
    case UIViewContentModeScaleToFill:
    case UIViewContentModeRedraw:
    case UIViewContentModeScaleAspectFit:
    case UIViewContentModeScaleAspectFill: return room;
    default: return [image size];
  }
}

void describe(JsonText &out, UIView *view, ImageStore &images) {
  writeShownImage(out.name("image"), (UIImageView *)view, images);
  writeContentMode(out.name("contentMode"), (UIImageView *)view);
}

}  // namespace

bool writeShownImage(JsonText &out, UIImageView *view, ImageStore &images) {
  UIImage *image = [view sim_shownImage];
  images.write(out, image, drawnSize(image, [view contentMode], [view frame].size), templateTint(image, view));
  return image != nil;
}

void writeContentMode(JsonText &out, UIImageView *view) { out.string(contentModeName([view contentMode])); }

UIColor *templateTint(UIImage *image, UIView *view) {
  const UIImageRenderingMode mode = [image renderingMode];
  if (!image || mode == UIImageRenderingModeAlwaysOriginal) return nil;
  if ([image sim_isTemplate]) return [view tintColor];
  // Left to the view, an image is a template in the buttons that the system draws.
  UIView *parent = [view superview];
  const bool isInSystemButton =
      [parent isKindOfClass:[UIButton class]] && [(UIButton *)parent buttonType] != UIButtonTypeCustom;
  return isInSystemButton ? [view tintColor] : nil;
}

UIColor *templateTint(UIImage *image, UIColor *color) {
  return [image renderingMode] == UIImageRenderingModeAlwaysOriginal ? nil : color;
}

extern const ViewAdapter kImageView{.kind = [] { return [UIImageView class]; }, .type = "image", .describe = describe};

}  // namespace sim
