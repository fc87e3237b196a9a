// Predicates of blocks. GNUstep's keep the block where it lies, on the stack of a function that has returned by the
// time the predicate is used or goes.
#import <Foundation/Foundation.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

// Replacing the method of the class is what this file is for.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@interface SIMBlockPredicate : NSPredicate {
 @public
  objcxx::BlockHandle<BOOL, id, NSDictionary *> body;
  objcxx::Retained<NSDictionary> variables;
}
@end

@implementation SIMBlockPredicate

- (BOOL)evaluateWithObject:(id)object {
  return body(object, variables.get());
}

- (BOOL)evaluateWithObject:(id)object substitutionVariables:(NSDictionary *)given {
  return body(object, given);
}

- (instancetype)predicateWithSubstitutionVariables:(NSDictionary *)given {
  SIMBlockPredicate *bound = [[[SIMBlockPredicate alloc] init] autorelease];
  bound->body = body;
  bound->variables = objcxx::adopt((NSDictionary *)[given copy]);
  return bound;
}

- (NSString *)predicateFormat {
  return [NSString stringWithFormat:@"BLOCKPREDICATE(%p)", (void *)body.get()];
}

- (id)copyWithZone:(NSZone *)zone {
  return [self retain];
}

@end

@implementation NSPredicate (Device)

+ (NSPredicate *)predicateWithBlock:(BOOL (^)(id evaluatedObject, NSDictionary *bindings))block {
  SIMBlockPredicate *predicate = [[[SIMBlockPredicate alloc] init] autorelease];
  predicate->body = objcxx::copyOf(block);
  return predicate;
}

@end
