// Drawing an image in a block.
#pragma once

#import <UIKit/UIGraphicsRenderer.h>
#import <UIKit/UIImage.h>

@interface UIGraphicsImageRendererFormat : UIGraphicsRendererFormat {
 @private
  CGFloat _scale;
  BOOL _opaque;
}
/// Pixels a point; the main screen's until set.
@property(nonatomic) CGFloat scale;
@property(nonatomic) BOOL opaque;
@end

@interface UIGraphicsImageRendererContext : UIGraphicsRendererContext
@property(nonatomic, readonly) UIImage *currentImage;
@end

typedef void (^UIGraphicsImageDrawingActions)(UIGraphicsImageRendererContext *rendererContext);

@interface UIGraphicsImageRenderer : UIGraphicsRenderer {
 @private
  CGSize _size;
}
- (instancetype)initWithSize:(CGSize)size;
- (instancetype)initWithSize:(CGSize)size format:(UIGraphicsImageRendererFormat *)format;
- (UIImage *)imageWithActions:(UIGraphicsImageDrawingActions)actions;
- (NSData *)PNGDataWithActions:(UIGraphicsImageDrawingActions)actions;
- (NSData *)JPEGDataWithCompressionQuality:(CGFloat)quality actions:(UIGraphicsImageDrawingActions)actions;
@end
