// Providers over the simulator's own pixels.
#pragma once

#include <CoreGraphics/Bitmap.hpp>
#include <CoreGraphics/CGDataProvider.h>

namespace sim {

/// A provider of the pixels that `source` gives, at +1.
CGDataProviderRef createProvider(PixelSourcePtr source);
/// The provider's bytes, valid while it lives; empty for NULL, and for a source that cannot be decoded.
std::span<const std::uint8_t> bytesOf(CGDataProviderRef provider);

}  // namespace sim
