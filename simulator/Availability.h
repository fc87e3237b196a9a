// The words with which headers say since when something exists. What is carried here is there in any version.
#pragma once

#define API_AVAILABLE(...)
#define API_AVAILABLE_BEGIN(...)
#define API_AVAILABLE_END
#define API_DEPRECATED(...)
#define API_DEPRECATED_WITH_REPLACEMENT(...)
#define API_DEPRECATED_BEGIN(...)
#define API_DEPRECATED_END
#define API_UNAVAILABLE(...)
#define API_UNAVAILABLE_BEGIN(...)
#define API_UNAVAILABLE_END
#define API_TO_BE_DEPRECATED 100000

#define __OSX_AVAILABLE(...)
#define __OSX_AVAILABLE_STARTING(...)
#define __IOS_AVAILABLE(...)
#define __IOS_PROHIBITED
#define __TVOS_PROHIBITED
#define __WATCHOS_PROHIBITED

#define __IPHONE_OS_VERSION_MIN_REQUIRED 140000
#define __IPHONE_OS_VERSION_MAX_ALLOWED 160500
#define __IPHONE_13_0 130000
#define __IPHONE_14_0 140000
#define __IPHONE_15_0 150000
#define __IPHONE_16_0 160000
