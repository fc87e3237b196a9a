// The layer of a view: the properties that decide how the view is drawn. There is no layer tree.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(CALayerState);

typedef NS_OPTIONS(NSUInteger, CACornerMask) {
  kCALayerMinXMinYCorner = 1U << 0,
  kCALayerMaxXMinYCorner = 1U << 1,
  kCALayerMinXMaxYCorner = 1U << 2,
  kCALayerMaxXMaxYCorner = 1U << 3,
};

/// What a layer's delegate adopts. Layers call nothing of it.
@protocol CALayerDelegate <NSObject>
@end

/// Made by a view, for that view. `masksToBounds`, `opacity`, `backgroundColor` and `hidden` are the view's own
/// `clipsToBounds`, `alpha`, `backgroundColor` and `hidden`. Main thread only.
@interface CALayer : NSObject {
 @private
  SIM_STATE(CALayerState, _state);
}
/// The view; not owned.
@property(assign) id<CALayerDelegate> delegate;

@property CGFloat cornerRadius;
@property CACornerMask maskedCorners;
@property BOOL masksToBounds;
@property CGFloat borderWidth;
/// Opaque black until set.
@property CGColorRef borderColor;

/// Opaque black until set.
@property CGColorRef shadowColor;
/// 0 until set: no shadow.
@property float shadowOpacity;
/// (0, -3) until set.
@property CGSize shadowOffset;
/// 3 until set.
@property CGFloat shadowRadius;

@property CGColorRef backgroundColor;
@property float opacity;
@property(getter=isHidden) BOOL hidden;
@end
