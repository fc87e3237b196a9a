// The simulator's own face of the photo picker.
#pragma once

#import <UIKit/UIImagePickerController.h>

@interface UIImagePickerController (Sim)
/// Where the photos of the device lie on this computer, whether or not there is such a folder.
+ (NSString *)sim_photoFolder;
/// Whether the file at `file` has more bytes than a photo of the device.
+ (BOOL)sim_isTooLarge:(NSString *)file;
/// The photos of the device: paths below its photo folder, sorted. Files whose extension is not that of a picture and
/// hidden files are left out.
@property(nonatomic, readonly) NSArray *sim_photoPaths;
/// What a finger on a photo does. `path` is one of `sim_photoPaths`.
///
/// NO when it is not, and when the file is no picture or too large; `error`, if not NULL, then says why in a sentence
/// for people, the delegate is told nothing and the picker stays.
- (BOOL)sim_pickPhotoAtPath:(NSString *)path error:(NSError **)error;
- (void)sim_cancel;
@end
