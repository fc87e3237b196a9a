// The two notification centres: the Darwin one has names only, no objects and no user information; the local one is
// NSNotificationCenter's default one, and sends at once, on the posting thread. Any thread.
#pragma once

#import <CoreFoundation/CFBase.h>

typedef struct __CFNotificationCenter* CFNotificationCenterRef;
typedef CFStringRef CFNotificationName;
typedef void (*CFNotificationCallback)(CFNotificationCenterRef center, void* observer, CFNotificationName name,
                                       const void* object, CFDictionaryRef userInfo);

typedef enum : CFIndex {
  CFNotificationSuspensionBehaviorDrop = 1,
  CFNotificationSuspensionBehaviorCoalesce = 2,
  CFNotificationSuspensionBehaviorHold = 3,
  CFNotificationSuspensionBehaviorDeliverImmediately = 4
} CFNotificationSuspensionBehavior;

CF_EXTERN_C_BEGIN

/// Not owned by the caller.
CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void);
CFNotificationCenterRef CFNotificationCenterGetLocalCenter(void);

/// Posts `name`. Observers of the Darwin centre are called from the main run loop, not inside this call, and `object`
/// and `userInfo` are dropped. A NULL name or centre is logged and ignored.
void CFNotificationCenterPostNotification(CFNotificationCenterRef center, CFNotificationName name, const void* object,
                                          CFDictionaryRef userInfo, Boolean deliverImmediately);

/// Calls `callback` for every later post of `name`, the Darwin centre's on the main thread. `observer` is a mere
/// address: not owned, may be NULL. In the local centre a NULL name or object means all; the Darwin centre ignores the
/// object. The suspension behaviour is ignored. What is NULL otherwise is logged and ignored.
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior suspensionBehavior);

/// Ends the observations of `name` by `observer`; a NULL name means every name. Posts on their way to it are dropped.
void CFNotificationCenterRemoveObserver(CFNotificationCenterRef center, const void* observer, CFNotificationName name,
                                        const void* object);
void CFNotificationCenterRemoveEveryObserver(CFNotificationCenterRef center, const void* observer);

CF_EXTERN_C_END
