// Images. Immutable.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <CoreImage/CIImage.h>
#import <UIKit/UIColor.h>
#import <UIKit/UITraitCollection.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIImageState);

/// How the stored pixels have to be turned to stand upright, as a camera's orientation tag says.
typedef NS_ENUM(NSInteger, UIImageOrientation) {
  UIImageOrientationUp,
  UIImageOrientationDown,
  UIImageOrientationLeft,
  UIImageOrientationRight,
  UIImageOrientationUpMirrored,
  UIImageOrientationDownMirrored,
  UIImageOrientationLeftMirrored,
  UIImageOrientationRightMirrored,
};

typedef NS_ENUM(NSInteger, UIImageRenderingMode) {
  UIImageRenderingModeAutomatic,
  UIImageRenderingModeAlwaysOriginal,
  UIImageRenderingModeAlwaysTemplate,
};

/// Read from PNG, JPEG, GIF, TIFF, WebP and HEIF. Files that are missing, empty, cut short or no image, and images of
/// more than 100 million pixels, give nil. Pixels are decoded on first use; an image whose damage
/// is found only then draws nothing, has no PNG or JPEG representation, and its `CGImage` provides no data.
@interface UIImage : NSObject {
 @private
  SIM_STATE(UIImageState, _state);
}
/// From the main bundle; with the extension left out, PNG. Takes name@3x or name@2x where the screen's scale wants it.
+ (UIImage *)imageNamed:(NSString *)name;
/// A nil bundle is the main bundle. `traits` gives the scale; nil is the main screen.
+ (UIImage *)imageNamed:(NSString *)name
                         inBundle:(NSBundle *)bundle
    compatibleWithTraitCollection:(UITraitCollection *)traits;
/// A path whose name has no scale of its own is looked for with @3x or @2x first, as the screen's scale wants.
+ (UIImage *)imageWithContentsOfFile:(NSString *)path;
+ (UIImage *)imageWithData:(NSData *)data;
+ (UIImage *)imageWithData:(NSData *)data scale:(CGFloat)scale;
+ (UIImage *)imageWithCGImage:(CGImageRef)image;
+ (UIImage *)imageWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation;
+ (UIImage *)imageWithCIImage:(CIImage *)image;
+ (UIImage *)imageWithCIImage:(CIImage *)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation;
- (instancetype)initWithContentsOfFile:(NSString *)path;
- (instancetype)initWithData:(NSData *)data;
- (instancetype)initWithData:(NSData *)data scale:(CGFloat)scale;
- (instancetype)initWithCGImage:(CGImageRef)image;
- (instancetype)initWithCGImage:(CGImageRef)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation;
/// nil for nil.
- (instancetype)initWithCIImage:(CIImage *)image;
- (instancetype)initWithCIImage:(CIImage *)image scale:(CGFloat)scale orientation:(UIImageOrientation)orientation;

/// Points, upright.
@property(nonatomic, readonly) CGSize size;
/// Pixels a point.
@property(nonatomic, readonly) CGFloat scale;
@property(nonatomic, readonly) UIImageOrientation imageOrientation;
@property(nonatomic, readonly) UIImageRenderingMode renderingMode;
/// The stored pixels, not turned. NULL for an image made from a Core Image image. Owned by the image.
@property(nonatomic, readonly) CGImageRef CGImage;
/// nil unless the image was made from a Core Image image.
@property(nonatomic, readonly) CIImage *CIImage;

- (UIImage *)imageWithRenderingMode:(UIImageRenderingMode)mode;
/// The same image remembered with a tint, drawn as a template in that colour.
- (UIImage *)imageWithTintColor:(UIColor *)color;

/// Upright, into the current image context; nothing without one.
- (void)drawAtPoint:(CGPoint)point;
- (void)drawAtPoint:(CGPoint)point blendMode:(CGBlendMode)mode alpha:(CGFloat)alpha;
- (void)drawInRect:(CGRect)rect;
- (void)drawInRect:(CGRect)rect blendMode:(CGBlendMode)mode alpha:(CGFloat)alpha;
@end

/// The stored pixels, not turned: a PNG has no room for the orientation, as on a device. nil when the image has none.
UIKIT_EXTERN NSData *UIImagePNGRepresentation(UIImage *image);
/// `quality` from 0 to 1. Upright, without alpha.
UIKIT_EXTERN NSData *UIImageJPEGRepresentation(UIImage *image, CGFloat quality);
