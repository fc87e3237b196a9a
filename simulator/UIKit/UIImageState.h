// What an image is made of, shared by the files that implement UIImage.
#pragma once

#import <CoreGraphics/CGImage+Sim.h>
#import <CoreGraphics/ImageDecoder.hpp>
#import <UIKit/UIImage+Sim.h>
#import <UIKit/UIImageConfiguration.h>

#include <objcxx/Retained.h>

namespace sim {

struct UIImageState {
  objcxx::Retained<NSObject> bitmap;  ///< A CGImageRef, or nothing for an image made from a Core Image image.
  objcxx::Retained<CIImage> recipe;
  CGFloat scale = 1;
  UIImageOrientation orientation = UIImageOrientationUp;
  UIImageRenderingMode renderingMode = UIImageRenderingModeAutomatic;
  objcxx::Retained<UIColor> tint;
  objcxx::Retained<NSString> symbol;  ///< The name of the symbol that the bitmap shows.
  objcxx::Retained<UIImageConfiguration> configuration;
  NSUInteger number = 0;
  SharedBytes file;  ///< What this very image was made from, until its number is asked for.

  CGImageRef image() const { return (CGImageRef)bitmap.get(); }
};

/// How the stored pixels of an image with that orientation lie.
Orientation storedOrientation(UIImageOrientation orientation);

}  // namespace sim

@interface UIImage (SimState)
/// nil for a state that has neither a bitmap nor a recipe.
- (instancetype)sim_initWithState:(const sim::UIImageState &)state;
@end

@interface UIImage (SimPixels)
/// Where the stored pixels come from; null when they cannot be had.
- (void)sim_getPixels:(sim::PixelSourcePtr *)pixels;
@end
