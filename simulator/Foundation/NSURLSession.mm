#import <Foundation/NSURLSession.h>

#import <Foundation/OfflineProtocol.h>

#include <objcxx/BlockHandle.h>
#include <objcxx/Retained.h>

#include <mutex>
#include <utility>

NSString *const NSURLErrorFailingURLErrorKey = @"NSErrorFailingURLKey";
NSString *const NSURLErrorFailingURLStringErrorKey = @"NSErrorFailingURLStringKey";

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

using objcxx::adopt;
using objcxx::copyOf;
using objcxx::share;

namespace {

constexpr NSTimeInterval kUsualTimeout = 60;

/// What a task came to.
struct Outcome {
  NSData *data = nil;
  NSURLResponse *response = nil;
  NSError *error = nil;
};

Outcome load(NSURLRequest *request) {
  NSURL *url = [request URL];
  if (![url isFileURL]) return {.error = sim::offlineError(url)};
  NSError *problem = nil;
  NSData *data = [NSData dataWithContentsOfFile:[url path] options:0 error:&problem];
  if (!data) return {.error = sim::urlError(NSURLErrorFileDoesNotExist, [problem localizedDescription] ?: @"", url)};
  NSURLResponse *response = [[[NSURLResponse alloc] initWithURL:url
                                                       MIMEType:nil
                                          expectedContentLength:static_cast<NSInteger>([data length])
                                               textEncodingName:nil] autorelease];
  return {.data = data, .response = response};
}

/// A file with what was downloaded; nil when it cannot be written.
NSURL *temporaryFileWith(NSData *data) {
  NSString *name = [NSString stringWithFormat:@"CFNetworkDownload_%@.tmp", [[NSUUID UUID] UUIDString]];
  NSString *path = [NSTemporaryDirectory() stringByAppendingPathComponent:name];
  return [data writeToFile:path atomically:YES] ? [NSURL fileURLWithPath:path] : nil;
}

}  // namespace

@interface NSURLSession (Sim)
- (sim::URLSessionState &)sim_state;
/// Runs `block` on the delegate's queue.
- (void)sim_tell:(void (^)(void))block;
- (void)sim_taskEnded:(NSURLSessionTask *)task;
@end

@interface NSURLSessionTask (Sim)
- (sim::URLTaskState &)sim_state;
- (void)sim_endWith:(Outcome)outcome;
@end

@implementation NSURLSessionConfiguration
@synthesize identifier = _identifier;
@synthesize waitsForConnectivity = _waitsForConnectivity;
@synthesize HTTPAdditionalHeaders = _HTTPAdditionalHeaders;
@synthesize requestCachePolicy = _requestCachePolicy;
@synthesize timeoutIntervalForRequest = _timeoutIntervalForRequest;

+ (NSURLSessionConfiguration *)defaultSessionConfiguration {
  return [[[self alloc] init] autorelease];
}

+ (NSURLSessionConfiguration *)ephemeralSessionConfiguration {
  return [self defaultSessionConfiguration];
}

+ (NSURLSessionConfiguration *)backgroundSessionConfigurationWithIdentifier:(NSString *)identifier {
  NSURLSessionConfiguration *made = [self defaultSessionConfiguration];
  made->_identifier = [identifier copy];
  made->_waitsForConnectivity = YES;  // As the tasks of all background sessions do.
  return made;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _timeoutIntervalForRequest = kUsualTimeout;
  return self;
}

- (void)dealloc {
  [_identifier release];
  [_HTTPAdditionalHeaders release];
  [super dealloc];
}

- (id)copyWithZone:(NSZone *)zone {
  NSURLSessionConfiguration *copy = [[[self class] allocWithZone:zone] init];
  copy->_identifier = [_identifier copy];
  [copy setHTTPAdditionalHeaders:_HTTPAdditionalHeaders];
  [copy setRequestCachePolicy:_requestCachePolicy];
  [copy setTimeoutIntervalForRequest:_timeoutIntervalForRequest];
  [copy setWaitsForConnectivity:_waitsForConnectivity];
  return copy;
}

@end

@implementation NSURLSessionTask

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _taskState = std::make_unique<sim::URLTaskState>();
  return self;
}

- (sim::URLTaskState &)sim_state {
  return *_taskState;
}

- (NSUInteger)taskIdentifier {
  return _taskState->identifier;
}

- (NSURLRequest *)originalRequest {
  return _taskState->request.get();
}

- (NSURLRequest *)currentRequest {
  return _taskState->request.get();
}

- (NSURLResponse *)response {
  const std::lock_guard lock(_taskState->mutex);
  return [[_taskState->response.get() retain] autorelease];
}

- (NSError *)error {
  const std::lock_guard lock(_taskState->mutex);
  return [[_taskState->error.get() retain] autorelease];
}

- (NSURLSessionTaskState)state {
  const std::lock_guard lock(_taskState->mutex);
  return _taskState->state;
}

- (NSString *)taskDescription {
  const std::lock_guard lock(_taskState->mutex);
  return [[_taskState->description.get() retain] autorelease];
}

- (void)setTaskDescription:(NSString *)description {
  const std::lock_guard lock(_taskState->mutex);
  _taskState->description = adopt((NSString *)[description copy]);
}

- (int64_t)countOfBytesReceived {
  const std::lock_guard lock(_taskState->mutex);
  return _taskState->received;
}

- (int64_t)countOfBytesExpectedToReceive {
  return [[self response] expectedContentLength];
}

- (void)resume {
  NSURLSession *session = nil;
  {
    const std::lock_guard lock(_taskState->mutex);
    if (_taskState->state != NSURLSessionTaskStateSuspended) return;
    _taskState->state = NSURLSessionTaskStateRunning;
    if (std::exchange(_taskState->hasBegun, true)) return;
    session = _taskState->session.get();
  }
  dispatch_async(dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0), ^{
    [self sim_run:session];
  });
}

- (void)sim_run:(NSURLSession *)session {
  const bool waits = [[session configuration] waitsForConnectivity];
  const Outcome outcome = load([self originalRequest]);
  if (!waits || [outcome.error code] != NSURLErrorNotConnectedToInternet) return [self sim_endWith:outcome];
  id<NSURLSessionTaskDelegate> delegate = (id<NSURLSessionTaskDelegate>)[session delegate];
  if (![delegate respondsToSelector:@selector(URLSession:taskIsWaitingForConnectivity:)]) return;
  [session sim_tell:^{
    [delegate URLSession:session taskIsWaitingForConnectivity:self];
  }];
}

- (void)suspend {
  const std::lock_guard lock(_taskState->mutex);
  if (_taskState->state == NSURLSessionTaskStateRunning) _taskState->state = NSURLSessionTaskStateSuspended;
}

- (void)cancel {
  {
    const std::lock_guard lock(_taskState->mutex);
    if (_taskState->state == NSURLSessionTaskStateCanceling || _taskState->state == NSURLSessionTaskStateCompleted) {
      return;
    }
    _taskState->state = NSURLSessionTaskStateCanceling;
    _taskState->hasBegun = true;
  }
  NSError *cancelled = sim::urlError(NSURLErrorCancelled, @"cancelled", [[self originalRequest] URL]);
  dispatch_async(dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0), ^{
    [self sim_finishWith:{.error = cancelled}];
  });
}

- (void)sim_endWith:(Outcome)outcome {
  {
    const std::lock_guard lock(_taskState->mutex);
    if (_taskState->state == NSURLSessionTaskStateCanceling) return;  // Which tells the end itself.
  }
  [self sim_finishWith:outcome];
}

/// Once: the first end counts.
- (void)sim_finishWith:(Outcome)outcome {
  auto &state = *_taskState;
  objcxx::Retained<NSURLSession> session;
  {
    const std::lock_guard lock(state.mutex);
    if (state.state == NSURLSessionTaskStateCompleted) return;
    state.state = NSURLSessionTaskStateCompleted;
    state.response = share(outcome.response);
    state.error = share(outcome.error);
    state.received = static_cast<int64_t>([outcome.data length]);
    session = std::exchange(state.session, {});
  }
  NSURLSession *told = session.get();
  NSData *data = outcome.data;
  [told sim_tell:^{
    [self sim_tell:told data:data];
    [told sim_taskEnded:self];
  }];
}

/// On the delegate's queue.
- (void)sim_tell:(NSURLSession *)session data:(NSData *)data {
  auto &state = *_taskState;
  const auto dataHandler = std::exchange(state.dataHandler, {});
  const auto fileHandler = std::exchange(state.fileHandler, {});
  if (dataHandler) return dataHandler(data, state.response.get(), state.error.get());
  const bool isDownload = [self isKindOfClass:[NSURLSessionDownloadTask class]];
  NSURL *file = isDownload && data ? temporaryFileWith(data) : nil;
  if (fileHandler) {
    fileHandler(file, state.response.get(), state.error.get());
  } else if (id delegate = [session delegate]) {
    [self sim_tellDelegate:delegate of:session data:data file:file];
  }
  if (file) [[NSFileManager defaultManager] removeItemAtURL:file error:NULL];
}

- (void)sim_tellDelegate:(id)delegate of:(NSURLSession *)session data:(NSData *)data file:(NSURL *)file {
  auto &state = *_taskState;
  NSURLSessionDataTask *dataTask = (NSURLSessionDataTask *)self;
  if (file) {
    if ([delegate respondsToSelector:@selector(URLSession:downloadTask:didFinishDownloadingToURL:)]) {
      [delegate URLSession:session downloadTask:(NSURLSessionDownloadTask *)self didFinishDownloadingToURL:file];
    }
  } else if (data) {
    __block bool allowed = true;
    if ([delegate respondsToSelector:@selector(URLSession:dataTask:didReceiveResponse:completionHandler:)]) {
      [delegate URLSession:session
                    dataTask:dataTask
          didReceiveResponse:state.response.get()
           completionHandler:^(NSURLSessionResponseDisposition disposition) {
             allowed = disposition == NSURLSessionResponseAllow;
           }];
    }
    if (!allowed) {
      state.error = share(sim::urlError(NSURLErrorCancelled, @"cancelled", [[self originalRequest] URL]));
    } else if ([delegate respondsToSelector:@selector(URLSession:dataTask:didReceiveData:)]) {
      [delegate URLSession:session dataTask:dataTask didReceiveData:data];
    }
  }
  if ([delegate respondsToSelector:@selector(URLSession:task:didCompleteWithError:)]) {
    [delegate URLSession:session task:self didCompleteWithError:state.error.get()];
  }
}

@end

@implementation NSURLSessionDataTask
@end

@implementation NSURLSessionUploadTask
@end

@implementation NSURLSessionDownloadTask
@end

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

@implementation NSURLConnection (NSURLConnectionQueuedLoading)

+ (void)sendAsynchronousRequest:(NSURLRequest *)request
                          queue:(NSOperationQueue *)queue
              completionHandler:(void (^)(NSURLResponse *, NSData *, NSError *))handler {
  dispatch_async(dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0), ^{
    const Outcome outcome = load(request);
    NSURLResponse *response = outcome.response;  // Each, so that the block owns it.
    NSData *data = outcome.data;
    NSError *error = outcome.error;
    [queue addOperationWithBlock:^{
      handler(response, data, error);
    }];
  });
}

@end
