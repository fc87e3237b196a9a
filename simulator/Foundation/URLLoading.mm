#import <Foundation/URLLoading.h>

#import <Foundation/OfflineProtocol.h>

namespace sim {

LoadedAddress loadAddress(NSURLRequest *request) {
  NSURL *url = [request URL];
  if (![url isFileURL]) return {.error = offlineError(url)};
  NSError *problem = nil;
  NSData *data = [NSData dataWithContentsOfFile:[url path] options:0 error:&problem];
  if (!data) return {.error = urlError(NSURLErrorFileDoesNotExist, [problem localizedDescription] ?: @"", url)};
  NSURLResponse *response = [[[NSURLResponse alloc] initWithURL:url
                                                       MIMEType:nil
                                          expectedContentLength:static_cast<NSInteger>([data length])
                                               textEncodingName:nil] autorelease];
  return {.data = data, .response = response};
}

}  // namespace sim

@implementation NSURLConnection (NSURLConnectionQueuedLoading)

+ (void)sendAsynchronousRequest:(NSURLRequest *)request
                          queue:(NSOperationQueue *)queue
              completionHandler:(void (^)(NSURLResponse *, NSData *, NSError *))handler {
  dispatch_async(dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0), ^{
    const sim::LoadedAddress outcome = sim::loadAddress(request);
    NSURLResponse *response = outcome.response;  // Each, so that the block owns it.
    NSData *data = outcome.data;
    NSError *error = outcome.error;
    [queue addOperationWithBlock:^{
      handler(response, data, error);
    }];
  });
}

@end
