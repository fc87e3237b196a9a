// The layer of a view: the properties that decide how the view is drawn. There is no layer tree.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include <memory>

namespace sim {
struct CALayerState;
}

typedef NS_OPTIONS(NSUInteger, CACornerMask) {
  kCALayerMinXMinYCorner = 1U << 0,
  kCALayerMaxXMinYCorner = 1U << 1,
  kCALayerMinXMaxYCorner = 1U << 2,
  kCALayerMaxXMaxYCorner = 1U << 3,
};

/// Made by a view, for that view. `masksToBounds`, `opacity`, `backgroundColor` and `hidden` are the view's own
/// `clipsToBounds`, `alpha`, `backgroundColor` and `hidden`. Main thread only.
@interface CALayer : NSObject {
 @private
  std::unique_ptr<sim::CALayerState> _state;
}
/// The view; not owned.
@property (nonatomic, assign) id delegate;

@property (nonatomic) CGFloat cornerRadius;
@property (nonatomic) CACornerMask maskedCorners;
@property (nonatomic) BOOL masksToBounds;
@property (nonatomic) CGFloat borderWidth;
/// Opaque black until set.
@property (nonatomic) CGColorRef borderColor;

/// Opaque black until set.
@property (nonatomic) CGColorRef shadowColor;
/// 0 until set: no shadow.
@property (nonatomic) float shadowOpacity;
/// (0, -3) until set.
@property (nonatomic) CGSize shadowOffset;
/// 3 until set.
@property (nonatomic) CGFloat shadowRadius;

@property (nonatomic) CGColorRef backgroundColor;
@property (nonatomic) float opacity;
@property (nonatomic, getter=isHidden) BOOL hidden;
@end
