// Images as the browser needs them.
#pragma once

#import <UIKit/UIImage.h>

@interface UIImage (Sim)
/// PNG bytes of the middle square of the picture file at `path`, upright, at most `side` pixels wide and high. nil when
/// it cannot be read or decoded.
+ (NSData *)sim_PNGThumbnailOfFile:(NSString *)path side:(NSUInteger)side;
/// A number that no other image of this process has had, except one that was made from the same bytes not long before:
/// a page may decode a stored picture each time it shows it.
- (NSUInteger)sim_number;
/// Pixels, upright. Read from the header: nothing is decoded.
- (CGSize)sim_pixelSize;
/// PNG bytes of the upright image whose longer side is at most `longestSide` pixels (0: no limit). The file's own bytes
/// where they are a PNG that fits, unchecked. nil when pixels that have to be decoded cannot be.
- (NSData *)sim_PNGDataWithLongestSide:(NSUInteger)longestSide;
/// The same from the decoded pixels always: nil when they cannot be had.
- (NSData *)sim_encodedPNGWithLongestSide:(NSUInteger)longestSide;
@end
