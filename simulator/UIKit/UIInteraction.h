// What a view can be given to react to. Main thread only.
#pragma once

#import <UIKit/UIView.h>

@protocol UIInteraction <NSObject>
/// nil while it is on none. Not owned.
@property(nonatomic, readonly) UIView *view;
- (void)willMoveToView:(UIView *)view;
- (void)didMoveToView:(UIView *)view;
@end

@interface UIView (Interactions)
/// Takes it from the view that it is on. Owned.
- (void)addInteraction:(id<UIInteraction>)interaction;
- (void)removeInteraction:(id<UIInteraction>)interaction;
@property(nonatomic, copy) NSArray<id<UIInteraction>> *interactions;
@end
