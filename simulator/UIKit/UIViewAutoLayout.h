// What views have to do with layout by constraints. Included by UIView.h.
#pragma once

#import <UIKit/NSLayoutAnchor.h>
#import <UIKit/NSLayoutConstraint.h>
#import <UIKit/UILayoutGuide.h>
#import <UIKit/UIView.h>

typedef NS_ENUM(NSInteger, UILayoutConstraintAxis) {
  UILayoutConstraintAxisHorizontal = 0,
  UILayoutConstraintAxisVertical = 1,
};

/// (0, 0) and (10000, 10000).
UIKIT_EXTERN const CGSize UILayoutFittingCompressedSize;
UIKIT_EXTERN const CGSize UILayoutFittingExpandedSize;

@interface UIView (UIConstraintBasedLayoutInstallingConstraints)
/// Those that are held here: of the receiver, and between things in it.
@property(nonatomic, readonly) NSArray<NSLayoutConstraint *> *constraints;
/// Raises NSGenericException for a constraint with an item outside the receiver.
- (void)addConstraint:(NSLayoutConstraint *)constraint;
- (void)addConstraints:(NSArray<NSLayoutConstraint *> *)constraints;
/// One that is not held here is left alone.
- (void)removeConstraint:(NSLayoutConstraint *)constraint;
- (void)removeConstraints:(NSArray<NSLayoutConstraint *> *)constraints;
@end

/// Before a layout, and from the innermost view out, those that asked for it are sent `updateConstraints`; a view whose
/// class overrides it has asked for it from the beginning.
@interface UIView (UIConstraintBasedLayoutCoreMethods)
- (void)updateConstraintsIfNeeded;
/// Overrides call super, as their last step.
- (void)updateConstraints;
- (BOOL)needsUpdateConstraints;
- (void)setNeedsUpdateConstraints;
@end

@interface UIView (UIConstraintBasedCompatibility)
/// YES at first: the view lies where its frame and its autoresizing mask put it, and constraints of others go by that.
/// With NO its constraints place it, as soon as one relates it to something around it or says how large it is.
@property(nonatomic) BOOL translatesAutoresizingMaskIntoConstraints;
/// NO. Nothing here depends on it: layout by constraints is always at hand.
+ (BOOL)requiresConstraintBasedLayout;
@end

@interface UIView (UIConstraintBasedLayoutLayering)
/// UIViewNoIntrinsicMetric in both; subclasses answer the size of their content.
@property(nonatomic, readonly) CGSize intrinsicContentSize;
/// To be called whenever that changes.
- (void)invalidateIntrinsicContentSize;
/// 250; of labels and image views 251, of switches and activity indicators 750.
- (UILayoutPriority)contentHuggingPriorityForAxis:(UILayoutConstraintAxis)axis;
- (void)setContentHuggingPriority:(UILayoutPriority)priority forAxis:(UILayoutConstraintAxis)axis;
/// 750.
- (UILayoutPriority)contentCompressionResistancePriorityForAxis:(UILayoutConstraintAxis)axis;
- (void)setContentCompressionResistancePriority:(UILayoutPriority)priority forAxis:(UILayoutConstraintAxis)axis;
/// The views whose texts the baselines are of: the receiver. The baseline of a view without text is its lower edge.
@property(readonly, strong) UIView *viewForFirstBaselineLayout;
@property(readonly, strong) UIView *viewForLastBaselineLayout;
@end

@interface UIView (UIConstraintBasedLayoutFittingSize)
/// The size nearest to `targetSize`, in whole pixels, that the constraints within the receiver leave it, with both
/// priorities at UILayoutPriorityFittingSizeLevel.
- (CGSize)systemLayoutSizeFittingSize:(CGSize)targetSize;
- (CGSize)systemLayoutSizeFittingSize:(CGSize)targetSize
        withHorizontalFittingPriority:(UILayoutPriority)horizontalFittingPriority
              verticalFittingPriority:(UILayoutPriority)verticalFittingPriority;
@end

@interface UIView (UILayoutGuideSupport)
@property(nonatomic, readonly, copy) NSArray<UILayoutGuide *> *layoutGuides;
/// Takes it from the view that has it.
- (void)addLayoutGuide:(UILayoutGuide *)layoutGuide;
/// The guide's constraints go.
- (void)removeLayoutGuide:(UILayoutGuide *)layoutGuide;
@end

@interface UIView (UIViewLayoutConstraintCreation)
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
@property(nonatomic, readonly, strong) NSLayoutYAxisAnchor *firstBaselineAnchor;
@property(nonatomic, readonly, strong) NSLayoutYAxisAnchor *lastBaselineAnchor;
@end

/// The distances that content keeps from a view's edges.
@interface UIView (UIViewLayoutMargins)
/// 8 on each side at first. As they are in effect: with the superview's where those are preserved, and with the safe
/// area.
@property(nonatomic) UIEdgeInsets layoutMargins;
@property(nonatomic) NSDirectionalEdgeInsets directionalLayoutMargins;
/// NO at first: whether the margins are at least what the superview's reach into the receiver.
@property(nonatomic) BOOL preservesSuperviewLayoutMargins;
/// YES at first.
@property(nonatomic) BOOL insetsLayoutMarginsFromSafeArea;
- (void)layoutMarginsDidChange;
- (void)safeAreaInsetsDidChange;
@property(readonly, strong) UILayoutGuide *layoutMarginsGuide;
/// The margins, and at most 672 points wide.
@property(nonatomic, readonly, strong) UILayoutGuide *readableContentGuide;
@property(nonatomic, readonly, strong) UILayoutGuide *safeAreaLayoutGuide;
@end
