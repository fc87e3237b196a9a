// Changes of layers that belong together. They take effect as they are made. Main thread only.
#pragma once

#import <QuartzCore/CAMediaTiming.h>

CA_EXTERN NSString *const kCATransactionAnimationDuration;
CA_EXTERN NSString *const kCATransactionDisableActions;
CA_EXTERN NSString *const kCATransactionAnimationTimingFunction;
CA_EXTERN NSString *const kCATransactionCompletionBlock;

@interface CATransaction : NSObject
+ (void)begin;
/// The completion block of what was begun last runs on the main queue. Without `begin`: no effect.
+ (void)commit;
+ (void)flush;
/// Runs at the end of the transaction; outside of one on the main queue.
+ (void)setCompletionBlock:(void (^)(void))block;
+ (void (^)(void))completionBlock;
/// These are kept for the transaction: nothing moves. 0.25 seconds, NO and nil until set.
+ (CFTimeInterval)animationDuration;
+ (void)setAnimationDuration:(CFTimeInterval)dur;
+ (BOOL)disableActions;
+ (void)setDisableActions:(BOOL)flag;
+ (CAMediaTimingFunction *)animationTimingFunction;
+ (void)setAnimationTimingFunction:(CAMediaTimingFunction *)function;
+ (id)valueForKey:(NSString *)key;
+ (void)setValue:(id)anObject forKey:(NSString *)key;
@end
