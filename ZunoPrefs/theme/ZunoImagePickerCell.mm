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
  [self fillInRow];
}

/// A cell that a table takes out of its queue shows again without having moved.
- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  [self fillInRow];
}

/// Shows the stored image and takes the row's taps. Nothing while the cell is in no table: it is filled in when it
/// comes into one.
- (void)fillInRow {
  if (![self superview]) return;

  [self loadImageFromDict];
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
  [[self imageView] setImage:image];
}

- (void)loadImageFromDict {
  if (UIImage *image = zuno::storedBackgroundImage()) [self setCurrentImage:image];
}

@end
