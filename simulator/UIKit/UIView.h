// Views: a tree of rectangles with the properties that decide how each is drawn. Main thread only.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <QuartzCore/CALayer.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIGeometry.h>
#import <UIKit/UIResponder.h>
#import <UIKit/UITraitCollection.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIViewState);

@class UIWindow;

typedef NS_ENUM(NSInteger, UIViewContentMode) {
  UIViewContentModeScaleToFill,
  UIViewContentModeScaleAspectFit,
  UIViewContentModeScaleAspectFill,
  UIViewContentModeRedraw,
  UIViewContentModeCenter,
  UIViewContentModeTop,
  UIViewContentModeBottom,
  UIViewContentModeLeft,
  UIViewContentModeRight,
  UIViewContentModeTopLeft,
  UIViewContentModeTopRight,
  UIViewContentModeBottomLeft,
  UIViewContentModeBottomRight,
};

typedef NS_OPTIONS(NSUInteger, UIViewAutoresizing) {
  UIViewAutoresizingNone = 0,
  UIViewAutoresizingFlexibleLeftMargin = 1 << 0,
  UIViewAutoresizingFlexibleWidth = 1 << 1,
  UIViewAutoresizingFlexibleRightMargin = 1 << 2,
  UIViewAutoresizingFlexibleTopMargin = 1 << 3,
  UIViewAutoresizingFlexibleHeight = 1 << 4,
  UIViewAutoresizingFlexibleBottomMargin = 1 << 5,
};

typedef NS_OPTIONS(NSUInteger, UIViewAnimationOptions) {
  UIViewAnimationOptionLayoutSubviews = 1 << 0,
  UIViewAnimationOptionAllowUserInteraction = 1 << 1,
  UIViewAnimationOptionBeginFromCurrentState = 1 << 2,
  UIViewAnimationOptionCurveEaseInOut = 0 << 16,
  UIViewAnimationOptionCurveEaseIn = 1 << 16,
  UIViewAnimationOptionCurveEaseOut = 2 << 16,
  UIViewAnimationOptionCurveLinear = 3 << 16,
  UIViewAnimationOptionTransitionNone = 0 << 20,
  UIViewAnimationOptionTransitionCrossDissolve = 5 << 20,
};

UIKIT_EXTERN const CGFloat UIViewNoIntrinsicMetric;

@interface UIView : UIResponder <CALayerDelegate, UITraitEnvironment> {
 @private
  SIM_STATE(UIViewState, _state);
}
/// Designated.
- (instancetype)initWithFrame:(CGRect)frame;

@property(nonatomic, readonly) CALayer *layer;
@property(nonatomic) NSInteger tag;
@property(nonatomic, getter=isUserInteractionEnabled) BOOL userInteractionEnabled;
@property(nonatomic, copy) NSString *accessibilityLabel;
@property(nonatomic, copy) NSString *accessibilityHint;
@property(nonatomic, copy) NSString *accessibilityValue;
@property(nonatomic, copy) NSString *accessibilityIdentifier;
@property(nonatomic) BOOL isAccessibilityElement;
@end

/// Geometry. A view has no transform: `frame` and `bounds` always have the same size.
@interface UIView (UIViewGeometry)
/// In the superview's coordinates. Values that are not finite raise CALayerInvalidGeometry.
@property(nonatomic) CGRect frame;
@property(nonatomic) CGRect bounds;
@property(nonatomic) CGPoint center;
@property(nonatomic) BOOL autoresizesSubviews;
@property(nonatomic) UIViewAutoresizing autoresizingMask;
/// The bounds' own size here; subclasses answer what fits them.
- (CGSize)sizeThatFits:(CGSize)size;
/// Takes the size of `sizeThatFits:`; the origin stays.
- (void)sizeToFit;
/// nil means the window's (here: the outermost view's) coordinates.
- (CGPoint)convertPoint:(CGPoint)point toView:(UIView *)view;
- (CGPoint)convertPoint:(CGPoint)point fromView:(UIView *)view;
- (CGRect)convertRect:(CGRect)rect toView:(UIView *)view;
- (CGRect)convertRect:(CGRect)rect fromView:(UIView *)view;
@end

@interface UIView (UIViewSafeArea)
/// How far the screen's corners and sensors, the status bar and a navigation bar reach into the view from each edge.
/// Nothing outside of a window. A scroll view keeps its content clear of what covers its top and bottom, so that
/// nothing does so for the views in it.
@property(nonatomic, readonly) UIEdgeInsets safeAreaInsets;
@end

/// The tree. A superview owns its subviews; `superview` is not owned.
@interface UIView (UIViewHierarchy)
@property(nonatomic, readonly) UIView *superview;
/// Back to front.
@property(nonatomic, readonly, copy) NSArray<UIView *> *subviews;
@property(nonatomic, readonly) UIWindow *window;
- (void)removeFromSuperview;
/// Adding a view to itself or below itself raises NSInvalidArgumentException.
- (void)addSubview:(UIView *)view;
/// An index past the end counts as the end.
- (void)insertSubview:(UIView *)view atIndex:(NSInteger)index;
- (void)insertSubview:(UIView *)view belowSubview:(UIView *)sibling;
- (void)insertSubview:(UIView *)view aboveSubview:(UIView *)sibling;
- (void)exchangeSubviewAtIndex:(NSInteger)one withSubviewAtIndex:(NSInteger)other;
- (void)bringSubviewToFront:(UIView *)view;
- (void)sendSubviewToBack:(UIView *)view;

/// Hooks for subclasses; they do nothing here.
- (void)didAddSubview:(UIView *)subview;
- (void)willRemoveSubview:(UIView *)subview;
- (void)willMoveToSuperview:(UIView *)superview;
- (void)didMoveToSuperview;
- (void)willMoveToWindow:(UIWindow *)window;
- (void)didMoveToWindow;

- (BOOL)isDescendantOfView:(UIView *)view;
/// The receiver or the first of its descendants, depth first, with that tag.
- (UIView *)viewWithTag:(NSInteger)tag;

- (void)setNeedsLayout;
- (void)layoutIfNeeded;
- (void)layoutSubviews;
/// Makes the first responder among the receiver and its descendants resign. YES when none is left.
- (BOOL)endEditing:(BOOL)force;
@end

@interface UIView (UIViewRendering)
@property(nonatomic) BOOL clipsToBounds;
@property(nonatomic, copy) UIColor *backgroundColor;
/// 0 to 1.
@property(nonatomic) CGFloat alpha;
@property(nonatomic, getter=isOpaque) BOOL opaque;
@property(nonatomic, getter=isHidden) BOOL hidden;
@property(nonatomic) UIViewContentMode contentMode;
/// The superview's when not set, the system's blue at the top. nil unsets.
@property(nonatomic, retain) UIColor *tintColor;
/// The receiver's effective tint colour has changed.
- (void)tintColorDidChange;
@end

/// Animations run at once: the animations block inside the call, `completion` with YES later on the main queue.
@interface UIView (UIViewAnimation)
+ (void)animateWithDuration:(NSTimeInterval)duration animations:(void (^)(void))animations;
+ (void)animateWithDuration:(NSTimeInterval)duration
                 animations:(void (^)(void))animations
                 completion:(void (^)(BOOL finished))completion;
+ (void)animateWithDuration:(NSTimeInterval)duration
                      delay:(NSTimeInterval)delay
                    options:(UIViewAnimationOptions)options
                 animations:(void (^)(void))animations
                 completion:(void (^)(BOOL finished))completion;
+ (void)animateWithDuration:(NSTimeInterval)duration
                      delay:(NSTimeInterval)delay
     usingSpringWithDamping:(CGFloat)damping
      initialSpringVelocity:(CGFloat)velocity
                    options:(UIViewAnimationOptions)options
                 animations:(void (^)(void))animations
                 completion:(void (^)(BOOL finished))completion;
+ (void)transitionWithView:(UIView *)view
                  duration:(NSTimeInterval)duration
                   options:(UIViewAnimationOptions)options
                animations:(void (^)(void))animations
                completion:(void (^)(BOOL finished))completion;
+ (void)performWithoutAnimation:(void (^)(void))actions;
/// The changes between the two take effect as they are made.
+ (void)beginAnimations:(NSString *)identifier context:(void *)context;
+ (void)setAnimationDuration:(NSTimeInterval)duration;
+ (void)commitAnimations;
@end

#import <UIKit/UIViewAutoLayout.h>
