// Images. Immutable.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <CoreImage/CIImage.h>
#import <UIKit/UIColor.h>
#import <UIKit/UITraitCollection.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIImageState);

@class UIImageConfiguration;
@class UIImageSymbolConfiguration;

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
/// The same image remembered with a tint, drawn as a template in that colour. A view that shows a template has its own.
- (UIImage *)imageWithTintColor:(UIColor *)color;
- (UIImage *)imageWithTintColor:(UIColor *)color renderingMode:(UIImageRenderingMode)renderingMode;

/// Upright, into the current image context; nothing without one.
- (void)drawAtPoint:(CGPoint)point;
- (void)drawAtPoint:(CGPoint)point blendMode:(CGBlendMode)mode alpha:(CGFloat)alpha;
- (void)drawInRect:(CGRect)rect;
- (void)drawInRect:(CGRect)rect blendMode:(CGBlendMode)mode alpha:(CGFloat)alpha;
@end

/// The system's own images, drawn in the size and weight of the text that they go with.
@interface UIImage (Symbols)
/// The symbol of that name, as large as text of 17 points; in a view it is drawn as a template. nil for a name that no
/// symbol has.
+ (UIImage *)systemImageNamed:(NSString *)name;
/// nil as well for a size at which it cannot be drawn.
+ (UIImage *)systemImageNamed:(NSString *)name withConfiguration:(UIImageConfiguration *)configuration;
+ (UIImage *)systemImageNamed:(NSString *)name compatibleWithTraitCollection:(UITraitCollection *)traitCollection;
@property(nonatomic, readonly, getter=isSymbolImage) BOOL symbolImage;
/// A UIImageSymbolConfiguration for a symbol; nil for another image that was given none.
@property(nonatomic, copy, readonly) __kindof UIImageConfiguration *configuration;
/// nil for what is no symbol.
@property(nonatomic, copy, readonly) UIImageSymbolConfiguration *symbolConfiguration;
/// A symbol is drawn anew. Of a configuration that is none of symbols it takes the traits alone.
- (UIImage *)imageWithConfiguration:(UIImageConfiguration *)configuration;
/// A symbol as its configuration with this one over it says; this very image when it is no symbol.
- (UIImage *)imageByApplyingSymbolConfiguration:(UIImageSymbolConfiguration *)configuration;
@end

/// The stored pixels, not turned: a PNG has no room for the orientation, as on a device. nil when the image has none.
UIKIT_EXTERN NSData *UIImagePNGRepresentation(UIImage *image);
/// `quality` from 0 to 1. Upright, without alpha.
UIKIT_EXTERN NSData *UIImageJPEGRepresentation(UIImage *image, CGFloat quality);
