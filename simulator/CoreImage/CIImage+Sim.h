// Rendering of Core Image images.
#pragma once

#import <CoreGraphics/Bitmap.hpp>
#import <CoreImage/CIImage.h>

namespace sim {

/// The pixels with every filter applied. Null for nil and for pixels that cannot be decoded.
std::shared_ptr<const Bitmap> render(CIImage *image);

}  // namespace sim

@interface CIImage (Sim)
/// The receiver with every colour inverted; alpha stays.
- (CIImage *)sim_colorInverted;
@end
