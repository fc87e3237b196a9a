// Rendering into bitmaps.
#pragma once

#import <CoreImage/CIImage.h>

typedef NSString *CIContextOption;

/// The colour space in which filters compute. Here they compute on the colours as they are stored, as with NSNull.
CG_EXTERN CIContextOption const kCIContextWorkingColorSpace;
/// Whether what a filter has computed is kept for the next rendering.
CG_EXTERN CIContextOption const kCIContextCacheIntermediates;

@interface CIContext : NSObject
+ (CIContext *)context;
+ (CIContext *)contextWithOptions:(NSDictionary *)options;
/// The part of `image` below `rect` (pixels, y upwards as in Core Image) as a bitmap of the rectangle's size,
/// transparent outside the image's extent. Owned by the caller. NULL for an empty or infinite rectangle, for nil, and
/// for more than 100 million pixels.
- (CGImageRef)createCGImage:(CIImage *)image fromRect:(CGRect)rect;
@end
