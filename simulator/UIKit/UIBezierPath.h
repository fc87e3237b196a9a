// Paths that are drawn into the current image context. Lengths in points, angles in radians.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIKitDefines.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIBezierPathState);

typedef NS_OPTIONS(NSUInteger, UIRectCorner) {
  UIRectCornerTopLeft = 1 << 0,
  UIRectCornerTopRight = 1 << 1,
  UIRectCornerBottomLeft = 1 << 2,
  UIRectCornerBottomRight = 1 << 3,
  UIRectCornerAllCorners = ~0UL,
};

@interface UIBezierPath : NSObject <NSCopying> {
 @private
  SIM_STATE(UIBezierPathState, _state);
}
+ (instancetype)bezierPath;
+ (instancetype)bezierPathWithRect:(CGRect)rect;
+ (instancetype)bezierPathWithOvalInRect:(CGRect)rect;
/// The radius is cut to half the shorter side.
+ (instancetype)bezierPathWithRoundedRect:(CGRect)rect cornerRadius:(CGFloat)cornerRadius;
/// `cornerRadii.width` is the radius, as on a device.
+ (instancetype)bezierPathWithRoundedRect:(CGRect)rect
                        byRoundingCorners:(UIRectCorner)corners
                              cornerRadii:(CGSize)cornerRadii;
+ (instancetype)bezierPathWithArcCenter:(CGPoint)center
                                 radius:(CGFloat)radius
                             startAngle:(CGFloat)startAngle
                               endAngle:(CGFloat)endAngle
                              clockwise:(BOOL)clockwise;
+ (instancetype)bezierPathWithCGPath:(CGPathRef)path;

/// Setting copies; the getter's path lives as long as the autorelease pool of the caller.
@property(nonatomic) CGPathRef CGPath;
@property(nonatomic) CGFloat lineWidth;
@property(nonatomic) CGLineCap lineCapStyle;
@property(nonatomic) CGLineJoin lineJoinStyle;
@property(nonatomic) CGFloat miterLimit;
@property(nonatomic) BOOL usesEvenOddFillRule;
@property(readonly, getter=isEmpty) BOOL empty;
/// Of the drawn outline.
@property(nonatomic, readonly) CGRect bounds;
@property(nonatomic, readonly) CGPoint currentPoint;

/// A pattern of lengths that are drawn and left out, in points; a count of 0: a solid line.
- (void)setLineDash:(const CGFloat *)pattern count:(NSInteger)count phase:(CGFloat)phase;
/// Each argument may be NULL; `pattern` holds as many numbers as `count` says.
- (void)getLineDash:(CGFloat *)pattern count:(NSInteger *)count phase:(CGFloat *)phase;

- (void)moveToPoint:(CGPoint)point;
/// Without a current point: ignored with a log line, as on a device. The same holds for curves.
- (void)addLineToPoint:(CGPoint)point;
- (void)addCurveToPoint:(CGPoint)end controlPoint1:(CGPoint)first controlPoint2:(CGPoint)second;
- (void)addQuadCurveToPoint:(CGPoint)end controlPoint:(CGPoint)control;
- (void)addArcWithCenter:(CGPoint)center
                  radius:(CGFloat)radius
              startAngle:(CGFloat)startAngle
                endAngle:(CGFloat)endAngle
               clockwise:(BOOL)clockwise;
- (void)closePath;
- (void)removeAllPoints;
- (void)appendPath:(UIBezierPath *)path;
- (void)applyTransform:(CGAffineTransform)transform;
/// The same outline from its end to its beginning, with the same line.
- (UIBezierPath *)bezierPathByReversingPath;
- (BOOL)containsPoint:(CGPoint)point;

- (void)fill;
- (void)stroke;
- (void)fillWithBlendMode:(CGBlendMode)mode alpha:(CGFloat)alpha;
- (void)strokeWithBlendMode:(CGBlendMode)mode alpha:(CGFloat)alpha;
- (void)addClip;
@end
