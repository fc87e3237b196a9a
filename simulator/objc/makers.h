// Read before each source of makers' code: what a device's compiler answers by the version of its system.
#pragma once

#if !defined(__cplusplus)
#include <stdbool.h>
#endif

#if defined(__cplusplus)
extern "C" {
#endif
/// Whether the system is at least as new as `versions` asks, which are those of `@available`: "iOS 15.0, *". A system
/// that is not named is. Any thread.
bool sim_isAvailable(const char* versions);
#if defined(__cplusplus)
}
#endif

// This computer's compiler takes a system that it does not know for new enough. What stands behind the @ is a boxed
// number, so that the whole can be negated.
#define __builtin_available(...) sim_isAvailable(#__VA_ARGS__)
#if defined(__OBJC__)
#define available(...) (sim_isAvailable(#__VA_ARGS__)).boolValue
#endif
