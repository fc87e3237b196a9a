// Moments.
#pragma once

#include <dispatch/base.h>
#include <time.h>

#ifndef NSEC_PER_SEC
#define NSEC_PER_SEC 1000000000ull
#define NSEC_PER_MSEC 1000000ull
#define NSEC_PER_USEC 1000ull
#define USEC_PER_SEC 1000000ull
#endif

/// Nanoseconds on a monotonic clock, or, with the highest bit set, the negative of nanoseconds since 1970.
typedef uint64_t dispatch_time_t;

enum { DISPATCH_WALLTIME_NOW = ~1ull };
#define DISPATCH_TIME_NOW (0ull)
#define DISPATCH_TIME_FOREVER (~0ull)

/// `when` plus `delta` nanoseconds, on the clock of `when`. `DISPATCH_TIME_NOW` and `DISPATCH_WALLTIME_NOW` stand for
/// the present; a sum before the clock's start is its start, a sum past its end is `DISPATCH_TIME_FOREVER`.
DISPATCH_EXPORT dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta);

/// A moment of the calendar, NULL being the present, plus `delta` nanoseconds.
DISPATCH_EXPORT dispatch_time_t dispatch_walltime(const struct timespec* when, int64_t delta);
