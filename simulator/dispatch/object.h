// What all objects of dispatch have in common.
#pragma once

#include <dispatch/base.h>

#if defined(__OBJC__)
@protocol OS_dispatch_object <NSObject>
@end
typedef NSObject<OS_dispatch_object> *dispatch_object_t;
#else
typedef void *dispatch_object_t;
#endif

#if defined(__OBJC__)
#if !__has_feature(objc_arc)
#define dispatch_retain(object) ((void)[(object) retain])
#define dispatch_release(object) ([(object) release])
#endif
#else
DISPATCH_EXPORT void dispatch_retain(dispatch_object_t object);
DISPATCH_EXPORT void dispatch_release(dispatch_object_t object);
#endif

/// An address that the object keeps for its maker. NULL to begin with. One thread at a time.
DISPATCH_EXPORT void dispatch_set_context(dispatch_object_t object, void *context);
DISPATCH_EXPORT void *dispatch_get_context(dispatch_object_t object);

/// Is called with the context, if there is one, when the object goes.
DISPATCH_EXPORT void dispatch_set_finalizer_f(dispatch_object_t object, dispatch_function_t finalizer);

/// Holds back what a queue or a source has not begun, until as many calls of `dispatch_resume`. Other objects and the
/// main and global queues are left as they are.
DISPATCH_EXPORT void dispatch_suspend(dispatch_object_t object);
/// Ends the process when the object is not suspended, as on a device.
DISPATCH_EXPORT void dispatch_resume(dispatch_object_t object);
/// Starts a source that has not been started; does nothing otherwise.
DISPATCH_EXPORT void dispatch_activate(dispatch_object_t object);
