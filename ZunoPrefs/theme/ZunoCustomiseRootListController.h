#import <Preferences/PSListController.h>
#import <UIKit/UIKit.h>

/// The theme page: the rows of "Customise.plist", with their values in the theme preference file. Main thread only.
@interface ZunoCustomiseRootListController
    : PSListController <UIImagePickerControllerDelegate, UINavigationControllerDelegate> {
  BOOL shouldReload;
}

/// The theme page that is on screen; nil while none is.
+ (ZunoCustomiseRootListController *)currentPage;

/// Asks whether to delete the theme file, and does.
- (void)clearSettings;
- (void)respring;
/// Opens the photo picker; does nothing when there is no photo library.
- (void)selectImage;
/// Asks whether to take the background image out of the theme file, and does; every other setting stays.
- (void)removeImage;
/// The image as the theme file stores it; nil when it cannot be encoded.
- (NSString *)encodeToBase64String:(UIImage *)image;

@end
