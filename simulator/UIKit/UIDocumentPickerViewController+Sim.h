// The simulator's own face of the file picker.
#pragma once

#import <UIKit/UIDocumentPickerViewController.h>

@interface UIDocumentPickerViewController (Sim)
/// The files to choose from: paths below the device's folder of documents, sorted; hidden files are left out.
@property(nonatomic, readonly) NSArray *sim_filePaths;
/// What a finger on a file does. `path` is one of `sim_filePaths`. In import mode the delegate gets a copy in a
/// temporary folder. The URL has to be opened for access before it is read.
///
/// NO when the path is not in the list or the copy fails; `error`, if not NULL, then says why in a sentence for people,
/// the delegate is told nothing and the picker stays.
- (BOOL)sim_pickFileAtPath:(NSString *)path error:(NSError **)error;
/// What a finger on a file of another provider of documents does: likewise with a copy, of the name `name`, of the file
/// at `file`, in either mode.
- (BOOL)sim_pickProvidedFile:(NSString *)file named:(NSString *)name error:(NSError **)error;
- (void)sim_cancel;
@end
