// Filters. Those that are carried are "CIColorInvert" and "CIGaussianBlur".
#pragma once

#import <CoreImage/CIImage.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(CIFilterState);

CG_EXTERN NSString *const kCIInputImageKey;
CG_EXTERN NSString *const kCIInputRadiusKey;
CG_EXTERN NSString *const kCIOutputImageKey;

/// Its inputs are set and read by key; keys that the filter does not have raise NSUndefinedKeyException.
///
/// "CIGaussianBlur" has the input "inputRadius", a number: the standard deviation in pixels, 10 by default. 0 and less
/// leave the image as it is. The image grows by three times the radius on every side; one that is clamped stays without
/// end.
@interface CIFilter : NSObject <NSCopying> {
 @private
  SIM_STATE(CIFilterState, _filterState);
}
/// nil, with a log line, for a filter that is not carried. Its inputs have their defaults.
+ (CIFilter *)filterWithName:(NSString *)name;
/// The name that it was made with, until set.
@property(nonatomic, copy) NSString *name;
@property(nonatomic, readonly) NSArray<NSString *> *inputKeys;
@property(nonatomic, readonly) NSArray<NSString *> *outputKeys;
/// Sets the inputs that have a default to it; the image has none and stays.
- (void)setDefaults;
/// nil without an input image.
@property(nonatomic, readonly) CIImage *outputImage;
@end
