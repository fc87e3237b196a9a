// Linkage of UIKit's functions and constants.
#pragma once

#import <Foundation/Foundation.h>

#if defined(__cplusplus)
#define UIKIT_EXTERN extern "C"
#else
#define UIKIT_EXTERN extern
#endif
#define UIKIT_STATIC_INLINE static inline
