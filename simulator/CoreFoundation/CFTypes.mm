#import <CoreFoundation/CFBase+Sim.h>
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "objc/SystemVersion.hpp"

namespace {

id checked(CFTypeRef object, const char *function) {
  if (object) return (id)object;
  std::fprintf(stderr, "%s was called with NULL\n", function);
  std::abort();
}

enum Type : CFTypeID {
  kUnbridged = 1,
  kBoolean,
  kNumber,
  kString,
  kData,
  kDate,
  kArray,
  kDictionary,
  kURL,
  kError,
  kNull,
  kBundle,
  kUUID
};

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
      {[NSError class], kError},
      {[NSNull class], kNull},
      {[NSBundle class], kBundle},
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

CFTypeID CFStringGetTypeID(void) { return kString; }

CFTypeID CFDataGetTypeID(void) { return kData; }

CFTypeID CFDateGetTypeID(void) { return kDate; }

CFTypeID CFArrayGetTypeID(void) { return kArray; }

CFTypeID CFDictionaryGetTypeID(void) { return kDictionary; }

CFTypeID CFURLGetTypeID(void) { return kURL; }

CFTypeID CFErrorGetTypeID(void) { return kError; }

CFTypeID CFNullGetTypeID(void) { return kNull; }

CFTypeID CFBundleGetTypeID(void) { return kBundle; }

CFIndex CFGetRetainCount(CFTypeRef object) {
  return static_cast<CFIndex>([checked(object, "CFGetRetainCount") retainCount]);
}

CFHashCode CFHash(CFTypeRef object) { return [checked(object, "CFHash") hash]; }

CFTypeRef CFAutorelease(CFTypeRef object) { return (CFTypeRef)[checked(object, "CFAutorelease") autorelease]; }

CFStringRef CFCopyDescription(CFTypeRef object) {
  return object ? (CFStringRef)[[(id)object description] copy] : nullptr;
}

void CFShow(CFTypeRef object) { NSLog(@"%@", object); }

// There is no public table of the versions; this one lies where those of iOS 16.4 to 16.6 do.
double kCFCoreFoundationVersionNumber = 1971.0;
static_assert(std::string_view(sim::kSystemVersion) == "16.5", "It goes with the version that UIDevice tells.");

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFAllocatorRef kCFAllocatorSystemDefault = nullptr;
const CFAllocatorRef kCFAllocatorMalloc = nullptr;
const CFAllocatorRef kCFAllocatorNull = nullptr;

// Constant for everybody else. The objects are there when Foundation has started.
CFBooleanRef sim_CFBooleanTrue __asm__("kCFBooleanTrue") = nullptr;
CFBooleanRef sim_CFBooleanFalse __asm__("kCFBooleanFalse") = nullptr;
CFNullRef sim_CFNull __asm__("kCFNull") = nullptr;

void SIMStartCoreFoundation(void) {
  sim_CFBooleanTrue = (CFBooleanRef)[[NSNumber numberWithBool:YES] retain];
  sim_CFBooleanFalse = (CFBooleanRef)[[NSNumber numberWithBool:NO] retain];
  sim_CFNull = (CFNullRef)[NSNull null];
}

const UInt8 *CFDataGetBytePtr(CFDataRef data) { return static_cast<const UInt8 *>([(NSData *)data bytes]); }

CFIndex CFDataGetLength(CFDataRef data) { return static_cast<CFIndex>([(NSData *)data length]); }

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8 *bytes, CFIndex length) {
  if (length < 0) return nullptr;
  return (CFDataRef)[[NSData alloc] initWithBytes:bytes length:static_cast<NSUInteger>(length)];
}

CFDataRef CFDataCreateCopy(CFAllocatorRef, CFDataRef data) { return (CFDataRef)[(NSData *)data copy]; }

CFMutableDataRef CFDataCreateMutable(CFAllocatorRef, CFIndex) { return (CFMutableDataRef)[[NSMutableData alloc] init]; }

void CFDataAppendBytes(CFMutableDataRef data, const UInt8 *bytes, CFIndex length) {
  [(NSMutableData *)data appendBytes:bytes length:static_cast<NSUInteger>(length)];
}
