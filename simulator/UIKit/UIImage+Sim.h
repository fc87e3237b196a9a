// Images as the browser needs them.
#pragma once

#import <UIKit/UIImage.h>

@interface UIImage (Sim)
/// A number that no other image of this process has had.
- (NSUInteger)sim_number;
/// Pixels, upright. Read from the header: nothing is decoded.
- (CGSize)sim_pixelSize;
/// PNG bytes of the upright image whose longer side is at most `longestSide` pixels (0: no limit). The file's own bytes
/// where they are a PNG that fits, unchecked. nil when pixels that have to be decoded cannot be.
- (NSData *)sim_PNGDataWithLongestSide:(NSUInteger)longestSide;
@end
