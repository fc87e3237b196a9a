// The Darwin notification centre: names only, no objects, no user information.
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

/// The one centre of this process. Not owned by the caller. Any thread; all other functions on the main thread.
CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter(void);

/// Posts `name`. Observers are called from the main run loop, not inside this call. `object` and `userInfo` are
/// dropped, as the Darwin centre does. A NULL name or centre is logged and ignored.
void CFNotificationCenterPostNotification(CFNotificationCenterRef center, CFNotificationName name, const void* object,
                                          CFDictionaryRef userInfo, Boolean deliverImmediately);

/// Calls `callback` on the main thread for every later post of `name`. `observer` is a mere address: not owned, may be
/// NULL. `object` and the suspension behaviour are ignored. A NULL name, callback or centre is logged and ignored.
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior suspensionBehavior);

/// Ends the observations of `name` by `observer`; a NULL name means every name. Posts on their way to it are dropped.
void CFNotificationCenterRemoveObserver(CFNotificationCenterRef center, const void* observer, CFNotificationName name,
                                        const void* object);
void CFNotificationCenterRemoveEveryObserver(CFNotificationCenterRef center, const void* observer);

CF_EXTERN_C_END
