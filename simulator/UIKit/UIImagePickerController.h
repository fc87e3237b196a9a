// The system's photo picker.
#pragma once

#import <UIKit/UINavigationController.h>

#include <objcxx/HiddenState.h>

@class UIImagePickerController;

typedef NS_ENUM(NSInteger, UIImagePickerControllerSourceType) {
  UIImagePickerControllerSourceTypePhotoLibrary = 0,
  UIImagePickerControllerSourceTypeCamera,
  UIImagePickerControllerSourceTypeSavedPhotosAlbum,
};

typedef NSString *UIImagePickerControllerInfoKey;
/// NSString, "public.image".
UIKIT_EXTERN UIImagePickerControllerInfoKey const UIImagePickerControllerMediaType;
/// UIImage.
UIKIT_EXTERN UIImagePickerControllerInfoKey const UIImagePickerControllerOriginalImage;
/// NSURL of a temporary copy of the file.
UIKIT_EXTERN UIImagePickerControllerInfoKey const UIImagePickerControllerImageURL;

@protocol UIImagePickerControllerDelegate <NSObject>
@optional
/// The delegate dismisses the picker.
- (void)imagePickerController:(UIImagePickerController *)picker didFinishPickingMediaWithInfo:(NSDictionary *)info;
/// Like above. Without this method the picker dismisses itself.
- (void)imagePickerControllerDidCancel:(UIImagePickerController *)picker;
@end

SIM_STATE_TYPE(ImagePickerState);

/// Main thread.
@interface UIImagePickerController : UINavigationController {
 @private
  SIM_STATE(ImagePickerState, _imagePickerState);
}
/// There is no camera; the library and the album are there when the device has a folder of photos.
+ (BOOL)isSourceTypeAvailable:(UIImagePickerControllerSourceType)sourceType;
/// nil for a source that is not available.
+ (NSArray *)availableMediaTypesForSourceType:(UIImagePickerControllerSourceType)sourceType;
/// Raises NSInvalidArgumentException for a source that is not available.
@property(nonatomic) UIImagePickerControllerSourceType sourceType;
/// "public.image" alone at first. Raises NSInvalidArgumentException for an empty array.
@property(nonatomic, copy) NSArray *mediaTypes;
@property(nonatomic) BOOL allowsEditing;
/// Not owned.
@property(nonatomic, assign) id<UINavigationControllerDelegate, UIImagePickerControllerDelegate> delegate;
@end
