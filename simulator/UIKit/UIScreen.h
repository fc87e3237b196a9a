// The screen of the simulated device.
#pragma once

#import <CoreGraphics/CGGeometry.h>
#import <UIKit/UITraitCollection.h>

@interface UIScreen : NSObject
+ (UIScreen *)mainScreen;
/// Points.
@property(nonatomic, readonly) CGRect bounds;
/// Pixels a point.
@property(nonatomic, readonly) CGFloat scale;
/// Pixels.
@property(nonatomic, readonly) CGRect nativeBounds;
@property(nonatomic, readonly) CGFloat nativeScale;
@property(nonatomic, readonly) UITraitCollection *traitCollection;
@end
