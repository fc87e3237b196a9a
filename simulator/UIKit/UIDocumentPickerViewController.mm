#import <UIKit/UIDocumentPickerViewController+Sim.h>

#import "PickedFile.h"

#import <Foundation/NSURL+Sim.h>
#import <Foundation/SIMDevice.h>
#include <objcxx/Retained.h>

namespace sim {
struct DocumentPickerState {
  UIDocumentPickerMode mode = UIDocumentPickerModeImport;
  BOOL allowsMultipleSelection = NO;
  id<UIDocumentPickerDelegate> delegate = nil;  // not owned
};
}  // namespace sim

namespace {
NSString *documentFolder() { return SIMDevicePath(@"/var/mobile/Documents"); }
}  // namespace

@implementation UIDocumentPickerViewController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _documentPickerState = std::make_unique<sim::DocumentPickerState>();
  return self;
}

- (instancetype)initWithDocumentTypes:(NSArray *)allowedUTIs inMode:(UIDocumentPickerMode)mode {
  if ([allowedUTIs count] == 0 || (mode != UIDocumentPickerModeImport && mode != UIDocumentPickerModeOpen)) {
    [self release];
    [NSException raise:NSInvalidArgumentException
                format:@"Documents are picked by their types, in the modes import and open."];
  }
  if (!(self = [self initWithNibName:nil bundle:nil])) return nil;

  _documentPickerState->mode = mode;
  return self;
}

- (UIDocumentPickerMode)documentPickerMode {
  return _documentPickerState->mode;
}

- (BOOL)allowsMultipleSelection {
  return _documentPickerState->allowsMultipleSelection;
}

- (void)setAllowsMultipleSelection:(BOOL)allows {
  _documentPickerState->allowsMultipleSelection = allows;
}

- (id<UIDocumentPickerDelegate>)delegate {
  return _documentPickerState->delegate;
}

- (void)setDelegate:(id<UIDocumentPickerDelegate>)delegate {
  _documentPickerState->delegate = delegate;
}

#pragma mark - Sim

- (NSArray *)sim_filePaths {
  return SIMDeviceFolder() ? sim::pathsBelow(documentFolder()) : @[];
}

- (BOOL)sim_pickFileAtPath:(NSString *)path error:(NSError **)error {
  if (!path || ![[self sim_filePaths] containsObject:path]) {
    return sim::fail(error, NSFileNoSuchFileError, @"There is no such file on the device.");
  }
  NSString *file = [documentFolder() stringByAppendingPathComponent:path];
  if (_documentPickerState->mode == UIDocumentPickerModeOpen) return [self sim_finishWithURL:[NSURL fileURLWithPath:file]];
  return [self sim_finishWithURL:sim::temporaryCopy(file, [file lastPathComponent], error)];
}

- (BOOL)sim_pickFileOfComputer:(NSString *)file named:(NSString *)name error:(NSError **)error {
  return [self sim_finishWithURL:sim::temporaryCopy(file, name, error)];
}

// Gives the file to the delegate. NO for nil.
- (BOOL)sim_finishWithURL:(NSURL *)url {
  if (!url) return NO;
  [url sim_setSecurityScope:SIMSecurityScopeReadable];

  const auto keepAlive = objcxx::share(self);
  id<UIDocumentPickerDelegate> delegate = _documentPickerState->delegate;
  [[self presentingViewController] dismissViewControllerAnimated:YES completion:nil];
  if ([delegate respondsToSelector:@selector(documentPicker:didPickDocumentsAtURLs:)]) {
    [delegate documentPicker:self didPickDocumentsAtURLs:@[ url ]];
  } else if ([delegate respondsToSelector:@selector(documentPicker:didPickDocumentAtURL:)]) {
    [delegate documentPicker:self didPickDocumentAtURL:url];
  }
  return YES;
}

- (void)sim_cancel {
  const auto keepAlive = objcxx::share(self);
  id<UIDocumentPickerDelegate> delegate = _documentPickerState->delegate;
  [[self presentingViewController] dismissViewControllerAnimated:YES completion:nil];
  if ([delegate respondsToSelector:@selector(documentPickerWasCancelled:)]) {
    [delegate documentPickerWasCancelled:self];
  }
}

@end
