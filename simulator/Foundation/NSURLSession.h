// Loading of addresses, for a device that has no network: what is not a file of the device fails as it does offline.
// Any thread.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/HiddenState.h>

// Newer GNUsteps have classes of these names, which go to the network.
#if GS_HAVE_NSURLSESSION
#define NSURLSession SIMURLSession
#define NSURLSessionConfiguration SIMURLSessionConfiguration
#define NSURLSessionTask SIMURLSessionTask
#define NSURLSessionDataTask SIMURLSessionDataTask
#define NSURLSessionUploadTask SIMURLSessionUploadTask
#define NSURLSessionDownloadTask SIMURLSessionDownloadTask
#endif

SIM_STATE_TYPE(URLTaskState);
SIM_STATE_TYPE(URLSessionState);

NS_ASSUME_NONNULL_BEGIN

@class NSURLSession, NSURLSessionDataTask, NSURLSessionDownloadTask, NSURLSessionTask, NSURLSessionUploadTask;

FOUNDATION_EXPORT NSString *const NSURLErrorFailingURLErrorKey;
FOUNDATION_EXPORT NSString *const NSURLErrorFailingURLStringErrorKey;

/// How a session is to load. Most of it matters to a network alone.
@interface NSURLSessionConfiguration : NSObject <NSCopying> {
 @private
  NSString *_identifier;
  NSDictionary *_HTTPAdditionalHeaders;
  NSURLRequestCachePolicy _requestCachePolicy;
  NSTimeInterval _timeoutIntervalForRequest;
  BOOL _waitsForConnectivity;
}
@property(class, readonly, strong) NSURLSessionConfiguration *defaultSessionConfiguration;
@property(class, readonly, strong) NSURLSessionConfiguration *ephemeralSessionConfiguration;
+ (NSURLSessionConfiguration *)backgroundSessionConfigurationWithIdentifier:(NSString *)identifier;
/// Of a background session; nil otherwise.
@property(nullable, readonly, copy) NSString *identifier;
/// Whether tasks wait for a network, which never comes, instead of failing.
@property BOOL waitsForConnectivity;
/// Added to the requests of tasks, as far as these have none of the names.
@property(nullable, copy) NSDictionary *HTTPAdditionalHeaders;
/// Of requests that are made from addresses.
@property NSURLRequestCachePolicy requestCachePolicy;
/// Seconds, of requests that are made from addresses. 60 to begin with.
@property NSTimeInterval timeoutIntervalForRequest;
@end

typedef NS_ENUM(NSInteger, NSURLSessionTaskState) {
  NSURLSessionTaskStateRunning = 0,
  NSURLSessionTaskStateSuspended = 1,
  NSURLSessionTaskStateCanceling = 2,
  NSURLSessionTaskStateCompleted = 3,
};

/// One load. It begins suspended.
@interface NSURLSessionTask : NSObject {
 @private
  SIM_STATE(URLTaskState, _taskState);
}
@property(readonly) NSUInteger taskIdentifier;
@property(nullable, readonly, copy) NSURLRequest *originalRequest;
@property(nullable, readonly, copy) NSURLRequest *currentRequest;
@property(nullable, readonly, copy) NSURLResponse *response;
@property(nullable, readonly, copy) NSError *error;
@property(readonly) NSURLSessionTaskState state;
@property(nullable, copy) NSString *taskDescription;
@property(readonly) int64_t countOfBytesReceived;
@property(readonly) int64_t countOfBytesExpectedToReceive;
- (void)resume;
- (void)suspend;
/// Ends the task with NSURLErrorCancelled, later, unless it has ended.
- (void)cancel;
@end

@interface NSURLSessionDataTask : NSURLSessionTask
@end
@interface NSURLSessionUploadTask : NSURLSessionDataTask
@end
@interface NSURLSessionDownloadTask : NSURLSessionTask
@end

typedef NS_ENUM(NSInteger, NSURLSessionResponseDisposition) {
  NSURLSessionResponseCancel = 0,
  NSURLSessionResponseAllow = 1,
};

@protocol NSURLSessionDelegate <NSObject>
@optional
- (void)URLSession:(NSURLSession *)session didBecomeInvalidWithError:(nullable NSError *)error;
@end

@protocol NSURLSessionTaskDelegate <NSURLSessionDelegate>
@optional
- (void)URLSession:(NSURLSession *)session taskIsWaitingForConnectivity:(NSURLSessionTask *)task;
- (void)URLSession:(NSURLSession *)session task:(NSURLSessionTask *)task didCompleteWithError:(nullable NSError *)error;
@end

@protocol NSURLSessionDataDelegate <NSURLSessionTaskDelegate>
@optional
- (void)URLSession:(NSURLSession *)session
              dataTask:(NSURLSessionDataTask *)dataTask
    didReceiveResponse:(NSURLResponse *)response
     completionHandler:(void (^)(NSURLSessionResponseDisposition disposition))completionHandler;
- (void)URLSession:(NSURLSession *)session dataTask:(NSURLSessionDataTask *)dataTask didReceiveData:(NSData *)data;
@end

@protocol NSURLSessionDownloadDelegate <NSURLSessionTaskDelegate>
/// The file at `location` goes when this returns.
- (void)URLSession:(NSURLSession *)session
                 downloadTask:(NSURLSessionDownloadTask *)downloadTask
    didFinishDownloadingToURL:(NSURL *)location;
@optional
- (void)URLSession:(NSURLSession *)session
                 downloadTask:(NSURLSessionDownloadTask *)downloadTask
                 didWriteData:(int64_t)bytesWritten
            totalBytesWritten:(int64_t)totalBytesWritten
    totalBytesExpectedToWrite:(int64_t)totalBytesExpectedToWrite;
@end

/// Makes tasks, and tells how they end on its queue: by a task's completion handler, or else by the delegate.
@interface NSURLSession : NSObject {
 @private
  SIM_STATE(URLSessionState, _sessionState);
}
@property(class, readonly, strong) NSURLSession *sharedSession;
+ (NSURLSession *)sessionWithConfiguration:(NSURLSessionConfiguration *)configuration;
/// The delegate is owned until the session has been invalidated. A nil queue is a serial one of the session's own.
+ (NSURLSession *)sessionWithConfiguration:(NSURLSessionConfiguration *)configuration
                                  delegate:(nullable id<NSURLSessionDelegate>)delegate
                             delegateQueue:(nullable NSOperationQueue *)queue;
@property(readonly, retain) NSOperationQueue *delegateQueue;
@property(nullable, readonly, retain) id<NSURLSessionDelegate> delegate;
/// A copy.
@property(readonly, copy) NSURLSessionConfiguration *configuration;
@property(nullable, copy) NSString *sessionDescription;

- (NSURLSessionDataTask *)dataTaskWithURL:(NSURL *)url;
- (NSURLSessionDataTask *)dataTaskWithRequest:(NSURLRequest *)request;
- (NSURLSessionUploadTask *)uploadTaskWithRequest:(NSURLRequest *)request fromData:(NSData *)bodyData;
- (NSURLSessionDownloadTask *)downloadTaskWithURL:(NSURL *)url;
- (NSURLSessionDownloadTask *)downloadTaskWithRequest:(NSURLRequest *)request;
/// New tasks are refused by NSGenericException from now on; when those that there are have ended the delegate is told.
- (void)finishTasksAndInvalidate;
- (void)invalidateAndCancel;
@end

@interface NSURLSession (NSURLSessionAsynchronousConvenience)
- (NSURLSessionDataTask *)dataTaskWithURL:(NSURL *)url
                        completionHandler:(void (^)(NSData *_Nullable data, NSURLResponse *_Nullable response,
                                                    NSError *_Nullable error))completionHandler;
- (NSURLSessionDataTask *)dataTaskWithRequest:(NSURLRequest *)request
                            completionHandler:(void (^)(NSData *_Nullable data, NSURLResponse *_Nullable response,
                                                        NSError *_Nullable error))completionHandler;
- (NSURLSessionUploadTask *)uploadTaskWithRequest:(NSURLRequest *)request
                                         fromData:(nullable NSData *)bodyData
                                completionHandler:(void (^)(NSData *_Nullable data, NSURLResponse *_Nullable response,
                                                            NSError *_Nullable error))completionHandler;
/// The file at `location` goes when the handler returns.
- (NSURLSessionDownloadTask *)downloadTaskWithURL:(NSURL *)url
                                completionHandler:(void (^)(NSURL *_Nullable location,
                                                            NSURLResponse *_Nullable response,
                                                            NSError *_Nullable error))completionHandler;
- (NSURLSessionDownloadTask *)downloadTaskWithRequest:(NSURLRequest *)request
                                    completionHandler:(void (^)(NSURL *_Nullable location,
                                                                NSURLResponse *_Nullable response,
                                                                NSError *_Nullable error))completionHandler;
@end

@interface NSURLConnection (NSURLConnectionQueuedLoading)
/// Calls `handler` on `queue` when the load has ended. A connection loads as a session does.
+ (void)sendAsynchronousRequest:(NSURLRequest *)request
                          queue:(NSOperationQueue *)queue
              completionHandler:(void (^)(NSURLResponse *_Nullable response, NSData *_Nullable data,
                                          NSError *_Nullable connectionError))handler;
@end

NS_ASSUME_NONNULL_END
