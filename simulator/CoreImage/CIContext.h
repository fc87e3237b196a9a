// Rendering into bitmaps.
#pragma once

#import <CoreImage/CIImage.h>

@interface CIContext : NSObject
+ (CIContext *)context;
+ (CIContext *)contextWithOptions:(NSDictionary *)options;
/// The part of `image` below `rect` (pixels, y upwards as in Core Image) as a bitmap of the rectangle's size,
/// transparent outside the image's extent. Owned by the caller. NULL for an empty or infinite rectangle, for nil, and
/// for more than 100 million pixels.
- (CGImageRef)createCGImage:(CIImage *)image fromRect:(CGRect)rect;
@end
