// A row or a column of views.
#pragma once

#import <UIKit/UIView.h>

#include <float.h>
#include <objcxx/HiddenState.h>

typedef NS_ENUM(NSInteger, UIStackViewDistribution) {
  UIStackViewDistributionFill = 0,
  UIStackViewDistributionFillEqually,
  UIStackViewDistributionFillProportionally,
  UIStackViewDistributionEqualSpacing,
  UIStackViewDistributionEqualCentering,
};

typedef NS_ENUM(NSInteger, UIStackViewAlignment) {
  UIStackViewAlignmentFill,
  UIStackViewAlignmentLeading,
  UIStackViewAlignmentTop = UIStackViewAlignmentLeading,
  UIStackViewAlignmentFirstBaseline,
  UIStackViewAlignmentCenter,
  UIStackViewAlignmentTrailing,
  UIStackViewAlignmentBottom = UIStackViewAlignmentTrailing,
  UIStackViewAlignmentLastBaseline,
};

/// For `setCustomSpacing:afterView:`: as all others have it, and the system's 8 points.
static const CGFloat UIStackViewSpacingUseDefault __attribute__((unused)) = FLT_MAX;
static const CGFloat UIStackViewSpacingUseSystem __attribute__((unused)) = FLT_MIN;

SIM_STATE_TYPE(UIStackViewState);

/// Places its arranged subviews by constraints of its own, which it makes anew in `updateConstraints`. Those that are
/// hidden leave the row until they are shown again.
@interface UIStackView : UIView {
 @private
  SIM_STATE(UIStackViewState, _stackState);
}
- (instancetype)initWithArrangedSubviews:(NSArray<UIView *> *)views;
/// Subviews, in the order of the row. A view that leaves the stack view leaves the row.
@property(nonatomic, readonly, copy) NSArray<UIView *> *arrangedSubviews;
/// Adds the view as a subview too, where it is none; from then on constraints place it.
- (void)addArrangedSubview:(UIView *)view;
/// Out of the row only; the view stays a subview.
- (void)removeArrangedSubview:(UIView *)view;
/// A view that is in the row already moves. Raises NSRangeException for an index past the end.
- (void)insertArrangedSubview:(UIView *)view atIndex:(NSUInteger)stackIndex;
/// Horizontal.
@property(nonatomic) UILayoutConstraintAxis axis;
@property(nonatomic) UIStackViewDistribution distribution;
@property(nonatomic) UIStackViewAlignment alignment;
/// Points between two views: exactly, or at least where the distribution spaces them out.
@property(nonatomic) CGFloat spacing;
- (void)setCustomSpacing:(CGFloat)spacing afterView:(UIView *)arrangedSubview;
/// UIStackViewSpacingUseDefault where none was set.
- (CGFloat)customSpacingAfterView:(UIView *)arrangedSubview;
/// Whether the spacing of a column is from baseline to baseline.
@property(nonatomic, getter=isBaselineRelativeArrangement) BOOL baselineRelativeArrangement;
/// Whether the row keeps to the margins, not to the edges.
@property(nonatomic, getter=isLayoutMarginsRelativeArrangement) BOOL layoutMarginsRelativeArrangement;
@end
