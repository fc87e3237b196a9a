// Images as the browser needs them.
#pragma once

#import <UIKit/UIImage.h>
#import <UIKit/UIImageSymbolConfiguration.h>

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

@interface UIImage (SimSymbols)
/// A symbol with `preferred` for what its own configuration leaves open; any other image, and one without `preferred`,
/// as it is.
- (UIImage *)sim_imageWithPreferredSymbolConfiguration:(UIImageSymbolConfiguration *)preferred;
/// Whether a view that does not decide itself fills the image's shape with its tint: for templates, and for symbols
/// that are left to the view.
- (BOOL)sim_isTemplate;
@end
