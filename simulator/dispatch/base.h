// What the other headers of dispatch begin with.
#pragma once

#include <Block.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <sys/qos.h>
#if defined(__OBJC__)
#import <Foundation/NSObject.h>
#endif

#if defined(__cplusplus)
#define DISPATCH_EXPORT extern "C"
#else
#define DISPATCH_EXPORT extern
#endif
#define DISPATCH_NOESCAPE __attribute__((noescape))
#if __has_feature(objc_arc)
#define DISPATCH_RETURNS_RETAINED __attribute__((ns_returns_retained))
#else
#define DISPATCH_RETURNS_RETAINED
#endif

/// For Objective-C what dispatch makes are objects, so that properties and collections can own them: they are retained
/// and released as all objects are. C sees a pointer.
#if defined(__OBJC__)
#define OS_OBJECT_USE_OBJC 1
#define SIM_DISPATCH_TYPE(name, base) \
  @protocol OS_dispatch_              \
  ##name<OS_dispatch_##base> @end     \
  typedef NSObject<OS_dispatch_##name> *dispatch_##name##_t
#else
#define OS_OBJECT_USE_OBJC 0
#define SIM_DISPATCH_TYPE(name, base) typedef struct dispatch_##name##_s *dispatch_##name##_t
#endif

#if defined(__BLOCKS__)
typedef void (^dispatch_block_t)(void);
#else
typedef const void *dispatch_block_t;  // Can be handed on.
#endif
typedef void (*dispatch_function_t)(void *);
