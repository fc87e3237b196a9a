// The part of libdispatch that the simulator carries: queues, groups, semaphores, timers and times. What is not
// declared is not carried, so that the compiler says so.
#pragma once

#include <dispatch/base.h>
#include <dispatch/block.h>
#include <dispatch/group.h>
#include <dispatch/object.h>
#include <dispatch/once.h>
#include <dispatch/queue.h>
#include <dispatch/semaphore.h>
#include <dispatch/source.h>
#include <dispatch/time.h>
#include <unistd.h>
