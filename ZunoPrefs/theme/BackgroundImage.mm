#import "theme/BackgroundImage.h"

#include <sys/stat.h>

#include <array>

#import "core/PreferenceFile.h"
#import "theme/ThemeChange.h"

namespace zuno {

NSString *const kBackgroundImage = @"backgroundImage";

namespace {

bool isOpaque(CGImageRef image) {
  const CGImageAlphaInfo alpha = CGImageGetAlphaInfo(image);
  return alpha == kCGImageAlphaNone || alpha == kCGImageAlphaNoneSkipFirst || alpha == kCGImageAlphaNoneSkipLast;
}

/// Whether the pixels are sound: a damaged image draws nothing, without a word.
bool canDecode(CGImageRef image) {
  CFDataRef pixels = CGDataProviderCopyData(CGImageGetDataProvider(image));
  if (!pixels) return false;
  CFRelease(pixels);
  return true;
}

/// Tells a file from others and from itself before a write; zeros where there is none. A file that is written whole, as
/// preference files are, becomes another one.
using FileState = std::array<std::int64_t, 5>;

FileState stateOf(NSString *path) {
  struct stat state;
  if (stat([path fileSystemRepresentation], &state) != 0) return {};
#ifdef __APPLE__
  const timespec written = state.st_mtimespec;
#else
  const timespec written = state.st_mtim;
#endif
  return {static_cast<std::int64_t>(state.st_dev), static_cast<std::int64_t>(state.st_ino), state.st_size,
          written.tv_sec, written.tv_nsec};
}

UIImage *turnedUpright(UIImage *image) {
  if (!canDecode([image CGImage])) return nil;
  const CGSize size = [image size];
  UIGraphicsBeginImageContextWithOptions(size, isOpaque([image CGImage]), [image scale]);
  [image drawInRect:CGRectMake(0, 0, size.width, size.height)];
  UIImage *upright = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return upright;
}

}  // namespace

NSString *encodeImage(UIImage *image) {
  if (!image) return nil;
  return [UIImagePNGRepresentation(image) base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength];
}

NSData *imageFile(id text) {
  if (![text isKindOfClass:[NSString class]]) return nil;
  return [[[NSData alloc] initWithBase64EncodedString:text
                                              options:NSDataBase64DecodingIgnoreUnknownCharacters] autorelease];
}

UIImage *decodeImage(id text) {
  NSData *png = imageFile(text);
  return png ? [UIImage imageWithData:png] : nil;
}

UIImage *storedBackgroundImage() { return decodeImage(PreferenceFile::ofDomain(kThemeDomain).value(kBackgroundImage)); }

UIImage *pickedImage(NSDictionary *info) {
  UIImage *image = [info objectForKey:UIImagePickerControllerOriginalImage];
  return !image || [image imageOrientation] == UIImageOrientationUp ? image : turnedUpright(image);
}

void storeBackgroundImage(NSString *text) {
  PreferenceFile::ofDomain(kThemeDomain).setValue(text, kBackgroundImage);
  tellThemeChanged();
}

std::size_t backgroundFingerprint() {
  static FileState known{};
  static std::size_t fingerprint = 0;
  const auto file = PreferenceFile::ofDomain(kThemeDomain);
  const FileState state = stateOf(file.path());
  if (state != known) {
    known = state;
    fingerprint = file.fingerprint(kBackgroundImage);
  }
  return fingerprint;
}

bool hasBackgroundImage() { return PreferenceFile::ofDomain(kThemeDomain).contains(kBackgroundImage); }

void removeBackgroundImage() {
  PreferenceFile::ofDomain(kThemeDomain).removeValue(kBackgroundImage);
  tellThemeChanged();
}

UIImagePickerController *photoPicker(id<UIImagePickerControllerDelegate, UINavigationControllerDelegate> delegate) {
  constexpr auto source = UIImagePickerControllerSourceTypePhotoLibrary;
  if (![UIImagePickerController isSourceTypeAvailable:source]) return nil;
  UIImagePickerController *picker = [[[UIImagePickerController alloc] init] autorelease];
  [picker setSourceType:source];
  [picker setDelegate:delegate];
  return picker;
}

}  // namespace zuno
