// Filters. The one that is carried is "CIColorInvert".
#pragma once

#import <CoreImage/CIImage.h>

#include <objcxx/Retained.h>

CG_EXTERN NSString *const kCIInputImageKey;
CG_EXTERN NSString *const kCIOutputImageKey;

/// Its inputs are set and read by key; keys that the filter does not have raise NSUndefinedKeyException.
@interface CIFilter : NSObject <NSCopying> {
 @private
  objcxx::Retained<NSString> _name;
  objcxx::Retained<CIImage> _inputImage;
}
/// nil, with a log line, for a filter that is not carried.
+ (CIFilter *)filterWithName:(NSString *)name;
/// The name that it was made with, until set.
@property (nonatomic, copy) NSString *name;
@property (nonatomic, readonly) NSArray<NSString *> *inputKeys;
@property (nonatomic, readonly) NSArray<NSString *> *outputKeys;
/// "CIColorInvert" has no inputs with a default; the image stays.
- (void)setDefaults;
/// nil without an input image.
@property (nonatomic, readonly) CIImage *outputImage;
@end
