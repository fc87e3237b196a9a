// CFNumber, CFBoolean, CFDate, CFError, CFURL, CFUUID, CFBundle and CFPropertyList.
#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

#include <cmath>
#include <cstdint>

const CFErrorDomain kCFErrorDomainPOSIX = (CFStringRef)NSPOSIXErrorDomain;
const CFErrorDomain kCFErrorDomainOSStatus = (CFStringRef)NSOSStatusErrorDomain;
const CFErrorDomain kCFErrorDomainMach = (CFStringRef) @"NSMachErrorDomain";
const CFErrorDomain kCFErrorDomainCocoa = (CFStringRef)NSCocoaErrorDomain;
const CFStringRef kCFErrorLocalizedDescriptionKey = (CFStringRef)NSLocalizedDescriptionKey;
const CFStringRef kCFErrorLocalizedFailureReasonKey = (CFStringRef)NSLocalizedFailureReasonErrorKey;
const CFStringRef kCFErrorLocalizedRecoverySuggestionKey = (CFStringRef)NSLocalizedRecoverySuggestionErrorKey;
const CFStringRef kCFErrorDescriptionKey = (CFStringRef) @"NSDescription";
const CFStringRef kCFErrorUnderlyingErrorKey = (CFStringRef)NSUnderlyingErrorKey;
const CFStringRef kCFBundleExecutableKey = (CFStringRef) @"CFBundleExecutable";
const CFStringRef kCFBundleIdentifierKey = (CFStringRef) @"CFBundleIdentifier";
const CFStringRef kCFBundleVersionKey = (CFStringRef) @"CFBundleVersion";
const CFStringRef kCFBundleNameKey = (CFStringRef) @"CFBundleName";

namespace {

template <typename Value>
Value at(const void *place) {
  return *static_cast<const Value *>(place);
}

/// Stores the number as a `Value`; whether that is the same number.
template <typename Value>
bool storeInteger(NSNumber *number, void *place) {
  const long long whole = [number longLongValue];
  *static_cast<Value *>(place) = static_cast<Value>(whole);
  return static_cast<long long>(static_cast<Value>(whole)) == whole &&
         (!CFNumberIsFloatType((CFNumberRef)number) || static_cast<double>(whole) == [number doubleValue]);
}

template <typename Value>
bool storeFloat(NSNumber *number, void *place) {
  const double value = [number doubleValue];
  *static_cast<Value *>(place) = static_cast<Value>(value);
  return static_cast<double>(static_cast<Value>(value)) == value || std::isnan(value);
}

/// Hands an error that Foundation made to a caller who owns what he gets.
void give(NSError *error, CFErrorRef *place) {
  if (place) *place = (CFErrorRef)[error retain];
}

NSURL *of(CFURLRef url) { return (NSURL *)url; }
NSError *of(CFErrorRef error) { return (NSError *)error; }
NSBundle *of(CFBundleRef bundle) { return (NSBundle *)bundle; }
CFStringRef kept(NSString *string) { return (CFStringRef)[string copy]; }
CFURLRef kept(NSURL *url) { return (CFURLRef)[url retain]; }

}  // namespace

Boolean CFBooleanGetValue(CFBooleanRef boolean) { return [(NSNumber *)boolean boolValue]; }

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void *value) {
  NSNumber *made = [NSNumber alloc];
  switch (type) {
    case kCFNumberSInt8Type:
    case kCFNumberCharType: return (CFNumberRef)[made initWithChar:at<signed char>(value)];
    case kCFNumberSInt16Type:
    case kCFNumberShortType: return (CFNumberRef)[made initWithShort:at<short>(value)];
    case kCFNumberSInt32Type:
    case kCFNumberIntType: return (CFNumberRef)[made initWithInt:at<int>(value)];
    case kCFNumberSInt64Type:
    case kCFNumberLongType:
    case kCFNumberLongLongType:
    case kCFNumberCFIndexType:
    case kCFNumberNSIntegerType: return (CFNumberRef)[made initWithLongLong:at<std::int64_t>(value)];
    case kCFNumberFloat32Type:
    case kCFNumberFloatType: return (CFNumberRef)[made initWithFloat:at<float>(value)];
    case kCFNumberFloat64Type:
    case kCFNumberDoubleType:
    case kCFNumberCGFloatType: return (CFNumberRef)[made initWithDouble:at<double>(value)];
  }
  [made release];
  return nullptr;
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void *value) {
  auto *given = (NSNumber *)number;
  switch (type) {
    case kCFNumberSInt8Type:
    case kCFNumberCharType: return storeInteger<std::int8_t>(given, value);
    case kCFNumberSInt16Type:
    case kCFNumberShortType: return storeInteger<std::int16_t>(given, value);
    case kCFNumberSInt32Type:
    case kCFNumberIntType: return storeInteger<std::int32_t>(given, value);
    case kCFNumberSInt64Type:
    case kCFNumberLongType:
    case kCFNumberLongLongType:
    case kCFNumberCFIndexType:
    case kCFNumberNSIntegerType: return storeInteger<std::int64_t>(given, value);
    case kCFNumberFloat32Type:
    case kCFNumberFloatType: return storeFloat<float>(given, value);
    case kCFNumberFloat64Type:
    case kCFNumberDoubleType:
    case kCFNumberCGFloatType: return storeFloat<double>(given, value);
  }
  return false;
}

Boolean CFNumberIsFloatType(CFNumberRef number) {
  const char type = [(NSNumber *)number objCType][0];
  return type == 'f' || type == 'd';
}

CFComparisonResult CFNumberCompare(CFNumberRef number, CFNumberRef other, void *) {
  return static_cast<CFComparisonResult>([(NSNumber *)number compare:(NSNumber *)other]);
}

CFAbsoluteTime CFAbsoluteTimeGetCurrent(void) { return [NSDate timeIntervalSinceReferenceDate]; }

CFDateRef CFDateCreate(CFAllocatorRef, CFAbsoluteTime time) {
  return (CFDateRef)[[NSDate alloc] initWithTimeIntervalSinceReferenceDate:time];
}

CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date) { return [(NSDate *)date timeIntervalSinceReferenceDate]; }

CFErrorRef CFErrorCreate(CFAllocatorRef, CFErrorDomain domain, CFIndex code, CFDictionaryRef userInfo) {
  return (CFErrorRef)[[NSError alloc] initWithDomain:(NSString *)domain code:code userInfo:(NSDictionary *)userInfo];
}

CFErrorRef CFErrorCreateWithUserInfoKeysAndValues(CFAllocatorRef allocator, CFErrorDomain domain, CFIndex code,
                                                  const void *const *keys, const void *const *values, CFIndex count) {
  NSMutableDictionary *information = [NSMutableDictionary dictionary];
  for (CFIndex place = 0; place < count; ++place) [information setObject:(id)values[place] forKey:(id)keys[place]];
  return CFErrorCreate(allocator, domain, code, (CFDictionaryRef)information);
}

CFErrorDomain CFErrorGetDomain(CFErrorRef error) { return (CFErrorDomain)[of(error) domain]; }

CFIndex CFErrorGetCode(CFErrorRef error) { return [of(error) code]; }

CFDictionaryRef CFErrorCopyUserInfo(CFErrorRef error) {
  return (CFDictionaryRef)[[of(error) userInfo] ?: @{} copy];
}

CFStringRef CFErrorCopyDescription(CFErrorRef error) { return kept([of(error) localizedDescription]); }

CFStringRef CFErrorCopyFailureReason(CFErrorRef error) {
  NSString *reason = [[of(error) userInfo] objectForKey:(NSString *)kCFErrorLocalizedFailureReasonKey];
  return kept(reason);
}

CFStringRef CFErrorCopyRecoverySuggestion(CFErrorRef error) {
  NSString *suggestion = [[of(error) userInfo] objectForKey:(NSString *)kCFErrorLocalizedRecoverySuggestionKey];
  return kept(suggestion);
}

CFURLRef CFURLCreateWithString(CFAllocatorRef, CFStringRef string, CFURLRef base) {
  return (CFURLRef)[[NSURL alloc] initWithString:(NSString *)string relativeToURL:of(base)];
}

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle, Boolean isDirectory) {
  return (CFURLRef)[[NSURL alloc] initFileURLWithPath:(NSString *)path isDirectory:isDirectory];
}

CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef, CFURLRef url, CFStringRef component,
                                               Boolean isDirectory) {
  return kept([of(url) URLByAppendingPathComponent:(NSString *)component isDirectory:isDirectory]);
}

CFURLRef CFURLCreateCopyDeletingLastPathComponent(CFAllocatorRef, CFURLRef url) {
  return kept([of(url) URLByDeletingLastPathComponent]);
}

CFStringRef CFURLGetString(CFURLRef url) { return (CFStringRef)[of(url) relativeString]; }

CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle) { return kept([of(url) path]); }

CFStringRef CFURLCopyPath(CFURLRef url) { return kept([of(url) path]); }

CFStringRef CFURLCopyScheme(CFURLRef url) { return kept([of(url) scheme]); }

CFStringRef CFURLCopyHostName(CFURLRef url) { return kept([of(url) host]); }

CFStringRef CFURLCopyLastPathComponent(CFURLRef url) { return kept([of(url) lastPathComponent]); }

CFStringRef CFURLCopyPathExtension(CFURLRef url) {
  NSString *extension = [of(url) pathExtension];
  return [extension length] > 0 ? kept(extension) : nullptr;
}

CFUUIDRef CFUUIDCreate(CFAllocatorRef) { return (CFUUIDRef)[[NSUUID alloc] init]; }

CFStringRef CFUUIDCreateString(CFAllocatorRef, CFUUIDRef uuid) { return kept([(NSUUID *)uuid UUIDString]); }

CFBundleRef CFBundleGetMainBundle(void) { return (CFBundleRef)[NSBundle mainBundle]; }

CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier) {
  return (CFBundleRef)[NSBundle bundleWithIdentifier:(NSString *)identifier];
}

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef url) {
  return (CFBundleRef)[[NSBundle bundleWithPath:[of(url) path]] retain];
}

CFStringRef CFBundleGetIdentifier(CFBundleRef bundle) { return (CFStringRef)[of(bundle) bundleIdentifier]; }

CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef bundle) { return (CFDictionaryRef)[of(bundle) infoDictionary]; }

CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key) {
  return (CFTypeRef)[of(bundle) objectForInfoDictionaryKey:(NSString *)key];
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle) {
  return kept([NSURL fileURLWithPath:[of(bundle) bundlePath] isDirectory:YES]);
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef folder) {
  NSString *path = [of(bundle) pathForResource:(NSString *)name ofType:(NSString *)type inDirectory:(NSString *)folder];
  return path ? kept([NSURL fileURLWithPath:path]) : nullptr;
}

CFStringRef CFBundleCopyLocalizedString(CFBundleRef bundle, CFStringRef key, CFStringRef value, CFStringRef table) {
  return kept([of(bundle) localizedStringForKey:(NSString *)key value:(NSString *)value table:(NSString *)table]);
}

CFPropertyListRef CFPropertyListCreateWithData(CFAllocatorRef, CFDataRef data, CFOptionFlags options,
                                               CFPropertyListFormat *format, CFErrorRef *error) {
  NSError *problem = nil;
  NSPropertyListFormat found = NSPropertyListXMLFormat_v1_0;
  id read = [NSPropertyListSerialization propertyListWithData:(NSData *)data
                                                      options:options
                                                       format:&found
                                                        error:&problem];
  if (format) *format = static_cast<CFPropertyListFormat>(found);
  if (!read) give(problem, error);
  return (CFPropertyListRef)[read retain];
}

CFDataRef CFPropertyListCreateData(CFAllocatorRef, CFPropertyListRef list, CFPropertyListFormat format, CFOptionFlags,
                                   CFErrorRef *error) {
  NSError *problem = nil;
  NSData *data = [NSPropertyListSerialization dataWithPropertyList:(id)list
                                                            format:static_cast<NSPropertyListFormat>(format)
                                                           options:0
                                                             error:&problem];
  if (!data) give(problem, error);
  return (CFDataRef)[data retain];
}

Boolean CFPropertyListIsValid(CFPropertyListRef list, CFPropertyListFormat format) {
  return [NSPropertyListSerialization propertyList:(id)list isValidForFormat:static_cast<NSPropertyListFormat>(format)];
}
