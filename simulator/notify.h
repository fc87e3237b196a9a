// Notifications by name from C, the same as those of CoreFoundation's Darwin centre.
#pragma once

#include <stdint.h>

#define NOTIFY_STATUS_OK 0
#define NOTIFY_STATUS_INVALID_NAME 1

#if defined(__cplusplus)
extern "C" {
#endif

/// Posts `name`, which is UTF-8: observers of the Darwin centre are called from the main run loop, and the device notes
/// it. NOTIFY_STATUS_OK, or NOTIFY_STATUS_INVALID_NAME for NULL and for what is no UTF-8. Any thread.
uint32_t notify_post(const char* name);

#if defined(__cplusplus)
}
#endif
