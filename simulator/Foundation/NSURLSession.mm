#import <Foundation/NSURLSession.h>

#import <Foundation/NSURLSessionState.h>

#include <utility>

NSString *const NSURLErrorFailingURLErrorKey = @"NSErrorFailingURLKey";
NSString *const NSURLErrorFailingURLStringErrorKey = @"NSErrorFailingURLStringKey";

using objcxx::adopt;
using objcxx::copyOf;
using objcxx::share;

@implementation NSURLSession

+ (NSURLSession *)sharedSession {
  static NSURLSession *shared = nil;
  static dispatch_once_t once;
  dispatch_once(&once, ^{
    shared = [[self sessionWithConfiguration:[NSURLSessionConfiguration defaultSessionConfiguration]] retain];
  });
  return shared;
}

+ (NSURLSession *)sessionWithConfiguration:(NSURLSessionConfiguration *)configuration {
  return [self sessionWithConfiguration:configuration delegate:nil delegateQueue:nil];
}

+ (NSURLSession *)sessionWithConfiguration:(NSURLSessionConfiguration *)configuration
                                  delegate:(id<NSURLSessionDelegate>)delegate
                             delegateQueue:(NSOperationQueue *)queue {
  NSURLSession *session = [[[self alloc] init] autorelease];
  auto &state = *session->_sessionState;
  state.configuration = adopt((NSURLSessionConfiguration *)[configuration copy]);
  state.delegate = share((NSObject *)delegate);
  if (queue) {
    state.queue = share(queue);
  } else {
    state.queue = adopt([[NSOperationQueue alloc] init]);
    [state.queue.get() setMaxConcurrentOperationCount:1];
  }
  return session;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _sessionState = std::make_unique<sim::URLSessionState>();
  return self;
}

- (sim::URLSessionState &)sim_state {
  return *_sessionState;
}

- (NSOperationQueue *)delegateQueue {
  return _sessionState->queue.get();
}

- (id<NSURLSessionDelegate>)delegate {
  const std::lock_guard lock(_sessionState->mutex);
  return (id<NSURLSessionDelegate>)[[_sessionState->delegate.get() retain] autorelease];
}

- (NSURLSessionConfiguration *)configuration {
  return [[_sessionState->configuration.get() copy] autorelease];
}

- (NSString *)sessionDescription {
  const std::lock_guard lock(_sessionState->mutex);
  return [[_sessionState->description.get() retain] autorelease];
}

- (void)setSessionDescription:(NSString *)description {
  const std::lock_guard lock(_sessionState->mutex);
  _sessionState->description = adopt((NSString *)[description copy]);
}

- (void)sim_tell:(void (^)(void))block {
  [[self delegateQueue] addOperationWithBlock:block];
}

- (NSURLRequest *)sim_requestFor:(NSURL *)url {
  NSURLSessionConfiguration *configuration = _sessionState->configuration.get();
  return [NSURLRequest requestWithURL:url
                          cachePolicy:[configuration requestCachePolicy]
                      timeoutInterval:[configuration timeoutIntervalForRequest]];
}

/// The request with the session's headers.
- (NSURLRequest *)sim_completed:(NSURLRequest *)request {
  NSMutableURLRequest *completed = [[request mutableCopy] autorelease];
  NSDictionary *headers = [_sessionState->configuration.get() HTTPAdditionalHeaders];
  for (NSString *name in headers) {
    if (![completed valueForHTTPHeaderField:name]) {
      [completed setValue:[headers objectForKey:name] forHTTPHeaderField:name];
    }
  }
  return completed;
}

- (id)sim_taskOfClass:(Class)kind request:(NSURLRequest *)request {
  auto &state = *_sessionState;
  NSURLSessionTask *task = [[[kind alloc] init] autorelease];
  NSURLRequest *completed = [self sim_completed:request ?: [NSURLRequest requestWithURL:nil]];
  const std::lock_guard lock(state.mutex);
  if (state.isInvalid) {
    [NSException raise:NSGenericException format:@"Task created in a session that has been invalidated"];
  }
  [task sim_state].session = share(self);
  [task sim_state].request = share(completed);
  [task sim_state].identifier = ++state.last;
  [state.tasks.get() addObject:task];
  return task;
}

- (void)sim_taskEnded:(NSURLSessionTask *)task {
  {
    const std::lock_guard lock(_sessionState->mutex);
    [_sessionState->tasks.get() removeObject:task];
  }
  [self sim_tellOfEnd];
}

- (NSURLSessionDataTask *)dataTaskWithURL:(NSURL *)url {
  return [self dataTaskWithRequest:[self sim_requestFor:url]];
}

- (NSURLSessionDataTask *)dataTaskWithRequest:(NSURLRequest *)request {
  return [self sim_taskOfClass:[NSURLSessionDataTask class] request:request];
}

- (NSURLSessionUploadTask *)uploadTaskWithRequest:(NSURLRequest *)request fromData:(NSData *)data {
  (void)data;
  return [self sim_taskOfClass:[NSURLSessionUploadTask class] request:request];
}

- (NSURLSessionDownloadTask *)downloadTaskWithURL:(NSURL *)url {
  return [self downloadTaskWithRequest:[self sim_requestFor:url]];
}

- (NSURLSessionDownloadTask *)downloadTaskWithRequest:(NSURLRequest *)request {
  return [self sim_taskOfClass:[NSURLSessionDownloadTask class] request:request];
}

- (void)finishTasksAndInvalidate {
  [self sim_invalidate];
}

- (void)invalidateAndCancel {
  NSArray *tasks = nil;
  {
    const std::lock_guard lock(_sessionState->mutex);
    tasks = [_sessionState->tasks.get() allObjects];
  }
  [self sim_invalidate];
  for (NSURLSessionTask *task in tasks) [task cancel];
}

- (void)sim_invalidate {
  {
    const std::lock_guard lock(_sessionState->mutex);
    if (self == [NSURLSession sharedSession] || std::exchange(_sessionState->isInvalid, true)) return;
  }
  [self sim_tellOfEnd];
}

/// When no task is left.
- (void)sim_tellOfEnd {
  objcxx::Retained<NSObject> delegate;
  {
    const std::lock_guard lock(_sessionState->mutex);
    if (!_sessionState->isInvalid || [_sessionState->tasks.get() count] > 0) return;
    delegate = std::exchange(_sessionState->delegate, {});
  }
  id<NSURLSessionDelegate> told = (id<NSURLSessionDelegate>)delegate.get();
  if (![told respondsToSelector:@selector(URLSession:didBecomeInvalidWithError:)]) return;
  [self sim_tell:^{
    [told URLSession:self didBecomeInvalidWithError:nil];
  }];
}

@end

@implementation NSURLSession (NSURLSessionAsynchronousConvenience)

- (NSURLSessionDataTask *)dataTaskWithURL:(NSURL *)url
                        completionHandler:(void (^)(NSData *, NSURLResponse *, NSError *))handler {
  return [self dataTaskWithRequest:[self sim_requestFor:url] completionHandler:handler];
}

- (NSURLSessionDataTask *)dataTaskWithRequest:(NSURLRequest *)request
                            completionHandler:(void (^)(NSData *, NSURLResponse *, NSError *))handler {
  NSURLSessionDataTask *task = [self dataTaskWithRequest:request];
  [task sim_state].dataHandler = copyOf(handler);
  return task;
}

- (NSURLSessionUploadTask *)uploadTaskWithRequest:(NSURLRequest *)request
                                         fromData:(NSData *)data
                                completionHandler:(void (^)(NSData *, NSURLResponse *, NSError *))handler {
  NSURLSessionUploadTask *task = [self uploadTaskWithRequest:request fromData:data];
  [task sim_state].dataHandler = copyOf(handler);
  return task;
}

- (NSURLSessionDownloadTask *)downloadTaskWithURL:(NSURL *)url
                                completionHandler:(void (^)(NSURL *, NSURLResponse *, NSError *))handler {
  return [self downloadTaskWithRequest:[self sim_requestFor:url] completionHandler:handler];
}

- (NSURLSessionDownloadTask *)downloadTaskWithRequest:(NSURLRequest *)request
                                    completionHandler:(void (^)(NSURL *, NSURLResponse *, NSError *))handler {
  NSURLSessionDownloadTask *task = [self downloadTaskWithRequest:request];
  [task sim_state].fileHandler = copyOf(handler);
  return task;
}

@end
