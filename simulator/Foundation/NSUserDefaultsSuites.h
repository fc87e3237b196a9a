// User defaults of suites.
#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSUserDefaults (Suites)
/// The defaults of the domain `suiteName`, those of all applications and the registered ones; nil is the application's
/// own domain. nil for the application's own identifier and for NSGlobalDomain. Any thread, as all user defaults.
- (nullable instancetype)initWithSuiteName:(nullable NSString *)suiteName;
- (nullable NSURL *)URLForKey:(NSString *)key;
- (void)setURL:(nullable NSURL *)url forKey:(NSString *)key;
@end

NS_ASSUME_NONNULL_END
