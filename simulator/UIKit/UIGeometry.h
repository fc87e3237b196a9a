// Edge insets, and geometry as strings and values.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <UIKit/UIKitDefines.h>

typedef struct UIEdgeInsets {
  CGFloat top, left, bottom, right;
} UIEdgeInsets;

/// Insets from the edges as the language reads: leading is left.
typedef struct NSDirectionalEdgeInsets {
  CGFloat top, leading, bottom, trailing;
} NSDirectionalEdgeInsets;

typedef struct UIOffset {
  CGFloat horizontal, vertical;
} UIOffset;

typedef NS_OPTIONS(NSUInteger, UIRectEdge) {
  UIRectEdgeNone = 0,
  UIRectEdgeTop = 1 << 0,
  UIRectEdgeLeft = 1 << 1,
  UIRectEdgeBottom = 1 << 2,
  UIRectEdgeRight = 1 << 3,
  UIRectEdgeAll = UIRectEdgeTop | UIRectEdgeLeft | UIRectEdgeBottom | UIRectEdgeRight,
};

static const UIEdgeInsets UIEdgeInsetsZero __attribute__((unused)) = {0, 0, 0, 0};
static const NSDirectionalEdgeInsets NSDirectionalEdgeInsetsZero __attribute__((unused)) = {0, 0, 0, 0};
static const UIOffset UIOffsetZero __attribute__((unused)) = {0, 0};

UIKIT_STATIC_INLINE UIEdgeInsets UIEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
  UIEdgeInsets insets = {top, left, bottom, right};
  return insets;
}
UIKIT_STATIC_INLINE NSDirectionalEdgeInsets NSDirectionalEdgeInsetsMake(CGFloat top, CGFloat leading, CGFloat bottom,
                                                                        CGFloat trailing) {
  NSDirectionalEdgeInsets insets = {top, leading, bottom, trailing};
  return insets;
}
UIKIT_STATIC_INLINE UIOffset UIOffsetMake(CGFloat horizontal, CGFloat vertical) {
  UIOffset offset = {horizontal, vertical};
  return offset;
}
UIKIT_STATIC_INLINE CGRect UIEdgeInsetsInsetRect(CGRect rect, UIEdgeInsets insets) {
  return CGRectMake(rect.origin.x + insets.left, rect.origin.y + insets.top,
                    rect.size.width - insets.left - insets.right, rect.size.height - insets.top - insets.bottom);
}
UIKIT_STATIC_INLINE BOOL UIEdgeInsetsEqualToEdgeInsets(UIEdgeInsets a, UIEdgeInsets b) {
  return a.top == b.top && a.left == b.left && a.bottom == b.bottom && a.right == b.right;
}

/// "{x, y}", "{width, height}", "{{x, y}, {width, height}}", "{top, left, bottom, right}".
UIKIT_EXTERN NSString *NSStringFromCGPoint(CGPoint point);
UIKIT_EXTERN NSString *NSStringFromCGSize(CGSize size);
UIKIT_EXTERN NSString *NSStringFromCGRect(CGRect rect);
UIKIT_EXTERN NSString *NSStringFromUIEdgeInsets(UIEdgeInsets insets);
/// The zero value for a string of another form.
UIKIT_EXTERN CGPoint CGPointFromString(NSString *string);
UIKIT_EXTERN CGSize CGSizeFromString(NSString *string);
UIKIT_EXTERN CGRect CGRectFromString(NSString *string);

@interface NSValue (UIGeometryExtensions)
+ (NSValue *)valueWithCGPoint:(CGPoint)point;
+ (NSValue *)valueWithCGSize:(CGSize)size;
+ (NSValue *)valueWithCGRect:(CGRect)rect;
+ (NSValue *)valueWithUIEdgeInsets:(UIEdgeInsets)insets;
- (CGPoint)CGPointValue;
- (CGSize)CGSizeValue;
- (CGRect)CGRectValue;
- (UIEdgeInsets)UIEdgeInsetsValue;
@end
