// Relations between the edges and sizes of views and layout guides, of which their places follow.
#pragma once

#import <CoreGraphics/CGBase.h>
#import <UIKit/UIKitDefines.h>

#include <objcxx/HiddenState.h>

@class NSLayoutAnchor;
@class NSLayoutDimension;
@class NSLayoutYAxisAnchor;

typedef float UILayoutPriority;
static const UILayoutPriority UILayoutPriorityRequired __attribute__((unused)) = 1000;
static const UILayoutPriority UILayoutPriorityDefaultHigh __attribute__((unused)) = 750;
static const UILayoutPriority UILayoutPriorityDragThatCanResizeScene __attribute__((unused)) = 510;
static const UILayoutPriority UILayoutPrioritySceneSizeStayPut __attribute__((unused)) = 500;
static const UILayoutPriority UILayoutPriorityDragThatCannotResizeScene __attribute__((unused)) = 490;
static const UILayoutPriority UILayoutPriorityDefaultLow __attribute__((unused)) = 250;
static const UILayoutPriority UILayoutPriorityFittingSizeLevel __attribute__((unused)) = 50;

typedef NS_ENUM(NSInteger, NSLayoutRelation) {
  NSLayoutRelationLessThanOrEqual = -1,
  NSLayoutRelationEqual = 0,
  NSLayoutRelationGreaterThanOrEqual = 1,
};

/// The language runs from left to right, so that leading is left.
typedef NS_ENUM(NSInteger, NSLayoutAttribute) {
  NSLayoutAttributeNotAnAttribute = 0,
  NSLayoutAttributeLeft = 1,
  NSLayoutAttributeRight,
  NSLayoutAttributeTop,
  NSLayoutAttributeBottom,
  NSLayoutAttributeLeading,
  NSLayoutAttributeTrailing,
  NSLayoutAttributeWidth,
  NSLayoutAttributeHeight,
  NSLayoutAttributeCenterX,
  NSLayoutAttributeCenterY,
  NSLayoutAttributeLastBaseline,
  NSLayoutAttributeBaseline = NSLayoutAttributeLastBaseline,
  NSLayoutAttributeFirstBaseline,
  NSLayoutAttributeLeftMargin,
  NSLayoutAttributeRightMargin,
  NSLayoutAttributeTopMargin,
  NSLayoutAttributeBottomMargin,
  NSLayoutAttributeLeadingMargin,
  NSLayoutAttributeTrailingMargin,
  NSLayoutAttributeCenterXWithinMargins,
  NSLayoutAttributeCenterYWithinMargins,
};

typedef NS_OPTIONS(NSUInteger, NSLayoutFormatOptions) {
  NSLayoutFormatAlignAllLeft = 1 << NSLayoutAttributeLeft,
  NSLayoutFormatAlignAllRight = 1 << NSLayoutAttributeRight,
  NSLayoutFormatAlignAllTop = 1 << NSLayoutAttributeTop,
  NSLayoutFormatAlignAllBottom = 1 << NSLayoutAttributeBottom,
  NSLayoutFormatAlignAllLeading = 1 << NSLayoutAttributeLeading,
  NSLayoutFormatAlignAllTrailing = 1 << NSLayoutAttributeTrailing,
  NSLayoutFormatAlignAllCenterX = 1 << NSLayoutAttributeCenterX,
  NSLayoutFormatAlignAllCenterY = 1 << NSLayoutAttributeCenterY,
  NSLayoutFormatAlignAllLastBaseline = 1 << NSLayoutAttributeLastBaseline,
  NSLayoutFormatAlignAllBaseline = NSLayoutFormatAlignAllLastBaseline,
  NSLayoutFormatAlignAllFirstBaseline = 1 << NSLayoutAttributeFirstBaseline,
  NSLayoutFormatAlignmentMask = 0xFFFF,
  NSLayoutFormatDirectionLeadingToTrailing = 0 << 16,
  NSLayoutFormatDirectionLeftToRight = 1 << 16,
  NSLayoutFormatDirectionRightToLeft = 2 << 16,
  NSLayoutFormatDirectionMask = 0x3 << 16,
};

SIM_STATE_TYPE(LayoutConstraintState);

/// first attribute {=, <=, >=} multiplier × second attribute + constant. Main thread.
///
/// Required constraints that contradict each other are told in the device log, and one of them is left out until
/// something of them changes. Setting anything lays out anew at the next layout.
@interface NSLayoutConstraint : NSObject {
 @private
  SIM_STATE(LayoutConstraintState, _constraintState);
}
/// Raises NSInvalidArgumentException for items that are neither views nor layout guides, for attributes that have
/// nothing to do with each other, and for a place that is to equal a constant.
+ (instancetype)constraintWithItem:(id)view1
                         attribute:(NSLayoutAttribute)attr1
                         relatedBy:(NSLayoutRelation)relation
                            toItem:(id)view2
                         attribute:(NSLayoutAttribute)attr2
                        multiplier:(CGFloat)multiplier
                          constant:(CGFloat)c;

/// 1000, required, at first. Raises NSInternalInconsistencyException for one outside 0 to 1000, and for an active one
/// that is to become required or to be required no more.
@property UILayoutPriority priority;
@property BOOL shouldBeArchived;
/// Not owned; nil when it is gone.
@property(readonly, assign) id firstItem;
@property(readonly, assign) id secondItem;
@property(readonly) NSLayoutAttribute firstAttribute;
@property(readonly) NSLayoutAttribute secondAttribute;
@property(readonly, copy) NSLayoutAnchor *firstAnchor;
/// nil without a second item.
@property(readonly, copy) NSLayoutAnchor *secondAnchor;
@property(readonly) NSLayoutRelation relation;
@property(readonly) CGFloat multiplier;
@property CGFloat constant;
/// Whether a view has it among its `constraints`: the nearest that both items are in. Setting it raises
/// NSGenericException when there is none.
@property(getter=isActive) BOOL active;
+ (void)activateConstraints:(NSArray<NSLayoutConstraint *> *)constraints;
+ (void)deactivateConstraints:(NSArray<NSLayoutConstraint *> *)constraints;
@end

@interface NSLayoutConstraint (VisualFormat)
/// Of a format such as "H:|-[name(>=80@750)]-8-[value]|", in which each name is a key of `views` or, for numbers, of
/// `metrics`. Raises NSInvalidArgumentException for any other text, and says where.
+ (NSArray<NSLayoutConstraint *> *)constraintsWithVisualFormat:(NSString *)format
                                                       options:(NSLayoutFormatOptions)opts
                                                       metrics:(NSDictionary<NSString *, id> *)metrics
                                                         views:(NSDictionary<NSString *, id> *)views;
@end

/// NSDictionaryOfVariableBindings(a, b) is @{@"a": a, @"b": b}. Raises NSInvalidArgumentException where one is nil.
#define NSDictionaryOfVariableBindings(...) _NSDictionaryOfVariableBindings(@"" #__VA_ARGS__, __VA_ARGS__, nil)
UIKIT_EXTERN NSDictionary<NSString *, id> *_NSDictionaryOfVariableBindings(NSString *commaSeparatedKeysString,
                                                                           id firstValue, ...);

@interface NSLayoutConstraint (NSIdentifier)
@property(copy) NSString *identifier;
@end

/// What the bars of a view controller cover at the top or at the bottom of its view.
@protocol UILayoutSupport <NSObject>
@property(nonatomic, readonly) CGFloat length;
@property(readonly, strong) NSLayoutYAxisAnchor *topAnchor;
@property(readonly, strong) NSLayoutYAxisAnchor *bottomAnchor;
@property(readonly, strong) NSLayoutDimension *heightAnchor;
@end
