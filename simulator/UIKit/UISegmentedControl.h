// A row of segments, one of them selected.
#pragma once

#import <UIKit/UIControl.h>
#import <UIKit/UIImage.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UISegmentedControlState);

enum { UISegmentedControlNoSegment = -1 };

@interface UISegmentedControl : UIControl {
 @private
  SIM_STATE(UISegmentedControlState, _segmentState);
}
/// Strings and images; anything else raises NSInvalidArgumentException.
- (instancetype)initWithItems:(NSArray *)items;
@property(nonatomic, readonly) NSUInteger numberOfSegments;
/// No segment until set. An index that is not there means no segment below 0 and raises NSRangeException above. Setting
/// it sends no action.
@property(nonatomic) NSInteger selectedSegmentIndex;
@property(nonatomic, getter=isMomentary) BOOL momentary;
@property(nonatomic, retain) UIColor *selectedSegmentTintColor;
/// The font (13 points, medium) and the foreground colour; others are not carried, which the log says. What a state has
/// none of is that of normal.
- (void)setTitleTextAttributes:(NSDictionary<NSAttributedStringKey, id> *)attributes forState:(UIControlState)state;
- (NSDictionary<NSAttributedStringKey, id> *)titleTextAttributesForState:(UIControlState)state;
/// An index past the end counts as the end.
- (void)insertSegmentWithTitle:(NSString *)title atIndex:(NSUInteger)index animated:(BOOL)animated;
- (void)insertSegmentWithImage:(UIImage *)image atIndex:(NSUInteger)index animated:(BOOL)animated;
- (void)removeSegmentAtIndex:(NSUInteger)index animated:(BOOL)animated;
- (void)removeAllSegments;
/// An index that is not there counts as the last segment, as on a device; without segments nil.
- (void)setTitle:(NSString *)title forSegmentAtIndex:(NSUInteger)index;
- (NSString *)titleForSegmentAtIndex:(NSUInteger)index;
- (void)setImage:(UIImage *)image forSegmentAtIndex:(NSUInteger)index;
- (UIImage *)imageForSegmentAtIndex:(NSUInteger)index;
- (void)setEnabled:(BOOL)enabled forSegmentAtIndex:(NSUInteger)index;
- (BOOL)isEnabledForSegmentAtIndex:(NSUInteger)index;
@end
