#import <LocalAuthentication/LocalAuthentication.h>

#import <Foundation/NotCarried.h>

NSString *const LAErrorDomain = @"com.apple.LocalAuthentication";

@implementation LAContext
@synthesize localizedFallbackTitle = _localizedFallbackTitle;
@synthesize localizedCancelTitle = _localizedCancelTitle;

- (void)dealloc {
  [_localizedFallbackTitle release];
  [_localizedCancelTitle release];
  [super dealloc];
}

- (NSError *)sim_errorForPolicy:(LAPolicy)policy {
  NSInteger code = LAErrorPasscodeNotSet;
  NSString *description = @"Passcode not set.";
  if (policy == LAPolicyDeviceOwnerAuthenticationWithBiometrics) {
    code = LAErrorBiometryNotAvailable;
    description = @"Biometry is not available on this device.";
  }
  if (_isInvalid) {
    code = LAErrorInvalidContext;
    description = @"Authentication context has been invalidated.";
  }
  return [NSError errorWithDomain:LAErrorDomain code:code userInfo:@{NSLocalizedDescriptionKey : description}];
}

- (BOOL)canEvaluatePolicy:(LAPolicy)policy error:(NSError **)error {
  if (error) *error = [self sim_errorForPolicy:policy];
  return NO;
}

- (void)evaluatePolicy:(LAPolicy)policy
       localizedReason:(NSString *)reason
                 reply:(void (^)(BOOL success, NSError *error))reply {
  if ([reason length] == 0) {
    [NSException raise:NSInvalidArgumentException format:@"Non-empty localizedReason must be provided."];
  }
  NSError *error = [self sim_errorForPolicy:policy];
  dispatch_async(dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0), ^{
    reply(NO, error);
  });
}

- (void)invalidate {
  _isInvalid = YES;
}

- (LABiometryType)biometryType {
  return LABiometryTypeNone;
}

- (void)setLocalizedFallbackTitle:(NSString *)title {
  [_localizedFallbackTitle autorelease];
  _localizedFallbackTitle = [title copy];
  sim::notCarried(@"LAContext.localizedFallbackTitle", @"nobody is asked.");
}

- (void)setLocalizedCancelTitle:(NSString *)title {
  [_localizedCancelTitle autorelease];
  _localizedCancelTitle = [title copy];
  sim::notCarried(@"LAContext.localizedCancelTitle", @"nobody is asked.");
}

@end
