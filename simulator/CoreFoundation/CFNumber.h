// CFBoolean and CFNumber are NSNumber. Truth values are numbers for Foundation and a type of their own here.
#pragma once

#import <CoreFoundation/CFBase.h>

typedef const struct __CFBoolean* CFBooleanRef;
typedef const struct __CFNumber* CFNumberRef;

CF_EXPORT const CFBooleanRef kCFBooleanTrue;
CF_EXPORT const CFBooleanRef kCFBooleanFalse;

typedef enum : CFIndex {
  kCFNumberSInt8Type = 1,
  kCFNumberSInt16Type = 2,
  kCFNumberSInt32Type = 3,
  kCFNumberSInt64Type = 4,
  kCFNumberFloat32Type = 5,
  kCFNumberFloat64Type = 6,
  kCFNumberCharType = 7,
  kCFNumberShortType = 8,
  kCFNumberIntType = 9,
  kCFNumberLongType = 10,
  kCFNumberLongLongType = 11,
  kCFNumberFloatType = 12,
  kCFNumberDoubleType = 13,
  kCFNumberCFIndexType = 14,
  kCFNumberNSIntegerType = 15,
  kCFNumberCGFloatType = 16,
  kCFNumberMaxType = 16
} CFNumberType;

CF_EXTERN_C_BEGIN

/// The type of the numbers that stand for YES and NO.
CFTypeID CFBooleanGetTypeID(void);
Boolean CFBooleanGetValue(CFBooleanRef boolean);

/// The type of all other numbers.
CFTypeID CFNumberGetTypeID(void);
/// The number at `value`, of the C type that `type` names; owned by the caller. NULL for another type.
CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType type, const void* value);
/// Stores the number at `value` as the C type that `type` names. Whether that holds it without loss.
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
Boolean CFNumberIsFloatType(CFNumberRef number);
CFComparisonResult CFNumberCompare(CFNumberRef number, CFNumberRef other, void* context);

CF_EXTERN_C_END
