#import "dispatch/DispatchObjects.h"

#import <Foundation/Guarded.h>

#include <objcxx/BlockHandle.h>

#include <string>
#include <utility>

@implementation SIMDispatchObject

- (void)dealloc {
  if (context && finalizer) finalizer(context);
  [super dealloc];
}

- (void)sim_suspend {
}

- (void)sim_resume {
}

- (void)sim_activate {
}

@end

@implementation SIMQueue

- (instancetype)initWithQueue:(std::shared_ptr<sim::dispatch::Queue>)given {
  if (!(self = [super init])) return nil;
  queue = std::move(given);
  return self;
}

- (void)sim_suspend {
  queue->suspend();
}

- (void)sim_resume {
  queue->resume();
}

@end

namespace sim::dispatch {

void beginThread() { GSRegisterCurrentThread(); }

void endThread() { GSUnregisterCurrentThread(); }

void runWork(Work &&given, const char *doing) {
  @autoreleasepool {
    Work work = std::move(given);
    sim::guarded([NSString stringWithUTF8String:doing], [&] { work(); });
  }
}

const std::shared_ptr<Queue> &queueOf(dispatch_queue_t object, const char *function) {
  if (!object) misuse(std::string(function) + " was called without a queue.");
  return static_cast<SIMQueue *>(object)->queue;
}

Work workOf(dispatch_block_t block, const char *function) {
  if (!block) misuse(std::string(function) + " was called without a block.");
  return [handle = objcxx::copyOf(block)] { handle(); };
}

}  // namespace sim::dispatch

namespace {

SIMDispatchObject *checked(dispatch_object_t object, const char *function) {
  if (!object) sim::dispatch::misuse(std::string(function) + " was called without an object.");
  return static_cast<SIMDispatchObject *>(object);
}

}  // namespace

// For C; Objective-C sends messages.
#undef dispatch_retain
#undef dispatch_release
extern "C" void dispatch_retain(dispatch_object_t object) { [checked(object, "dispatch_retain") retain]; }

extern "C" void dispatch_release(dispatch_object_t object) { [checked(object, "dispatch_release") release]; }

void dispatch_set_context(dispatch_object_t object, void *context) {
  checked(object, "dispatch_set_context")->context = context;
}

void *dispatch_get_context(dispatch_object_t object) { return checked(object, "dispatch_get_context")->context; }

void dispatch_set_finalizer_f(dispatch_object_t object, dispatch_function_t finalizer) {
  checked(object, "dispatch_set_finalizer_f")->finalizer = finalizer;
}

void dispatch_suspend(dispatch_object_t object) { [checked(object, "dispatch_suspend") sim_suspend]; }

void dispatch_resume(dispatch_object_t object) { [checked(object, "dispatch_resume") sim_resume]; }

void dispatch_activate(dispatch_object_t object) { [checked(object, "dispatch_activate") sim_activate]; }
