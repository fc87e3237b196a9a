// The states of sessions and of their tasks, and what the two ask of each other.
#pragma once

#import <Foundation/NSURLSession.h>
#import <Foundation/URLLoading.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include <mutex>

namespace sim {

struct URLTaskState {
  std::recursive_mutex mutex;  // of what follows
  objcxx::Retained<NSURLSession> session;
  objcxx::Retained<NSURLRequest> request;
  objcxx::Retained<NSURLResponse> response;
  objcxx::Retained<NSError> error;
  objcxx::Retained<NSString> description;
  objcxx::BlockHandle<void, NSData *, NSURLResponse *, NSError *> dataHandler;
  objcxx::BlockHandle<void, NSURL *, NSURLResponse *, NSError *> fileHandler;
  NSUInteger identifier = 0;
  NSURLSessionTaskState state = NSURLSessionTaskStateSuspended;
  bool hasBegun = false;  // or has been cancelled
  int64_t received = 0;
};

struct URLSessionState {
  std::recursive_mutex mutex;  // of what follows
  objcxx::Retained<NSURLSessionConfiguration> configuration;
  objcxx::Retained<NSObject> delegate;
  objcxx::Retained<NSOperationQueue> queue;
  objcxx::Retained<NSString> description;
  objcxx::Retained<NSMutableSet> tasks = objcxx::adopt([[NSMutableSet alloc] init]);  // that have not ended
  NSUInteger last = 0;
  bool isInvalid = false;
};

}  // namespace sim

@interface NSURLSession (Sim)
- (sim::URLSessionState &)sim_state;
/// Runs `block` on the delegate's queue.
- (void)sim_tell:(void (^)(void))block;
- (void)sim_taskEnded:(NSURLSessionTask *)task;
@end

@interface NSURLSessionTask (Sim)
- (sim::URLTaskState &)sim_state;
- (void)sim_endWith:(sim::LoadedAddress)outcome;
@end
