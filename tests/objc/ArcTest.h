// Fixture for tests that are compiled with ARC.
#pragma once

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <string>

/// Counts its own death in an `int` that outlives it.
@interface Mortal : NSObject
- (instancetype)initWithCounter:(int *)deaths;
@end

/// Runs a block on a thread of its own.
@interface Runner : NSObject
+ (instancetype)start:(void (^)(void))body;
/// Waits for the end.
- (void)join;
@end

inline std::string text(NSString *string) { return string ? [string UTF8String] : "(nil)"; }
