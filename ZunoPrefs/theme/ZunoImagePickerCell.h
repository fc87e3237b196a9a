#import <Preferences/PSTableCell.h>
#import <UIKit/UIKit.h>

#include <cstddef>

/// The row that shows the theme's background image and, when tapped, lets the user pick another.
///
/// It reads and writes the entry of the theme file by itself. Main thread only.
@interface ZunoImagePickerCell : PSTableCell <UIImagePickerControllerDelegate, UINavigationControllerDelegate> {
  UIImageView *imagePreviewView;  // Reserved.
  UILabel *cellLabel;             // Reserved.
  id _options;
  UIImage *_photo;     // The stored image, while the cell shows that.
  std::size_t _shown;  // Its fingerprint.
}

@property(nonatomic, strong) id options;

/// Opens the photo picker over the current theme page; does nothing without a photo library or a page,
/// or while the row is disabled.
- (void)openImagePicker;
/// The image as the theme file stores it; nil when it cannot be encoded.
- (NSString *)encodeToBase64String:(UIImage *)image;
/// The image that a stored text holds; nil when it is none.
- (UIImage *)decodeBase64ToImage:(NSString *)text;
- (void)setCurrentImage:(UIImage *)image;
/// Shows the stored image; leaves the cell's image as it is when there is none that can be read.
- (void)loadImageFromDict;

@end
