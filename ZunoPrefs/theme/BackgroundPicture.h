// The theme's background image as a preview shows it: small, filling, blurred. Main thread only.
#pragma once

#import <UIKit/UIKit.h>

#include <cstddef>

namespace zuno {

/// The stored background image, whose fingerprint that is, scaled to fill `size` points at the main screen's
/// scale, cut to that size and then blurred by a Gaussian of `blur` points (standard deviation; its edges go on as they
/// are). nil when the theme file has none that can be decoded, or `size` is empty. Autoreleased.
///
/// The file is read, and the image decoded, when the fingerprint is another than last time, or the size. What is kept
/// in between are two pictures of `size`, none of the stored image's.
UIImage *backgroundPicture(std::size_t fingerprint, CGSize size, CGFloat blur);

}  // namespace zuno
