#import "theme/BackgroundImage.h"

#import "core/PreferenceFile.h"

namespace zuno {
namespace {

NSString *const kBackgroundImage = @"backgroundImage";

}  // namespace

NSString *encodeImage(UIImage *image) {
  if (!image) return nil;
  return [UIImagePNGRepresentation(image) base64EncodedStringWithOptions:NSDataBase64Encoding64CharacterLineLength];
}

UIImage *decodeImage(id text) {
  if (![text isKindOfClass:[NSString class]]) return nil;
  NSData *png =
      [[[NSData alloc] initWithBase64EncodedString:text
                                           options:NSDataBase64DecodingIgnoreUnknownCharacters] autorelease];
  return png ? [UIImage imageWithData:png] : nil;
}

UIImage *storedBackgroundImage() {
  return decodeImage(PreferenceFile::ofDomain(kThemeDomain).value(kBackgroundImage));
}

bool storePickedImage(NSDictionary *info) {
  NSString *text = encodeImage([info objectForKey:UIImagePickerControllerOriginalImage]);
  if (!text) return false;
  (void)PreferenceFile::ofDomain(kThemeDomain).setValue(text, kBackgroundImage);
  return true;
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
