#import <UIKit/UIImagePickerController+Sim.h>

#import <Foundation/NotCarried.h>
#import "PhotoLibrary.hpp"
#import "PickedFile.h"

#import <Foundation/FileAccess.h>
#import <Foundation/SIMDevice.h>
#import <UIKit/UIImage.h>
#include <objcxx/Retained.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <vector>

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

NSString *const imageType = @"public.image";
constexpr unsigned long long largestFile = 200ull << 20;  // Bytes.

NSString *photoFolder() { return SIMDevicePath(@"/var/mobile/Media/DCIM"); }

BOOL isTooLarge(NSString *file) {
  NSString *real = [file stringByResolvingSymlinksInPath];
  return [[[NSFileManager defaultManager] attributesOfItemAtPath:real error:NULL] fileSize] > largestFile;
}

// How a sentence calls a file of that name, or of none.
NSString *called(NSString *name) { return name ? [NSString stringWithFormat:@"“%@”", name] : @"The file"; }

BOOL failAsNoPicture(NSString *name, NSError **error) {
  return sim::fail(error, NSFileReadCorruptFileError,
                   [NSString stringWithFormat:@"%@ is damaged, too large, or not a picture.", called(name)]);
}

sim::SharedBytes bytesOf(NSString *file) {
  const auto content = sim::contentOfFile(file, nullptr);
  if (!content) return nullptr;
  const auto *bytes = reinterpret_cast<const std::uint8_t *>(content->bytes().data());
  return std::make_shared<const std::vector<std::uint8_t>>(bytes, bytes + content->bytes().size());
}

}  // namespace

@implementation UIImagePickerController

+ (BOOL)isSourceTypeAvailable:(UIImagePickerControllerSourceType)sourceType {
  if (sourceType == UIImagePickerControllerSourceTypeCamera || !SIMDeviceFolder()) return NO;
  BOOL isFolder = NO;
  return [[NSFileManager defaultManager] fileExistsAtPath:photoFolder() isDirectory:&isFolder] && isFolder;
}

+ (NSArray *)availableMediaTypesForSourceType:(UIImagePickerControllerSourceType)sourceType {
  return [self isSourceTypeAvailable:sourceType] ? @[ imageType ] : nil;
}

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _imagePickerState = std::make_unique<sim::ImagePickerState>();
  _imagePickerState->mediaTypes = objcxx::share(@[ imageType ]);
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

+ (NSString *)sim_addPhotoAtPath:(NSString *)file named:(NSString *)name error:(NSError **)error {
  if (![self isSourceTypeAvailable:UIImagePickerControllerSourceTypePhotoLibrary]) {
    sim::fail(error, NSFileNoSuchFileError,
              @"The device has no photo library: its folder /var/mobile/Media/DCIM is missing.");
    return nil;
  }
  const sim::SharedBytes bytes = isTooLarge(file) ? nullptr : bytesOf(file);
  const auto extension = bytes ? sim::photoExtension(bytes) : std::nullopt;
  if (!extension) {
    failAsNoPicture(name, error);
    return nil;
  }
  const auto added =
      sim::addPhoto([photoFolder() fileSystemRepresentation], [file fileSystemRepresentation], *extension);
  if (const std::string *path = std::get_if<std::string>(&added)) return [NSString stringWithUTF8String:path->c_str()];
  const int number = std::get<int>(added);
  const bool isFull = number == ENOSPC || number == EDQUOT;
  sim::fail(error, isFull ? NSFileWriteOutOfSpaceError : NSFileWriteUnknownError,
            [NSString stringWithFormat:@"%@ could not be put into the photo library: %s.", called(name),
                                       std::strerror(number)]);
  return nil;
}

+ (NSString *)sim_photoFolder {
  return photoFolder();
}

- (NSArray *)sim_photoPaths {
  if (![UIImagePickerController isSourceTypeAvailable:UIImagePickerControllerSourceTypePhotoLibrary]) return @[];
  if (![_imagePickerState->mediaTypes.get() containsObject:imageType]) return @[];  // The library holds no films.
  return sim::pathsBelow(photoFolder(), {".png", ".jpg", ".jpeg", ".heic", ".heif", ".webp", ".gif", ".tif", ".tiff"});
}

- (BOOL)sim_pickPhotoAtPath:(NSString *)path error:(NSError **)error {
  NSString *name = [path lastPathComponent];
  if (!path || ![[self sim_photoPaths] containsObject:path]) {
    return sim::fail(error, NSFileNoSuchFileError, @"There is no such photo on the device.");
  }
  NSString *file = [photoFolder() stringByAppendingPathComponent:path];
  if (isTooLarge(file)) {
    return sim::fail(error, NSFileReadTooLargeError, [NSString stringWithFormat:@"“%@” is too large.", name]);
  }
  UIImage *image = [UIImage imageWithData:[NSData dataWithContentsOfFile:file]];
  if (![image CGImage]) return failAsNoPicture(name, error);
  NSURL *copy = sim::temporaryCopy(file, name, error);
  if (!copy) return NO;

  const auto keepAlive = objcxx::share(self);
  id<UIImagePickerControllerDelegate> delegate = _imagePickerState->delegate;
  if ([delegate respondsToSelector:@selector(imagePickerController:didFinishPickingMediaWithInfo:)]) {
    [delegate imagePickerController:self
        didFinishPickingMediaWithInfo:@{
          UIImagePickerControllerMediaType : imageType,
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
