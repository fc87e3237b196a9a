// The simulator's own side of security-scoped files. The bundle never includes this.
#pragma once

#import <Foundation/Foundation.h>

typedef NS_ENUM(NSInteger, SIMSecurityScope) {
  /// Ordinary file: `startAccessingSecurityScopedResource` answers NO.
  SIMSecurityScopeNone,
  /// `startAccessingSecurityScopedResource` answers YES and opens one access.
  SIMSecurityScopeReadable,
  /// The system refuses: `startAccessingSecurityScopedResource` answers NO.
  SIMSecurityScopeRefused
};

@interface NSURL (Sim)
/// The scope of the file at this URL's path, for every URL that names the same path.
@property(nonatomic, setter=sim_setSecurityScope:) SIMSecurityScope sim_securityScope;
/// Accesses of this path that are started and not yet stopped.
@property(nonatomic, readonly) NSUInteger sim_openAccesses;
/// Accesses of all paths that are started and not yet stopped.
+ (NSUInteger)sim_openAccesses;
/// Forgets every scope and every open access.
+ (void)sim_resetSecurityScopes;
@end
