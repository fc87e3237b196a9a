#import "theme/BackgroundImage.h"

#import <objcxx/Retained.h>

#include <chrono>
#include <string_view>

#include "core/FileState.hpp"
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

NSData *storedImageFile() {
  NSData *png = nil;
  PreferenceFile::ofDomain(kThemeDomain).withText(kBackgroundImage, [&](std::string_view text) {
    const auto base64 = objcxx::adopt([[NSData alloc] initWithBytesNoCopy:const_cast<char *>(text.data())
                                                                   length:text.size()
                                                             freeWhenDone:NO]);
    png = [[NSData alloc] initWithBase64EncodedData:base64.get() options:NSDataBase64DecodingIgnoreUnknownCharacters];
  });
  return [png autorelease];
}

UIImage *decodeImage(id text) {
  if (![text isKindOfClass:[NSString class]]) return nil;
  NSData *png = [[[NSData alloc] initWithBase64EncodedString:text
                                                     options:NSDataBase64DecodingIgnoreUnknownCharacters] autorelease];
  return png ? [UIImage imageWithData:png] : nil;
}

UIImage *storedBackgroundImage() {
  NSData *png = storedImageFile();
  return png ? [UIImage imageWithData:png] : nil;
}

UIImage *pickedImage(NSDictionary *info) {
  UIImage *image = [info objectForKey:UIImagePickerControllerOriginalImage];
  return !image || [image imageOrientation] == UIImageOrientationUp ? image : turnedUpright(image);
}

void storeBackgroundImage(NSString *text) {
  PreferenceFile::ofDomain(kThemeDomain).setValue(text, kBackgroundImage);
  tellThemeChanged();
}

std::size_t backgroundFingerprint() {
  static FileState known;
  static bool counts = false;
  static std::size_t fingerprint = 0;
  const auto file = PreferenceFile::ofDomain(kThemeDomain);
  const auto start = std::chrono::system_clock::now();
  const FileState state = fileState([file.path() fileSystemRepresentation]);
  if (!counts || known != state) {
    known = state;
    counts = showsChangesAfter(state, start);
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
