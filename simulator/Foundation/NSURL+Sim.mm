#import <Foundation/NSURL+Sim.h>

#include <map>
#include <string>

namespace {

struct Access {
  SIMSecurityScope scope = SIMSecurityScopeNone;
  NSUInteger open = 0;
};

/// By standardized path.
std::map<std::string, Access> &accesses() {
  static auto *all = new std::map<std::string, Access>;  // Lives as long as the process.
  return *all;
}

std::string keyOf(NSURL *url) {
  NSString *path = [url isFileURL] ? [[url path] stringByStandardizingPath] : [url absoluteString];
  const char *text = [path UTF8String];
  return text ? text : "";
}

}  // namespace

@implementation NSURL (SecurityScopedAccess)

- (BOOL)startAccessingSecurityScopedResource {
  const auto found = accesses().find(keyOf(self));
  if (found == accesses().end() || found->second.scope != SIMSecurityScopeReadable) return NO;
  ++found->second.open;
  return YES;
}

- (void)stopAccessingSecurityScopedResource {
  const auto found = accesses().find(keyOf(self));
  if (found != accesses().end() && found->second.open > 0) --found->second.open;
}

@end

@implementation NSURL (Sim)

- (SIMSecurityScope)sim_securityScope {
  const auto found = accesses().find(keyOf(self));
  return found == accesses().end() ? SIMSecurityScopeNone : found->second.scope;
}

- (void)sim_setSecurityScope:(SIMSecurityScope)scope {
  accesses()[keyOf(self)].scope = scope;
}

- (NSUInteger)sim_openAccesses {
  const auto found = accesses().find(keyOf(self));
  return found == accesses().end() ? 0 : found->second.open;
}

+ (NSUInteger)sim_openAccesses {
  NSUInteger count = 0;
  for (const auto &[key, access] : accesses()) count += access.open;
  return count;
}

+ (void)sim_resetSecurityScopes {
  accesses().clear();
}

@end
