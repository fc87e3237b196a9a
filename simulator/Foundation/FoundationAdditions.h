// Documented Foundation interface that GNUstep base 1.28 does not declare. Behaviour that differs under a name that
// GNUstep does declare (property lists, JSON, base64, failed writes) is mended in the sources of this folder.
#pragma once

#import <Foundation/Foundation.h>
#import <Foundation/NSByteCountFormatter.h>

#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/NSUserDefaultsSuites.h>
#import <dispatch/dispatch.h>

NS_ASSUME_NONNULL_BEGIN

/// Hands an object's ownership to CoreFoundation: under ARC it is retained once, and CFRelease ends that.
NS_INLINE CFTypeRef CFBridgingRetain(id object) {
#if __has_feature(objc_arc)
  return (__bridge_retained CFTypeRef)object;
#else
  return (CFTypeRef)[object retain];
#endif
}
/// Takes over what CFRetain, a function with Create or Copy in its name or CFBridgingRetain gave. Without ARC the
/// object is autoreleased.
NS_INLINE id CFBridgingRelease(CFTypeRef object) {
#if __has_feature(objc_arc)
  return (__bridge_transfer id)object;
#else
  return [(id)object autorelease];
#endif
}

enum {
  /// Top-level values other than arrays and dictionaries are accepted.
  NSJSONReadingFragmentsAllowed = NSJSONReadingAllowFragments,
  NSJSONWritingSortedKeys = (1UL << 1),
  NSJSONWritingFragmentsAllowed = (1UL << 2),
  NSJSONWritingWithoutEscapingSlashes = (1UL << 3)
};

@interface NSURL (SecurityScopedAccess)
/// Asks for access to a file outside the application's own folders. YES when access is open; balance each YES with one
/// `stopAccessingSecurityScopedResource`. NO for a file without a security scope.
- (BOOL)startAccessingSecurityScopedResource;
- (void)stopAccessingSecurityScopedResource;
@end

@interface NSArray <ObjectType>(FileErrors)
+ (nullable instancetype)arrayWithContentsOfURL:(NSURL *)url error:(NSError **)error;
- (nullable instancetype)initWithContentsOfURL:(NSURL *)url error:(NSError **)error;
- (BOOL)writeToURL:(NSURL *)url error:(NSError **)error;
@end

@interface NSDictionary <KeyType, ObjectType>(FileErrors)
+ (nullable instancetype)dictionaryWithContentsOfURL:(NSURL *)url error:(NSError **)error;
- (nullable instancetype)initWithContentsOfURL:(NSURL *)url error:(NSError **)error;
- (BOOL)writeToURL:(NSURL *)url error:(NSError **)error;
@end

typedef NS_OPTIONS(NSUInteger, NSDataReadingOptions) {
  NSDataReadingMappedIfSafe = 1UL << 0,
  NSDataReadingUncached = 1UL << 1,
  NSDataReadingMappedAlways = 1UL << 3
};

@interface NSData (ReadingOptions)
/// The whole file; the options are hints. nil with an error in NSCocoaErrorDomain when it cannot be read.
+ (nullable instancetype)dataWithContentsOfFile:(NSString *)path
                                        options:(NSDataReadingOptions)options
                                          error:(NSError **)error;
+ (nullable instancetype)dataWithContentsOfURL:(NSURL *)url
                                       options:(NSDataReadingOptions)options
                                         error:(NSError **)error;
- (nullable instancetype)initWithContentsOfFile:(NSString *)path
                                        options:(NSDataReadingOptions)options
                                          error:(NSError **)error;
- (nullable instancetype)initWithContentsOfURL:(NSURL *)url
                                       options:(NSDataReadingOptions)options
                                         error:(NSError **)error;
@end

@interface NSString (Searching)
/// Case- and diacritic-insensitive, as a search field wants it.
- (BOOL)localizedStandardContainsString:(NSString *)string;
- (BOOL)localizedCaseInsensitiveContainsString:(NSString *)string;
/// The order of the Finder: case-insensitive, diacritics count less than letters, numbers by value.
- (NSComparisonResult)localizedStandardCompare:(NSString *)string;
/// Only NSCaseInsensitiveSearch and NSDiacriticInsensitiveSearch are supported; the locale is ignored.
- (NSString *)stringByFoldingWithOptions:(NSStringCompareOptions)options locale:(nullable NSLocale *)locale;
@end

@interface NSString (Lines)
- (void)enumerateLinesUsingBlock:(void (^)(NSString *line, BOOL *stop))block;
@end

typedef NS_OPTIONS(NSUInteger, NSAttributedStringEnumerationOptions) {
  NSAttributedStringEnumerationReverse = 1UL << 1,
  NSAttributedStringEnumerationLongestEffectiveRangeNotRequired = 1UL << 20
};

@interface NSAttributedString (Enumeration)
/// Each range with the same attributes. A range beyond the end raises NSRangeException. The block may change the text's
/// attributes in the range that it is told.
- (void)enumerateAttributesInRange:(NSRange)enumerationRange
                           options:(NSAttributedStringEnumerationOptions)opts
                        usingBlock:
                            (void (^)(NSDictionary<NSAttributedStringKey, id> *attrs, NSRange range, BOOL *stop))block;
/// Each range with the same value of one attribute, nil where there is none.
- (void)enumerateAttribute:(NSAttributedStringKey)attrName
                   inRange:(NSRange)enumerationRange
                   options:(NSAttributedStringEnumerationOptions)opts
                usingBlock:(void (^)(id _Nullable value, NSRange range, BOOL *stop))block;
@end

typedef struct {
  NSInteger majorVersion;
  NSInteger minorVersion;
  NSInteger patchVersion;
} NSOperatingSystemVersion;

@interface NSProcessInfo (SystemVersion)
/// The version that UIDevice tells.
@property(readonly) NSOperatingSystemVersion operatingSystemVersion;
- (BOOL)isOperatingSystemAtLeastVersion:(NSOperatingSystemVersion)version;
@end

@interface NSThread (Blocks)
- (instancetype)initWithBlock:(void (^)(void))block;
+ (void)detachNewThreadWithBlock:(void (^)(void))block;
@end

@interface NSFileManager (Directories)
/// Below the device folder (see SIMDevice.h); user domain only, other domains give an empty array.
- (NSArray<NSURL *> *)URLsForDirectory:(NSSearchPathDirectory)directory inDomains:(NSSearchPathDomainMask)domains;
@end

NS_ASSUME_NONNULL_END
