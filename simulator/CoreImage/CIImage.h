// An image as a recipe: pixels and the filters to be applied to them. Nothing is computed before it is rendered.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(CIImageState);

@class UIImage;

/// Immutable.
@interface CIImage : NSObject <NSCopying> {
 @private
  SIM_STATE(CIImageState, _state);
}
+ (CIImage *)imageWithCGImage:(CGImageRef)image;
/// nil for data that is no image.
+ (CIImage *)imageWithData:(NSData *)data;
/// nil for NULL.
- (instancetype)initWithCGImage:(CGImageRef)image;
- (instancetype)initWithData:(NSData *)data;
/// Pixels; y counts upwards. That of a bitmap has its origin at (0, 0). CGRectInfinite for an image without end,
/// CGRectNull for one with nothing in it.
@property(nonatomic, readonly) CGRect extent;
/// The receiver, with its outermost pixels going on in every direction.
- (CIImage *)imageByClampingToExtent;
/// What lies below `rect`, widened to whole pixels.
- (CIImage *)imageByCroppingToRect:(CGRect)rect;
@end

/// Declared by UIKit on a device, too.
@interface CIImage (UIKitAdditions)
/// The image's bitmap, or the Core Image image that it was made from. nil for an image without either.
- (instancetype)initWithImage:(UIImage *)image;
@end
