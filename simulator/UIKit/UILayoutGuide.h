// A rectangle in a view that takes part in layout and shows nothing.
#pragma once

#import <UIKit/NSLayoutAnchor.h>
#import <UIKit/UIGeometry.h>

@class UIView;

SIM_STATE_TYPE(LayoutGuideState);

/// Main thread.
@interface UILayoutGuide : NSObject {
 @private
  SIM_STATE(LayoutGuideState, _guideState);
}
/// In the coordinates of the owning view, as the constraints have it now.
@property(nonatomic, readonly) CGRect layoutFrame;
/// Not owned. Setting it is adding the guide to that view.
@property(nonatomic, assign) UIView *owningView;
@property(nonatomic, copy) NSString *identifier;
@property(nonatomic, readonly, strong) NSLayoutXAxisAnchor *leadingAnchor;
@property(nonatomic, readonly, strong) NSLayoutXAxisAnchor *trailingAnchor;
@property(nonatomic, readonly, strong) NSLayoutXAxisAnchor *leftAnchor;
@property(nonatomic, readonly, strong) NSLayoutXAxisAnchor *rightAnchor;
@property(nonatomic, readonly, strong) NSLayoutYAxisAnchor *topAnchor;
@property(nonatomic, readonly, strong) NSLayoutYAxisAnchor *bottomAnchor;
@property(nonatomic, readonly, strong) NSLayoutDimension *widthAnchor;
@property(nonatomic, readonly, strong) NSLayoutDimension *heightAnchor;
@property(nonatomic, readonly, strong) NSLayoutXAxisAnchor *centerXAnchor;
@property(nonatomic, readonly, strong) NSLayoutYAxisAnchor *centerYAnchor;
@end
