// Loading on a device without a network.
#import <Foundation/Foundation.h>
#import <dispatch/MainQueue+Sim.h>

#include <objcxx/Retained.h>

#include "support/objc/LeaksIgnored.h"
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>

@interface URLSessionTestDelegate : NSObject <NSURLSessionDataDelegate, NSURLSessionDownloadDelegate> {
 @public
  NSMutableArray *told;
  BOOL refuses;
}
@end

@implementation URLSessionTestDelegate
- (instancetype)init {
  if ((self = [super init])) told = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [told release];
  [super dealloc];
}
- (void)note:(NSString *)what {
  [told addObject:[NSThread isMainThread] ? what : @"elsewhere"];
}
- (void)URLSession:(NSURLSession *)session task:(NSURLSessionTask *)task didCompleteWithError:(NSError *)error {
  [self note:[NSString stringWithFormat:@"end %ld", error ? (long)[error code] : 0L]];
}
- (void)URLSession:(NSURLSession *)session taskIsWaitingForConnectivity:(NSURLSessionTask *)task {
  [self note:@"waits"];
}
- (void)URLSession:(NSURLSession *)session
              dataTask:(NSURLSessionDataTask *)task
    didReceiveResponse:(NSURLResponse *)response
     completionHandler:(void (^)(NSURLSessionResponseDisposition))handler {
  [self note:[NSString stringWithFormat:@"response %lld", (long long)[response expectedContentLength]]];
  handler(refuses ? NSURLSessionResponseCancel : NSURLSessionResponseAllow);
}
- (void)URLSession:(NSURLSession *)session dataTask:(NSURLSessionDataTask *)task didReceiveData:(NSData *)data {
  [self note:[NSString stringWithFormat:@"data %lu", (unsigned long)[data length]]];
}
- (void)URLSession:(NSURLSession *)session
                 downloadTask:(NSURLSessionDownloadTask *)task
    didFinishDownloadingToURL:(NSURL *)location {
  [self note:[NSString stringWithContentsOfFile:[location path] encoding:NSUTF8StringEncoding error:NULL]];
}
- (void)URLSession:(NSURLSession *)session didBecomeInvalidWithError:(NSError *)error {
  [self note:@"invalid"];
}
- (void)connection:(NSURLConnection *)connection didFailWithError:(NSError *)error {
  [self note:[NSString stringWithFormat:@"failed %ld", (long)[error code]]];
}
@end

namespace {

class URLSessionTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    delegate_ = objcxx::adopt([[URLSessionTestDelegate alloc] init]);
  }
  static void SetUpTestSuite() {
    const testing_support::LeaksIgnored ignored;  // What the class keeps for good.
    @autoreleasepool {
      [NSBlockOperation blockOperationWithBlock:^{
      }];
      [NSURLConnection sendSynchronousRequest:request() returningResponse:NULL error:NULL];
    }
  }
  static NSURL *page() { return [NSURL URLWithString:@"https://example.com/data.json"]; }
  static NSURLRequest *request() { return [NSURLRequest requestWithURL:page()]; }
  NSURLSession *session(bool waits = false) {
    NSURLSessionConfiguration *configuration = [NSURLSessionConfiguration defaultSessionConfiguration];
    [configuration setWaitsForConnectivity:waits];
    return [NSURLSession sessionWithConfiguration:configuration
                                         delegate:delegate_.get()
                                    delegateQueue:[NSOperationQueue mainQueue]];
  }
  template <typename Condition>
  static bool runLoopUntil(Condition done) {
    NSDate *end = [NSDate dateWithTimeIntervalSinceNow:10];
    while (!done() && [end timeIntervalSinceNow] > 0) {
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.02]];
    }
    return done();
  }
  bool isTold(NSArray *expected) {
    runLoopUntil([&] { return [delegate_.get()->told count] >= [expected count]; });
    SIMDrainMainQueue();
    EXPECT_OBJC_EQ(delegate_.get()->told, expected);
    return [delegate_.get()->told isEqual:expected];
  }
  objcxx::Retained<URLSessionTestDelegate> delegate_;
};

TEST_F(URLSessionTest, ATaskOfTheSharedSessionFailsAsOfflineLaterAndElsewhere) {
  __block int calls = 0;
  __block bool wasMain = true;
  __block NSError *problem = nil;
  dispatch_semaphore_t ended = dispatch_semaphore_create(0);
  NSURLSessionDataTask *task =
      [[NSURLSession sharedSession] dataTaskWithURL:page()
                                  completionHandler:^(NSData *data, NSURLResponse *response, NSError *error) {
                                    calls += data || response ? 100 : 1;
                                    wasMain = [NSThread isMainThread];
                                    problem = [error retain];
                                    dispatch_semaphore_signal(ended);
                                  }];
  EXPECT_EQ([task state], NSURLSessionTaskStateSuspended);
  EXPECT_NE(dispatch_semaphore_wait(ended, dispatch_time(DISPATCH_TIME_NOW, 20 * NSEC_PER_MSEC)), 0);
  [task resume];
  [task resume];
  EXPECT_EQ(dispatch_semaphore_wait(ended, dispatch_time(DISPATCH_TIME_NOW, 10 * NSEC_PER_SEC)), 0);
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(wasMain);
  EXPECT_OBJC_EQ([problem domain], NSURLErrorDomain);
  EXPECT_EQ([problem code], NSURLErrorNotConnectedToInternet);
  EXPECT_OBJC_EQ([problem localizedDescription], @"The Internet connection appears to be offline.");
  EXPECT_OBJC_EQ([[problem userInfo] objectForKey:NSURLErrorFailingURLErrorKey], page());
  EXPECT_EQ([task state], NSURLSessionTaskStateCompleted);
  EXPECT_OBJC_EQ([task error], problem);
  EXPECT_OBJC_EQ([[task originalRequest] URL], page());
  [problem release];
  dispatch_release(ended);
}

TEST_F(URLSessionTest, TheDelegateIsToldOnItsQueue) {
  [[session() dataTaskWithRequest:request()] resume];
  EXPECT_TRUE(isTold(@[ @"end -1009" ]));
}

TEST_F(URLSessionTest, WhatIsNoAddressOfANetworkIsUnsupported) {
  [[session() dataTaskWithURL:[NSURL URLWithString:@"foo:bar"]] resume];
  EXPECT_TRUE(isTold(@[ @"end -1002" ]));
}

TEST_F(URLSessionTest, ACancelledTaskSaysSo) {
  NSURLSessionTask *task = [session() dataTaskWithURL:page()];
  [task cancel];
  [task cancel];
  [task resume];
  EXPECT_TRUE(isTold(@[ @"end -999" ]));
  EXPECT_EQ([task state], NSURLSessionTaskStateCompleted);
}

TEST_F(URLSessionTest, ATaskMayWaitForANetworkForEver) {
  NSURLSessionTask *task = [session(true) dataTaskWithURL:page()];
  [task resume];
  EXPECT_TRUE(isTold(@[ @"waits" ]));
  EXPECT_EQ([task state], NSURLSessionTaskStateRunning);
  [task cancel];
  EXPECT_TRUE(isTold(@[ @"waits", @"end -999" ]));
}

TEST_F(URLSessionTest, AFileIsLoaded) {
  NSURL *file = [NSURL fileURLWithPath:write(@"/var/mobile/text", "text")];
  [[session() dataTaskWithURL:file] resume];
  EXPECT_TRUE(isTold(@[ @"response 4", @"data 4", @"end 0" ]));
  [[session() downloadTaskWithURL:file] resume];
  EXPECT_TRUE(isTold(@[ @"response 4", @"data 4", @"end 0", @"text", @"end 0" ]));
  delegate_.get()->refuses = YES;
  [delegate_.get()->told removeAllObjects];
  [[session() dataTaskWithURL:file] resume];
  EXPECT_TRUE(isTold(@[ @"response 4", @"end -999" ]));
}

TEST_F(URLSessionTest, ADownloadHasAHandler) {
  __block NSString *got = nil;
  __block NSString *place = nil;
  NSURL *file = [NSURL fileURLWithPath:write(@"/var/mobile/text", "text")];
  [[session() downloadTaskWithURL:file
                completionHandler:^(NSURL *location, NSURLResponse *, NSError *) {
                  place = [[location path] copy];
                  got = [[NSString stringWithContentsOfFile:place encoding:NSUTF8StringEncoding error:NULL] copy];
                }] resume];
  NSString **result = &got;
  EXPECT_TRUE(runLoopUntil([=] { return *result != nil; }));
  EXPECT_OBJC_EQ(got, @"text");
  SIMDrainMainQueue();
  EXPECT_FALSE([[NSFileManager defaultManager] fileExistsAtPath:place]);
  [got release];
  [place release];
}

TEST_F(URLSessionTest, AnInvalidSessionTellsItsEndAndTakesNoTasks) {
  NSURLSession *ended = session();
  NSURLSessionTask *task = [ended dataTaskWithURL:page()];
  [ended invalidateAndCancel];
  EXPECT_TRUE(isTold(@[ @"end -999", @"invalid" ]));
  EXPECT_EQ([ended delegate], nil);
  EXPECT_EQ([task state], NSURLSessionTaskStateCompleted);
  EXPECT_EQ(raisedBy([&] { [ended dataTaskWithURL:page()]; }), "NSGenericException");
}

TEST_F(URLSessionTest, ASessionAddsItsHeaders) {
  NSURLSessionConfiguration *configuration = [NSURLSessionConfiguration ephemeralSessionConfiguration];
  [configuration setHTTPAdditionalHeaders:@{@"X-A" : @"session", @"X-B" : @"session"}];
  [configuration setTimeoutIntervalForRequest:7];
  [configuration setRequestCachePolicy:NSURLRequestReloadIgnoringLocalCacheData];
  NSURLSession *session = [NSURLSession sessionWithConfiguration:configuration];
  [configuration setTimeoutIntervalForRequest:9];
  NSMutableURLRequest *asked = [NSMutableURLRequest requestWithURL:page()];
  [asked setValue:@"own" forHTTPHeaderField:@"X-A"];
  NSURLRequest *sent = [[session dataTaskWithRequest:asked] originalRequest];
  EXPECT_OBJC_EQ([sent valueForHTTPHeaderField:@"X-A"], @"own");
  EXPECT_OBJC_EQ([sent valueForHTTPHeaderField:@"X-B"], @"session");
  NSURLSessionTask *task = [session dataTaskWithURL:page()];
  EXPECT_EQ([[task originalRequest] timeoutInterval], 7);
  EXPECT_EQ([[task originalRequest] cachePolicy], NSURLRequestReloadIgnoringLocalCacheData);
  EXPECT_EQ([task taskIdentifier], 2u);
  [session invalidateAndCancel];
}

TEST_F(URLSessionTest, OldConnectionsFailTheSameWay) {
  const testing_support::LeaksIgnored ignored;  // What connections of GNUstep leave behind.
  NSError *error = nil;
  EXPECT_EQ([NSURLConnection sendSynchronousRequest:request() returningResponse:NULL error:&error], nil);
  EXPECT_EQ([error code], NSURLErrorNotConnectedToInternet);
  __block NSInteger code = 0;
  [NSURLConnection sendAsynchronousRequest:request()
                                     queue:[NSOperationQueue mainQueue]
                         completionHandler:^(NSURLResponse *, NSData *, NSError *problem) {
                           code = [problem code];
                         }];
  EXPECT_EQ(code, 0);
  const NSInteger *result = &code;
  EXPECT_TRUE(runLoopUntil([=] { return *result != 0; }));
  EXPECT_EQ(code, NSURLErrorNotConnectedToInternet);
  [NSURLConnection connectionWithRequest:request() delegate:delegate_.get()];
  EXPECT_TRUE(isTold(@[ @"failed -1009" ]));
}

}  // namespace
