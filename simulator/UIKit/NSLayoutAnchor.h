// Edges and sizes of views and layout guides, to make constraints of.
#pragma once

#import <UIKit/NSLayoutConstraint.h>

@class NSLayoutXAxisAnchor, NSLayoutYAxisAnchor, NSLayoutDimension;

/// Made by views and layout guides. The constraints that it makes are not active yet. Each method raises
/// NSInvalidArgumentException for nil and for an anchor of another kind.
@interface NSLayoutAnchor<AnchorType> : NSObject {
 @private
  id _item;
  NSLayoutAttribute _attribute;
}
- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType> *)anchor
    __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutAnchor<AnchorType> *)anchor
    __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutAnchor<AnchorType> *)anchor
    __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType> *)anchor
                                       constant:(CGFloat)c __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutAnchor<AnchorType> *)anchor
                                                    constant:(CGFloat)c __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutAnchor<AnchorType> *)anchor
                                                 constant:(CGFloat)c __attribute__((warn_unused_result));
@end

@interface NSLayoutXAxisAnchor : NSLayoutAnchor <NSLayoutXAxisAnchor *>
@end

@interface NSLayoutYAxisAnchor : NSLayoutAnchor <NSLayoutYAxisAnchor *>
@end

@interface NSLayoutDimension : NSLayoutAnchor <NSLayoutDimension *>
- (NSLayoutConstraint *)constraintEqualToConstant:(CGFloat)c __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintGreaterThanOrEqualToConstant:(CGFloat)c __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintLessThanOrEqualToConstant:(CGFloat)c __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutDimension *)anchor
                                     multiplier:(CGFloat)m __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutDimension *)anchor
                                                  multiplier:(CGFloat)m __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutDimension *)anchor
                                               multiplier:(CGFloat)m __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintEqualToAnchor:(NSLayoutDimension *)anchor
                                     multiplier:(CGFloat)m
                                       constant:(CGFloat)c __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintGreaterThanOrEqualToAnchor:(NSLayoutDimension *)anchor
                                                  multiplier:(CGFloat)m
                                                    constant:(CGFloat)c __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintLessThanOrEqualToAnchor:(NSLayoutDimension *)anchor
                                               multiplier:(CGFloat)m
                                                 constant:(CGFloat)c __attribute__((warn_unused_result));
@end

/// The system's spacing is 8 points, whatever the items.
@interface NSLayoutXAxisAnchor (UIViewDynamicSystemSpacingSupport)
- (NSLayoutConstraint *)constraintEqualToSystemSpacingAfterAnchor:(NSLayoutXAxisAnchor *)anchor
                                                       multiplier:(CGFloat)multiplier
    __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintGreaterThanOrEqualToSystemSpacingAfterAnchor:(NSLayoutXAxisAnchor *)anchor
                                                                    multiplier:(CGFloat)multiplier
    __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintLessThanOrEqualToSystemSpacingAfterAnchor:(NSLayoutXAxisAnchor *)anchor
                                                                 multiplier:(CGFloat)multiplier
    __attribute__((warn_unused_result));
@end

@interface NSLayoutYAxisAnchor (UIViewDynamicSystemSpacingSupport)
- (NSLayoutConstraint *)constraintEqualToSystemSpacingBelowAnchor:(NSLayoutYAxisAnchor *)anchor
                                                       multiplier:(CGFloat)multiplier
    __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintGreaterThanOrEqualToSystemSpacingBelowAnchor:(NSLayoutYAxisAnchor *)anchor
                                                                    multiplier:(CGFloat)multiplier
    __attribute__((warn_unused_result));
- (NSLayoutConstraint *)constraintLessThanOrEqualToSystemSpacingBelowAnchor:(NSLayoutYAxisAnchor *)anchor
                                                                 multiplier:(CGFloat)multiplier
    __attribute__((warn_unused_result));
@end
