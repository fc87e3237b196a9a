// Drawing an image in a block.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIImage.h>

@interface UIGraphicsImageRendererFormat : NSObject <NSCopying> {
 @private
  CGFloat _scale;
  BOOL _opaque;
}
+ (instancetype)defaultFormat;
+ (instancetype)preferredFormat;
/// Pixels a point; the main screen's until set.
@property (nonatomic) CGFloat scale;
@property (nonatomic) BOOL opaque;
@end

@interface UIGraphicsImageRendererContext : NSObject {
 @private
  CGContextRef _context;  // Owned.
  UIGraphicsImageRendererFormat *_format;  // Owned.
}
@property (nonatomic, readonly) CGContextRef CGContext;
@property (nonatomic, readonly) UIGraphicsImageRendererFormat *format;
@property (nonatomic, readonly) UIImage *currentImage;
- (void)fillRect:(CGRect)rect;
- (void)fillRect:(CGRect)rect blendMode:(CGBlendMode)mode;
- (void)strokeRect:(CGRect)rect;
- (void)clipToRect:(CGRect)rect;
@end

typedef void (^UIGraphicsImageDrawingActions)(UIGraphicsImageRendererContext *rendererContext);

@interface UIGraphicsImageRenderer : NSObject {
 @private
  CGSize _size;
  UIGraphicsImageRendererFormat *_format;  // Owned.
}
- (instancetype)initWithSize:(CGSize)size;
- (instancetype)initWithSize:(CGSize)size format:(UIGraphicsImageRendererFormat *)format;
@property (nonatomic, readonly) UIGraphicsImageRendererFormat *format;
- (UIImage *)imageWithActions:(UIGraphicsImageDrawingActions)actions;
- (NSData *)PNGDataWithActions:(UIGraphicsImageDrawingActions)actions;
- (NSData *)JPEGDataWithCompressionQuality:(CGFloat)quality actions:(UIGraphicsImageDrawingActions)actions;
@end
