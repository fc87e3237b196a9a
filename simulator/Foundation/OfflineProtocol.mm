#import "Foundation/OfflineProtocol.h"

#import <Foundation/NSURLSession.h>

namespace {

bool isOfNetwork(NSURL *url) {
  NSString *scheme = [[url scheme] lowercaseString];
  return scheme && [@[ @"http", @"https", @"ftp" ] containsObject:scheme];
}

}  // namespace

@interface SIMOfflineProtocol : NSURLProtocol
@end

@implementation SIMOfflineProtocol

+ (BOOL)canInitWithRequest:(NSURLRequest *)request {
  return isOfNetwork([request URL]);
}

+ (NSURLRequest *)canonicalRequestForRequest:(NSURLRequest *)request {
  return request;
}

- (void)startLoading {
  [[self client] URLProtocol:self didFailWithError:sim::offlineError([[self request] URL])];
}

- (void)stopLoading {
}

@end

namespace sim {

NSError *urlError(NSInteger code, NSString *description, NSURL *url) {
  NSMutableDictionary *information = [NSMutableDictionary dictionaryWithObject:description
                                                                        forKey:NSLocalizedDescriptionKey];
  if (url) {
    [information setObject:url forKey:NSURLErrorFailingURLErrorKey];
    [information setObject:[url absoluteString] forKey:NSURLErrorFailingURLStringErrorKey];
  }
  return [NSError errorWithDomain:NSURLErrorDomain code:code userInfo:information];
}

NSError *offlineError(NSURL *url) {
  if (!url || !isOfNetwork(url)) return urlError(NSURLErrorUnsupportedURL, @"unsupported URL", url);
  return urlError(NSURLErrorNotConnectedToInternet, @"The Internet connection appears to be offline.", url);
}

void goOffline() { [NSURLProtocol registerClass:[SIMOfflineProtocol class]]; }

}  // namespace sim
