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

enum Type : CFTypeID { kUnbridged = 1, kBoolean, kNumber, kString, kData, kDate, kArray, kDictionary, kURL };

struct Bridge {
  Class base;
  Type type;
};

Type typeOf(id object) {
  // The class of truth values is one of numbers too, and so comes first.
  static const Bridge bridges[] = {
      {[[NSNumber numberWithBool:YES] class], kBoolean},
      {[NSNumber class], kNumber},
      {[NSString class], kString},
      {[NSData class], kData},
      {[NSDate class], kDate},
      {[NSArray class], kArray},
      {[NSDictionary class], kDictionary},
      {[NSURL class], kURL},
  };
  for (const Bridge &bridge : bridges) {
    if ([object isKindOfClass:bridge.base]) return bridge.type;
  }
  return kUnbridged;
}

}  // namespace

CFTypeRef CFRetain(CFTypeRef object) { return (CFTypeRef)[checked(object, "CFRetain") retain]; }

void CFRelease(CFTypeRef object) { [checked(object, "CFRelease") release]; }

Boolean CFEqual(CFTypeRef one, CFTypeRef other) { return [checked(one, "CFEqual") isEqual:checked(other, "CFEqual")]; }

CFTypeID CFGetTypeID(CFTypeRef object) { return typeOf(checked(object, "CFGetTypeID")); }

CFTypeID CFBooleanGetTypeID(void) { return kBoolean; }

CFTypeID CFNumberGetTypeID(void) { return kNumber; }

const UInt8 *CFDataGetBytePtr(CFDataRef data) { return static_cast<const UInt8 *>([(NSData *)data bytes]); }

CFIndex CFDataGetLength(CFDataRef data) { return static_cast<CFIndex>([(NSData *)data length]); }

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8 *bytes, CFIndex length) {
  if (length < 0) return nullptr;
  return (CFDataRef)[[NSData alloc] initWithBytes:bytes length:static_cast<NSUInteger>(length)];
}
