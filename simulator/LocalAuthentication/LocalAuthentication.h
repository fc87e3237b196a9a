// The part of LocalAuthentication that a device without a passcode and without sensors has: nobody is recognised.
#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, LAPolicy) {
  LAPolicyDeviceOwnerAuthenticationWithBiometrics = 1,
  LAPolicyDeviceOwnerAuthentication = 2,
};

typedef NS_ENUM(NSInteger, LAError) {
  LAErrorAuthenticationFailed = -1,
  LAErrorUserCancel = -2,
  LAErrorUserFallback = -3,
  LAErrorSystemCancel = -4,
  LAErrorPasscodeNotSet = -5,
  LAErrorBiometryNotAvailable = -6,
  LAErrorBiometryNotEnrolled = -7,
  LAErrorBiometryLockout = -8,
  LAErrorAppCancel = -9,
  LAErrorInvalidContext = -10,
  LAErrorNotInteractive = -1004,
};

typedef NS_ENUM(NSInteger, LABiometryType) {
  LABiometryTypeNone,
  LABiometryTypeTouchID,
  LABiometryTypeFaceID,
};

FOUNDATION_EXPORT NSString *const LAErrorDomain;

/// Any thread.
@interface LAContext : NSObject {
 @private
  NSString *_localizedFallbackTitle;
  NSString *_localizedCancelTitle;
  BOOL _isInvalid;
}
/// Always NO: biometry is not available, and no passcode is set.
- (BOOL)canEvaluatePolicy:(LAPolicy)policy error:(NSError *_Nullable *_Nullable)error;
/// Calls `reply` with NO and the same error, later, on a queue of the framework's own. An empty reason raises
/// NSInvalidArgumentException.
- (void)evaluatePolicy:(LAPolicy)policy
       localizedReason:(NSString *)localizedReason
                 reply:(void (^)(BOOL success, NSError *_Nullable error))reply;
/// Evaluations fail with LAErrorInvalidContext from now on.
- (void)invalidate;
@property(nonatomic, readonly) LABiometryType biometryType;
@property(nonatomic, copy, nullable) NSString *localizedFallbackTitle;
@property(nonatomic, copy, nullable) NSString *localizedCancelTitle;
@end

NS_ASSUME_NONNULL_END
