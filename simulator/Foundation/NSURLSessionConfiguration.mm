#import <Foundation/NSURLSession.h>

namespace {

constexpr NSTimeInterval kUsualTimeout = 60;

}  // namespace

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
