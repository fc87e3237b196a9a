// The system's file picker.
#pragma once

#import <UIKit/UIViewController.h>

#include <objcxx/HiddenState.h>

@class UIDocumentPickerViewController;

typedef NS_ENUM(NSUInteger, UIDocumentPickerMode) {
  UIDocumentPickerModeImport = 0,
  UIDocumentPickerModeOpen,
  UIDocumentPickerModeExportToService,
  UIDocumentPickerModeMoveToService,
};

@protocol UIDocumentPickerDelegate <NSObject>
@optional
/// Before the other method of the two when the delegate has both.
- (void)documentPicker:(UIDocumentPickerViewController *)controller didPickDocumentsAtURLs:(NSArray<NSURL *> *)urls;
- (void)documentPicker:(UIDocumentPickerViewController *)controller didPickDocumentAtURL:(NSURL *)url;
- (void)documentPickerWasCancelled:(UIDocumentPickerViewController *)controller;
@end

SIM_STATE_TYPE(DocumentPickerState);

/// The picker begins to dismiss itself before it tells its delegate: as on a device, what presented it presents nothing
/// else until it has gone. Main thread.
@interface UIDocumentPickerViewController : UIViewController {
 @private
  SIM_STATE(DocumentPickerState, _documentPickerState);
}
/// For the modes import and open. Raises NSInvalidArgumentException for any other mode and for no types.
- (instancetype)initWithDocumentTypes:(NSArray *)allowedUTIs inMode:(UIDocumentPickerMode)mode;
@property(nonatomic, readonly) UIDocumentPickerMode documentPickerMode;
/// NO at first.
@property(nonatomic) BOOL allowsMultipleSelection;
/// Not owned.
@property(nonatomic, assign) id<UIDocumentPickerDelegate> delegate;
@end
