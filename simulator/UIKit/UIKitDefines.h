// Linkage of UIKit's functions and constants.
#pragma once

#import <Foundation/Foundation.h>

#define UIKIT_EXTERN extern "C"
#define UIKIT_STATIC_INLINE static inline
