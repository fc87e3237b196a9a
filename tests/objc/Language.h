// What the same source in C answers when it is compiled with ARC and without; tests/objc/c/Language.m.
#pragma once

#import <Foundation/Foundation.h>

@protocol Language
/// What `body` raised: the name of an exception, another object's description, @"something else" for what is no object,
/// or @"".
- (NSString *)caughtBy:(void (^)(void))body;
/// The same by a handler that throws it again, and one outside that names it.
- (NSString *)caughtAgain:(void (^)(void))body;
/// Calls `body` in a @try with a @finally, which sets `*reached`.
- (void)run:(void (^)(void))body finally:(BOOL *)reached;
/// Calls `body` with `lock` locked.
- (void)run:(void (^)(void))body synchronizedOn:(id)lock;
- (void)throwObject:(__unsafe_unretained id)object;

@property(nonatomic, copy) NSString *name;
@property(nonatomic) BOOL flag;
@property(copy) void (^handler)(void);
/// Stored in the class extension and in the @implementation.
- (void)setExtra:(int)extra hidden:(double)hidden;
- (NSString *)extraAndHidden;
- (NSArray *)literals;
- (BOOL)acceptsNil;
@end

@interface LanguageWithArc : NSObject <Language>
@end

@interface LanguageWithoutArc : NSObject <Language>
@end
