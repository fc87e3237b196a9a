#import <UIKit/UIDocumentPickerViewController+Sim.h>

#import <Foundation/NotCarried.h>
#import "DocumentTypes.hpp"
#import "PickedFile.h"

#import <Foundation/NSURL+Sim.h>
#import <Foundation/SIMDevice.h>
#include <objcxx/Retained.h>

namespace sim {
struct DocumentPickerState {
  objcxx::Retained<NSArray> types;
  UIDocumentPickerMode mode = UIDocumentPickerModeImport;
  BOOL allowsMultipleSelection = NO;
  id<UIDocumentPickerDelegate> delegate = nil;  // not owned
};
}  // namespace sim

namespace {
NSString *documentFolder() { return SIMDevicePath(@"/var/mobile/Documents"); }

BOOL isOfTypes(NSString *path, NSArray *types) {
  for (NSString *type in types) {
    if (sim::isOfDocumentType([[path lastPathComponent] UTF8String], [type UTF8String])) return YES;
  }
  return NO;
}
}  // namespace

@implementation UIDocumentPickerViewController

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
  if (!(self = [super initWithNibName:nibName bundle:bundle])) return nil;

  _documentPickerState = std::make_unique<sim::DocumentPickerState>();
  _documentPickerState->types = objcxx::share(@[ @"public.item" ]);
  return self;
}

- (instancetype)initWithDocumentTypes:(NSArray *)allowedUTIs inMode:(UIDocumentPickerMode)mode {
  if ([allowedUTIs count] == 0 || (mode != UIDocumentPickerModeImport && mode != UIDocumentPickerModeOpen)) {
    [self release];
    [NSException raise:NSInvalidArgumentException
                format:@"Documents are picked by their types, in the modes import and open."];
  }
  if (!(self = [self initWithNibName:nil bundle:nil])) return nil;

  _documentPickerState->types = objcxx::adopt((NSArray *)[allowedUTIs copy]);
  _documentPickerState->mode = mode;
  for (NSString *type in allowedUTIs) {
    if (sim::isDocumentType([type UTF8String])) continue;
    sim::notCarried([@"The document type " stringByAppendingString:type], @"No file on this device is of that type.");
  }
  return self;
}

- (UIDocumentPickerMode)documentPickerMode {
  return _documentPickerState->mode;
}

- (BOOL)allowsMultipleSelection {
  return _documentPickerState->allowsMultipleSelection;
}

- (void)setAllowsMultipleSelection:(BOOL)allows {
  if (allows) {
    sim::notCarried(@"UIDocumentPickerViewController.allowsMultipleSelection", @"One document is picked at a time.");
  }
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
  if (!SIMDeviceFolder()) return @[];
  NSMutableArray *paths = [NSMutableArray array];
  for (NSString *path in sim::pathsBelow(documentFolder())) {
    if (isOfTypes(path, _documentPickerState->types.get())) [paths addObject:path];
  }
  return paths;
}

- (BOOL)sim_pickFileAtPath:(NSString *)path error:(NSError **)error {
  if (!path || ![[self sim_filePaths] containsObject:path]) {
    return sim::fail(error, NSFileNoSuchFileError, @"There is no such file on the device.");
  }
  NSString *file = [documentFolder() stringByAppendingPathComponent:path];
  if (_documentPickerState->mode == UIDocumentPickerModeOpen)
    return [self sim_finishWithURL:[NSURL fileURLWithPath:file]];
  return [self sim_finishWithURL:sim::temporaryCopy(file, [file lastPathComponent], error)];
}

- (BOOL)sim_pickProvidedFile:(NSString *)file named:(NSString *)name error:(NSError **)error {
  if (!isOfTypes(name, _documentPickerState->types.get())) {
    return sim::fail(error, NSFileReadUnknownError,
                     [NSString stringWithFormat:@"“%@” is of a type that cannot be picked here.", name]);
  }
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
