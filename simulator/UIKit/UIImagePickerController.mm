#import <UIKit/UIImagePickerController+Sim.h>

#import <Foundation/NotCarried.h>
#import "PickedFile.h"

#import <Foundation/SIMDevice.h>
#import <UIKit/UIImage.h>
#include <objcxx/Retained.h>

#include <memory>

UIImagePickerControllerInfoKey const UIImagePickerControllerMediaType = @"UIImagePickerControllerMediaType";
UIImagePickerControllerInfoKey const UIImagePickerControllerOriginalImage = @"UIImagePickerControllerOriginalImage";
UIImagePickerControllerInfoKey const UIImagePickerControllerImageURL = @"UIImagePickerControllerImageURL";

namespace sim {
struct ImagePickerState {
  UIImagePickerControllerSourceType sourceType = UIImagePickerControllerSourceTypePhotoLibrary;
  objcxx::Retained<NSArray> mediaTypes;
  BOOL allowsEditing = NO;
  id<UINavigationControllerDelegate, UIImagePickerControllerDelegate> delegate = nil;  // not owned
};
}  // namespace sim

namespace {

NSString *const kImageType = @"public.image";
constexpr unsigned long long kLargestFile = 200ull << 20;  // Bytes.

NSString *photoFolder() { return SIMDevicePath(@"/var/mobile/Media/DCIM"); }

}  // namespace

@implementation UIImagePickerController

+ (BOOL)isSourceTypeAvailable:(UIImagePickerControllerSourceType)sourceType {
  if (sourceType == UIImagePickerControllerSourceTypeCamera || !SIMDeviceFolder()) return NO;
  BOOL isFolder = NO;
  return [[NSFileManager defaultManager] fileExistsAtPath:photoFolder() isDirectory:&isFolder] && isFolder;
}

+ (NSArray *)availableMediaTypesForSourceType:(UIImagePickerControllerSourceType)sourceType {
  return [self isSourceTypeAvailable:sourceType] ? @[ kImageType ] : nil;
}

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _imagePickerState = std::make_unique<sim::ImagePickerState>();
  _imagePickerState->mediaTypes = objcxx::share(@[ kImageType ]);
  return self;
}

- (UIImagePickerControllerSourceType)sourceType {
  return _imagePickerState->sourceType;
}

- (void)setSourceType:(UIImagePickerControllerSourceType)sourceType {
  if (![UIImagePickerController isSourceTypeAvailable:sourceType]) {
    [NSException raise:NSInvalidArgumentException format:@"Source type %ld not available.", (long)sourceType];
  }
  _imagePickerState->sourceType = sourceType;
}

- (NSArray *)mediaTypes {
  return _imagePickerState->mediaTypes.get();
}

- (void)setMediaTypes:(NSArray *)mediaTypes {
  if ([mediaTypes count] == 0) {
    [NSException raise:NSInvalidArgumentException format:@"The media types must not be empty."];
  }
  _imagePickerState->mediaTypes = objcxx::adopt((NSArray *)[mediaTypes copy]);
}

- (BOOL)allowsEditing {
  return _imagePickerState->allowsEditing;
}

- (void)setAllowsEditing:(BOOL)allowsEditing {
  if (allowsEditing) {
    sim::notCarried(@"UIImagePickerController.allowsEditing", @"A picked photo is given whole and as it is.");
  }
  _imagePickerState->allowsEditing = allowsEditing;
}

- (id<UINavigationControllerDelegate, UIImagePickerControllerDelegate>)delegate {
  return _imagePickerState->delegate;
}

- (void)setDelegate:(id<UINavigationControllerDelegate, UIImagePickerControllerDelegate>)delegate {
  _imagePickerState->delegate = delegate;
  [super setDelegate:delegate];
}

#pragma mark - Sim

+ (NSString *)sim_photoFolder {
  return photoFolder();
}

+ (BOOL)sim_isTooLarge:(NSString *)file {
  NSString *real = [file stringByResolvingSymlinksInPath];
  return [[[NSFileManager defaultManager] attributesOfItemAtPath:real error:NULL] fileSize] > kLargestFile;
}

- (NSArray *)sim_photoPaths {
  if (![UIImagePickerController isSourceTypeAvailable:UIImagePickerControllerSourceTypePhotoLibrary]) return @[];
  if (![_imagePickerState->mediaTypes.get() containsObject:kImageType]) return @[];  // The library holds no films.
  return sim::pathsBelow(photoFolder(), {".png", ".jpg", ".jpeg", ".heic", ".heif", ".webp", ".gif", ".tif", ".tiff"});
}

- (BOOL)sim_pickPhotoAtPath:(NSString *)path error:(NSError **)error {
  NSString *name = [path lastPathComponent];
  if (!path || ![[self sim_photoPaths] containsObject:path]) {
    return sim::fail(error, NSFileNoSuchFileError, @"There is no such photo on the device.");
  }
  NSString *file = [photoFolder() stringByAppendingPathComponent:path];
  if ([UIImagePickerController sim_isTooLarge:file]) {
    return sim::fail(error, NSFileReadTooLargeError, [NSString stringWithFormat:@"“%@” is too large.", name]);
  }
  UIImage *image = [UIImage imageWithData:[NSData dataWithContentsOfFile:file]];
  if (![image CGImage]) {
    return sim::fail(error, NSFileReadCorruptFileError,
                     [NSString stringWithFormat:@"“%@” is damaged, too large, or not a picture.", name]);
  }
  NSURL *copy = sim::temporaryCopy(file, name, error);
  if (!copy) return NO;

  const auto keepAlive = objcxx::share(self);
  id<UIImagePickerControllerDelegate> delegate = _imagePickerState->delegate;
  if ([delegate respondsToSelector:@selector(imagePickerController:didFinishPickingMediaWithInfo:)]) {
    [delegate imagePickerController:self
        didFinishPickingMediaWithInfo:@{
          UIImagePickerControllerMediaType : kImageType,
          UIImagePickerControllerOriginalImage : image,
          UIImagePickerControllerImageURL : copy,
        }];
  }
  return YES;
}

- (void)sim_cancel {
  const auto keepAlive = objcxx::share(self);
  id<UIImagePickerControllerDelegate> delegate = _imagePickerState->delegate;
  if ([delegate respondsToSelector:@selector(imagePickerControllerDidCancel:)]) {
    [delegate imagePickerControllerDidCancel:self];
  } else {
    [[self presentingViewController] dismissViewControllerAnimated:YES completion:nil];
  }
}

@end
