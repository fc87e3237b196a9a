#import "theme/ZunoImagePickerCell.h"

#import <Preferences/PSSpecifier.h>

#import "theme/BackgroundImage.h"
#import "theme/ZunoCustomiseRootListController.h"

@implementation ZunoImagePickerCell

@synthesize options = _options;

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)reuseIdentifier
                    specifier:(PSSpecifier *)specifier {
  return [super initWithStyle:style reuseIdentifier:reuseIdentifier specifier:specifier];
}

- (void)dealloc {
  [_photo release];
  [_options release];
  [super dealloc];
}

- (SEL)action {
  return @selector(openImagePicker);
}

- (id)target {
  return self;
}

- (SEL)cellAction {
  return @selector(openImagePicker);
}

- (id)cellTarget {
  return self;
}

- (PSSpecifier *)specifier {
  return [super specifier];
}

- (void)didMoveToSuperview {
  [super didMoveToSuperview];
  if (![self superview]) return;

  [self loadImageFromDict];
  [self takeTaps];
}

/// A cell that a table takes out of its queue shows again without having moved. While it is in no table it is filled in
/// when it comes into one. A photo is decoded again only when it is another.
- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  if (![self superview]) return;

  if (_photo && _shown == zuno::backgroundFingerprint()) {
    [[self imageView] setImage:_photo];
  } else {
    [self loadImageFromDict];
  }
  [self takeTaps];
}

- (void)takeTaps {
  [[self specifier] setTarget:self];
  [[self specifier] setButtonAction:@selector(openImagePicker)];
}

- (void)openImagePicker {
  NSLog(@"[Zuno] openImagePicker");
  if (UIImagePickerController *picker = zuno::photoPicker(self)) {
    [[ZunoCustomiseRootListController currentPage] presentViewController:picker animated:YES completion:nil];
  }
}

- (void)imagePickerController:(UIImagePickerController *)picker didFinishPickingMediaWithInfo:(NSDictionary *)info {
  if (NSString *text = [self encodeToBase64String:zuno::pickedImage(info)]) zuno::storeBackgroundImage(text);
  [picker dismissViewControllerAnimated:NO completion:nil];
  [self loadImageFromDict];
}

- (NSString *)encodeToBase64String:(UIImage *)image {
  return zuno::encodeImage(image);
}

- (UIImage *)decodeBase64ToImage:(NSString *)text {
  return zuno::decodeImage(text);
}

- (void)setCurrentImage:(UIImage *)image {
  [_photo release];
  _photo = nil;
  [[self imageView] setImage:image];
}

- (void)loadImageFromDict {
  const std::size_t fingerprint = zuno::backgroundFingerprint();
  if (UIImage *image = zuno::storedBackgroundImage()) {
    [self setCurrentImage:image];
    _photo = [image retain];
    _shown = fingerprint;
  }
}

@end
