// The background image of the theme: how it is stored, and the picker that it is chosen with. The theme page and its
// image cell share it.
#pragma once

#import <UIKit/UIKit.h>

#include <cstddef>

namespace zuno {

/// The image as it is stored: PNG, in base64 with line breaks every 64 characters. nil when there is no image or it
/// cannot be encoded. Autoreleased.
NSString *encodeImage(UIImage *image);

/// The key of the theme file under which the image is stored.
extern NSString *const kBackgroundImage;

/// The image that `text` stores; characters outside the base64 alphabet are passed over. nil when it is none, or when
/// `text` is no string. Autoreleased.
UIImage *decodeImage(id text);

/// The file that the theme file stores as the background image; characters outside the base64 alphabet are passed over.
/// nil when it stores no text. It need not be an image. Autoreleased.
NSData *storedImageFile();

/// The stored background image; nil when the theme file has none that can be read. Autoreleased.
UIImage *storedBackgroundImage();

/// The picture of a photo picker's result, its pixels lying as they are seen: an encoded PNG does not say how a camera
/// was held. nil when there is none or it cannot be decoded. Autoreleased.
UIImage *pickedImage(NSDictionary *info);

/// Stores an encoded image as the background image, and tells that the theme has changed; a failed write is not
/// reported.
void storeBackgroundImage(NSString *text);

/// What tells the stored text from another; 0 where the theme file holds none. Reads that file when it is another than
/// last time, was written since, or had only just been written then. Main thread only.
std::size_t backgroundFingerprint();

/// Whether the theme file holds a background image, readable or not.
bool hasBackgroundImage();

/// Takes the background image out of the theme file, and tells that the theme has changed; a failed write is not
/// reported.
void removeBackgroundImage();

/// A picker over the photo library, autoreleased; nil when the library is not available.
UIImagePickerController *photoPicker(id<UIImagePickerControllerDelegate, UINavigationControllerDelegate> delegate);

}  // namespace zuno
