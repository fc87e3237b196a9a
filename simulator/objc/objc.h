// The basic types of Objective-C as a device's headers have them, over those of GCC's runtime.
#pragma once

#include_next <objc/objc.h>

// Values that go into @YES and @NO, and a nil that is no object before it is used as one: it is also a selector, a
// class and the place of an error.
#if defined(__OBJC_GNUSTEP_RUNTIME_ABI__)  // Makers' code; ours is written for GCC's runtime.
#undef YES
#undef NO
#define YES __objc_yes
#define NO __objc_no
#undef nil
#undef Nil
#if defined(__cplusplus)
#define nil nullptr
#define Nil nullptr
#else
#define nil ((void*)0)
#define Nil ((void*)0)
#endif
#endif

#if !defined(OBJC_EXPORT)
#if defined(__cplusplus)
#define OBJC_EXPORT extern "C"
#else
#define OBJC_EXPORT extern
#endif
#endif
