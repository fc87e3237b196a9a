// Counting semaphores.
#pragma once

#include <dispatch/object.h>
#include <dispatch/time.h>

SIM_DISPATCH_TYPE(semaphore, object);

/// Owned by the caller. NULL for a negative value. Any thread.
DISPATCH_EXPORT DISPATCH_RETURNS_RETAINED dispatch_semaphore_t dispatch_semaphore_create(intptr_t value);
/// Takes one, waiting until there is one: 0. Another number when `timeout` came first, and none was taken.
DISPATCH_EXPORT intptr_t dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout);
/// Gives one. Answers whether a thread was woken.
DISPATCH_EXPORT intptr_t dispatch_semaphore_signal(dispatch_semaphore_t semaphore);
