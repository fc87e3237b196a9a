// How an animation runs.
#pragma once

#import <UIKit/UIKitDefines.h>

typedef NS_ENUM(NSInteger, UITimingCurveType) {
  UITimingCurveTypeBuiltin,
  UITimingCurveTypeCubic,
  UITimingCurveTypeSpring,
  UITimingCurveTypeComposed,
};

@class UICubicTimingParameters;
@class UISpringTimingParameters;

@protocol UITimingCurveProvider <NSCoding, NSCopying>
@property(nonatomic, readonly) UITimingCurveType timingCurveType;
/// nil unless the curve is of that kind, or composed.
@property(nonatomic, readonly) UICubicTimingParameters *cubicTimingParameters;
@property(nonatomic, readonly) UISpringTimingParameters *springTimingParameters;
@end
