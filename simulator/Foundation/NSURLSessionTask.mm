#import <Foundation/NSURLSessionState.h>
#import <Foundation/OfflineProtocol.h>

#include <utility>

using objcxx::adopt;
using objcxx::share;

namespace {

/// A file with what was downloaded; nil when it cannot be written.
NSURL *temporaryFileWith(NSData *data) {
  NSString *name = [NSString stringWithFormat:@"CFNetworkDownload_%@.tmp", [[NSUUID UUID] UUIDString]];
  NSString *path = [NSTemporaryDirectory() stringByAppendingPathComponent:name];
  return [data writeToFile:path atomically:YES] ? [NSURL fileURLWithPath:path] : nil;
}

}  // namespace

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
  const sim::LoadedAddress outcome = sim::loadAddress([self originalRequest]);
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

- (void)sim_endWith:(sim::LoadedAddress)outcome {
  {
    const std::lock_guard lock(_taskState->mutex);
    if (_taskState->state == NSURLSessionTaskStateCanceling) return;  // Which tells the end itself.
  }
  [self sim_finishWith:outcome];
}

/// Once: the first end counts.
- (void)sim_finishWith:(sim::LoadedAddress)outcome {
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
