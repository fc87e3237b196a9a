// Linkage of the C functions of CoreGraphics.
#pragma once

#import <Foundation/Foundation.h>

#if defined(__cplusplus)
#define CG_EXTERN extern "C"
#else
#define CG_EXTERN extern
#endif

#define CG_INLINE static inline
