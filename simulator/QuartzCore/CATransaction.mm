#import <QuartzCore/CATransaction.h>

#include <dispatch/dispatch.h>
#include <objcxx/Retained.h>

#include <vector>

NSString *const kCATransactionAnimationDuration = @"animationDuration";
NSString *const kCATransactionDisableActions = @"disableActions";
NSString *const kCATransactionAnimationTimingFunction = @"animationTimingFunction";
NSString *const kCATransactionCompletionBlock = @"completionBlock";

namespace {

using Block = void (^)(void);

/// The open transactions, the innermost last, each with its values.
std::vector<objcxx::Retained<NSMutableDictionary>> &stack() {
  static std::vector<objcxx::Retained<NSMutableDictionary>> open;
  return open;
}

NSMutableDictionary *innermost() { return stack().empty() ? nil : stack().back().get(); }

}  // namespace

@implementation CATransaction

+ (void)begin {
  const auto values = objcxx::adopt([[NSMutableDictionary alloc] init]);
  if (!stack().empty()) {
    [values.get() addEntriesFromDictionary:innermost()];
    [values.get() removeObjectForKey:kCATransactionCompletionBlock];
  }
  stack().push_back(values);
}

+ (void)commit {
  if (stack().empty()) return;
  const auto values = stack().back();
  stack().pop_back();
  if (id block = [values.get() objectForKey:kCATransactionCompletionBlock]) {
    dispatch_async(dispatch_get_main_queue(), (Block)block);
  }
}

+ (void)flush {
}

+ (id)valueForKey:(NSString *)key {
  if (id value = [innermost() objectForKey:key]) return value;
  return [key isEqualToString:kCATransactionAnimationDuration] ? [NSNumber numberWithDouble:0.25] : nil;
}

+ (void)setValue:(id)anObject forKey:(NSString *)key {
  if ([key isEqualToString:kCATransactionCompletionBlock]) return [self setCompletionBlock:(Block)anObject];
  if (anObject) {
    [innermost() setObject:anObject forKey:key];
  } else {
    [innermost() removeObjectForKey:key];
  }
}

+ (void)setCompletionBlock:(void (^)(void))block {
  if (stack().empty()) {
    if (block) dispatch_async(dispatch_get_main_queue(), block);
    return;
  }
  [innermost() removeObjectForKey:kCATransactionCompletionBlock];
  if (!block) return;
  Block copy = Block_copy(block);
  [innermost() setObject:(id)copy forKey:kCATransactionCompletionBlock];
  Block_release(copy);
}

+ (void (^)(void))completionBlock {
  return (Block)[innermost() objectForKey:kCATransactionCompletionBlock];
}

+ (CFTimeInterval)animationDuration {
  return [[self valueForKey:kCATransactionAnimationDuration] doubleValue];
}

+ (void)setAnimationDuration:(CFTimeInterval)dur {
  [self setValue:[NSNumber numberWithDouble:dur] forKey:kCATransactionAnimationDuration];
}

+ (BOOL)disableActions {
  return [[self valueForKey:kCATransactionDisableActions] boolValue];
}

+ (void)setDisableActions:(BOOL)flag {
  [self setValue:[NSNumber numberWithBool:flag] forKey:kCATransactionDisableActions];
}

+ (CAMediaTimingFunction *)animationTimingFunction {
  return [self valueForKey:kCATransactionAnimationTimingFunction];
}

+ (void)setAnimationTimingFunction:(CAMediaTimingFunction *)function {
  [self setValue:function forKey:kCATransactionAnimationTimingFunction];
}

@end
