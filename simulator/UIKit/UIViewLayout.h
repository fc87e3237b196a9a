// What a view's class may say of its layout beyond what Apple documents; never included by a bundle.
#pragma once

#import <UIKit/UIView.h>

namespace sim {

/// The distances of a text's first and last baseline from the upper and the lower edge, in points.
struct Baselines {
  CGFloat firstFromTop = 0;
  CGFloat lastFromBottom = 0;
};

}  // namespace sim

@interface UIView (SimLayoutContent)
/// For content that is as high as its width asks for, with `intrinsicContentSize` on one line: its height in points at
/// a width. Negative, as here, for any other.
- (CGFloat)sim_contentHeightForWidth:(CGFloat)width;
/// Where the baselines of its text are while its height is its intrinsic one. NO, as here, for a view without text.
- (BOOL)sim_getBaselines:(sim::Baselines &)baselines;
- (UILayoutPriority)sim_defaultHuggingForAxis:(UILayoutConstraintAxis)axis;
/// Whether a controller, or a table view, has a place for the view whatever its constraints say.
- (BOOL)sim_isPlacedByFramework;
/// A subview was hidden or shown.
- (void)sim_arrangementChanged;
/// A subview's intrinsic size is another.
- (void)sim_contentOfSubviewChanged;
/// Before the receiver lays out its subviews: puts those that constraints place where they belong.
- (void)sim_placeByConstraints;
/// Something about the frame or the bounds has changed, on which constraints of others may depend.
- (void)sim_geometryChanged;
/// Flags the receiver's ancestors when something in its tree is to update its constraints.
- (void)sim_passOnNeedForConstraints;
@end

@interface UIView (SimMargins)
/// The margins of a subview that has none of its own, without the safe area: 8 on each side here.
- (UIEdgeInsets)sim_defaultMarginsOfSubview:(UIView *)subview;
/// Tells the receiver and its controller of a safe area that has changed since the last time.
- (void)sim_tellSafeArea;
@end
