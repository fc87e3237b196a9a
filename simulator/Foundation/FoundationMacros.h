// Words of a device's Foundation headers that GNUstep's lack. Those that only tell a compiler of another language, or
// of versions, say nothing here.
#pragma once

#include <Availability.h>
#include <TargetConditionals.h>

#define NS_INLINE static __inline__ __attribute__((always_inline))
#define FOUNDATION_STATIC_INLINE static __inline__
#define FOUNDATION_EXTERN_INLINE extern __inline__

#define NS_REQUIRES_SUPER __attribute__((objc_requires_super))
#define NS_NOESCAPE __attribute__((noescape))
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))
#define NS_RETURNS_NOT_RETAINED __attribute__((ns_returns_not_retained))
#define NS_VALID_UNTIL_END_OF_SCOPE __attribute__((objc_precise_lifetime))
#define NS_ROOT_CLASS __attribute__((objc_root_class))
#define NS_CLOSED_ENUM(type, name) NS_ENUM(type, name)
#define NS_STRING_ENUM
#define NS_EXTENSIBLE_STRING_ENUM
#define NS_TYPED_ENUM
#define NS_TYPED_EXTENSIBLE_ENUM
#define NS_SWIFT_NAME(...)
#define NS_SWIFT_UNAVAILABLE(...)
#define NS_SWIFT_UI_ACTOR
#define NS_REFINED_FOR_SWIFT
#define NS_SWIFT_NOTHROW
#define NS_EXTENSION_UNAVAILABLE(...)
#define NS_EXTENSION_UNAVAILABLE_IOS(...)

#define NS_AVAILABLE_IOS(...)
#define NS_DEPRECATED_IOS(...)
#define NS_CLASS_AVAILABLE_IOS(...)
#define NS_CLASS_DEPRECATED_IOS(...)
#define NS_ENUM_AVAILABLE_IOS(...)
#define NS_ENUM_DEPRECATED_IOS(...)
// GNUstep's says nothing, so that what is forbidden would compile.
#undef NS_UNAVAILABLE
#define NS_UNAVAILABLE __attribute__((unavailable))
