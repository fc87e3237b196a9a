#import <CoreGraphics/CGContext+Sim.h>
#import <CoreGraphics/CGImage+Sim.h>
#import <UIKit/UIGraphics.h>
#import <UIKit/UIScreen.h>

#include <objcxx/Retained.h>

#include <vector>

namespace {

struct Entry {
  objcxx::Retained<NSObject> context;  ///< Nothing for a context that draws nowhere.
  CGFloat scale = 1;
  bool isImage = false;  ///< Opened as an image context, not pushed.

  CGContextRef get() const { return (CGContextRef)context.get(); }
};

std::vector<Entry> &stack() {
  static std::vector<Entry> entries;
  return entries;
}

}  // namespace

void UIGraphicsBeginImageContext(CGSize size) { UIGraphicsBeginImageContextWithOptions(size, NO, 1); }

void UIGraphicsBeginImageContextWithOptions(CGSize size, BOOL opaque, CGFloat scale) {
  const CGFloat used = scale > 0 ? scale : [[UIScreen mainScreen] scale];
  const CGContextRef context = sim::createImageContext(size, used, opaque);
  if (!context)
    NSLog(@"UIGraphicsBeginImageContext: %g × %g points at scale %g hold no image.", size.width, size.height, used);
  stack().push_back({objcxx::adopt((NSObject *)context), used, true});
}

UIImage *UIGraphicsGetImageFromCurrentImageContext(void) {
  if (stack().empty() || !stack().back().isImage) return nil;
  const Entry &top = stack().back();
  const CGImageRef pixels = sim::createImage(sim::sourceOf(sim::snapshot(top.get())));
  if (!pixels) return nil;
  UIImage *image = [UIImage imageWithCGImage:pixels scale:top.scale orientation:UIImageOrientationUp];
  CGImageRelease(pixels);
  return image;
}

void UIGraphicsEndImageContext(void) {
  if (!stack().empty() && stack().back().isImage) stack().pop_back();
}

CGContextRef UIGraphicsGetCurrentContext(void) { return stack().empty() ? nullptr : stack().back().get(); }

void UIGraphicsPushContext(CGContextRef context) { stack().push_back({objcxx::share((NSObject *)context), 1, false}); }

void UIGraphicsPopContext(void) {
  if (!stack().empty() && !stack().back().isImage) stack().pop_back();
}

void UIRectFill(CGRect rect) { UIRectFillUsingBlendMode(rect, kCGBlendModeCopy); }

void UIRectFillUsingBlendMode(CGRect rect, CGBlendMode mode) {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSaveGState(context);
  CGContextSetBlendMode(context, mode);
  CGContextFillRect(context, rect);
  CGContextRestoreGState(context);
}

void UIRectFrame(CGRect rect) {
  const CGFloat width = rect.size.width;
  const CGFloat height = rect.size.height;
  UIRectFill(CGRectMake(rect.origin.x, rect.origin.y, width, 1));
  UIRectFill(CGRectMake(rect.origin.x, rect.origin.y + height - 1, width, 1));
  UIRectFill(CGRectMake(rect.origin.x, rect.origin.y + 1, 1, height - 2));
  UIRectFill(CGRectMake(rect.origin.x + width - 1, rect.origin.y + 1, 1, height - 2));
}

void UIRectClip(CGRect rect) { CGContextClipToRect(UIGraphicsGetCurrentContext(), rect); }
