#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>

namespace {

id checked(CFTypeRef object, const char *function) {
  if (object) return (id)object;
  std::fprintf(stderr, "%s was called with NULL\n", function);
  std::abort();
}

}  // namespace

CFTypeRef CFRetain(CFTypeRef object) { return (CFTypeRef)[checked(object, "CFRetain") retain]; }

void CFRelease(CFTypeRef object) { [checked(object, "CFRelease") release]; }

Boolean CFEqual(CFTypeRef one, CFTypeRef other) { return [checked(one, "CFEqual") isEqual:checked(other, "CFEqual")]; }

const UInt8 *CFDataGetBytePtr(CFDataRef data) { return static_cast<const UInt8 *>([(NSData *)data bytes]); }

CFIndex CFDataGetLength(CFDataRef data) { return static_cast<CFIndex>([(NSData *)data length]); }

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8 *bytes, CFIndex length) {
  if (length < 0) return nullptr;
  return (CFDataRef)[[NSData alloc] initWithBytes:bytes length:static_cast<NSUInteger>(length)];
}
