// What every renderer has; the one that draws is UIGraphicsImageRenderer.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIKitDefines.h>

@interface UIGraphicsRendererFormat : NSObject <NSCopying>
+ (instancetype)defaultFormat;
+ (instancetype)preferredFormat;
@end

@interface UIGraphicsRendererContext : NSObject {
 @private
  CGContextRef _context;              // Owned.
  UIGraphicsRendererFormat *_format;  // Owned.
}
@property(nonatomic, readonly) CGContextRef CGContext;
@property(nonatomic, readonly) __kindof UIGraphicsRendererFormat *format;
- (void)fillRect:(CGRect)rect;
- (void)fillRect:(CGRect)rect blendMode:(CGBlendMode)mode;
- (void)strokeRect:(CGRect)rect;
- (void)clipToRect:(CGRect)rect;
@end

/// Abstract.
@interface UIGraphicsRenderer : NSObject {
 @private
  UIGraphicsRendererFormat *_format;  // Owned.
}
@property(nonatomic, readonly) __kindof UIGraphicsRendererFormat *format;
@end
