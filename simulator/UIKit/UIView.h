// Views: a tree of rectangles with the properties that decide how each is drawn. Main thread only.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <QuartzCore/CALayer.h>
#import <QuartzCore/CATransform3D.h>
#import <UIKit/UIAppearance.h>
#import <UIKit/UIColor.h>
#import <UIKit/UIGeometry.h>
#import <UIKit/UIResponder.h>
#import <UIKit/UITraitCollection.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UIViewState);

@class UIEvent;
@class UIGestureRecognizer;
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

typedef NS_ENUM(NSInteger, UIViewAnimationCurve) {
  UIViewAnimationCurveEaseInOut,
  UIViewAnimationCurveEaseIn,
  UIViewAnimationCurveEaseOut,
  UIViewAnimationCurveLinear,
};

typedef NS_OPTIONS(NSUInteger, UIViewKeyframeAnimationOptions) {
  UIViewKeyframeAnimationOptionLayoutSubviews = 1 << 0,
  UIViewKeyframeAnimationOptionAllowUserInteraction = 1 << 1,
  UIViewKeyframeAnimationOptionBeginFromCurrentState = 1 << 2,
  UIViewKeyframeAnimationOptionCalculationModeLinear = 0 << 10,
  UIViewKeyframeAnimationOptionCalculationModeDiscrete = 1 << 10,
  UIViewKeyframeAnimationOptionCalculationModePaced = 2 << 10,
  UIViewKeyframeAnimationOptionCalculationModeCubic = 3 << 10,
  UIViewKeyframeAnimationOptionCalculationModeCubicPaced = 4 << 10,
};

typedef NS_OPTIONS(NSUInteger, UIViewAnimationOptions) {
  UIViewAnimationOptionLayoutSubviews = 1 << 0,
  UIViewAnimationOptionAllowUserInteraction = 1 << 1,
  UIViewAnimationOptionBeginFromCurrentState = 1 << 2,
  UIViewAnimationOptionRepeat = 1 << 3,
  UIViewAnimationOptionAutoreverse = 1 << 4,
  UIViewAnimationOptionOverrideInheritedDuration = 1 << 5,
  UIViewAnimationOptionOverrideInheritedCurve = 1 << 6,
  UIViewAnimationOptionAllowAnimatedContent = 1 << 7,
  UIViewAnimationOptionOverrideInheritedOptions = 1 << 9,
  UIViewAnimationOptionCurveEaseInOut = 0 << 16,
  UIViewAnimationOptionCurveEaseIn = 1 << 16,
  UIViewAnimationOptionCurveEaseOut = 2 << 16,
  UIViewAnimationOptionCurveLinear = 3 << 16,
  UIViewAnimationOptionTransitionNone = 0 << 20,
  UIViewAnimationOptionTransitionFlipFromLeft = 1 << 20,
  UIViewAnimationOptionTransitionFlipFromRight = 2 << 20,
  UIViewAnimationOptionTransitionCurlUp = 3 << 20,
  UIViewAnimationOptionTransitionCurlDown = 4 << 20,
  UIViewAnimationOptionTransitionCrossDissolve = 5 << 20,
  UIViewAnimationOptionTransitionFlipFromTop = 6 << 20,
  UIViewAnimationOptionTransitionFlipFromBottom = 7 << 20,
};

UIKIT_EXTERN const CGFloat UIViewNoIntrinsicMetric;

@interface UIView : UIResponder <CALayerDelegate> {
 @private
  SIM_STATE(UIViewState, _state);
}
/// Designated.
- (instancetype)initWithFrame:(CGRect)frame;

@property(nonatomic) NSInteger tag;
@property(nonatomic, getter=isUserInteractionEnabled) BOOL userInteractionEnabled;
@property(nonatomic, copy) NSString *accessibilityLabel;
@property(nonatomic, copy) NSString *accessibilityHint;
@property(nonatomic, copy) NSString *accessibilityValue;
@property(nonatomic, copy) NSString *accessibilityIdentifier;
@property(nonatomic) BOOL isAccessibilityElement;
@end

@interface UIView (UIAppearance) <UIAppearance, UIAppearanceContainer>
@end

@interface UIView (UITraitEnvironment) <UITraitEnvironment>
/// Light or dark for the view and what lies in it, whatever is around; unspecified, at first, for what is around.
@property(nonatomic) UIUserInterfaceStyle overrideUserInterfaceStyle;
@end

@interface UIView (UIViewGeometry)
/// In the superview's coordinates: the box around the transformed view. Values that are not finite raise
/// CALayerInvalidGeometry.
@property(nonatomic) CGRect frame;
@property(nonatomic) CGRect bounds;
/// Where the layer's anchor point, the middle until it is set, lies in the superview.
@property(nonatomic) CGPoint center;
/// About that point.
@property(nonatomic) CGAffineTransform transform;
@property(nonatomic) CATransform3D transform3D;
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

@interface UIView (UIViewLayer)
/// What `layer` is made of; CALayer here.
@property(class, nonatomic, readonly) Class layerClass;
@property(nonatomic, readonly) CALayer *layer;
/// What its alpha leaves of the receiver is shown. The mask lies in no other view.
@property(nonatomic, retain) UIView *maskView;
/// Draws what the view shows, into the current context, in its own coordinates: before it is first shown and after
/// `setNeedsDisplay`. Nothing here.
- (void)drawRect:(CGRect)rect;
- (void)setNeedsDisplay;
- (void)setNeedsDisplayInRect:(CGRect)rect;
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

@interface UIView (UIViewSnapshotting)
/// Draws the view and everything in it into the current context, stretched to `rect`. YES when there is one.
- (BOOL)drawViewHierarchyInRect:(CGRect)rect afterScreenUpdates:(BOOL)afterUpdates;
@end

@interface UIView (UIViewTouches)
/// NO at first, both. There is one finger, to which they make no difference.
@property(nonatomic, getter=isMultipleTouchEnabled) BOOL multipleTouchEnabled;
@property(nonatomic, getter=isExclusiveTouch) BOOL exclusiveTouch;
/// The deepest view in front, of those that are shown and let touches through, that has `point` inside; nil for none.
- (UIView *)hitTest:(CGPoint)point withEvent:(UIEvent *)event;
/// Whether `point`, in the receiver's coordinates, is in its bounds.
- (BOOL)pointInside:(CGPoint)point withEvent:(UIEvent *)event;
@end

@interface UIView (UIViewGestureRecognizers)
/// nil for none. Setting it puts others in their place.
@property(nonatomic, copy) NSArray<UIGestureRecognizer *> *gestureRecognizers;
/// Owned. A recogniser is on one view at a time: it is taken from the former one.
- (void)addGestureRecognizer:(UIGestureRecognizer *)recognizer;
/// What it was at is cancelled.
- (void)removeGestureRecognizer:(UIGestureRecognizer *)recognizer;
/// Asked of the touched view and of those above it, up to that of the recogniser, before that takes the touch away
/// from them. YES here.
- (BOOL)gestureRecognizerShouldBegin:(UIGestureRecognizer *)recognizer;
@end

/// Animations run at once: the animations block inside the call, `completion` with YES later on the main queue. One
/// that is repeated has no end: its completion is not called.
@interface UIView (UIViewAnimation)
/// YES at first. Nothing moves either way.
@property(class, nonatomic, readonly) BOOL areAnimationsEnabled;
+ (void)setAnimationsEnabled:(BOOL)enabled;
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

/// Likewise at once: the keyframes are run as they are added.
@interface UIView (UIViewKeyframeAnimations)
+ (void)animateKeyframesWithDuration:(NSTimeInterval)duration
                               delay:(NSTimeInterval)delay
                             options:(UIViewKeyframeAnimationOptions)options
                          animations:(void (^)(void))animations
                          completion:(void (^)(BOOL finished))completion;
/// The start and the duration are parts of the whole, from 0 to 1.
+ (void)addKeyframeWithRelativeStartTime:(double)frameStartTime
                        relativeDuration:(double)frameDuration
                              animations:(void (^)(void))animations;
@end

#import <UIKit/UIViewAutoLayout.h>
