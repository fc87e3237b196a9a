// The simulator's own face of the photo picker.
#pragma once

#import <UIKit/UIImagePickerController.h>

@interface UIImagePickerController (Sim)
/// Moves the picture at `file`, a path of this computer, into the device's photo library, as a camera or a transfer
/// does. Returns its path below the library, one of `sim_photoPaths` from now on.
///
/// nil when there is no library, the file is no picture that can be decoded or too large, or it cannot be moved;
/// `error`, if not NULL, then says why in a sentence for people, which calls the file by `name` unless that is nil.
/// NSFileWriteOutOfSpaceError and NSFileWriteUnknownError tell that the disk is at fault.
+ (NSString *)sim_addPhotoAtPath:(NSString *)file named:(NSString *)name error:(NSError **)error;
/// Where the photos of the device lie on this computer, whether or not there is such a folder.
+ (NSString *)sim_photoFolder;
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
