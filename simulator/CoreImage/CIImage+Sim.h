// Rendering of Core Image images.
#pragma once

#import <CoreGraphics/Bitmap.hpp>
#import <CoreImage/CIImage.h>
#import <CoreImage/Recipe.hpp>

namespace sim {

/// The pixels with every filter applied, kept by the image. Null for nil, for an image without end and for pixels that
/// cannot be decoded.
std::shared_ptr<const Bitmap> render(CIImage *image);
/// The pixels below `area`; see `Recipe::render`. Null for nil.
BitmapPtr render(CIImage *image, const PixelArea &area);

/// The smallest area that contains `rect`; empty for a rectangle without an area, everywhere for one without end.
PixelArea areaOf(CGRect rect);

}  // namespace sim

@interface CIImage (Sim)
/// The receiver with every colour inverted; alpha stays.
- (CIImage *)sim_colorInverted;
/// The receiver under a Gaussian of `sigma` pixels; the receiver itself when that is not above 0.
- (CIImage *)sim_blurredBySigma:(double)sigma;
@end
