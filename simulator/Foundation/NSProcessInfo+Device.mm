#import <Foundation/Foundation.h>

#include <cstdio>

#include "objc/SystemVersion.hpp"

@implementation NSProcessInfo (SystemVersion)

- (NSOperatingSystemVersion)operatingSystemVersion {
  NSOperatingSystemVersion version{};
  (void)std::sscanf(sim::kSystemVersion, "%ld.%ld.%ld", &version.majorVersion, &version.minorVersion,
                    &version.patchVersion);
  return version;
}

- (BOOL)isOperatingSystemAtLeastVersion:(NSOperatingSystemVersion)wanted {
  const NSOperatingSystemVersion version = [self operatingSystemVersion];
  if (version.majorVersion != wanted.majorVersion) return version.majorVersion > wanted.majorVersion;
  if (version.minorVersion != wanted.minorVersion) return version.minorVersion > wanted.minorVersion;
  return version.patchVersion >= wanted.patchVersion;
}

@end
